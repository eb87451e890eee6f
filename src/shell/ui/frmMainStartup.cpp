// frmMain's start-up and shut-down: Load, the hand-over from later copies,
// OpenCommandLine, QueryUnload and Unload.
#include "shell/ui/frmMain.h"

#include "editor/core/DynHighlight.h"
#include "platform/core/AppInfo.h"
#include "platform/core/ErrorTraps.h"
#include "platform/core/EventLog.h"
#include "platform/core/Twips.h"
#include "shell/core/HandOver.h"
#include "shell/core/InstanceLock.h"
#include "shell/core/InstanceServer.h"
#include "shell/core/WindowPlacement.h"
#include "state/core/AppState.h"
#include "state/core/Settings.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>

namespace tessaro {

namespace {

double twipsPerPixel(const QWidget &window)
{
    const QScreen *screen = window.screen();
    return twips::perPixel(screen ? screen->logicalDotsPerInch() : 96.0);
}

} // namespace

frmMain::~frmMain() = default;

void frmMain::setLoadStep(LoadStep step, std::function<void()> action)
{
    m_loadSteps[step] = std::move(action);
}

SettingsStore &frmMain::settingsStore()
{
    if (m_links.settings)
        return *m_links.settings;
    if (!m_ownSettings)
        m_ownSettings = std::make_unique<IniSettingsStore>();
    return *m_ownSettings;
}

void frmMain::Load(const StartupLinks &links)
{
    m_links = links;
    m_loaded = true;
    auto runStep = [this](LoadStep step) {
        const auto it = m_loadSteps.find(step);
        if (it != m_loadSteps.end() && it->second)
            it->second();
    };

    // 1. The hand-over hook: later copies reach the window through it once it listens.
    m_handOverHook = new InstanceServer(m_links.socketPath, this);
    m_handOverHook->setVisibility([this] { return isVisible(); });
    m_handOverHook->setHandlers(
        [this](const QByteArray &bytes) {
            untrapped([&] { OpenCommandLine(handover::commandLineFromBytes(bytes)); });
        },
        [this] { ActivateWindow(); });
    // 2. File associations.
    runStep(LoadStep::FileAssociations);
    // 3. Caption with the version.
    setWindowTitle(
        QStringLiteral("%1 v%2.%3").arg(appTitle()).arg(versionMajor()).arg(versionMinor()));
    // 4. Toolbar buttons and bands.
    runStep(LoadStep::ToolbarAndBands);
    // 5. and 6. The window rectangle and the tool settings.
    LoadSettings();
    // 7. The file browser starts at the root folder.
    runStep(LoadStep::FileBrowserFolder);
    // 8. No workspace is open.
    app().workspace.open = false;
    app().workspace.resetCounts();
    // The line colourer's colour slots take their start-up values.
    dynHighlight().colours.setStartupValues();
    // 9. The splash goes.
    if (m_links.unloadSplash)
        m_links.unloadSplash();
    // 10. Mark the window as the running copy: only now do later copies find it.
    m_handOverHook->listen();
    logEvent(QStringLiteral("marked"));
    // 11. The own command line.
    OpenCommandLine(m_links.commandLine);
    logEvent(QStringLiteral("loaded"));
}

bool frmMain::isMarked() const
{
    return m_handOverHook && m_handOverHook->isListening();
}

void frmMain::LoadSettings()
{
    const LoadedSettings loaded = loadSettings(settingsStore());
    m_placement = std::make_unique<WindowPlacement>(twipsPerPixel(*this));
    const QRect pixels = m_placement->assign(loaded.window);
    move(pixels.topLeft());
    resize(pixels.size());
    app().tools = loaded.tools;
}

void frmMain::SaveSettings()
{
    std::optional<WindowRect> rect;
    if (!(windowState() & Qt::WindowMinimized)) {
        if (!m_placement)
            m_placement = std::make_unique<WindowPlacement>(twipsPerPixel(*this));
        rect = m_placement->current(QRect(pos(), size()));
    }
    saveSettings(settingsStore(), app().tools, rect);
}

void frmMain::ActivateWindow()
{
    if (windowState() & Qt::WindowMinimized)
        setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    raise();
    activateWindow();
    logEvent(QStringLiteral("activated"));
}

void frmMain::OpenCommandLine(const QString &text)
{
    if (!isVisible())
        show();
    ActivateWindow();
    const std::optional<QString> path = handover::commandLinePath(text);
    if (!path)
        return;
    logEvent(QStringLiteral("open ") + *path);
    LoadDocument(*path);
}

void frmMain::closeEvent(QCloseEvent *event)
{
    if (!m_loaded) {
        QMainWindow::closeEvent(event);
        return;
    }
    QueryUnload();
    // The document windows go first; one that is kept open (its changes not given up)
    // keeps the main window open too.
    m_mdiArea->closeAllSubWindows();
    if (!m_mdiArea->subWindowList().isEmpty()) {
        event->ignore();
        return;
    }
    event->accept();
    Unload();
}

void frmMain::QueryUnload()
{
    if (eventLogEnabled())
        for (const QMdiSubWindow *child : m_mdiArea->subWindowList())
            logEvent(QStringLiteral("document ") + child->windowTitle());
    // Detach the hand-over hook, then let the single-instance lock go.
    delete m_handOverHook;
    m_handOverHook = nullptr;
    if (m_links.lock)
        m_links.lock->release();
    logEvent(QStringLiteral("released"));
}

void frmMain::Unload()
{
    SaveSettings();
    m_loaded = false;
    logEvent(QStringLiteral("unloaded"));
    if (m_links.ended)
        m_links.ended();
}

} // namespace tessaro
