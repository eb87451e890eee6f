#pragma once

#include <QByteArray>
#include <QString>

namespace tessaro {

// The desktop's side of the file associations: a desktop entry
// ($XDG_DATA_HOME/applications/tessaro.desktop) that runs the program with the file,
// and the program as the default opener of C sources, C headers and C++ sources in
// $XDG_CONFIG_HOME/mimeapps.list, keeping every other entry of that file. Files are
// rewritten only when their content differs, atomically.
class DesktopAssociation
{
public:
    enum class Outcome { Unchanged, Written, Failed };

    DesktopAssociation(QString dataHome, QString configHome);
    // The current user's folders (XDG_DATA_HOME, XDG_CONFIG_HOME or their defaults).
    static DesktopAssociation forCurrentUser();

    QString desktopFilePath() const;
    QString mimeAppsPath() const;

    // Points the association at the program. Never raises: a failure is reported as
    // Failed and leaves the files as they were.
    Outcome apply(const QString &programPath) const;

    static QString desktopId() { return QStringLiteral("tessaro.desktop"); }
    static QStringList mimeTypes();
    // The desktop entry's text for the program: the installed entry (name, icon,
    // types, categories) with the program's full path in the Exec key.
    static QByteArray desktopEntry(const QString &programPath);
    // The Exec key's program argument, quoted and escaped for a desktop entry.
    static QString execQuoted(const QString &programPath);
    // mimeapps.list with the three defaults set to the desktop entry; every other line
    // is kept as it stands.
    static QByteArray withDefaults(const QByteArray &mimeApps);

private:
    QString m_dataHome;
    QString m_configHome;
};

} // namespace tessaro
