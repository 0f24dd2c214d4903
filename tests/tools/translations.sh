#!/bin/sh
# The script for the translators, over copies of the code and the catalogues: it finds no fault in what stands there,
# names a text that is unfinished, missing, stale or wrongly kept, and update mends what it can and spares the rest.
set -eu
root=$(dirname "$(dirname "$(dirname "$(readlink -f "$0")")")")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { printf '%s\n' "$*" >&2; exit 1; }

anew() {
    rm -rf "$work/copy"
    mkdir -p "$work/copy/scripts" "$work/copy/resources"
    for room in shell device discovery control qml; do cp -r "$root/$room" "$work/copy/"; done
    cp "$root"/resources/app_*.ts "$work/copy/resources/"
    cp "$root/scripts/translations.sh" "$work/copy/scripts/"
}
script() { "$work/copy/scripts/translations.sh" "$@"; }
# names LINE: check fails, and says this line; and it has written nothing.
names() {
    cp -r "$work/copy/resources" "$work/before"
    if script check >"$work/said" 2>&1; then cat "$work/said"; fail "check passed, and should have said: $1"; fi
    grep -Fqx "$1" "$work/said" || { cat "$work/said"; fail "check did not say: $1"; }
    diff -r "$work/before" "$work/copy/resources" || fail "check wrote into the catalogues"
    rm -rf "$work/before"
}
edit() { # FILE FROM TO
    sed -i "s|$2|$3|" "$work/copy/$1"
    ! cmp -s "$work/copy/$1" "$root/$1" || fail "$1 has no \"$2\" to change"
}

anew
script check || fail "check finds fault with the catalogues as they are"
script update >/dev/null
diff -r "$root/resources/app_zh_TW.ts" "$work/copy/resources/app_zh_TW.ts" || fail "update changed what was in no need of it"
diff -r "$root/resources/app_en_US.ts" "$work/copy/resources/app_en_US.ts" || fail "update changed what was in no need of it"

# A translation is taken away.
edit resources/app_zh_TW.ts '<translation>同步鎖相</translation>' '<translation type="unfinished"></translation>'
names 'zh_TW: unfinished: PageInput: Genlock'
script report | grep -Eq '^zh_TW +[0-9]+ +1 +0 +0 ' || fail "report does not count the unfinished text"
anew
edit resources/app_zh_TW.ts '<translation>同步鎖相</translation>' '<translation></translation>'
names 'zh_TW: unfinished: PageInput: Genlock'

# The code gets another text: the old one is stale, the new one missing; the same in C++.
anew
edit control/maincontrol.cpp 'tr("Disconnected")' 'tr("Gone")'
names 'zh_CN: missing: mainControl: Gone'
anew
edit qml/PageInput.qml 'qsTr("Genlock")' 'qsTr("Locked to sync")'
names 'zh_CN: missing: PageInput: Locked to sync'
names 'en_US: stale: PageInput: Genlock'
script update >/dev/null
grep -A 1 -F '<source>Genlock</source>' "$work/copy/resources/app_zh_TW.ts" | grep -Fq 'type="vanished">同步鎖相<' ||
    fail "update lost the translation of a text that the code may show again"
names 'zh_CN: unfinished: PageInput: Locked to sync'
names 'zh_CN: stale: PageInput: Genlock'

# A text that a part of the window translates in the window's context stays there.
anew
text=$(sed -n 's/.*qsTranslate("main", "\([A-Z][a-z]*\)").*/\1/p' "$work/copy"/qml/window/*.qml | head -n 1)
[ -n "$text" ] || fail "no part of the window translates in the window's context"
for file in "$work/copy"/qml/*.qml "$work/copy"/qml/*/*.qml; do sed -i "s/qsTranslate(\"main\", \"$text\")/\"\"/; s/qsTr(\"$text\")/\"\"/" "$file"; done
names "zh_CN: stale: main: $text"

# An entry that is in the list of what is kept, and need not be.
anew
edit resources/app_en_US.ts 'Color Adjustment' 'Colour Adjustment'
names 'no longer so, but in the list of what is kept: en_US|stale|PageChromakey|Color Adjustment'
