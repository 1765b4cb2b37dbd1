#!/usr/bin/env python3
"""Draws the icons of the host's tree page.   draw_tree_icons.py TOOLS_FOLDER OUTPUT.bmp

One strip of 16x16 images: printer, colour, option, PostScript.
"""
import sys

sys.path.insert(0, sys.argv[1])
from draw_images import Image, bmp  # noqa: E402


def printer():
    image = Image(16)
    image.fill(4, 1, 11, 5, "paper")
    image.frame(4, 1, 11, 5, "ink")
    image.fill(1, 6, 14, 10, "shade")
    image.frame(1, 6, 14, 10, "ink")
    image.fill(11, 7, 12, 7, "green")
    image.fill(3, 10, 12, 14, "paper")
    image.frame(3, 10, 12, 14, "ink")
    image.fill(5, 12, 10, 12, "blue")
    return image


def color():
    image = Image(16)
    for x, y, name in ((1, 1, "cyan"), (8, 1, "magenta"), (1, 8, "yellow"), (8, 8, "black")):
        image.fill(x, y, x + 6, y + 6, name)
    image.frame(1, 1, 14, 14, "ink")
    return image


def option():
    image = Image(16)
    image.fill(3, 1, 12, 14, "paper")
    image.frame(3, 1, 12, 14, "ink")
    for y, name in ((4, "blue"), (7, "text"), (10, "text")):
        image.fill(5, y, 10, y, name)
    return image


def postscript():
    image = option()
    image.fill(3, 8, 12, 14, "blue")
    image.art(4, 9, ("##.##", "#.#.#", "##..#", "#..##"), {"#": "paper"})
    return image


def main():
    with open(sys.argv[2], "wb") as file:
        file.write(bmp([printer(), color(), option(), postscript()]))


if __name__ == "__main__":
    main()
