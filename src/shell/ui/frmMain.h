#pragma once

#include "shell/core/MenuItem.h"

#include <QAction>
#include <QMainWindow>

#include <array>
#include <functional>
#include <map>
#include <memory>

class QComboBox;
class QListWidget;
class QMdiArea;
class QMenu;
class QPushButton;
class QTreeWidget;

namespace tessaro {

class InstanceLock;
class InstanceServer;
class LeftPane;
class MainPanes;
class MainTimer;
class SettingsStore;
class WindowPlacement;

// The main window: an MDI frame that holds the document windows, with its menus,
// panes, toolbar, status bar and timer. It knows none of the subsystems: the program's
// composition root (app/ui/MainWindow) installs their commands into it through the
// typed accessors below.
class frmMain : public QMainWindow
{
    Q_OBJECT
public:
    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    QMdiArea *mdiArea() const { return m_mdiArea; }

    // --- Menu items and shared controls, reached by type ---

    // The action of an entry of the menu table (every entry has one).
    QAction *menuItem(MenuItem item) const;
    // The menu that a title or submenu entry opens.
    QMenu *menu(MenuItem item) const;
    // Runs `command` each time the menu item is chosen, for as long as `receiver`
    // lives: a member function of the receiver, or any callable.
    template <typename Receiver, typename Command>
    void connectCommand(MenuItem item, Receiver *receiver, Command command) const
    {
        QObject::connect(menuItem(item), &QAction::triggered, receiver, command);
    }

    MainPanes &panes() const { return *m_panes; }
    LeftPane &Picture1() const;
    MainTimer &Timer1() const { return *m_timer; }
    QComboBox *fndText() const;
    QPushButton *cmdFind() const;
    QListWidget *lstOut() const;
    QTreeWidget *Code1() const;
    QTreeWidget *List1() const;
    QComboBox *Drive1() const;
    QListWidget *Dir1() const;
    QListWidget *File1() const;

    // A menu item or toolbar command by its objectName ("mnuFileOpen"), for the
    // toolbar's table-driven dispatch; nullptr when the window has none of that name.
    QAction *action(const QString &name) const;

    // Opens a file as a document window (the open-by-path operation); the composed
    // window opens it through its document commands.
    virtual void LoadDocument(const QString &path) = 0;

    // --- Start-up and shut-down (frmMainStartup.cpp) ---

    // What the start-up module hands the window for its Load.
    struct StartupLinks
    {
        InstanceLock *lock = nullptr;       // the single-instance lock, let go by QueryUnload
        QString socketPath;                 // where the running copy listens for later copies
        QString commandLine;                // the process command line (arguments quoted)
        std::function<void()> unloadSplash; // step 9
        std::function<void()> ended;        // after Unload: the program ends
        SettingsStore *settings = nullptr;  // nullptr: the user's settings file
    };
    // Load steps that other parts of the window fill in; Load runs them in place.
    enum class LoadStep { FileAssociations, ToolbarAndBands, FileBrowserFolder };
    void setLoadStep(LoadStep step, std::function<void()> action);

    // The first copy's start-up proper, steps 1 to 11. A run-time error (a setting
    // that is not a number) is not trapped: it reaches the caller.
    void Load(const StartupLinks &links);
    // Shows and raises the window, then opens the path in the text (its first and
    // last character dropped). Used for the own command line and every hand-over.
    void OpenCommandLine(const QString &text);
    // Restores the window when minimised and brings it to the front.
    void ActivateWindow();
    // True once Load has marked the window as the running copy (the socket listens).
    bool isMarked() const;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void LoadSettings();
    void SaveSettings();
    void QueryUnload();
    void Unload();
    SettingsStore &settingsStore();

    QMdiArea *m_mdiArea;
    MainPanes *m_panes = nullptr;
    MainTimer *m_timer = nullptr;
    std::array<QAction *, menuItemCount> m_menuItems{};
    StartupLinks m_links;
    bool m_loaded = false;
    InstanceServer *m_handOverHook = nullptr;
    std::unique_ptr<WindowPlacement> m_placement;
    std::unique_ptr<SettingsStore> m_ownSettings;
    std::map<LoadStep, std::function<void()>> m_loadSteps;
};

} // namespace tessaro
