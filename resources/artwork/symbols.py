"""Faces and signs without words."""

import math

import cairo

from canvas import Canvas
from palette import ATTENTION, CHROME, FACES, HAIR, HAIR2, INK, LANGUAGE, LIVE, PANEL, QUIET, TEXT

BUTT = cairo.LINE_CAP_BUTT
MITER = cairo.LINE_JOIN_MITER


def face(size, state, scale=1, corner=None):
    """A square face; gives it back with the colour and the sink of the symbol on it."""
    canvas = Canvas(size, size, scale)
    fill, light, border, _, colour, sink = FACES[state]
    canvas.raised(4, fill, light, border, corner)
    canvas.pen.translate(0, sink)
    return canvas, colour


def connect(state, scale=1):
    canvas, colour = face(40, state, scale)
    colour = LIVE if state == "p" else colour    # pressed: its popup is open
    for x in (14, 23):
        canvas.rounded(x, 9, 3, 8, (1.5, 1.5, 0, 0))
        canvas.fill(colour)
    pen = canvas.pen
    pen.move_to(11, 16)
    pen.line_to(29, 16)
    pen.line_to(29, 19)
    pen.arc(20, 19, 9, 0, math.pi)
    pen.close_path()
    canvas.fill(colour)
    canvas.box(19, 27, 2, 5, colour)
    return canvas


def setup(state, scale=1):
    canvas, colour = face(40, state, scale)
    colour = LIVE if state == "p" else colour
    gear(canvas, 20, 20, colour)
    return canvas


def gear(canvas, x, y, colour):
    teeth, outer, root, hole = 8, 10.5, 7.8, 3.6
    tip, foot = 0.17, 0.26    # half the width of a tooth, as an angle
    pen = canvas.pen
    for tooth in range(teeth):
        middle = tooth * 2 * math.pi / teeth
        pen.arc(x, y, root, middle - 2 * math.pi / teeth + foot, middle - foot)
        for angle in (-tip, tip):
            pen.line_to(x + outer * math.cos(middle + angle), y + outer * math.sin(middle + angle))
    pen.close_path()
    pen.new_sub_path()
    pen.arc_negative(x, y, hole, 2 * math.pi, 0)
    pen.close_path()
    pen.set_fill_rule(cairo.FILL_RULE_EVEN_ODD)
    canvas.fill(colour)
    pen.set_fill_rule(cairo.FILL_RULE_WINDING)


def step(sign, state, scale=1):
    # The two stand side by side and read as one pair: round outside, nearly square where they meet.
    corner = (1, 4, 4, 1) if sign == "increase" else (4, 1, 1, 4)
    canvas, colour = face(40, state, scale, corner)
    canvas.box(13, 19, 14, 2, colour)
    if sign == "increase":
        canvas.box(19, 13, 2, 14, colour)
    return canvas


def handle(state, scale=1):
    canvas = Canvas(22, 22, scale)
    ring, fill, dot = ("#D3DCE7", "#1D2A3F", LIVE) if state == "n" else ("#666C75", "#1B1E23", "#5E5E5E")
    for radius, colour in ((11, INK), (10, ring), (8, fill), (3, dot)):
        canvas.disc(11, 11, radius, colour)
    return canvas


def groove(scale=1):
    canvas = Canvas(346, 6, scale)
    canvas.rounded(0, 0, 346, 6, 3)
    canvas.fill("#2A374B")
    canvas.rounded(1, 1, 344, 4, 2)
    canvas.fill("#05080E")
    return canvas


def radio(state, scale=1):
    canvas = Canvas(26, 26, scale)
    ring, fill, dot = {
        "n": ("#8793A6", "#090E16", None),
        "p": (LIVE, "#0A141E", "#4E7388"),
        "s": (LIVE, "#102A3E", LIVE),
        "d": ("#666C75", "#101318", None),
    }[state]
    canvas.disc(13, 13, 11, ring)
    canvas.disc(13, 13, 9, fill)
    if dot:
        canvas.disc(13, 13, 5, dot)
    return canvas


