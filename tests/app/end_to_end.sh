#!/usr/bin/env bash
# The main job in a real window, by keyboard: start, open a sample, see its figures in the status bar,
# export it, leave. end_to_end.sh PELLAM SAMPLE
set -euo pipefail
pellam=$1
sample=$2
. "$(dirname "$0")/real_window.sh"

window_titled() { xdotool search --onlyvisible --name "^$1\$"; }
no_window_titled() { ! window_titled "$1"; }

# Colours in the right part of the status bar, the size grip aside: one or two while it is empty.
status_colours() {
    local WIDTH HEIGHT WINDOW X Y SCREEN
    eval "$(xdotool getwindowgeometry --shell "$main")"
    import -silent -window "$main" \
        -crop "$((WIDTH / 2 - 30))x14+$((WIDTH / 2))+$((HEIGHT - 18))" +repage "$home/status.png"
    identify -format %k "$home/status.png"
}
status_is_empty() { [ "$(status_colours)" -le 3 ]; }
status_has_text() { [ "$(status_colours)" -ge 8 ]; }

mkdir "$home/out"
"$pellam" >"$home/pellam.log" 2>&1 &
window=$!
processes+=("$window")
until_true "the window" window_titled Pellam
until_true "the window's turn" active_window_titled Pellam
main=$(window_titled Pellam | tail -n 1)
until_true "an empty status bar" status_is_empty

# A key may come before the window takes keys, so it is given until it has worked.
press_until() {
    local key=$1 title=$2 tries
    for ((tries = 0; tries < 30; tries++)); do
        xdotool key --clearmodifiers "$key"
        for _ in {1..20}; do
            active_window_titled "$title" 2>/dev/null && return
            sleep 0.1
        done
    done
    fail "$key did not bring up '$title'"
}

press_until ctrl+o "Select Replay File"
xdotool type --delay 5 "$sample"
xdotool key Return
title="$(basename "$sample") - Pellam"
until_true "the loaded file's title" active_window_titled "$title"
until_true "figures in the status bar" status_has_text

press_until ctrl+e "Select Output File"
xdotool type --delay 5 "$home/out/window.csv"
xdotool key Return
until_true "the exported file" test -s "$home/out/window.csv"
until_true "the end of the export" no_window_titled "Select Output File"

"$pellam" --export "$home/out/batch.csv" "$sample" </dev/null
cmp "$home/out/window.csv" "$home/out/batch.csv" || fail "window and batch export differ"
lines=$(wc -l <"$home/out/window.csv")
[ "$lines" -gt 10 ] || fail "only $lines lines were exported"

xdotool key alt+f
xdotool key x
until_true "the end of the program" test ! -d "/proc/$window"
wait "$window" || fail "the program ended with status $?"
echo "opened $(basename "$sample") in a window and exported $lines lines"
