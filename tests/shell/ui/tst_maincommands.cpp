#include "support/TestSupport.h"

#include "app/ui/MainWindow.h"
#include "platform/core/RuntimeError.h"
#include "shell/ui/MainCommands.h"
#include "shell/ui/MainPanes.h"
#include "shell/ui/MainStatusBar.h"
#include "shell/ui/MainTimer.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolBar>

using namespace tessaro;

// An editor control as a document window holds it: the members the main window
// calls by name, recording each call. Like the real control it has no Cut and no
// PrintDoc.
class FakeEditor : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int CurrentLine READ CurrentLine)
public:
    int CurrentLine() const { return line; }
    Q_INVOKABLE void Copy()
    {
        calls << QStringLiteral("Copy");
        if (failing)
            tessaro::raise(RuntimeError::InvalidProcedureCall);
    }
    Q_INVOKABLE void Paste() { calls << QStringLiteral("Paste"); }
    Q_INVOKABLE void Undo() { calls << QStringLiteral("Undo"); }

    int line = 0;
    bool failing = false;
    QStringList calls;
};

// A control that does have the two members the real editor lacks.
class PrintingEditor : public FakeEditor
{
    Q_OBJECT
public:
    Q_INVOKABLE void Cut() { calls << QStringLiteral("Cut"); }
    Q_INVOKABLE void PrintDoc(const QString &title)
    {
        calls << QStringLiteral("PrintDoc ") + title;
    }
};

class UrlRecorder : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> urls;
public Q_SLOTS:
    void open(const QUrl &url) { urls << url; }
};

namespace {

// Opens a document window named `formName` whose editor is `editor`.
QMdiSubWindow *openWindow(frmMain &frame, FakeEditor *editor, const QString &caption,
                          const QString &formName = QStringLiteral("frmDocument"))
{
    auto *form = new QWidget;
    form->setObjectName(formName);
    editor->setParent(form);
    editor->setObjectName(QStringLiteral("code"));
    QMdiSubWindow *child = frame.mdiArea()->addSubWindow(form);
    child->setWindowTitle(caption);
    child->show();
    frame.mdiArea()->setActiveSubWindow(child);
    return child;
}

void trigger(frmMain &frame, const char *name)
{
    frame.action(QString::fromLatin1(name))->trigger();
}

MainCommands *commands(frmMain &frame)
{
    return frame.findChild<MainCommands *>();
}

} // namespace

class MainCommandsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { resetApp(); }
    void aboutShowsTheAboutBoxModallyOwnedByTheMainWindow();

    void copyAndPasteGoToTheActiveDocument();
    void cutChangesNothingSinceTheEditorHasNoCut();
    void aControlWithCutWouldBeCalledByName();
    void clipboardCommandsWithoutADocumentDoNothing();
    void anEditorErrorIsIgnored();
    void undoGoesToTheActiveDocumentOnly();
    void undoDoesNothingInTheOutputOrFindInFilesWindow();
    void redoDoesNothing();
    void printChangesNothingSinceTheEditorHasNoPrintDoc();
    void printPassesTheCaptionToAControlThatCanPrint();
    void pageSetupShowsThePrinterDialogAndACancelIsIgnored();
    void arrangingWithNoWindowsDoesNothing();
    void tilingPlacesTheWindowsAboveAndBesideEachOther();
    void cascadeAndArrangeIconsKeepEveryWindow();
    void cascadedWindowsKeepAUsableSize();
    void viewStatusBarTogglesTheStatusBar();
    void viewOutputStartsUncheckedWithThePaneShown();
    void viewToolbarChangesOnlyTheCheckMark();
    void thePlaceholderItemsAreDisabledAndShowNothing();
    void thePlaceholdersShowTheirMessages();
    void pasteSpecialIsReachableFromNoMenu();
    void helpWithoutAHelpFileSaysSoWithTheInformationIcon();
    void helpWithAMissingFileShowsTheError();
    void contentsOpensTheIndexAndSearchTheSearchPageInTheDesktopViewer();
    void searchWithoutASearchPageShowsTheError();
    void theHelpFileIsTheManualBesideTheProgram();
    void findAgainBeforeAnySearchDoesNothing();
    void newWindowRunsFileNew();
    void exitClosesTheMainWindow();

    void theTimerOpensAPendingFileWithin100Milliseconds();
    void aPendingFileIsOpenedOnceAndCleared();
    void theStatusBarShowsLine1OnTheFirstLine();
    void theStatusBarFollowsTheCaretLine();
    void theCaretFlagWaitsUntilADocumentIsActive();
    void aPendingBrowserFolderMovesTheBrowser();
    void theBrowserFolderCheckNeverFiresByItself();
};

