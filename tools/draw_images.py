#!/usr/bin/env python3
"""Draws the module's bitmaps and icons.   draw_images.py OUTPUT_FOLDER

Bitmaps are strips of equal images side by side, 4 bits a pixel, magenta transparent; icons have
32 bits a pixel with alpha. Everything is drawn on the pixel grid, so that it stays crisp.
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
}
NAMES = list(PALETTE)


class Image:
    """A square of palette names; drawing outside is cut off."""

    def __init__(self, size=24):
        self.size = size
        self.pixels = [["clear"] * size for _ in range(size)]

    def dot(self, x, y, color):
        if 0 <= x < self.size and 0 <= y < self.size:
            self.pixels[y][x] = color

    def fill(self, x0, y0, x1, y1, color):
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                self.dot(x, y, color)

    def frame(self, x0, y0, x1, y1, color):
        self.fill(x0, y0, x1, y0, color)
        self.fill(x0, y1, x1, y1, color)
        self.fill(x0, y0, x0, y1, color)
        self.fill(x1, y0, x1, y1, color)

    def disc(self, cx, cy, radius, color):
        for y in range(self.size):
            for x in range(self.size):
                if (x + 0.5 - cx) ** 2 + (y + 0.5 - cy) ** 2 <= radius * radius:
                    self.dot(x, y, color)

    def art(self, x0, y0, rows, colors):
        """Rows of characters; `colors` names the colour of each, others stay as they are."""
        for y, row in enumerate(rows):
            for x, char in enumerate(row):
                if char in colors:
                    self.dot(x0 + x, y0 + y, colors[char])

    def sheet(self, x0, y0, x1, y1, fill="paper"):
        self.fill(x0 + 1, y0 + 1, x1 + 1, y1 + 1, "shade")
        self.fill(x0, y0, x1, y1, fill)
        self.frame(x0, y0, x1, y1, "ink")

    def text_lines(self, x0, y0, x1, y1, step=2, color="text"):
        for y in range(y0, y1 + 1, step):
            self.fill(x0, y, x1, y, color)


# --- Colour mode: automatic, colour, black and white ---

def color_mode(kind):
    image = Image()
    discs = {
        "color": ("cyan", "magenta", "yellow"),
        "gray": ("ink", "gray", "shade"),
    }
    if kind == "auto":
        image, gray = color_mode("color"), color_mode("gray")
        for y in range(image.size):
            image.pixels[y][12:] = gray.pixels[y][12:]
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
    cell_w, gap_x = divmod(width - 1 - (columns + 1), columns)
    cell_h, gap_y = divmod(height - 1 - (rows + 1), rows)
    left = x0 + 2 + gap_x // 2
    top = y0 + 2 + gap_y // 2
    for row in range(rows):
        for column in range(columns):
            x = left + column * (cell_w + 1)
            y = top + row * (cell_h + 1)
            image.fill(x, y, x + cell_w - 1, y + cell_h - 1, "tint")
            if cell_w >= 5 and cell_h >= 5:
                image.frame(x, y, x + cell_w - 1, y + cell_h - 1, "blue")
                if columns * rows <= 2:
                    image.text_lines(x + 2, y + 3, x + cell_w - 3, y + cell_h - 3, 2, "gray")
            else:
                image.fill(x, y, x + cell_w - 1, y + cell_h - 1, "blue")
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
    """Bitmap file name: its images in order."""
    yield "color_mode.bmp", [color_mode(kind) for kind in ("auto", "color", "gray")]
    yield "duplex.bmp", [
        duplex(kind, landscape) for kind in ("one", "long", "short") for landscape in (False, True)]
    yield "favorite.bmp", [favorite(kind) for kind in ("folder", "standard", "favourite")]
    # One page a sheet first; then portrait and landscape for each number of pages and the booklet.
    yield "nup.bmp", [n_up(1, 1, False)] + [
        n_up(*grid, landscape) for grid in GRIDS for landscape in (False, True)] + [
        booklet(False), booklet(True)]
    yield "punch.bmp", [punch(None, 0)] + [
        punch(edge, holes) for holes in (2, 4, 3) for edge in EDGES_OF_HOLES]
    yield "staple.bmp", [staple(None)] + [staple(corner) for corner in CORNERS] + [
        staple(edge, 2) for edge in EDGES_OF_STAPLES] + [staple("centre")] + [
        staple(edge, count) for count in (4, 3) for edge in EDGES_OF_STAPLES]


def bmp(images):
    size = images[0].size
    width = size * len(images)
    stride = (width + 7) // 8 * 4
    bits = b""
    for y in reversed(range(size)):
        row = [NAMES.index(color) for image in images for color in image.pixels[y]]
        pairs = zip(row[::2], row[1::2])
        bits += bytes(left << 4 | right for left, right in pairs).ljust(stride, b"\0")
    palette = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in PALETTE.values())
    offset = 14 + 40 + len(palette)
    return (struct.pack("<2sIHHI", b"BM", offset + len(bits), 0, 0, offset) +
            struct.pack("<IiiHHIIiiII", 40, width, size, 1, 4, 0, len(bits), 0, 0, len(NAMES), 0) +
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


def ico(sizes):
    images = []
    for size in sizes:
        rows = warning_pixels(size)
        color = b"".join(struct.pack("<BBBB", b, g, r, a) for row in reversed(rows)
                         for r, g, b, a in row)
        stride = (size + 31) // 32 * 4
        mask = b""
        for row in reversed(rows):
            bits = sum(1 << (size - 1 - x) for x, pixel in enumerate(row) if pixel[3] < 128)
            mask += (bits << (stride * 8 - size)).to_bytes(stride, "big")
        header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(color) + len(mask),
                             0, 0, 0, 0)
        images.append(header + color + mask)
    offset = 6 + 16 * len(sizes)
    directory = struct.pack("<HHH", 0, 1, len(sizes))
    for size, image in zip(sizes, images):
        directory += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return directory + b"".join(images)


def main():
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    files = {name: bmp(images) for name, images in strips()}
    files["warning16.ico"] = ico((16,))
    files["warning24.ico"] = ico((24, 32))
    for name, content in files.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content)


if __name__ == "__main__":
    main()
