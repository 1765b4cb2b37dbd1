#!/usr/bin/env python3
"""Draws the module's bitmaps and icons.   draw_images.py OUTPUT_FOLDER

Bitmaps are strips of equal images side by side, 4 bits a pixel, run-length encoded, magenta
transparent; each is drawn for 100 and for 150 percent (whole multiples are made when they are
loaded). Icons have 32 bits a pixel with alpha, larger ones 4 bits. Everything is drawn on the pixel grid, so that it stays crisp.
"""
import os
import struct
import sys

PALETTE = {
    "clear": (255, 0, 255),
    "ink": (64, 68, 76),
    "paper": (255, 255, 255),
    "shade": (176, 180, 188),
    "text": (150, 156, 168),
    "tint": (206, 222, 244),
    "blue": (38, 98, 184),
    "red": (204, 44, 44),
    "green": (40, 148, 72),
    "yellow": (250, 198, 40),
    "cyan": (0, 158, 224),
    "magenta": (214, 0, 122),
    "gray": (120, 124, 132),
    "black": (16, 16, 16),
    "amber": (196, 132, 0),
    "none": (0, 0, 0),
}
NAMES = list(PALETTE)


SCALES = (1, 1.5)


class Image:
    """A square of palette names. Coordinates are those of 100 percent and are rounded to pixels at
    other scales; drawing outside is cut off."""

    scale = 1  # of all images that are made

    def __init__(self, size=24):
        self.size = self.pixel(size)
        self.pixels = [["clear"] * self.size for _ in range(self.size)]

    @classmethod
    def pixel(cls, place):
        return int(place * cls.scale + 0.5)

    @classmethod
    def line_width(cls):
        return int(cls.scale)  # a line is never blurred, nor of changing width

    def fill_pixels(self, x0, y0, x1, y1, color):
        """The pixels from (x0, y0) to before (x1, y1)."""
        for y in range(max(y0, 0), min(y1, self.size)):
            for x in range(max(x0, 0), min(x1, self.size)):
                self.pixels[y][x] = color

    def dot(self, x, y, color):
        self.fill(x, y, x, y, color)

    def fill(self, x0, y0, x1, y1, color):
        self.fill_pixels(self.pixel(x0), self.pixel(y0), self.pixel(x1 + 1), self.pixel(y1 + 1),
                         color)

    def frame_pixels(self, x0, y0, x1, y1, color):
        width = self.line_width()
        self.fill_pixels(x0, y0, x1, y0 + width, color)
        self.fill_pixels(x0, y1 - width, x1, y1, color)
        self.fill_pixels(x0, y0, x0 + width, y1, color)
        self.fill_pixels(x1 - width, y0, x1, y1, color)

    def frame(self, x0, y0, x1, y1, color):
        self.frame_pixels(self.pixel(x0), self.pixel(y0), self.pixel(x1 + 1), self.pixel(y1 + 1),
                          color)

    def disc(self, cx, cy, radius, color):
        cx, cy, radius = (value * self.scale for value in (cx, cy, radius))
        for y in range(self.size):
            for x in range(self.size):
                if (x + 0.5 - cx) ** 2 + (y + 0.5 - cy) ** 2 <= radius * radius:
                    self.pixels[y][x] = color

    def art(self, x0, y0, rows, colors):
        """Rows of characters; `colors` names the colour of each, others stay as they are. Slanting
        outlines are smoothed at larger scales."""
        width = max(map(len, rows))
        if self.scale != 1:
            rows = tripled([row.ljust(width, ".") for row in rows])
        parts = 1 if self.scale == 1 else 3
        left, top = self.pixel(x0), self.pixel(y0)
        for y in range(int(len(rows) / parts * self.scale)):
            for x in range(int(width * self.scale)):
                row = rows[int((y + 0.5) / self.scale * parts)]
                column = int((x + 0.5) / self.scale * parts)
                char = row[column] if column < len(row) else "."
                if char in colors:
                    self.fill_pixels(left + x, top + y, left + x + 1, top + y + 1, colors[char])

    def sheet(self, x0, y0, x1, y1, fill="paper"):
        self.fill(x0 + 1, y0 + 1, x1 + 1, y1 + 1, "shade")
        self.fill(x0, y0, x1, y1, fill)
        self.frame(x0, y0, x1, y1, "ink")

    def text_lines(self, x0, y0, x1, y1, step=2, color="text"):
        for y in range(y0, y1 + 1, step):
            top = self.pixel(y)
            self.fill_pixels(self.pixel(x0), top, self.pixel(x1 + 1), top + self.line_width(),
                             color)


