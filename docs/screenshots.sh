#!/bin/sh
# Takes every picture of the README and of the manual in one run: starts the real
# Tessaro on a virtual X display with a window manager, as a modder whose sample mod
# lies in ~/mods/samplemod, and writes into docs/images/ (or OUTPUT-FOLDER):
#   main.png          the main window with the workspace and a coloured document
#   structview.png    the StructView page of the left pane
#   filebrowser.png   the File Browser page in the mod's game folder
#   properties.png    the build properties window (File > Properties)
#   options.png       the tool paths (Tools > Options)
#   wizard.png        the publishing wizard's first step
#   findinfiles.png   a Find in Files result in the output window
#   recover.png       the recovery dialog after a killed session
#   runtime-error.png the message of a build that finds no terminal
#   main-dark.png     the main window under a dark colour scheme (qt6ct)
# Tessaro runs with a private home, so the user's own settings are never touched. Where
# the system allows a private mount namespace (unshare), that home is /home/modder, so
# the pictures show the paths a modder would see; elsewhere it is a temporary folder.
# Needs Xvfb, openbox, xdotool and ImageMagick (Debian: xvfb openbox xdotool x11-utils
# imagemagick); builds first when build/bin/tessaro is missing (BUILD_DIR as for
# scripts/build.sh). Rebuild afterwards so the manual beside the programs takes the
# new pictures.
# Usage: docs/screenshots.sh [OUTPUT-FOLDER]
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
out=$(mkdir -p "${1:-$root/docs/images}" && cd "${1:-$root/docs/images}" && pwd)

for tool in Xvfb openbox xdotool xprop import convert; do
    if ! command -v "$tool" >/dev/null 2>&1; then
        echo "screenshots.sh: $tool is missing (apt-get install xvfb openbox xdotool x11-utils imagemagick)" >&2
        exit 1
    fi
done
[ -x "$build/bin/tessaro" ] || "$root/scripts/build.sh"

# Once: run again in a mount namespace of its own, where /home/modder can be made
# without touching the real /home (a user namespace maps a normal user to root there).
if [ -z "$TESSARO_SHOTS_NAMESPACE" ]; then
    if [ "$(id -u)" -eq 0 ]; then unshare="unshare --mount"; else unshare="unshare --user --map-root-user --mount"; fi
    if $unshare true 2>/dev/null; then
        TESSARO_SHOTS_NAMESPACE=1 exec $unshare "$0" "$out"
    fi
fi

tmp=$(mktemp -d)
pids=""
cleanup() {
    for pid in $pids; do kill "$pid" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$tmp"
}
trap cleanup EXIT INT TERM

