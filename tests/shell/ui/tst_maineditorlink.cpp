#include "support/TestSupport.h"

#include "app/ui/MainWindow.h"
#include "editor/ui/srcText.h"
#include "shell/ui/MainStatusBar.h"
#include "shell/ui/MainTimer.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

using namespace tessaro;

// The main window's commands and timer with the real editor control as a document's
// `code`: what they reach by name exists there (or, for Cut and Print, deliberately
// does not).
class MainEditorLinkTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { resetApp(); }
    void theLinePanelReadsTheEditorsCurrentLine();
    void copyAndPasteReachTheEditor();
    void cutAndPrintLeaveTheEditorAsItWas();
    void undoReachesTheEditor();

private:
    srcText *openEditor(frmMain &frame, const QString &text)
    {
        auto *form = new QWidget;
        form->setObjectName(QStringLiteral("frmDocument"));
        auto *code = new srcText(form);
        code->setObjectName(QStringLiteral("code"));
        code->setText(text);
        QMdiSubWindow *child = frame.mdiArea()->addSubWindow(form);
        child->setWindowTitle(QStringLiteral("doc.c"));
        child->show();
        frame.mdiArea()->setActiveSubWindow(child);
        return code;
    }
};

void MainEditorLinkTest::theLinePanelReadsTheEditorsCurrentLine()
{
    MainWindow frame;
    frame.show();
    srcText *code = openEditor(frame, QStringLiteral("first\r\nsecond\r\nthird"));
    MainTimer *timer = frame.findChild<MainTimer *>();
    auto *bar = frame.findChild<MainStatusBar *>();

    code->SetSelection(0, 0);
    app().caretMoved = true;
    timer->Timer1_Timer();
    QCOMPARE(bar->panelText(1), QStringLiteral("Line 1"));

    code->SetSelection(9, 9); // on "second": CR LF counts two
    app().caretMoved = true;
    timer->Timer1_Timer();
    QCOMPARE(bar->panelText(1), QStringLiteral("Line 2"));
    QCOMPARE(timer->currentLine(), 1);
}

void MainEditorLinkTest::copyAndPasteReachTheEditor()
{
    MainWindow frame;
    frame.show();
    srcText *code = openEditor(frame, QStringLiteral("alpha beta"));
    code->SetSelection(0, 5);
    QGuiApplication::clipboard()->clear();
    frame.action(QStringLiteral("mnuEditCopy"))->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("alpha"));
    code->SetSelection(10, 10);
    frame.action(QStringLiteral("mnuEditPaste"))->trigger();
    QCOMPARE(code->Text(), QStringLiteral("alpha betaalpha"));
}

void MainEditorLinkTest::cutAndPrintLeaveTheEditorAsItWas()
{
    MainWindow frame;
    frame.show();
    srcText *code = openEditor(frame, QStringLiteral("keep me"));
    code->SetSelection(0, 4);
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    test::RecordingMessageBox box;
    frame.action(QStringLiteral("mnuEditCut"))->trigger();
    frame.action(QStringLiteral("mnuFilePrint"))->trigger();
    QCOMPARE(code->Text(), QStringLiteral("keep me"));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    QVERIFY(box.calls.isEmpty());
}

void MainEditorLinkTest::undoReachesTheEditor()
{
    MainWindow frame;
    frame.show();
    srcText *code = openEditor(frame, QString());
    code->setFocus();
    QTest::keyClicks(code->findChild<QWidget *>(QStringLiteral("rtfMain")), QStringLiteral("x"));
    QVERIFY(code->Text().contains(QLatin1Char('x')));
    frame.action(QStringLiteral("mnuEditUndo"))->trigger();
    QVERIFY(!code->Text().contains(QLatin1Char('x')));
}

TESSARO_TEST_MAIN(MainEditorLinkTest)
#include "tst_maineditorlink.moc"