void MainCommandsTest::copyAndPasteGoToTheActiveDocument()
{
    MainWindow frame;
    frame.show();
    auto *first = new FakeEditor;
    auto *second = new FakeEditor;
    openWindow(frame, first, QStringLiteral("a.c"));
    openWindow(frame, second, QStringLiteral("b.c"));
    trigger(frame, "mnuEditCopy");
    trigger(frame, "mnuEditPaste");
    QCOMPARE(second->calls, QStringList({QStringLiteral("Copy"), QStringLiteral("Paste")}));
    QVERIFY(first->calls.isEmpty());
}

void MainCommandsTest::cutChangesNothingSinceTheEditorHasNoCut()
{
    MainWindow frame;
    frame.show();
    auto *editor = new FakeEditor;
    openWindow(frame, editor, QStringLiteral("a.c"));
    test::RecordingMessageBox box;
    trigger(frame, "mnuEditCut");
    QVERIFY(editor->calls.isEmpty());
    QVERIFY(box.calls.isEmpty());
}

void MainCommandsTest::aControlWithCutWouldBeCalledByName()
{
    MainWindow frame;
    frame.show();
    auto *editor = new PrintingEditor;
    openWindow(frame, editor, QStringLiteral("a.c"));
    trigger(frame, "mnuEditCut");
    QCOMPARE(editor->calls, QStringList{QStringLiteral("Cut")});
}

void MainCommandsTest::clipboardCommandsWithoutADocumentDoNothing()
{
    MainWindow frame;
    test::RecordingMessageBox box;
    for (const char *name :
         {"mnuEditCut", "mnuEditCopy", "mnuEditPaste", "mnuEditUndo", "mnuFilePrint"})
        trigger(frame, name);
    QVERIFY(box.calls.isEmpty());
    QVERIFY(frame.mdiArea()->subWindowList().isEmpty());
}

void MainCommandsTest::anEditorErrorIsIgnored()
{
    MainWindow frame;
    frame.show();
    auto *editor = new FakeEditor;
    editor->failing = true;
    openWindow(frame, editor, QStringLiteral("a.c"));
    test::RecordingMessageBox box;
    test::ProgramEndCatcher catcher;
    trigger(frame, "mnuEditCopy");
    QCOMPARE(editor->calls, QStringList{QStringLiteral("Copy")});
    QVERIFY(box.calls.isEmpty());
}

void MainCommandsTest::undoGoesToTheActiveDocumentOnly()
{
    MainWindow frame;
    frame.show();
    auto *editor = new FakeEditor;
    openWindow(frame, editor, QStringLiteral("a.c"));
    trigger(frame, "mnuEditUndo");
    QCOMPARE(editor->calls, QStringList{QStringLiteral("Undo")});
}

void MainCommandsTest::undoDoesNothingInTheOutputOrFindInFilesWindow()
{
    for (const char *form : {"frmOut", "frmFnF"}) {
        MainWindow frame;
        frame.show();
        auto *behind = new FakeEditor;
        openWindow(frame, behind, QStringLiteral("a.c"));
        auto *special = new FakeEditor;
        openWindow(frame, special, QStringLiteral("special"), QString::fromLatin1(form));
        trigger(frame, "mnuEditUndo");
        QVERIFY2(special->calls.isEmpty(), form);
        QVERIFY2(behind->calls.isEmpty(), form);
        // Copy is not restricted: it reaches whatever child is active.
        trigger(frame, "mnuEditCopy");
        QCOMPARE(special->calls, QStringList{QStringLiteral("Copy")});
    }
}

