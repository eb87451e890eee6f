#include "build/ui/BuildCommands.h"

#include "build/ui/frmProps.h"
#include "platform/core/ErrorTraps.h"
#include "shell/core/AppState.h"
#include "shell/ui/frmMain.h"

#include <QAction>

namespace tessaro {

BuildCommands *BuildCommands::install(frmMain &frame)
{
    auto *commands = new BuildCommands(frame);
    const std::pair<const char *, build::Target> buildItems[] = {
        {"mnuBuildgameQVM", build::Target::Game}, {"mnuBuildcgameQVM", build::Target::CGame},
        {"mnuBuilduiQVM", build::Target::UI},     {"mnuBuildQ2", build::Target::Quake2},
        {"mnuBuildEXE", build::Target::Exe},
    };
    for (const auto &[name, target] : buildItems) {
        if (QAction *item = frame.action(QLatin1String(name))) {
            const build::Target chosen = target;
            connect(item, &QAction::triggered, commands, [chosen] { build(chosen); });
        }
    }
    if (QAction *item = frame.action(QStringLiteral("mnuFileProperties")))
        connect(item, &QAction::triggered, commands, &BuildCommands::showProperties);
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
