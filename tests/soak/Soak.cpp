#include "Soak.h"

#include "app/ui/MainWindow.h"
#include "editor/ui/SourceEditBox.h"
#include "editor/ui/srcText.h"
#include "platform/core/TextFile.h"
#include "shell/core/MenuItem.h"
#include "shell/ui/MainSplitter.h"
#include "support/TestSupport.h"
#include "workspace/core/RecoveryCopy.h"
#include "workspace/ui/DocumentCommands.h"
#include "workspace/ui/DocumentRecovery.h"
#include "workspace/ui/frmDocument.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

#include <cstdio>

namespace tessaro::soak {

namespace {

// What the box shows: its own text, read through Scintilla.
QByteArray shownText(const srcText &code)
{
    const SourceEditBox *box = code.RTFBox();
    const long length = box->send(SourceEditBox::SCI_GETLENGTH);
    QByteArray text(length + 1, '\0');
    box->SendScintilla(SourceEditBox::SCI_GETTEXT, uintptr_t(length + 1), text.data());
    text.truncate(length);
    return text;
}

// Serves the event loop for a while, as a user's pause does.
void serve(int ms)
{
    QDeadlineTimer until(ms);
    do {
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    } while (!until.hasExpired());
}

const char *const tokens[] = {
    "int ", "while ", "return ", "NULL", "trap_print", "qboolean ", "/*",   "*/", "//", "\"", "'",
    "\t",   "\n",     "\n",      " ",    " ",          "{",         "}",    ";",  "(",  ")",  "x",
    "abc",  "\xe9",   "\xff",    "\x80", "#include ",  "vec3_t ",   "\r\n",
};

} // namespace

Soak::Soak(const SoakMod &mod, quint64 seed, const QString &workdir)
    : m_mod(mod), m_random(seed), m_workdir(workdir),
      m_boxes(std::make_unique<test::RecordingMessageBox>()),
      m_dialogs(std::make_unique<test::ScriptedCommonDialog>()),
      m_shell(std::make_unique<test::RecordingShell>()),
      m_ends(std::make_unique<test::ProgramEndCatcher>())
{
    m_frame = std::make_unique<MainWindow>();
    DocumentRecovery::install(*m_frame, QDir(workdir).filePath(QStringLiteral("recovery")));
    m_frame->resize(1000, 700);
    m_frame->show();
    serve(50);
    addActions();

    // Modal windows (the options, About) are answered from the event loop: a button
    // pressed at random, or the window closed.
    auto *closer = new QTimer(m_frame.get());
    closer->setInterval(5);
    QObject::connect(closer, &QTimer::timeout, m_frame.get(), [this] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        const QList<QPushButton *> buttons = dialog->findChildren<QPushButton *>();
        if (!buttons.isEmpty() && m_random.bounded(3) == 0) {
            QPushButton *button = buttons.at(int(m_random.bounded(qsizetype(buttons.size()))));
            if (button->isEnabled() && button->isVisible()) {
                button->click();
                return;
            }
        }
        dialog->reject();
    });
    closer->start();
}

Soak::~Soak()
{
    // Leave without prompts: every answer is No from here on.
    m_boxes->answers.clear();
    for (int i = 0; i < 1000; ++i)
        m_boxes->answers << 7;
    m_frame.reset();
}

void Soak::addActions()
{
    m_list = {
        {"type", 20, [this] { editThenUndoRedo([this] { typeText(); }, QStringLiteral("type")); }},
        {"keys", 8, [this] { editThenUndoRedo([this] { typeKeys(); }, QStringLiteral("keys")); }},
        {"paste", 6, [this] { editThenUndoRedo([this] { paste(); }, QStringLiteral("paste")); }},
        {"undo/redo", 6, [this] { undoRedoRun(); }},
        {"menu", 10, [this] { triggerAnyMenuItem(); }},
        {"find", 5, [this] { find(); }},
        {"open", 5, [this] { openFile(); }},
        {"save", 4, [this] { save(false); }},
        {"save as", 3, [this] { save(true); }},
        {"close", 4, [this] { closeDocument(); }},
        {"workspace", 2, [this] { workspace(); }},
        {"add files", 2, [this] { addFiles(); }},
        {"tree", 4, [this] { clickTree(); }},
        {"splitter", 2, [this] { dragSplitter(); }},
        {"windows", 3, [this] { arrangeWindows(); }},
        {"build", 2, [this] { build(); }},
        {"tool windows", 3, [this] { toolWindows(); }},
    };
    for (const Action &action : m_list)
        m_totalWeight += action.weight;
}