void MainCommandsTest::redoDoesNothing()
{
    MainWindow frame;
    frame.show();
    auto *editor = new PrintingEditor;
    openWindow(frame, editor, QStringLiteral("a.c"));
    test::RecordingMessageBox box;
    trigger(frame, "mnuEditRedo");
    QVERIFY(editor->calls.isEmpty());
    QVERIFY(box.calls.isEmpty());
}

void MainCommandsTest::printChangesNothingSinceTheEditorHasNoPrintDoc()
{
    MainWindow frame;
    frame.show();
    auto *editor = new FakeEditor;
    openWindow(frame, editor, QStringLiteral("a.c"));
    test::RecordingMessageBox box;
    trigger(frame, "mnuFilePrint");
    QVERIFY(editor->calls.isEmpty());
    QVERIFY(box.calls.isEmpty());
}

void MainCommandsTest::printPassesTheCaptionToAControlThatCanPrint()
{
    MainWindow frame;
    frame.show();
    auto *editor = new PrintingEditor;
    openWindow(frame, editor, QStringLiteral("g_main.c"));
    trigger(frame, "mnuFilePrint");
    QCOMPARE(editor->calls, QStringList{QStringLiteral("PrintDoc g_main.c")});
}

void MainCommandsTest::pageSetupShowsThePrinterDialogAndACancelIsIgnored()
{
    MainWindow frame;
    test::ScriptedCommonDialog dialog;
    test::RecordingMessageBox box;
    dialog.printerAnswer = false;
    trigger(frame, "mnuFilePageSetup");
    dialog.printerAnswer = true;
    trigger(frame, "mnuFilePageSetup");
    QCOMPARE(dialog.printerTitles,
             QStringList({QStringLiteral("Page Setup"), QStringLiteral("Page Setup")}));
    QVERIFY(box.calls.isEmpty());
}

void MainCommandsTest::arrangingWithNoWindowsDoesNothing()
{
    MainWindow frame;
    frame.show();
    test::RecordingMessageBox box;
    for (const char *name : {"mnuWindowCascade", "mnuWindowTileHorizontal", "mnuWindowTileVertical",
                             "mnuWindowArrangeIcons"})
        trigger(frame, name);
    QVERIFY(frame.mdiArea()->subWindowList().isEmpty());
    QVERIFY(box.calls.isEmpty());
}

void MainCommandsTest::tilingPlacesTheWindowsAboveAndBesideEachOther()
{
    MainWindow frame;
    frame.resize(800, 600);
    frame.show();
    QMdiSubWindow *a = openWindow(frame, new FakeEditor, QStringLiteral("a"));
    QMdiSubWindow *b = openWindow(frame, new FakeEditor, QStringLiteral("b"));
    const QRect area = frame.mdiArea()->viewport()->rect();

    trigger(frame, "mnuWindowTileHorizontal");
    QCOMPARE(a->width(), area.width());
    QCOMPARE(b->width(), area.width());
    QCOMPARE(a->y(), 0);
    QCOMPARE(b->y(), area.height() / 2);

    trigger(frame, "mnuWindowTileVertical");
    QCOMPARE(a->height(), area.height());
    QCOMPARE(a->x(), 0);
    QCOMPARE(b->x(), area.width() / 2);
}

void MainCommandsTest::cascadeAndArrangeIconsKeepEveryWindow()
{
    MainWindow frame;
    frame.resize(800, 600);
    frame.show();
    QMdiSubWindow *a = openWindow(frame, new FakeEditor, QStringLiteral("a"));
    QMdiSubWindow *b = openWindow(frame, new FakeEditor, QStringLiteral("b"));
    trigger(frame, "mnuWindowCascade");
    QVERIFY(a->pos() != b->pos());
    a->showMinimized();
    trigger(frame, "mnuWindowArrangeIcons");
    const QRect area = frame.mdiArea()->viewport()->rect();
    QCOMPARE(a->x(), 0);
    QCOMPARE(a->geometry().bottom(), area.bottom());
    QCOMPARE(frame.mdiArea()->subWindowList().size(), 2);
}

