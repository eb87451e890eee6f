// How document windows look when they open: their place and size in the MDI area,
// their font, and the file dialogs they ask for names with.
#include "app/ui/MainWindow.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"
#include "platform/core/CommonDialog.h"
#include "platform/core/TextFile.h"
#include "platform/ui/WidgetDialogs.h"
#include "shell/core/MdiArrange.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"
#include "workspace/ui/DocumentCommands.h"
#include "workspace/ui/frmDocument.h"

#include <QAction>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QFontDatabase>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTemporaryDir>
#include <QTextBlock>

using namespace tessaro;

class DocumentWindowsTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir{QDir::tempPath() + "/docwin_XXXXXX"};
    std::unique_ptr<MainWindow> m_frame;

    DocumentCommands *commands() const { return DocumentCommands::of(*m_frame); }
    QMdiArea *area() const { return m_frame->mdiArea(); }
    void trigger(const char *name)
    {
        QAction *action = m_frame->action(QLatin1String(name));
        QVERIFY2(action, name);
        action->trigger();
    }
    // The editor's rectangle must cover at least 60 % of the MDI area both ways.
    void verifyReadableSize(frmDocument *document)
    {
        const QSize room = area()->viewport()->size();
        const QSize editor = document->code()->size();
        QVERIFY2(editor.width() >= room.width() * 0.6 && editor.height() >= room.height() * 0.6,
                 qPrintable(QStringLiteral("editor %1x%2 in an area of %3x%4")
                                .arg(editor.width())
                                .arg(editor.height())
                                .arg(room.width())
                                .arg(room.height())));
        QVERIFY(document->code()->isVisible());
    }
    // The names a file dialog set up for `request` lists in `folder` under the filter
    // whose description starts with `filterStart`.
    static QStringList namesListed(const FileDialogRequest &request, const QString &folder,
                                   const QString &filterStart)
    {
        QFileDialog dialog;
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        setUpFileDialog(dialog, request);
        dialog.setDirectory(folder);
        for (const QString &filter : dialog.nameFilters())
            if (filter.startsWith(filterStart))
                dialog.selectNameFilter(filter);
        auto *model = dialog.findChild<QFileSystemModel *>();
        if (!model)
            return {};
        const QModelIndex parent = model->index(folder);
        if (!QTest::qWaitFor([&] { return model->rowCount(parent) > 0; }, 5000))
            return {};
        QStringList names;
        for (int row = 0; row < model->rowCount(parent); ++row)
            names << model->fileName(model->index(row, 0, parent));
        names.sort();
        return names;
    }