bool Soak::run(int seconds)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < qint64(seconds) * 1000) {
        int pick = int(m_random.bounded(m_totalWeight));
        const Action *action = &m_list.front();
        for (const Action &a : m_list) {
            if (pick < a.weight) {
                action = &a;
                break;
            }
            pick -= a.weight;
        }
        perform(*action);
        ++m_actions;
        if (!check(QString::fromLatin1(action->name)))
            return false;
    }
    return true;
}

void Soak::perform(const Action &action)
{
    answerPrompts();
    try {
        action.run();
        serve(int(m_random.bounded(1, 30)));
    } catch (const test::ProgramEnded &) {
        // A run-time error the program ends on: counted, and the soak goes on.
        ++m_programEnds;
    } catch (const RuntimeError &error) {
        fail(QStringLiteral("run-time error %1 left an action (%2)")
                 .arg(error.number())
                 .arg(QString::fromLatin1(action.name)));
    }
}

void Soak::answerPrompts()
{
    // Save Changes? and the other prompts get a random answer of Yes, No or Cancel
    // (a box without the answer takes its default).
    m_boxes->answers.clear();
    for (int i = 0; i < 8; ++i)
        m_boxes->answers << (m_random.bounded(3) == 0 ? 6 : m_random.bounded(2) ? 7 : 2);
    m_boxes->calls.clear();
    m_dialogs->answers.clear();
    m_dialogs->requests.clear();
}

void Soak::fail(const QString &what)
{
    if (m_failure.isEmpty())
        m_failure = QStringLiteral("action %1: %2").arg(m_actions).arg(what);
}

// ---- Invariants ------------------------------------------------------------------------

bool Soak::check(const QString &actionName)
{
    if (!m_failure.isEmpty())
        return false;
    const QList<frmDocument *> docs = documents();
    for (frmDocument *document : docs) {
        const srcText &code = *document->code();
        if (shownText(code) != code.Text().toLatin1()) {
            fail(QStringLiteral("after %1, the Text of \"%2\" differs from what its box shows")
                     .arg(actionName, document->windowTitle()));
            return false;
        }
    }
    // Every changed document's recovery copy holds what Save would write.
    DocumentRecovery *recovery = DocumentRecovery::of(*m_frame);
    recovery->writeAllNow();
    QDir session(recovery->sessionFolder());
    for (const QFileInfo &info : session.entryInfoList({QStringLiteral("*.copy")}, QDir::Files)) {
        const std::optional<RecoveryCopy> copy =
            RecoveryCopy::fromBytes(test::readFile(info.filePath()));
        if (!copy) {
            fail(QStringLiteral("after %1, the recovery copy %2 cannot be read")
                     .arg(actionName, info.fileName()));
            return false;
        }
        QList<frmDocument *> matching;
        for (frmDocument *document : docs)
            if (document->windowTitle() == copy->caption && document->code()->Modified())
                matching << document;
        if (matching.size() != 1)
            continue; // two windows of one caption: the copy cannot be told apart
        if (copy->text != matching.front()->code()->fileText().toLatin1()) {
            fail(QStringLiteral("after %1, the recovery copy of \"%2\" is not what Save writes")
                     .arg(actionName, copy->caption));
            return false;
        }
    }
    return true;
}

void Soak::editThenUndoRedo(const std::function<void()> &edit, const QString &what)
{
    frmDocument *document = ensureDocument();
    if (!document)
        return;
    srcText *code = document->code();
    const QString before = code->Text();
    edit();
    serve(2);
    if (!documents().contains(document))
        return;
    const QString after = code->Text();
    if (after == before || code->Locked())
        return;
    // Undo then Redo of the edit gives the text it made.
    code->Undo();
    serve(1);
    code->Redo();
    serve(1);
    if (code->Text() != after)
        fail(QStringLiteral("Undo then Redo after %1 did not restore the text").arg(what));
}

// ---- Documents -------------------------------------------------------------------------

QList<frmDocument *> Soak::documents() const
{
    QList<frmDocument *> list;
    for (QMdiSubWindow *child : m_frame->mdiArea()->subWindowList())
        if (auto *document = qobject_cast<frmDocument *>(child->widget()))
            list << document;
    return list;
}

frmDocument *Soak::activeDocument() const
{
    return DocumentCommands::of(*m_frame)->activeDocument();
}

frmDocument *Soak::ensureDocument()
{
    if (!activeDocument()) {
        if (m_random.bounded(2))
            trigger(QStringLiteral("mnuFileNew"));
        else
            openFile();
    }
    return activeDocument();
}

void Soak::trigger(const QString &name)
{
    QAction *action = m_frame->action(name);
    if (action && action->isEnabled())
        action->trigger();
}

