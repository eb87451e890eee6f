#include "platform/core/AppInfo.h"

#include <QCoreApplication>

namespace tessaro {

QString programFolder() { return QCoreApplication::applicationDirPath(); }

} // namespace tessaro