def tripled(rows):
    """The rows three times as large in both directions, with the corners of steps cut (Scale3x)."""
    def at(x, y):
        return rows[y][x] if 0 <= y < len(rows) and 0 <= x < len(rows[y]) else "."
    out = []
    for y, row in enumerate(rows):
        lines = ["", "", ""]
        for x, e in enumerate(row):
            a, b, c = at(x - 1, y - 1), at(x, y - 1), at(x + 1, y - 1)
            d, f = at(x - 1, y), at(x + 1, y)
            g, h, i = at(x - 1, y + 1), at(x, y + 1), at(x + 1, y + 1)
            if b != h and d != f:
                lines[0] += (d if d == b else e)
                lines[0] += b if (d == b and e != c) or (b == f and e != a) else e
                lines[0] += f if b == f else e
                lines[1] += d if (d == b and e != g) or (d == h and e != a) else e
                lines[1] += e
                lines[1] += f if (b == f and e != i) or (h == f and e != c) else e
                lines[2] += d if d == h else e
                lines[2] += h if (d == h and e != i) or (h == f and e != g) else e
                lines[2] += f if h == f else e
            else:
                for index in range(3):
                    lines[index] += e * 3
        out += lines
    return out


# --- Colour mode: automatic, colour, black and white ---

def color_mode(kind):
    image = Image()
    discs = {
        "color": ("cyan", "magenta", "yellow"),
        "gray": ("ink", "gray", "shade"),
    }
    if kind == "auto":
        image, gray = color_mode("color"), color_mode("gray")
        half = image.size // 2
        for y in range(image.size):
            image.pixels[y][half:] = gray.pixels[y][half:]
        image.fill(12, 1, 12, 21, "paper")
        return image
    for (x, y), color in zip(((12, 8), (8, 15), (16, 15)), discs[kind]):
        image.disc(x, y, 6.2, "ink")
        image.disc(x, y, 5.2, color)
    return image


# --- Two-sided printing: one side, turned at the long edge, turned at the short edge ---

def duplex(kind, landscape):
    image = Image()
    if kind == "one":
        x0, y0, x1, y1 = (2, 5, 20, 18) if landscape else (5, 2, 18, 20)
        image.sheet(x0, y0, x1, y1)
        image.text_lines(x0 + 3, y0 + 3, x1 - 3, y1 - 3, 3)
        return image
    # The long edge is the left edge of a portrait page and the top edge of a landscape page.
    side = (kind == "long") != landscape
    if side:
        image.sheet(1, 4, 11, 19)
        image.sheet(12, 4, 21, 19, "tint")
        image.text_lines(3, 7, 9, 17, 3)
        image.text_lines(14, 7, 19, 17, 3, "blue")
        image.fill(11, 2, 12, 21, "red")
    else:
        image.sheet(4, 1, 19, 11)
        image.sheet(4, 12, 19, 21, "tint")
        image.text_lines(7, 4, 16, 9, 2)
        image.text_lines(7, 14, 16, 19, 2, "blue")
        image.fill(2, 11, 21, 12, "red")
    return image


# --- Pages on one sheet ---

