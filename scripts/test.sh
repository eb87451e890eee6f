#!/bin/sh
# Installs what is missing, builds and runs the whole test suite (no display needed).
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/install-deps.sh"
"$root/scripts/build.sh"
cd "${BUILD_DIR:-$root/build}"
ctest --output-on-failure --parallel "$(nproc)" --timeout 600
