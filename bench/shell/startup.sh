#!/bin/sh
# Start-up benchmark: how long after the splash's one-second timer the main window
# is first painted, and how much memory the program holds at idle.
#
#   bench/shell/startup.sh [runs]        (default 5 runs)
#
# Builds a Release tree in build-release/ (BUILD_DIR overrides) with the benchmarks
# on, then starts the real program once on a clean account (the first start writes
# the file associations) and `runs` more times on the same account, each with the
# sample mod's g_main.c open, under Xvfb when it is installed (else Qt's offscreen
# platform). The program's event log (TESSARO_EVENT_LOG) gives the times: "painted"
# minus "splash timer". Memory is VmRSS and Pss of the process two seconds after its
# start-up finished. Every run uses private XDG folders in a temporary directory.
set -e
root=$(cd "$(dirname "$0")/../.." && pwd)
build=${BUILD_DIR:-$root/build-release}
runs=${1:-5}
if [ -z "$SKIP_BUILD" ] || [ ! -x "$build/bin/tessaro" ]; then
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTESSARO_BUILD_BENCH=ON \
        -DTESSARO_BUILD_TESTS=OFF >/dev/null
    cmake --build "$build" --target tessaro >/dev/null
fi
"$root/examples/write-workspace.sh" >/dev/null

# Everything runs inside one X server when Xvfb is there.
if command -v xvfb-run >/dev/null 2>&1 && [ -z "$BENCH_OFFSCREEN" ] && [ -z "$BENCH_INNER" ]; then
    BENCH_INNER=1 SKIP_BUILD=1 BUILD_DIR="$build" exec xvfb-run -a -s "-screen 0 1280x1024x24" \
        sh "$0" "$runs"
fi
account=$(mktemp -d)
trap 'rm -rf "$account"' EXIT
mkdir -p "$account/config" "$account/data" "$account/cache" "$account/runtime" "$account/etc-xdg"
chmod 700 "$account/runtime"
export HOME="$account" XDG_CONFIG_HOME="$account/config" XDG_DATA_HOME="$account/data" \
    XDG_CACHE_HOME="$account/cache" XDG_RUNTIME_DIR="$account/runtime" \
    XDG_CONFIG_DIRS="$account/etc-xdg" TESSARO_HEADLESS_MSGBOX=1

if [ -n "$BENCH_INNER" ]; then
    platform="xcb (Xvfb)"
else
    platform="offscreen"
    export QT_QPA_PLATFORM=offscreen
fi

# One run: prints "<ms from splash timer to first paint> <VmRSS kB> <Pss kB>".
run_once() {
    log="$account/events"
    rm -f "$log"
    TESSARO_EVENT_LOG="$log" "$build/bin/tessaro" "$root/examples/samplemod/game/g_main.c" \
        2>/dev/null &
    pid=$!
    i=0
    while ! grep -q ' loaded$' "$log" 2>/dev/null; do
        i=$((i + 1))
        [ $i -gt 600 ] && { kill "$pid"; echo "no start-up" >&2; exit 1; }
        sleep 0.05
    done
    sleep 2
    rss=$(awk '/^VmRSS:/ {print $2}' "/proc/$pid/status")
    pss=$(awk '/^Pss:/ {print $2}' "/proc/$pid/smaps_rollup" 2>/dev/null || echo 0)
    kill -TERM "$pid"
    wait "$pid" || true
    awk -v rss="$rss" -v pss="$pss" '
        $2 == "splash" && $3 == "timer" { tick = $1 }
        $2 == "painted" { paint = $1 }
        END { printf "%.1f %d %d\n", paint - tick, rss, pss }' "$log"
}

echo "platform: $platform; build: $build"
first=$(run_once)
echo "first start on a clean account: paint $(echo "$first" | cut -d' ' -f1) ms after the splash's second, RSS $(( $(echo "$first" | cut -d' ' -f2) / 1024 )) MiB"
results=""
n=0
while [ $n -lt "$runs" ]; do
    r=$(run_once)
    echo "start $((n + 1)): paint $(echo "$r" | cut -d' ' -f1) ms, VmRSS $(echo "$r" | cut -d' ' -f2) kB, Pss $(echo "$r" | cut -d' ' -f3) kB"
    results="$results$r
"
    n=$((n + 1))
done
printf '%s' "$results" | sort -n | awk -v runs="$runs" '
    { ms[NR] = $1; rss[NR] = $2; pss[NR] = $3; if ($2 > maxrss) maxrss = $2; if ($3 > maxpss) maxpss = $3 }
    END {
        printf "median paint after the splash second: %.1f ms (limit 150 ms); worst %.1f ms\n", ms[int((NR + 1) / 2)], ms[NR]
        printf "idle memory: VmRSS up to %.1f MiB, Pss up to %.1f MiB (limit 60 MiB)\n", maxrss / 1024, maxpss / 1024
    }'
