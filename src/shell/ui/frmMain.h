#pragma once

#include <QMainWindow>

#include <functional>
#include <map>
#include <memory>

class QMdiArea;

namespace tessaro {

class InstanceLock;
class InstanceServer;
class SettingsStore;
class WindowPlacement;

// The main window: an MDI frame that holds the document windows.
class frmMain : public QMainWindow
{
    Q_OBJECT
public:
    explicit frmMain(QWidget *parent = nullptr);
    ~frmMain() override;

    QMdiArea *mdiArea() const { return m_mdiArea; }

    // A menu item or toolbar command by its name ("mnuFileOpen"); nullptr when the
    // window has none of that name.
    QAction *action(const QString &name) const;

    // Opens a file as a document window (the open-by-path operation).
    void LoadDocument(const QString &path);

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
    enum class LoadStep { ToolbarAndBands, FileBrowserFolder };
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
    StartupLinks m_links;
    bool m_loaded = false;
    InstanceServer *m_handOverHook = nullptr;
    std::unique_ptr<WindowPlacement> m_placement;
    std::unique_ptr<SettingsStore> m_ownSettings;
    std::map<LoadStep, std::function<void()>> m_loadSteps;
};

} // namespace tessaro
