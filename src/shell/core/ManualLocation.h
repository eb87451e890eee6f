#pragma once

#include <QString>

namespace tessaro {

// The manual is the program's help file. Installed, the program lies in
// PREFIX/lib/tessaro and the manual in PREFIX/share/doc/tessaro/manual; in a build
// tree it is the folder "manual" beside the executables. The installed one is taken
// first, so a build tree's copy never stands in for a manual that an install lacks.
// Returns the absolute path of the manual's index.html, or "" when neither exists.
QString manualBeside(const QString &programFolder);

// The manual's search page: search.html in the folder of the help file (its index);
// "" for an empty help file.
QString manualSearchPage(const QString &helpFile);

} // namespace tessaro
