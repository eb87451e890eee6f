#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace tessaro::structscan {

// The text with every line break (CR LF, a lone LF, a lone CR) written as CR LF, so
// positions count each break as two characters, as the editor's positions do,
// whatever line ends the file uses.
QByteArray withCrLfLineBreaks(const QByteArray &text);

// Finds the structure types declared with "typedef struct", by plain case-sensitive
// substring searches, and reports each with the 1-based position of its "typedef
// struct" and its name. For each declaration at p: o = the next "{" at or after p,
// c = the next "}" at or after o + 1, s = the next ";" at or after c + 1; the name is
// the text from c + 2 up to s (the character after "}" is skipped) and the search
// goes on from s. Positions that select nothing (a ";" right after the "}", or a
// missing ";") give the empty name. A missing "{" or "}" makes the next search start
// at the beginning of the text; a missing ";" leaves the search at position 0, which
// raises 5 "Invalid procedure call or argument" as the string functions below do.
// Comments, strings and the preprocessor are not recognised.
//
// The scan relies on the caller to refuse a declaration reported twice (the same
// position again), which it does by raising; that is what ends a scan that would
// otherwise come back to the same place.
void scanDeclarations(const QByteArray &text,
                      const std::function<void(qint32 position, const QString &name)> &found);

// BASIC's InStr(start, text, needle): the 1-based position of the first
// occurrence at or after start, 0 when there is none; a start below 1 raises 5.
qint32 inStr(qint32 start, const QByteArray &text, const QByteArray &needle);

// BASIC's Mid(text, start, length) over 8-bit text; a start below 1 or a negative
// length raises 5.
QString mid(const QByteArray &text, qint32 start, qint32 length);

// BASIC's Val read into a 32-bit integer: leading blanks, an optional sign, digits
// (and a fraction, rounded half to even); anything else ends the number. Text that
// does not begin with a number reads as 0. Past the 32-bit range it raises 6.
qint32 val(const QString &text);

} // namespace tessaro::structscan
