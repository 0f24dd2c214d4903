#!/bin/sh
# scripts/tidy.sh BUILD FOLDER...    clang-tidy over the C++ of these folders as it is compiled in the build folder: what
#                                    changed comes first, so that a finding in one's own work is told within seconds
set -eu
build=$1
shift

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
begun=$(date +%s)

# Everything that is there to be looked at.
for room in "$@"; do git ls-files "$room/*.cpp"; done >"$folder/all"
[ -s "$folder/all" ] || { echo "git names no C++ in: $*" >&2; exit 1; }

# Changed since this branch left main, or by the last commit where this is main; and in the work tree.
tip=$(git rev-parse --verify -q HEAD) || tip=
since=$(git merge-base HEAD main 2>/dev/null) || since=
[ -n "$since" ] && [ "$since" != "$tip" ] || since=$(git rev-parse --verify -q HEAD~1) || since=$tip
{
    [ -z "$since" ] || git diff --name-only "$since"
    git ls-files --others --exclude-standard
} >"$folder/changed"
# Whoever includes a changed header has changed, too.
grep '\.h$' "$folder/changed" | while read -r header; do
    git grep -lF "#include \"$header\"" -- '*.cpp' || true
done >"$folder/including"
grep -Fxf "$folder/changed" -f "$folder/including" "$folder/all" >"$folder/first" || true
grep -vFxf "$folder/first" "$folder/all" >"$folder/rest" || true

# look LIST WHAT: each file of the list in a process of its own, as many at a time as there are cores.
look() {
    [ -s "$1" ] || return 0
    echo "clang-tidy, $(wc -l <"$1") $2 files ..."
    # shellcheck disable=SC2016
    xargs -P "$(nproc)" -n 1 sh -c '
        begun=$(date +%s)
        told=$(clang-tidy -p "$0" --quiet "$1" 2>&1) && clean=yes || clean=
        [ -n "$clean" ] && echo "  $1: $(($(date +%s) - begun)) s" || { printf "%s\n" "  $1:" "$told" | sed "/ warnings* generated\.\$/d"; exit 1; }
    ' "$build" <"$1"
}

fell=
look "$folder/first" changed || fell=yes
[ -n "$fell" ] || look "$folder/rest" other || fell=yes
[ -z "$fell" ] || { echo "clang-tidy has found what is told above." >&2; exit 1; }
echo "clang-tidy: $(wc -l <"$folder/all") files, $(($(date +%s) - begun)) s"
