#!/bin/sh
# Installs what is missing, builds, writes the sample mod's workspace for this
# checkout and starts Tessaro with the sample mod's game/g_main.c open.
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
"$root/examples/write-workspace.sh" >/dev/null
exec "${BUILD_DIR:-$root/build}/bin/tessaro" "$root/examples/samplemod/game/g_main.c"
