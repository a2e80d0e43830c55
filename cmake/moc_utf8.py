#!/usr/bin/env python3
"""Runs Qt's moc on headers whose identifiers hold Latin letters with accents.

moc reads identifiers as ASCII. Each letter from U+00C0 to U+00FF, two bytes in
UTF-8, goes to moc as "$" and one ASCII character, two bytes as well, so that
the string lengths that moc writes stay right. Its output gets the letters back.

Usage: moc_utf8.py REAL_MOC [moc's own arguments]
"""
import os
import re
import subprocess
import sys

CODES = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_$"
TO_MOC = {chr(0xC0 + i): "$" + code for i, code in enumerate(CODES)}
FROM_MOC = {ascii_pair: letter for letter, ascii_pair in TO_MOC.items()}


def main():
    moc, arguments = sys.argv[1], sys.argv[2:]
    header = next((a for a in arguments if a.endswith((".h", ".hpp", ".cpp"))
                   and os.path.isfile(a) and arguments[arguments.index(a) - 1] not in ("-o", "--include")), None)
    output = arguments[arguments.index("-o") + 1] if "-o" in arguments else None
    source = open(header, encoding="utf-8").read() if header else ""
    if output is None or not any(letter in source for letter in TO_MOC):
        return subprocess.call([moc] + arguments)

    transcribed = output + ".moc-in" + os.path.splitext(header)[1]
    with open(transcribed, "w", encoding="utf-8") as out:
        out.write("".join(TO_MOC.get(c, c) for c in source))
    arguments[arguments.index(header)] = transcribed
    include = os.path.relpath(header, os.path.dirname(output))
    status = subprocess.call([moc, "-f" + include, "-I" + os.path.dirname(header)] + arguments)
    os.remove(transcribed)
    if status == 0:
        generated = open(output, encoding="utf-8").read()
        with open(output, "w", encoding="utf-8") as out:
            out.write(re.sub(r"\$[A-Za-z0-9_$]", lambda pair: FROM_MOC[pair.group()], generated))
        repair_dependencies(output + ".d", transcribed, header)
    return status


def repair_dependencies(dependency_file, transcribed, header):
    """Names the real header where moc named the transcribed one."""
    if os.path.exists(dependency_file):
        text = open(dependency_file, encoding="utf-8").read()
        with open(dependency_file, "w", encoding="utf-8") as out:
            out.write(text.replace(transcribed, header))


if __name__ == "__main__":
    sys.exit(main())
