#!/bin/sh
# scripts/section.sh PAGE NAME <text    puts the text between the page's lines "<!-- NAME: begin -->" and
#                                       "<!-- NAME: end -->", which some command writes anew at each of its runs
set -eu
page=$1
name=$2
text=$(mktemp)
new=$(mktemp)
trap 'rm -f "$text" "$new"' EXIT
cat >"$text"
awk -v begin="<!-- $name: begin -->" -v end="<!-- $name: end -->" -v text="$text" '
    $0 == begin { print; while ((getline line < text) > 0) print line; inside = 1; found++ }
    $0 == end { inside = 0; found++ }
    !inside { print }
    END { exit found == 2 ? 0 : 1 }
' "$page" >"$new" || { echo "$page has no section $name" >&2; exit 1; }
cat "$new" >"$page"
