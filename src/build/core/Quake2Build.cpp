#include "build/core/Quake2Build.h"

#include "build/core/ShellWord.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"

namespace tessaro::build {

QByteArray quake2UserScriptBody(const QByteArray &userScript)
{
    if (userScript.endsWith("\r\n"))
        return userScript.chopped(2);
    if (userScript.endsWith('\n'))
        return userScript.chopped(1);
    if (userScript.size() < 2)
        throw RuntimeError(RuntimeError::InvalidProcedureCall);
    return userScript.chopped(2);
}

Script composeQuake2Script(const QString &folder)
{
    const QByteArray body = quake2UserScriptBody(
        textfile::readBytes(folder + QLatin1Char('/') + quake2UserScriptName()));
    // The user's lines are written byte for byte as they are in the file.
    QByteArray bytes =
        scriptBytes(shebangLine() + QStringLiteral("cd ") + shellWord(folder) + QLatin1Char('\n'));
    bytes += body;
    bytes += '\n';
    return {folder + QLatin1Char('/') + quake2ScriptName(), bytes};
}

} // namespace tessaro::build
