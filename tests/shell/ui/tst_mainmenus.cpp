#include "support/TestSupport.h"

#include "app/ui/MainWindow.h"
#include "shell/core/MenuTable.h"
#include "shell/ui/frmMain.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>

#include <memory>

using namespace tessaro;

namespace {

// The menu tree as the user must see it, written out independently of the table the
// window is built from. Level: 0 menu bar, 1 menu item, 2 submenu item.
// State letters: C checked, D disabled, H hidden.
struct Expected
{
    int level;
    const char *name;
    const char *caption;
    const char *shortcut;
    const char *state;
};

const Expected kMenuTree[] = {
    {0, "mnuFile", "&File", "", ""},
    {1, "mnuFileNew", "&New", "Ctrl+N", ""},
    {1, "mnuFileOpen", "&Open...", "Ctrl+O", ""},
    {1, "mnuFileClose", "&Close", "", ""},
    {1, "mnuFileBar0", "-", "", ""},
    {1, "mnuFileNW", "New Workspace...", "", ""},
    {1, "mnuFileOW", "Open Workspace...", "", ""},
    {1, "mnuFileCW", "Close Workspace", "", ""},
    {1, "mnuFileBar6", "-", "", ""},
    {1, "mnuFileSave", "&Save", "", ""},
    {1, "mnuFileSaveAs", "Save &As...", "", ""},
    {1, "mnuFileSaveAll", "Save A&ll", "", "D"},
    {1, "mnuFileBar1", "-", "", ""},
    {1, "mnuFileProperties", "Propert&ies", "", ""},
    {1, "mnuFileInsert", "Add &File(s)...", "", ""},
    {1, "mnuFileBar2", "-", "", ""},
    {1, "mnuFilePageSetup", "Page Set&up...", "", ""},
    {1, "mnuFilePrintPreview", "Print Pre&view", "", "D"},
    {1, "mnuFilePrint", "&Print...", "", ""},
    {1, "mnuFileBar3", "-", "", ""},
    {1, "mnuFileSend", "Sen&d...", "", "D"},
    {1, "mnuFileBar4", "-", "", ""},
    {1, "mnuFileMRU_1", "", "", "H"},
    {1, "mnuFileMRU_2", "", "", "H"},
    {1, "mnuFileMRU_3", "", "", "H"},
    {1, "mnuFileBar5", "-", "", "H"},
    {1, "mnuFileExit", "E&xit", "", ""},
    {0, "mnuEdit", "&Edit", "", ""},
    {1, "mnuEditUndo", "&Undo", "", ""},
    {1, "mnuEditRedo", "&Redo", "", ""},
    {1, "mnuEditBar0", "-", "", ""},
    {1, "mnuEditCut", "Cu&t           Ctrl+X", "", ""},
    {1, "mnuEditCopy", "&Copy        Ctrl+C", "", ""},
    {1, "mnuEditPaste", "&Paste       Ctrl+V", "", ""},
    {1, "mnuSep1", "-", "", ""},
    {1, "mnuEditFindnF", "Find in Files...", "", ""},
    {1, "mnyEditSep5", "-", "", ""},
    {1, "mnuEditFA", "Find &Again", "F3", ""},
    {0, "mnuBuild", "&Build", "", ""},
    {1, "mnuPUQ3", "Quake 3", "", ""},
    {2, "mnuBuildcgameQVM", "Build &cgame QVM", "", ""},
    {2, "mnuBuildgameQVM", "Build &game QVM", "", ""},
    {2, "mnuBuilduiQVM", "Build &ui QVM", "", ""},
    {1, "mnuPUQ2", "Quake 2", "", ""},
    {2, "mnuBuildQ2", "Build gamex86.dll", "", ""},
    {1, "mnubsep2", "-", "", ""},
    {1, "mnuBuildEXE", "Build &EXE/DLL", "", ""},
    {1, "mnuBuildSep0", "-", "", ""},
    {1, "mnuBuildUpload", "&Publish Mod...", "", ""},
    {0, "mnuView", "&View", "", ""},
    {1, "mnuViewToolbar", "&Toolbar", "", "C"},
    {1, "mnuViewStatusBar", "Status &Bar", "", "C"},
    {1, "mnuViewOutput", "&Output", "", ""},
    {1, "mnuViewBar0", "-", "", ""},
    {1, "mnuViewRefresh", "&Refresh", "", "D"},
    {1, "mnuViewOptions", "&Options...", "", "D"},
    {0, "mnuTools", "&Tools", "", ""},
    {1, "mnuToolsOptions", "&Options...", "", ""},
    {0, "mnuWindow", "&Window", "", ""},
    {1, "mnuWindowNewWindow", "&New Window", "", ""},
    {1, "mnuWindowBar0", "-", "", ""},
    {1, "mnuWindowCascade", "&Cascade", "", ""},
    {1, "mnuWindowTileHorizontal", "Tile &Horizontal", "", ""},
    {1, "mnuWindowTileVertical", "Tile &Vertical", "", ""},
    {1, "mnuWindowArrangeIcons", "&Arrange Icons", "", ""},
    {0, "mnuHelp", "&Help", "", ""},
    {1, "mnuHelpContents", "&Contents", "", ""},
    {1, "mnuHelpSearchForHelpOn", "&Search For Help On...", "", ""},
    {1, "mnuHelpSep2", "-", "", ""},
    {1, "mnuHelpBar0", "-", "", ""},
    {1, "mnuHelpAbout", "&About ", "", ""},
};

struct Seen
{
    int level;
    QAction *action;
};

void walk(const QList<QAction *> &actions, int level, QList<Seen> &out)
{
    for (QAction *action : actions) {
        out.append({level, action});
        if (QMenu *menu = action->menu())
            walk(menu->actions(), level + 1, out);
    }
}

} // namespace

class MainMenusTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void theMenuBarHoldsEveryItemInOrderWithItsDesignState();
    void everyMenuItemIsFoundByItsName();
    void everyMenuItemIsReachedByItsEnumValue();
    void aConnectedCommandRunsWhileItsReceiverLives();
    void separatorsAreNamedSeparatorActions();
    void theRecentFileSlotsAreHiddenAndEmpty();
    void theWindowMenuListsTheOpenDocumentWindows();
    void choosingAWindowListEntryActivatesThatWindow();
};

void MainMenusTest::theMenuBarHoldsEveryItemInOrderWithItsDesignState()
{
    MainWindow frame;
    QList<Seen> seen;
    walk(frame.menuBar()->actions(), 0, seen);
    const int expectedCount = int(sizeof kMenuTree / sizeof kMenuTree[0]);
    QCOMPARE(seen.size(), expectedCount);
    for (int i = 0; i < expectedCount; ++i) {
        const Expected &want = kMenuTree[i];
        QAction *got = seen.at(i).action;
        const QString where = QStringLiteral("item %1 (%2)").arg(i).arg(QLatin1String(want.name));
        QVERIFY2(seen.at(i).level == want.level, qPrintable(where));
        QCOMPARE(got->objectName(), QString::fromLatin1(want.name));
        const QString caption = QString::fromLatin1(want.caption);
        if (caption == QLatin1String("-")) {
            QVERIFY2(got->isSeparator(), qPrintable(where));
        } else {
            QVERIFY2(!got->isSeparator(), qPrintable(where));
            QCOMPARE(got->text(), caption);
        }
        QCOMPARE(got->shortcut().toString(QKeySequence::PortableText),
                 QString::fromLatin1(want.shortcut));
        const QByteArray state(want.state);
        QVERIFY2(got->isChecked() == state.contains('C'), qPrintable(where));
        QVERIFY2(got->isVisible() == !state.contains('H'), qPrintable(where));
        // A hidden action always reports itself disabled, so only visible items show
        // their enabled state.
        if (got->isVisible())
            QVERIFY2(got->isEnabled() == !state.contains('D'), qPrintable(where));
    }
}

void MainMenusTest::everyMenuItemIsFoundByItsName()
{
    MainWindow frame;
    for (const Expected &want : kMenuTree) {
        QAction *action = frame.action(QString::fromLatin1(want.name));
        QVERIFY2(action, want.name);
        QCOMPARE(action->objectName(), QString::fromLatin1(want.name));
    }
    QVERIFY(!frame.action(QStringLiteral("mnuNoSuchItem")));
    // The menus themselves carry the names too.
    QVERIFY(frame.findChild<QMenu *>(QStringLiteral("mnuPUQ3")));
    QCOMPARE(frame.findChild<QMenu *>(QStringLiteral("mnuWindow"))->title(),
             QStringLiteral("&Window"));
}

void MainMenusTest::everyMenuItemIsReachedByItsEnumValue()
{
    // The enum lists the table's entries in order, so the two cannot drift apart.
    const QVector<MenuEntry> &table = mainMenuTable();
    QCOMPARE(menuItemCount, int(sizeof kMenuTree / sizeof kMenuTree[0]));
    QCOMPARE(table.size(), menuItemCount);
    MainWindow frame;
    for (int i = 0; i < menuItemCount; ++i) {
        const auto item = static_cast<MenuItem>(i);
        const QString name = QString::fromLatin1(kMenuTree[i].name);
        QCOMPARE(menuItemName(item), name);
        QVERIFY(table.at(i).item == item);
        QCOMPARE(table.at(i).name, name);
        QCOMPARE(frame.menuItem(item), frame.action(name));
        if (opensMenu(table, i))
            QCOMPARE(frame.menu(item), frame.findChild<QMenu *>(name));
        else
            QVERIFY(!frame.menu(item));
    }
}

