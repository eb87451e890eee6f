#!/bin/sh
# Colouring benchmarks on a real-world corpus, the SQLite amalgamation (sqlite3.c,
# about 9 MB) and a 1 MiB slice of it:
#   1. the C scanner with its word lookups (bench_colourscan), against a plain tokenizer;
#   2. `tessaro-cli colour` over the slice as a whole process, against
#      `ctags -x --c-kinds=s` and `highlight -S c -O rtf` over the same file;
#   3. the peak memory of `tessaro-cli colour` over growing prefixes of the corpus.
#
# Usage: bench/colour-bench.sh   (from the checkout; needs npm, universal-ctags and
# highlight: apt-get install -y universal-ctags highlight)
#
# The corpus is fetched with `npm pack sqlite3@6.0.1` (bench/corpus.sh) into
# $TESSARO_BENCH_CACHE (default ~/.cache/tessaro-bench), outside the repository.
set -eu

here=$(cd "$(dirname "$0")/.." && pwd)
build=${TESSARO_BENCH_BUILD:-$here/build-release}
runs=${TESSARO_BENCH_RUNS:-15}
. "$here/bench/corpus.sh"

cmake -S "$here" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTESSARO_BUILD_BENCH=ON \
    -DTESSARO_BUILD_TESTS=OFF >/dev/null
ninja -C "$build" -j2 bench_colourscan tessaro-cli tessaro_data >/dev/null
bin="$build/bin"

echo "== C scanner with word lookups (best of 5) =="
echo "-- sqlite3.c ($(wc -c < "$cache/sqlite3.c") bytes)"
"$bin/bench_colourscan" "$cache/sqlite3.c"
echo "-- 1 MiB slice"
"$bin/bench_colourscan" "$cache/slice.c"

# Median wall time in milliseconds of N runs of a command (output discarded):
# median_ms N COMMAND...
median_ms() {
    count=$1
    shift
    i=0
    : > "$cache/times"
    while [ $i -lt "$count" ]; do
        start=$(date +%s%N)
        "$@" > /dev/null 2>&1 || true
        end=$(date +%s%N)
        echo $(( (end - start) / 1000 )) >> "$cache/times"
        i=$((i + 1))
    done
    sort -n "$cache/times" | awk '{ t[NR] = $1 } END { printf "%.1f", t[int((NR + 1) / 2)] / 1000 }'
}

echo
echo "== Whole processes over the 1 MiB slice (median of $runs runs) =="
cli=$(median_ms "$runs" "$bin/tessaro-cli" colour "$cache/slice.c")
ctags_ms=$(median_ms "$runs" ctags -x --c-kinds=s "$cache/slice.c")
echo "tessaro-cli colour:         $cli ms ($("$bin/tessaro-cli" colour "$cache/slice.c" | wc -l) stretches)"
echo "ctags -x --c-kinds=s:       $ctags_ms ms"
if command -v highlight >/dev/null 2>&1; then
    highlight_ms=$(median_ms 3 highlight -S c -O rtf -i "$cache/slice.c")
    echo "highlight -S c -O rtf:      $highlight_ms ms"
    awk -v a="$cli" -v h="$highlight_ms" -v c="$ctags_ms" 'BEGIN {
        printf "tessaro-cli vs ctags: %.2fx the time; highlight / tessaro-cli: %.1fx\n", a / c, h / a }'
else
    echo "highlight is not installed (apt-get install -y highlight)"
fi

echo
echo "== Peak memory of tessaro-cli colour over growing prefixes =="
for size in 1 2 4 8; do
    head -c $((size * 1048576)) "$cache/sqlite3.c" > "$cache/prefix.c"
    kb=$(/usr/bin/time -f %M "$bin/tessaro-cli" colour "$cache/prefix.c" 2>&1 >/dev/null | tail -n 1)
    echo "$size MiB: $kb KiB"
done
rm -f "$cache/prefix.c" "$cache/times"