def n_up(columns, rows, landscape):
    """`landscape` is the orientation of the pages; the sheet turns where columns and rows ask."""
    image = Image()
    wide = landscape if columns == rows else not landscape
    if wide:
        columns, rows = max(columns, rows), min(columns, rows)
        x0, y0, width, height = 1, 4, 20, 15
    else:
        columns, rows = min(columns, rows), max(columns, rows)
        x0, y0, width, height = 4, 1, 15, 20
    image.sheet(x0, y0, x0 + width, y0 + height)
    # From here on in pixels, so that all cells are equal.
    line = image.line_width()
    x0, y0, x1, y1 = (image.pixel(place) for place in (x0, y0, x0 + width + 1, y0 + height + 1))
    cell_w, gap_x = divmod(x1 - x0 - line * (columns + 3), columns)
    cell_h, gap_y = divmod(y1 - y0 - line * (rows + 3), rows)
    left = x0 + 2 * line + gap_x // 2
    top = y0 + 2 * line + gap_y // 2
    for row in range(rows):
        for column in range(columns):
            x = left + column * (cell_w + line)
            y = top + row * (cell_h + line)
            if cell_w >= 5 * line and cell_h >= 5 * line:
                image.fill_pixels(x, y, x + cell_w, y + cell_h, "tint")
                image.frame_pixels(x, y, x + cell_w, y + cell_h, "blue")
                if columns * rows <= 2:
                    for text in range(y + 3 * line, y + cell_h - 2 * line, image.pixel(2)):
                        image.fill_pixels(x + 2 * line, text, x + cell_w - 2 * line, text + line,
                                          "gray")
            else:
                image.fill_pixels(x, y, x + cell_w, y + cell_h, "blue")
    return image


def booklet(landscape):
    image = Image()
    if landscape:  # bound at the top: the halves lie above each other
        for y, direction in ((11, -1), (12, 1)):
            for step in range(9):
                inset = step // 4
                image.fill(3 + inset, y + direction * step, 20 - inset, y + direction * step, "paper")
                image.dot(3 + inset, y + direction * step, "ink")
                image.dot(20 - inset, y + direction * step, "ink")
            edge = y + direction * 8
            image.fill(5, edge, 18, edge, "ink")
        image.fill(2, 11, 21, 12, "blue")
        image.text_lines(7, 5, 16, 9, 2)
        image.text_lines(7, 14, 16, 18, 2)
    else:
        for x, direction in ((11, -1), (12, 1)):
            for step in range(9):
                inset = step // 4
                image.fill(x + direction * step, 3 + inset, x + direction * step, 20 - inset, "paper")
                image.dot(x + direction * step, 3 + inset, "ink")
                image.dot(x + direction * step, 20 - inset, "ink")
            edge = x + direction * 8
            image.fill(edge, 5, edge, 18, "ink")
        image.fill(11, 2, 12, 21, "blue")
        image.text_lines(5, 7, 9, 16, 3)
        image.text_lines(14, 7, 18, 16, 3)
    return image


# --- Staples and holes on a portrait sheet ---

SHEET = (4, 1, 18, 21)


def finished_sheet():
    image = Image()
    image.sheet(*SHEET)
    image.text_lines(9, 8, 13, 14, 3, "tint")
    return image


def along(image, edge, count, lengths, depth, color):
    """Draws `count` marks inside an edge of the sheet, centred on it.

    `lengths` gives (length, gap) of a mark for the short and the long edges; `depth` is the size
    across the edge.
    """
    x0, y0, x1, y1 = SHEET
    vertical = edge in ("left", "right")
    length, gap = lengths[vertical]
    first, last = (y0, y1) if vertical else (x0, x1)
    start = (first + last + 1 - count * length - (count - 1) * gap) // 2
    near = {"left": x0 + 2, "right": x1 - 1 - depth, "top": y0 + 2, "bottom": y1 - 1 - depth}[edge]
    far = near + depth - 1
    for index in range(count):
        place = start + index * (length + gap)
        end = place + length - 1
        image.fill(*((near, place, far, end) if vertical else (place, near, end, far)), color)


HOLES = {2: ((3, 3), (3, 7)), 3: ((3, 1), (3, 3)), 4: ((2, 1), (2, 3))}
PINS = {2: ((4, 3), (5, 5)), 3: ((3, 1), (3, 3)), 4: ((2, 1), (2, 3))}


def punch(edge, count):
    image = finished_sheet()
    if edge:
        along(image, edge, count, HOLES[count], 2 if count == 4 else 3, "blue")
    return image