void MainCommandsTest::cascadedWindowsKeepAUsableSize()
{
    MainWindow frame;
    frame.resize(900, 700);
    frame.show();
    QMdiSubWindow *a = openWindow(frame, new FakeEditor, QStringLiteral("a"));
    QMdiSubWindow *b = openWindow(frame, new FakeEditor, QStringLiteral("b"));
    QMdiSubWindow *c = openWindow(frame, new FakeEditor, QStringLiteral("c"));
    frame.mdiArea()->setActiveSubWindow(a);
    c->resize(100, 30);
    b->showMaximized();
    frame.mdiArea()->setActiveSubWindow(a);
    trigger(frame, "mnuWindowCascade");
    const QSize area = frame.mdiArea()->viewport()->size();
    for (QMdiSubWindow *window : {a, b, c}) {
        QVERIFY(!window->isMaximized());
        QVERIFY2(window->width() >= area.width() * 6 / 10, qPrintable(window->windowTitle()));
        QVERIFY2(window->height() >= area.height() * 6 / 10, qPrintable(window->windowTitle()));
    }
    // The active window ends in front, furthest down the cascade.
    QCOMPARE(frame.mdiArea()->subWindowList(QMdiArea::StackingOrder).last(), a);
    QVERIFY(a->y() > b->y() && a->y() > c->y());
    QCOMPARE(a->x() - a->y(), b->x() - b->y());
}

void MainCommandsTest::viewStatusBarTogglesTheStatusBar()
{
    MainWindow frame;
    frame.show();
    QAction *item = frame.action(QStringLiteral("mnuViewStatusBar"));
    QWidget *bar = frame.findChild<QWidget *>(QStringLiteral("sbStatusBar"));
    QVERIFY(item->isChecked());
    QVERIFY(bar->isVisible());
    item->trigger();
    QVERIFY(!item->isChecked());
    QVERIFY(!bar->isVisible());
    item->trigger();
    QVERIFY(item->isChecked());
    QVERIFY(bar->isVisible());
}

void MainCommandsTest::viewOutputStartsUncheckedWithThePaneShown()
{
    MainWindow frame;
    frame.show();
    QAction *item = frame.action(QStringLiteral("mnuViewOutput"));
    QWidget *pane = frame.findChild<QWidget *>(QStringLiteral("Picture3"));
    QVERIFY(!item->isChecked());
    QVERIFY(pane->isVisible());
    item->trigger(); // the first use leaves the pane shown and sets the mark
    QVERIFY(item->isChecked());
    QVERIFY(pane->isVisible());
    item->trigger(); // the second hides it
    QVERIFY(!item->isChecked());
    QVERIFY(!pane->isVisible());
    item->trigger();
    QVERIFY(item->isChecked());
    QVERIFY(pane->isVisible());
}

void MainCommandsTest::viewToolbarChangesOnlyTheCheckMark()
{
    MainWindow frame;
    frame.show();
    QAction *item = frame.action(QStringLiteral("mnuViewToolbar"));
    item->trigger();
    QVERIFY(!item->isChecked());
    QVERIFY(frame.findChild<QWidget *>(QStringLiteral("cToolbar1"))->isVisible());
    QVERIFY(frame.findChild<QWidget *>(QStringLiteral("picHolder"))->isVisible());
    item->trigger();
    QVERIFY(item->isChecked());
}

void MainCommandsTest::thePlaceholderItemsAreDisabledAndShowNothing()
{
    MainWindow frame;
    test::RecordingMessageBox box;
    for (const char *name :
         {"mnuViewRefresh", "mnuFileSend", "mnuFilePrintPreview", "mnuFileSaveAll"}) {
        QVERIFY2(!frame.action(QString::fromLatin1(name))->isEnabled(), name);
        trigger(frame, name);
    }
    QVERIFY(box.calls.isEmpty());
}

