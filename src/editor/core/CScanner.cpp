#include "editor/core/CScanner.h"

namespace tessaro {

namespace {

enum CharClass : unsigned char { Word, Separator, Quote, Slash };

// The class of every ASCII character; the others are all word characters.
struct Classes
{
    unsigned char of[128] = {};
    constexpr Classes()
    {
        of[int(' ')] = of[int('\t')] = of[int('\r')] = of[int('\n')] = Separator;
        of[int('"')] = Quote;
        of[int('/')] = Slash;
    }
};
constexpr Classes kClasses;

inline unsigned char classOf(char16_t c)
{
    return c < 128 ? kClasses.of[c] : static_cast<unsigned char>(Word);
}

} // namespace

void CScanner::scan(qsizetype until)
{
    const char16_t *p = m_chars;
    walk(until, [this, p](qsizetype i, qsizetype limit) {
        switch (classOf(p[i])) {
        case Word:
            beginPiece(i);
            ++i;
            while (i < limit && classOf(p[i]) == Word)
                ++i;
            return i;
        case Separator: endWord(i); return i + 1;
        case Quote: interruptWord(i); return afterQuote(i);
        case Slash: break;
        }
        const char16_t next = i + 1 < m_end ? p[i + 1] : 0;
        if (next == u'/')
            return lineComment(i, i + 2);
        if (next == u'*') {
            const qsizetype close = find(u"*/", i + 2);
            return comment(i, close < 0 ? m_end : close + 2);
        }
        interruptWord(i);
        return i + 1;
    });
}

} // namespace tessaro
