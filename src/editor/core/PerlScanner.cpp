#include "editor/core/PerlScanner.h"

namespace tessaro {

void PerlScanner::scan(qsizetype until)
{
    const char16_t *p = m_chars;
    const qsizetype end = m_end;
    const qsizetype limit = qMin(until, end);
    qsizetype i = m_pos;
    while (i < limit) {
        const char16_t c = p[i];
        if (isSeparator(c)) {
            endWord(i);
            ++i;
        } else if (c == u'#') {
            const qsizetype stop = lineEnd(i + 1);
            discardWord();
            addComment(i, stop);
            i = stop;
        } else if (c == u'<' && i + 1 < end && p[i + 1] == u'<') {
            // The here-document's text is skipped; its terminator is scanned again.
            interruptWord(i);
            const qsizetype terminator = find(u"eof", i + 3, Qt::CaseInsensitive);
            i = terminator < 0 ? end : terminator;
        } else if (c == u'"') {
            endWord(i);
            qsizetype close = find(u'"', i + 1);
            while (close > 0 && p[close - 1] == u'\\')
                close = find(u'"', close + 1);
            i = (close < 0 ? end : close) + 1;
        } else {
            beginPiece(i);
            ++i;
        }
    }
    m_pos = qMin(i, end);
}

} // namespace tessaro