CORNERS = {
    "upper left": (6, 3, ("...##", "..##.", ".##..", "##...")),
    "upper right": (12, 3, ("##...", ".##..", "..##.", "...##")),
    "lower left": (6, 16, ("##...", ".##..", "..##.", "...##")),
    "lower right": (12, 16, ("...##", "..##.", ".##..", "##...")),
}


def staple(place, count=0):
    if place == "centre":
        image = Image()
        image.sheet(1, 4, 21, 18)
        image.text_lines(4, 8, 8, 15, 3, "tint")
        image.text_lines(14, 8, 18, 15, 3, "tint")
        for y in range(5, 18, 2):
            image.dot(11, y, "gray")
        for y in (7, 13):
            image.fill(11, y, 12, y + 2, "red")
        return image
    image = finished_sheet()
    if place in CORNERS:
        x, y, rows = CORNERS[place]
        image.art(x, y, rows, {"#": "red"})
    elif place:
        along(image, place, count, PINS[count], 2, "red")
    return image


# --- Favourites, 16x16 ---

def favorite(kind):
    image = Image(16)
    if kind == "folder":
        image.art(1, 3, (
            ".####.........",
            "#++++#........",
            "#+++++#######.",
            "#++++++++++++#",
            "#++++++++++++#",
            "#++++++++++++#",
            "#++++++++++++#",
            "#++++++++++++#",
            "#++++++++++++#",
            ".############.",
        ), {"#": "amber", "+": "yellow"})
    elif kind == "standard":
        image.fill(3, 1, 12, 14, "paper")
        image.frame(3, 1, 12, 14, "ink")
        image.text_lines(5, 4, 10, 8, 2)
        image.art(6, 8, (
            ".......##",
            "......###",
            "##...##..",
            "###.##...",
            ".####....",
            "..##.....",
        ), {"#": "green"})
    else:
        image.art(0, 1, (
            ".......##.......",
            ".......##.......",
            "......#++#......",
            "......#++#......",
            ".#####++++#####.",
            "#++++++++++++++#",
            ".#++++++++++++#.",
            "..#++++++++++#..",
            "...#++++++++#...",
            "...#++++++++#...",
            "..#++++++++++#..",
            "..#++++##++++#..",
            ".#+++##..##+++#.",
            ".###........###.",
        ), {"#": "amber", "+": "yellow"})
    return image


EDGES_OF_STAPLES = ("top", "bottom", "left", "right")
EDGES_OF_HOLES = ("left", "right", "top", "bottom")
GRIDS = ((1, 2), (2, 2), (2, 3), (3, 3), (4, 4))


def strips():
    """Bitmap name: its images in order."""
    yield "color_mode", [color_mode(kind) for kind in ("auto", "color", "gray")]
    yield "duplex", [
        duplex(kind, landscape) for kind in ("one", "long", "short") for landscape in (False, True)]
    yield "favorite", [favorite(kind) for kind in ("folder", "standard", "favourite")]
    # One page a sheet first; then portrait and landscape for each number of pages and the booklet.
    yield "nup", [n_up(1, 1, False)] + [
        n_up(*grid, landscape) for grid in GRIDS for landscape in (False, True)] + [
        booklet(False), booklet(True)]
    yield "punch", [punch(None, 0)] + [
        punch(edge, holes) for holes in (2, 4, 3) for edge in EDGES_OF_HOLES]
    yield "staple", [staple(None)] + [staple(corner) for corner in CORNERS] + [
        staple(edge, 2) for edge in EDGES_OF_STAPLES] + [staple("centre")] + [
        staple(edge, count) for count in (4, 3) for edge in EDGES_OF_STAPLES]


RUN_LENGTH_4 = 2


def bmp(images):
    size = images[0].size
    width = size * len(images)
    bits = b""
    for y in reversed(range(size)):
        row = [NAMES.index(color) for image in images for color in image.pixels[y]]
        x = 0
        while x < width:
            # Two colours take turns in a run.
            end = x + 1
            while end < width and end - x < 255 and (end - x < 2 or row[end] == row[end - 2]):
                end += 1
            second = row[x + 1] if end - x > 1 else 0
            bits += bytes((end - x, row[x] << 4 | second))
            x = end
        bits += b"\0\0"
    bits += b"\0\1"
    palette = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in PALETTE.values())
    offset = 14 + 40 + len(palette)
    return (struct.pack("<2sIHHI", b"BM", offset + len(bits), 0, 0, offset) +
            struct.pack("<IiiHHIIiiII", 40, width, size, 1, 4, RUN_LENGTH_4, len(bits), 0, 0,
                        len(NAMES), 0) +
            palette + bits)


