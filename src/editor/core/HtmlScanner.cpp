#include "editor/core/HtmlScanner.h"

#include "editor/core/CScanner.h"

namespace tessaro {

HtmlScanner::HtmlScanner(const ScanRequest &request, std::vector<ColourStretch> &out,
                         qsizetype begin, qsizetype end)
    : WordScanner(request, out, begin, end)
{
}

HtmlScanner::~HtmlScanner() = default;

void HtmlScanner::markup(StretchKind kind, qsizetype start, qsizetype stop)
{
    if (stop > start)
        m_out.push_back(
            ColourStretch{start, stop - start, kind, m_range.mid(start, stop - start).toString()});
}

qsizetype HtmlScanner::tag(qsizetype at, bool *opensScript)
{
    const char16_t *p = m_chars;
    const qsizetype end = m_end;
    qsizetype i = at + 1;
    // The element's name: up to a blank, a line break, "=", ">" or the end.
    const qsizetype nameStart = i;
    while (i < end && !isSeparator(p[i]) && p[i] != u'>' && p[i] != u'=')
        ++i;
    *opensScript =
        m_range.mid(nameStart, i - nameStart).compare(u"script", Qt::CaseInsensitive) == 0;

    qsizetype markStart = at;
    while (i < end && p[i] != u'>') {
        if (p[i] != u'=') {
            ++i;
            continue;
        }
        ++i;
        markup(StretchKind::Keyword, markStart, i);
        const qsizetype valueStart = i;
        if (i < end && (p[i] == u'\'' || p[i] == u'"')) {
            const qsizetype close = find(p[i], i + 1);
            i = close < 0 ? end : close + 1;
        } else {
            while (i < end && !isSeparator(p[i]) && p[i] != u'>')
                ++i;
        }
        markup(StretchKind::Text, valueStart, i);
        markStart = i;
    }
    if (i < end)
        ++i; // the ">"
    markup(StretchKind::Keyword, markStart, i);
    return i;
}

void HtmlScanner::scan(qsizetype until)
{
    const char16_t *p = m_chars;
    walk(until, [this, p, until](qsizetype i, qsizetype) {
        if (m_script) {
            // A script that stops short of its end stopped at `until`, which ends
            // this walk too.
            m_script->scan(until);
            const qsizetype next = m_script->position();
            if (m_script->atEnd())
                m_script.reset();
            return next;
        }
        if (p[i] != u'<') {
            const qsizetype next = find(u'<', i);
            return next < 0 ? m_end : next;
        }
        if (m_range.mid(i + 1, 3) == u"!--") {
            const qsizetype close = find(u"-->", i + 4);
            return comment(i, close < 0 ? m_end : close + 3);
        }
        bool opensScript = false;
        i = tag(i, &opensScript);
        if (opensScript) {
            const qsizetype close = find(u"</script>", i, Qt::CaseInsensitive);
            m_script = std::make_unique<CScanner>(m_request, m_out, i, close < 0 ? m_end : close);
        }
        return i;
    });
}

} // namespace tessaro
