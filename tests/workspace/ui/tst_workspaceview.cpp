#include "app/ui/MainWindow.h"
#include "editor/ui/srcText.h"
#include "platform/core/TextFile.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/CliRun.h"
#include "support/RealModWorkspace.h"
#include "support/TestSupport.h"
#include "workspace/core/FileBrowserModel.h"
#include "workspace/ui/FileBrowser.h"
#include "workspace/ui/TreeMirror.h"
#include "workspace/ui/WorkspaceCommands.h"
#include "workspace/ui/frmDocument.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

using namespace tessaro;

namespace {

// The tree as "key<TAB>text" lines with two blanks per level, as NodeTree::listing.
void listItem(const QTreeWidgetItem *item, int depth, QString &text)
{
    text += QString(depth * 2, QLatin1Char(' ')) + nodeKey(item) + QLatin1Char('\t') +
            item->text(0) + QLatin1Char('\n');
    for (int i = 0; i < item->childCount(); ++i)
        listItem(item->child(i), depth + 1, text);
}

QString listing(const QTreeWidget *tree)
{
    QString text;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        listItem(tree->topLevelItem(i), 0, text);
    return text;
}

QTreeWidgetItem *itemWithKey(QTreeWidget *tree, const QString &key)
{
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        if (nodeKey(*it) == key)
            return *it;
    return nullptr;
}

} // namespace

class WorkspaceViewTest : public QObject
{
    Q_OBJECT

    // No "-" in the folder name: the structure view cuts keys at the first one.
    QTemporaryDir m_dir{QDir::tempPath() + "/wsview_XXXXXX"};
    QString writeFile(const QString &name, const QByteArray &bytes)
    {
        return test::writeFileIn(m_dir.path(), name, bytes);
    }

    std::unique_ptr<MainWindow> m_frame;
    QTreeWidget *code1() const { return m_frame->findChild<QTreeWidget *>("Code1"); }
    QTreeWidget *list1() const { return m_frame->findChild<QTreeWidget *>("List1"); }
    QComboBox *drive1() const { return m_frame->findChild<QComboBox *>("Drive1"); }
    QListWidget *dir1() const { return m_frame->findChild<QListWidget *>("Dir1"); }
    QListWidget *file1() const { return m_frame->findChild<QListWidget *>("File1"); }
    void trigger(const char *name)
    {
        QAction *action = m_frame->action(QLatin1String(name));
        QVERIFY2(action, name);
        action->trigger();
    }
    // The left pane's controls take clicks only while their page ("picOptions_<n>") is
    // the one its tab shows.
    static void showPageOf(QWidget *control)
    {
        QWidget *tabs = control->window()->findChild<QWidget *>("tbsOptions");
        const QString page = control->parentWidget()->objectName();
        if (tabs && page.startsWith("picOptions_"))
            tabs->findChild<QTabBar *>()->setCurrentIndex(page.mid(11).toInt());
    }

    void click(QTreeWidget *tree, const QString &key)
    {
        showPageOf(tree);
        QTreeWidgetItem *item = itemWithKey(tree, key);
        QVERIFY2(item, qPrintable(key));
        tree->scrollToItem(item);
        const QRect rect = tree->visualItemRect(item);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, rect.center());
    }

    // A double click as the window system delivers it: press and release, then the
    // double-click event.
    static void doubleClick(QListWidget *list, QListWidgetItem *item)
    {
        showPageOf(list);
        const QPoint at = list->visualItemRect(item).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
    }

