#include "support/TestSupport.h"
#include "tools/core/ProgramBrowse.h"
#include "tools/core/WizardPages.h"

using namespace tessaro;

class tst_WizardPages : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void nextLeadsFromEachPageToTheFollowingOneAndNotPastTheLast()
    {
        QCOMPARE(wizard::nextPage(1), 2);
        QCOMPARE(wizard::nextPage(2), 3);
        QCOMPARE(wizard::nextPage(3), 4);
        QCOMPARE(wizard::nextPage(4), 5);
        QCOMPARE(wizard::nextPage(5), 0);
        QCOMPARE(wizard::nextPage(0), 0);
        QCOMPARE(wizard::nextPage(6), 0);
    }

    void backLeadsToThePreviousPageAndTheChecklistHasNoBack()
    {
        QCOMPARE(wizard::backPage(1), 0);
        QCOMPARE(wizard::backPage(2), 1);
        QCOMPARE(wizard::backPage(3), 2);
        QCOMPARE(wizard::backPage(4), 3);
        QCOMPARE(wizard::backPage(5), 4);
        QCOMPARE(wizard::backPage(6), 0);
    }

    void checklistIsFiveLinesJoinedByCrLf()
    {
        const QStringList lines = wizard::checklistText().split(QStringLiteral("\r\n"));
        QCOMPARE(lines.size(), 5);
        QCOMPARE(lines[0], QStringLiteral("Welcome to the Tessaro Mod Publishing Wizard, this "
                                          "wizard will take you step by step "
                                          "in packing up your mod and launching and publicizing it "
                                          "on the internet, by now, you "
                                          "should already have done:"));
        QCOMPARE(lines[1], QStringLiteral("> Your coded mod and all the other parts of your mod "
                                          "compressed using zip or any other method of "
                                          "compression"));
        QCOMPARE(lines[2], QStringLiteral("> A readme.txt to go along with your mod"));
        QCOMPARE(lines[3],
                 QStringLiteral("> An update to your website and/or a new website for your mod"));
        QCOMPARE(lines[4], QStringLiteral("If you don't have the above done, click cancel and go "
                                          "do that, if you have all of it done, click next to "
                                          "continue"));
        QVERIFY(!wizard::checklistText().contains(QStringLiteral("\r\n\r\n")));
        QVERIFY(!wizard::checklistText().endsWith(QLatin1Char('\n')));
    }

    void hostPageNamesTwoFreeHostsJoinedByOr()
    {
        const wizard::PageTexts texts = wizard::pageTexts(2);
        QCOMPARE(texts.title, QStringLiteral("Step 1 - Finding a Host"));
        QCOMPARE(texts.explanation,
                 QStringLiteral("If you already have your site hosted somewhere, you can skip this "
                                "step, if not, find your web browser with the browse button "
                                "below, or used the one you specified in the options dialog and "
                                "click execute to start it. use your browser and connect to the "
                                "internet to find hosts, such as neocities.org or "
                                "pages.github.com, just find a host and sign-up."));
    }

    void uploadPageNamesADownloadSite()
    {
        const wizard::PageTexts texts = wizard::pageTexts(3);
        QCOMPARE(texts.title, QStringLiteral("Step 2 - Upload your mod"));
        QCOMPARE(texts.explanation,
                 QStringLiteral("Now that you've found a host, you should be getting some FTP "
                                "information on how to transfer files, now you can specify the "
                                "path to your main ftp client (if you don't have one get one at "
                                "sourceforge.net or something) and click execute to upload your "
                                "mod, if you would like to upload later, just click next to go on "
                                "without executing. If you need to upload, start the FTP client "
                                "and upload your mod and website."));
    }

    void publicizePageNamesTheMaintainersAddress()
    {
        const wizard::PageTexts texts = wizard::pageTexts(4);
        QCOMPARE(texts.title, QStringLiteral("Step 3 - Publicize your mod"));
        QCOMPARE(texts.explanation,
                 QStringLiteral("Now the site is up, the mod is uploaded, now all you have to do "
                                "is to send news to news sites, and, if your mod is code-only and "
                                "under 10 megs, send an email to mods@tessaro.org and include "
                                "your mod's name, size, description, and URL, so you could be "
                                "listed in the Tessaro coded mods section."));
    }

    void closingPageTexts()
    {
        const wizard::PageTexts texts = wizard::pageTexts(5);
        QCOMPARE(texts.title, QStringLiteral("Congratulations!!!"));
        QCOMPARE(texts.explanation,
                 QStringLiteral("Well, that's it, your mod is on the internet, you let people "
                                "know about your mod. So just wait for the comments and/or bug "
                                "reports come in. you can now go back to make any changes, or "
                                "just press finish and keep coding!"));
    }

    void eachToolPageEditsItsOwnSetting()
    {
        ToolSettings tools;
        struct Expected
        {
            int page;
            const char *box, *key, *label, *title;
        };
        const Expected expected[] = {
            {2, "txtWeb", "webPath", "Web Browser", "Browse for Web Browser"},
            {3, "txtFTP", "ftpPath", "FTP Client", "Browse for FTP Client"},
            {4, "txtEma", "emaPath", "Email Client", "Browse for Email Client"},
        };
        for (const Expected &e : expected) {
            const wizard::ToolPage tool = wizard::toolPage(e.page);
            QVERIFY(wizard::isToolPage(e.page));
            QCOMPARE(tool.page, e.page);
            QCOMPARE(tool.boxName, QLatin1String(e.box));
            QCOMPARE(tool.settingKey, QLatin1String(e.key));
            QCOMPARE(tool.toolLabel, QLatin1String(e.label));
            QCOMPARE(tool.browseTitle, QLatin1String(e.title));
            // The member the page writes is the one the setting's key names.
            tools.*tool.setting = QStringLiteral("/usr/bin/tool%1").arg(e.page);
            QCOMPARE(tools.value(tool.settingKey).value(), tools.*tool.setting);
        }
        QVERIFY(!wizard::isToolPage(1));
        QVERIFY(!wizard::isToolPage(5));
        QVERIFY(wizard::toolPage(1).setting == nullptr);
    }

    void unloadKeepsANonEmptyBoxAndIgnoresAnEmptyOne()
    {
        QString setting = QStringLiteral("/usr/bin/old");
        wizard::keepPathOnUnload(setting, QString());
        QCOMPARE(setting, QStringLiteral("/usr/bin/old"));
        wizard::keepPathOnUnload(setting, QStringLiteral("/usr/bin/new"));
        QCOMPARE(setting, QStringLiteral("/usr/bin/new"));
        // Blanks are text like any other.
        wizard::keepPathOnUnload(setting, QStringLiteral(" "));
        QCOMPARE(setting, QStringLiteral(" "));
    }

    void browsingForAProgramAsksForAnyFileWithoutCancelError()
    {
        const FileDialogRequest request = programbrowse::request(QStringLiteral("Browse for X"));
        QCOMPARE(request.kind, FileDialogRequest::Open);
        QCOMPARE(request.title, QStringLiteral("Browse for X"));
        QCOMPARE(request.filter, QStringLiteral("Executables (*)|*"));
        QCOMPARE(qtNameFilters(request.filter), QStringList{QStringLiteral("Executables (*)")});
        QVERIFY(!request.cancelError);
        QVERIFY(!request.allowMultiSelect);
    }

    void cancelledProgramBrowseGivesAnEmptyName()
    {
        test::ScriptedCommonDialog dialog;
        QCOMPARE(programbrowse::choose(programbrowse::ftpTitle), QString());
        dialog.answers << QStringLiteral("/usr/bin/lftp");
        QCOMPARE(programbrowse::choose(programbrowse::webTitle), QStringLiteral("/usr/bin/lftp"));
        QCOMPARE(dialog.requests.size(), 2);
        QCOMPARE(dialog.requests[0].title, QStringLiteral("Browse for FTP Client"));
        QCOMPARE(dialog.requests[1].title, QStringLiteral("Browse for Web Browser"));
        QCOMPARE(programbrowse::emailTitle, QStringLiteral("Browse for Email Client"));
    }
};

TESSARO_CORE_TEST_MAIN(tst_WizardPages)
#include "tst_WizardPages.moc"
