"""Backgrounds: the zones of the window, the popups and the splash."""

from canvas import Canvas
from palette import (BAND, CHROME, DIVIDER, GROUND, HAIR, HAIR2, INK, LABEL, PANEL, POPUP, POPUP_LINE,
                     POPUP_UPPER, ROW, ROW_LINE, TEXT, TITLE, TITLE_BAND)
from symbols import half_disc


def ground(scale, width, height, fill, *lines):
    """A filled box with lines: each x, y, width, height, colour."""
    canvas = Canvas(width, height, scale)
    canvas.box(0, 0, width, height, fill)
    for line in lines:
        canvas.box(*line)
    return canvas


def header(scale):
    canvas = ground(scale, 1366, 48, CHROME, (0, 0, 1366, 1, HAIR2), (0, 47, 1366, 1, INK))
    x = 24 + canvas.words("QKV", "Carlito", 20, 24, 32, TEXT)
    canvas.words("-720", "Carlito", 20, x, 32, TITLE)
    return canvas


def popup(scale, width, height, band):
    """The frame of every popup; BAND is the last pixel row of its title band."""
    canvas = ground(scale, width, height, POPUP)
    canvas.box(2, 2, width - 4, band - 1, TITLE_BAND)
    canvas.box(2, 2, width - 4, 1, POPUP_UPPER)
    canvas.box(2, band + 1, width - 4, 1, INK)
    canvas.box(2, band + 2, width - 4, 1, ROW_LINE)
    canvas.frame(1, 1, width - 2, height - 2, POPUP_LINE)
    canvas.frame(0, 0, width, height, INK)
    return canvas


def setup(scale):
    canvas = popup(scale, 500, 450, 46)
    canvas.box(20, 379, 460, 1, DIVIDER)
    return canvas


def picker(scale):
    canvas = popup(scale, 522, 522, 38)
    canvas.box(13, 61, 496, 286, INK)
    canvas.frame(13, 61, 496, 286, HAIR)
    canvas.box(13, 454, 496, 1, DIVIDER)
    return canvas


def splash(scale):
    canvas = ground(scale, 640, 360, CHROME, (2, 2, 636, 1, POPUP_UPPER))
    canvas.frame(1, 1, 638, 358, POPUP_LINE)
    canvas.frame(0, 0, 640, 360, INK)
    half_disc(canvas, 92, 164, 28, 4)
    x = 144 + canvas.words("QKV", "Carlito", 64, 144, 184, TEXT)
    canvas.words("-720", "Carlito", 64, x, 184, TITLE)
    canvas.box(48, 232, 544, 1, HAIR)
    canvas.words("Chroma keyer control panel", "Carlito", 20, 48, 268, LABEL, bold=False)
    return canvas


def pictures():
    yield "img_bg_02_dashboard", lambda scale: ground(scale, 1366, 768, GROUND)
    yield "img_bg_header_dashboard", header
    yield "img_bg_output_dashboard", lambda scale: ground(
        scale, 1366, 100, BAND, (0, 0, 1366, 1, HAIR), (0, 99, 1366, 1, INK))
    # The third line is the upper line of the menu's first entry.
    yield "img_bg_menu_dashbpard", lambda scale: ground(
        scale, 176, 620, CHROME, (0, 0, 176, 1, HAIR), (175, 0, 1, 620, HAIR), (10, 9, 165, 1, HAIR2))
    # Drawn 1190 wide: all its columns are equal, and in full width it would be the largest picture in memory.
    yield "img_bg_content_dashbpard", lambda scale: ground(scale, 80, 620, PANEL, (0, 0, 80, 1, HAIR))
    # Rows touch: the lower line of one and the upper line of the next form the groove between them.
    yield "img_bg_input_line", lambda scale: ground(scale, 1110, 74, ROW, (0, 0, 1110, 1, ROW_LINE), (0, 73, 1110, 1, INK))
    yield "img_bg_connect", lambda scale: popup(scale, 660, 720, 46)
    yield "img_bg_setup", setup
    yield "img_bg_notify", lambda scale: popup(scale, 520, 300, 38)
    yield "img_launch_image", splash
