#!/bin/sh
# Runs one fuzz target: ./fuzz/run.sh TARGET [SECONDS] (default 600).
# Build the targets first (see fuzz/CMakeLists.txt). The fuzzer starts from the
# committed seeds in fuzz/corpus/TARGET and keeps what it finds in
# build-fuzz/corpus/TARGET, so the committed corpus stays small; a crashing input
# lands in build-fuzz/artifacts/TARGET/ (copy it into fuzz/corpus/TARGET once the
# crash is fixed, so the replay test keeps it fixed). The last lines of the log
# give the number of runs.
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
target=${1:?usage: fuzz/run.sh TARGET [SECONDS]}
seconds=${2:-600}
build=${FUZZ_BUILD_DIR:-$root/build-fuzz}
work="$build/corpus/$target"
artifacts="$build/artifacts/$target"
mkdir -p "$work" "$artifacts"
"$build/bin/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -max_len=65536 -print_final_stats=1 -artifact_prefix="$artifacts/" \
    "$work" "$root/fuzz/corpus/$target"
