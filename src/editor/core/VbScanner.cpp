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
    walk(until, [this, p](qsizetype i, qsizetype) {
        const char16_t c = p[i];
        if (isSeparator(c)) {
            QString word;
            if (endWord(i, &word) == Found::None && word.toUpper() == u"REM") {
                // A remark: from the word's start to the end of its line.
                return lineComment(i - 3, i);
            }
            return i + 1;
        }
        if (c == u'"') {
            interruptWord(i);
            return afterQuote(i);
        }
        if (c == u'\'')
            return lineComment(i, i + 1);
        return wordChar(i);
    });
}

} // namespace tessaro
