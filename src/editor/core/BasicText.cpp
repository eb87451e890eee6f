#include "editor/core/BasicText.h"

namespace tessaro::basictext {

qsizetype inStr(qsizetype start, QStringView text, QStringView pattern)
{
    if (text.isEmpty() || start < 1 || start > text.size())
        return 0;
    if (pattern.isEmpty())
        return start;
    return text.indexOf(pattern, start - 1) + 1;
}

QString trim(QStringView text)
{
    qsizetype from = 0;
    qsizetype to = text.size();
    while (from < to && text[from] == u' ')
        ++from;
    while (to > from && text[to - 1] == u' ')
        --to;
    return text.mid(from, to - from).toString();
}

QString splitAtDelimiter(const QString &text, const QString &delimiter, bool leftPart)
{
    const qsizetype at = inStr(text, delimiter);
    if (at == 0)
        return QString();
    return leftPart ? text.left(at - 1) : text.mid(at - 1 + delimiter.size());
}

qint32 countOccurrences(const QString &text, const QString &pattern)
{
    qint32 count = 0;
    qsizetype start = 1;
    while (start <= text.size()) {
        const qsizetype hit = inStr(start, text, pattern);
        if (hit == 0)
            break;
        ++count;
        start = hit + 1;
    }
    return count;
}

} // namespace tessaro::basictext