private Q_SLOTS:
    void init()
    {
        resetApp();
        m_frame = std::make_unique<MainWindow>();
        // Start-up's file browser step: the lists show the root folder.
        FileBrowser::of(*m_frame)->showStartFolder();
        m_frame->resize(800, 600);
        m_frame->show();
        // These tests read PendingOpenPath before the main window's timer would open it.
        if (auto *timer = m_frame->findChild<QTimer *>("Timer1"))
            timer->stop();
        QVERIFY(code1() && list1() && drive1() && dir1() && file1());
    }
    void cleanup() { m_frame.reset(); }

    void theFileMenuCommandsFillTheFileViewTree()
    {
        test::ScriptedCommonDialog dialog;
        const QString tdi = m_dir.filePath("menu.tdi");
        dialog.answers << tdi << "/mod/code/game/g_main.c"
                       << "/mod/code q_shared.h bg_public.h"
                       << "/mod/app.rc";
        trigger("mnuFileNW");
        trigger("mnuFileInsert");
        trigger("mnuFileInsert");
        trigger("mnuFileInsert");
        QCOMPARE(dialog.requests.size(), 4);
        QCOMPARE(dialog.requests[0].title, QStringLiteral("New Workspace"));
        QCOMPARE(dialog.requests[1].title, QStringLiteral("Add Files"));
        QCOMPARE(listing(code1()), QStringLiteral("G\tGame\n"
                                                  "  /mod/code/game/g_main.c\tg_main.c\n"
                                                  "H\tHeaders\n"
                                                  "  /mod/code/q_shared.h\tq_shared.h\n"
                                                  "  /mod/code/bg_public.h\tbg_public.h\n"
                                                  "R\tResources\n"
                                                  "  /mod/app.rc\tapp.rc\n"));
        QCOMPARE(nodeImage(itemWithKey(code1(), "G")), 1);
        QCOMPARE(nodeImage(itemWithKey(code1(), "/mod/app.rc")), 5);
        QCOMPARE(textfile::readBytes(tdi), QByteArray("GAME=/mod/code/game/g_main.c\r\n"
                                                      "HEAD=/mod/code/q_shared.h\r\n"
                                                      "HEAD=/mod/code/bg_public.h\r\n"
                                                      "RESC=/mod/app.rc\r\n\r\n"));
        QVERIFY(app().workspace.open);
        QCOMPARE(app().workspace.path, tdi);

        // Selecting nodes schedules files; the group nodes except "R" do nothing.
        itemWithKey(code1(), "G")->setExpanded(true);
        click(code1(), "/mod/code/game/g_main.c");
        QCOMPARE(app().pendingOpenPath, QStringLiteral("/mod/code/game/g_main.c"));
        app().pendingOpenPath.clear();
        click(code1(), "G");
        QCOMPARE(app().pendingOpenPath, QString());
        click(code1(), "R");
        QCOMPARE(app().pendingOpenPath, QStringLiteral("R"));

        // Expanded groups stay expanded when files are added.
        dialog.answers << "/mod/code/game/g_cmds.c";
        trigger("mnuFileInsert");
        QVERIFY(itemWithKey(code1(), "G")->isExpanded());
        QCOMPARE(itemWithKey(code1(), "G")->childCount(), 2);

        trigger("mnuFileCW");
        QCOMPARE(code1()->topLevelItemCount(), 0);
        QVERIFY(!app().workspace.open);
    }

    void openWorkspaceFillsBothTreesAndAnEntryOpensAtItsDeclaration()
    {
        const QString g = writeFile("open/game/g_local.h",
                                    "/* x */\ntypedef struct gentity_s {\n int a;\n} gentity_t;\n");
        const QString s = writeFile("open/tools/pak.c", "typedef struct { int p; } pak_t;\n");
        const QString tdi =
            writeFile("open.tdi", ("GAME=" + g + "\r\nSOUR=" + s + "\r\n\r\n").toUtf8());
        test::ScriptedCommonDialog dialog;
        dialog.answers << tdi;
        trigger("mnuFileOW");
        QCOMPARE(dialog.requests.first().title, QStringLiteral("Open Workspace"));
        QCOMPARE(listing(code1()),
                 QStringLiteral("G\tGame\n  %1\tg_local.h\n%2\tpak.c\n").arg(g, s));
        QCOMPARE(listing(list1()), QStringLiteral("G\tGame\n  %1-10\tgentity_t\nC\tCGame\n"
                                                  "H\tHeaders\nU\tUI\n%2-1\tpak_t\n")
                                       .arg(g, s));
        QCOMPARE(nodeImage(itemWithKey(list1(), s + "-1")), 2);

        click(list1(), s + "-1");
        QCOMPARE(app().pendingOpenPath, s);
        QCOMPARE(app().pendingCaretPosition, 1);
        app().pendingOpenPath.clear();
        app().pendingCaretPosition = 0;
        click(list1(), "C");
        QCOMPARE(app().pendingOpenPath, QString());

        trigger("mnuFileCW");
        QCOMPARE(list1()->topLevelItemCount(), 0);
        QCOMPARE(code1()->topLevelItemCount(), 0);
    }

    void anEntryInAFileWithMixedLineEndsOpensAtItsDeclaration()
    {
        // CR LF, lone LF and lone CR lines: the caret lands one character after the
        // start of "typedef struct", as the editor counts positions.
        const QString g = writeFile("mixed/game/g_local.h",
                                    "/* mixed */\r\n#define A 1\rtypedef struct a_s {\n int a;\r"
                                    "} a_t;\n\r\ntypedef struct b_s {\r int b;\r\n} b_t;\r"
                                    "\rtypedef struct { int c; }\nc_t;\n");
        const QString tdi = writeFile("mixed.tdi", ("GAME=" + g + "\r\n\r\n").toUtf8());
        test::ScriptedCommonDialog dialog;
        dialog.answers << tdi;
        trigger("mnuFileOW");
        QCOMPARE(listing(list1()),
                 QStringLiteral("G\tGame\n  %1-27\ta_t\n  %1-68\tb_t\n  %1-109\t\nc_t\n"
                                "C\tCGame\nH\tHeaders\nU\tUI\n")
                     .arg(g));
        itemWithKey(list1(), "G")->setExpanded(true);
        for (const char *position : {"27", "68", "109"}) {
            click(list1(), g + "-" + position);
            QCOMPARE(app().pendingOpenPath, g);
            m_frame->LoadDocument(app().pendingOpenPath);
            app().pendingOpenPath.clear();
            auto *document =
                qobject_cast<frmDocument *>(m_frame->mdiArea()->activeSubWindow()->widget());
            QVERIFY(document);
            const srcText *code = document->code();
            QCOMPARE(code->SelStart(), qsizetype(QByteArray(position).toInt()));
            QCOMPARE(code->Text().mid(code->SelStart() - 1, 14), QStringLiteral("typedef struct"));
        }
    }

    void aRealLookingModOpensInTheWindowAsInTheCommandLineTool()
    {
        const QString tdi = test::writeRealModWorkspace(m_dir.filePath("realmod.tdi"));
        test::ScriptedCommonDialog dialog;
        dialog.answers << tdi;
        trigger("mnuFileOW");
        QVERIFY(app().workspace.open);
        QCOMPARE(app().workspace.path, tdi);
        QCOMPARE(code1()->topLevelItemCount(), 4);

        const test::CliRun structs = test::runCli({"structs", tdi});
        QCOMPARE(structs.status, 0);
        const QString printed = QString::fromUtf8(structs.out);
        QCOMPARE(listing(list1()), printed);
        QVERIFY(printed.contains("/game/g_local.h-1041\t\n"));
    }

    void theBrowserStartsAtTheRootWithTheRootDriveFirst()
    {
        QCOMPARE(drive1()->itemText(0), QStringLiteral("/"));
        QCOMPARE(drive1()->currentText(), QStringLiteral("/"));
        QCOMPARE(drive1()->property("Drive").toString(), QStringLiteral("/"));
        QCOMPARE(dir1()->property("Path").toString(), QStringLiteral("/"));
        QCOMPARE(file1()->property("Path").toString(), QStringLiteral("/"));
        QCOMPARE(dir1()->item(0)->text(), QStringLiteral("/"));
        QStringList names;
        for (int i = 0; i < dir1()->count(); ++i)
            names << dir1()->item(i)->text().trimmed();
        QVERIFY(names.contains("tmp"));
    }

    void theDirectoryChainRefreshesTheFileList()
    {
        writeFile("chain/b.c", "x");
        writeFile("chain/A.h", "x");
        writeFile("chain/.hidden", "x");
        QDir().mkpath(m_dir.filePath("chain/sub"));
        FileBrowser *browser = FileBrowser::of(*m_frame);
        browser->showFolder(m_dir.filePath("chain/"));
        QCOMPARE(dir1()->property("Path").toString(), m_dir.filePath("chain"));
        QCOMPARE(file1()->property("Path").toString(), m_dir.filePath("chain"));
        QCOMPARE(file1()->count(), 2);
        QCOMPARE(file1()->item(0)->text(), QStringLiteral("A.h"));
        QCOMPARE(file1()->item(1)->text(), QStringLiteral("b.c"));
        QCOMPARE(dir1()->currentItem()->text().trimmed(), QStringLiteral("chain"));
        QCOMPARE(dir1()->item(dir1()->count() - 1)->text().trimmed(), QStringLiteral("sub"));

        // Activating a folder of the list moves there.
        QListWidgetItem *sub = dir1()->item(dir1()->count() - 1);
        dir1()->scrollToItem(sub);
        doubleClick(dir1(), sub);
        QCOMPARE(browser->dirPath(), m_dir.filePath("chain/sub"));
        QCOMPARE(file1()->count(), 0);
    }

    void aDriveThatCannotBeReadKeepsThePreviousFolder()
    {
        FileBrowser *browser = FileBrowser::of(*m_frame);
        browser->showFolder(m_dir.path());
        const QString before = browser->dirPath();
        const QString driveBefore = browser->drive();
        browser->setDrive("/no/such/volume");
        QCOMPARE(browser->dirPath(), before);
        QCOMPARE(dir1()->property("Path").toString(), before);
        QCOMPARE(browser->drive(), driveBefore);
        QCOMPARE(drive1()->currentData().toString(), driveBefore);
    }

    void doubleClickRunsExeAndOpensEverythingElse()
    {
        writeFile("run/tool.exe", "x");
        writeFile("run/TOOL.EXE", "x");
        writeFile("run/notes.txt", "x");
        FileBrowser *browser = FileBrowser::of(*m_frame);
        browser->showFolder(m_dir.filePath("run"));
        test::RecordingShell shell;
        auto activate = [&](const QString &name) {
            QList<QListWidgetItem *> items = file1()->findItems(name, Qt::MatchExactly);
            QCOMPARE(items.size(), 1);
            file1()->setCurrentItem(items.first());
            doubleClick(file1(), items.first());
        };
        activate("tool.exe");
        QCOMPARE(shell.programs, QStringList{m_dir.filePath("run/tool.exe")});
        QCOMPARE(app().pendingOpenPath, QString());
        activate("TOOL.EXE");
        QCOMPARE(shell.programs.size(), 1);
        QCOMPARE(app().pendingOpenPath, m_dir.filePath("run/TOOL.EXE"));
        activate("notes.txt");
        QCOMPARE(app().pendingOpenPath, m_dir.filePath("run/notes.txt"));
    }

    void aProgramThatCannotStartEndsTheProgram()
    {
        writeFile("bad/broken.exe", "x");
        FileBrowser *browser = FileBrowser::of(*m_frame);
        browser->showFolder(m_dir.filePath("bad"));
        test::RecordingShell shell;
        shell.failing << m_dir.filePath("bad/broken.exe");
        test::RecordingMessageBox box;
        test::ProgramEndCatcher catcher;
        browser->setListIndex(0);
        try {
            browser->File1_DblClick();
            QFAIL("the program did not end");
        } catch (const test::ProgramEnded &ended) {
            QCOMPARE(ended.status, 1);
        }
        QCOMPARE(box.calls.size(), 1);
        QVERIFY(box.calls.first().prompt.startsWith("Run-time error '53':"));
    }

    void atARootTheFullNameHasNoDoubledSlash()
    {
        QCOMPARE(browser::fullName("/", "vmlinuz"), QStringLiteral("/vmlinuz"));
        QCOMPARE(browser::fullName("/home/me", "a.c"), QStringLiteral("/home/me/a.c"));
        QVERIFY(browser::runsAsProgram("/x/tool.exe"));
        QVERIFY(!browser::runsAsProgram("/x/tool.EXE"));
        QVERIFY(!browser::runsAsProgram("/x/tool.exe.c"));
        // At the root the browser joins the root and the name the same way.
        FileBrowser *browser = FileBrowser::of(*m_frame);
        browser->showFolder("/");
        if (file1()->count() == 0)
            QSKIP("the root folder holds no file here");
        browser->setListIndex(0);
        browser->File1_DblClick();
        if (!browser::runsAsProgram(app().pendingOpenPath))
            QCOMPARE(app().pendingOpenPath, "/" + file1()->item(0)->text());
    }

    void aFolderTextStartingWithAColonIsAFolderOnDisk()
    {
        // Qt reads ":name" as one of its resources; on disk it is a relative folder.
        QVERIFY(QDir().mkpath(m_dir.path() + "/:work"));
        textfile::writeBytes(m_dir.path() + "/:work/a.c", "int a;\r\n");
        const QString previous = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_dir.path()));
        const QString here = QDir::currentPath();
        const QString work = here + "/:work";
        QCOMPARE(browser::normalFolder(":work"), work);
        QCOMPARE(browser::normalFolder(":work/.."), here);
        QCOMPARE(browser::normalFolder(":x/..//"), here);
        QCOMPARE(browser::fileNames(":work"), QStringList{"a.c"});
        QCOMPARE(browser::dirEntries(":work").last().path, work);
        QVERIFY(browser::driveOf(":work").startsWith("/"));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, browser::fileNames(":nothing"));
        QDir::setCurrent(previous);
    }

    void theDriveListStartsWithTheRoot()
    {
        const QStringList drives = browser::driveList();
        QVERIFY(!drives.isEmpty());
        QCOMPARE(drives.first(), QStringLiteral("/"));
        QCOMPARE(drives.count("/"), 1);
        QCOMPARE(browser::driveOf(m_dir.path()).isEmpty(), false);
    }
};

TESSARO_TEST_MAIN(WorkspaceViewTest)
#include "tst_workspaceview.moc"
