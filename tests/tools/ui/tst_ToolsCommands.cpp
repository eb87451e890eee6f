#include "app/ui/MainWindow.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "tools/ui/PublishingWizard.h"
#include "tools/ui/WizardPage.h"
#include "tools/ui/frmOptions.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

using namespace tessaro;

namespace {

// What the modal options dialog looked like while it was open.
struct SeenDialog
{
    bool seen = false;
    QWidget *parent = nullptr;
    bool modal = false;
    QString caption;
};

// Looks at the modal dialog as soon as the command's modal loop runs, then presses
// the named button.
void inspectOptionsThenPress(SeenDialog &seen, const char *buttonName)
{
    QTimer::singleShot(0, [&seen, buttonName] {
        auto *dialog = qobject_cast<frmOptions *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        seen.seen = true;
        seen.parent = dialog->parentWidget();
        seen.modal = dialog->windowModality() != Qt::NonModal;
        seen.caption = dialog->windowTitle();
        dialog->findChild<QLineEdit *>(QStringLiteral("txtWeb"))
            ->setText(QStringLiteral("/usr/bin/firefox"));
        dialog->findChild<QPushButton *>(QLatin1String(buttonName))->click();
    });
}

} // namespace

class tst_ToolsCommands : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { resetApp(); }

    void cleanup()
    {
        for (int n = 1; n <= 5; ++n) {
            if (WizardPage *page = wizard::loadedPage(n))
                page->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void toolsOptionsShowsTheOptionsDialogModallyOwnedByTheMainWindow()
    {
        MainWindow main;
        main.show();
        QAction *item = main.action(QStringLiteral("mnuToolsOptions"));
        QVERIFY(item);
        QVERIFY(item->isEnabled());
        SeenDialog seen;
        inspectOptionsThenPress(seen, "cmdOK");
        item->trigger(); // returns when the dialog is closed
        QVERIFY(seen.seen);
        QCOMPARE(seen.parent, &main);
        QVERIFY(seen.modal);
        QCOMPARE(seen.caption, QStringLiteral("Options"));
        QCOMPARE(app().tools.webPath, QStringLiteral("/usr/bin/firefox"));
        QVERIFY(main.findChildren<frmOptions *>().isEmpty()); // unloaded again
    }

    void viewOptionsStaysDisabledButShowsTheSameDialog()
    {
        MainWindow main;
        main.show();
        QAction *item = main.action(QStringLiteral("mnuViewOptions"));
        QVERIFY(item);
        QVERIFY(!item->isEnabled());
        SeenDialog seen;
        inspectOptionsThenPress(seen, "cmdCancel");
        item->trigger(); // disabled: nothing happens
        QVERIFY(!seen.seen);
        QVERIFY(main.findChildren<frmOptions *>().isEmpty());
        QCoreApplication::processEvents(); // let the pending look find nothing

        // Behind the disabled item lies the same command.
        item->setEnabled(true);
        inspectOptionsThenPress(seen, "cmdCancel");
        item->trigger();
        QVERIFY(seen.seen);
        QCOMPARE(seen.parent, &main);
        QVERIFY(seen.modal);
        QCOMPARE(app().tools.webPath, QString()); // cancelled
    }

    void publishModOpensTheWizardWithoutWaiting()
    {
        MainWindow main;
        main.show();
        QAction *item = main.action(QStringLiteral("mnuBuildUpload"));
        QVERIFY(item);
        QCOMPARE(item->text(), QStringLiteral("&Publish Mod..."));
        item->trigger();
        WizardPage *page = wizard::loadedPage(1);
        QVERIFY(page);
        QVERIFY(page->isVisible());
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
        // The page is a window of its own, not owned by the main window.
        QVERIFY(page->isWindow());
        QVERIFY(!page->parentWidget());
        QVERIFY(!main.isAncestorOf(page));
    }
};

TESSARO_TEST_MAIN(tst_ToolsCommands)
#include "tst_ToolsCommands.moc"
