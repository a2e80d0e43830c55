"""The editors and what is measured in their windows."""

import os
import shutil
import statistics
import tempfile
import time

import compare_processes as processes
from compare_documents import NEEDLE
from compare_screen import (HEIGHT, WIDTH, Stuck, Watch, alike, holds_text, is_painted, part_of,
                            save_png)

POLL_WHILE_OPENING = 0.002
POLL_AFTER_KEY = 0.0005
REST_AFTER_OPENING = 1.2  # Longer than both halves of a caret's blinking.
REST_AFTER_KEY = 0.3
KEYS, PAGES = 8, 8
TEXT_INK = 500  # Dark pixels of a dozen short lines; no empty pane has as many.


class Editor:
    def __init__(self, name, program, package, extension, margins, find):
        self.name = name
        self.program = program
        self.package = package
        self.extension = extension
        # What lies around the text in its window: left, top, right, bottom in pixels.
        self.margins = margins
        # The key that opens the search, the keys that find the first hit, the key to the next.
        # None: the editor is only opened, not worked in.
        self.find = find


def zolt(name, program):
    return Editor(name, program, None, ".zlt", (0, 200, 100, 40), ("ctrl+f", ["Return"], "F3"))


PEERS = [
    Editor("featherpad", "featherpad", "featherpad", ".txt", (0, 90, 60, 120),
           ("ctrl+f", ["Return"], "Return")),
    Editor("kwrite", "kwrite", "kwrite", ".txt", (0, 60, 90, 60),
           ("ctrl+f", [], "Return")),
    # It opens a text as it should, but without a desktop around it what it draws later is black on
    # black: nothing that could be called shown.
    Editor("mousepad", "mousepad", "mousepad", ".txt", (0, 60, 30, 40), None),
]

# A line too long for these editors: they open it, but for reading only.
READ_ONLY = {"featherpad": {"key-line"}, "kwrite": {"key-line"}}

NOTES = [
    "A text stands there, and a key is shown, when the part of the screen with the text no longer "
    "changes but for the caret and the program has no more work.",
    "featherpad and kwrite open one line of 1 MB for reading only, so no key is measured; mousepad "
    "is only opened, as it draws black on black in a bare X server.",
]

# Row, what it says in the table, unit.
ROWS = [
    ("start-painted", "start with a small document, until the window is painted", "s"),
    ("start-text", "start with a small document, until its text stands there", "s"),
    ("open1-painted", "open 1 MB, until the window is painted", "s"),
    ("open1-text", "open 1 MB, until the text stands there", "s"),
    ("open10-painted", "open 10 MB, until the window is painted", "s"),
    ("open10-text", "open 10 MB, until the text stands there", "s"),
    ("open50-painted", "open 50 MB, until the window is painted", "s"),
    ("open50-text", "open 50 MB, until the text stands there", "s"),
    ("memory10", "peak memory after opening 10 MB", "B"),
    ("key10", "a key in 10 MB", "s"),
    ("page10", "Page Down in 10 MB", "s"),
    ("find-near", "Find next in 10 MB, 9 KB on", "s"),
    ("find-end", "Find next in 10 MB, to the end", "s"),
    ("open-line", "open one line of 1 MB, until the text stands there", "s"),
    ("key-line", "a key in one line of 1 MB", "s"),
]

_SESSIONS = {
    "start": lambda documents, extension: documents.small(extension),
    "open1": lambda documents, extension: documents.megabytes(1, extension),
    "open10": lambda documents, extension: documents.megabytes(10, extension),
    "open50": lambda documents, extension: documents.megabytes(50, extension),
    "open-line": lambda documents, extension: documents.one_line(extension),
}
_WITHIN = {"memory10": "open10", "key10": "open10", "page10": "open10", "find-near": "open10",
           "find-end": "open10", "key-line": "open-line"}


def can(editor, row):
    """Whether the row can be measured with the editor."""
    if row in READ_ONLY.get(editor.name, ()):
        return False
    return editor.find is not None or "open" in row or "start" in row or "memory" in row


def session_of(row):
    """The document of which a row is measured."""
    return _WITHIN.get(row) or row.removesuffix("-painted").removesuffix("-text")


def _environment(home, display_name):
    """As little as a program needs, in an empty home: nothing of an earlier run is there."""
    kept = {name: os.environ[name] for name in ("PATH", "LANG") if name in os.environ}
    folders = {"XDG_CONFIG_HOME": "config", "XDG_DATA_HOME": "data", "XDG_CACHE_HOME": "cache",
               "XDG_STATE_HOME": "state", "XDG_RUNTIME_DIR": "runtime", "ZOLT_HOME": "zolt"}
    for name, folder in folders.items():
        kept[name] = os.path.join(home, folder)
        os.mkdir(kept[name], 0o700)
    # Without a bus nobody hands the document over to an instance of the user's own.
    return kept | {"HOME": home, "DISPLAY": display_name, "LC_ALL": "C.UTF-8",
                   "QT_QPA_PLATFORM": "xcb", "GDK_BACKEND": "x11", "NO_AT_BRIDGE": "1",
                   "DBUS_SESSION_BUS_ADDRESS": "disabled:"}


