#include "workspace/core/StructScan.h"

#include "editor/core/LineEnds.h"
#include "platform/core/RuntimeError.h"

#include <cmath>
#include <limits>

namespace tessaro::structscan {

QByteArray withCrLfLineBreaks(const QByteArray &text)
{
    return withCrLfBreaks(text);
}

qint32 inStr(qint32 start, const QByteArray &text, const QByteArray &needle)
{
    if (start < 1)
        raise(RuntimeError::InvalidProcedureCall);
    if (start > text.size())
        return 0;
    return qint32(text.indexOf(needle, start - 1) + 1);
}

QString mid(const QByteArray &text, qint32 start, qint32 length)
{
    if (start < 1 || length < 0)
        raise(RuntimeError::InvalidProcedureCall);
    if (start > text.size())
        return QString();
    return QString::fromLatin1(text.mid(start - 1, length));
}

void scanDeclarations(const QByteArray &text,
                      const std::function<void(qint32 position, const QString &name)> &found)
{
    static const QByteArray declaration("typedef struct");
    static const QByteArray openBrace("{");
    static const QByteArray closeBrace("}");
    static const QByteArray semicolon(";");

    qint32 pos = 1;
    for (;;) {
        const qint32 p = inStr(pos, text, declaration);
        if (p == 0)
            return;
        const qint32 o = inStr(p, text, openBrace);
        const qint32 c = inStr(o + 1, text, closeBrace);
        const qint32 s = inStr(c + 1, text, semicolon);
        pos = s;
        // A ";" right after the "}" (a forward declaration followed by a structure's
        // body) selects nothing: the entry gets the empty text.
        const qint32 length = s - (c + 2);
        found(p, length > 0 ? mid(text, c + 2, length) : QString());
    }
}

qint32 val(const QString &text)
{
    qsizetype i = 0;
    const qsizetype n = text.size();
    auto skipBlanks = [&] {
        while (i < n && (text[i] == QLatin1Char(' ') || text[i] == QLatin1Char('\t') ||
                         text[i] == QLatin1Char('\n') || text[i] == QLatin1Char('\r')))
            ++i;
    };
    skipBlanks();
    bool negative = false;
    if (i < n && (text[i] == QLatin1Char('-') || text[i] == QLatin1Char('+'))) {
        negative = text[i] == QLatin1Char('-');
        ++i;
    }
    double value = 0;
    for (; i < n; ++i) {
        skipBlanks();
        if (i >= n || !text[i].isDigit() || text[i].unicode() > '9')
            break;
        value = value * 10 + (text[i].unicode() - '0');
    }
    if (i < n && text[i] == QLatin1Char('.')) {
        double scale = 0.1;
        for (++i; i < n && text[i].unicode() >= '0' && text[i].unicode() <= '9'; ++i) {
            value += (text[i].unicode() - '0') * scale;
            scale /= 10;
        }
    }
    if (negative)
        value = -value;
    const double rounded = std::nearbyint(value); // the default mode rounds half to even
    if (rounded > std::numeric_limits<qint32>::max() ||
        rounded < std::numeric_limits<qint32>::min())
        raise(RuntimeError::Overflow);
    return qint32(rounded);
}

} // namespace tessaro::structscan
