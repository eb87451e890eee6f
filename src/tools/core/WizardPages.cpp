#include "tools/core/WizardPages.h"

#include "tools/core/ProgramBrowse.h"

#include <QStringList>

namespace tessaro::wizard {

int nextPage(int page)
{
    return page >= firstPage && page < lastPage ? page + 1 : 0;
}

int backPage(int page)
{
    return page > firstPage && page <= lastPage ? page - 1 : 0;
}

QString checklistText()
{
    const QStringList lines = {
        QStringLiteral(
            "Welcome to the Tessaro Mod Publishing Wizard, this wizard will take you step "
            "by step in packing up your mod and launching and publicizing it on the "
            "internet, by now, you should already have done:"),
        QStringLiteral("> Your coded mod and all the other parts of your mod compressed using zip "
                       "or any other method of compression"),
        QStringLiteral("> A readme.txt to go along with your mod"),
        QStringLiteral("> An update to your website and/or a new website for your mod"),
        QStringLiteral("If you don't have the above done, click cancel and go do that, if you have "
                       "all of it done, click next to continue"),
    };
    return lines.join(QStringLiteral("\r\n"));
}

PageTexts pageTexts(int page)
{
    switch (page) {
    case 2:
        return {QStringLiteral("Step 1 - Finding a Host"),
                QStringLiteral("If you already have your site hosted somewhere, you can skip this "
                               "step, if not, find your web browser with the browse button below, "
                               "or used the one you specified in the options dialog and click "
                               "execute to start it. use your browser and connect to the internet "
                               "to find hosts, such as ") +
                    freeHostOne + QStringLiteral(" or ") + freeHostTwo +
                    QStringLiteral(", just find a host and sign-up.")};
    case 3:
        return {QStringLiteral("Step 2 - Upload your mod"),
                QStringLiteral("Now that you've found a host, you should be getting some FTP "
                               "information on how to transfer files, now you can specify the "
                               "path to your main ftp client (if you don't have one get one at ") +
                    downloadSite +
                    QStringLiteral(" or something) and click execute to upload your mod, if you "
                                   "would like to upload later, just click next to go on without "
                                   "executing. If you need to upload, start the FTP client and "
                                   "upload your mod and website.")};
    case 4:
        return {QStringLiteral("Step 3 - Publicize your mod"),
                QStringLiteral("Now the site is up, the mod is uploaded, now all you have to do is "
                               "to send news to news sites, and, if your mod is code-only and "
                               "under 10 megs, send an email to ") +
                    maintainersAddress +
                    QStringLiteral(" and include your mod's name, size, description, and URL, so "
                                   "you could be listed in the Tessaro coded mods section.")};
    case 5:
        return {QStringLiteral("Congratulations!!!"),
                QStringLiteral("Well, that's it, your mod is on the internet, you let people know "
                               "about your mod. So just wait for the comments and/or bug reports "
                               "come in. you can now go back to make any changes, or just press "
                               "finish and keep coding!")};
    default: return {};
    }
}

ToolPage toolPage(int page)
{
    switch (page) {
    case 2:
        return {2,
                QStringLiteral("txtWeb"),
                QStringLiteral("webPath"),
                QStringLiteral("Web Browser"),
                programbrowse::webTitle,
                &ToolSettings::webPath};
    case 3:
        return {3,
                QStringLiteral("txtFTP"),
                QStringLiteral("ftpPath"),
                QStringLiteral("FTP Client"),
                programbrowse::ftpTitle,
                &ToolSettings::ftpPath};
    case 4:
        return {4,
                QStringLiteral("txtEma"),
                QStringLiteral("emaPath"),
                QStringLiteral("Email Client"),
                programbrowse::emailTitle,
                &ToolSettings::emaPath};
    default: return {};
    }
}

bool isToolPage(int page)
{
    return page >= 2 && page <= 4;
}

void keepPathOnUnload(QString &setting, const QString &boxText)
{
    if (!boxText.isEmpty())
        setting = boxText;
}

} // namespace tessaro::wizard
