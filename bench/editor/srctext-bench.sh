#!/bin/sh
# Editor control benchmarks (bench_srctext) on the SQLite amalgamation: a 1 MiB slice
# and a 10 MiB file made of the amalgamation and its start again.
#
# Usage: bench/editor/srctext-bench.sh   (from the checkout; needs npm for the corpus)
#
# The corpus is fetched with `npm pack sqlite3@6.0.1` (bench/corpus.sh) into
# $TESSARO_BENCH_CACHE (default
# ~/.cache/tessaro-bench), outside the repository; it is never committed.
set -eu

here=$(cd "$(dirname "$0")/../.." && pwd)
build=${TESSARO_BENCH_BUILD:-$here/build-release}
. "$here/bench/corpus.sh"
cat "$cache/sqlite3.c" "$cache/sqlite3.c" | head -c 10485760 > "$cache/ten.c"

cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTESSARO_BUILD_BENCH=ON \
    -DTESSARO_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" -j2 bench_srctext tessaro_data >/dev/null

QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bin/bench_srctext" "$cache/slice.c" "$cache/ten.c"
