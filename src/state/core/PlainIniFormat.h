#pragma once

#include <QByteArray>
#include <QSettings>

namespace tessaro::plainini {

// The settings file's own format: "[Group]" lines and "key=value" lines, where the
// value is the whole rest of the line, byte for byte. Nothing is quoted, escaped or
// split into lists, so a value holding commas, semicolons, quotes, backslashes, "=",
// "#" or blanks at either end comes back exactly as it was typed. The file is UTF-8.
//
// Reading: lines end at LF; blank lines and lines starting with "#" or ";" are
// comments (they are not written back); a line without "=" is ignored; the key is the
// text before the first "=" with blanks, tabs and CRs trimmed; keys before any group
// line belong to no group. The value keeps every byte up to the LF, a CR included, so
// even a file saved with CR LF line ends is written back as it was read. A value that
// is not valid UTF-8 is kept as its raw bytes, so it is written back unchanged.
QSettings::SettingsMap parse(const QByteArray &bytes);

// Writing: the keys without a group first, then one "[Group]" line per group (the
// text before a key's first "/") followed by its keys. A line break cannot stand in
// a value, so each LF in one is written as a blank.
QByteArray serialise(const QSettings::SettingsMap &map);

// The format registered with QSettings (registered on first use).
QSettings::Format format();

} // namespace tessaro::plainini
