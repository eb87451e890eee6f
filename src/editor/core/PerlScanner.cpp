#include "editor/core/PerlScanner.h"

namespace tessaro {

void PerlScanner::scan(qsizetype until)
{
    const char16_t *p = m_chars;
    walk(until, [this, p](qsizetype i, qsizetype) {
        const char16_t c = p[i];
        if (isSeparator(c)) {
            endWord(i);
            return i + 1;
        }
        if (c == u'#')
            return lineComment(i, i + 1);
        if (c == u'<' && i + 1 < m_end && p[i + 1] == u'<') {
            // The here-document's text is skipped; its terminator is scanned again.
            interruptWord(i);
            const qsizetype terminator = find(u"eof", i + 3, Qt::CaseInsensitive);
            return terminator < 0 ? m_end : terminator;
        }
        if (c == u'"') {
            endWord(i);
            return afterQuote(i, true);
        }
        return wordChar(i);
    });
}

} // namespace tessaro
