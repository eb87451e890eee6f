#pragma once

#include "platform/core/FixedList.h"

#include <QString>

namespace tessaro {

// The six groups of a workspace, with their tags in the workspace file.
enum class Group { Source, UI, CGame, Game, Resources, Headers };

struct GroupInfo
{
    Group group;
    const char *tag;      // "SOUR=" ...
    const char *nodeText; // tree node text; nullptr for Source (no group node)
    const char *nodeKey;  // tree node key; nullptr for Source
    int capacity;
};

// The groups in the order of the table above (Source, UI, CGame, Game, Resources,
// Headers).
const GroupInfo &groupInfo(Group group);

// The open workspace: process-wide, read by the builds and by Find in Files at the
// moment a command is chosen.
struct WorkspaceState
{
    bool open = false; // WorkspaceOpen
    QString path;      // WorkspacePath, "" when none is open
    FixedList<QString> source{51};
    FixedList<QString> ui{51};
    FixedList<QString> cgame{51};
    FixedList<QString> game{51};
    FixedList<QString> resources{51};
    FixedList<QString> headers{61};

    FixedList<QString> &list(Group group);
    const FixedList<QString> &list(Group group) const;
    // Sets all six counts to 0 (the entries keep their text).
    void resetCounts();
};

} // namespace tessaro
