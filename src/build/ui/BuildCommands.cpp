#include "build/ui/BuildCommands.h"

#include "build/ui/frmProps.h"
#include "platform/core/ErrorTraps.h"
#include "shell/ui/frmMain.h"
#include "state/core/AppState.h"

#include <QAction>

namespace tessaro {

BuildCommands *BuildCommands::install(frmMain &frame)
{
    auto *commands = new BuildCommands(frame);
    const std::pair<MenuItem, build::Target> buildItems[] = {
        {MenuItem::mnuBuildgameQVM, build::Target::Game},
        {MenuItem::mnuBuildcgameQVM, build::Target::CGame},
        {MenuItem::mnuBuilduiQVM, build::Target::UI},
        {MenuItem::mnuBuildQ2, build::Target::Quake2},
        {MenuItem::mnuBuildEXE, build::Target::Exe},
    };
    for (const auto &[item, target] : buildItems) {
        const build::Target chosen = target;
        frame.connectCommand(item, commands, [chosen] { build(chosen); });
    }
    frame.connectCommand(MenuItem::mnuFileProperties, commands, &BuildCommands::showProperties);
    return commands;
}

BuildCommands::BuildCommands(frmMain &frame) : QObject(&frame), m_frame(frame)
{
    setObjectName(QStringLiteral("BuildCommands"));
}

void BuildCommands::showProperties()
{
    if (!m_properties)
        m_properties = new frmProps(&m_frame);
    m_properties->show();
    m_properties->raise();
    m_properties->activateWindow();
}

void BuildCommands::build(build::Target target)
{
    untrapped([target] { build::runBuild(target, app()); });
}

} // namespace tessaro
