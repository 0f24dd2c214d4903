"""The face of the open angle signs: plus and minus as bars on whole pixels at their 40 px, and at every multiple.

No packaged face has both signs 18 pixels wide and in the middle of their line, and where a face has them nearly so,
it is on few machines. The measures are pixels at 40 px; the font counts 25 units for each.
"""

import io

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib import TTFont

FAMILY = "QKV-720 Signs"
SIZE, UNIT = 40, 25
ADVANCE = 24
ASCENT, DESCENT = 30, 10
MIDDLE = 10     # above the base line: half the line's height is 20, which is 10 above its descent
LENGTH, WIDTH = 18, 4
MADE = 0        # no time of making, so that the same tables make the same file


def box(left, bottom, right, top):
    return ((left, bottom), (left, top), (right, top), (right, bottom))


def glyph(*outlines):
    pen = TTGlyphPen(None)
    for outline in outlines:
        pen.moveTo(tuple(value * UNIT for value in outline[0]))
        for point in outline[1:]:
            pen.lineTo(tuple(value * UNIT for value in point))
        pen.closePath()
    return pen.glyph()


def plus():
    """One outline: two boxes that overlap would be drawn lighter where they meet by some rasterisers."""
    left, right = (ADVANCE - LENGTH) // 2, (ADVANCE + LENGTH) // 2
    inner_left, inner_right = (ADVANCE - WIDTH) // 2, (ADVANCE + WIDTH) // 2
    low, high = MIDDLE - LENGTH // 2, MIDDLE + LENGTH // 2
    inner_low, inner_high = MIDDLE - WIDTH // 2, MIDDLE + WIDTH // 2
    return glyph((
        (left, inner_low), (left, inner_high), (inner_left, inner_high), (inner_left, high), (inner_right, high),
        (inner_right, inner_high), (right, inner_high), (right, inner_low), (inner_right, inner_low),
        (inner_right, low), (inner_left, low), (inner_left, inner_low)))


def minus():
    return glyph(box((ADVANCE - LENGTH) // 2, MIDDLE - WIDTH // 2,
                     (ADVANCE + LENGTH) // 2, MIDDLE + WIDTH // 2))


def missing():
    return glyph(box(3, 0, 21, 28), tuple(reversed(box(5, 2, 19, 26))))


def font():
    """The font file. Bold, as the signs ask for it: a face that is not would be thickened."""
    builder = FontBuilder(SIZE * UNIT, isTTF=True)
    glyphs = {".notdef": missing(), "space": glyph(), "plus": plus(), "hyphen": minus()}
    builder.setupGlyphOrder(list(glyphs))
    builder.setupCharacterMap({0x20: "space", 0x2B: "plus", 0x2D: "hyphen"})
    builder.setupGlyf(glyphs)
    left = {name: glyphs[name].xMin if glyphs[name].numberOfContours else 0 for name in glyphs}
    builder.setupHorizontalMetrics({name: (ADVANCE * UNIT, left[name]) for name in glyphs})
    ascent, descent = ASCENT * UNIT, DESCENT * UNIT
    builder.setupHorizontalHeader(ascent=ascent, descent=-descent)
    builder.setupNameTable({"familyName": FAMILY, "styleName": "Bold", "uniqueFontIdentifier": FAMILY,
                            "fullName": FAMILY + " Bold", "version": "Version 1.0",
                            "psName": FAMILY.replace(" ", "") + "-Bold"})
    builder.setupOS2(sTypoAscender=ascent, sTypoDescender=-descent, sTypoLineGap=0, usWinAscent=ascent,
                     usWinDescent=descent, usWeightClass=700, fsSelection=0x20, ulUnicodeRange1=1,
                     ulCodePageRange1=1)
    builder.setupPost(isFixedPitch=1)
    builder.updateHead(macStyle=1, created=MADE, modified=MADE)
    builder.font.recalcTimestamp = False
    file = io.BytesIO()
    builder.save(file)
    return file.getvalue()


def same(path, data):
    """Whether the font at PATH holds what DATA holds, whatever version of the library packed either."""
    stored, drawn = TTFont(path), TTFont(io.BytesIO(data))
    tables = set(stored.keys()) - {"head"}    # which counts the bytes
    return tables == set(drawn.keys()) - {"head"} and all(
        stored.getTableData(table) == drawn.getTableData(table) for table in tables if table != "GlyphOrder")
