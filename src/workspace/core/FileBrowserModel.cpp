#include "workspace/core/FileBrowserModel.h"

#include "platform/core/RuntimeError.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

namespace tessaro::browser {

namespace {

// The folder text as a file system path: Qt reads a path starting with ":" as one of
// its compiled-in resources, but on disk ":name" is an ordinary relative folder.
QString onDisk(const QString &folder)
{
    return folder.startsWith(QLatin1Char(':')) ? QStringLiteral("./") + folder : folder;
}

// Raises the error the folder lists report for a folder they cannot show.
void checkReadableFolder(const QString &folder)
{
    const QFileInfo info(onDisk(folder));
    if (folder.isEmpty() || !info.exists() || !info.isDir())
        raise(RuntimeError::PathNotFound);
    if (!info.isReadable() || !info.isExecutable())
        raise(RuntimeError::PathFileAccessError);
}

} // namespace

QStringList driveList()
{
    QStringList roots;
    for (const QStorageInfo &volume : QStorageInfo::mountedVolumes()) {
        if (volume.isValid() && volume.isReady() && !roots.contains(volume.rootPath()))
            roots << volume.rootPath();
    }
    roots.removeAll(QStringLiteral("/"));
    std::sort(roots.begin(), roots.end());
    roots.prepend(QStringLiteral("/"));
    return roots;
}

QString driveOf(const QString &folder)
{
    const QStorageInfo volume(onDisk(folder));
    return volume.isValid() && !volume.rootPath().isEmpty() ? volume.rootPath()
                                                            : QStringLiteral("/");
}

QString normalFolder(const QString &folder)
{
    QString path = QDir::cleanPath(QDir(onDisk(folder)).absolutePath());
    return path.isEmpty() ? QStringLiteral("/") : path;
}

QVector<DirEntry> dirEntries(const QString &folder)
{
    checkReadableFolder(folder);
    const QString current = normalFolder(folder);
    const QString drive = normalFolder(driveOf(current));

    // The chain from the drive root down to the current folder.
    QStringList chain{current};
    for (QString path = current; path != drive && path != QLatin1String("/");) {
        path = QFileInfo(path).path();
        chain.prepend(path);
    }
    QVector<DirEntry> entries;
    int depth = 0;
    for (const QString &path : chain) {
        const QString name = path == QLatin1String("/") ? path : QFileInfo(path).fileName();
        entries.append(DirEntry{path, name.isEmpty() ? path : name, depth++, true});
    }
    const QDir dir(current);
    const QStringList subfolders =
        dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
    for (const QString &name : subfolders)
        entries.append(DirEntry{fullName(current, name), name, depth, false});
    return entries;
}

QStringList fileNames(const QString &folder)
{
    checkReadableFolder(folder);
    return QDir(onDisk(folder)).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
}

QString fullName(const QString &folder, const QString &name)
{
    if (folder.endsWith(QLatin1Char('/')))
        return folder + name;
    return folder + QLatin1Char('/') + name;
}

bool runsAsProgram(const QString &fullName)
{
    return fullName.endsWith(QLatin1String(".exe"));
}

} // namespace tessaro::browser
