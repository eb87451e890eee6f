#!/bin/sh
# Starts the real Tessaro on a virtual X display with a window manager, opens the sample
# mod's workspace and g_main.c, and writes the README's pictures into docs/images/:
#   main.png        the main window with the workspace and a coloured document
#   structview.png  the StructView page of the left pane
#   properties.png  the build properties window (File > Properties)
#   findinfiles.png a Find in Files result in the output pane
# Tessaro runs with a private home, so the user's own settings are never touched.
# Needs Xvfb, openbox, xdotool and ImageMagick (Debian: xvfb openbox xdotool imagemagick);
# builds first when build/bin/tessaro is missing (BUILD_DIR as for scripts/build.sh).
# Usage: docs/screenshots.sh [OUTPUT-FOLDER]
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
out=${1:-$root/docs/images}

for tool in Xvfb openbox xdotool xprop import convert; do
    if ! command -v "$tool" >/dev/null 2>&1; then
        echo "screenshots.sh: $tool is missing (apt-get install xvfb openbox xdotool x11-utils imagemagick)" >&2
        exit 1
    fi
done
[ -x "$build/bin/tessaro" ] || "$root/scripts/build.sh"
workspace=$("$root/examples/write-workspace.sh")
mkdir -p "$out"

tmp=$(mktemp -d)
pids=""
cleanup() {
    for pid in $pids; do kill "$pid" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$tmp"
}
trap cleanup EXIT INT TERM

# A private account: settings, registry, desktop association and runtime folder.
for sub in config data cache state runtime etc-xdg; do mkdir -p "$tmp/$sub"; done
chmod 700 "$tmp/runtime"
export HOME="$tmp" XDG_CONFIG_HOME="$tmp/config" XDG_DATA_HOME="$tmp/data" \
    XDG_CACHE_HOME="$tmp/cache" XDG_STATE_HOME="$tmp/state" XDG_RUNTIME_DIR="$tmp/runtime" \
    XDG_CONFIG_DIRS="$tmp/etc-xdg" TESSARO_EVENT_LOG="$tmp/events"
unset QT_QPA_PLATFORM WAYLAND_DISPLAY TESSARO_HEADLESS_MSGBOX

# The window at 10,10 pixels, 1100 x 780 (in twips, 15 to a pixel at 96 DPI), and the
# game's tools where the README suggests them.
mkdir -p "$XDG_CONFIG_HOME/Tessaro"
cat >"$XDG_CONFIG_HOME/Tessaro/Tessaro.ini" <<'EOF'
[Settings]
MainLeft=150
MainTop=150
MainWidth=16500
MainHeight=11700
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

cd "$root/examples/samplemod"
"$build/bin/tessaro" "$root/examples/samplemod/game/g_main.c" >"$tmp/tessaro.log" 2>&1 &
pids="$! $pids"
wait_for logged loaded
wait_for logged painted
main=$(xdotool search --onlyvisible --name '^Tessaro v' | head -n 1)
xdotool windowactivate --sync "$main"

# File > Open Workspace..., the sample mod's workspace typed into the file dialog.
xdotool key --clearmodifiers alt+f
sleep 0.3
xdotool key Down Down Down Down Return
wait_for xdotool search --onlyvisible --name '^Open Workspace$'
sleep 0.5
xdotool type --delay 5 "$workspace"
xdotool key Return
sleep 2
# The FileView tree: a click below its entries gives it the focus; the game group opens.
eval "$(xdotool getwindowgeometry --shell "$main")"
xdotool mousemove --window "$main" 40 $((HEIGHT * 2 / 3)) click 1
xdotool key Home Right
# Window > Tile Horizontal: the document fills the document area.
xdotool key --clearmodifiers alt+w
sleep 0.3
xdotool key h
shoot "$main" main.png

# The StructView page (Ctrl+Tab from the pane), the headers' structures opened.
xdotool key ctrl+Tab
sleep 0.5
xdotool mousemove --window "$main" 40 $((HEIGHT * 2 / 3)) click 1
xdotool key Home End Up asterisk
shoot "$main" structview.png

# File > Properties.
xdotool windowactivate --sync "$main"
xdotool key --clearmodifiers alt+f
sleep 0.3
xdotool key i
properties=$(xdotool search --sync --onlyvisible --name '^Properties$' | head -n 1)
shoot "$properties" properties.png
xdotool key Escape

# Edit > Find in Files... for "trap_": the window opens with the focus on its Find in Files
# button; two Tabs lead to the text box, one more back to the button.
xdotool windowactivate --sync "$main"
xdotool key --clearmodifiers alt+e
sleep 0.3
xdotool key Down Down Down Down Down Return
sleep 1
xdotool key Tab Tab
xdotool type --delay 5 "trap_"
xdotool key Tab space
sleep 2
# The document and the search's output window one above the other.
xdotool key --clearmodifiers alt+w
sleep 0.3
xdotool key h
shoot "$main" findinfiles.png
