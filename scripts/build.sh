#!/bin/sh
# Configures and builds Tessaro into build/ (BUILD_DIR and BUILD_TYPE override).
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
type=${BUILD_TYPE:-RelWithDebInfo}
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE="$type" >/dev/null
cmake --build "$build" --parallel "$(nproc)"
