#!/bin/sh
# Packs a Debian package again, so that its bytes depend on its files alone: repack.sh PACKAGE.deb SECONDS
# CPack takes the order of files and the sizes of folders from the file system that it packs on. SECONDS since
# 1970 is the time of all that is in it.
set -eu
package=$1
export SOURCE_DATE_EPOCH="$2" LC_ALL=C
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
tree=$folder/tree
dpkg-deb --raw-extract "$package" "$tree"

# As dpkg-gencontrol counts: files by begun kibibytes, anything else as one.
size=$(find "$tree" -mindepth 1 -path "$tree/DEBIAN" -prune -o -printf '%y %s\n' |
    awk '{ sum += $1 == "f" ? int(($2 + 1023) / 1024) : 1 } END { print sum }')
sed -i "s/^Installed-Size:.*/Installed-Size: $size/" "$tree/DEBIAN/control"
sort -k 2 -o "$tree/DEBIAN/md5sums" "$tree/DEBIAN/md5sums"
find "$tree" -exec touch --no-dereference --date="@$2" {} +
chmod 755 "$tree" "$tree/DEBIAN"
dpkg-deb --root-owner-group --uniform-compression -Zxz --threads-max=1 --build "$tree" "$folder/new.deb" >/dev/null
mv "$folder/new.deb" "$package"