def checkbox(state, scale=1):
    canvas = Canvas(20, 20, scale)
    border, fill = ("#8793A6", "#090E16") if state == "n" else (LIVE, "#102A3E")
    canvas.raised(3, fill, None, border)
    if state == "p":
        canvas.line(((5, 10.2), (8.6, 13.8), (15, 6.4)), LIVE, 2.2)
    return canvas


def lock_closed(scale=1):
    canvas = Canvas(30, 30, scale)
    fill, light, border, *_ = FACES["p"]
    canvas.raised(4, fill, light, border)
    pen = canvas.pen
    canvas.rounded(8, 14, 14, 10, 2)
    canvas.fill(TEXT)
    pen.move_to(11, 15)
    pen.line_to(11, 12)
    pen.arc(15, 12, 4, math.pi, 2 * math.pi)
    pen.line_to(19, 15)
    canvas.stroke(TEXT, 2, BUTT)
    canvas.box(14, 17, 2, 4, fill)
    return canvas


def lock_open(scale=1):
    canvas = Canvas(30, 30, scale)
    fill, light, border, *_ = FACES["n"]
    canvas.raised(4, fill, light, border)
    pen = canvas.pen
    canvas.rounded(9, 15, 12, 8, 1.5)
    canvas.stroke(QUIET, 2)
    pen.move_to(11, 15)
    pen.line_to(11, 10)
    pen.arc(15, 10, 4, math.pi, 2 * math.pi)
    pen.line_to(19, 11)
    canvas.stroke(QUIET, 2, BUTT)
    return canvas


def fold(kind, scale=1):
    canvas = Canvas(30, 30, scale)
    points = ((9, 12), (15, 18), (21, 12)) if kind == "show" else ((12, 9), (18, 15), (12, 21))
    canvas.line(points, QUIET, 2, join=MITER)
    return canvas


def close(scale=1):
    canvas = Canvas(28, 28, scale)
    # Three pixels above the middle: there it meets the title beside it in every popup.
    canvas.line(((9, 6), (19, 16)), QUIET, 2)
    canvas.line(((19, 6), (9, 16)), QUIET, 2)
    return canvas


def pen(state, scale=1):
    canvas, colour = face(36, state, scale)
    draw = canvas.pen
    draw.translate(18, 18)
    draw.rotate(math.pi / 4)
    # Upright, tip down: bulb, collar, then the glass in outline.
    canvas.rounded(-3, -13.5, 6, 8, 3)
    canvas.fill(colour)
    canvas.rounded(-5.55, -6.5, 11.1, 3, 1.3)
    canvas.fill(colour)
    canvas.line(((-2.6, -3), (-2.6, 6.2), (0, 11.5), (2.6, 6.2), (2.6, -3)), colour, 1.8, BUTT)
    return canvas


def drop_nav(scale=1):
    canvas = Canvas(16, 16, scale)
    canvas.line(((3, 5), (8, 10.5), (13, 5)), LANGUAGE, 2, BUTT, MITER)
    return canvas


def alert(scale=1):
    canvas = Canvas(24, 24, scale)
    canvas.line(((12, 3), (21.75, 20.1), (2.25, 20.1)), ATTENTION, 2, closed=True)
    canvas.line(((12, 10), (12, 14)), ATTENTION, 2)
    canvas.line(((12, 17.2), (12, 17.2)), ATTENTION, 2)
    return canvas


def notify(kind, scale=1):
    canvas = Canvas(64, 64, scale)
    colour = {"info": QUIET, "success": LIVE}.get(kind, ATTENTION)
    if kind == "error":
        canvas.line(((32, 8), (58.5, 54.5), (5.5, 54.5)), colour, 3, closed=True)
        canvas.line(((32, 24), (32, 37)), colour, 4)
        canvas.line(((32, 45.5), (32, 45.5)), colour, 4)
        return canvas
    canvas.ring(32, 32, 25.5, 3, colour)
    if kind == "info":
        canvas.line(((32, 20), (32, 20)), colour, 4)
        canvas.line(((32, 29), (32, 44)), colour, 4)
    elif kind == "success":
        canvas.line(((21.5, 32.8), (28.8, 40), (43, 24.6)), colour, 3.6)
    else:
        question_mark(canvas, colour)
    return canvas