void Soak::triggerAnyMenuItem()
{
    // Every command but the ones that leave the program or hand a page to the
    // desktop's browser.
    const QStringList skipped{QStringLiteral("mnuFileExit"), QStringLiteral("mnuHelpContents"),
                              QStringLiteral("mnuHelpSearchForHelpOn")};
    QList<QAction *> actions;
    for (int i = 0; i < menuItemCount; ++i) {
        QAction *action = m_frame->menuItem(MenuItem(i));
        if (action && !action->isSeparator() && !action->menu() &&
            !skipped.contains(action->objectName()))
            actions << action;
    }
    QAction *action = actions.at(int(m_random.bounded(qsizetype(actions.size()))));
    m_dialogs->answers << randomPath(m_random.bounded(2) ? ".c" : ".txt");
    if (action->isEnabled())
        action->trigger();
}

QString Soak::randomText(int count)
{
    QString text;
    for (int i = 0; i < count; ++i)
        text += QString::fromLatin1(tokens[m_random.bounded(int(std::size(tokens)))]);
    return text;
}

QString Soak::randomPath(const char *suffix)
{
    if (m_random.bounded(3) == 0 && !m_mod.sources.isEmpty())
        return m_mod.sources.at(int(m_random.bounded(qsizetype(m_mod.sources.size()))));
    return QDir(m_workdir).filePath(
        QStringLiteral("saved%1%2").arg(++m_saveCount).arg(QLatin1String(suffix)));
}

void Soak::typeText()
{
    QWidget *box = activeDocument()->code()->hWnd();
    const QString text = randomText(int(m_random.bounded(1, 12)));
    for (const QChar c : text) {
        if (c == u'\n') {
            QTest::keyClick(box, Qt::Key_Return);
        } else if (c == u'\r') {
            QTest::keyClick(box, Qt::Key_Return, Qt::ShiftModifier);
        } else if (c == u'\t') {
            QTest::keyClick(box, Qt::Key_Tab);
        } else {
            const int key = c.unicode() < 128 ? int(c.toUpper().unicode()) : int(Qt::Key_unknown);
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(c));
            QKeyEvent release(QEvent::KeyRelease, press.key(), Qt::NoModifier, QString(c));
            QApplication::sendEvent(box, &press);
            QApplication::sendEvent(box, &release);
        }
    }
}

void Soak::typeKeys()
{
    QWidget *box = activeDocument()->code()->hWnd();
    static const Qt::Key keys[] = {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left,
                                   Qt::Key_Right,     Qt::Key_Up,     Qt::Key_Down,
                                   Qt::Key_Home,      Qt::Key_End,    Qt::Key_PageUp,
                                   Qt::Key_PageDown,  Qt::Key_Tab,    Qt::Key_Return};
    static const Qt::KeyboardModifiers mods[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                 Qt::ControlModifier,
                                                 Qt::ControlModifier | Qt::ShiftModifier};
    for (int i = int(m_random.bounded(1, 10)); i > 0; --i)
        QTest::keyClick(box, keys[m_random.bounded(int(std::size(keys)))],
                        mods[m_random.bounded(int(std::size(mods)))]);
}

void Soak::paste()
{
    QGuiApplication::clipboard()->setText(randomText(int(m_random.bounded(1, 40))));
    if (m_random.bounded(2))
        trigger(QStringLiteral("mnuEditPaste"));
    else
        QTest::keyClick(activeDocument()->code()->hWnd(), Qt::Key_V, Qt::ControlModifier);
}

void Soak::undoRedoRun()
{
    for (int i = int(m_random.bounded(1, 8)); i > 0; --i)
        trigger(m_random.bounded(3) ? QStringLiteral("mnuEditUndo")
                                    : QStringLiteral("mnuEditRedo"));
}

void Soak::find()
{
    auto *box = m_frame->findChild<QComboBox *>(QStringLiteral("fndText"));
    if (box && box->lineEdit())
        box->lineEdit()->setText(randomText(1).trimmed());
    switch (m_random.bounded(3)) {
    case 0:
        if (auto *button = m_frame->findChild<QAbstractButton *>(QStringLiteral("cmdFind")))
            button->click();
        break;
    case 1: trigger(QStringLiteral("mnuEditFA")); break;
    default: trigger(QStringLiteral("mnuEditFindnF")); break;
    }
}

void Soak::openFile()
{
    m_dialogs->answers << m_mod.sources.at(int(m_random.bounded(qsizetype(m_mod.sources.size()))));
    trigger(QStringLiteral("mnuFileOpen"));
}

