#!/bin/sh
# Builds Tessaro with AddressSanitizer and UndefinedBehaviorSanitizer into its own folder
# (SANITIZE_BUILD_DIR, default build-sanitize/), runs every test with the sanitizers
# stopping at their first report, then the soak (tessaro-soak, SOAK_SECONDS seconds,
# default 300, seed SOAK_SEED, default the time). Exits 0 only when no test failed and
# no sanitizer report appeared; the last line it prints is the summary.
#
# Leak checking is off (Qt's and fontconfig's caches live to the end of the process);
# SANITIZE_LEAKS=1 turns it on with the suppressions in scripts/lsan.supp.
set -u
root=$(cd "$(dirname "$0")/.." && pwd)
build=${SANITIZE_BUILD_DIR:-$root/build-sanitize}
seconds=${SOAK_SECONDS:-300}
seed=${SOAK_SEED:-$(date +%s)}
log=$build/sanitize-logs
flags="-O1 -g -fno-omit-frame-pointer -fsanitize=address,undefined -fno-sanitize-recover=undefined"

"$root/scripts/install-deps.sh" || exit 1
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
    -DCMAKE_SHARED_LINKER_FLAGS="-fsanitize=address,undefined" >/dev/null || exit 1
cmake --build "$build" --parallel "$(nproc)" || exit 1

leaks=0
[ "${SANITIZE_LEAKS:-0}" = 1 ] && leaks=1
ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=$leaks:detect_stack_use_after_return=1:check_initialization_order=1"
UBSAN_OPTIONS="halt_on_error=1:abort_on_error=1:print_stacktrace=1"
LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp:print_suppressions=0"
export ASAN_OPTIONS UBSAN_OPTIONS LSAN_OPTIONS

rm -rf "$log"; mkdir -p "$log"
cd "$build" || exit 1
ctest --parallel "$(nproc)" --timeout 1200 --output-on-failure --output-log "$log/ctest.log" >"$log/ctest.out" 2>&1
tests=$?
tail -n 15 "$log/ctest.out"

workdir=$(mktemp -d "${TMPDIR:-/tmp}/tessaro-soak.XXXXXX")
QT_QPA_PLATFORM=offscreen "$build/bin/tessaro-soak" --seconds "$seconds" --seed "$seed" \
    --workdir "$workdir" >"$log/soak.out" 2>&1
soak=$?
tail -n 5 "$log/soak.out"
rm -rf "$workdir"

reports=$(cat "$log/ctest.log" "$log/soak.out" |
    grep -c -E "ERROR: (Address|Leak)Sanitizer|runtime error:|SUMMARY: (Address|UndefinedBehavior|Leak)Sanitizer")
failed=$(grep -c -E "^ *[0-9]+ - .*\((Failed|Subprocess aborted|SEGFAULT|Timeout|Exception|Child aborted)\)" "$log/ctest.out")
actions=$(sed -n 's/^\([0-9]*\) actions, seed .*/\1/p' "$log/soak.out" | tail -n 1)
if [ "$tests" -eq 0 ] && [ "$soak" -eq 0 ] && [ "$reports" -eq 0 ]; then
    echo "sanitize.sh: passed: every test and a ${seconds}-second soak (${actions:-0} actions, seed $seed), no sanitizer report"
    exit 0
fi
echo "sanitize.sh: FAILED: $failed failing tests, soak exit $soak (seed $seed), $reports sanitizer reports (logs in $log)"
exit 1
