#!/bin/sh
# tessaro-cli against the peers a user would reach for, as whole processes, each
# comparison in one hyperfine run on the same input. The figures are medians, since
# a shared machine makes single runs noisy:
#   1. start-up: tessaro-cli --version beside ctags --version and grep --version;
#   2. colour on the first 1 MiB of sqlite3.c (bench/corpus.sh) beside
#      ctags -x --c-kinds=s and highlight -S c -O rtf on the same file;
#   3. find over the search benchmark's 265 headers (bench/search/workspace.sh)
#      beside grep -l -i -F over the same files.
# Prints each command's median in milliseconds and the ratios the goals are set in.
#
# Usage: bench/cli/run.sh [TESSARO_CLI]   (default: build-release/bin/tessaro-cli,
# built first; needs hyperfine, universal-ctags and highlight)
# TESSARO_BENCH_RUNS sets the runs per command (default 50; highlight gets a fifth).
set -eu
cd "$(dirname "$0")/../.."
runs=${TESSARO_BENCH_RUNS:-50}
. bench/corpus.sh
if [ $# -gt 0 ]; then
    cli=$1
else
    cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release -DTESSARO_BUILD_BENCH=ON \
        -DTESSARO_BUILD_TESTS=OFF >/dev/null
    ninja -C build-release -j2 tessaro-cli tessaro_data >/dev/null
    cli=build-release/bin/tessaro-cli
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
. bench/search/workspace.sh

# median_ms JSON N: the median of the Nth command of a hyperfine export, in ms.
median_ms() { jq -r ".results[$2].median * 1000" "$1"; }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }
bench() { hyperfine -N --style none --warmup 5 "$@" >/dev/null; }

echo "== start-up ($runs runs each) =="
bench --runs "$runs" --export-json "$work/start.json" \
    "$cli --version" "ctags --version" "grep --version"
cli_ms=$(median_ms "$work/start.json" 0)
ctags_ms=$(median_ms "$work/start.json" 1)
grep_ms=$(median_ms "$work/start.json" 2)
printf 'tessaro-cli --version: %.2f ms; ctags --version: %.2f ms; grep --version: %.2f ms\n' \
    "$cli_ms" "$ctags_ms" "$grep_ms"

echo "== colour on 1 MiB of sqlite3.c =="
bench --runs "$runs" --export-json "$work/colour.json" \
    "$cli colour $cache/slice.c" "ctags -x --c-kinds=s $cache/slice.c"
bench --runs $((runs / 5 > 3 ? runs / 5 : 3)) --export-json "$work/highlight.json" \
    "highlight -S c -O rtf -i $cache/slice.c"
cli_ms=$(median_ms "$work/colour.json" 0)
ctags_ms=$(median_ms "$work/colour.json" 1)
highlight_ms=$(median_ms "$work/highlight.json" 0)
printf 'tessaro-cli colour: %.2f ms; ctags -x --c-kinds=s: %.2f ms; highlight -S c -O rtf: %.2f ms\n' \
    "$cli_ms" "$ctags_ms" "$highlight_ms"
echo "tessaro-cli / ctags: $(ratio "$cli_ms" "$ctags_ms")x the time;" \
    "highlight / tessaro-cli: $(ratio "$highlight_ms" "$cli_ms")x"

echo "== find over 265 headers ($(xargs cat <"$work/files" | wc -c) bytes), MAGIC_NUMBER =="
bench --runs "$runs" --export-json "$work/find.json" \
    "$cli find $work/mod.tdi MAGIC_NUMBER" "grep -l -i -F MAGIC_NUMBER $(tr '\n' ' ' <"$work/files")"
cli_ms=$(median_ms "$work/find.json" 0)
grep_ms=$(median_ms "$work/find.json" 1)
printf 'tessaro-cli find: %.2f ms; grep -l -i -F: %.2f ms\n' "$cli_ms" "$grep_ms"
echo "tessaro-cli / grep: $(ratio "$cli_ms" "$grep_ms")x the time"
