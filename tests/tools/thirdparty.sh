#!/bin/sh
# Every package of scripts/needs.sh stands in docs/THIRD_PARTY.md, by its name; the modules of QML have one row together.
set -eu
cd "$(dirname "$(readlink -f "$0")")/../.."
# shellcheck source=scripts/needs.sh
. scripts/needs.sh
wanted=$(sed -n "/^needs_.*='\$/,/^'\$/s/^\([a-z][a-z0-9.+-]*\) .*/\1/p" scripts/needs.sh | sort -u)
[ "$(printf '%s\n' "$wanted" | wc -l)" -gt 40 ] || fail "scripts/needs.sh could not be read"
unnamed=
for package in $wanted; do
    case $package in qml-module-*) package=qml-module-... ;; esac
    grep -qF "\`$package\`" docs/THIRD_PARTY.md || unnamed="$unnamed $package"
done
[ -z "$unnamed" ] || fail "docs/THIRD_PARTY.md has no row for:$unnamed"
