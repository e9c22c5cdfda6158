#!/usr/bin/env bash
# Files and virtual files that another program drops on the window. drops.sh PELLAM XDND_SOURCE SAMPLES
set -euo pipefail
pellam=$1
source=$2
samples=$3
. "$(dirname "$0")/../../app/real_window.sh"

saved=$home/Documents/Korvane/Pellam
content=$'Time,Level (m)\n2024/03/01 10:00:00,4.25\n2024/03/01 10:15:00,4.31\n'

"$pellam" >"$home/pellam.log" 2>&1 &
processes+=($!)
until_true "the window" active_window_titled Pellam
window=$(xdotool search --onlyvisible --name '^Pellam$' | tail -n 1)

# drop EXPECTED KIND NAME: drops it in the window's middle.
drop() {
    local got
    got=$(timeout 60 "$source" "$window" 700 450 "$2" "$3" "$content") || true
    [ "$got" = "$1" ] || fail "dropping $2 '$3': ${got:-no answer}, not $1"
}
is_loaded() { until_true "$1 on the grid" active_window_titled "$1 - Pellam"; }
answer_message() {
    until_true "a message" active_window_titled Pellam
    xdotool key Return
    until_true "the end of the message" active_window_titled "$1 - Pellam"
}

drop taken files "$samples/weather-mast.dlr"
is_loaded weather-mast.dlr
drop refused text "no file"
drop taken virtual "virtual one.csv"
is_loaded "virtual one.csv"
drop taken direct "direct 100%.csv"
is_loaded "direct 100%.csv"
drop taken direct "direct 100%.csv"
is_loaded "direct 100% (2).csv"
drop taken direct-elsewhere "elsewhere.csv"
is_loaded "elsewhere.csv"
drop taken direct-slow "slow.csv"
is_loaded "slow.csv"
for kind in direct-error direct-crash; do
    drop "$([ $kind = direct-crash ] || echo failed)" $kind "$kind.csv"
    answer_message slow.csv
done
drop failed direct "../up.csv"
answer_message slow.csv

expected="direct 100% (2).csv|direct 100%.csv|elsewhere.csv|slow.csv|virtual one.csv|"
got=$(find "$saved" -mindepth 1 -printf '%P\n' | LC_ALL=C sort | tr '\n' '|')
[ "$got" = "$expected" ] || fail "the save folder has $got"
for file in "$saved"/*; do
    [ "$(cat "$file"; echo .)" = "$content." ] || fail "$file is not what was dropped"
done
echo "took files, virtual files and direct saves"
