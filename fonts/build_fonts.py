#!/usr/bin/env python3
"""Makes the nine fonts and the logic's glyph table from the dots of glyphs.txt.

Usage: build_fonts.py glyphs.txt FONT_FOLDER GLYPH_TABLE

Writes ZOLT.ttf and the eight style fonts into the folder, and the table's C++ file. All come from the
same dots, so that what the windows draw is what the logic draws.
"""
import os
import sys

from fontTools.fontBuilder import FontBuilder
from fontTools.pens.ttGlyphPen import TTGlyphPen
from fontTools.ttLib.tables.O_S_2f_2 import Panose

WIDTH, HEIGHT = 4, 6          # dots of a cell
SMALL_HEIGHT = 4              # of exponent and index
DOT = 128                     # font units a dot
# 6.5 dots to the em: 10 points are 13 pixels at 96 dots to the inch, and so a dot
# is exactly 2 by 2 pixels. At 832 units the scale is a whole number in the 26.6
# fixed point of font engines, so that advances don't drift along a line.
UNITS_PER_EM = 832
ASCENT, DESCENT = 5 * DOT, DOT
PRIVATE = 0xE000              # every byte's character for controls that would touch it

# Code page 1252, bytes 128 to 159: https://encoding.spec.whatwg.org/index-windows-1252.txt
WINDOWS = [0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
           0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
           0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178]

# The calculator's own characters, from byte 127.
CALCULATOR = [0x2592, 0x2220, None, 0x2207, 0x221A, 0x222B, 0x03A3, 0x25B6, 0x03C0, 0x2202, 0x2264,
              0x2265, 0x2260, 0x03B1, 0x2192, 0x2190, 0x2193, 0x2191, 0x03B3, 0x03B4, 0x03B5, 0x03B7,
              0x03B8, 0x03BB, 0x03C1, 0x03C3, 0x03C4, 0x03C9, 0x0394, 0x03A0, 0x03A9, 0x25A0, 0x221E]


def read_glyphs(path):
    """The file's sections by name, each a dictionary of code and glyph: "codes" and
    "small" with all 256, and the hand-drawn exceptions under their font's name. A
    glyph is a list of rows of booleans."""
    sections = {}
    with open(path, encoding="utf-8") as source:
        lines = [line.rstrip("\n") for line in source]
    lines = [line for line in lines if line and not line.startswith("# ") and line != "#"]
    while lines:
        kind, *codes = lines.pop(0).split(" ")
        height = SMALL_HEIGHT if kind == "small" else HEIGHT
        picture = [line.split(" ") for line in lines[:height]]
        del lines[:height]
        first = int(codes[0])
        if kind in ("codes", "small"):
            codes = range(first, first + 16)
        for column, code in enumerate(codes):
            rows = [row[column] for row in picture]
            if any(len(row) != WIDTH or row.strip("#.") for row in rows):
                sys.exit(f"{path}: {kind} {code} isn't {WIDTH} dots wide, each # or .")
            sections.setdefault(kind, {})[int(code)] = [[c == "#" for c in row] for row in rows]
    for kind in ("codes", "small"):
        if sorted(sections[kind]) != list(range(256)):
            sys.exit(f"{path}: not 256 glyphs in {kind}")
    return sections


def shifted(row):
    """A row one dot to the right, if it has room."""
    return row if row[-1] else [False] + row[:-1]


def bold(rows):
    """Strokes twice as wide. Two stems with one dot between keep it open, and a glyph
    that stands on a stem at its left keeps the column that parts it from the next."""
    if all(row[0] and not (row[2] and not row[1]) for row in rows[:-1]):
        return [[dot or (0 < x < 3 and row[x - 1]) for x, dot in enumerate(row)] for row in rows]

    def thick(row):
        if row == [True, False, True, False]:
            return [True, True, False, True]
        return [dot or (x > 0 and row[x - 1]) for x, dot in enumerate(row)]
    return [thick(row) for row in rows]


def italic_right(rows):
    return [shifted(row) for row in rows[:3]] + rows[3:]


def italic_left(rows):
    return rows[:3] + [shifted(row) for row in rows[3:]]


def underline(rows):
    """The bottom row filled, open beside what goes below the base line: so "q" isn't "a"."""
    below = rows[-1]
    beside = [any(below[max(x - 1, 0):x + 2]) for x in range(WIDTH)]
    return rows[:-1] + [[below[x] or not beside[x] for x in range(WIDTH)]]


def inverse(rows):
    return [[not dot for dot in row] for row in rows]


BLANK = [[False] * WIDTH]


def style_glyphs(sections):
    """The fonts in the order of the styles: name and glyphs by code."""
    def derived(rule):
        return {code: rule(rows) for code, rows in sections["codes"].items()}
    small = sections["small"].items()
    fonts = [
        ("ZOLT", sections["codes"]),
        ("ZOLTInverse", derived(inverse)),
        ("ZOLTBold", derived(bold)),
        ("ZOLTDouble", derived(lambda rows: [[dot for dot in row for _ in (0, 1)] for row in rows])),
        ("ZOLTItalicRight", derived(italic_right)),
        ("ZOLTItalicLeft", derived(italic_left)),
        ("ZOLTUnderline", derived(underline)),
        ("ZOLTExponent", {code: rows + BLANK * 2 for code, rows in small}),
        ("ZOLTIndice", {code: BLANK * 2 + rows for code, rows in small}),
    ]
    return [(name, {**glyphs, **sections.get(name, {})}) for name, glyphs in fonts]


