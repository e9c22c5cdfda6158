#!/usr/bin/env bash
# Makes a release of what is committed: all checks, the package built twice from scratch with the same bytes,
# then the tag. release.sh --check stops before the tag. Nothing is sent anywhere.
set -euo pipefail
cd "$(dirname "$0")/.."
[ $# -eq 0 ] || [ "$*" = --check ] || { echo "usage: release.sh [--check]" >&2; exit 2; }
only_check=${1:-}

refuse() {
    echo "release: $*" >&2
    exit 1
}

version=$(sed -n 's/^project(Pellam VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
tag=v$version
heading=$(grep -m 1 '^## \[[0-9]' CHANGELOG.md)
[ -z "$(git status --porcelain)" ] || refuse "there are changes that are not committed"
case $heading in
    "## [$version] - "????-??-??) ;;
    *) refuse "CHANGELOG.md begins with \"$heading\", the project is $version" ;;
esac
[ "${heading##* }" \< "$(date --utc +%F)" ] || [ "${heading##* }" = "$(date --utc +%F)" ] ||
    refuse "the release's date ${heading##* } is to come"
! sed -n '/^## \[Unreleased\]/,/^## \[[0-9]/p' CHANGELOG.md | grep -q '^- ' ||
    refuse "CHANGELOG.md has entries that belong to no release"
! git rev-parse --quiet --verify "refs/tags/$tag" >/dev/null || refuse "there is a tag $tag already"

scripts/bootstrap.sh package
.ci/run || refuse "the checks have failed"

# The second one elsewhere, without the compiler's cache.
cmake --preset package && cmake --build --preset package
again=$(mktemp -d)
trap 'rm -rf "$again"' EXIT
git archive HEAD | tar -x -C "$again"
(cd "$again" && cmake --preset package && CCACHE_DISABLE=1 cmake --build --preset package)
deb=$(cd build/package && ls "pellam_${version}_"*.deb)
cmp "build/package/$deb" "$again/build/package/$deb" || refuse "two builds gave different packages"
scripts/check_package.sh "build/package/$deb"
sha256sum "build/package/$deb"

if [ -n "$only_check" ]; then
    echo "release: $version can be released; no tag was made"
else
    git tag --annotate "$tag" --message "Pellam $version"
    echo "release: $tag is made; push it with: git push origin $tag"
fi
