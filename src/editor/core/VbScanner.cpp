#include "editor/core/VbScanner.h"

namespace tessaro {

VbScanner::VbScanner(const ScanRequest &request, std::vector<ColourStretch> &out, qsizetype begin,
                     qsizetype end)
    : WordScanner(request, out, begin, end)
{
    if (request.ignoreVBHeader && m_range.contains(u"Begin VB.\r\n"))
        m_pos = qMax(m_pos, headerEnd(m_range));
}

qsizetype VbScanner::headerEnd(QStringView text)
{
    int depth = 0;
    qsizetype from = 0;
    do {
        const qsizetype begin = text.indexOf(u"Begin", from);
        const qsizetype end = text.indexOf(u"End", from);
        if (begin < 0 && end < 0)
            return text.size(); // no matching "End": everything is header
        if (begin >= 0 && (end < 0 || begin < end)) {
            ++depth;
            from = begin + 1;
        } else {
            --depth;
            from = end + 1;
        }
    } while (depth != 0);
    return from;
}

void VbScanner::scan(qsizetype until)
{
    const char16_t *p = m_chars;
    const qsizetype end = m_end;
    const qsizetype limit = qMin(until, end);
    qsizetype i = m_pos;
    while (i < limit) {
        const char16_t c = p[i];
        if (isSeparator(c)) {
            QString word;
            if (endWord(i, &word) == Found::None && word.toUpper() == u"REM") {
                // A remark: from the word's start to the end of its line.
                const qsizetype start = i - 3;
                const qsizetype stop = lineEnd(i);
                addComment(start, stop);
                i = stop;
                continue;
            }
            ++i;
        } else if (c == u'"') {
            interruptWord(i);
            const qsizetype close = find(u'"', i + 1);
            i = (close < 0 ? end : close) + 1;
        } else if (c == u'\'') {
            const qsizetype stop = lineEnd(i + 1);
            discardWord();
            addComment(i, stop);
            i = stop;
        } else {
            beginPiece(i);
            ++i;
        }
    }
    m_pos = qMin(i, end);
}

} // namespace tessaro
