#include "workspace/core/WorkspaceFile.h"

#include "platform/core/Paths.h"
#include "platform/core/RuntimeError.h"
#include "platform/core/TextFile.h"
#include "workspace/core/NodeTree.h"

#include <QFile>

namespace tessaro::workspacefile {

namespace {

const QByteArray kLineEnd("\r\n");

// Everything but the final line end, read as "Input(length - 2)": a
// file shorter than two bytes cannot be read that way.
QByteArray withoutLastLineEnd(const QByteArray &bytes)
{
    if (bytes.size() < 2)
        raise(RuntimeError::InvalidProcedureCall);
    return bytes.left(bytes.size() - 2);
}

// Trims blanks (only the space character) from both ends.
QByteArray trimBlanks(const QByteArray &bytes)
{
    qsizetype begin = 0;
    qsizetype end = bytes.size();
    while (begin < end && bytes[begin] == ' ')
        ++begin;
    while (end > begin && bytes[end - 1] == ' ')
        --end;
    return bytes.mid(begin, end - begin);
}

} // namespace

const Group *tagTestOrder()
{
    static const Group order[] = {Group::Resources, Group::Headers, Group::Game,
                                  Group::CGame,     Group::UI,      Group::Source};
    return order;
}

QByteArray encodePath(const QString &path)
{
    return QFile::encodeName(path);
}

QString decodePath(const QByteArray &bytes)
{
    return QFile::decodeName(bytes);
}

void CreateWorkspaceFile(const QString &path)
{
    textfile::writeBytes(path, kLineEnd);
}

void AppendWorkspaceEntry(const QString &workspacePath, const QString &tag, const QString &filePath)
{
    QByteArray text = withoutLastLineEnd(textfile::readBytes(workspacePath));
    text += tag.toLatin1();
    text += encodePath(filePath);
    text += kLineEnd;
    text += kLineEnd;
    textfile::writeBytes(workspacePath, text);
}

void addGroupNodeIfFirst(Group group, const WorkspaceState &state, NodeTree &tree)
{
    const GroupInfo &info = groupInfo(group);
    if (info.nodeKey && state.list(group).count() == 0)
        tree.add(QString(), QLatin1String(info.nodeKey), QLatin1String(info.nodeText), GroupImage);
}

void addFileNode(Group group, const QString &path, NodeTree &tree)
{
    const GroupInfo &info = groupInfo(group);
    const QString parent = info.nodeKey ? QLatin1String(info.nodeKey) : QString();
    tree.add(parent, path, paths::filePart(path), FileImage);
}

void readWorkspaceBytes(const QByteArray &bytes, WorkspaceState &state, NodeTree &tree)
{
    const QByteArray text = withoutLastLineEnd(bytes);
    state.resetCounts();

    qsizetype lineStart = 0;
    while (lineStart <= text.size()) {
        qsizetype lineEnd = text.indexOf(kLineEnd, lineStart);
        if (lineEnd < 0)
            lineEnd = text.size();
        const QByteArrayView line(text.constData() + lineStart, lineEnd - lineStart);
        lineStart = lineEnd + 2;

        if (line.size() < 5)
            continue;
        const QByteArrayView tag = line.first(5);
        for (int i = 0; i < 6; ++i) {
            const Group group = tagTestOrder()[i];
            if (tag != QByteArrayView(groupInfo(group).tag))
                continue;
            const QByteArrayView rest = line.sliced(5);
            if (!rest.isEmpty()) {
                const QString path = decodePath(trimBlanks(rest.toByteArray()));
                FixedList<QString> &list = state.list(group);
                list.append(path);
                if (list.count() == 1) {
                    const GroupInfo &info = groupInfo(group);
                    if (info.nodeKey)
                        tree.add(QString(), QLatin1String(info.nodeKey),
                                 QLatin1String(info.nodeText), GroupImage);
                }
                addFileNode(group, path, tree);
            }
            break;
        }
    }
}

void ReadWorkspaceFile(const QString &path, WorkspaceState &state, NodeTree &tree)
{
    readWorkspaceBytes(textfile::readBytes(path), state, tree);
}

} // namespace tessaro::workspacefile
