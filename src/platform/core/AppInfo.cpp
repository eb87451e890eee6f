#include "platform/core/AppInfo.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace tessaro {

QString programFolder()
{
    if (QCoreApplication::instance())
        return QCoreApplication::applicationDirPath();
    // A command-line program that starts without an application object (to start
    // sooner) finds itself where the system says the running executable is.
    return QFileInfo(QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath()).path();
}

} // namespace tessaro
