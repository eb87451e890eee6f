#include "editor/core/LineEnds.h"

#include <algorithm>

#include <array>

namespace tessaro {

QString lineEndText(LineEnd end)
{
    switch (end) {
    case LineEnd::LF: return QStringLiteral("\n");
    case LineEnd::CR: return QStringLiteral("\r");
    case LineEnd::CRLF:
    case LineEnd::Unknown: break;
    }
    return QStringLiteral("\r\n");
}

LineEnds scanLineEnds(const QString &text)
{
    LineEnds result;
    std::array<qsizetype, 4> counts{};
    const QChar *p = text.constData();
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = p[i].unicode();
        LineEnd kind;
        if (c == u'\n') {
            kind = LineEnd::LF;
        } else if (c == u'\r') {
            if (i + 1 < n && p[i + 1].unicode() == u'\n') {
                kind = LineEnd::CRLF;
                ++i;
            } else {
                kind = LineEnd::CR;
            }
        } else {
            continue;
        }
        result.breaks.push_back(kind);
        ++counts[static_cast<std::size_t>(kind)];
    }
    // Ties prefer CR LF, the break a new source file gets, then LF.
    const std::array<LineEnd, 3> order{LineEnd::CRLF, LineEnd::LF, LineEnd::CR};
    qsizetype best = 0;
    for (LineEnd kind : order) {
        if (counts[static_cast<std::size_t>(kind)] > best) {
            best = counts[static_cast<std::size_t>(kind)];
            result.usual = kind;
        }
    }
    result.uniform = best == static_cast<qsizetype>(result.breaks.size());
    return result;
}

LineEnds lineEndsWithUsual(const QString &text, LineEnd usual)
{
    LineEnds ends = scanLineEnds(text);
    ends.usual = usual;
    ends.uniform = std::all_of(ends.breaks.begin(), ends.breaks.end(),
                               [usual](LineEnd end) { return end == usual; });
    return ends;
}

} // namespace tessaro
