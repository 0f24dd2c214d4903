"""The promises, the tables and the page that bench/all makes of its results."""


def promise(name, value, bound, text, at_least=False):
    return {"name": name, "value": round(value, 3), "bound": bound, "text": text,
            "kept": value >= bound if at_least else value <= bound}


def promises(results, told_sleep_ms):
    """Each figure that is promised, as a ratio to the reference of the same run where there is one."""
    made = []
    if "start" in results:
        start = results["start"]
        panel, rows = start["panel"], start["window of 72 rows"]
        made += [
            promise("first picture", (panel["firstMs"] - told_sleep_ms) / rows["firstMs"], 1.8,
                    f"start to the first picture, less the designed {told_sleep_ms} ms, over the window of 72 rows"),
            promise("memory", panel["rssMb"] - rows["rssMb"], 20,
                    "MB of resident memory at the first picture, beyond the window of 72 rows"),
        ]
        told = start["panel, told to draw in software"]
        made += [
            promise("first picture, nothing set", panel["firstMs"] / told["firstMs"], 1.1,
                    "the same without a GPU and nothing set in the environment, over one told to draw in software"),
            promise("memory, nothing set", panel["rssMb"] - told["rssMb"], 1, "MB beyond that one"),
        ]
    for link, line in results.get("exchange", {}).items():
        made.append(promise(f"exchange, {link}", line["panel"]["p50"] / line["bare"]["p50"], 2.0,
                            f"the panel's share of an exchange over a bare socket's, {link} link, median"))
    for name, line in results.get("flows", {}).items():
        made.append(promise(name, line["ratio"], 1.02, f"{name}, over its mandated waits"))
    for name, line in results.get("idle", {}).items():
        if name == "start mask":
            made.append(promise("start mask", line["cpuPercent"], 3.5, "percent of a core under the start mask"))
        elif "poll" not in name:
            made += [
                promise(f"still, {name}", line["wakeups"] / line["seconds"], 1,
                        f"wake-ups a second beyond the poll, connected, {name}"),
                promise(f"rest, {name}", line["cpuPercent"], 0.1, f"percent of a core, connected and still, {name}"),
            ]
    for name, line in results.get("drag", {}).items():
        if "after 0 ms" in name:
            bound = 20 if "scale 2" in name else 30
            made.append(promise(f"drag, {name}", line["framesPerSecond"], bound,
                                f"pictures a second during a drag, {name}", at_least=True))
    if "soak" in results:
        soak = results["soak"]
        made += [
            promise("soak, memory", max(0, soak["rssSlopeKb"]), 64, f"KB grown over {soak['operations']} operations"),
            promise("soak, descriptors", soak["descriptors"], 0, "descriptors gained by them"),
            promise("soak, threads", soak["threads"], 0, "threads gained by them"),
        ]
    if "run" in results:
        made.append(promise("./run", results["run"]["secondStartSeconds"], 5,
                            "seconds from a second ./run to the panel's first picture"))
    for name in results.get("failed", {}):
        made.append(promise(f"{name} failed", 1, 0, f"failures of the bench {name}"))
    return made


def table(head, rows):
    """A Markdown table whose columns line up, so that it reads on a terminal too."""
    cells = [head, *[[str(cell) for cell in row] for row in rows]]
    widths = [max(len(row[column]) for row in cells) for column in range(len(head))]
    lines = ["| " + " | ".join(cell.ljust(width) for cell, width in zip(row, widths)) + " |" for row in cells]
    return "\n".join([lines[0], "|" + "|".join("-" * (width + 2) for width in widths) + "|", *lines[1:]])


def figure(value, places=1):
    return "" if value is None else f"{value:.{places}f}"