def rectangles(rows):
    """The dots as few rectangles (x, y, width, height), none touching another's inside:
    runs in a row, joined with equal runs below."""
    open_runs, done = {}, []
    for y, row in enumerate(rows + [[False] * len(rows[0])]):
        runs, x = set(), 0
        while x < len(row):
            start = x
            while x < len(row) and row[x]:
                x += 1
            if x > start:
                runs.add((start, x - start))
            x += 1
        for run in [r for r in open_runs if r not in runs]:
            top = open_runs.pop(run)
            done.append((run[0], top, run[1], y - top))
        for run in runs:
            open_runs.setdefault(run, y)
    return sorted(done)


def outline(rows):
    pen = TTGlyphPen(None)
    for x, y, width, height in rectangles(rows):
        left, right = x * DOT, (x + width) * DOT
        top, bottom = ASCENT - y * DOT, ASCENT - (y + height) * DOT
        pen.moveTo((left, bottom))
        pen.lineTo((left, top))
        pen.lineTo((right, top))
        pen.lineTo((right, bottom))
        pen.closePath()
    return pen.glyph()


def character_map():
    """Character to byte. The private block has every byte; code page 1252 goes before
    the calculator's set."""
    characters = {PRIVATE + byte: byte for byte in range(256)}
    for byte in range(32, 256):
        characters[WINDOWS[byte - 128] if 128 <= byte < 160 else byte] = byte
    characters.setdefault(0x2026, 31)
    for byte, character in enumerate(CALCULATOR, 127):
        if character is not None:
            characters.setdefault(character, byte)
    return characters


def monospaced():
    panose = Panose()
    for field in ("bFamilyType", "bSerifStyle", "bWeight", "bProportion", "bContrast", "bStrokeVariation",
                  "bArmStyle", "bLetterForm", "bMidline", "bXHeight"):
        setattr(panose, field, 0)
    panose.bFamilyType, panose.bProportion = 2, 9
    return panose


def build_font(name, glyphs, path):
    width = len(glyphs[0][0]) * DOT
    order = [".notdef"] + [f"byte{code}" for code in range(256)]
    builder = FontBuilder(UNITS_PER_EM, isTTF=True)
    builder.setupGlyphOrder(order)
    builder.setupCharacterMap({c: f"byte{byte}" for c, byte in character_map().items()})
    outlines = {f"byte{code}": outline(rows) for code, rows in glyphs.items()}
    outlines[".notdef"] = outline([[True] * len(glyphs[0][0])] * 5 + [[False] * len(glyphs[0][0])])
    builder.setupGlyf(outlines)
    builder.setupHorizontalMetrics({glyph: (width, outlines[glyph].xMin if outlines[glyph].numberOfContours
                                            else 0) for glyph in order})
    builder.setupHorizontalHeader(ascent=ASCENT, descent=-DESCENT, lineGap=0)
    builder.setupNameTable({"familyName": name, "styleName": "Regular", "uniqueFontIdentifier": name,
                            "fullName": name, "psName": name, "version": "Version 1.000"})
    builder.setupOS2(sTypoAscender=ASCENT, sTypoDescender=-DESCENT, sTypoLineGap=0, usWinAscent=ASCENT,
                     usWinDescent=DESCENT, fsSelection=0x40 | 0x80, xAvgCharWidth=width, version=4,
                     panose=monospaced(), sxHeight=4 * DOT, sCapHeight=5 * DOT)
    builder.setupPost(isFixedPitch=1, underlinePosition=-DOT // 2, underlineThickness=DOT // 2)
    # The same dots give the same bytes: no time of making.
    builder.updateHead(created=0, modified=0)
    builder.font.recalcTimestamp = False
    builder.save(path)


def write_table(fonts, path):
    with open(path, "w", encoding="utf-8") as out:
        out.write("// Made from fonts/glyphs.txt.\n\n#include \"core/glyphs.h\"\n\nnamespace zolt {\n\n"
                  "namespace {\n\nconstexpr Glyph kGlyphs[kStyleCount][256] = {\n")
        for name, glyphs in fonts:
            out.write(f"    // {name}\n    {{\n")
            for code in range(256):
                rows = [sum(1 << x for x, dot in enumerate(row) if dot) for row in glyphs[code]]
                out.write("        {{" + ", ".join(str(row) for row in rows) + "}},\n")
            out.write("    },\n")
        out.write("};\n\n} // namespace\n\nconst Glyph &glyph(Style style, unsigned char code) {\n"
                  "    return kGlyphs[static_cast<std::size_t>(style)][code];\n}\n\n} // namespace zolt\n")


def main():
    source, folder, table = sys.argv[1:]
    fonts = style_glyphs(read_glyphs(source))
    for name, glyphs in fonts:
        build_font(name, glyphs, os.path.join(folder, name + ".ttf"))
    write_table(fonts, table)


if __name__ == "__main__":
    main()
