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
    const qsizetype end = m_end;
    const qsizetype limit = qMin(until, end);
    qsizetype i = m_pos;
    while (i < limit) {
        switch (classOf(p[i])) {
        case Word:
            beginPiece(i);
            ++i;
            while (i < limit && classOf(p[i]) == Word)
                ++i;
            break;
        case Separator:
            endWord(i);
            ++i;
            break;
        case Quote: {
            interruptWord(i);
            const qsizetype close = find(u'"', i + 1);
            i = (close < 0 ? end : close) + 1;
            break;
        }
        case Slash: {
            const char16_t next = i + 1 < end ? p[i + 1] : 0;
            if (next == u'/' || next == u'*') {
                qsizetype stop;
                if (next == u'/') {
                    stop = lineEnd(i + 2);
                } else {
                    const qsizetype close = find(u"*/", i + 2);
                    stop = close < 0 ? end : close + 2;
                }
                discardWord();
                addComment(i, stop);
                i = stop;
            } else {
                interruptWord(i);
                ++i;
            }
            break;
        }
        }
    }
    m_pos = qMin(i, end);
}

} // namespace tessaro
