#!/bin/sh
# scripts/fuzz-table.sh [LOG...]    writes what the fuzz targets' logs say into docs/reliability.md; without names, the
#                                   logs of the last ./check fuzz
set -eu
cd "$(dirname "$0")/.."
[ $# -gt 0 ] || set -- build/fuzz/logs/fuzz_*.log
{
    echo "| Target | Inputs tried | Time | Fell |"
    echo "|---|---:|---:|---:|"
    for log in "$@"; do
        awk '
            FNR == 1 { name = FILENAME; sub(/.*fuzz_/, "", name); sub(/\.log$/, "", name) }
            /^Done [0-9]+ runs in [0-9]+ second/ { runs = $2; seconds = $5 }
            /^SUMMARY: |libFuzzer: (deadly signal|timeout|out-of-memory)/ { fell = 1 }
            END {
                if (runs == "" && !fell) { print name ": the run has not ended" > "/dev/stderr"; exit }
                printf "| `%s` | %s | %s | %d |\n", name, runs, seconds == "" ? "" : seconds " s", fell
            }
        ' "$log"
    done
} | scripts/section.sh docs/reliability.md fuzzing
