#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

#include <optional>

namespace tessaro {

// Files are 8-bit text: every byte maps to one character (Latin-1), so any file,
// binary or not, reads and writes back byte for byte.
namespace textfile {

// The whole file's bytes. Raises 53 "File not found" when it does not exist,
// 75 "Path/File access error" when it cannot be read.
QByteArray readBytes(const QString &path);
// The whole file as 8-bit text.
QString read(const QString &path);

// Replaces the file atomically with the bytes: a crash or a full disk never leaves
// half a file. Raises 76 "Path not found" when the folder does not exist, 75 when the
// file cannot be written. When permissions are given, the new file gets them (an
// executable script is never seen without its mode).
void writeBytes(const QString &path, const QByteArray &bytes,
                std::optional<QFileDevice::Permissions> permissions = std::nullopt);
// Writes 8-bit text; characters above 255 are written as "?".
void write(const QString &path, const QString &text);

QString fromBytes(const QByteArray &bytes);
QByteArray toBytes(const QString &text);

} // namespace textfile
} // namespace tessaro
