#!/usr/bin/env bash
# make-manual.sh: writes the pages of docs/manual and of the file formats to standard output as one HTML page.
# The page contains its pictures, so it can be moved and mailed. Fails if a link leads to a page that is not
# in it.
set -euo pipefail
cd "$(dirname "$0")/.."

# The pages in the order of the contents; the file formats come last.
mapfile -t pages < <(
    printf 'docs/manual/README.md\n'
    grep -oE '^\| \[[^]]+\]\([a-z-]+\.md\)' docs/manual/README.md | sed -E 's|.*\((.*)\)|docs/manual/\1|'
    printf 'docs/%s.md\n' file-formats file-formats-logs
)

page=$(
    printf '<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n<title>Plotvane manual</title>\n<style>\n'
    cat packaging/manual.css
    printf '</style>\n</head>\n<body>\n'
    for file in "${pages[@]}"; do
        printf '<section id="%s">\n' "$(basename "$file" .md)"
        cmark-gfm --extension table "$file" | sed -E 's|href="(\.\./)?([a-z-]+)\.md(#[^"]*)?"|href="#\2"|g'
        printf '</section>\n'
    done
    printf '</body>\n</html>\n'
)

while read -r target; do
    grep -q "<section id=\"$target\">" <<<"$page" || {
        echo "error: the manual links to $target, which is not part of it" >&2
        exit 1
    }
done < <(grep -oE 'href="#[^"]*"' <<<"$page" | sed -E 's/href="#(.*)"/\1/' | sort -u)
while read -r picture; do
    [[ -e docs/manual/$picture ]] || {
        echo "error: the manual shows $picture, which does not exist" >&2
        exit 1
    }
    page=${page//"src=\"$picture\""/"src=\"data:image/png;base64,$(base64 -w 0 "docs/manual/$picture")\""}
done < <(grep -oE 'src="[^"]*"' <<<"$page" | sed -E 's/src="(.*)"/\1/' | sort -u)
printf '%s\n' "$page"
