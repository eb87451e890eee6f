#!/bin/sh
# Search benchmarks. Builds a Release tree with the benchmarks (build-bench/ unless
# BENCH_BUILD_DIR is set), makes a workspace of 265 C headers from /usr/include
# (51 files in each searched group and 61 headers, about 7 MB), and measures:
#   1. Find in Files shown in the output window (bench_findinfiles);
#   2. tessaro-cli find as a whole process beside grep -l -i -F over the same files;
#   3. Find in a 10 MiB document from the first to the last occurrence of a word.
# Usage: bench/search/run.sh [TEXT]   (default: MAGIC_NUMBER, a rare word)
set -e
cd "$(dirname "$0")/../.."
build=${BENCH_BUILD_DIR:-build-bench}
text=${1:-MAGIC_NUMBER}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTESSARO_BUILD_BENCH=ON \
      -DTESSARO_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" -j2 tessaro-cli bench_findinfiles bench_documentfind >/dev/null

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. bench/search/workspace.sh
echo "workspace: 265 files, $(xargs cat <"$work/files" | wc -c) bytes; text: $text"

QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bin/bench_findinfiles" "$work/mod.tdi" "$text" 30

# Whole processes, alternating, 31 runs each; the median wall time of each.
ms() { echo "$(( ($2 - $1) / 1000 ))"; }
: >"$work/cli"; : >"$work/grep"
set -- $(cat "$work/files")
for i in $(seq 31); do
    t0=$(date +%s%N); "$build/bin/tessaro-cli" find "$work/mod.tdi" "$text" >/dev/null; t1=$(date +%s%N)
    grep -l -i -F "$text" "$@" >/dev/null || true; t2=$(date +%s%N)
    ms "$t0" "$t1" >>"$work/cli"; ms "$t1" "$t2" >>"$work/grep"
done
median() { sort -n "$1" | sed -n 16p; }
cli=$(median "$work/cli"); grep=$(median "$work/grep")
echo "tessaro-cli find: median $((cli / 1000)).$(printf %03d $((cli % 1000))) ms;" \
     "grep -l -i -F: median $((grep / 1000)).$(printf %03d $((grep % 1000))) ms;" \
     "ratio $(awk "BEGIN { printf \"%.2f\", $cli / $grep }")"
"$build/bin/tessaro-cli" find "$work/mod.tdi" "$text" | grep -c '^Found' | sed 's/^/tessaro-cli find: files found: /'
grep -l -i -F "$text" "$@" | wc -l | sed 's/^/grep -l -i -F: files found: /'

QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bin/bench_documentfind" 20