# The modder's home: /home/modder on an empty /home of this namespace's own, when
# nothing the script needs lies below the real /home; else a folder of the temporary one.
# Nothing of the real /home is ever reachable below $tmp, which goes at the end.
home="$tmp/home/modder"
if [ -n "$TESSARO_SHOTS_NAMESPACE" ]; then
    case "$root/:$build/:$out/:$tmp/" in
    /home/* | */:/home/*) ;;
    *) mount -t tmpfs -o mode=755 tmpfs /home 2>/dev/null && home=/home/modder ;;
    esac
fi
mkdir -p "$home/mods" "$tmp/runtime"
chmod 700 "$tmp/runtime"
cp -r "$root/examples/samplemod" "$home/mods/samplemod"
rm -f "$home/mods/samplemod/samplemod.tdi"
mod="$home/mods/samplemod"
workspace=$("$root/examples/write-workspace.sh" "$mod")

export HOME="$home" XDG_CONFIG_HOME="$home/.config" XDG_DATA_HOME="$home/.local/share" \
    XDG_CACHE_HOME="$home/.cache" XDG_STATE_HOME="$home/.local/state" \
    XDG_RUNTIME_DIR="$tmp/runtime" XDG_CONFIG_DIRS="$tmp/etc-xdg" TESSARO_EVENT_LOG="$tmp/events"
unset QT_QPA_PLATFORM WAYLAND_DISPLAY TESSARO_HEADLESS_MSGBOX TESSARO_TERMINAL

# The window at 10,10 pixels, 1100 x 780 (in twips, 15 to a pixel at 96 DPI), the game's
# tools where the manual suggests them, and the wizard's web browser.
mkdir -p "$XDG_CONFIG_HOME/Tessaro"
cat >"$XDG_CONFIG_HOME/Tessaro/Tessaro.ini" <<'EOF'
[Settings]
MainLeft=150
MainTop=150
MainWidth=16500
MainHeight=11700
webPath=firefox
ftpPath=filezilla
emaPath=thunderbird
comPath=/opt/quake3/tools/q3lcc
asmPath=/opt/quake3/tools/q3asm
EOF

# Waits until the command succeeds (at most about 20 s).
wait_for() {
    tries=0
    until "$@" >/dev/null 2>&1; do
        tries=$((tries + 1))
        if [ $tries -gt 200 ]; then
            echo "screenshots.sh: gave up waiting for: $*" >&2
            exit 1
        fi
        sleep 0.1
    done
}
logged() { grep -q " $1\$" "$TESSARO_EVENT_LOG"; }
display_named() { [ -s "$tmp/display" ]; }

# A free display of its own (-displayfd), 96 DPI, and openbox on it.
Xvfb -displayfd 3 -screen 0 1280x900x24 -dpi 96 -nolisten tcp 3>"$tmp/display" 2>"$tmp/xvfb.log" &
pids="$!"
wait_for display_named
export DISPLAY=":$(cat "$tmp/display")"
openbox >"$tmp/openbox.log" 2>&1 &
pids="$! $pids"
wait_for xprop -root _NET_SUPPORTING_WM_CHECK

# Writes a picture of the window with its frame.
shoot() {
    sleep 1
    import -window "$1" -frame "$out/$2"
    echo "$out/$2"
}

# Starts Tessaro from the mod's folder (with the file given) and waits for its window.
start_tessaro() {
    rm -f "$TESSARO_EVENT_LOG"
    (cd "$mod" && exec "$build/bin/tessaro" "$@") >>"$tmp/tessaro.log" 2>&1 &
    tessaro=$!
    pids="$tessaro $pids"
    wait_for logged loaded
    main=$(xdotool search --sync --onlyvisible --name '^Tessaro v' | head -n 1)
    xdotool windowactivate --sync "$main"
    eval "$(xdotool getwindowgeometry --shell "$main")"
}

# Alt+letter opens a menu; the keys that follow choose in it.
menu() {
    xdotool windowactivate --sync "$main"
    xdotool key --clearmodifiers "alt+$1"
    sleep 0.3
    shift
    xdotool key "$@"
}

# File > Open Workspace..., the workspace's path typed into the file dialog.
open_workspace() {
    menu f Down Down Down Down Return
    wait_for xdotool search --onlyvisible --name '^Open Workspace$'
    sleep 0.5
    xdotool type --delay 5 "$workspace"
    xdotool key Return
    sleep 2
}

# A click into the left pane's page gives the pane the focus.
click_pane() { xdotool mousemove --window "$main" 40 $((HEIGHT * 2 / 3)) click 1; }

start_tessaro "$mod/game/g_main.c"
open_workspace
# The FileView tree: the game group opens. Window > Tile Horizontal: the document fills
# the document area.
click_pane
xdotool key Home Right
menu w h
shoot "$main" main.png

# The StructView page (Ctrl+Tab from the pane), the headers' structures opened.
xdotool key ctrl+Tab
sleep 0.5
click_pane
xdotool key Home End Up asterisk
shoot "$main" structview.png

# The File Browser page, moved to the mod's game folder by double-clicks on the folder
# list: its rows are the path's folders from "/" down, then the current folder's
# folders, 18 pixels each, the first one's middle 126 pixels below the window's top
# (a single click there selects without opening).
# A click that missed would open a file; the event log tells, and the picture is then
# not taken.
xdotool key ctrl+Tab
sleep 0.5
# Home first: the list scrolls to its top, where the rows are counted from.
row() {
    xdotool mousemove --window "$main" 60 126 click 1 key Home
    sleep 0.3
    xdotool mousemove --window "$main" 60 $((126 + 18 * $1)) click --repeat 2 --delay 80 1
    sleep 0.5
}
opened=$(grep -c " opening " "$TESSARO_EVENT_LOG" || true)
if [ "$home" = /home/modder ]; then
    row "$(for folder in /*/; do basename "$folder"; done | sort -f | grep -n -x home | cut -d: -f1)"
    # This /home is a file system of its own, so its folder list starts at /home.
    row 1 # modder, alone in this /home
    row 2 # mods
    row 3 # samplemod
    row 5 # game (after cgame)
