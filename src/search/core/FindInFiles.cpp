#include "search/core/FindInFiles.h"

#include "editor/core/CaselessPattern.h"
#include "platform/core/FileReader.h"

namespace tessaro::search {

const std::array<Group, 5> &searchedGroups()
{
    static const std::array<Group, 5> order = {Group::Game, Group::CGame, Group::UI, Group::Source,
                                               Group::Headers};
    return order;
}

QString searchingLine(const QString &text)
{
    return QLatin1String("Searching for ") + text + QLatin1String("...\r\n");
}

QString foundLine(const QString &text, const QString &path)
{
    return QLatin1String("Found ") + text + QLatin1String(" in ") + path + QLatin1String("\r\n");
}

void findInFiles(const WorkspaceState &workspace, const QString &text, QString &output,
                 qint32 &lastMatchPosition)
{
    output += searchingLine(text);
    const CaselessPattern pattern(text);
    FileReader reader;
    for (Group group : searchedGroups()) {
        const FixedList<QString> &list = workspace.list(group);
        for (int i = 0; i < list.count(); ++i) {
            const QString &path = list.at(i);
            const QByteArrayView contents = reader.read(path);
            const qsizetype at = pattern.indexIn(contents.data(), contents.size());
            lastMatchPosition = qint32(at + 1);
            if (at >= 0)
                output += foundLine(text, path);
        }
    }
}

} // namespace tessaro::search
