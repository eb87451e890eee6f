#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace tessaro::browser {

// The file browser's folder lists on Linux: the "drives" are the mounted volumes'
// root folders, "/" first; a drive root is a folder that is a volume root.

// The drive list: "/" first, then the other mounted volumes' roots in name order.
QStringList driveList();
// The drive (volume root) that holds the folder; "/" when it cannot be told.
QString driveOf(const QString &folder);

// The folder the browser starts in.
inline QString startFolder()
{
    return QStringLiteral("/");
}

// One line of the directory list: the chain of folders from the drive root down to
// the current folder, then the current folder's subfolders.
struct DirEntry
{
    QString path;      // the folder's full path
    QString name;      // what the list shows ("/" for the root)
    int depth = 0;     // indentation level
    bool open = false; // one of the current folder and its parents
};

// The entries the directory list shows for a folder. Raises 76 "Path not found" for
// a folder that does not exist and 75 "Path/File access error" for one that cannot be
// read.
QVector<DirEntry> dirEntries(const QString &folder);

// The file names of a folder (every file, hidden dot files excepted), sorted by name
// ignoring case. Raises 76 or 75 as dirEntries does.
QStringList fileNames(const QString &folder);

// A folder given the way the lists keep it: absolute and without a trailing "/"
// except at the root.
QString normalFolder(const QString &folder);

// The full name of a file of the list: the folder and the name joined by "/", with
// no doubled "/" when the folder already ends in one (the root).
QString fullName(const QString &folder, const QString &name);

// Whether a double-clicked file is run rather than opened: its name ends in ".exe",
// compared exactly (".EXE" is opened as a document).
bool runsAsProgram(const QString &fullName);

} // namespace tessaro::browser
