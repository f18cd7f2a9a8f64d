#!/usr/bin/env bash
# package.sh SOURCE-FOLDER: makes the Debian package of what is built, unpacks it, and looks whether all is there and
# runs: the programs from their new place, the files that a desktop reads, and the names of all dependencies.
set -euo pipefail
cd "$1"
./package --no-build >/dev/null
deb=$(ls -t build/zelvo_*.deb | head -n 1)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
dpkg-deb -x "$deb" "$work/root"
dpkg-deb -e "$deb" "$work/control"
faults=0
fault() {
    echo "package: $*" >&2
    faults=$((faults + 1))
}

for file in bin/zelvo libexec/zelvo/zelvo-draw libexec/zelvo/zelvo-tags share/applications/zelvo.desktop \
    share/mime/packages/zelvo.xml share/metainfo/zelvo.metainfo.xml share/man/man1/zelvo.1.gz \
    share/icons/hicolor/scalable/apps/zelvo.svg share/icons/hicolor/48x48/apps/zelvo.png \
    share/icons/hicolor/scalable/mimetypes/application-x-zelvo.svg \
    share/icons/hicolor/256x256/mimetypes/application-x-zelvo.png \
    share/doc/zelvo/copyright share/doc/zelvo/licences.md share/zelvo/fonts.tsv; do
    [[ -s "$work/root/usr/$file" ]] || fault "$file is missing"
done
while read -r path; do
    fault "$path is outside of /usr, hidden, or not for everybody to read"
done < <(cd "$work/root" && find . -mindepth 1 \( -not -path './usr*' -o -name '.*' -o -not -perm -444 \) -print)
[[ ! -e "$work/control/postinst" ]] || fault "it has a script: removing the package may leave something"
(cd "$work/root" && md5sum --quiet -c "$work/control/md5sums") || fault "a checksum is wrong"

# A double click: the desktop entry takes the type, which is told by the name of the file.
grep -q '^Exec=zelvo %F$' "$work/root/usr/share/applications/zelvo.desktop" || fault "the entry opens no files"
grep -q '^MimeType=.*application/x-zelvo;' "$work/root/usr/share/applications/zelvo.desktop" || fault "no type"
grep -A9 'type="application/x-zelvo"' "$work/root/usr/share/mime/packages/zelvo.xml" | grep -q 'pattern="\*.zelvo"' ||
    fault "*.zelvo has no type"

# Each library and font has its licence in the document.
for program in "$work"/root/usr/bin/zelvo "$work"/root/usr/libexec/zelvo/*; do
    while read -r library; do
        grep -qF "${library%%.so*}" docs/licences.md || fault "licences.md does not name $library"
    done < <(readelf -d "$program" | sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p')
done
for licence in "$work"/root/usr/share/zelvo/fonts/licences/*.txt; do
    grep -qF "| $(basename "$licence" .txt) |" docs/licences.md || fault "licences.md lacks $(basename "$licence")"
done

# Each module that a view imports is among the dependencies, and each named package exists.
depends=$(sed -n '/^Depends:/,/^[A-Z].*:/p' "$work/control/control" | tr ',|' '\n\n' | sed 's/^Depends://; s/(.*//; s/ //g')
for module in QtQuick QtQuick.Dialogs QtQuick.Layouts QtQuick.Shapes QtQuick.Templates QtQuick.Window QtMultimedia; do
    package="qml6-module-$(tr 'A-Z.' 'a-z-' <<<"$module")"
    grep -qxF "$package" <<<"$depends" || fault "$package is no dependency"
done
for package in libqt6core6 libavcodec59 libaubio5 libegl1 libgl1-mesa-dri; do
    grep -qx "$package" <<<"$depends" || fault "$package is no dependency"
done

# It runs from its new place, with its own resources only.
home="$work/home"
mkdir -p "$home"
run() { env -i HOME="$home" PATH=/usr/bin:/bin TMPDIR="$home" "$work/root/usr/bin/zelvo" "$@"; }
[[ "$(run list fonts | wc -l)" -ge 54 ]] || fault "it does not find its fonts"
cp "$work/root/usr/share/zelvo/performances/first.json" "$home/title.zelvo"
run frame "$home/title.zelvo" --at 3 --size 320x180 --out "$home/title.png" >/dev/null || fault "it makes no picture"
[[ -s "$home/title.png" ]] || fault "there is no picture"
man -l --warnings=all "$work/root/usr/share/man/man1/zelvo.1.gz" 2>&1 >/dev/null | grep . && fault "the manual page is odd"

echo "$deb: $(find "$work/root" -type f | wc -l) files, $(du -h "$deb" | cut -f1), $faults faults"
[[ "$faults" -eq 0 ]]
