#!/usr/bin/env bash
# From a fresh machine to Pellam open on a sample: run.sh [FILE]
# File > Open Database Session offers the data source "Pellam Samples" beside the user's own. Where there
# is no display, writes what the window would show into build/ instead.
set -euo pipefail
file=$(realpath -- "${1:-$(dirname "$0")/../samples/weather-mast.dlr}")
cd "$(dirname "$0")/.."

scripts/bootstrap.sh run
cmake --preset run
cmake --build --preset run
pellam=build/run/src/app/pellam

# The user's own data sources, a copy, and the sample one behind them: the driver manager reads the
# copy in place of ~/.odbc.ini, which stays as it is. Those of the system are listed as ever.
sample_data_source() {
    local own=${ODBCINI:-${HOME:-}/.odbc.ini} all=$PWD/build/odbc.ini
    scripts/make_sample_database.sh build/sample-sessions.db >/dev/null
    (
        umask 077 # data sources may hold passwords
        if [ -f "$own" ]; then cat "$own"; fi >"$all.new"
        grep -q '^\[Pellam Samples\]' "$all.new" ||
            printf '\n[Pellam Samples]\nDriver=SQLite3\nDatabase=%s\nStepAPI=1\n' \
                "$PWD/build/sample-sessions.db" >>"$all.new"
    )
    mv "$all.new" "$all"
    export ODBCINI=$all
}
sample_data_source

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$pellam" "$file"
fi

name=$(basename "${file%.*}")
echo "run: there is no display, so no window opens; writing the file's chart and export instead"
"$pellam" --chart "build/$name.png" --export "build/$name.csv" "$file"
echo "run: wrote build/$name.png"
echo "run: wrote build/$name.csv ($(wc -l <"build/$name.csv") lines); its first ones:"
head -n 4 "build/$name.csv"
"$pellam" --dsn "Pellam Samples" --session "Crane test" --chart build/crane-test.png
echo "run: wrote build/crane-test.png, a session from the sample database"
