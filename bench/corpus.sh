# Sourced by the benchmarks: makes sure the SQLite amalgamation (sqlite3.c, about
# 9 MB, from the npm package sqlite3 6.0.1) and its first 1 MiB (slice.c) are in
# $cache, the folder given by $TESSARO_BENCH_CACHE (default ~/.cache/tessaro-bench),
# outside the repository; they are never committed.
cache=${TESSARO_BENCH_CACHE:-$HOME/.cache/tessaro-bench}
mkdir -p "$cache"
if [ ! -f "$cache/sqlite3.c" ]; then
    echo "Fetching the SQLite amalgamation into $cache ..."
    (cd "$cache" && rm -rf npm && mkdir npm && cd npm && npm pack sqlite3@6.0.1 >/dev/null 2>&1 &&
        tar xzf sqlite3-*.tgz &&
        inner=$(ls package/deps/*.tar.gz | head -n 1) && tar xzf "$inner" &&
        cp "$(find . -name sqlite3.c | head -n 1)" "$cache/sqlite3.c")
fi
[ -f "$cache/slice.c" ] || head -c 1048576 "$cache/sqlite3.c" > "$cache/slice.c"
