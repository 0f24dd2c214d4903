#!/bin/sh
# scripts/translations.sh update    reads the texts of the code into the three catalogues: new ones come in unfinished, those
#                                   that no code shows any more are marked as vanished; what is translated stays
# scripts/translations.sh report    how much of each catalogue is finished, unfinished, missing, stale
# scripts/translations.sh check     fails, and names each, where a text is unfinished, missing or stale
# Only update writes; the others look at copies. What a catalogue keeps on purpose stands in the list below.
set -eu
cd "$(dirname "$0")/.."

# Language, state, context, text: entries that are in no fault. One that is no longer so is a fault of this list.
kept='
en_US|stale|PageChromakey|Color Adjustment
zh_CN|stale|PageChromakey|Color Adjustment
zh_TW|stale|PageChromakey|Color Adjustment
en_US|unfinished|PageInput|AUX
en_US|unfinished|PageInput|BG
en_US|unfinished|PageInput|EXT.SYNC
en_US|unfinished|PageInput|FG
zh_TW|unfinished|PageInput|AUX
zh_TW|unfinished|PageInput|BG
zh_TW|unfinished|PageInput|EXT.SYNC
zh_TW|unfinished|PageInput|FG
'
# The first three: a heading that the chromakey page once had. The others: the input page shows these four labels in
# the unit's own words in English and Traditional Chinese; tests/shell/tst_catalogues.cpp holds it.

languages='en_US zh_CN zh_TW'
rooms='shell device discovery control qml'

usage() { sed -n '2,6s/^# //p' "$0"; }
fail() { printf '%s\n' "$*" >&2; exit 1; }

copies=$(mktemp -d)
trap 'rm -rf "$copies"' EXIT

# Brings copies of the catalogues up to the code. Order, contexts and translations stay as they are, and nothing is
# guessed from texts that look alike.
update_copies() {
    lupdate=$(command -v lupdate || echo /usr/lib/qt5/bin/lupdate)
    [ -x "$lupdate" ] || fail "lupdate is missing: install qttools5-dev-tools."
    for language in $languages; do cp "resources/app_$language.ts" "$copies/"; done
    # shellcheck disable=SC2086  # a list of rooms
    "$lupdate" -silent -no-sort -locations none -no-ui-lines -disable-heuristic sametext \
        -disable-heuristic similartext -disable-heuristic number $rooms -ts "$copies"/app_*.ts >"$copies/said" 2>&1 ||
        { cat "$copies/said"; fail "lupdate could not read the texts of the code."; }
}

# entries CATALOGUE: one line for each, its state, context and text; a text of several lines is one here.
entries() {
    awk '
        function between(text, from, to) {
            text = substr(text, index(text, from) + length(from))
            return substr(text, 1, index(text, to) - 1)
        }
        /<name>/ { context = between($0, "<name>", "</name>") }
        /<message/ { message = "" }
        { message = message (message == "" ? "" : "\\n") $0 }
        /<\/message>/ {
            text = between(message, "<source>", "</source>")
            if (message ~ /<comment>/) text = text " (" between(message, "<comment>", "</comment>") ")"
            state = "finished"
            if (message ~ /<translation type="unfinished"/ || message ~ /<translation>(\\n| )*<\/translation>/)
                state = "unfinished"
            if (message ~ /<translation type="(vanished|obsolete)"/) state = "stale"
            if (text != "") print state "|" context "|" text
        }
    ' "$1"
}

# states LANGUAGE: each text of the language, after an update, as it stands in the catalogue.
states() {
    entries "resources/app_$1.ts" >"$copies/before"
    entries "$copies/app_$1.ts" >"$copies/after"
    awk -v language="$1" '
        { state = $0; sub(/\|.*/, "", state); key = substr($0, length(state) + 2) }
        FNR == NR { before[key] = state; next }
        { after[key] = 1; print language "|" (key in before ? state : "missing") "|" key }
        # An entry without a translation is not even marked, it goes.
        END { for (key in before) if (!(key in after)) print language "|stale|" key }
    ' "$copies/before" "$copies/after"
}

all_states() {
    update_copies
    for language in $languages; do states "$language"; done >"$copies/states"
    printf '%s' "$kept" | sed '/^$/d' >"$copies/kept"
}

update() {
    update_copies
    for language in $languages; do
        # What is kept on purpose is not marked as vanished: the program would come without it.
        printf '%s' "$kept" | sed -n "s/^$language|stale|//p" >"$copies/kept"
        awk -v kept="$copies/kept" '
            BEGIN { while ((getline line < kept) > 0) keep[line] = 1 }
            /<name>/ { context = $0; gsub(/.*<name>|<\/name>.*/, "", context) }
            /<source>/ { text = $0; gsub(/.*<source>|<\/source>.*/, "", text) }
            (context "|" text) in keep { sub(/<translation type="(vanished|obsolete)">/, "<translation>") }
            { print }
        ' "$copies/app_$language.ts" >"$copies/new"
        if cmp -s "$copies/new" "resources/app_$language.ts"; then
            echo "resources/app_$language.ts holds every text already"
        else
            cat "$copies/new" >"resources/app_$language.ts"
            echo "resources/app_$language.ts is changed"
        fi
    done
}

report() {
    all_states
    awk -F '|' -v languages="$languages" '
        FNR == NR { keep[$0] = 1; next }
        $0 in keep { onpurpose[$1]++; next }
        { count[$1, $2]++ }
        END {
            form = "%-10s %9s %11s %8s %6s %11s\n"
            printf form, "language", "finished", "unfinished", "missing", "stale", "on purpose"
            n = split(languages, one, " ")
            for (i = 1; i <= n; i++)
                printf form, one[i], count[one[i], "finished"] + 0, count[one[i], "unfinished"] + 0, \
                    count[one[i], "missing"] + 0, count[one[i], "stale"] + 0, onpurpose[one[i]] + 0
        }
    ' "$copies/kept" "$copies/states"
}

check() {
    all_states
    awk -F '|' '
        FNR == NR { keep[$0] = 1; next }
        $0 in keep { met[$0] = 1; next }
        $2 != "finished" { printf "%s: %s: %s: %s\n", $1, $2, $3, substr($0, length($1 $2 $3) + 4); faults++ }
        END {
            for (line in keep) if (!(line in met)) { print "no longer so, but in the list of what is kept: " line; faults++ }
            exit faults > 0
        }
    ' "$copies/kept" "$copies/states" ||
        fail "scripts/translations.sh update brings new texts in; CONTRIBUTING.md tells how to go on."
}

case "${1:-}" in
    update) update && report ;;
    report) report ;;
    check) check ;;
    -h | --help) usage ;;
    *) usage >&2; exit 2 ;;
esac
