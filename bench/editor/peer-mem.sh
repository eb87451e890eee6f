#!/usr/bin/env bash
# Memory of an editor with a file open, side by side with other editors: starts
# CMD FILE on its own Xvfb display with a private home, waits until its screen stops
# changing (the text shown and coloured, as ../shared/bench/peer-open.sh decides),
# then prints the process's resident memory (VmRSS) and its peak (VmHWM) in MiB.
#
# Usage: bench/editor/peer-mem.sh FILE CMD...   e.g.
#   bench/editor/peer-mem.sh ~/.cache/tessaro-bench/sqlite3.c build-release/bin/tessaro
#   bench/editor/peer-mem.sh ~/.cache/tessaro-bench/sqlite3.c geany -i
set -u
file=$1; shift
disp=:$((80 + RANDOM % 9))
t=$(mktemp -d "${TMPDIR:-/tmp}/peer-mem.XXXXXX"); mkdir -p "$t/cfg" "$t/data" "$t/run" "$t/sys"; chmod 700 "$t/run"
Xvfb "$disp" -screen 0 1280x900x24 >/dev/null 2>&1 & xpid=$!
sleep 0.7
unset QT_QPA_PLATFORM
export DISPLAY=$disp HOME=$t XDG_CONFIG_HOME=$t/cfg XDG_DATA_HOME=$t/data XDG_RUNTIME_DIR=$t/run XDG_CONFIG_DIRS=$t/sys
import -window root "$t/p.png" 2>/dev/null
"$@" "$file" >/dev/null 2>&1 & apid=$!
n=0; quiet=0
while [ $n -lt 400 ]; do
  n=$((n+1)); sleep 0.03
  import -window root "$t/c.png" 2>/dev/null
  d=$(compare -metric AE "$t/p.png" "$t/c.png" null: 2>&1 | cut -d' ' -f1); d=$(printf "%.0f" "$d" 2>/dev/null || echo 0)
  if [ "${d:-0}" -gt 400 ]; then quiet=0; else quiet=$((quiet+1)); fi
  mv "$t/c.png" "$t/p.png"
  [ $quiet -ge 15 ] && break
done
awk '/VmRSS|VmHWM/{printf "%s %.1f MiB  ", $1, $2/1024}' "/proc/$apid/status"; echo
kill $apid 2>/dev/null; sleep 0.3; kill -9 $apid 2>/dev/null; kill $xpid 2>/dev/null
rm -rf "$t"
