#include "SoakMod.h"

#include "platform/core/TextFile.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

namespace tessaro::soak {

namespace {

QByteArray lines(const char *lineBreak, int count)
{
    QByteArray out;
    for (int i = 0; i < count; ++i)
        out += "int value" + QByteArray::number(i) + " = " + QByteArray::number(i) +
               "; /* note */ // while" + lineBreak;
    return out;
}

} // namespace

SoakMod writeSoakMod(const QString &folder, const QString &sampleMod)
{
    SoakMod mod;
    mod.folder = QDir(folder).filePath(QStringLiteral("mod"));
    QDir().mkpath(mod.folder);
    QDirIterator it(sampleMod, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString from = it.next();
        const QString to = QDir(mod.folder).filePath(QDir(sampleMod).relativeFilePath(from));
        QDir().mkpath(QFileInfo(to).path());
        textfile::writeBytes(to, textfile::readBytes(from));
        mod.sources << to;
    }
    QByteArray eightBit;
    for (int b = 0x80; b <= 0xff; ++b)
        eightBit += char(b);
    const struct
    {
        const char *name;
        QByteArray bytes;
    } extra[] = {
        {"game/crlf.c", lines("\r\n", 300)},
        {"game/lf.c", lines("\n", 300)},
        {"game/cr.c", lines("\r", 300)},
        {"game/mixed.h", lines("\r\n", 20) + lines("\n", 20) + lines("\r", 20)},
        {"cgame/long.c", QByteArray(20000, 'x') + "\n/* " + QByteArray(5000, 'y') + " */\n"},
        {"cgame/latin1.c", "/* " + eightBit + " */\nchar c = '\xe9';\n" + eightBit},
        {"ui/empty.c", QByteArray()},
        {"ui/blank.h", QByteArray("\n\n\r\n\r")},
        {"notes.txt", lines("\n", 50)},
    };
    for (const auto &file : extra)
        mod.sources << test::writeFileIn(mod.folder, QString::fromLatin1(file.name), file.bytes);
    mod.sources.sort();

    // The workspace lists the C sources and headers in their groups.
    QByteArray tdi;
    for (const QString &path : mod.sources) {
        const QString relative = QDir(mod.folder).relativeFilePath(path);
        const char *group = relative.endsWith(QLatin1String(".h"))         ? "HEAD="
                            : relative.startsWith(QLatin1String("cgame/")) ? "CAME="
                            : relative.startsWith(QLatin1String("ui/"))    ? "USER="
                            : relative.endsWith(QLatin1String(".c"))       ? "GAME="
                                                                           : nullptr;
        if (group)
            tdi += group + textfile::toBytes(path) + "\r\n";
    }
    mod.workspace = QDir(mod.folder).filePath(QStringLiteral("soak.tdi"));
    textfile::writeBytes(mod.workspace, tdi);
    return mod;
}

} // namespace tessaro::soak
