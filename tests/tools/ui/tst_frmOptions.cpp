#include "app/ui/MainWindow.h"
#include "platform/core/Twips.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "tools/ui/ToolsCommands.h"
#include "tools/ui/frmOptions.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTimer>

using namespace tessaro;

namespace {

QLineEdit *box(const QWidget &w, const char *name)
{
    return w.findChild<QLineEdit *>(name);
}
QPushButton *button(const QWidget &w, const char *name)
{
    return w.findChild<QPushButton *>(name);
}

// The left edge of a page, in pixels, for a left given in twips (15 to a pixel here).
int pixels(double twipsValue)
{
    return twips::toPixels(twipsValue, 15.0);
}

void setPaths(const QString &ftp, const QString &web, const QString &email)
{
    app().tools.ftpPath = ftp;
    app().tools.webPath = web;
    app().tools.emaPath = email;
}

} // namespace

class tst_frmOptions : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { resetApp(); }

    void windowHasItsCaptionControlsAndCaptions()
    {
        frmOptions dialog;
        QCOMPARE(dialog.objectName(), QStringLiteral("frmOptions"));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Options"));
        auto *tabs = dialog.findChild<QTabBar *>(QStringLiteral("tbsOptions"));
        QVERIFY(tabs);
        QCOMPARE(tabs->count(), 4);
        QCOMPARE(tabs->tabText(0), QStringLiteral("Paths"));

        const struct
        {
            const char *name, *caption;
        } labels[] = {{"Label1", "FTP Client Path"},
                      {"Label2", "Web Browser Path"},
                      {"Label3", "Email Client Path"}};
        for (const auto &l : labels)
            QCOMPARE(dialog.findChild<QLabel *>(l.name)->text(), QLatin1String(l.caption));
        for (const char *name : {"cmdBrowse", "cmdWBro", "cmdEBro"})
            QCOMPARE(button(dialog, name)->text(), QStringLiteral("Browse..."));
        QCOMPARE(button(dialog, "cmdApply")->text(), QStringLiteral("&Apply"));
        QCOMPARE(button(dialog, "cmdCancel")->text(), QStringLiteral("Cancel"));
        QCOMPARE(button(dialog, "cmdOK")->text(), QStringLiteral("OK"));
        for (const char *name : {"txtftppath", "txtWeb", "txtEmail"})
            QVERIFY(box(dialog, name));
    }

    void pagesFormAControlArrayWithThePathsFrameFirst()
    {
        frmOptions dialog;
        for (int i = 0; i < 4; ++i) {
            QWidget *page = dialog.findChild<QWidget *>(QStringLiteral("picOptions_%1").arg(i));
            QVERIFY(page);
            QCOMPARE(dialog.picOptions(i), page);
            QCOMPARE(frmOptions::pageName(i), page->objectName());
        }
        QVERIFY(!dialog.picOptions(4));
        auto *paths = dialog.picOptions(0)->findChild<QGroupBox *>(QStringLiteral("frmPath"));
        QVERIFY(paths);
        QCOMPARE(paths->title(), QStringLiteral("Paths"));
        for (const char *name : {"txtftppath", "txtWeb", "txtEmail", "cmdBrowse", "cmdWBro",
                                 "cmdEBro", "Label1", "Label2", "Label3"})
            QVERIFY2(paths->findChild<QWidget *>(QLatin1String(name)), name);

        const char *samples[] = {"fraSample2", "fraSample3", "fraSample4"};
        for (int i = 1; i < 4; ++i) {
            auto *frame = dialog.picOptions(i)->findChild<QGroupBox *>(samples[i - 1]);
            QVERIFY(frame);
            QCOMPARE(frame->title(), QStringLiteral("Sample %1").arg(i + 1));
            QVERIFY(frame->findChildren<QWidget *>().isEmpty()); // empty frames
        }
    }

    void loadFillsTheBoxesFromTheSettings()
    {
        setPaths(QStringLiteral("/usr/bin/lftp"), QStringLiteral("/usr/bin/firefox"),
                 QStringLiteral("/usr/bin/thunderbird"));
        frmOptions dialog;
        QCOMPARE(box(dialog, "txtftppath")->text(), QStringLiteral("/usr/bin/lftp"));
        QCOMPARE(box(dialog, "txtWeb")->text(), QStringLiteral("/usr/bin/firefox"));
        QCOMPARE(box(dialog, "txtEmail")->text(), QStringLiteral("/usr/bin/thunderbird"));
    }

    void applyCopiesTheBoxesAndKeepsTheDialogOpen()
    {
        frmOptions dialog;
        dialog.show();
        box(dialog, "txtftppath")->setText(QStringLiteral("/opt/ftp"));
        box(dialog, "txtWeb")->setText(QStringLiteral("/opt/web"));
        box(dialog, "txtEmail")->setText(QStringLiteral("/opt/mail"));
        button(dialog, "cmdApply")->click();
        QCOMPARE(app().tools.ftpPath, QStringLiteral("/opt/ftp"));
        QCOMPARE(app().tools.webPath, QStringLiteral("/opt/web"));
        QCOMPARE(app().tools.emaPath, QStringLiteral("/opt/mail"));
        QVERIFY(dialog.isVisible());
    }

    void okCopiesTheBoxesAndClosesTheDialog()
    {
        setPaths(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"));
        frmOptions dialog;
        dialog.show();
        box(dialog, "txtftppath")->setText(QStringLiteral("/opt/ftp"));
        box(dialog, "txtWeb")->clear(); // an empty box is copied as well
        button(dialog, "cmdOK")->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(app().tools.ftpPath, QStringLiteral("/opt/ftp"));
        QCOMPARE(app().tools.webPath, QString());
        QCOMPARE(app().tools.emaPath, QStringLiteral("c"));
    }

    void cancelAfterEditingLeavesTheSettingsUnchanged()
    {
        setPaths(QStringLiteral("/usr/bin/lftp"), QStringLiteral("/usr/bin/firefox"),
                 QStringLiteral("/usr/bin/mutt"));
        frmOptions dialog;
        dialog.show();
        box(dialog, "txtftppath")->setText(QStringLiteral("/changed/ftp"));
        box(dialog, "txtWeb")->clear();
        box(dialog, "txtEmail")->setText(QStringLiteral("/changed/mail"));
        button(dialog, "cmdCancel")->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(app().tools.ftpPath, QStringLiteral("/usr/bin/lftp"));
        QCOMPARE(app().tools.webPath, QStringLiteral("/usr/bin/firefox"));
        QCOMPARE(app().tools.emaPath, QStringLiteral("/usr/bin/mutt"));
    }

    void applyThenCancelKeepsTheAppliedValues()
    {
        setPaths(QStringLiteral("old-ftp"), QStringLiteral("old-web"), QStringLiteral("old-mail"));
        frmOptions dialog;
        dialog.show();
        box(dialog, "txtftppath")->setText(QStringLiteral("applied-ftp"));
        box(dialog, "txtWeb")->setText(QStringLiteral("applied-web"));
        box(dialog, "txtEmail")->setText(QStringLiteral("applied-mail"));
        button(dialog, "cmdApply")->click();
        box(dialog, "txtftppath")->setText(QStringLiteral("after-apply"));
        button(dialog, "cmdCancel")->click();
        QCOMPARE(app().tools.ftpPath, QStringLiteral("applied-ftp"));
        QCOMPARE(app().tools.webPath, QStringLiteral("applied-web"));
        QCOMPARE(app().tools.emaPath, QStringLiteral("applied-mail"));
    }

    void escapeClosesWithoutCopying()
    {
        setPaths(QStringLiteral("keep"), QString(), QString());
        frmOptions dialog;
        dialog.show();
        box(dialog, "txtftppath")->setText(QStringLiteral("typed"));
        QTest::keyClick(box(dialog, "txtftppath"), Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(app().tools.ftpPath, QStringLiteral("keep"));
    }

    void browseButtonsAskWithTheirTitlesAndFillTheirBoxes()
    {
        test::ScriptedCommonDialog dialogs;
        dialogs.answers << QStringLiteral("/usr/bin/lftp") << QStringLiteral("/usr/bin/firefox")
                        << QStringLiteral("/usr/bin/mutt");
        frmOptions dialog;
        button(dialog, "cmdBrowse")->click();
        button(dialog, "cmdWBro")->click();
        button(dialog, "cmdEBro")->click();
        QCOMPARE(dialogs.requests.size(), 3);
        QCOMPARE(dialogs.requests[0].title, QStringLiteral("Browse for FTP Client"));
        QCOMPARE(dialogs.requests[1].title, QStringLiteral("Browse for Web Browser"));
        QCOMPARE(dialogs.requests[2].title, QStringLiteral("Browse for Email Client"));
        for (const FileDialogRequest &r : dialogs.requests) {
            QCOMPARE(r.kind, FileDialogRequest::Open);
            QCOMPARE(r.filter, QStringLiteral("Executables (*)|*"));
            QVERIFY(!r.cancelError);
        }
        QCOMPARE(box(dialog, "txtftppath")->text(), QStringLiteral("/usr/bin/lftp"));
        QCOMPARE(box(dialog, "txtWeb")->text(), QStringLiteral("/usr/bin/firefox"));
        QCOMPARE(box(dialog, "txtEmail")->text(), QStringLiteral("/usr/bin/mutt"));
        // Browsing edits the boxes only; the settings change on Apply or OK.
        QCOMPARE(app().tools.ftpPath, QString());
    }

    void cancelledBrowseKeepsTheBox()
    {
        test::ScriptedCommonDialog dialogs; // no answers: every dialog is cancelled
        app().tools.webPath = QStringLiteral("/usr/bin/firefox");
        frmOptions dialog;
        button(dialog, "cmdWBro")->click();
        QCOMPARE(dialogs.requests.size(), 1);
        QCOMPARE(box(dialog, "txtWeb")->text(), QStringLiteral("/usr/bin/firefox"));
    }

    void firstTabShowsThePathsPageAtFirst()
    {
        frmOptions dialog;
        QCOMPARE(dialog.findChild<QTabBar *>(QStringLiteral("tbsOptions"))->currentIndex(), 0);
        QCOMPARE(dialog.picOptions(0)->x(), pixels(210));
        for (int i = 1; i < 4; ++i)
            QCOMPARE(dialog.picOptions(i)->x(), pixels(-20000));
    }

    void choosingATabMovesItsPageInAndTheOthersOut()
    {
        frmOptions dialog;
        dialog.show();
        auto *tabs = dialog.findChild<QTabBar *>(QStringLiteral("tbsOptions"));
        for (int selected = 0; selected < 4; ++selected) {
            tabs->setCurrentIndex(selected);
            for (int i = 0; i < 4; ++i) {
                const int expected = i == selected ? pixels(210) : pixels(-20000);
                QCOMPARE(dialog.picOptions(i)->x(), expected);
            }
            // The shown page lies inside the window; the others are out of view.
            QVERIFY(dialog.rect().contains(dialog.picOptions(selected)->geometry()));
        }
        // Clicking on a tab does the same.
        QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(2).center());
        QCOMPARE(tabs->currentIndex(), 2);
        QCOMPARE(dialog.picOptions(2)->x(), pixels(210));
        QCOMPARE(dialog.picOptions(0)->x(), pixels(-20000));
    }

    void ctrlTabSelectsTheNextTabAndWrapsToTheFirstPage()
    {
        frmOptions dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        auto *tabs = dialog.findChild<QTabBar *>(QStringLiteral("tbsOptions"));
        QLineEdit *focus = box(dialog, "txtftppath");
        focus->setFocus();
        for (int expected : {1, 2, 3}) {
            QTest::keyClick(focus, Qt::Key_Tab, Qt::ControlModifier);
            QCOMPARE(tabs->currentIndex(), expected);
            QCOMPARE(dialog.picOptions(expected)->x(), pixels(210));
        }
        // On the last tab Ctrl+Tab shows page 0 again.
        QTest::keyClick(focus, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(tabs->currentIndex(), 0);
        QCOMPARE(dialog.picOptions(0)->x(), pixels(210));
        QCOMPARE(dialog.picOptions(3)->x(), pixels(-20000));
        // The key went to the form, not into the box.
        QCOMPARE(focus->text(), QString());
    }

    void ctrlShiftTabSelectsThePreviousTabAndWrapsToTheLast()
    {
        frmOptions dialog;
        dialog.show();
        auto *tabs = dialog.findChild<QTabBar *>(QStringLiteral("tbsOptions"));
        QPushButton *focus = button(dialog, "cmdOK");
        QTest::keyClick(focus, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(tabs->currentIndex(), 3);
        QCOMPARE(dialog.picOptions(3)->x(), pixels(210));
        QCOMPARE(dialog.picOptions(0)->x(), pixels(-20000));
        QTest::keyClick(focus, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(tabs->currentIndex(), 2);
        // The tab strip itself, holding the focus, is previewed too.
        QTest::keyClick(tabs, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(tabs->currentIndex(), 3);
    }

    void tabWithoutCtrlOrWithAltLeavesTheTabAlone()
    {
        frmOptions dialog;
        dialog.show();
        auto *tabs = dialog.findChild<QTabBar *>(QStringLiteral("tbsOptions"));
        QTest::keyClick(box(dialog, "txtWeb"), Qt::Key_Tab);
        QTest::keyClick(box(dialog, "txtWeb"), Qt::Key_Backtab, Qt::ShiftModifier);
        QTest::keyClick(box(dialog, "txtWeb"), Qt::Key_Tab, Qt::ControlModifier | Qt::AltModifier);
        QCOMPARE(tabs->currentIndex(), 0);
        QVERIFY(!dialog.Form_KeyDown(Qt::Key_A, Qt::ControlModifier));
    }

    void showingModallyOwnedByAWindowLoadsAndUnloadsTheDialog()
    {
        MainWindow main;
        main.show();
        app().tools.ftpPath = QStringLiteral("/usr/bin/lftp");
        QString seenCaption, seenFtp;
        QWidget *seenParent = nullptr;
        Qt::WindowModality seenModality = Qt::NonModal;
        bool seenModal = false;
        QTimer::singleShot(0, [&] {
            auto *dialog = qobject_cast<frmOptions *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            seenCaption = dialog->windowTitle();
            seenParent = dialog->parentWidget();
            seenModality = dialog->windowModality();
            seenModal = dialog->isModal() || seenModality != Qt::NonModal;
            seenFtp = box(*dialog, "txtftppath")->text();
            box(*dialog, "txtftppath")->setText(QStringLiteral("/opt/ftp"));
            button(*dialog, "cmdOK")->click();
        });
        ToolsCommands::mnuToolsOptions_Click(&main);
        QCOMPARE(seenCaption, QStringLiteral("Options"));
        QCOMPARE(seenParent, &main);
        QVERIFY(seenModal);
        QCOMPARE(seenFtp, QStringLiteral("/usr/bin/lftp"));
        QCOMPARE(app().tools.ftpPath, QStringLiteral("/opt/ftp"));
        // The dialog is unloaded when it closes.
        QVERIFY(main.findChildren<frmOptions *>().isEmpty());
    }
};

TESSARO_TEST_MAIN(tst_frmOptions)
#include "tst_frmOptions.moc"
