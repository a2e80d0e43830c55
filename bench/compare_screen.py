"""An X server of our own, its screen read from memory, and keys that come from a keyboard."""

import mmap
import os
import signal
import struct
import tempfile
import time
import zlib

from Xlib import X, XK, display, error
from Xlib.ext import xtest

import compare_processes as processes

WIDTH, HEIGHT = 1024, 768

# A caret that blinks is no news. It is this narrow and this high at most, in pixels.
CARET_WIDTH, CARET_HEIGHT = 3, 30


class Stuck(Exception):
    """What was waited for did not happen."""


class Screen:
    """Xvfb without a window manager. Its frame buffer is a file that is read like memory, so that
    a picture of a part of the screen costs neither the server nor the program anything."""

    def __init__(self, folder):
        self._folder = tempfile.mkdtemp(dir=folder)
        reader, writer = os.pipe()
        self._server = processes.start(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{WIDTH}x{HEIGHT}x24",
             "-fbdir", self._folder, "-nolisten", "tcp", "-noreset"],
            passed=(writer,), ending=signal.SIGTERM)
        os.close(writer)
        with os.fdopen(reader) as answer:
            number = answer.readline().strip()
        if not number:
            self.close()
            raise Stuck("Xvfb did not start")
        self.name = ":" + number
        self._display = display.Display(self.name)
        self._root = self._display.screen().root
        self._map()
        # The pointer is drawn into the frame buffer: away from the windows with it.
        self._root.warp_pointer(WIDTH - 1, HEIGHT - 1)
        self._display.sync()

    def _map(self):
        with open(os.path.join(self._folder, "Xvfb_screen0"), "rb") as file:
            self._memory = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        # The header of the X Window Dump format: 32-bit words, most significant byte first, then
        # the colours of 12 bytes each.
        header = struct.unpack(">25I", self._memory[:100])
        self._row = header[12]
        self._start = header[0] + 12 * header[19]

    def close(self):
        # Killed, it would leave its lock and its socket behind.
        processes.end_gently(self._server)

    def picture(self, part):
        """The pixels of `part` (x, y, width, height), 4 bytes each, row by row."""
        x, y, width, height = part
        first = self._start + y * self._row + 4 * x
        memory, row, size = self._memory, self._row, 4 * width
        return b"".join([memory[at:at + size]
                         for at in range(first, first + height * row, row)])

    def sample(self):
        """Every sixteenth row of the screen, none of those that the pointer stands in."""
        return b"".join([self._memory[self._start + y * self._row:][:4 * WIDTH]
                         for y in range(0, HEIGHT, 16)])

    def windows(self):
        """The windows that are to be seen, the largest first."""
        found = []
        for window in self._root.query_tree().children:
            try:
                if window.get_attributes().map_state == X.IsViewable:
                    place = window.get_geometry()
                    found.append((place.width * place.height, place, window))
            except error.BadWindow:  # It closed meanwhile.
                continue
        found.sort(key=lambda entry: -entry[0])
        return [(place, window) for _, place, window in found]

    def focus_largest(self):
        """Gives the keyboard to the largest window, as a window manager would; its place."""
        shown = self.windows()
        if not shown:
            raise Stuck("no window")
        place, window = shown[0]
        window.set_input_focus(X.RevertToParent, X.CurrentTime)
        self._display.sync()
        return place

    def press(self, name):
        """A key, with modifiers as in "ctrl+f", goes down and up."""
        codes = [self._display.keysym_to_keycode(XK.string_to_keysym(part))
                 for part in name.replace("ctrl", "Control_L").split("+")]
        for code in codes:
            xtest.fake_input(self._display, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self._display, X.KeyRelease, code)
        self._display.flush()

    def type(self, text):
        for letter in text:
            self.press(letter)
            time.sleep(0.02)


def save_png(path, pixels, width):
    """Writes pixels of the screen (blue, green, red and a byte of nothing) as a PNG file."""
    def chunk(kind, content):
        return (struct.pack(">I", len(content)) + kind + content
                + struct.pack(">I", zlib.crc32(kind + content)))
    colours = bytearray(len(pixels) // 4 * 3)
    for channel in range(3):
        colours[channel::3] = pixels[2 - channel::4]
    rows = b"".join(b"\0" + colours[at:at + 3 * width]
                    for at in range(0, len(colours), 3 * width))
    header = struct.pack(">IIBBBBB", width, len(pixels) // (4 * width), 8, 2, 0, 0, 0)
    with open(path, "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
                  + chunk(b"IDAT", zlib.compress(rows, 6)) + chunk(b"IEND", b""))


def part_of(screen_pixels, part):
    """A part of a picture of the whole screen."""
    x, y, width, height = part
    first, row = 4 * (y * WIDTH + x), 4 * WIDTH
    return b"".join([screen_pixels[at:at + 4 * width]
                     for at in range(first, first + height * row, row)])


def holds_text(pixels, least):
    """At least so many dark pixels, on a page: a window that isn't painted is all black."""
    dark = sum(1 for blue in pixels[::4] if blue < 100)
    return least <= dark < len(pixels) // 4 * 0.4


def is_painted(sample):
    """A window has more than its own plain colour on the screen's."""
    return len(set(memoryview(sample).cast("I")[::3])) > 2


def alike(one, other, width):
    """Whether two pictures of `width` pixels a row differ by no more than a caret."""
    if one == other:
        return True
    size = 4 * width
    rows = [at for at in range(0, len(one), size) if one[at:at + size] != other[at:at + size]]
    if rows[-1] - rows[0] > CARET_HEIGHT * size:
        return False
    columns = 0  # A bit is on where any row differs; the first byte of a row is the lowest.
    for at in rows:
        columns |= (int.from_bytes(one[at:at + size], "little")
                    ^ int.from_bytes(other[at:at + size], "little"))
    lowest = (columns & -columns).bit_length() - 1
    return columns.bit_length() // 32 - lowest // 32 < CARET_WIDTH


class Watch:
    """Looks at a part of the screen and knows when it last changed by more than a caret."""

    intervals = {}  # Seconds between two looks, by the seconds slept between them.

    def __init__(self, screen, part, poll):
        self._screen = screen
        self.part = part
        self._poll = poll
        self.pixels = screen.picture(part)
        self.changed = None  # Seconds of time.monotonic.
        self._looked = time.monotonic()

    def look(self):
        pixels = self._screen.picture(self.part)
        now = time.monotonic()
        Watch.intervals.setdefault(self._poll, []).append(now - self._looked)
        self._looked = now
        if pixels != self.pixels:
            if not alike(pixels, self.pixels, self.part[2]):
                self.changed = now
            self.pixels = pixels
        return now

    def until_rest(self, rest, limit, pid, enough=lambda pixels: True):
        """Waits until the part has changed, then stood still for `rest` seconds while the program
        had no work, and until what stands there is `enough`. The moment of the last change."""
        begun = time.monotonic()
        mark, used = begun, processes.processor_seconds(pid)
        while True:
            now = self.look()
            if now - mark >= rest / 3:
                try:
                    spent = processes.processor_seconds(pid) - used
                except ProcessLookupError:
                    raise Stuck("the program ended") from None
                idle = spent < 0.15 * (now - mark)
                still = self.changed is not None and now - self.changed >= rest
                # A program that works on for long, behind a picture that stands, is let be.
                if still and (idle or now - self.changed > 8) and enough(self.pixels):
                    return self.changed
                mark, used = now, used + spent
            if now - begun > limit:
                raise Stuck(f"nothing for {limit} s" if self.changed is None
                            else f"no rest in {limit} s")
            time.sleep(self._poll)
