#include "platform/core/TextFile.h"

#include "platform/core/FileReader.h"
#include "platform/core/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace tessaro::textfile {

QByteArray readBytes(const QString &path)
{
    FileReader reader;
    reader.read(path);
    return reader.take();
}

QString read(const QString &path) { return fromBytes(readBytes(path)); }

void writeBytes(const QString &path, const QByteArray &bytes,
                std::optional<QFileDevice::Permissions> permissions)
{
    if (path.isEmpty())
        throw RuntimeError(RuntimeError::BadFileNameOrNumber);
    const QFileInfo info(path);
    if (!info.absoluteDir().exists())
        throw RuntimeError(RuntimeError::PathNotFound);
    if (info.isDir())
        throw RuntimeError(RuntimeError::PathFileAccessError);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw RuntimeError(RuntimeError::PathFileAccessError);
    // Set on the temporary file, so the rename brings content and mode together.
    if (permissions && !file.setPermissions(*permissions))
        throw RuntimeError(RuntimeError::PathFileAccessError);
    if (!file.commit())
        throw RuntimeError(RuntimeError::PathFileAccessError);
}

void write(const QString &path, const QString &text) { writeBytes(path, toBytes(text)); }

QString fromBytes(const QByteArray &bytes) { return QString::fromLatin1(bytes); }

QByteArray toBytes(const QString &text) { return text.toLatin1(); }

} // namespace tessaro::textfile
