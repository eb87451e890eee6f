#include "platform/core/ErrorTraps.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "tools/ui/PublishingWizard.h"
#include "tools/ui/ToolWizardPage.h"
#include "tools/ui/ToolsCommands.h"
#include "tools/ui/frmMP1.h"
#include "tools/ui/frmMP5.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>

using namespace tessaro;

namespace {

const QString caption = QStringLiteral("Mod Publishing Wizard");

QPushButton *button(QWidget *page, const char *name)
{
    return page->findChild<QPushButton *>(QLatin1String(name));
}

QString labelText(QWidget *page, const char *name)
{
    auto *label = page->findChild<QLabel *>(QLatin1String(name));
    return label ? label->text() : QStringLiteral("<no %1>").arg(QLatin1String(name));
}

// The pages currently loaded, as their numbers.
QList<int> loadedPages()
{
    QList<int> numbers;
    for (int n = 1; n <= 5; ++n) {
        if (wizard::loadedPage(n))
            numbers << n;
    }
    return numbers;
}

// The one loaded page, after the deferred deletion of the unloaded ones.
WizardPage *currentPage()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QList<int> numbers = loadedPages();
    return numbers.size() == 1 ? wizard::loadedPage(numbers.first()) : nullptr;
}

ToolWizardPage *toolPage(int number)
{
    return qobject_cast<ToolWizardPage *>(wizard::loadedPage(number));
}

