#pragma once

#include <QChar>
#include <QStringView>

namespace tessaro::casefold {

// Case folding one UTF-16 unit at a time, the way a case-insensitive QString search
// compares characters: simple folding, so a folded text is exactly as long as the
// text it came from. A surrogate pair is folded as one character.

inline char16_t foldAscii(char16_t c)
{
    return (c >= u'A' && c <= u'Z') ? char16_t(c + 32) : c;
}

// Folds `length` units from `in` into `out` (which may be the same buffer).
inline void fold(const char16_t *in, qsizetype length, char16_t *out)
{
    for (qsizetype i = 0; i < length; ++i) {
        const char16_t c = in[i];
        if (c < 128) {
            out[i] = foldAscii(c);
        } else if (QChar::isHighSurrogate(c) && i + 1 < length &&
                   QChar::isLowSurrogate(in[i + 1])) {
            const char32_t folded = QChar::toCaseFolded(QChar::surrogateToUcs4(c, in[i + 1]));
            if (QChar::requiresSurrogates(folded)) {
                out[i] = QChar::highSurrogate(folded);
                out[i + 1] = QChar::lowSurrogate(folded);
            } else {
                out[i] = c;
                out[i + 1] = in[i + 1];
            }
            ++i;
        } else if (QChar::isSurrogate(c)) {
            out[i] = c;
        } else {
            out[i] = char16_t(QChar::toCaseFolded(char32_t(c)));
        }
    }
}

} // namespace tessaro::casefold
