#include "platform/core/Paths.h"

namespace tessaro::paths {

QString filePart(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QString() : path.mid(slash + 1);
}

QString directoryPart(const QString &path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? QString() : path.left(slash);
}

QString nameWithoutExtension(const QString &name)
{
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : name.left(dot);
}

} // namespace tessaro::paths