class Session:
    """One program with one document, from its start to its end."""

    def __init__(self, screen, editor, folder, document, shots=None):
        self._screen = screen
        self._editor = editor
        self._shots = shots
        self._home = tempfile.mkdtemp(dir=folder)
        # The document too: what a killed editor leaves beside it must not meet the next one.
        own = os.path.join(self._home, os.path.basename(document))
        os.link(document, own)
        environment = _environment(self._home, screen.name)
        self._empty_screen()
        self._begun = time.monotonic()
        self._process = processes.start([editor.program, own], environment)

    def __enter__(self):
        return self

    def __exit__(self, *error):
        processes.end(self._process)
        shutil.rmtree(self._home, ignore_errors=True)

    def _empty_screen(self):
        limit = time.monotonic() + 5
        while self._screen.windows() or is_painted(self._screen.sample()):
            if time.monotonic() > limit:
                raise Stuck("the screen isn't empty")
            time.sleep(0.01)

    def _whole_screen(self):
        return self._screen.picture((0, 0, WIDTH, HEIGHT))

    def _shot(self, row, pixels=None):
        if self._shots:
            path = os.path.join(self._shots, f"{row}-{self._editor.name}.png")
            save_png(path, pixels or self._whole_screen(), WIDTH)

    def _text_part(self):
        place = self._screen.focus_largest()
        left, top, right, bottom = self._editor.margins
        width = min(place.width, WIDTH - place.x) - left - right
        height = min(place.height, HEIGHT - place.y) - top - bottom
        return place.x + left, place.y + top, width, height

    def open(self, name, limit=120):
        """Seconds until the window is painted and until the text stands there."""
        end = self._begun + limit
        while not is_painted(self._screen.sample()):
            try:
                processes.processor_seconds(self._process.pid)
            except ProcessLookupError:
                raise Stuck("the program ended") from None
            if time.monotonic() > end:
                raise Stuck(f"no window in {limit} s")
            time.sleep(POLL_WHILE_OPENING)
        painted = time.monotonic()
        first = self._whole_screen()
        watch = Watch(self._screen, self._text_part(), POLL_WHILE_OPENING)
        # What came while the window was asked for its place counts as well.
        before = part_of(first, watch.part)
        watch.changed = painted if alike(before, watch.pixels, watch.part[2]) else time.monotonic()
        stands = watch.until_rest(REST_AFTER_OPENING, limit, self._process.pid,
                                  lambda pixels: holds_text(pixels, TEXT_INK))
        self._shot(name + "-painted", first)
        self._shot(name)
        # In case that a smaller window stood there first.
        if self._text_part() != watch.part:
            raise Stuck("the window changed its place")
        return painted - self._begun, stands - self._begun

    def peak_memory(self):
        return processes.peak_memory(self._process.pid)

    def _reaction(self, key, limit=60):
        """Seconds from the key until the screen shows what it will show at rest."""
        watch = Watch(self._screen, self._text_part(), POLL_AFTER_KEY)
        pressed = time.monotonic()
        self._screen.press(key)
        return watch.until_rest(REST_AFTER_KEY, limit, self._process.pid) - pressed

    def _calm(self):
        """Waits until unmeasured keys have had their effect."""
        watch = Watch(self._screen, self._text_part(), POLL_WHILE_OPENING)
        watch.changed = time.monotonic()
        watch.until_rest(REST_AFTER_KEY, 60, self._process.pid)

    def keys(self, name):
        """The median of a few keys at the start of the text."""
        # Letters with blanks between them, so that no editor offers to complete a word.
        times = [self._reaction(key) for key in ["m", "space"] * (KEYS // 2)]
        self._shot(name)
        return statistics.median(times)

    def pages(self, name):
        times = [self._reaction("Next") for _ in range(PAGES)]
        self._shot(name)
        return statistics.median(times)

    def find(self):
        """Seconds to the second hit, which is near, and to the third at the end."""
        opening, first, following = self._editor.find
        self._screen.press("ctrl+Home")
        self._calm()
        self._screen.press(opening)
        time.sleep(0.5)
        self._screen.type(NEEDLE)
        for key in first:
            self._screen.press(key)
        time.sleep(0.5)
        self._calm()
        self._shot("find-first")
        near = self._reaction(following)
        self._shot("find-near")
        end = self._reaction(following)
        self._shot("find-end")
        return near, end


def measure(screen, editor, session, rows, documents, folder, shots=None):
    """The figures of one session by row; a text in a figure's place says why there is none."""
    figures = {}

    def put(names, values):
        figures.update(zip(names, values))

    def attempt(names, work):
        if not set(names) & set(rows):
            return
        try:
            put(names, work())
        except Stuck as reason:
            put(names, [str(reason)] * len(names))

    with Session(screen, editor, folder, _SESSIONS[session](documents, editor.extension),
                 shots) as opened:
        names = ["open-line"] if session == "open-line" else [session + "-painted",
                                                              session + "-text"]
        try:
            painted_and_text = opened.open(session)
        except Stuck as reason:
            return {row: str(reason) for row in rows}
        put(names, painted_and_text[-len(names):])
        if session == "open10":
            attempt(["memory10"], lambda: [opened.peak_memory()])
            attempt(["key10"], lambda: [opened.keys("key10")])
            attempt(["page10"], lambda: [opened.pages("page10")])
            attempt(["find-near", "find-end"], opened.find)
        if session == "open-line":
            attempt(["key-line"], lambda: [opened.keys("key-line")])
    return {row: figures[row] for row in rows}


def resolution():
    """How exactly the moments are known, in words."""
    found = {poll: statistics.median(times) * 1000 for poll, times in Watch.intervals.items()}
    words = [f"every {found[poll]:.1f} ms {when}" for poll, when in
             ((POLL_WHILE_OPENING, "while a document opens"), (POLL_AFTER_KEY, "after a key"))
             if poll in found]
    return "The screen was looked at " + ", ".join(words) + " (median)." if words else ""