void MainCommandsTest::thePlaceholdersShowTheirMessages()
{
    MainWindow frame;
    test::RecordingMessageBox box;
    MainCommands *c = commands(frame);
    c->mnuViewRefresh_Click();
    c->mnuFileSend_Click();
    c->mnuFilePrintPreview_Click();
    c->mnuFileSaveAll_Click();
    c->mnuEditPasteSpecial_Click();
    QStringList prompts;
    for (const auto &call : box.calls) {
        prompts << call.prompt;
        QCOMPARE(call.style, 0);
        QVERIFY(call.title.isEmpty() || call.title == QLatin1String("Tessaro"));
    }
    QCOMPARE(prompts, QStringList({QStringLiteral("Add 'mnuViewRefresh_Click' code."),
                                   QStringLiteral("Add 'mnuFileSend_Click' code."),
                                   QStringLiteral("Add 'mnuFilePrintPreview_Click' code."),
                                   QStringLiteral("Add 'mnuFileSaveAll_Click' code."),
                                   QStringLiteral("Add 'mnuEditPasteSpecial_Click' code.")}));
}

void MainCommandsTest::pasteSpecialIsReachableFromNoMenu()
{
    MainWindow frame;
    QVERIFY(!frame.action(QStringLiteral("mnuEditPasteSpecial")));
    for (QAction *action : frame.findChildren<QAction *>())
        QVERIFY(!action->text().contains(QLatin1String("Special")));
}

void MainCommandsTest::aboutShowsTheAboutBoxModallyOwnedByTheMainWindow()
{
    MainWindow frame;
    QString caption;
    QWidget *owner = nullptr;
    bool modal = false;
    QTimer::singleShot(0, [&] {
        QWidget *box = QApplication::activeModalWidget();
        QVERIFY(box);
        caption = box->windowTitle();
        owner = box->parentWidget();
        modal = box->isModal();
        box->close();
    });
    trigger(frame, "mnuHelpAbout");
    QCOMPARE(caption, QStringLiteral("About Tessaro"));
    QCOMPARE(owner, static_cast<QWidget *>(&frame));
    QVERIFY(modal);
}

void MainCommandsTest::helpWithoutAHelpFileSaysSoWithTheInformationIcon()
{
    // A program that found no manual.
    MainWindow frame;
    commands(frame)->setHelpFile(QString());
    test::RecordingMessageBox box;
    trigger(frame, "mnuHelpContents");
    trigger(frame, "mnuHelpSearchForHelpOn");
    QCOMPARE(box.calls.size(), 2);
    for (const auto &call : box.calls) {
        QCOMPARE(call.prompt, QStringLiteral("Unable to display Help Contents. There is no Help "
                                             "associated with this project."));
        QCOMPARE(call.style, 64);
    }
}

void MainCommandsTest::helpWithAMissingFileShowsTheError()
{
    MainWindow frame;
    commands(frame)->setHelpFile(QStringLiteral("/nonexistent/manual/index.html"));
    test::RecordingMessageBox box;
    trigger(frame, "mnuHelpContents");
    trigger(frame, "mnuHelpSearchForHelpOn");
    QCOMPARE(box.calls.size(), 2);
    for (const auto &call : box.calls) {
        QCOMPARE(call.prompt, QStringLiteral("File not found"));
        QCOMPARE(call.style, 0);
    }
}

namespace {

// A manual of two pages in `dir`; the index page's path.
QString writeManual(const QTemporaryDir &dir, bool withSearchPage = true)
{
    for (const char *name : {"index.html", "search.html"}) {
        if (!withSearchPage && QLatin1String(name) == QLatin1String("search.html"))
            continue;
        QFile file(dir.filePath(QLatin1String(name)));
        if (!file.open(QIODevice::WriteOnly))
            return QString();
        file.write("<html></html>");
    }
    return dir.filePath(QStringLiteral("index.html"));
}

} // namespace

void MainCommandsTest::contentsOpensTheIndexAndSearchTheSearchPageInTheDesktopViewer()
{
    QTemporaryDir dir;
    const QString index = writeManual(dir);
    QVERIFY(!index.isEmpty());
    UrlRecorder viewer;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &viewer, "open");
    {
        MainWindow frame;
        commands(frame)->setHelpFile(index);
        test::RecordingMessageBox box;
        trigger(frame, "mnuHelpContents");
        trigger(frame, "mnuHelpSearchForHelpOn");
        QVERIFY(box.calls.isEmpty());
    }
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QCOMPARE(viewer.urls, QList<QUrl>({QUrl::fromLocalFile(index),
                                       QUrl::fromLocalFile(dir.filePath("search.html"))}));
}

