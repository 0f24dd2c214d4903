"""Pictures as files: PNG in its smallest exact form, and the icon file.

Own encoders, because the libraries at hand write neither form from what is drawn here. cairo writes every picture with
32 bits a pixel, three times the size of these in all; imaging libraries choose palette, filters and their order by rules
that change with their version, and their icon files hold PNGs, which old desktops do not read. The one thing that is left
to a library is deflate, and another version of zlib may pack the same pixels into other bytes: so files are compared by
what they show (see same()), never by their bytes.
"""

import io
import struct
import zlib

import cairo


SIGNATURE = b"\x89PNG\r\n\x1a\n"


def straight(surface):
    """The pixels as RGBA words with straight alpha, one list a row."""
    surface.flush()
    width, height, stride = surface.get_width(), surface.get_height(), surface.get_stride()
    data = memoryview(surface.get_data()).cast("I")
    known = {}

    def convert(word):
        alpha = word >> 24
        if alpha in (0, 255):
            rgb = (word & 0xFFFFFF) if alpha else 0
        else:
            rgb = 0
            for shift in (16, 8, 0):
                value = min(255, ((word >> shift & 0xFF) * 255 + alpha // 2) // alpha)
                rgb |= value << shift
        return (rgb << 8 | alpha)

    rows = []
    for y in range(height):
        row = data[y * stride // 4:y * stride // 4 + width]
        for word in set(row):
            if word not in known:
                known[word] = convert(word)
        rows.append([known[word] for word in row])
    return rows


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def plain(rows):
    return b"".join(b"\0" + row for row in rows)


def filtered(rows, pixel):
    """Each row by the filter that leaves the smallest bytes; PIXEL is the number of bytes of one pixel."""
    previous = bytes(len(rows[0]))
    out = bytearray()
    for row in rows:
        left = bytes(pixel) + row[:-pixel]
        choices = (
            row,
            bytes((a - b) & 255 for a, b in zip(row, left)),
            bytes((a - b) & 255 for a, b in zip(row, previous)),
        )
        weights = [sum(min(value, 256 - value) for value in choice) for choice in choices]
        best = weights.index(min(weights))
        out.append(best)
        out += choices[best]
        previous = row
    return bytes(out)


def packed(indices, depth):
    if depth == 8:
        return bytes(indices)
    per_byte = 8 // depth
    padded = indices + [0] * (-len(indices) % per_byte)
    out = bytearray()
    for start in range(0, len(padded), per_byte):
        value = 0
        for index in padded[start:start + per_byte]:
            value = value << depth | index
        out.append(value)
    return bytes(out)


def png(surface):
    """A PNG of the surface: with a palette where 256 colours are enough, else in full colour."""
    rows = straight(surface)
    width, height = len(rows[0]), len(rows)
    # Translucent entries first: the list of alpha values then ends early.
    colours = sorted({word for row in rows for word in row}, key=lambda word: (word & 0xFF == 0xFF, word))
    opaque = all(word & 0xFF == 0xFF for word in colours)
    chunks = []
    if len(colours) <= 256:
        depth = next(bits for bits in (1, 2, 4, 8) if len(colours) <= 1 << bits)
        index = {word: place for place, word in enumerate(colours)}
        lines = [packed([index[word] for word in row], depth) for row in rows]
        kind = 3
        chunks.append(chunk(b"PLTE", b"".join((word >> 8).to_bytes(3, "big") for word in colours)))
        if not opaque:
            chunks.append(chunk(b"tRNS", bytes(word & 0xFF for word in colours if word & 0xFF != 0xFF)))
        raws = [plain(lines)]
    else:
        depth, kind, size = 8, (2 if opaque else 6), (3 if opaque else 4)
        shift = 8 if opaque else 0
        lines = [b"".join((word >> shift).to_bytes(size, "big") for word in row) for row in rows]
        raws = [plain(lines), filtered(lines, size)]
    header = struct.pack(">IIBBBBB", width, height, depth, kind, 0, 0, 0)
    chunks.append(chunk(b"IDAT", min((zlib.compress(raw, 9) for raw in raws), key=len)))
    return SIGNATURE + chunk(b"IHDR", header) + b"".join(chunks) + chunk(b"IEND", b"")


def bitmap(surface):
    """One picture of an icon file in its older form: rows upside down, then an empty mask."""
    rows = straight(surface)
    size = len(rows)
    body = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    for row in reversed(rows):
        body += b"".join(struct.pack("<I", (word & 0xFF) << 24 | word >> 8) for word in row)
    return body + bytes((size + 31) // 32 * 4 * size)


def ico(surfaces):
    """An icon file: bitmaps of less than 256 pixels, as every desktop reads them."""
    images = [bitmap(surface) for surface in surfaces]
    offset = 6 + 16 * len(images)
    head = struct.pack("<HHH", 0, 1, len(images))
    for surface, image in zip(surfaces, images):
        size = surface.get_width()
        head += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return head + b"".join(images)


def same(path, data):
    """Whether the file at PATH shows what DATA, a file of the same kind, shows."""
    with open(path, "rb") as stored:
        found = stored.read()
    if found == data:
        return True
    if not (found.startswith(SIGNATURE) and data.startswith(SIGNATURE)):
        return False
    first, second = (cairo.ImageSurface.create_from_png(io.BytesIO(content)) for content in (found, data))
    if (first.get_width(), first.get_height()) != (second.get_width(), second.get_height()):
        return False
    return straight(first) == straight(second)
