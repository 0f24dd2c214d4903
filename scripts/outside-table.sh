#!/bin/sh
# scripts/outside-table.sh SECTION LOG...    writes what the logs of ./check outside say into a section of
#                                            docs/reliability.md: a row for each case, then what the cases measured
set -eu
cd "$(dirname "$0")/.."
section=$1
shift
for log in "$@"; do
    grep -q '^Totals:' "$log" || { echo "$log: the run has not ended" >&2; exit 1; }
done
awk '
    function words(name) {
        while (match(name, /[a-z0-9][A-Z]/))
            name = substr(name, 1, RSTART) " " tolower(substr(name, RSTART + 1, 1)) substr(name, RSTART + 2)
        return toupper(substr(name, 1, 1)) substr(name, 2)
    }
    /^(PASS  |FAIL!) +: / {
        name = $0
        sub(/^[^:]*: [A-Za-z]*::/, "", name)
        sub(/\(.*/, "", name)
        if (name == "initTestCase" || name == "cleanupTestCase") next
        if (!(name in tried)) order[++count] = name
        ++tried[name]
        fell[name] += /^FAIL/
    }
    # What a case of few rows measured, in its own words.
    /^QINFO/ {
        name = $0
        sub(/^QINFO +: [A-Za-z]*::/, "", name)
        text = name
        sub(/\(.*/, "", name)
        sub(/^[A-Za-z0-9]*\(([^()]|\([^()]*\))*\) /, "", text)
        if (!(name in said)) said[name] = 0
        told[name, ++said[name]] = text
    }
    END {
        print "| Case | Tried | Fell |\n|---|---:|---:|"
        for (i = 1; i <= count; ++i) {
            printf "| %s | %d | %d |\n", words(order[i]), tried[order[i]], fell[order[i]]
            all += tried[order[i]]
            down += fell[order[i]]
        }
        printf "| all | %d | %d |\n", all, down
        for (i = 1; i <= count; ++i) {
            if (said[order[i]] < 1 || tried[order[i]] > 3) continue
            for (j = 1; j <= said[order[i]]; ++j) lines[++n] = "- " told[order[i], j]
        }
        if (n) print ""
        for (i = 1; i <= n; ++i) print lines[i]
    }
' "$@" | scripts/section.sh docs/reliability.md "$section"
