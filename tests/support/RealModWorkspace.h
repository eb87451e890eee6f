#pragma once

#include "platform/core/TextFile.h"

#include <QFile>
#include <QString>

namespace tessaro::test {

// The folder of a mod's game, cgame and ui sources and headers written in the shape
// real mods have: forward declarations such as "typedef struct gentity_s gentity_t;"
// before the structure's body, enums, nested unions, initialiser tables, comments;
// the cgame files have CR LF line ends.
inline QString realModFolder()
{
    return QStringLiteral(TESSARO_SOURCE_DIR "/tests/workspace/data/realmod");
}

// Writes a workspace file that lists every file of the mod as Add File(s) sorts
// them, and returns its path.
inline QString writeRealModWorkspace(const QString &tdiPath)
{
    const struct
    {
        const char *tag;
        const char *file;
    } entries[] = {
        {"GAME=", "game/g_main.c"},    {"GAME=", "game/g_combat.c"},  {"GAME=", "game/g_utils.c"},
        {"GAME=", "game/bg_misc.c"},   {"GAME=", "game/bg_pmove.c"},  {"CAME=", "cgame/cg_main.c"},
        {"CAME=", "cgame/cg_draw.c"},  {"CAME=", "cgame/cg_ents.c"},  {"USER=", "ui/ui_main.c"},
        {"USER=", "ui/ui_atoms.c"},    {"USER=", "ui/ui_mainmenu.c"}, {"HEAD=", "game/q_shared.h"},
        {"HEAD=", "game/bg_public.h"}, {"HEAD=", "game/g_public.h"},  {"HEAD=", "game/g_local.h"},
        {"HEAD=", "cgame/cg_local.h"}, {"HEAD=", "ui/ui_local.h"},
    };
    QByteArray bytes;
    for (const auto &entry : entries)
        bytes += entry.tag + QFile::encodeName(realModFolder() + "/" + entry.file) + "\r\n";
    bytes += "\r\n";
    textfile::writeBytes(tdiPath, bytes);
    return tdiPath;
}

} // namespace tessaro::test