# --- The warning icon, drawn with 8x8 samples a pixel ---

def warning_color(x, y):
    """Colour of a point of the unit square, or None outside the triangle."""
    def inside(margin):
        top, bottom = 0.06 + margin * 1.9, 0.94 - margin
        if not top <= y <= bottom:
            return False
        half = (y - top) / (bottom - top) * (0.48 - margin * 1.35)
        return abs(x - 0.5) <= half + 0.015
    if not inside(0.0):
        return None
    if not inside(0.055):
        return PALETTE["amber"]
    bar = abs(x - 0.5) <= 0.06 and 0.36 <= y <= 0.62
    point = (x - 0.5) ** 2 + (y - 0.77) ** 2 <= 0.07 ** 2
    return PALETTE["black"] if bar or point else PALETTE["yellow"]


def warning_pixels(size, samples=8):
    """Rows from the top of (r, g, b, alpha)."""
    rows = []
    for py in range(size):
        row = []
        for px in range(size):
            hits = [warning_color((px + (i + 0.5) / samples) / size, (py + (j + 0.5) / samples) / size)
                    for i in range(samples) for j in range(samples)]
            hits = [hit for hit in hits if hit]
            if hits:
                mean = [sum(channel) // len(hits) for channel in zip(*hits)]
                row.append((*mean, 255 * len(hits) // samples ** 2))
            else:
                row.append((0, 0, 0, 0))
        rows.append(row)
    return rows


def palette_bits(rows):
    """4 bits a pixel: the nearest colour of the palette, black where the icon is transparent."""
    def nearest(pixel):
        return min(range(len(NAMES)), key=lambda index: sum(
            (mine - other) ** 2 for mine, other in zip(pixel, PALETTE[NAMES[index]])))
    stride = (len(rows) + 7) // 8 * 4
    bits = b""
    for row in reversed(rows):
        colors = [nearest(pixel[:3]) if pixel[3] >= 128 else NAMES.index("none") for pixel in row]
        bits += bytes(left << 4 | right
                      for left, right in zip(colors[::2], colors[1::2])).ljust(stride, b"\0")
    return b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in PALETTE.values()) + bits


def ico(sizes):
    images = []
    for size in sizes:
        rows = warning_pixels(size)
        depth = 32 if size <= 32 else 4  # the larger ones would be most of the module's resources
        color = palette_bits(rows) if depth == 4 else b"".join(
            struct.pack("<BBBB", b, g, r, a) for row in reversed(rows) for r, g, b, a in row)
        stride = (size + 31) // 32 * 4
        mask = b""
        for row in reversed(rows):
            bits = sum(1 << (size - 1 - x) for x, pixel in enumerate(row) if pixel[3] < 128)
            mask += (bits << (stride * 8 - size)).to_bytes(stride, "big")
        header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, depth, 0,
                             len(color) + len(mask), 0, 0, len(NAMES) if depth == 4 else 0, 0)
        images.append((depth, header + color + mask))
    offset = 6 + 16 * len(sizes)
    directory = struct.pack("<HHH", 0, 1, len(sizes))
    for size, (depth, image) in zip(sizes, images):
        directory += struct.pack("<BBBBHHII", size, size, 0, 0, 1, depth, len(image), offset)
        offset += len(image)
    return directory + b"".join(image for _, image in images)


def main():
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    files = {}
    for Image.scale in SCALES:
        suffix = "" if Image.scale == 1 else f"_{int(Image.scale * 100)}"
        files |= {f"{name}{suffix}.bmp": bmp(images) for name, images in strips()}
    files["warning16.ico"] = ico((16,))
    files["warning24.ico"] = ico((24, 32, 36, 48))
    for name, content in files.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content)


if __name__ == "__main__":
    main()
