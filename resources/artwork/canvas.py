"""A picture under construction: a Cairo surface with the few strokes that the artwork needs."""

import math

import cairo
import gi

gi.require_version("Pango", "1.0")
gi.require_version("PangoCairo", "1.0")
from gi.repository import Pango, PangoCairo  # noqa: E402


def channels(colour):
    return tuple(int(colour[i:i + 2], 16) / 255 for i in (1, 3, 5))


class Canvas:
    """Coordinates are pixels of the picture at scale 1, whatever the scale it is drawn in."""

    def __init__(self, width, height, scale=1):
        self.width, self.height = width, height
        pixels = (round(width * scale), round(height * scale))
        self.surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, *pixels)
        self.pen = cairo.Context(self.surface)
        self.pen.scale(scale, scale)

    def ink(self, colour):
        self.pen.set_source_rgb(*channels(colour))

    def fill(self, colour):
        self.ink(colour)
        self.pen.fill()

    def stroke(self, colour, width, cap=cairo.LINE_CAP_ROUND, join=cairo.LINE_JOIN_ROUND):
        self.ink(colour)
        self.pen.set_line_width(width)
        self.pen.set_line_cap(cap)
        self.pen.set_line_join(join)
        self.pen.stroke()

    def box(self, x, y, width, height, colour):
        self.pen.rectangle(x, y, width, height)
        self.fill(colour)

    def frame(self, x, y, width, height, colour):
        """A frame one pixel wide, inside the given box."""
        self.pen.rectangle(x + 0.5, y + 0.5, width - 1, height - 1)
        self.stroke(colour, 1, join=cairo.LINE_JOIN_MITER)

    def rounded(self, x, y, width, height, radius):
        """The path of a rounded box; RADIUS is one number or four, clockwise from the top left."""
        corners = radius if isinstance(radius, tuple) else (radius,) * 4
        right, bottom = x + width, y + height
        top_left, top_right, bottom_right, bottom_left = corners
        self.pen.new_sub_path()
        self.pen.arc(right - top_right, y + top_right, top_right, -math.pi / 2, 0)
        self.pen.arc(right - bottom_right, bottom - bottom_right, bottom_right, 0, math.pi / 2)
        self.pen.arc(x + bottom_left, bottom - bottom_left, bottom_left, math.pi / 2, math.pi)
        self.pen.arc(x + top_left, y + top_left, top_left, math.pi, 1.5 * math.pi)
        self.pen.close_path()

    def disc(self, x, y, radius, colour):
        self.pen.new_sub_path()
        self.pen.arc(x, y, radius, 0, 2 * math.pi)
        self.fill(colour)

    def ring(self, x, y, radius, width, colour):
        """RADIUS is that of the middle of the line."""
        self.pen.new_sub_path()
        self.pen.arc(x, y, radius, 0, 2 * math.pi)
        self.stroke(colour, width)

    def line(self, points, colour, width, cap=cairo.LINE_CAP_ROUND, join=cairo.LINE_JOIN_ROUND, closed=False):
        for x, y in points:
            self.pen.line_to(x, y)
        if closed:
            self.pen.close_path()
        self.stroke(colour, width, cap, join)

    def shape(self, points, colour):
        for x, y in points:
            self.pen.line_to(x, y)
        self.pen.close_path()
        self.fill(colour)

    def raised(self, radius, fill, light, border, corner=None):
        """The body of every face: border over the whole size, fill inside it, light on the fill's top row."""
        corners = corner or (radius,) * 4
        inner = tuple(max(value - 1, 0) for value in corners)
        inside = (1, 1, self.width - 2, self.height - 2)
        self.rounded(0, 0, self.width, self.height, corners)
        self.fill(border)
        self.rounded(*inside, inner)
        self.fill(fill)
        if not light:
            return
        self.pen.save()
        self.rounded(*inside, inner)
        self.pen.clip()
        self.box(1, 1, self.width - 2, 1, light)
        self.pen.restore()

    def words(self, text, family, size, x, baseline, colour, bold=True, centred=False):
        """Sets TEXT with its base line at a whole pixel and gives its width back."""
        options = cairo.FontOptions()
        options.set_antialias(cairo.ANTIALIAS_GRAY)
        # Upright hinting only: base line and height of the capitals fall on whole pixels, the widths stay.
        options.set_hint_style(cairo.HINT_STYLE_SLIGHT)
        options.set_hint_metrics(cairo.HINT_METRICS_OFF)
        font = Pango.FontDescription()
        font.set_family(family)
        font.set_weight(Pango.Weight.BOLD if bold else Pango.Weight.NORMAL)
        font.set_absolute_size(size * Pango.SCALE)
        layout = PangoCairo.create_layout(self.pen)
        PangoCairo.context_set_font_options(layout.get_context(), options)
        layout.set_font_description(font)
        layout.set_text(text, -1)
        width = layout.get_extents()[1].width / Pango.SCALE
        self.pen.move_to(x - width / 2 if centred else x, baseline)
        self.ink(colour)
        PangoCairo.show_layout_line(self.pen, layout.get_line_readonly(0))
        return width
