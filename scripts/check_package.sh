#!/usr/bin/env bash
# Looks at a Debian package of Pellam as Debian, a desktop and a shell would: check_package.sh PACKAGE.deb
# Installs nothing. Goes through all of it and ends with the count.
set -uo pipefail
package=$(realpath -- "${1:?usage: check_package.sh PACKAGE.deb}")
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
dpkg-deb --extract "$package" "$root" || exit 1
share=$root/usr/share
program=$root/usr/bin/pellam
bad=0
good=0

check() {
    local name=$1 output
    shift
    if output=$("$@" 2>&1); then
        good=$((good + 1))
    else
        bad=$((bad + 1))
        printf '%s: FAILED\n%s\n' "$name" "$output"
    fi
}

lintian_clean() {
    # Nothing at all is said of it, and root may run it.
    local said
    said=$(lintian --allow-root --fail-on error,warning "$package") || { echo "$said"; return 1; }
    [ -z "$said" ] || { echo "$said"; return 1; }
}
metainfo() { appstreamcli validate --no-net --pedantic "$share"/metainfo/*.metainfo.xml; }
desktop() {
    local said
    said=$(desktop-file-validate "$share/applications/pellam.desktop")
    [ -z "$said" ] || { echo "$said"; return 1; }
    # Each action's options are known, and what is opened can be no option.
    grep -qx 'Exec=pellam -- %u' "$share/applications/pellam.desktop" || return 1
    local option
    for option in $(sed -n 's/^Exec=pellam \(--[a-z-]\+\)$/\1/p' "$share/applications/pellam.desktop"); do
        "$program" --help | grep -q -- "^  $option " || { echo "no option $option"; return 1; }
    done
}
manual() {
    local said
    said=$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$share/man/man1/pellam.1.gz" 2>&1 >/dev/null)
    [ -z "$said" ] || { echo "$said"; return 1; }
    local option
    for option in $("$program" --help | grep -oE '^  (-[a-z], )?--[a-z-]+' | grep -oE '[-][-].*'); do
        LC_ALL=C.UTF-8 man -l "$share/man/man1/pellam.1.gz" | grep -q -- "$option" || { echo "no $option"; return 1; }
    done
}
hardened() {
    readelf --wide --program-headers --dynamic "$program" >"$root/elf"
    grep -q 'DYN (Position-Independent' <(readelf --file-header "$program") || { echo "no PIE"; return 1; }
    grep -q 'GNU_RELRO' "$root/elf" && grep -q 'BIND_NOW\|FLAGS.*NOW' "$root/elf" || { echo "no full RELRO"; return 1; }
    grep -q 'RPATH\|RUNPATH' "$root/elf" && { echo "a run path"; return 1; }
    readelf --wide --dyn-syms "$program" >"$root/symbols"
    grep -q '__stack_chk_fail' "$root/symbols" && grep -q '_chk@GLIBC' "$root/symbols" || { echo "not fortified"; return 1; }
    ! readelf --wide --sections "$program" | grep -q '\.symtab' || { echo "not stripped"; return 1; }
}
no_build_path() {
    ! grep -rlaF -- "$(cd "$(dirname "$0")/.." && pwd)" "$root/usr" || { echo "tells where it was built"; return 1; }
}
shells() {
    bash -n "$share/bash-completion/completions/pellam" && zsh -n "$share/zsh/vendor-completions/_pellam"
}
one_version() {
    local version
    version=$(dpkg-deb --field "$package" Version)
    [ "$("$program" --version)" = "pellam $version" ] &&
        grep -q "<release version=\"$version\"" "$share"/metainfo/*.metainfo.xml &&
        [ "$(zcat "$share/doc/pellam/changelog.gz" | dpkg-parsechangelog --file - --show-field Version)" = "$version" ]
}
# What a desktop takes files for, and that others' names stay theirs.
types() {
    local data=$root/types file expected found
    mkdir -p "$data/mime/packages" "$data/applications"
    cp /usr/share/mime/packages/freedesktop.org.xml "$share/mime/packages/pellam.xml" "$data/mime/packages" &&
        XDG_DATA_HOME=$data update-mime-database "$data/mime" >/dev/null || return 1
    cp "$share/applications/pellam.desktop" "$data/applications" && update-desktop-database -q "$data/applications"
    cp "$share/pellam/samples/weather-mast.dlr" "$root/no-extension"
    cp "$share/pellam/samples/tank-gauge.dbd" "$root/no-extension-either"
    cp "$share/pellam/samples/signed-mast.sig" "$root/signature"
    echo x >"$root/a.dlx" && echo x >"$root/a.dbr"
    while read -r file expected; do
        found=$(XDG_DATA_HOME=$data XDG_DATA_DIRS=$data XDG_CURRENT_DESKTOP=GNOME gio info -a standard::content-type "$file" |
            sed -n 's/.*content-type: //p')
        [ "$found" = "$expected" ] || { echo "$file is $found, not $expected"; return 1; }
    done <<END
$share/pellam/samples/weather-mast.dlr application/x-pellam-replay
$share/pellam/samples/generated-session.dlr application/x-pellam-replay
$root/no-extension application/x-pellam-replay
$share/pellam/samples/tank-gauge.dbd application/x-pellam-binary
$root/no-extension-either application/x-pellam-binary
$root/signature application/x-pellam-signature
$share/pellam/samples/signed-mast.sig application/pgp-signature
$root/a.dlx application/x-pellam-enciphered-replay
$root/a.dbr application/x-pellam-binary-replay
$share/pellam/samples/pump-station.csv text/csv
$share/pellam/samples/tank-farm.txt text/plain
END
    for expected in text/csv text/plain application/pgp-signature; do
        ! grep -q "^$expected=" "$data/applications/mimeinfo.cache" || { echo "claims $expected"; return 1; }
    done
    grep -q '^application/x-pellam-replay=pellam.desktop' "$data/applications/mimeinfo.cache"
}

for name in lintian_clean metainfo desktop manual hardened no_build_path shells one_version types; do
    check "$name" "$name"
done
echo "check_package: $good good, $bad bad"
[ "$bad" -eq 0 ]
