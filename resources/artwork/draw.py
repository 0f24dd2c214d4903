#!/usr/bin/python3
"""Draws every picture of the panel, and the face of its open angle signs.

    draw.py            writes the pictures under resources/img, and resources/OpenAngleSigns.ttf
    draw.py --check    tells whether the pictures there are the ones it draws, nothing missing, nothing more
    draw.py --sheet    writes the contact sheets docs/pictures-pc.png, -CN and -TW

Needs python3-cairo, python3-gi-cairo, gir1.2-pango-1.0, python3-fonttools, Carlito (fonts-crosextra-carlito) and
Noto Sans CJK (fonts-noto-cjk).
"""

import argparse
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
IMAGES = ROOT / "resources" / "img"
SIGNS = ROOT / "resources" / "OpenAngleSigns.ttf"
# Of the window; the start decodes all of them, and gives all of them to the desktop with each window.
ICON_SIZES = (16, 24, 32, 48, 64, 128)
# Each picture at its own size and at twice that, which the toolkit takes on a large screen; with the mark of its name.
SCALES = {1: "", 2: "@2x"}
LARGE_LIMIT = 240    # KiB in all for the second scale

sys.dont_write_bytecode = True
sys.path.insert(0, str(HERE))

import faces  # noqa: E402
import grounds  # noqa: E402
import picturefile  # noqa: E402
import sheet  # noqa: E402
import signs  # noqa: E402
import symbols  # noqa: E402
from canvas import PangoCairo  # noqa: E402
from palette import FAMILIES, FOLDERS  # noqa: E402


def painters(folder):
    """Name and painter of every picture of one folder: "" is the folder of the English ones."""
    yield from faces.pictures(folder)
    # Without words, yet looked for in the language folders.
    yield "img_bg_pick_color_chromakey", grounds.picker
    if folder:
        return
    yield from symbols.pictures()
    yield from grounds.pictures()


def files():
    """Path and content of every file under resources/img."""
    for folder in FOLDERS:
        for name, paint in painters(folder):
            for scale, mark in SCALES.items():
                yield IMAGES / "pc" / folder / f"{name}{mark}.png", picturefile.png(paint(scale).surface)
    yield IMAGES / "qkv720.ico", picturefile.ico([symbols.icon(size).surface for size in ICON_SIZES])


def missing_families():
    """The families that the words need and the system lacks: another one would be taken in silence."""
    found = {family.get_name() for family in PangoCairo.FontMap.get_default().list_families()}
    return sorted(set(FAMILIES.values()) - found)


def draw():
    count = size = large = 0
    for path, data in files():
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)
        count, size = count + 1, size + len(data)
        large += len(data) if path.stem.endswith(SCALES[2]) else 0
    SIGNS.write_bytes(signs.font())
    print(f"{count} pictures, {size / 1024:.0f} KiB; {large / 1024:.0f} KiB of them at twice their size")
    return 0 if large <= LARGE_LIMIT * 1024 else 1


def check():
    wrong, known = [], set()
    for path, data in files():
        known.add(path)
        if not path.exists():
            wrong.append(f"missing: {path.relative_to(ROOT)}")
        elif not picturefile.same(path, data):
            wrong.append(f"differs: {path.relative_to(ROOT)}")
    wrong += [f"not drawn: {path.relative_to(ROOT)}" for path in sorted(IMAGES.rglob("*"))
              if path.is_file() and path not in known]
    if not SIGNS.exists() or not signs.same(SIGNS, signs.font()):
        wrong.append(f"missing or differs: {SIGNS.relative_to(ROOT)}")
    print("\n".join(wrong) or f"{len(known)} pictures are as drawn")
    return 1 if wrong else 0


def sheets():
    for folder in FOLDERS:
        path = ROOT / "docs" / f"pictures-{folder or 'pc'}.png"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(picturefile.png(sheet.sheet(list(painters(folder)))))
        print(path.relative_to(ROOT))
    return 0


def main():
    parser = argparse.ArgumentParser(description="Draws every picture of the panel.")
    choice = parser.add_mutually_exclusive_group()
    choice.add_argument("--check", action="store_true", help="compare the pictures under resources/img")
    choice.add_argument("--sheet", action="store_true", help="write the contact sheets under docs")
    options = parser.parse_args()
    missing = missing_families()
    if missing:
        sys.exit(f"draw.py: no such font here: {', '.join(missing)}")
    if options.check:
        return check()
    return sheets() if options.sheet else draw()


if __name__ == "__main__":
    sys.exit(main())
