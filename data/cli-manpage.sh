#!/bin/sh
# Writes the manual page tessaro-cli(1) into OUTPUT, made from the program's own --help
# and --version texts, so the page always describes the tessaro-cli it was built with.
# A command whose "tessaro-cli COMMAND --help" ends with status 0 gets that text in a
# section of its own.
# Usage: cli-manpage.sh TESSARO-CLI OUTPUT
set -e
cli=$1
output=$2
version=$("$cli" --version | sed -n '1s/^tessaro-cli //p')
help=$("$cli" --help)

# Text for troff: backslashes become \e, a leading "." or "'" is protected, "-" is a minus.
escape() {
    sed -e 's/\\/\\e/g' -e "s/^\\([.']\\)/\\\\\\&\\1/" -e 's/-/\\-/g'
}

# The lines of the help's list (after "Commands:"), split into the entries that name a
# command (two blanks, then the name) with their continuation lines, and the options.
list() { printf '%s\n' "$help" | sed '1,/^Commands:/d'; }
commands() { list | grep -v '^  -'; }
options() { list | grep '^  -'; }

# One entry "  SYNOPSIS  TEXT" as a tagged paragraph; a deeper-indented line continues
# the text of the entry before it.
tagged() {
    prefix=$1
    while IFS= read -r line; do
        case $line in
        "   "*) printf '%s\n' "$line" | sed 's/^ *//' | escape ;;
        "  "*)
            entry=${line#  }
            echo ".TP"
            printf '%s%s\n' "$prefix" "$entry" | sed 's/   *.*//' | escape | sed 's/^/.B /'
            printf '%s\n' "$entry" | sed -n 's/^[^ ].*[^ ]   *\([^ ].*\)$/\1/p' | escape
            ;;
        esac
    done
}

page() {
    cat <<HEAD
.TH TESSARO\\-CLI 1 "" "Tessaro $version" "User Commands"
.SH NAME
tessaro\\-cli \\- the Tessaro IDE's work on files and workspaces, from a terminal
.SH SYNOPSIS
.B tessaro\\-cli
.I COMMAND
.RI [ ARGUMENTS ...]
.br
.B tessaro\\-cli
.B \\-\\-help
.br
.B tessaro\\-cli
.B \\-\\-version
.SH DESCRIPTION
HEAD
    # The lines between the usage line and the list.
    printf '%s\n' "$help" | sed -n '2,/^Commands:/p' | sed -e '/^Commands:/d' -e '/^$/d' | escape

    echo ".SH COMMANDS"
    commands | tagged "tessaro-cli "
    for name in $(commands | sed -n 's/^  \([a-z][a-z0-9-]*\).*/\1/p' | uniq); do
        if detail=$("$cli" "$name" --help 2>/dev/null) && [ -n "$detail" ]; then
            printf '.SS "tessaro\\-cli %s"\n.nf\n' "$(printf '%s' "$name" | escape)"
            printf '%s\n' "$detail" | escape
            echo ".fi"
        fi
    done

    echo ".SH OPTIONS"
    options | tagged ""

    cat <<'TAIL'
.SH FILES
.TP
.I $XDG_CONFIG_HOME/Tessaro/Tessaro.ini
The settings the IDE keeps, read by
.B build
(its
.B \-\-set
options override them for one run).
.SH SEE ALSO
.BR tessaro (1)
TAIL
}

# Written aside and moved in place, so a failed run leaves no half page.
page >"$output.tmp"
mv "$output.tmp" "$output"