def sections(results):
    """Heading, words and table of each bench that was run."""
    if "start" in results:
        rows = [[name, figure(line.get("splashMs"), 0), figure(line["firstMs"], 0), figure(line["usableMs"], 0),
                 figure(line["cpuMs"], 0), figure(line["rssMb"]), figure(line["pssMb"]),
                 figure(line["privateDirtyMb"])] for name, line in results["start"].items()]
        yield ("Start", "Medians of runs in turn, warm, on a virtual display; milliseconds from the start of the process "
               "(the panel's hold the designed sleep of 100 ms), memory in MB at the first picture. The references are an "
               "empty Qt Quick window and one with as many rows of label, slider and field as the panel has.",
               table(["", "splash", "first picture", "usable", "CPU", "RSS", "PSS", "private dirty"], rows))
    if "exchange" in results:
        rows = [[f"{link}, {who}", *[figure(line[key][name], 3) for name in ("p50", "p95", "p99", "max")],
                 figure(line["leftPerExchange"], 2) if key == "panel" else ""]
                for link, line in results["exchange"].items()
                for key, who in (("panel", "the panel"), ("bare", "a bare socket"))]
        yield ("Exchanges", "What an exchange takes beyond its mandated wait of 50 ms (network) or 150 ms (serial), in "
               "milliseconds, and the same done with the system's own calls alone, turn by turn.",
               table(["", "p50", "p95", "p99", "max", "allocations left"], rows))
    if "flows" in results:
        rows = [[name, line["mandatedMs"], figure(line["elapsedMs"]), figure(line["ratio"], 4), line["sum"]]
                for name, line in results["flows"].items()]
        yield ("Flows", "Whole flows against the waits that the unit needs; the rest is ours. Milliseconds.",
               table(["", "mandated", "taken", "ratio", "how the wait comes about"], rows))
    if "idle" in results:
        rows = [[name, line["frames"], figure(line["wakeups"] / line["seconds"], 2), figure(line["cpuPercent"], 2)]
                for name, line in results["idle"].items()]
        yield ("Idle", "Nobody touches anything. The poll is held but for the last line, so that what is left is the "
               "panel's own.", table(["", "pictures", "wake-ups a second", "percent of a core"], rows))
    if "drag" in results:
        rows = [[name, figure(line["framesPerSecond"]), figure(line["commandsPerSecond"]),
                 figure(line["lastMoveToLastCommandMs"], 0)] for name, line in results["drag"].items()]
        yield ("Drag", "Black level dragged to and fro by a mouse that moves 125 times a second. Each command holds the "
               "screen for its mandated 50 ms.",
               table(["", "pictures a second", "commands a second", "last move to last command, ms"], rows))
    if "soak" in results:
        soak = results["soak"]
        yield ("Soak", "The operations of a day over and over, the sleeps taken away; growth after the first 2,000.",
               table(["operations", "seconds", "KB grown", "descriptors", "threads"],
                     [[soak["operations"], figure(soak["seconds"]), figure(soak["rssSlopeKb"]), soak["descriptors"],
                       soak["threads"]]]))
    if "run" in results:
        yield ("./run", "A second start, with nothing to build: from the command to the first picture on the screen, "
               "with the private network and the stand-in unit.",
               table(["", "seconds"], [["second ./run", figure(results["run"]["secondStartSeconds"])]]))
    for name, reason in results.get("failed", {}).items():
        yield (f"{name}: failed", f"Tried twice: {reason}", "")


def promised(results):
    rows = [[item["text"], item["value"], item["bound"], "yes" if item["kept"] else "NO"]
            for item in results["promises"]]
    return table(["promise", "figure", "bound", "kept"], rows)


def tables(results):
    parts = [f"{heading}\n{body}" for heading, _, body in sections(results)]
    return "\n\n".join([*parts, "Promises\n" + promised(results)]) + "\n"


def page(results):
    machine = results["machine"]
    parts = [f"## {heading}\n\n{words}\n\n{body}" for heading, words, body in sections(results)]
    head = f"""# What it costs

Written by `bench/all --write` on {results["date"]}; run it to repeat every figure (release build, some ten minutes).
{machine["cores"]} cores of {machine["cpu"]}, {machine["system"]}, Qt {machine["qt"]}, load {machine["load"]:.1f} at the start. The panel draws in
software, as it does everywhere unless its environment says otherwise.

## What is promised

Ratios to references measured in the same run, so that they hold on other machines. `bench/all` ends with 1 when one
is broken.

{promised(results)}"""
    return "\n\n".join([head, *parts]) + "\n"
