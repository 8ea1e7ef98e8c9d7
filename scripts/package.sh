#!/usr/bin/env bash
# package.sh: makes, in build/package, plotvane-<version>-win64.zip (the program, samples to start in, the manual
# as one page and a text to begin with), plotvane-<version>-setup.exe (the same, installed for one user) and
# their SHA-256 sums. packaging/check.sh then uses both as their user would.
#
# package.sh tests: makes plotvane-<version>-windows-tests.zip there: the program, the stand-in host and every test
# program with its data. On any Windows, unpack it and double-click run-tests.cmd.
#
# The same commit gives the same bytes: the program carries no time stamp of its link, and every entry has the
# time of the commit, the same rights and its place in the order of the names.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

(($# == 0)) || [[ $* == tests ]] || die "usage: scripts/package.sh [tests]"
need_packages "${build_packages[@]}" "${test_packages[@]}" "${package_packages[@]}"
take_turn
version=$(sed -nE 's/.*kVersion.*"([^"]+)".*/\1/p' app/Version.h)
[[ -n $version ]] || die "no version in app/Version.h"
# Works for root in another user's tree too.
repository() { git -c safe.directory="$root" "$@"; }
if SOURCE_DATE_EPOCH=$(repository log -1 --format=%ct 2>/dev/null); then
    [[ -z $(repository status --porcelain) ]] || say "warning: the tree has changes that no commit holds"
else
    say "warning: this is no repository, so the files get the time of CHANGELOG.md"
    SOURCE_DATE_EPOCH=$(stat -c %Y CHANGELOG.md)
fi
export SOURCE_DATE_EPOCH TZ=UTC

package=$build/package
mkdir -p "$package"

# pack FOLDER ZIP LEVEL: gives every file in the folder the same rights and time, and packs it into build/package/ZIP.
pack() {
    local folder=$1 zip=$package/$2
    find "$folder" -type d -exec chmod 755 {} +
    find "$folder" -type f -exec chmod 644 {} +
    find "$folder" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
    rm -f "$zip"
    (cd "$folder/.." && find "${folder##*/}" -type f | LC_ALL=C sort | zip -X -"$3" -q "$zip" -@)
}

if [[ ${1:-} == tests ]]; then
    folder=$build/kit/plotvane-$version-windows-tests
    say "building (build/windows)"
    build_preset windows
    say "filling $folder"
    rm -rf "$folder"
    watched cmake --install "$build/windows" --component tests --prefix "$folder" --strip >"$logs/install-tests.log"
    sed 's/$/\r/' packaging/run-tests.cmd >"$folder/run-tests.cmd"
    pack "$folder" "${folder##*/}.zip" 3
    say "made $package/${folder##*/}.zip"
    exit
fi

say "building (build/windows)"
build_preset windows plotvane

folder=$package/plotvane-$version
rm -rf "$folder" "$package"/plotvane-*-{win64.zip,setup.exe} "$package/SHA256SUMS"
mkdir -p "$folder"
say "filling $folder"
cp "$build/windows/plotvane.exe" "$folder"
# No settings: the program makes them, and a newer zip that is unpacked over the folder must not replace the user's.
cp -r samples/LOGS samples/labels "$folder"
packaging/make-manual.sh >"$folder/manual.html"
sed 's/$/\r/' packaging/read-me-first.txt >"$folder/READ ME FIRST.txt"
sed 's/$/\r/' CHANGELOG.md >"$folder/CHANGES.txt"
grep -q "PLOTVANE $version" "$folder/READ ME FIRST.txt" || die "the text to begin with is not about $version"
grep -q "^## $version" CHANGELOG.md || die "CHANGELOG.md says nothing about $version"

zip_name=plotvane-$version-win64.zip
pack "$folder" "$zip_name" 9
setup_name=plotvane-$version-setup.exe
packaging/make-installer.sh "$version" "$folder" "$package/$setup_name"
(cd "$package" && sha256sum "$zip_name" "$setup_name" >SHA256SUMS)
say "made $package/$zip_name and $setup_name"
cat "$package/SHA256SUMS"
