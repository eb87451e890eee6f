#pragma once

#include <QString>

namespace tessaro::paths {

// The path helpers scan from the end of the text; "/" separates folders.
// The text after the last "/" ("" when there is none).
QString filePart(const QString &path);
// The text before the last "/" ("" when there is none).
QString directoryPart(const QString &path);
// The text before the last "." ("" when there is none).
QString nameWithoutExtension(const QString &name);

// `path` made absolute against `folder` (an absolute folder), naming the file the system
// would open for `path` in that folder: "." and doubled "/" go; ".." goes with the
// folder before it unless that folder is reached through a symbolic link, in which
// case the folder is taken as the link resolves. An absolute or empty path stays as it
// is.
QString absoluteFrom(const QString &folder, const QString &path);

} // namespace tessaro::paths