void Soak::save(bool saveAs)
{
    frmDocument *document = activeDocument();
    if (!document)
        return;
    m_dialogs->answers << randomPath(m_random.bounded(2) ? ".c" : ".txt");
    trigger(saveAs ? QStringLiteral("mnuFileSaveAs") : QStringLiteral("mnuFileSave"));
    // A file just saved holds its document's text (checked before the event loop
    // runs again: the colouring may give a word its list's spelling afterwards). The
    // file is the window's caption: Save writes under it, whatever file was loaded.
    if (!documents().contains(document))
        return;
    const srcText &code = *document->code();
    const QString path = document->caption();
    if (!code.Saved() || code.Modified() || !QFileInfo(path).isAbsolute())
        return;
    if (test::readFile(path) != code.fileText().toLatin1())
        fail(QStringLiteral("the file %1 does not hold its document's text after %2")
                 .arg(path, saveAs ? QStringLiteral("Save As") : QStringLiteral("Save")));
}

void Soak::closeDocument()
{
    m_dialogs->answers << randomPath(".c");
    trigger(QStringLiteral("mnuFileClose"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Soak::workspace()
{
    m_dialogs->answers << (m_random.bounded(4) ? m_mod.workspace : randomPath(".tdi"));
    switch (m_random.bounded(3)) {
    case 0: trigger(QStringLiteral("mnuFileOW")); break;
    case 1: trigger(QStringLiteral("mnuFileCW")); break;
    default: trigger(QStringLiteral("mnuFileNW")); break;
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Soak::addFiles()
{
    m_dialogs->answers << m_mod.sources.at(int(m_random.bounded(qsizetype(m_mod.sources.size()))));
    trigger(QStringLiteral("mnuFileInsert"));
}

void Soak::clickTree()
{
    const char *name = m_random.bounded(2) ? "Code1" : "List1";
    auto *tree = m_frame->findChild<QTreeWidget *>(QLatin1String(name));
    if (!tree)
        return;
    QList<QTreeWidgetItem *> items;
    for (QTreeWidgetItemIterator it(tree); *it; ++it)
        items << *it;
    if (items.isEmpty())
        return;
    QTreeWidgetItem *item = items.at(int(m_random.bounded(qsizetype(items.size()))));
    tree->scrollToItem(item);
    Q_EMIT tree->itemClicked(item, 0);
}

void Soak::dragSplitter()
{
    auto *split = m_frame->findChild<MainSplitter *>(QStringLiteral("splitter"));
    if (!split)
        return;
    const int x = int(m_random.bounded(-50, m_frame->width() + 50));
    const int y = int(m_random.bounded(10, m_frame->height()));
    QPoint cursor = m_frame->mapToGlobal(QPoint(x, y));
    split->setCursorSource([cursor] { return cursor; });
    split->picVert_MouseDown(1, 10);
    split->MDIForm_MouseMove(x, y);
    split->MDIForm_MouseUp(x, y);
}

void Soak::arrangeWindows()
{
    static const char *const names[] = {"mnuWindowCascade", "mnuWindowTileHorizontal",
                                        "mnuWindowTileVertical", "mnuWindowArrangeIcons",
                                        "mnuWindowNewWindow"};
    trigger(QLatin1String(names[m_random.bounded(int(std::size(names)))]));
    if (m_random.bounded(3) == 0) {
        const QList<QMdiSubWindow *> windows = m_frame->mdiArea()->subWindowList();
        if (!windows.isEmpty())
            m_frame->mdiArea()->setActiveSubWindow(
                windows.at(int(m_random.bounded(qsizetype(windows.size())))));
    }
}

void Soak::build()
{
    static const char *const names[] = {"mnuBuildgameQVM", "mnuBuildcgameQVM", "mnuBuilduiQVM",
                                        "mnuBuildQ2",      "mnuBuildEXE",      "mnuFileProperties"};
    trigger(QLatin1String(names[m_random.bounded(int(std::size(names)))]));
}

void Soak::toolWindows()
{
    static const char *const names[] = {"mnuToolsOptions",  "mnuFileProperties", "mnuBuildUpload",
                                        "mnuEditFindnF",    "mnuViewOutput",     "mnuViewToolbar",
                                        "mnuViewStatusBar", "mnuHelpAbout"};
    trigger(QLatin1String(names[m_random.bounded(int(std::size(names)))]));
    serve(5);
    // Windows of their own that stay open (properties, the wizard, Find in Files) are
    // pressed at random or closed.
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window == m_frame.get() || !window->isVisible() || window->isModal())
            continue;
        const QList<QPushButton *> buttons = window->findChildren<QPushButton *>();
        if (!buttons.isEmpty() && m_random.bounded(2)) {
            QPushButton *button = buttons.at(int(m_random.bounded(qsizetype(buttons.size()))));
            if (button->isEnabled() && button->isVisible())
                button->click();
        } else if (m_random.bounded(2)) {
            window->close();
        }
    }
}

} // namespace tessaro::soak
