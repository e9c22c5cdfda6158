#!/usr/bin/env bash
# The chart's copy in a real window, pasted by another program through the X clipboard.
# chart_clipboard.sh PELLAM SAMPLE
set -euo pipefail
pellam=$1
sample=$2
. "$(dirname "$0")/real_window.sh"

clipboard() { timeout 20 xclip -selection clipboard -o -t "$1"; }
clipboard_has() { clipboard TARGETS | grep -qx "$1"; }

"$pellam" "$sample" >"$home/pellam.log" 2>&1 &
processes+=($!)
until_true "the loaded file" active_window_titled "$(basename "$sample") - Pellam"

# A key may come before the window takes keys, so both are given until they have worked: to the
# chart's page (its second key leads back to the grid, where nothing is copied as an image), and copy.
copy_chart() {
    xdotool key --clearmodifiers ctrl+Tab
    sleep 0.5
    xdotool key --clearmodifiers ctrl+c
    sleep 0.5
    clipboard_has image/png
}
until_true "an image on the clipboard" copy_chart

clipboard image/png >"$home/pasted.png"
size=$(identify -format '%wx%h' "$home/pasted.png")
[ "$size" = 800x600 ] || fail "the pasted bitmap is $size"
colours=$(identify -format %k "$home/pasted.png")
[ "$colours" -ge 20 ] || fail "the pasted bitmap has only $colours colours"
corner=$(convert "$home/pasted.png" -format '%[hex:p{1,1}]' info:)
[ "${corner:0:6}" = FFFFFF ] || fail "the pasted bitmap's corner is $corner"

clipboard_has image/svg+xml || fail "there is no SVG beside the bitmap"
clipboard image/svg+xml >"$home/pasted.svg"
grep -q '<svg' "$home/pasted.svg" || fail "the pasted drawing is no SVG"
grep -q '<polyline\|<path' "$home/pasted.svg" || fail "the pasted drawing has no lines"
echo "pasted the chart of $(basename "$sample") as $size pixels and as SVG"
