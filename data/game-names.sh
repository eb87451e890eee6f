#!/bin/sh
# The game's own names for the C word lists, taken from a game source tree with
# universal-ctags, and the names of that tree that differ only in letter case.
#
# Usage: data/game-names.sh [--lists LIST_DIR] NAMES_DIR [SOURCE...]
#
# With SOURCE folders or files, writes three files into NAMES_DIR, one name a line,
# sorted byte by byte, LF line ends:
#   types.txt         the type names (typedef) of the game's public and module headers
#   syscalls.txt      the engine calls (trap_...) that the sources declare or define
#   case-clashes.txt  groups of names used in the sources that differ only in letter
#                     case, one group a line (a name counts when ctags reports it or
#                     when it names the type of something ctags reports)
# Without SOURCE, reads those files from NAMES_DIR (as kept in data/game-api/).
# Prints the counts and every clash group.
#
# With --lists LIST_DIR, also rewrites the game's names in the word lists there: the
# comment lines after the line starting "; The game's type names" in tessaro.stx
# (the blue C list) and the lines from the first one starting "*trap_" to the end of
# C_Black.txt. A list matches without regard to case and gives what it matches its
# own spelling, so every name of a clash group is left out; list words written by
# hand that fall in a clash group are reported, and the status is then 3.
#
# POSIX sh, awk and sort; ctags only when SOURCE is given.
set -eu
export LC_ALL=C

usage() {
    echo "Usage: $0 [--lists LIST_DIR] NAMES_DIR [SOURCE...]" >&2
    exit 2
}

