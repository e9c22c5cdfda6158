#!/usr/bin/env bash
# Installs the packages of Debian 12 or 13 that Pellam needs, only what is missing, without a question:
# bootstrap.sh run (to build the program and use it), bootstrap.sh test (all that working on it takes
# besides, the default) or bootstrap.sh package (to build the Debian package and check it). This is the one
# list of them.
set -euo pipefail

packages=(
    # compiler and build
    build-essential cmake ninja-build
    # window toolkit, on either display system, with its icons
    qt6-base-dev qt6-svg-dev libgl-dev qt6-wayland
    # files that another program writes where they are dropped
    libxcb1-dev
    # sessions in databases: the ODBC manager, and the sample with its driver
    unixodbc-dev libsqliteodbc sqlite3
    # at run time: a font, and opening a file with the desktop's program
    fonts-dejavu-core xdg-utils
)
# Before Debian 13 the icon plug-in came with the library.
release=$(. /etc/os-release && echo "${VERSION_ID:-}")
[ "${release%%.*}" = 12 ] || packages+=(qt6-svg-plugins)

case ${1:-test} in
    run) ;;
    package)
        packages+=(
            # the package's checks: as Debian, software centres and desktops see it
            lintian appstream desktop-file-utils shared-mime-info xdg-utils
            # its manual page and completions
            man-db zsh
            # releases
            git
        )
        ;;
    test)
        packages+=(
            # the build's cache
            ccache
            # formatting (of the files that git lists), static checks, fuzzing
            git clang clang-format clang-tidy libclang-rt-dev
            # drivers and servers of the other databases
            odbc-postgresql odbc-mariadb postgresql mariadb-server
            # tests and benchmarks
            libgtest-dev libgmock-dev libbenchmark-dev
            # a window to test in: display, window manager, keyboard, screenshots
            xvfb xauth openbox xdotool imagemagick xclip
            # a look at what was printed
            poppler-utils
        )
        ;;
    *)
        echo "usage: bootstrap.sh [run|test|package]" >&2
        exit 2
        ;;
esac

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
