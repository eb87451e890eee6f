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

} // namespace tessaro::paths
