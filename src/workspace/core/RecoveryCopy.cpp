#include "workspace/core/RecoveryCopy.h"

namespace tessaro {

namespace {

const QByteArray kMagic = "Tessaro recovery copy 1";

QByteArray lineEndName(LineEnd end)
{
    switch (end) {
    case LineEnd::LF: return "LF";
    case LineEnd::CR: return "CR";
    case LineEnd::CRLF:
    case LineEnd::Unknown: break;
    }
    return "CRLF";
}

LineEnd lineEndFromName(const QByteArray &name)
{
    if (name == "LF")
        return LineEnd::LF;
    if (name == "CR")
        return LineEnd::CR;
    return LineEnd::CRLF;
}

QByteArray field(const char *key, const QString &value)
{
    return QByteArray(key) + '=' + value.toUtf8().toPercentEncoding() + '\n';
}

} // namespace

QByteArray RecoveryCopy::toBytes() const
{
    QByteArray bytes = kMagic + '\n';
    bytes += field("caption", caption);
    bytes += field("path", path);
    bytes += field("lineEnd", QString::fromLatin1(lineEndName(lineEnd)));
    bytes += field("cSource", cSource ? QStringLiteral("1") : QStringLiteral("0"));
    bytes += '\n';
    bytes += text;
    return bytes;
}

std::optional<RecoveryCopy> RecoveryCopy::fromBytes(const QByteArray &bytes)
{
    qsizetype at = bytes.indexOf('\n');
    if (at < 0 || bytes.left(at) != kMagic)
        return std::nullopt;
    ++at;
    RecoveryCopy copy;
    bool sawCaption = false;
    for (;;) {
        const qsizetype end = bytes.indexOf('\n', at);
        if (end < 0)
            return std::nullopt; // the header never ended: the copy was cut off
        const QByteArray line = bytes.mid(at, end - at);
        at = end + 1;
        if (line.isEmpty())
            break;
        const qsizetype equals = line.indexOf('=');
        if (equals < 0)
            continue;
        const QByteArray key = line.left(equals);
        const QString value =
            QString::fromUtf8(QByteArray::fromPercentEncoding(line.mid(equals + 1)));
        if (key == "caption") {
            copy.caption = value;
            sawCaption = true;
        } else if (key == "path") {
            copy.path = value;
        } else if (key == "lineEnd") {
            copy.lineEnd = lineEndFromName(value.toLatin1());
        } else if (key == "cSource") {
            copy.cSource = value == QLatin1String("1");
        }
    }
    if (!sawCaption)
        return std::nullopt;
    copy.text = bytes.mid(at);
    return copy;
}

bool RecoveryCopy::operator==(const RecoveryCopy &other) const
{
    return caption == other.caption && path == other.path && lineEnd == other.lineEnd &&
           cSource == other.cSource && text == other.text;
}

} // namespace tessaro
