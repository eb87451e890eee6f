#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

namespace tessaro {

// Folds an 8-bit (Latin-1) character to lower case: A-Z and the accented capitals
// (0xC0-0xDE except the multiplication sign) become their small letters; every other
// byte stays as it is.
unsigned char foldLatin1(unsigned char c);

// A search text prepared for case-insensitive matching in 8-bit text: letters match
// in either case ("score" finds "SCORE", "é" finds "É"), and a match may lie inside a
// longer word. The text is matched character for character as Latin-1; a search text
// holding a character outside Latin-1 can never occur in 8-bit text, so it matches
// nothing. An empty search text is found at the start of any text.
//
// The scan tests two characters of the pattern (the first and the last) for sixteen
// positions at a time and compares the rest only where both agree, so a text that
// does not hold the pattern is rejected at memory speed.
class CaselessPattern
{
public:
    explicit CaselessPattern(const QString &text);

    bool isEmpty() const { return m_folded.isEmpty() && m_matchable; }
    // Whether every character of the search text is a Latin-1 character.
    bool isLatin1() const { return m_matchable; }

    // The position of the first match in bytes [data, data + size), or -1.
    qsizetype indexIn(const char *data, qsizetype size) const;
    qsizetype indexIn(const QByteArray &bytes) const
    {
        return indexIn(bytes.constData(), bytes.size());
    }

    // The position of the first match in text[from, to) (UTF-16), or -1. Characters
    // of the text outside Latin-1 match nothing of the pattern.
    qsizetype indexIn(QStringView text, qsizetype from, qsizetype to) const;

private:
    QByteArray m_folded;     // the pattern folded to lower case
    bool m_matchable = true; // false when the pattern holds a character above 0xFF
};

} // namespace tessaro
