#include "build/core/BuildScript.h"

#include <QFile>

namespace tessaro::build {

QByteArray scriptBytes(const QString &text)
{
    return QFile::encodeName(text);
}

} // namespace tessaro::build
