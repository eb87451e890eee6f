#pragma once

#include <QString>

namespace tessaro::build {

// A file or folder path as one word of a /bin/sh command line: as it stands when it
// holds only the characters A-Z a-z 0-9 _ . / + , : = @ % - (the empty text too),
// otherwise in single quotes with each ' written as '\''. No path can then run a
// command of its own.
QString shellWord(const QString &path);

// The text without leading and trailing blanks (only blanks, not tabs or line ends).
QString trimBlanks(const QString &text);

} // namespace tessaro::build
