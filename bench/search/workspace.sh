# Sourced by the benchmarks: writes into the folder $work the search benchmark's
# workspace, 265 C headers of 12-64 KB from /usr/include (every fifth, in a fixed
# order; 51 files in each searched group and 61 headers, about 7 MB): the list of
# paths in $work/files and the workspace file $work/mod.tdi.
find /usr/include -name '*.h' -size +12k -size -64k -type f | LC_ALL=C sort |
    awk 'NR % 5 == 0' | head -265 >"$work/files"
[ "$(wc -l <"$work/files")" -eq 265 ] || { echo "not enough headers in /usr/include" >&2; exit 1; }
awk '{ tag = NR <= 51 ? "GAME=" : NR <= 102 ? "CAME=" : NR <= 153 ? "USER=" : NR <= 204 ? "SOUR=" : "HEAD=";
       printf "%s%s\r\n", tag, $0 } END { printf "\r\n" }' "$work/files" >"$work/mod.tdi"