private Q_SLOTS:
    void init()
    {
        resetApp();
        m_frame = std::make_unique<MainWindow>();
        m_frame->resize(900, 700);
        m_frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
    }
    void cleanup()
    {
        test::RecordingMessageBox box; // every prompt answered No
        for (int i = 0; i < 8; ++i)
            box.answers << mb::No;
        area()->closeAllSubWindows();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_frame.reset();
    }

    void aNewChildTakesThreeQuartersOfTheAreaAtTheCascadePosition()
    {
        const QSize least(240, 150);
        QCOMPARE(newChildRect(QSize(800, 600), 0, 20, least), QRect(0, 0, 600, 450));
        QCOMPARE(newChildRect(QSize(800, 600), 1, 20, least), QRect(20, 20, 600, 450));
        QCOMPARE(newChildRect(QSize(800, 600), 3, 20, least), QRect(60, 60, 600, 450));
        // 150 pixels of room below: positions 0 to 7, then the top left again.
        QCOMPARE(newChildRect(QSize(800, 600), 7, 20, least).topLeft(), QPoint(140, 140));
        QCOMPARE(newChildRect(QSize(800, 600), 8, 20, least).topLeft(), QPoint(0, 0));
        QCOMPARE(newChildRect(QSize(800, 600), 9, 20, least).topLeft(), QPoint(20, 20));
        // A small area: never below the least usable size, and no cascade without room.
        QCOMPARE(newChildRect(QSize(200, 100), 0, 20, least), QRect(0, 0, 240, 150));
        QCOMPARE(newChildRect(QSize(200, 100), 5, 20, least), QRect(0, 0, 240, 150));
        QCOMPARE(newChildRect(QSize(300, 180), 0, 20, least), QRect(0, 0, 240, 150));
        QCOMPARE(newChildRect(QSize(0, 0), 2, 20, least), QRect(0, 0, 240, 150));
        QCOMPARE(newChildRect(QSize(800, 600), -1, 0, least), QRect(0, 0, 600, 450));
    }

    void newAndLoadedDocumentsOpenReadyToRead()
    {
        trigger("mnuFileNew");
        frmDocument *fresh = commands()->activeDocument();
        QVERIFY(fresh);
        verifyReadableSize(fresh);

        const QString path = m_dir.filePath("shown.c");
        textfile::writeBytes(path, "int shown;\r\nint second;\r\nint third;\r\n");
        frmDocument *loaded = commands()->LoadDocument(path);
        QVERIFY(loaded);
        verifyReadableSize(loaded);
        // The text is on screen: the first line lies inside the editor's visible part,
        // with room for several more below it.
        SourceEditBox *box = loaded->code()->hWnd();
        QCOMPARE(loaded->code()->Text().section(QStringLiteral("\r\n"), 0, 0),
                 QStringLiteral("int shown;"));
        QCOMPARE(loaded->code()->GetFirstLineVisible(), 0);
        QVERIFY(box->viewport()->rect().contains(loaded->code()->GetPosFromChar(0)));
        QVERIFY(box->send(SourceEditBox::SCI_LINESONSCREEN) > 5);
        QVERIFY(box->viewport()->width() >
                40 * box->SendScintilla(SourceEditBox::SCI_TEXTWIDTH,
                                        uintptr_t(SourceEditBox::STYLE_DEFAULT), "x"));
    }

    void eachNextDocumentOpensOneStepFurtherDownAndRight()
    {
        trigger("mnuFileNew");
        trigger("mnuFileNew");
        trigger("mnuFileNew");
        const QList<QMdiSubWindow *> children = area()->subWindowList();
        QCOMPARE(children.size(), 3);
        QCOMPARE(children[0]->pos(), QPoint(0, 0));
        const QPoint step = children[1]->pos() - children[0]->pos();
        QVERIFY(step.x() > 0 && step.x() == step.y());
        QCOMPARE(children[2]->pos() - children[1]->pos(), step);
        QCOMPARE(children[0]->size(), children[2]->size());
        for (QMdiSubWindow *child : children)
            QVERIFY(area()->viewport()->rect().contains(child->geometry()));
        // With every window closed the next one starts at the top left again.
        area()->closeAllSubWindows();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        trigger("mnuFileNew");
        QCOMPARE(area()->subWindowList().first()->pos(), QPoint(0, 0));
    }

    void aSmallAreaStillGetsAUsableDocument()
    {
        m_frame->resize(260, 240);
        QTest::qWait(20);
        trigger("mnuFileNew");
        const QSize child = area()->subWindowList().first()->size();
        QVERIFY2(child.width() >= 240 && child.height() >= 150,
                 qPrintable(QStringLiteral("%1x%2").arg(child.width()).arg(child.height())));
    }

    void aMaximisedDocumentKeepsTheNextOneMaximisedToo()
    {
        trigger("mnuFileNew");
        area()->subWindowList().first()->showMaximized();
        trigger("mnuFileNew");
        QVERIFY(area()->activeSubWindow()->isMaximized());
        verifyReadableSize(commands()->activeDocument());
    }

    void documentsUseTheSystemFixedPitchFont()
    {
        const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        trigger("mnuFileNew");
        frmDocument *document = commands()->activeDocument();
        QCOMPARE(document->font().family(), fixed.family());
        QCOMPARE(document->code()->Font().family(), fixed.family());
        QCOMPARE(document->code()->Font().pointSizeF(), fixed.pointSizeF());
        QCOMPARE(document->code()->hWnd()->font().family(), fixed.family());
        // The box draws its text in that font.
        char family[256] = {};
        document->code()->hWnd()->SendScintilla(SourceEditBox::SCI_STYLEGETFONT,
                                                uintptr_t(SourceEditBox::STYLE_DEFAULT), family);
        QCOMPARE(QString::fromUtf8(family), fixed.family());
        // Every character as wide as the next (some monospaced families do not say so).
        const QFontMetrics shown(document->code()->hWnd()->font());
        QCOMPARE(shown.horizontalAdvance("iiii"), shown.horizontalAdvance("WWWW"));
        // A loaded file too.
        const QString path = m_dir.filePath("fixed.txt");
        textfile::writeBytes(path, "iiii\r\nWWWW\r\n");
        frmDocument *loaded = commands()->LoadDocument(path);
        const QFontMetrics metrics(loaded->code()->hWnd()->font());
        QCOMPARE(metrics.horizontalAdvance("iiii"), metrics.horizontalAdvance("WWWW"));
    }

    void everyAllFilesFilterShowsFilesWithoutADot()
    {
        QTemporaryDir folder;
        for (const char *name : {"Makefile", "README", "g_main.c", "g_local.h", "notes.txt"})
            textfile::writeBytes(folder.filePath(name), "x");
        QStringList everything = {"Makefile", "README", "g_local.h", "g_main.c", "notes.txt"};

        // Collect the requests of File > Open, Save (untitled), Save As and the prompt
        // at close, each cancelled.
        test::ScriptedCommonDialog dialog;
        trigger("mnuFileOpen");
        trigger("mnuFileNew");
        trigger("mnuFileSave");
        trigger("mnuFileSaveAs");
        QTest::keyClicks(commands()->activeDocument()->code()->hWnd(), "changed");
        test::RecordingMessageBox box;
        box.answers << mb::Yes;
        trigger("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(dialog.requests.size(), 4);

        for (const FileDialogRequest &request : dialog.requests) {
            QVERIFY2(request.filter.contains("All Files (*.*)|*.*"), qPrintable(request.filter));
            QCOMPARE(namesListed(request, folder.path(), "All Files"), everything);
            if (request.filter.startsWith("Source Files"))
                QCOMPARE(namesListed(request, folder.path(), "Source Files"),
                         QStringList({"g_local.h", "g_main.c"}));
        }
    }
};

TESSARO_TEST_MAIN(DocumentWindowsTest)
#include "tst_documentwindows.moc"