void closeAllPages()
{
    for (int n = 1; n <= 5; ++n) {
        if (WizardPage *page = wizard::loadedPage(n))
            page->close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A stand-in program: records how many arguments it got into `marker`.
QString writeStandIn(const QTemporaryDir &dir, const QString &marker)
{
    // Blanks in the folder and the name: the path is one program, never split.
    QDir(dir.path()).mkdir(QStringLiteral("my tools"));
    const QString path = dir.filePath(QStringLiteral("my tools/stand-in tool"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write(QStringLiteral("#!/bin/sh\necho \"$#\" > '%1.tmp' && mv '%1.tmp' '%1'\n")
                   .arg(marker)
                   .toLocal8Bit());
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

} // namespace

class tst_PublishingWizard : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { resetApp(); }
    void cleanup() { closeAllPages(); }

    void publishModShowsTheChecklistWithoutWaiting()
    {
        ToolsCommands::mnuBuildUpload_Click(); // returns at once: no modal wait
        WizardPage *page = currentPage();
        QVERIFY(page);
        QCOMPARE(page->objectName(), QStringLiteral("frmMP1"));
        QVERIFY(qobject_cast<frmMP1 *>(page));
        QVERIFY(page->isVisible());
        QVERIFY(page->isWindow());
        QVERIFY(!page->isModal());
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
    }

    void publishModTwiceKeepsOneChecklistPage()
    {
        ToolsCommands::mnuBuildUpload_Click();
        WizardPage *first = wizard::loadedPage(1);
        ToolsCommands::mnuBuildUpload_Click();
        QCOMPARE(wizard::loadedPage(1), first);
        QCOMPARE(loadedPages(), QList<int>{1});
    }

    void publishModWhileOnALaterPageOpensTheChecklistBesideIt()
    {
        wizard::showPage(3);
        ToolsCommands::mnuBuildUpload_Click();
        QCOMPARE(loadedPages(), (QList<int>{1, 3}));
        // Moving on from the checklist to a page that is open reuses that window.
        WizardPage *third = wizard::loadedPage(3);
        wizard::showPage(2);
        QCOMPARE(wizard::showPage(3), third);
    }

    void everyPageHasTheCaptionAndThePicture()
    {
        for (int n = 1; n <= 5; ++n) {
            WizardPage *page = wizard::showPage(n);
            QCOMPARE(page->objectName(), QStringLiteral("frmMP%1").arg(n));
            QCOMPARE(page->windowTitle(), caption);
            auto *picture = page->findChild<QLabel *>(QStringLiteral("Picture1"));
            QVERIFY(picture);
            QVERIFY(!picture->pixmap().isNull());
            QVERIFY(picture->pixmap().width() > 50);
            page->close();
        }
    }

    void checklistPageTexts()
    {
        WizardPage *page = wizard::showPage(1);
        QCOMPARE(labelText(page, "Label1"),
                 QStringLiteral(
                     "Welcome to the Tessaro Mod Publishing Wizard, this wizard will take you step "
                     "by step in packing up your mod and launching and publicizing it on the "
                     "internet, by now, you should already have done:\r\n"
                     "> Your coded mod and all the other parts of your mod compressed using zip or "
                     "any other method of compression\r\n"
                     "> A readme.txt to go along with your mod\r\n"
                     "> An update to your website and/or a new website for your mod\r\n"
                     "If you don't have the above done, click cancel and go do that, if you have "
                     "all of it done, click next to continue"));
        QCOMPARE(button(page, "cmdCancel")->text(), QStringLiteral("Cancel"));
        QCOMPARE(button(page, "cmdNext")->text(), QStringLiteral("Next >"));
        QVERIFY(!button(page, "cmdBack"));
        QVERIFY(!button(page, "cmdExec"));
    }

    void toolPageTexts_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("explanation");
        QTest::addColumn<QString>("tool");
        QTest::addColumn<QString>("box");
        QTest::newRow("web browser")
            << 2 << "Step 1 - Finding a Host"
            << "If you already have your site hosted somewhere, you can skip this step, if not, "
               "find your web browser with the browse button below, or used the one you "
               "specified in the options dialog and click execute to start it. use your browser "
               "and connect to the internet to find hosts, such as neocities.org or "
               "pages.github.com, just find a host and sign-up."
            << "Web Browser"
            << "txtWeb";
        QTest::newRow("ftp client")
            << 3 << "Step 2 - Upload your mod"
            << "Now that you've found a host, you should be getting some FTP information on how "
               "to transfer files, now you can specify the path to your main ftp client (if you "
               "don't have one get one at sourceforge.net or something) and click execute to "
               "upload your mod, if you would like to upload later, just click next to go on "
               "without executing. If you need to upload, start the FTP client and upload your "
               "mod and website."
            << "FTP Client"
            << "txtFTP";
        QTest::newRow("email client")
            << 4 << "Step 3 - Publicize your mod"
            << "Now the site is up, the mod is uploaded, now all you have to do is to send news "
               "to news sites, and, if your mod is code-only and under 10 megs, send an email to "
               "mods@tessaro.org and include your mod's name, size, description, and URL, so you "
               "could be listed in the Tessaro coded mods section."
            << "Email Client"
            << "txtEma";
    }

    void toolPageTexts()
    {
        QFETCH(int, number);
        QFETCH(QString, title);
        QFETCH(QString, explanation);
        QFETCH(QString, tool);
        QFETCH(QString, box);
        WizardPage *page = wizard::showPage(number);
        QCOMPARE(labelText(page, "Label1"), title);
        QCOMPARE(labelText(page, "Label2"), explanation);
        QCOMPARE(labelText(page, "Label3"), tool);
        QVERIFY(page->findChild<QLineEdit *>(box));
        QCOMPARE(button(page, "cmdBrowse")->text(), QStringLiteral("Browse..."));
        QCOMPARE(button(page, "cmdExec")->text(), QStringLiteral("Execute"));
        QCOMPARE(button(page, "cmdBack")->text(), QStringLiteral("< Back"));
        QCOMPARE(button(page, "cmdCancel")->text(), QStringLiteral("Cancel"));
        QCOMPARE(button(page, "cmdNext")->text(), QStringLiteral("Next >"));
    }

    void closingPageTexts()
    {
        WizardPage *page = wizard::showPage(5);
        QCOMPARE(labelText(page, "Label1"), QStringLiteral("Congratulations!!!"));
        QCOMPARE(labelText(page, "Label2"),
                 QStringLiteral("Well, that's it, your mod is on the internet, you let people know "
                                "about your mod. So just wait for the comments and/or bug reports "
                                "come in. you can now go back to make any changes, or just press "
                                "finish and keep coding!"));
        QCOMPARE(button(page, "cmdBack")->text(), QStringLiteral("< Back"));
        QCOMPARE(button(page, "cmdCancel")->text(), QStringLiteral("Finish"));
        QVERIFY(!button(page, "cmdNext"));
    }

    void walkNextToTheEndAndFinishThenBackAgain()
    {
        ToolsCommands::mnuBuildUpload_Click();
        for (int n = 1; n <= 4; ++n) {
            WizardPage *page = currentPage();
            QVERIFY(page);
            QCOMPARE(page->pageNumber(), n);
            QPointer<WizardPage> left = page;
            QTest::mouseClick(button(page, "cmdNext"), Qt::LeftButton);
            // The next page is shown and the left one is gone: one page at a time.
            QCOMPARE(currentPage()->pageNumber(), n + 1);
            QVERIFY(currentPage()->isVisible());
            QVERIFY(left.isNull());
        }
        QPointer<WizardPage> last = currentPage();
        QTest::mouseClick(button(last, "cmdCancel"), Qt::LeftButton); // Finish
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(last.isNull());
        QVERIFY(loadedPages().isEmpty());

        // And back again, from the last page to the first.
        wizard::showPage(5);
        for (int n = 5; n >= 2; --n) {
            WizardPage *page = currentPage();
            QCOMPARE(page->pageNumber(), n);
            QTest::mouseClick(button(page, "cmdBack"), Qt::LeftButton);
            QCOMPARE(currentPage()->pageNumber(), n - 1);
        }
        QTest::mouseClick(button(currentPage(), "cmdCancel"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(loadedPages().isEmpty());
    }

    void cancelOnAMiddlePageClosesTheWizard()
    {
        for (int n = 2; n <= 4; ++n) {
            WizardPage *page = wizard::showPage(n);
            QTest::mouseClick(button(page, "cmdCancel"), Qt::LeftButton);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(loadedPages().isEmpty());
        }
    }

    void backFromTheHostPageRebuildsTheChecklist()
    {
        QPointer<WizardPage> first = wizard::showPage(1);
        QTest::mouseClick(button(first, "cmdNext"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(first.isNull());
        QTest::mouseClick(button(currentPage(), "cmdBack"), Qt::LeftButton);
        WizardPage *again = currentPage();
        QVERIFY(qobject_cast<frmMP1 *>(again));
        const QStringList lines = labelText(again, "Label1").split(QStringLiteral("\r\n"));
        QCOMPARE(lines.size(), 5);
        QVERIFY(lines[0].startsWith(QStringLiteral("Welcome to the Tessaro Mod Publishing")));
        QCOMPARE(lines[2], QStringLiteral("> A readme.txt to go along with your mod"));
        QVERIFY(lines[4].endsWith(QStringLiteral("click next to continue")));
    }

    void eachToolPageLoadsItsSetting()
    {
        app().tools.webPath = QStringLiteral("/usr/bin/firefox");
        app().tools.ftpPath = QStringLiteral("/usr/bin/filezilla");
        app().tools.emaPath = QStringLiteral("/usr/bin/thunderbird");
        QCOMPARE(static_cast<ToolWizardPage *>(wizard::showPage(2))->pathBox()->text(),
                 QStringLiteral("/usr/bin/firefox"));
        QCOMPARE(static_cast<ToolWizardPage *>(wizard::showPage(3))->pathBox()->text(),
                 QStringLiteral("/usr/bin/filezilla"));
        QCOMPARE(static_cast<ToolWizardPage *>(wizard::showPage(4))->pathBox()->text(),
                 QStringLiteral("/usr/bin/thunderbird"));
        QCOMPARE(toolPage(2)->pathBox()->objectName(), QStringLiteral("txtWeb"));
        QCOMPARE(toolPage(3)->pathBox()->objectName(), QStringLiteral("txtFTP"));
        QCOMPARE(toolPage(4)->pathBox()->objectName(), QStringLiteral("txtEma"));
    }

    void clearingTheBoxAndPressingNextKeepsTheOldSetting()
    {
        app().tools.webPath = QStringLiteral("/usr/bin/firefox");
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(2));
        page->pathBox()->clear();
        QTest::mouseClick(button(page, "cmdNext"), Qt::LeftButton);
        QCOMPARE(currentPage()->pageNumber(), 3);
        QCOMPARE(app().tools.webPath, QStringLiteral("/usr/bin/firefox"));
    }

    void typingANewPathAndPressingBackStoresIt()
    {
        app().tools.ftpPath = QStringLiteral("/usr/bin/old-ftp");
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(3));
        page->pathBox()->clear();
        QTest::keyClicks(page->pathBox(), QStringLiteral("/usr/bin/lftp"));
        QTest::mouseClick(button(page, "cmdBack"), Qt::LeftButton);
        QCOMPARE(currentPage()->pageNumber(), 2);
        QCOMPARE(app().tools.ftpPath, QStringLiteral("/usr/bin/lftp"));
    }

    void everyWayOfLeavingStoresANonEmptyBox()
    {
        // Cancel.
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(4));
        page->pathBox()->setText(QStringLiteral("/usr/bin/mutt"));
        QTest::mouseClick(button(page, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(app().tools.emaPath, QStringLiteral("/usr/bin/mutt"));
        // The window's own close button.
        page = static_cast<ToolWizardPage *>(wizard::showPage(2));
        page->pathBox()->setText(QStringLiteral("/usr/bin/lynx"));
        page->close();
        QCOMPARE(app().tools.webPath, QStringLiteral("/usr/bin/lynx"));
        // Next.
        page = static_cast<ToolWizardPage *>(wizard::showPage(3));
        page->pathBox()->setText(QStringLiteral("/usr/bin/ftp"));
        QTest::mouseClick(button(page, "cmdNext"), Qt::LeftButton);
        QCOMPARE(app().tools.ftpPath, QStringLiteral("/usr/bin/ftp"));
    }

    void executeWithAnEmptyBoxDoesNothingAndStaysOnThePage()
    {
        test::RecordingShell shell;
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(2));
        page->pathBox()->clear();
        QTest::mouseClick(button(page, "cmdExec"), Qt::LeftButton);
        QCOMPARE(currentPage(), page);
        QVERIFY(page->isVisible());
        QVERIFY(shell.programs.isEmpty());
        QCOMPARE(app().tools.webPath, QString());
    }

    void executeStartsTheProgramWithoutArgumentsAndMovesOn()
    {
        test::RecordingShell shell;
        app().tools.ftpPath = QStringLiteral("/usr/bin/old");
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(3));
        page->pathBox()->setText(QStringLiteral("/usr/bin/filezilla"));
        QTest::mouseClick(button(page, "cmdExec"), Qt::LeftButton);
        QCOMPARE(shell.programs, QStringList{QStringLiteral("/usr/bin/filezilla")});
        QCOMPARE(currentPage()->pageNumber(), 4);
        // The page was unloaded, so its path is kept.
        QCOMPARE(app().tools.ftpPath, QStringLiteral("/usr/bin/filezilla"));
    }

    void executeOnTheEmailPageMovesToTheClosingPage()
    {
        test::RecordingShell shell;
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(4));
        page->pathBox()->setText(QStringLiteral("/usr/bin/thunderbird"));
        page->cmdExec_Click();
        QCOMPARE(shell.programs, QStringList{QStringLiteral("/usr/bin/thunderbird")});
        QCOMPARE(currentPage()->pageNumber(), 5);
    }

    void executeStartsARealProgramThroughTheShell()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString marker = dir.filePath(QStringLiteral("started"));
        const QString program = writeStandIn(dir, marker);
        QVERIFY(!program.isEmpty());
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(2));
        page->pathBox()->setText(program);
        QTest::mouseClick(button(page, "cmdExec"), Qt::LeftButton);
        QCOMPARE(currentPage()->pageNumber(), 3);
        QCOMPARE(app().tools.webPath, program);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(marker), 10000);
        QFile result(marker);
        QVERIFY(result.open(QIODevice::ReadOnly));
        QCOMPARE(result.readAll().trimmed(), QByteArray("0")); // no arguments
    }

    void executeWithAPathThatCannotBeStartedEndsTheProgram_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("missing file") << "missing";
        QTest::newRow("folder") << "folder";
        QTest::newRow("not executable") << "plain";
        QTest::newRow("huge path") << "huge";
        QTest::newRow("control characters") << "control";
    }

    void executeWithAPathThatCannotBeStartedEndsTheProgram()
    {
        QFETCH(QString, kind);
        QTemporaryDir dir;
        QString path = dir.filePath(QStringLiteral("no-such-client"));
        if (kind == QLatin1String("folder")) {
            path = dir.path();
        } else if (kind == QLatin1String("huge")) {
            path = QLatin1Char('/') + QString(100000, QLatin1Char('x'));
        } else if (kind == QLatin1String("control")) {
            path = dir.filePath(QStringLiteral("bad\nname\x01\t"));
        } else if (kind == QLatin1String("plain")) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("not a program\n");
        }
        test::RecordingMessageBox messages;
        test::ProgramEndCatcher catcher;
        app().tools.webPath = QStringLiteral("/usr/bin/previous");
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(2));
        page->pathBox()->setText(path);
        int status = -1;
        try {
            page->cmdExec_Click();
        } catch (const test::ProgramEnded &ended) {
            status = ended.status;
        }
        QCOMPARE(status, 1);
        QCOMPARE(messages.calls.size(), 1);
        QCOMPARE(messages.calls[0].prompt,
                 QStringLiteral("Run-time error '53':\n\nFile not found"));
        QCOMPARE(messages.calls[0].title, QStringLiteral("Tessaro"));
        // The next page was already shown; the current one was never unloaded, so its
        // path was not stored.
        QVERIFY(wizard::loadedPage(3));
        QVERIFY(wizard::loadedPage(2));
        QCOMPARE(app().tools.webPath, QStringLiteral("/usr/bin/previous"));
        // Leave without storing the bad path.
        page->pathBox()->clear();
    }

    void browseAsksWithThePageTitleAndPutsTheAnswerInTheBox()
    {
        test::ScriptedCommonDialog dialogs;
        dialogs.answers << QStringLiteral("/usr/bin/firefox") << QStringLiteral("/usr/bin/lftp")
                        << QStringLiteral("/usr/bin/mutt");
        const char *titles[] = {"Browse for Web Browser", "Browse for FTP Client",
                                "Browse for Email Client"};
        for (int n = 2; n <= 4; ++n) {
            ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(n));
            QTest::mouseClick(button(page, "cmdBrowse"), Qt::LeftButton);
            const FileDialogRequest &request = dialogs.requests.last();
            QCOMPARE(request.title, QLatin1String(titles[n - 2]));
            QCOMPARE(request.filter, QStringLiteral("Executables (*)|*"));
            QCOMPARE(request.kind, FileDialogRequest::Open);
            QVERIFY(!request.cancelError);
        }
        QCOMPARE(toolPage(2)->pathBox()->text(), QStringLiteral("/usr/bin/firefox"));
        QCOMPARE(toolPage(3)->pathBox()->text(), QStringLiteral("/usr/bin/lftp"));
        QCOMPARE(toolPage(4)->pathBox()->text(), QStringLiteral("/usr/bin/mutt"));
    }

    void cancelledBrowseEmptiesTheBoxButKeepsTheSetting()
    {
        test::ScriptedCommonDialog dialogs; // cancelled
        app().tools.emaPath = QStringLiteral("/usr/bin/mutt");
        ToolWizardPage *page = static_cast<ToolWizardPage *>(wizard::showPage(4));
        QTest::mouseClick(button(page, "cmdBrowse"), Qt::LeftButton);
        QCOMPARE(page->pathBox()->text(), QString());
        QTest::mouseClick(button(page, "cmdNext"), Qt::LeftButton);
        QCOMPARE(app().tools.emaPath, QStringLiteral("/usr/bin/mutt"));
    }
};

TESSARO_TEST_MAIN(tst_PublishingWizard)
#include "tst_PublishingWizard.moc"
