#include "shell/core/ManualLocation.h"

#include <QDir>
#include <QFileInfo>

namespace tessaro {

namespace {
const QLatin1String kIndex("index.html");
} // namespace

QString manualBeside(const QString &programFolder)
{
    if (programFolder.isEmpty())
        return QString();
    const QDir program(programFolder);
    const QString candidates[] = {
        program.filePath(QStringLiteral("../../share/doc/tessaro/manual/") + kIndex),
        program.filePath(QStringLiteral("manual/") + kIndex),
    };
    for (const QString &candidate : candidates) {
        const QFileInfo index(candidate);
        if (index.isFile())
            return QDir::cleanPath(index.absoluteFilePath());
    }
    return QString();
}

QString manualSearchPage(const QString &helpFile)
{
    if (helpFile.isEmpty())
        return QString();
    return QFileInfo(helpFile).dir().filePath(QStringLiteral("search.html"));
}

} // namespace tessaro
