#include "build/core/ExeBuild.h"

#include "build/core/ShellWord.h"
#include "platform/core/Paths.h"
#include "state/core/Settings.h"
#include "state/core/WorkspaceState.h"

namespace tessaro::build {

namespace {

// The entry's file name without its extension ("" when the name has no ".").
QString baseName(const QString &entry)
{
    return trimBlanks(paths::nameWithoutExtension(trimBlanks(paths::filePart(entry))));
}

// The object a source or resource entry compiles to, beside the entry.
QString objectPath(const QString &entry, const QString &extension)
{
    return paths::directoryPart(entry) + QLatin1Char('/') + baseName(entry) + extension;
}

} // namespace

Script composeExeScript(const WorkspaceState &workspace, const ToolSettings &tools)
{
    const QString folder = trimBlanks(paths::directoryPart(workspace.source.at(0)));

    QString text = shebangLine();
    text += QStringLiteral("cd ") + shellWord(folder) + QLatin1Char('\n');
    QString objects;

    // comLCC is read but both compiler types write this same line.
    const QString objectExtension = tools.objOBJ ? QStringLiteral(".obj") : QStringLiteral(".o");
    for (int i = 0; i < workspace.source.count(); ++i) {
        const QString &entry = workspace.source.at(i);
        text += tools.comPath + QLatin1Char(' ') + tools.params + QLatin1Char(' ') +
                shellWord(entry) + QLatin1Char(' ') + tools.sufparam + QLatin1Char('\n');
        objects += shellWord(objectPath(entry, objectExtension)) + QLatin1Char(' ');
    }
    for (int j = 0; j < workspace.resources.count(); ++j) {
        const QString &entry = workspace.resources.at(j);
        text += tools.lrcPath + QLatin1Char(' ') + tools.lrcparams + QLatin1Char(' ') +
                shellWord(entry) + QLatin1Char('\n');
        objects += shellWord(objectPath(entry, QStringLiteral(".res"))) + QLatin1Char(' ');
    }

    if (tools.useLnk)
        text += tools.lnkPath + QLatin1Char(' ') + tools.lnkparams + QLatin1Char(' ') + objects +
                QLatin1Char('\n');
    else
        text += QLatin1Char('\n');
    text += QLatin1Char('\n');

    return {folder + QLatin1Char('/') + scriptFileName(), scriptBytes(text)};
}

} // namespace tessaro::build