def question_mark(canvas, colour):
    draw = canvas.pen
    draw.new_sub_path()
    draw.arc(32, 26.4, 7.2, math.pi, 2.3 * math.pi)
    draw.curve_to(35.2, 33.5, 31.9, 34.6, 32, 38.4)
    canvas.stroke(colour, 3.4)
    canvas.line(((32, 45), (32, 45)), colour, 4)


def up_arrow(scale=1):
    canvas = Canvas(60, 100, scale)
    canvas.shape(((30, 4), (56, 38), (38, 38), (38, 96), (22, 96), (22, 38), (4, 38)), ATTENTION)
    return canvas


def menu(state, scale=1):
    canvas = Canvas(166, 58, scale)
    if state == "n":
        canvas.box(0, 0, 166, 58, CHROME)
        canvas.box(0, 57, 165, 1, HAIR2)
        canvas.box(165, 0, 1, 58, HAIR)
        return canvas
    # Nothing on the right edge: the chosen entry opens into the content.
    canvas.box(0, 0, 166, 58, PANEL)
    canvas.box(0, 57, 166, 1, HAIR)
    canvas.box(0, 0, 3, 58, LIVE)
    return canvas


def half_disc(canvas, x, y, radius, width):
    """The mark of the program: a ring about a disc of which the left half is lit."""
    canvas.ring(x, y, radius, width, TEXT)
    canvas.pen.new_sub_path()
    canvas.pen.arc(x, y, radius - 1.5 * width, math.pi / 2, 1.5 * math.pi)
    canvas.pen.close_path()
    canvas.fill(LIVE)


def icon(size):
    """The program's icon, drawn for its size: its lines never get thinner than a pixel."""
    canvas = Canvas(size, size)
    fill, light, border, *_ = FACES["n"]
    canvas.raised(size / 8, fill, light, border)
    half_disc(canvas, size / 2, size / 2, max(size * 19 / 64, 5.3), max(size * 3.4 / 64, 1.4))
    return canvas


def pictures():
    for state in "np":
        yield f"btn_{state}_connect_dashboard", lambda scale, s=state: connect(s, scale)
        yield f"btn_{state}_menu_dashboard", lambda scale, s=state: menu(s, scale)
        yield f"btn_{state}_checkbox_output", lambda scale, s=state: checkbox(s, scale)
    for state in "npd":
        yield f"btn_{state}_setup_dashboard", lambda scale, s=state: setup(s, scale)
        for sign in ("increase", "reduce"):
            yield f"btn_{state}_{sign}_s_chromakey", lambda scale, k=sign, s=state: step(k, s, scale)
    for state in "nd":
        yield f"btn_{state}_slider_chromakey", lambda scale, s=state: handle(s, scale)
        yield f"btn_{state}_pickcolor_chromakey", lambda scale, s=state: pen(s, scale)
    for state in "npsd":
        yield f"btn_{state}_radio_lumakey", lambda scale, s=state: radio(s, scale)
    for kind in ("error", "info", "question", "success"):
        yield f"img_notify_{kind}", lambda scale, k=kind: notify(k, scale)
    yield "btn_n_close_dialog", close
    yield "btn_n_hide_dashboard", lambda scale: fold("hide", scale)
    yield "btn_n_show_dashboard", lambda scale: fold("show", scale)
    yield "ico_alert", alert
    yield "icon_drop_nav", drop_nav
    yield "icon_lock_output", lock_closed
    yield "icon_unlock_output", lock_open
    yield "img_slider_01_chromakey", groove
    yield "img_up_arrow", up_arrow
