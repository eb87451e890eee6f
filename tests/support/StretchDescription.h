#pragma once

#include "editor/core/ColourScan.h"

#include <QStringList>

#include <vector>

namespace tessaro {

// One line a stretch, "start length kind spelling": compared as text, a failing
// check shows which stretch differs.
inline QString describeStretches(const std::vector<ColourStretch> &stretches)
{
    QStringList lines;
    for (const ColourStretch &s : stretches) {
        const char *kind = s.kind == StretchKind::Comment   ? "comment"
                           : s.kind == StretchKind::Keyword ? "keyword"
                                                            : "text";
        lines << QStringLiteral("%1 %2 %3 %4").arg(s.start).arg(s.length).arg(kind, s.spelling);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace tessaro