void MainCommandsTest::searchWithoutASearchPageShowsTheError()
{
    QTemporaryDir dir;
    const QString index = writeManual(dir, false);
    UrlRecorder viewer;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &viewer, "open");
    test::RecordingMessageBox box;
    {
        MainWindow frame;
        commands(frame)->setHelpFile(index);
        trigger(frame, "mnuHelpSearchForHelpOn");
    }
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QVERIFY(viewer.urls.isEmpty());
    QCOMPARE(box.calls.size(), 1);
    QCOMPARE(box.calls[0].prompt, QStringLiteral("File not found"));
}

void MainCommandsTest::theHelpFileIsTheManualBesideTheProgram()
{
    // The tests run beside the build's programs, where the build writes the manual.
    MainWindow frame;
    const QString expected = QStringLiteral(TESSARO_BIN_DIR "/manual/index.html");
    QCOMPARE(commands(frame)->helpFile(), QDir::cleanPath(expected));
    QVERIFY(QFileInfo(commands(frame)->helpFile()).isFile());
}

void MainCommandsTest::findAgainBeforeAnySearchDoesNothing()
{
    MainWindow frame;
    frame.show();
    auto *editor = new PrintingEditor;
    openWindow(frame, editor, QStringLiteral("a.c"));
    test::RecordingMessageBox box;
    QAction *findAgain = frame.action(QStringLiteral("mnuEditFA"));
    QCOMPARE(findAgain->shortcut(), QKeySequence(Qt::Key_F3));
    findAgain->trigger();
    QTest::keyClick(&frame, Qt::Key_F3);
    QVERIFY(editor->calls.isEmpty());
    QVERIFY(box.calls.isEmpty());
    QCOMPARE(frame.mdiArea()->subWindowList().size(), 1);
}

void MainCommandsTest::newWindowRunsFileNew()
{
    MainWindow frame;
    int fileNew = 0;
    connect(frame.action(QStringLiteral("mnuFileNew")), &QAction::triggered, this,
            [&] { ++fileNew; });
    trigger(frame, "mnuWindowNewWindow");
    QCOMPARE(fileNew, 1);
}

void MainCommandsTest::exitClosesTheMainWindow()
{
    MainWindow frame;
    frame.show();
    QVERIFY(frame.isVisible());
    trigger(frame, "mnuFileExit");
    QVERIFY(!frame.isVisible());
}

void MainCommandsTest::theTimerOpensAPendingFileWithin100Milliseconds()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("g_main.c"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("int main;\r\n");
    file.close();

    MainWindow frame;
    frame.show();
    auto *timer = frame.findChild<QTimer *>(QStringLiteral("Timer1"));
    int ticks = 0;
    connect(timer, &QTimer::timeout, this, [&] { ++ticks; });
    QElapsedTimer clock;
    clock.start();
    app().pendingOpenPath = path;
    QTRY_VERIFY_WITH_TIMEOUT(!frame.mdiArea()->subWindowList().isEmpty(), 2000);
    // Opened on the very next tick, and the ticks come every 100 ms.
    QCOMPARE(ticks, 1);
    QCOMPARE(timer->interval(), 100);
    QVERIFY2(clock.elapsed() < 1000, "far later than one tick");
    QVERIFY(app().pendingOpenPath.isEmpty());
}

void MainCommandsTest::aPendingFileIsOpenedOnceAndCleared()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.h"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    MainWindow frame;
    MainTimer *timer = frame.findChild<MainTimer *>();
    timer->timer()->stop();
    timer->Timer1_Timer(); // nothing pending: nothing opens
    QVERIFY(frame.mdiArea()->subWindowList().isEmpty());
    app().pendingOpenPath = path;
    timer->Timer1_Timer();
    timer->Timer1_Timer();
    QCOMPARE(frame.mdiArea()->subWindowList().size(), 1);
    QVERIFY(app().pendingOpenPath.isEmpty());
}

