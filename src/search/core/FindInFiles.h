#pragma once

#include "state/core/WorkspaceState.h"

#include <QString>

#include <array>

namespace tessaro::search {

// What Find in Files searches for: the text from its dialog and the folder the file
// browser showed when the command was chosen (with "/" added). The folder is only
// tested for being non-empty.
struct FindInFilesQuery
{
    QString text;
    QString folder;
};

// The lists Find in Files reads, in the order it reads them. Resources are never
// searched.
const std::array<Group, 5> &searchedGroups();

// "Searching for <text>..." and "Found <text> in <path>", each with CR LF.
QString searchingLine(const QString &text);
QString foundLine(const QString &text, const QString &path);

// Searches every file of the workspace's searched lists for the text, ignoring
// letter case, and appends to output the "Searching for" line and one "Found" line
// for each file that holds the text at least once (paths as the lists hold them).
// Each file is read whole. lastMatchPosition receives the 1-based position of the
// text in the last file read (0 when absent).
//
// A file that cannot be read raises its run-time error (53 "File not found", 75
// "Path/File access error") and a count beyond a list's capacity raises 9; output
// then holds the lines of the files before it.
void findInFiles(const WorkspaceState &workspace, const QString &text, QString &output,
                 qint32 &lastMatchPosition);

} // namespace tessaro::search
