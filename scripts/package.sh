#!/usr/bin/env bash
# package.sh: makes, in build/package, plotvane-<version>-win64.zip (the program, samples to start in, the manual
# as one page and a text to begin with), plotvane-<version>-setup.exe (the same, installed for one user) and
# their SHA-256 sums. packaging/check.sh then uses both as their user would.
#
# The same commit gives the same bytes: the program carries no time stamp of its link, and every entry has the
# time of the commit, the same rights and its place in the order of the names.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/common.sh

need_packages "${build_packages[@]}" "${package_packages[@]}"
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

say "building (build/windows)"
build_preset windows plotvane

package=$build/package
folder=$package/plotvane-$version
rm -rf "$package"
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

find "$folder" -type d -exec chmod 755 {} +
find "$folder" -type f -exec chmod 644 {} +
find "$folder" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
zip_name=plotvane-$version-win64.zip
(
    cd "$package"
    find "plotvane-$version" -type f | LC_ALL=C sort | zip -X -9 -q "$zip_name" -@
)
setup_name=plotvane-$version-setup.exe
packaging/make-installer.sh "$version" "$folder" "$package/$setup_name"
(cd "$package" && sha256sum "$zip_name" "$setup_name" >SHA256SUMS)
say "made $package/$zip_name and $setup_name"
cat "$package/SHA256SUMS"
