"""Faces with words: buttons and switches, one for each folder."""

from canvas import Canvas
from palette import (CHINESE_SIZE, FACES, FAMILIES, FOLDERS, HELD, SWITCHES, SWITCH_WORDS, WORDS)

LATIN_RISE = 0.322    # of the size: puts capitals on the middle of the face, not the line box
CHINESE_RISE = 0.38


def letters(canvas, text, folder, size, x, colour, sink=0):
    rise = CHINESE_RISE if folder else LATIN_RISE
    baseline = int(canvas.height / 2 + rise * size + 0.5) + sink
    canvas.words(text, FAMILIES[folder], size, x, baseline, colour, centred=True)


def button(name, state, folder, scale=1):
    _, width, height, latin_size, *words = WORDS[name]
    canvas = Canvas(width, height, scale)
    look = "held" if state == "p" and name in HELD else state
    fill, light, border, colour, _, sink = FACES[look]
    canvas.raised(4, fill, light, border)
    size = CHINESE_SIZE[height] if folder else latin_size
    letters(canvas, words[FOLDERS.index(folder)], folder, size, width / 2, colour, sink)
    return canvas


def plain(scale=1):
    canvas = Canvas(110, 36, scale)
    fill, light, border, *_ = FACES["n"]
    canvas.raised(4, fill, light, border)
    return canvas


def switch(state, folder, scale=1):
    canvas = Canvas(64, 30, scale)
    border, fill, knob, knob_light, colour = SWITCHES[state]
    canvas.raised(4, fill, None, border)
    on = state.endswith("on")
    x = 36 if on else 4
    canvas.rounded(x, 4, 24, 22, 2)
    canvas.fill(knob)
    canvas.box(x + 1, 4, 22, 1, knob_light)
    text = SWITCH_WORDS["on" if on else "off"][FOLDERS.index(folder)]
    letters(canvas, text, folder, 14 if folder else 13, 19 if on else 45, colour)
    return canvas


def pictures(folder):
    """Name and painter of every face with words; a painter takes the scale to paint in."""
    for name, (states, *_) in WORDS.items():
        for state in states:
            yield f"btn_{state}_{name}", lambda scale, n=name, s=state: button(n, s, folder, scale)
    for state in SWITCHES:
        yield f"btn_switch_{state}_dashboard", lambda scale, s=state: switch(s, folder, scale)
    yield "btn_bg_adjust_color", plain
