"""Makes a symbol file from a text with the symbols' pictures.

usage: build_symbols.py SYMBOLS.TXT OUTPUT.ZLS [SHEET.PGM]

The text has one block for each symbol, with an empty line between two blocks: a
line with the title, then six rows of four dots, "#" for a dot on and "." for a dot
off. Lines at the text's start that begin with ";" are comments. SHEET.PGM is a
picture of all symbols, each beside a repetition of itself as it would stand in a
text.
"""

import sys

WIDTH, HEIGHT = 4, 6
LINE_END = b"\r\n"


def read_symbols(path):
    """The symbols as pairs of a title and six rows."""
    with open(path, encoding="cp1252") as file:
        text = "".join(line for line in file if not line.startswith(";"))
    symbols = []
    for block in text.strip("\n").split("\n\n"):
        title, *rows = block.strip("\n").split("\n")
        if len(rows) != HEIGHT or any(len(row) != WIDTH or set(row) - set("#.") for row in rows):
            sys.exit(f"{path}: {title}: not {HEIGHT} rows of {WIDTH} dots")
        symbols.append((title, rows))
    return symbols


def expression(rows):
    """The picture cell of six rows; weight 1 is the leftmost dot of a row."""
    digits = "".join("%X" % sum(1 << x for x, dot in enumerate(row) if dot == "#") for row in rows)
    return b"\x9e" + digits.encode()


def symbol_file(symbols):
    lines = [b" %d " % len(symbols)]
    for title, rows in symbols:
        lines += [title.encode("cp1252"), expression(rows)]
    return b"".join(line + LINE_END for line in lines)


def sheet(symbols, columns=10, dot=6):
    """A grey picture of the symbols, ten in a row: once alone, twice side by side."""
    cell_width, cell_height = 5 * WIDTH, 2 * HEIGHT
    lines = -(-len(symbols) // columns)
    width, height = columns * cell_width, lines * cell_height
    grey = [[255] * width for _ in range(height)]
    for number, (_, rows) in enumerate(symbols):
        left, top = number % columns * cell_width + 2, number // columns * cell_height + 3
        for y, row in enumerate(rows):
            for x, state in enumerate(row):
                for place in (0, 2 * WIDTH, 3 * WIDTH):
                    grey[top + y][left + place + x] = 0 if state == "#" else 225
    pixels = b"".join(bytes(v for v in row for _ in range(dot)) * dot for row in grey)
    return b"P5 %d %d 255\n" % (width * dot, height * dot) + pixels


def main():
    symbols = read_symbols(sys.argv[1])
    with open(sys.argv[2], "wb") as file:
        file.write(symbol_file(symbols))
    if len(sys.argv) > 3:
        with open(sys.argv[3], "wb") as file:
            file.write(sheet(symbols))


main()
