#include "state/core/WorkspaceState.h"

namespace tessaro {

const GroupInfo &groupInfo(Group group)
{
    static const GroupInfo table[] = {
        {Group::Source, "SOUR=", nullptr, nullptr, 51},
        {Group::UI, "USER=", "UI", "U", 51},
        {Group::CGame, "CAME=", "CGame", "C", 51},
        {Group::Game, "GAME=", "Game", "G", 51},
        {Group::Resources, "RESC=", "Resources", "R", 51},
        {Group::Headers, "HEAD=", "Headers", "H", 61},
    };
    return table[int(group)];
}

FixedList<QString> &WorkspaceState::list(Group group)
{
    switch (group) {
    case Group::Source: return source;
    case Group::UI: return ui;
    case Group::CGame: return cgame;
    case Group::Game: return game;
    case Group::Resources: return resources;
    case Group::Headers: break;
    }
    return headers;
}

const FixedList<QString> &WorkspaceState::list(Group group) const
{
    return const_cast<WorkspaceState *>(this)->list(group);
}

void WorkspaceState::resetCounts()
{
    for (Group g :
         {Group::Source, Group::UI, Group::CGame, Group::Game, Group::Resources, Group::Headers})
        list(g).setCount(0);
}

} // namespace tessaro