void MainMenusTest::aConnectedCommandRunsWhileItsReceiverLives()
{
    MainWindow frame;
    int runs = 0;
    auto receiver = std::make_unique<QObject>();
    frame.connectCommand(MenuItem::mnuFileMRU_2, receiver.get(), [&runs] { ++runs; });
    frame.menuItem(MenuItem::mnuFileMRU_2)->trigger();
    QCOMPARE(runs, 1);
    receiver.reset();
    frame.menuItem(MenuItem::mnuFileMRU_2)->trigger();
    QCOMPARE(runs, 1);
}

void MainMenusTest::separatorsAreNamedSeparatorActions()
{
    MainWindow frame;
    for (const char *name : {"mnuFileBar0", "mnuEditBar0", "mnubsep2", "mnyEditSep5", "mnuHelpSep2",
                             "mnuHelpBar0", "mnuWindowBar0"})
        QVERIFY2(frame.action(QString::fromLatin1(name))->isSeparator(), name);
    QVERIFY(!frame.action(QStringLiteral("mnuFileBar5"))->isVisible());
}

void MainMenusTest::theRecentFileSlotsAreHiddenAndEmpty()
{
    MainWindow frame;
    for (int i = 1; i <= 3; ++i) {
        QAction *slot = frame.action(QStringLiteral("mnuFileMRU_%1").arg(i));
        QVERIFY(slot);
        QVERIFY(!slot->isVisible());
        QVERIFY(slot->text().isEmpty());
    }
    QVERIFY(!frame.action(QStringLiteral("mnuFileMRU_0")));
    QVERIFY(!frame.action(QStringLiteral("mnuFileMRU_4")));
}

static QStringList windowListCaptions(QMenu *menu)
{
    QStringList captions;
    for (QAction *action : menu->actions())
        if (action->objectName().startsWith(QLatin1String("windowList_")))
            captions << action->text() + (action->isChecked() ? QStringLiteral(" *") : QString());
    return captions;
}

void MainMenusTest::theWindowMenuListsTheOpenDocumentWindows()
{
    MainWindow frame;
    auto *menu = frame.findChild<QMenu *>(QStringLiteral("mnuWindow"));
    const int designCount = menu->actions().size();
    QCOMPARE(designCount, 6);
    QVERIFY(windowListCaptions(menu).isEmpty());

    QMdiSubWindow *first = frame.mdiArea()->addSubWindow(new QPlainTextEdit);
    first->setWindowTitle(QStringLiteral("g_main.c"));
    first->show();
    QMdiSubWindow *second = frame.mdiArea()->addSubWindow(new QPlainTextEdit);
    second->setWindowTitle(QStringLiteral("q_shared.h"));
    second->show();
    frame.mdiArea()->setActiveSubWindow(second);
    Q_EMIT menu->aboutToShow();
    QCOMPARE(windowListCaptions(menu),
             QStringList({QStringLiteral("&1 g_main.c"), QStringLiteral("&2 q_shared.h *")}));
    QCOMPARE(menu->actions().size(), designCount + 3);

    delete second;
    delete first;
    Q_EMIT menu->aboutToShow();
    QVERIFY(windowListCaptions(menu).isEmpty());
    QCOMPARE(menu->actions().size(), designCount);
}

void MainMenusTest::choosingAWindowListEntryActivatesThatWindow()
{
    MainWindow frame;
    frame.show();
    auto *menu = frame.findChild<QMenu *>(QStringLiteral("mnuWindow"));
    QMdiSubWindow *first = frame.mdiArea()->addSubWindow(new QPlainTextEdit);
    first->setWindowTitle(QStringLiteral("one"));
    first->show();
    QMdiSubWindow *second = frame.mdiArea()->addSubWindow(new QPlainTextEdit);
    second->setWindowTitle(QStringLiteral("two"));
    second->show();
    frame.mdiArea()->setActiveSubWindow(second);
    Q_EMIT menu->aboutToShow();
    frame.findChild<QAction *>(QStringLiteral("windowList_1"))->trigger();
    QCOMPARE(frame.mdiArea()->activeSubWindow(), first);
}

TESSARO_TEST_MAIN(MainMenusTest)
#include "tst_mainmenus.moc"
