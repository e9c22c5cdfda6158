#!/usr/bin/env bash
# From a fresh machine to everything built and tested. Arguments go to ctest: test.sh -R Replay
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/bootstrap.sh test
cmake --preset dev
cmake --build --preset dev
ctest --preset dev --parallel "$(nproc)" "$@"
