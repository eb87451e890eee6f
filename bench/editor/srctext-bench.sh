#!/bin/sh
# Editor control benchmarks (bench_srctext) on the SQLite amalgamation: a 1 MiB slice
# and a 10 MiB file made of the amalgamation and its start again.
#
# Usage: bench/editor/srctext-bench.sh   (from the checkout; needs npm for the corpus)
#
# The corpus is fetched with `npm pack sqlite3` into $TESSARO_BENCH_CACHE (default
# ~/.cache/tessaro-bench), outside the repository; it is never committed.
set -eu

here=$(cd "$(dirname "$0")/../.." && pwd)
cache=${TESSARO_BENCH_CACHE:-$HOME/.cache/tessaro-bench}
build=${TESSARO_BENCH_BUILD:-$here/build-release}
mkdir -p "$cache"

if [ ! -f "$cache/sqlite3.c" ]; then
    echo "Fetching the SQLite amalgamation into $cache ..."
    (cd "$cache" && rm -rf npm && mkdir npm && cd npm && npm pack sqlite3 >/dev/null 2>&1 &&
        tar xzf sqlite3-*.tgz &&
        inner=$(ls package/deps/*.tar.gz | head -n 1) && tar xzf "$inner" &&
        cp "$(find . -name sqlite3.c | head -n 1)" "$cache/sqlite3.c")
fi
head -c 1048576 "$cache/sqlite3.c" > "$cache/slice.c"
cat "$cache/sqlite3.c" "$cache/sqlite3.c" | head -c 10485760 > "$cache/ten.c"

cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTESSARO_BUILD_BENCH=ON \
    -DTESSARO_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" -j2 bench_srctext tessaro_data >/dev/null

QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bin/bench_srctext" "$cache/slice.c" "$cache/ten.c"
