#!/usr/bin/env bash
# From a fresh machine to Pellam open on a sample: run.sh [FILE]
# Where there is no display, writes what the window would show into build/ instead.
set -euo pipefail
file=$(realpath -- "${1:-$(dirname "$0")/../samples/weather-mast.dlr}")
cd "$(dirname "$0")/.."

scripts/bootstrap.sh
cmake --preset run
cmake --build --preset run
pellam=build/run/src/app/pellam

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$pellam" "$file"
fi

name=$(basename "${file%.*}")
echo "run: there is no display, so no window opens; writing the file's chart and export instead"
"$pellam" --chart "build/$name.png" --export "build/$name.csv" "$file"
echo "run: wrote build/$name.png"
echo "run: wrote build/$name.csv ($(wc -l <"build/$name.csv") lines); its first ones:"
head -n 4 "build/$name.csv"
