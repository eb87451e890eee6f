#include "platform/core/Paths.h"

#include <QDir>
#include <QFileInfo>

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

QString absoluteFrom(const QString &folder, const QString &path)
{
    if (path.isEmpty() || path.startsWith(QLatin1Char('/')))
        return path;
    const QString joined = folder + QLatin1Char('/') + path;
    const QString lexical = QDir::cleanPath(joined);
    if (!path.split(QLatin1Char('/')).contains(QLatin1String("..")))
        return lexical;
    // ".." after a symbolic link leads to the link target's parent, as the system goes:
    // resolve the folder part on disk when it exists.
    const QString name = filePart(joined);
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return lexical;
    const QString resolved = QFileInfo(directoryPart(joined)).canonicalFilePath();
    if (resolved.isEmpty())
        return lexical;
    return resolved == QLatin1String("/") ? resolved + name : resolved + QLatin1Char('/') + name;
}

} // namespace tessaro::paths
