#!/bin/sh
# Writes the sample mod's workspace, samplemod.tdi, for the folder the mod lives in
# (workspace files hold absolute paths), and prints the workspace's path. Lines end
# in CR LF and the file ends with an empty line.
# Usage: write-workspace.sh [MOD-FOLDER]
#   MOD-FOLDER is a copy of the sample mod (cp -r examples/samplemod ~/mods/); without
#   it, the workspace is written for examples/samplemod of this checkout.
set -e
mod=$(cd "${1:-$(dirname "$0")/samplemod}" && pwd)
out="$mod/samplemod.tdi"
tmp="$out.tmp.$$"
trap 'rm -f "$tmp"' EXIT
{
    for f in g_main.c g_combat.c g_items.c bg_misc.c bg_pmove.c bg_slidemove.c bg_lib.c \
             q_math.c q_shared.c; do
        printf 'GAME=%s\r\n' "$mod/game/$f"
    done
    for f in cg_main.c cg_draw.c cg_view.c; do
        printf 'CAME=%s\r\n' "$mod/cgame/$f"
    done
    for f in ui_main.c ui_menu.c ui_draw.c; do
        printf 'USER=%s\r\n' "$mod/ui/$f"
    done
    for f in game/q_shared.h game/bg_public.h game/g_local.h cgame/cg_local.h ui/ui_local.h; do
        printf 'HEAD=%s\r\n' "$mod/$f"
    done
    printf '\r\n'
} >"$tmp"
mv "$tmp" "$out"
trap - EXIT
echo "$out"
