"""What is measured of the command line: whole processes, from the start to the end."""

import os
import shutil

import compare_processes as processes

# Peers are Debian's: what stands earlier in the user's path may be something else by that name.
DEBIAN_PATH = "/usr/bin:/bin"


def installed(program):
    return shutil.which(program, path=DEBIAN_PATH)


class Peer:
    """Commands that do the work of a row, one after the other. "{in}", "{out}" and "{between}" in
    them are files; with `to_output` what the program prints is the result."""

    def __init__(self, name, package, *commands, to_output=False):
        self.name = name
        self.package = package
        self.commands = [command.split() for command in commands]
        self.to_output = to_output

    def missing(self):
        return [command[0] for command in self.commands if not installed(command[0])]

    def filled(self, files):
        return [[installed(command[0])] + [_fill(word, files) for word in command[1:]]
                for command in self.commands]


def _fill(word, files):
    for name, path in files.items():
        word = word.replace("{" + name + "}", path)
    return word


class Row:
    def __init__(self, name, text, arguments, source, extensions, peers):
        self.name = name
        self.text = text
        self.arguments = arguments.split()  # Those of zoltc.
        self.source = source  # Takes Documents and an extension, gives the path of the input.
        self.extensions = extensions  # Of the inputs and outputs: zoltc's two, the peers' two.
        self.peers = peers


_CONVERT = Peer("convert (dithers)", "imagemagick",
                "convert {in} -resize 132x65! -monochrome {out}")
_CAT = Peer("cat (the floor)", "coreutils", "cat {in}", to_output=True)
_DD = Peer("dd conv=fsync (the floor that waits for the disk, as zoltc does)", "coreutils",
           "dd if={in} of={out} bs=1M conv=fsync status=none")


def _jpeg(documents, _extension):
    """There is a JPEG encoder in no standard library."""
    bitmap = documents.picture("photo.bmp", 4000, 3000)
    path = bitmap.removesuffix(".bmp") + ".jpg"
    if not os.path.exists(path):
        if not installed("convert"):
            raise FileNotFoundError("convert (imagemagick), which makes the JPEG")
        processes.run([[installed("convert"), bitmap, path]], dict(os.environ))
    return path


NOTES = [
    "zoltc ends when its file is safe on the disk (fsync); of the others only dd waits for that.",
]

ROWS = [
    Row("image-bmp", "a picture of 4000 by 3000 (.bmp) into dots", "image {in} {out}",
        lambda documents, _: documents.picture("photo.bmp", 4000, 3000),
        (".bmp", ".gro", ".bmp", ".pbm"), [_CONVERT]),
    Row("image-jpeg", "a picture of 4000 by 3000 (.jpg) into dots", "image {in} {out}", _jpeg,
        (".jpg", ".gro", ".jpg", ".pbm"), [_CONVERT]),
    Row("pdf", "a text of about 1000 pages to PDF", "pdf --font Courier {in} {out}",
        lambda documents, extension: documents.thousand_pages(extension),
        (".zlt", ".pdf", ".txt", ".pdf"),
        [Peer("enscript, PostScript only", "enscript", "enscript -q -B -M Letter -p {out} {in}"),
         Peer("enscript and ps2pdf", "enscript, ghostscript",
              "enscript -q -B -M Letter -p {between} {in}", "ps2pdf {between} {out}")]),
    Row("html", "1 MB to a Web page", "html {in} {out}",
        lambda documents, extension: documents.megabytes(1, extension),
        (".zlt", ".html", ".txt", ".html"),
        [Peer("enscript", "enscript", "enscript -q -B -w html -p {out} {in}"),
         Peer("pandoc", "pandoc",
              "pandoc -f commonmark+hard_line_breaks -t html -s -M title=text -o {out} {in}")]),
    Row("rtf", "1 MB to rich text", "preview --style normal {in} {out}",
        lambda documents, extension: documents.megabytes(1, extension),
        (".zlt", ".rtf", ".txt", ".rtf"),
        [Peer("enscript", "enscript", "enscript -q -B -w rtf -p {out} {in}"),
         Peer("pandoc", "pandoc",
              "pandoc -f commonmark+hard_line_breaks -t rtf -s -o {out} {in}")]),
    Row("count", "count 10 MB", "count {in}",
        lambda documents, extension: documents.megabytes(10, extension),
        (".zlt", ".count", ".txt", ".count"), [Peer("wc", "coreutils", "wc {in}", to_output=True)]),
    Row("hp10", "the HP file of 10 MB", "hp {in} {out}",
        lambda documents, extension: documents.megabytes(10, extension),
        (".zlt", "", ".txt", ""), [_CAT, _DD]),
    Row("hp100", "the HP file of 100 MB", "hp {in} {out}",
        lambda documents, extension: documents.megabytes(100, extension),
        (".zlt", "", ".txt", ""), [_CAT, _DD]),
]


def _measured(commands, files, to_output):
    if os.path.exists(files["out"]):
        os.remove(files["out"])
    seconds = processes.run(commands, {"PATH": os.environ.get("PATH", DEBIAN_PATH),
                                       "HOME": os.path.dirname(files["out"]), "LC_ALL": "C.UTF-8"},
                            files["out"] if to_output else None)
    # A program that refuses in silence has done nothing.
    if not os.path.getsize(files["out"]):
        raise RuntimeError(f"{os.path.basename(commands[0][0])} wrote nothing")
    return seconds


def measure_zolt(row, program, documents, folder):
    files = {"in": row.source(documents, row.extensions[0]),
             "out": os.path.join(folder, "RESULT" + row.extensions[1])}
    arguments = [_fill(word, files) for word in row.arguments]
    return _measured([[program] + arguments], files, "{out}" not in row.arguments)


def measure_peer(row, peer, documents, folder):
    files = {"in": row.source(documents, row.extensions[2]),
             "out": os.path.join(folder, "RESULT" + row.extensions[3]),
             "between": os.path.join(folder, "BETWEEN.ps")}
    return _measured(peer.filled(files), files, peer.to_output)
