#pragma once

#include "state/core/WorkspaceState.h"

#include <QByteArray>
#include <QString>

namespace tessaro {

class NodeTree;

// The workspace file: one "TAG=path" line per entry, CR LF line ends, and always one
// empty line at the end (an empty workspace is exactly CR LF). Contents are 8-bit
// bytes; the paths in it are in the file system's encoding.
namespace workspacefile {

// The tree images of the FileView tree.
constexpr int GroupImage = 1;
constexpr int FileImage = 5;

// The tags, in the order a line is tested against them.
const Group *tagTestOrder(); // six entries

// Writes an empty workspace: CR LF.
void CreateWorkspaceFile(const QString &path);

// Rewrites the whole workspace file with one entry line added: everything but the
// file's last two bytes, then the tag, the path, CR LF and CR LF. It is replaced
// atomically and durably, as every file is (textfile::writeBytes): a write that fails
// raises 75 and leaves the old file whole. A file shorter than two bytes raises 5 and
// is left alone.
void AppendWorkspaceEntry(const QString &workspacePath, const QString &tag,
                          const QString &filePath);

// Reads the file into the six lists (counts set to 0 first) and the FileView tree.
// The last two bytes are dropped unread. The first error (unreadable file, a file
// shorter than two bytes, a full list, a path the tree already has) ends the reading
// and is raised; what was read so far stays in the lists and the tree.
void ReadWorkspaceFile(const QString &path, WorkspaceState &state, NodeTree &tree);

// The same over bytes already read.
void readWorkspaceBytes(const QByteArray &bytes, WorkspaceState &state, NodeTree &tree);

// Stores one entry as reading and adding do: the group node first when the group
// has none yet, then the file node (key = path, text = file part).
void addGroupNodeIfFirst(Group group, const WorkspaceState &state, NodeTree &tree);
void addFileNode(Group group, const QString &path, NodeTree &tree);

// The path as it stands in the file, and back.
QByteArray encodePath(const QString &path);
QString decodePath(const QByteArray &bytes);

} // namespace workspacefile
} // namespace tessaro
