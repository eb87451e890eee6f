#pragma once

#include <QString>

namespace tessaro {

// The application title and the program's version numbers.
inline QString appTitle() { return QStringLiteral("Tessaro"); }
constexpr int versionMajor() { return TESSARO_VERSION_MAJOR; }
constexpr int versionMinor() { return TESSARO_VERSION_MINOR; }
constexpr int versionRevision() { return TESSARO_VERSION_PATCH; }

// The program's folder: where the executable lies, beside its data files.
QString programFolder();

} // namespace tessaro
