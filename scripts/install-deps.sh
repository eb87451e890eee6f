#!/bin/sh
# Installs the Debian 12 packages Tessaro needs to build, run and test, when missing.
set -e
# librsvg2-bin renders the icon at build time; universal-ctags runs in the test of
# data/game-names.sh; dpkg-dev (dpkg-shlibdeps), desktop-file-utils,
# appstream and man-db are used by the install and package test; xdotool types into the
# real program in the recovery process test. python3-markdown turns the manual's pages into
# HTML at build time (a small library, where pandoc would bring a large toolchain).
# libqscintilla2-qt6-dev is the editor box (Scintilla for Qt 6). weston and qt6-wayland run
# the program under a Wayland compositor in the Wayland process test.
packages="cmake ninja-build g++ qt6-base-dev qt6-base-dev-tools libgl-dev libqscintilla2-qt6-dev xvfb xauth xdotool fonts-dejavu-core weston qt6-wayland
          universal-ctags
          librsvg2-bin dpkg-dev desktop-file-utils appstream man-db python3-markdown"
missing=""
for p in $packages; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
[ -z "$missing" ] && exit 0
echo "Installing:$missing"
if [ "$(id -u)" -eq 0 ]; then sudo=""; else sudo="sudo"; fi
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends $missing
