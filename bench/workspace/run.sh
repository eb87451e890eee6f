#!/bin/sh
# Builds the workspace benchmark in a Release build folder (build-bench/) and runs it:
#   bench/workspace/run.sh [HEADER_ROOT]     (default /usr/include)
set -e
src=$(cd "$(dirname "$0")/../.." && pwd)
cmake -S "$src" -B "$src/build-bench" -G Ninja -DCMAKE_BUILD_TYPE=Release \
      -DTESSARO_BUILD_BENCH=ON -DTESSARO_BUILD_TESTS=OFF >/dev/null
ninja -C "$src/build-bench" -j2 bench_workspace tessaro-cli >/dev/null
exec "$src/build-bench/bin/bench_workspace" "$@"
