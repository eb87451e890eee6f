#include "editor/core/BlockEdit.h"

namespace tessaro::blockedit {

static bool isBlank(QChar c) { return c == u' ' || c == u'\t'; }

QString GetIndent(const QString &strLine)
{
    qsizetype n = 0;
    while (n < strLine.size() && isBlank(strLine.at(n)))
        ++n;
    return strLine.left(n);
}

int firstNonBlank(const QString &text, int start, const QString &marker)
{
    if (start <= 0)
        start = 1;
    for (qsizetype i = start - 1; i < text.size(); ++i) {
        if (!marker.isEmpty() && QStringView(text).mid(i).startsWith(marker))
            return int(i - (start - 1)) + 1;
        if (!isBlank(text.at(i)))
            return -1;
    }
    return -2;
}

Removal markerRemoval(const QString &line, const QString &marker)
{
    Removal r;
    if (marker.isEmpty())
        return r;
    const bool allBlanks = marker.count(u' ') == marker.size();
    if (allBlanks) {
        if (line.startsWith(marker))
            r = {0, int(marker.size())};
        return r;
    }
    const int found = firstNonBlank(line, 1, marker);
    if (found > 0)
        r = {found - 1, int(marker.size())};
    return r;
}

} // namespace tessaro::blockedit
