#!/usr/bin/env bash
# Whole commands side by side on one CSV file, in turn: Pellam and, where it is installed, pandas.
#   compare_csv.sh PELLAM FILE.csv [RUNS]
set -euo pipefail
pellam=$1 file=$2 runs=${3:-3}

timed() {
    local name=$1
    shift
    /usr/bin/env bash -c 'TIMEFORMAT="%U user %S system %R wall seconds"; time "$@" >/dev/null' \
        timed "$@" 2>&1 | sed "s/^/$name: /"
}

for _ in $(seq "$runs"); do
    timed pellam "$pellam" --info "$file"
    if /usr/bin/python3 -c 'import pandas' 2>/dev/null; then
        timed pandas /usr/bin/python3 -c 'import sys, pandas; pandas.read_csv(sys.argv[1])' "$file"
    fi
done
