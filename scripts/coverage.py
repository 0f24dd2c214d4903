#!/usr/bin/python3
# scripts/coverage.py COUNTS LIST    COUNTS: what gcovr --json wrote. Prints the table of the panel's rooms, and fails on a
#                                    line that no test ran and that LIST does not give a reason for, and on a line of LIST
#                                    that is run or gone. LIST holds: file, text of the line, reason, with tabs between.
import collections
import json
import sys

ROOMS = ("device", "discovery", "control", "shell")


def counted(path):
    of_rooms = {room: [0, 0] for room in ROOMS}
    untried = collections.Counter()
    with open(path, encoding="utf-8") as file:
        files = json.load(file)["files"]
    for entry in files:
        name = entry["file"]
        room = name.split("/")[0]
        if room not in of_rooms:
            continue
        with open(name, encoding="utf-8") as source:
            text = source.read().split("\n")
        # A line of a template or of a lambda stands there once for each function that it became.
        runs = collections.Counter()
        for line in entry["lines"]:
            if not line.get("gcovr/noncode"):
                runs[line["line_number"]] += line["count"]
        for number, count in runs.items():
            of_rooms[room][1] += 1
            of_rooms[room][0] += count > 0
            if count == 0:
                untried[(name, text[number - 1].strip())] += 1
    return of_rooms, untried


def excused(path):
    lines = collections.Counter()
    with open(path, encoding="utf-8") as file:
        for number, line in enumerate(file, 1):
            if line.startswith("#") or not line.strip():
                continue
            fields = line.rstrip("\n").split("\t")
            if len(fields) != 3 or not all(field.strip() for field in fields):
                sys.exit(f"{path}:{number}: file, text of the line and reason, with tabs between")
            lines[(fields[0], fields[1])] += 1
    return lines


def main(counts, list_path):
    rooms, untried = counted(counts)
    reasons = excused(list_path)
    print("| Room | Lines | Run | Not run, with a reason |")
    print("|---|---:|---:|---:|")
    total = [0, 0]
    for room, (run, lines) in rooms.items():
        print(f"| `{room}/` | {lines} | {run} | {lines - run} |")
        total = [total[0] + run, total[1] + lines]
    print(f"| all | {total[1]} | {total[0]} | {total[1] - total[0]} |")
    fell = False
    for (name, text), _ in sorted((untried - reasons).items()):
        fell = True
        print(f"{name}: no test runs: {text}", file=sys.stderr)
    for (name, text), _ in sorted((reasons - untried).items()):
        fell = True
        print(f"{list_path}: is run, or is gone: {name}: {text}", file=sys.stderr)
    sys.exit(1 if fell else 0)


main(*sys.argv[1:])