void MainCommandsTest::theStatusBarShowsLine1OnTheFirstLine()
{
    MainWindow frame;
    frame.show();
    MainTimer *timer = frame.findChild<MainTimer *>();
    auto *bar = frame.findChild<MainStatusBar *>();
    auto *editor = new FakeEditor;
    editor->line = 0;
    openWindow(frame, editor, QStringLiteral("a.c"));
    app().caretMoved = true;
    timer->Timer1_Timer();
    QCOMPARE(bar->panelText(1), QStringLiteral("Line 1"));
    QVERIFY(!app().caretMoved);
    QCOMPARE(timer->currentLine(), 0);
}

void MainCommandsTest::theStatusBarFollowsTheCaretLine()
{
    MainWindow frame;
    frame.show();
    MainTimer *timer = frame.findChild<MainTimer *>();
    auto *bar = frame.findChild<MainStatusBar *>();
    auto *editor = new FakeEditor;
    openWindow(frame, editor, QStringLiteral("a.c"));
    editor->line = 41;
    timer->Timer1_Timer(); // the flag is not set: nothing changes
    QCOMPARE(bar->panelText(1), QStringLiteral("Status"));
    app().caretMoved = true;
    QTRY_COMPARE_WITH_TIMEOUT(bar->panelText(1), QStringLiteral("Line 42"), 2000);
    QCOMPARE(timer->currentLine(), 41);
}

void MainCommandsTest::theCaretFlagWaitsUntilADocumentIsActive()
{
    MainWindow frame;
    frame.show();
    MainTimer *timer = frame.findChild<MainTimer *>();
    auto *bar = frame.findChild<MainStatusBar *>();
    app().caretMoved = true;
    timer->Timer1_Timer();
    QCOMPARE(bar->panelText(1), QStringLiteral("Status"));
    QVERIFY(app().caretMoved);
    auto *editor = new FakeEditor;
    editor->line = 6;
    openWindow(frame, editor, QStringLiteral("a.c"));
    timer->Timer1_Timer();
    QCOMPARE(bar->panelText(1), QStringLiteral("Line 7"));
}

void MainCommandsTest::aPendingBrowserFolderMovesTheBrowser()
{
    MainWindow frame;
    MainTimer *timer = frame.findChild<MainTimer *>();
    timer->timer()->stop();
    int rebuilt = 0;
    timer->setStructureViewRebuild([&] { ++rebuilt; });

    app().pendingBrowserFolder = QStringLiteral("/home/mod/code");
    timer->Timer1_Timer();
    QCOMPARE(app().workspaceFolder, QStringLiteral("/home/mod/code"));
    QVERIFY(app().pendingBrowserFolder.isEmpty());
    QCOMPARE(frame.findChild<QObject *>(QStringLiteral("Drive1"))->property("Drive").toString(),
             QStringLiteral("/h"));
    QCOMPARE(frame.findChild<QObject *>(QStringLiteral("Dir1"))->property("Path").toString(),
             QStringLiteral("/home/mod/code"));
    QCOMPARE(rebuilt, 0);

    app().pendingBrowserFolder = QStringLiteral("/home/mod/source");
    timer->Timer1_Timer();
    QCOMPARE(rebuilt, 1);
    timer->Timer1_Timer(); // cleared: nothing more
    QCOMPARE(rebuilt, 1);
}

void MainCommandsTest::theBrowserFolderCheckNeverFiresByItself()
{
    MainWindow frame;
    frame.show();
    app().workspaceFolder = QStringLiteral("untouched");
    QObject *dir = frame.findChild<QObject *>(QStringLiteral("Dir1"));
    const QVariant pathBefore = dir->property("Path");
    QTest::qWait(250);
    QCOMPARE(app().workspaceFolder, QStringLiteral("untouched"));
    QCOMPARE(dir->property("Path"), pathBefore);
}

TESSARO_TEST_MAIN(MainCommandsTest)
#include "tst_maincommands.moc"
