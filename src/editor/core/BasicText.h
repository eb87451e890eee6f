#pragma once

#include <QString>
#include <QStringView>

// BASIC-style text helpers, which the section-file colourer depends on: 1-based
// positions, blank-only trimming, and searches with fixed answers for an empty text
// or an empty pattern.
namespace tessaro::basictext {

// Position (1-based) of `pattern` in `text` at or after `start`, or 0. An empty text
// gives 0, a start past the end gives 0, and an empty pattern is found at `start`.
qsizetype inStr(qsizetype start, QStringView text, QStringView pattern);
inline qsizetype inStr(QStringView text, QStringView pattern)
{
    return inStr(1, text, pattern);
}

// Removes blanks (character 32, and only those) from both ends.
QString trim(QStringView text);

// Whether `text` begins / ends with `part`; an empty part always matches.
inline bool startsWith(QStringView text, QStringView part)
{
    return text.startsWith(part);
}
inline bool endsWith(QStringView text, QStringView part)
{
    return text.endsWith(part);
}

// The text before (left) or after the first occurrence of `delimiter`; "" when the
// delimiter does not occur.
QString splitAtDelimiter(const QString &text, const QString &delimiter, bool leftPart);

// Counts the occurrences of `pattern`, overlapping ones included: 0 for an empty text;
// after each hit the search goes on from the next character.
qint32 countOccurrences(const QString &text, const QString &pattern);

} // namespace tessaro::basictext