lists=""
if [ "${1:-}" = --lists ]; then
    [ $# -ge 2 ] || usage
    lists=$2
    shift 2
fi
[ $# -ge 1 ] || usage
names=$1
shift

# The headers whose type names a mod sees: shared, public and the modules' own.
headers="q_shared.h surfaceflags.h bg_public.h g_public.h cg_public.h ui_public.h tr_types.h
         keycodes.h g_local.h cg_local.h ui_local.h"

work=$(mktemp -d)
trap 'rm -rf "$work"; [ -z "$lists" ] || rm -f "$lists/tessaro.stx.new" "$lists/C_Black.txt.new"' EXIT

if [ $# -gt 0 ]; then
    if ! command -v ctags >/dev/null 2>&1; then
        echo "$0: needs universal-ctags (ctags)" >&2
        exit 2
    fi
    for source in "$@"; do
        [ -e "$source" ] || { echo "$0: no such file or folder: $source" >&2; exit 2; }
    done
    mkdir -p "$names"
    # One tag a line: name, file, line, kind, and the type it has when it has one.
    ctags -R --languages=C --langmap=C:.c.h --kinds-C=+lzLDpx --fields=Kt --excmd=number \
        --sort=no -f - "$@" >"$work/tags"
    awk -F '\t' -v headers="$headers" '
        BEGIN { n = split(headers, h, /[ \n]+/); for (i = 1; i <= n; i++) public[h[i]] = 1 }
        $4 == "typedef" { file = $2; sub(/.*\//, "", file); if (file in public) print $1 }
    ' "$work/tags" | sort -u >"$names/types.txt"
    awk -F '\t' '($4 == "function" || $4 == "prototype") && $1 ~ /^trap_/ { print $1 }' \
        "$work/tags" | sort -u >"$names/syscalls.txt"
    # Every name a tag gives, and every identifier of the type it has ("FILE" of
    # "typeref:typename:FILE *"), grouped by its lower-case form.
    awk -F '\t' '
        { print $1 }
        NF >= 5 && sub(/^typeref:[a-z]*:/, "", $5) {
            n = split($5, word, /[^A-Za-z0-9_]+/)
            for (i = 1; i <= n; i++) if (word[i] ~ /^[A-Za-z_]/) print word[i]
        }
    ' "$work/tags" | sort -u | awk '
        { key = tolower($0); group[key] = group[key] " " $0; count[key]++ }
        END { for (key in group) if (count[key] > 1) print substr(group[key], 2) }
    ' | sort >"$names/case-clashes.txt"
fi

for file in types.txt syscalls.txt case-clashes.txt; do
    [ -f "$names/$file" ] || { echo "$0: $names/$file is missing" >&2; exit 2; }
done
echo "$(wc -l <"$names/types.txt" | tr -d ' ') type names," \
    "$(wc -l <"$names/syscalls.txt" | tr -d ' ') engine calls," \
    "$(wc -l <"$names/case-clashes.txt" | tr -d ' ') case clash groups"
sed 's/^/case clash: /' "$names/case-clashes.txt"
[ -n "$lists" ] || exit 0

for file in tessaro.stx C_Black.txt; do
    [ -f "$lists/$file" ] || { echo "$0: $lists/$file is missing" >&2; exit 2; }
done

# The names of a file that no clash group holds, in any spelling.
unclashed() {
    awk 'FILENAME == ARGV[1] { for (i = 1; i <= NF; i++) clash[tolower($i)] = 1; next }
         !(tolower($0) in clash)' "$names/case-clashes.txt" "$1"
}
unclashed "$names/types.txt" >"$work/types"
unclashed "$names/syscalls.txt" >"$work/calls"

# Prints a list file (as CR LF lines) with new names in the game's block: keeps the
# lines before the block, writes the names as asterisk-delimited lines of at most about
# 100 characters, each led by PREFIX, and keeps what follows the block. The block starts
# after the line starting with MARKER (or, with no MARKER, at the first line starting
# with START, or at the end) and runs while lines start with START.
rewritten() { # FILE NAMES PREFIX MARKER START
    awk -v prefix="$3" -v marker="$4" -v start="$5" '
        function emit(   line, i) {
            line = ""
            for (i = 1; i <= n; i++) {
                if (line != "" && length(line) + length(name[i]) > 100) {
                    printf "%s%s*\r\n", prefix, line
                    line = ""
                }
                line = line "*" name[i]
            }
            if (line != "") printf "%s%s*\r\n", prefix, line
            done = 1
        }
        FILENAME == ARGV[1] { name[++n] = $0; next }
        { sub(/\r$/, "") }
        inblock && index($0, start) == 1 { next }
        { inblock = 0 }
        !done && marker == "" && index($0, start) == 1 { emit(); inblock = 1; next }
        { printf "%s\r\n", $0 }
        !done && marker != "" && index($0, marker) == 1 { emit(); inblock = 1 }
        END {
            if (!done && marker != "") { print "no line starts with \"" marker "\"" >"/dev/stderr"; exit 1 }
            if (!done) emit()
        }
    ' "$2" "$1"
}
rewritten "$lists/tessaro.stx" "$work/types" "; " "; The game's type names" "; *" >"$work/stx"
rewritten "$lists/C_Black.txt" "$work/calls" "" "" "*trap_" >"$work/black"
# Both lists change, or (a full disk, a folder that cannot be written) neither does.
cp "$work/stx" "$lists/tessaro.stx.new"
cp "$work/black" "$lists/C_Black.txt.new"
mv "$lists/tessaro.stx.new" "$lists/tessaro.stx"
mv "$lists/C_Black.txt.new" "$lists/C_Black.txt"

# List words written by hand that a clash group holds in another spelling.
status=0
for file in tessaro.stx C_Black.txt; do
    awk -v file="$file" '
        FILENAME == ARGV[1] { for (i = 1; i <= NF; i++) group[tolower($i)] = $0; next }
        {
            n = split($0, word, "*")
            for (i = 2; i < n; i++)
                if (tolower(word[i]) in group)
                    print file ": \"" word[i] "\" is in the case clash group: " group[tolower(word[i])]
        }
    ' "$names/case-clashes.txt" "$lists/$file" >>"$work/clashing"
done
if [ -s "$work/clashing" ]; then
    cat "$work/clashing"
    status=3
fi
echo "$(wc -l <"$work/types" | tr -d ' ') type names in tessaro.stx," \
    "$(wc -l <"$work/calls" | tr -d ' ') engine calls in C_Black.txt"
exit $status
