"""The documents and pictures that are measured: made anew at each run, always the same bytes."""

import os
import struct

# Occurs thrice: near the start, some pages further on and near the end.
NEEDLE = "zebra"
NEEDLE_LINES = (41, 401)
SMALL_LINES = 12

_WORDS = ("the quick brown fox jumps over a lazy dog and some more words of an ordinary text that "
          "people write down read again and keep for later on in hand").split()
_BOLD = b"\x0bBbold\x0bB"


def _lines(seed):
    """Lines of 20 to 33 letters without their ends; every thirtieth has a bold word."""
    state = seed
    number = 0
    while True:
        number += 1
        line = _BOLD if number % 30 == 2 else b""
        while len(line) < 20:
            state = (state * 1103515245 + 12345) % 2**31
            word = _WORDS[(state >> 16) % len(_WORDS)].encode()
            line += b" " + word if line else word
        if number in NEEDLE_LINES:
            line = NEEDLE.encode() + b" " + line[:26]
        yield line


def text(size):
    """A text of about `size` bytes in lines that end with CR LF."""
    # One block of 256 KB is made word by word and repeated: no program profits from that, and a
    # hundred megabytes are made in a moment.
    lines = _lines(7)
    head = b""
    while len(head) < min(size, 1 << 14):
        head += next(lines) + b"\r\n"
    lines = _lines(11)
    block = b""
    while len(block) < (1 << 18):
        block += next(lines).replace(NEEDLE.encode(), b"words") + b"\r\n"
    tail = NEEDLE.encode() + b" at the end\r\nand a last line\r\n"
    body = block * (max(0, size - len(head) - len(tail)) // len(block) + 1)
    body = body[:max(0, size - len(head) - len(tail))]
    body = body[:body.rfind(b"\n") + 1]
    return head + body + tail


def one_line(size):
    """One line of `size` bytes without an end."""
    lines = _lines(7)
    block = b""
    while len(block) < (1 << 18):
        block += next(lines) + b" "
    return (block * (size // len(block) + 1))[:size]


def bitmap(path, width, height):
    """A .bmp of 24 bits to the pixel (bottom row first, rows of a multiple of four bytes): black
    discs on a white page with a grey slope, so that both dots and shades are there."""
    row_bytes = (width * 3 + 3) // 4 * 4
    with open(path, "wb") as out:
        out.write(struct.pack("<2sIHHI", b"BM", 54 + row_bytes * height, 0, 0, 54))
        out.write(struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, row_bytes * height,
                              2835, 2835, 0, 0))
        step = height // 4
        for y in range(height):
            shade = 160 + 95 * y // height
            row = bytearray(bytes((shade, 255, shade)) * width)
            row += bytes(row_bytes - len(row))
            offset = y % step - step // 2
            half = int(max(0, (step // 2 - 8) ** 2 - offset ** 2) ** 0.5)
            for middle in range(step // 2, width - step // 2, step):
                if half:
                    row[(middle - half) * 3:(middle + half) * 3] = bytes(half * 6)
            out.write(row)


class Documents:
    """Makes each file on its first use, in one folder."""

    def __init__(self, folder):
        self._folder = folder

    def _made(self, name, content):
        path = os.path.join(self._folder, name)
        if not os.path.exists(path):
            with open(path, "wb") as out:
                out.write(content())
        return path

    def small(self, extension):
        return self._made("small" + extension, lambda: text(SMALL_LINES * 30))

    def megabytes(self, count, extension):
        """The same bytes under any extension: each program gets the one that is its own."""
        return self._made(f"text{count}{extension}", lambda: text(count * 1000000))

    def one_line(self, extension):
        return self._made("line1" + extension, lambda: one_line(1000000))

    def thousand_pages(self, extension):
        return self._made("pages" + extension, lambda: text(PAGES_BYTES))

    def picture(self, name, width, height):
        path = os.path.join(self._folder, name)
        if not os.path.exists(path):
            bitmap(path, width, height)
        return path


PAGES_BYTES = 1500000
