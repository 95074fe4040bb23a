#!/usr/bin/env bash
# Runs browse_demo.exe once under Wine on a virtual screen (Xvfb), takes a screenshot of each
# dialog, closes each by a key press (xdotool) and prints the answers the program read back.
#
# usage: examples/browse_demo_shots.sh BROWSE_DEMO_EXE SHOTS_DIRECTORY
set -euo pipefail
demo=$(realpath "$1")
shots=$(mkdir -p "$2" && realpath "$2")
export WINEDEBUG=-all TZ=UTC DISPLAY=:57

start=$(mktemp -d /tmp/tessik-browse-XXXXXX)
mkdir "$start/photos" "$start/notes"
printf 'BM' >"$start/picture.bmp"

Xvfb "$DISPLAY" -screen 0 1024x768x24 >/dev/null 2>&1 &
xvfb=$!
trap 'kill $xvfb 2>/dev/null; rm -rf "$start"' EXIT
sleep 1

wine "$demo" "Z:${start//\//\\}" >"$shots/answers.txt" &
demoPid=$!

# Waits for the window titled $1, shows it for a moment, takes the whole screen as $2.
shoot() {
    local window
    window=$(xdotool search --sync --name "$1" | head -1)
    xdotool windowactivate --sync "$window" 2>/dev/null || xdotool windowfocus "$window" 2>/dev/null || true
    sleep 2
    import -window root "$shots/$2"
    echo "$2: window \"$(xdotool getwindowname "$window")\"" >&2
    echo "$window"
}

files=$(shoot 'tessik: choose files' file-dialog.png)
xdotool type --window "$files" 'picture.bmp' # a name in the start directory
xdotool key --window "$files" Return
sleep 1
dirs=$(shoot 'Browse for Folder' folder-dialog.png) # its own caption; the title shows inside
xdotool key --window "$dirs" Return # the folder selected at first
wait "$demoPid"
cat "$shots/answers.txt"
