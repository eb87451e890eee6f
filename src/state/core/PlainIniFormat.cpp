#include "state/core/PlainIniFormat.h"

#include <QIODevice>
#include <QMap>
#include <QStringDecoder>

namespace tessaro::plainini {

namespace {

const char kByteOrderMark[] = "\xEF\xBB\xBF";

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

QByteArrayView trimmedBlanks(QByteArrayView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

// UTF-8 as it stands: a byte-order mark at the start of a key or value is kept.
QStringDecoder utf8Decoder()
{
    return QStringDecoder(QStringDecoder::Utf8,
                          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
}

QString textOf(QByteArrayView bytes)
{
    QStringDecoder decoder = utf8Decoder();
    return decoder.decode(bytes);
}

// Valid UTF-8 becomes text; anything else stays bytes, so it is written back as read.
QVariant valueOf(QByteArrayView bytes)
{
    QStringDecoder decoder = utf8Decoder();
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return QVariant(bytes.toByteArray());
    return QVariant(text);
}

QByteArray bytesOf(const QVariant &value)
{
    QByteArray bytes =
        value.typeId() == QMetaType::QByteArray ? value.toByteArray() : value.toString().toUtf8();
    bytes.replace('\n', ' ');
    return bytes;
}

// One line of the file as the reader sees it.
struct Line
{
    enum Kind { Nothing, Group, Entry };
    Kind kind = Nothing;
    QString name; // the group or the key
    QVariant value;
};

Line readLine(QByteArrayView line)
{
    Line read;
    const QByteArrayView trimmed = trimmedBlanks(line);
    if (trimmed.isEmpty() || trimmed.front() == '#' || trimmed.front() == ';')
        return read;
    if (trimmed.front() == '[' && trimmed.back() == ']' && trimmed.size() >= 2) {
        read.kind = Line::Group;
        read.name = textOf(trimmed.sliced(1, trimmed.size() - 2));
        return read;
    }
    const qsizetype equals = line.indexOf('=');
    if (equals < 0)
        return read;
    read.name = textOf(trimmedBlanks(line.first(equals)));
    if (read.name.isEmpty())
        return read;
    read.kind = Line::Entry;
    read.value = valueOf(line.sliced(equals + 1));
    return read;
}

bool readsBackAs(const QByteArray &line, Line::Kind kind, const QString &name,
                 const QVariant &value)
{
    const Line read = readLine(line);
    return read.kind == kind && read.name == name &&
           (kind != Line::Entry || bytesOf(read.value) == bytesOf(value));
}

bool readDevice(QIODevice &device, QSettings::SettingsMap &map)
{
    map = parse(device.readAll());
    return true;
}

bool writeDevice(QIODevice &device, const QSettings::SettingsMap &map)
{
    const QByteArray bytes = serialise(map);
    return device.write(bytes) == bytes.size();
}

} // namespace

QSettings::SettingsMap parse(const QByteArray &bytes)
{
    QSettings::SettingsMap map;
    QByteArrayView rest(bytes);
    if (rest.startsWith(kByteOrderMark))
        rest = rest.sliced(3);
    QString group;
    while (!rest.isEmpty()) {
        const qsizetype end = rest.indexOf('\n');
        const QByteArrayView line = end < 0 ? rest : rest.first(end);
        rest = end < 0 ? QByteArrayView() : rest.sliced(end + 1);
        const Line read = readLine(line);
        if (read.kind == Line::Group)
            group = read.name;
        else if (read.kind == Line::Entry)
            map.insert(group.isEmpty() ? read.name : group + QLatin1Char('/') + read.name,
                       read.value);
    }
    return map;
}

QByteArray serialise(const QSettings::SettingsMap &map)
{
    QByteArray ungrouped;
    QMap<QString, QByteArray> groups;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        const QByteArray value = bytesOf(it.value());
        // A key "a/b/c" may stand in group "a" as "b/c", in group "a/b" as "c", or with no
        // group: the first form whose lines read back exactly is written.
        bool written = false;
        for (qsizetype slash = it.key().indexOf(QLatin1Char('/'), 1); slash > 0 && !written;
             slash = it.key().indexOf(QLatin1Char('/'), slash + 1)) {
            const QString group = it.key().left(slash);
            const QByteArray header = '[' + group.toUtf8() + ']';
            const QByteArray line = it.key().mid(slash + 1).toUtf8() + '=' + value;
            if (readsBackAs(header, Line::Group, group, QVariant()) &&
                readsBackAs(line, Line::Entry, it.key().mid(slash + 1), it.value())) {
                groups[group] += line + '\n';
                written = true;
            }
        }
        if (!written)
            ungrouped += it.key().toUtf8() + '=' + value + '\n';
    }
    // A first key that starts like a byte-order mark must not be read as one.
    QByteArray out = ungrouped.startsWith(kByteOrderMark) ? '\n' + ungrouped : ungrouped;
    for (auto it = groups.cbegin(); it != groups.cend(); ++it) {
        if (!out.isEmpty())
            out += '\n';
        out += '[' + it.key().toUtf8() + "]\n" + it.value();
    }
    return out;
}

QSettings::Format format()
{
    static const QSettings::Format registered =
        QSettings::registerFormat(QStringLiteral("ini"), readDevice, writeDevice);
    return registered;
}

} // namespace tessaro::plainini
