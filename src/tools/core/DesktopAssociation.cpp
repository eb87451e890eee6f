#include "tools/core/DesktopAssociation.h"
#include "tools/core/InstalledDesktopEntry.h"

#include "platform/core/ErrorTraps.h"
#include "platform/core/TextFile.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

namespace tessaro {

namespace {

const QByteArray kDefaultsSection = "[Default Applications]";

bool isSectionHeader(const QByteArray &line)
{
    return line.trimmed().startsWith('[');
}

QByteArray keyOf(const QByteArray &line)
{
    const int eq = line.indexOf('=');
    return eq < 0 ? QByteArray() : line.left(eq).trimmed();
}

// Writes the bytes when they differ from the file's; true when written.
bool writeWhenDifferent(const QString &path, const QByteArray &bytes)
{
    QFile current(path);
    if (current.open(QIODevice::ReadOnly) && current.readAll() == bytes)
        return false;
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        throw RuntimeError(RuntimeError::PathNotFound);
    textfile::writeBytes(path, bytes);
    return true;
}

} // namespace

DesktopAssociation::DesktopAssociation(QString dataHome, QString configHome)
    : m_dataHome(std::move(dataHome)), m_configHome(std::move(configHome))
{
}

DesktopAssociation DesktopAssociation::forCurrentUser()
{
    return DesktopAssociation(
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
}

QString DesktopAssociation::desktopFilePath() const
{
    return m_dataHome + QStringLiteral("/applications/") + desktopId();
}

QString DesktopAssociation::mimeAppsPath() const
{
    return m_configHome + QStringLiteral("/mimeapps.list");
}

QStringList DesktopAssociation::mimeTypes()
{
    return {QStringLiteral("text/x-csrc"), QStringLiteral("text/x-chdr"),
            QStringLiteral("text/x-c++src")};
}

QString DesktopAssociation::execQuoted(const QString &programPath)
{
    // Inside a quoted argument ", `, $ and \ are escaped with a backslash; then the
    // key's value escapes every backslash once more, and % is doubled.
    QString quoted;
    for (const QChar c : programPath) {
        if (c == QLatin1Char('"') || c == QLatin1Char('`') || c == QLatin1Char('$') ||
            c == QLatin1Char('\\'))
            quoted += QLatin1Char('\\');
        quoted += c;
    }
    quoted.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    quoted.replace(QLatin1Char('%'), QStringLiteral("%%"));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

QByteArray DesktopAssociation::desktopEntry(const QString &programPath)
{
    // The installed entry starts the program found on PATH; this one names the
    // running program by its full path.
    QList<QByteArray> lines = QByteArray(kInstalledDesktopEntry).split('\n');
    for (QByteArray &line : lines)
        if (line.startsWith("Exec="))
            line = "Exec=" + execQuoted(programPath).toUtf8() + " %f";
    return lines.join('\n');
}

QByteArray DesktopAssociation::withDefaults(const QByteArray &mimeApps)
{
    QList<QByteArray> lines = mimeApps.split('\n');
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    const QByteArray id = desktopId().toUtf8();

    QList<QByteArray> missing;
    for (const QString &type : mimeTypes())
        missing << type.toUtf8();

    qsizetype section = -1;
    for (qsizetype i = 0; i < lines.size(); ++i)
        if (lines[i].trimmed() == kDefaultsSection) {
            section = i;
            break;
        }
    if (section < 0) {
        if (!lines.isEmpty() && !lines.last().trimmed().isEmpty())
            lines << QByteArray();
        lines << kDefaultsSection;
        section = lines.size() - 1;
    }
    // Replace the three keys where they stand in the section...
    qsizetype end = section + 1;
    for (; end < lines.size() && !isSectionHeader(lines[end]); ++end) {
        const QByteArray key = keyOf(lines[end]);
        if (missing.contains(key)) {
            lines[end] = key + '=' + id;
            missing.removeAll(key);
        }
    }
    // ...and add the others after the section's last entry.
    while (end > section + 1 && lines[end - 1].trimmed().isEmpty())
        --end;
    for (const QByteArray &key : missing)
        lines.insert(end++, key + '=' + id);
    return lines.join('\n') + '\n';
}

DesktopAssociation::Outcome DesktopAssociation::apply(const QString &programPath) const
{
    bool written = false;
    const bool ok = trapped([&] {
        written = writeWhenDifferent(desktopFilePath(), desktopEntry(programPath));
        QByteArray mimeApps;
        if (QFileInfo::exists(mimeAppsPath()))
            mimeApps = textfile::readBytes(mimeAppsPath());
        written = writeWhenDifferent(mimeAppsPath(), withDefaults(mimeApps)) || written;
    });
    if (!ok)
        return Outcome::Failed;
    return written ? Outcome::Written : Outcome::Unchanged;
}

} // namespace tessaro
