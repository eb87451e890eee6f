#pragma once

#include <QByteArray>
#include <QString>

namespace tessaro::build {

// A generated build script: where it goes and its bytes (LF line ends).
struct Script
{
    QString path;
    QByteArray bytes;
};

// The script's file name in the module's folder.
inline QString scriptFileName()
{
    return QStringLiteral("tdicom.sh");
}
// The first line of every script: it runs under /bin/sh.
inline QString shebangLine()
{
    return QStringLiteral("#!/bin/sh\n");
}
// Follows each compile line of a module build: the script ends at the first failed
// compile.
inline QString stopOnFailureLine()
{
    return QStringLiteral("[ $? -eq 0 ] || exit 1\n");
}

// Script text in the file system's encoding, so the paths on its lines name the
// files they came from.
QByteArray scriptBytes(const QString &text);

} // namespace tessaro::build
