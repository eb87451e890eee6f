#pragma once

#include "SoakMod.h"

#include <QRandomGenerator>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace tessaro {
class MainWindow;
class frmDocument;
class srcText;
namespace test {
class RecordingMessageBox;
class ScriptedCommonDialog;
class RecordingShell;
class ProgramEndCatcher;
} // namespace test
} // namespace tessaro

namespace tessaro::soak {

// Plays the composed main window as a user would, at random from a seed: menu
// commands, typing and pasting, Undo and Redo, finding, opening, saving and closing
// documents, workspaces, the trees, the splitter, window arrangements, builds, the
// option and property windows and the wizard. Message boxes, file dialogs and started
// programs go through the seams (scripted answers, recorded starts); modal windows are
// closed from the event loop. After every action it checks that the documents' texts,
// saved files, recovery copies and Undo/Redo agree.
class Soak
{
public:
    Soak(const SoakMod &mod, quint64 seed, const QString &workdir);
    ~Soak();

    // Runs actions until `seconds` have passed; false at the first broken invariant
    // (described in failure()).
    bool run(int seconds);
    int actions() const { return m_actions; }
    int programEnds() const { return m_programEnds; }
    const QString &failure() const { return m_failure; }

private:
    struct Action
    {
        const char *name;
        int weight;
        std::function<void()> run;
    };
    void addActions();
    void perform(const Action &action);
    bool check(const QString &actionName);
    void fail(const QString &what);

    // Actions.
    frmDocument *activeDocument() const;
    frmDocument *ensureDocument();
    QList<frmDocument *> documents() const;
    void trigger(const QString &name);
    void triggerAnyMenuItem();
    void typeText();
    void typeKeys();
    void paste();
    void undoRedoRun();
    void find();
    void openFile();
    void save(bool saveAs);
    void closeDocument();
    void workspace();
    void addFiles();
    void clickTree();
    void dragSplitter();
    void arrangeWindows();
    void build();
    void toolWindows();
    void editThenUndoRedo(const std::function<void()> &edit, const QString &what);

    QString randomText(int tokens);
    QString randomPath(const char *suffix);
    void answerPrompts();

    SoakMod m_mod;
    QRandomGenerator m_random;
    QString m_workdir;
    std::unique_ptr<test::RecordingMessageBox> m_boxes;
    std::unique_ptr<test::ScriptedCommonDialog> m_dialogs;
    std::unique_ptr<test::RecordingShell> m_shell;
    std::unique_ptr<test::ProgramEndCatcher> m_ends;
    std::unique_ptr<MainWindow> m_frame;
    std::vector<Action> m_list;
    int m_totalWeight = 0;
    int m_actions = 0;
    int m_programEnds = 0;
    int m_saveCount = 0;
    QString m_failure;
};

} // namespace tessaro::soak
