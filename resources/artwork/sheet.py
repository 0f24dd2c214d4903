"""A contact sheet: every picture of a folder at its own size on the dark ground, with its name."""

from canvas import Canvas
from palette import LABEL, TEXT

WIDTH = 1200
GAP = 24
CAPTION = 20
GROUND = "#1A1F29"    # lighter than the faces' border, so that their edge shows
LARGE = 400    # pictures wider or higher are shown at half their size
STATES = "npsd"


def shrunk(surface):
    return surface.get_width() > LARGE or surface.get_height() > LARGE


def order(entry):
    """Small ones first, then by height; the states of one control side by side."""
    name, surface = entry
    parts = name.split("_")
    state = STATES.index(parts[1]) if parts[0] == "btn" and parts[1] in STATES else 0
    control = "_".join(parts[2:]) if state or parts[1] == "n" else name
    return shrunk(surface), surface.get_height(), surface.get_width(), control, state


def placed(painters):
    """Column and row for each picture, in the order of their names; and the height of the whole."""
    places, x, y, row_height = [], GAP, 64, 0
    entries = sorted(((name, paint(1).surface) for name, paint in painters), key=order)
    for name, surface in entries:
        factor = 0.5 if shrunk(surface) else 1
        width, height = surface.get_width() * factor, surface.get_height() * factor
        cell = max(width, 5.6 * len(name))
        if x + cell > WIDTH - GAP:
            x, y, row_height = GAP, y + row_height + CAPTION + GAP, 0
        places.append((name, surface, factor, x, y))
        x += int(cell) + GAP
        row_height = max(row_height, int(height))
    return places, y + row_height + CAPTION + GAP


def sheet(painters):
    places, height = placed(painters)
    canvas = Canvas(WIDTH, height)
    canvas.box(0, 0, WIDTH, height, GROUND)
    canvas.words(f"{len(places)} pictures", "Carlito", 22, GAP, 36, TEXT)
    for name, surface, factor, x, y in places:
        pen = canvas.pen
        pen.save()
        pen.translate(x, y)
        pen.scale(factor, factor)
        pen.set_source_surface(surface, 0, 0)
        pen.paint()
        pen.restore()
        canvas.words(name, "Carlito", 12, x, y + int(surface.get_height() * factor) + 16, LABEL, bold=False)
    return canvas.surface
