#!/usr/bin/env bash
# Installs the Debian 12 packages that Pellam is built, tested and run with: only what is missing,
# without a question. This is the one list of them.
set -euo pipefail

packages=(
    # compiler, build and its cache
    build-essential cmake ninja-build ccache
    # formatting (of the files that git lists), static checks, fuzzing
    git clang clang-format clang-tidy libclang-rt-14-dev
    # window toolkit
    qt6-base-dev qt6-svg-dev libgl-dev
    # files that another program writes where they are dropped
    libxcb1-dev
    # sessions in databases: the ODBC manager, a driver each, and the servers of the tests
    unixodbc-dev libsqliteodbc odbc-postgresql odbc-mariadb sqlite3 postgresql mariadb-server
    # tests and benchmarks
    libgtest-dev libgmock-dev libbenchmark-dev
    # a window to test in: display, window manager, keyboard, screenshots
    xvfb xauth openbox xdotool imagemagick xclip
    # a look at what was printed
    poppler-utils
    # at run time: a font, and opening a file with the desktop's program
    fonts-dejavu-core xdg-utils
)

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done

if [ ${#missing[@]} -eq 0 ]; then
    echo "bootstrap: all ${#packages[@]} packages are installed"
    exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "bootstrap: missing: ${missing[*]}" >&2
        echo "bootstrap: installing them needs root, and there is no sudo; run this once as root" >&2
        exit 1
    fi
    as_root=(sudo)
fi

apt() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 "$@" </dev/null
}

echo "bootstrap: installing ${missing[*]}"
apt update
apt install --yes --no-install-recommends "${missing[@]}" >/dev/null
echo "bootstrap: installed ${#missing[@]} packages"
