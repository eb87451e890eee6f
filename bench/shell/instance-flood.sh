#!/bin/sh
# Single-instance socket under hostile local input: how long the running copy's event
# loop (its window) is kept waiting while other processes of the same user say nothing,
# send garbage, send 100 MB or connect a thousand times. Target: never over 100 ms.
#
#   bench/shell/instance-flood.sh [probe interval ms]      (default 10)
#
# Builds a Release tree in build-release/ (BUILD_DIR overrides) with the benchmarks on,
# then runs bench_instanceflood, which starts the real program on Qt's offscreen
# platform with private XDG folders in a temporary directory, runs each attack in a
# thread and meanwhile times the greeting of a new connection every interval. Prints
# the median, 99th percentile and worst greeting delay per attack.
set -e
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${BUILD_DIR:-$root/build-release}
if [ -z "$SKIP_BUILD" ] || [ ! -x "$build/bin/bench_instanceflood" ]; then
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTESSARO_BUILD_BENCH=ON \
        -DTESSARO_BUILD_TESTS=OFF >/dev/null
    cmake --build "$build" --target bench_instanceflood >/dev/null
fi
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
HOME="$home" QT_QPA_PLATFORM=offscreen "$build/bin/bench_instanceflood" "$@"