fi
if [ "$(grep -c " opening " "$TESSARO_EVENT_LOG" || true)" != "$opened" ]; then
    echo "screenshots.sh: the File Browser's folder list is not where it was; no filebrowser.png" >&2
    exit 1
fi
shoot "$main" filebrowser.png

# File > Properties.
menu f i
properties=$(xdotool search --sync --onlyvisible --name '^Properties$' | head -n 1)
shoot "$properties" properties.png
xdotool key Escape

# Tools > Options.
menu t o
options=$(xdotool search --sync --onlyvisible --name '^Options$' | head -n 1)
shoot "$options" options.png
xdotool key Escape

# Build > Publish Mod..., then Next > to the first step (the web browser's page).
menu b p
wizard=$(xdotool search --sync --onlyvisible --name '^Mod Publishing Wizard$' | head -n 1)
xdotool windowactivate --sync "$wizard"
sleep 0.5
xdotool key Return
sleep 1
wizard=$(xdotool search --sync --onlyvisible --name '^Mod Publishing Wizard$' | head -n 1)
shoot "$wizard" wizard.png
xdotool windowclose "$wizard"

# Edit > Find in Files... for "trap_": the window opens with the focus on its Find in Files
# button; two Tabs lead to the text box, one more back to the button.
menu e Down Down Down Down Down Return
sleep 1
xdotool key Tab Tab
xdotool type --delay 5 "trap_"
xdotool key Tab space
sleep 2
# The document and the search's output window one above the other.
menu w h
shoot "$main" findinfiles.png

# Unsaved typing, then the program killed: the next start offers it back.
xdotool key --clearmodifiers ctrl+n
sleep 1
xdotool type --delay 20 "float G_Damage(int amount); /* to do */"
sleep 3
kill -9 "$tessaro"
wait "$tessaro" 2>/dev/null || true
start_tessaro
recover=$(xdotool search --sync --onlyvisible --name 'Recover Unsaved Work$' | head -n 1)
shoot "$recover" recover.png
xdotool windowactivate --sync "$recover"
xdotool key alt+d
sleep 1

# A build whose terminal cannot be started ends the program with its message.
kill "$tessaro"
wait "$tessaro" 2>/dev/null || true
export TESSARO_TERMINAL="$tmp/no-such-terminal -e"
start_tessaro
open_workspace
menu b Return g
box=$(xdotool search --sync --onlyvisible --name '^Tessaro$' | head -n 1)
shoot "$box" runtime-error.png
xdotool windowactivate --sync "$box"
xdotool key Return
wait "$tessaro" 2>/dev/null || true

# The main window under a dark colour scheme given through qt6ct, as many desktops give
# Qt programs theirs: the document keeps its readable colours on a light background.
# Skipped where qt6ct is not installed.
if [ -f /usr/share/qt6ct/colors/darker.conf ]; then
    unset TESSARO_TERMINAL
    mkdir -p "$XDG_CONFIG_HOME/qt6ct"
    cat >"$XDG_CONFIG_HOME/qt6ct/qt6ct.conf" <<'QT6CT'
[Appearance]
color_scheme_path=/usr/share/qt6ct/colors/darker.conf
custom_palette=true
style=Fusion
QT6CT
    export QT_QPA_PLATFORMTHEME=qt6ct
    start_tessaro "$mod/game/g_main.c"
    open_workspace
    click_pane
    xdotool key Home Right
    menu w h
    shoot "$main" main-dark.png
    kill "$tessaro"
    wait "$tessaro" 2>/dev/null || true
else
    echo "screenshots.sh: qt6ct is missing, no main-dark.png (apt-get install qt6ct)" >&2
fi
