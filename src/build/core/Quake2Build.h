#pragma once

#include "build/core/BuildScript.h"

namespace tessaro::build {

// The user's Quake 2 build script in the workspace folder, and the script written
// beside it.
inline QString quake2UserScriptName()
{
    return QStringLiteral("q2game.sh");
}
inline QString quake2ScriptName()
{
    return QStringLiteral("q2com.sh");
}

// The user's script without its final line end (LF or CR LF). A text with no final
// line end loses its last two characters; one shorter than that raises 5 "Invalid
// procedure call or argument".
QByteArray quake2UserScriptBody(const QByteArray &userScript);

// Reads <folder>/q2game.sh and composes <folder>/q2com.sh: the lines that go into
// the folder, the user's script less its final line end, and one line end. A missing
// or unreadable user script raises the file's run-time error.
Script composeQuake2Script(const QString &folder);

} // namespace tessaro::build
