#include "build/core/QvmBuild.h"

#include "build/core/ShellWord.h"
#include "platform/core/Paths.h"
#include "state/core/Settings.h"
#include "state/core/WorkspaceState.h"

#include <QStringList>

namespace tessaro::build {

namespace {

// A module's folder: the directory part of its list's third entry, trimmed.
QString moduleFolder(const FixedList<QString> &list)
{
    return trimBlanks(paths::directoryPart(list.at(2)));
}

// The files of the game folder that cgame and ui compile before their own files.
QStringList sharedFiles(QvmModule module)
{
    switch (module) {
    case QvmModule::CGame:
        return {QStringLiteral("/bg_misc.c"),      QStringLiteral("/bg_pmove.c"),
                QStringLiteral("/bg_slidemove.c"), QStringLiteral("/bg_lib.c"),
                QStringLiteral("/q_math.c"),       QStringLiteral("/q_shared.c")};
    case QvmModule::UI:
        return {QStringLiteral("/bg_misc.c"), QStringLiteral("/bg_lib.c"),
                QStringLiteral("/q_math.c"), QStringLiteral("/q_shared.c")};
    case QvmModule::Game: break;
    }
    return {};
}

} // namespace

Script composeQvmScript(QvmModule module, const WorkspaceState &workspace,
                        const ToolSettings &tools)
{
    const QString gameFolder = moduleFolder(workspace.game);
    const QString cgameFolder = moduleFolder(workspace.cgame);
    const QString uiFolder = moduleFolder(workspace.ui);

    const FixedList<QString> *list = &workspace.game;
    QString folder = gameFolder;
    QString assemblerList = QStringLiteral("../game");
    if (module == QvmModule::CGame) {
        list = &workspace.cgame;
        folder = cgameFolder;
        assemblerList = QStringLiteral("../cgame");
    } else if (module == QvmModule::UI) {
        list = &workspace.ui;
        folder = uiFolder;
        assemblerList = QStringLiteral("../ui");
    }

    // The include folders stand in the order cgame, game, ui for every module.
    const QString compile = tools.comPath +
                            QStringLiteral(" -DQ3_VM -S -Wf-target=bytecode -Wf-g -I") +
                            shellWord(cgameFolder) + QStringLiteral(" -I") + shellWord(gameFolder) +
                            QStringLiteral(" -I") + shellWord(uiFolder) + QLatin1Char(' ');

    QString text = shebangLine();
    text += QStringLiteral("cd ") + shellWord(folder) + QLatin1Char('\n');
    text += QStringLiteral("mkdir vm\n");
    text += QStringLiteral("cd vm\n");
    for (const QString &name : sharedFiles(module))
        text += compile + shellWord(gameFolder + name) + QLatin1Char('\n') + stopOnFailureLine();
    // Up to and including the count: the last line compiles the empty entry after
    // the files.
    for (int i = 0; i <= list->count(); ++i)
        text += compile + shellWord(list->at(i)) + QLatin1Char('\n') + stopOnFailureLine();
    text += tools.asmPath + QStringLiteral(" -f ") + assemblerList + QLatin1Char('\n');
    text += QStringLiteral("cd ..\n");
    text += QLatin1Char('\n');

    return {folder + QLatin1Char('/') + scriptFileName(), scriptBytes(text)};
}

} // namespace tessaro::build
