# SPDX-License-Identifier: LGPL-2.1-or-later
"""Faults that are planted to see that a driver finds them: each stands for a monitor that is broken in one way."""
import itertools
import re
import struct
import sys
import zlib


class Plant:
    """Nothing planted. A plant may put a program before the monitor, and may spoil the recordings that it left."""

    name = "nothing"
    patience = 60.0  # s until a monitor that does not do what is awaited counts as hanging

    def before_monitor(self):
        return []

    def spoil(self, recordings):
        pass

    def reword(self, output):
        pass

    def lose(self, reports):
        """Changes the reports that a crash has left."""

    def overpaint(self, picture):
        """Changes a picture that was drawn."""

    def weigh(self, memory):
        """Changes the bytes of memory that are read."""
        return memory

    def count(self, descriptors):
        """Changes the number of open descriptors that is read."""
        return descriptors


class Blank(Plant):
    """Replaces each picture by a white one of the same size."""

    name = "an empty picture"

    def overpaint(self, picture):
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
        begin = picture.read_bytes()[16:24]
        width, height = struct.unpack(">II", begin)
        rows = (b"\0" + b"\xff" * (3 * width)) * height
        picture.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", begin + bytes([8, 2, 0, 0, 0]))
                            + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


class Lost(Plant):
    """Cuts each report of a crash where a text begins."""

    def __init__(self, name, text):
        self.name = name
        self.text = text

    def lose(self, reports):
        for path in reports:
            path.write_bytes(path.read_bytes().partition(self.text)[0])


class Reworded(Plant):
    """Changes what the monitor has printed."""

    def __init__(self, name, pattern, text):
        self.name = name
        self.pattern = pattern
        self.text = text

    def reword(self, output):
        output.write_text(re.sub(self.pattern, self.text, output.read_text(errors="replace")))


class Growing(Plant):
    """Adds to each reading of the memory, and of the number of descriptors, more than to the one before."""

    def __init__(self, name, bytes_each_time, descriptors_each_time):
        self.name = name
        self.bytes = itertools.count(0, bytes_each_time)
        self.descriptors = itertools.count(0, descriptors_each_time)

    def weigh(self, memory):
        return memory + next(self.bytes)

    def count(self, descriptors):
        return descriptors + next(self.descriptors)


class Spoiled(Plant):
    """Changes the newest recording that holds readings, by a function of its lines."""

    def __init__(self, name, change):
        self.name = name
        self.change = change

    def spoil(self, recordings):
        for path in sorted(recordings, key=lambda path: path.stat().st_mtime_ns, reverse=True):
            rows = path.read_bytes().splitlines(keepends=True)
            first = next((at for at, row in enumerate(rows) if row[:1].isdigit()), len(rows))
            if len(rows) - first > 8:
                path.write_bytes(b"".join(rows[:first] + self.change(rows[first:])))
                return


class Before(Plant):
    """Puts a short program before the monitor, which starts the monitor or does not."""

    def __init__(self, name, program, patience=Plant.patience):
        self.name = name
        self.program = program
        self.patience = patience

    def before_monitor(self):
        return [sys.executable, "-c", "import os, signal, sys\n" + self.program]


def _with_wrong_digit(rows):
    middle = rows[len(rows) // 2].rstrip(b"\n")
    digit = b"7" if middle[-1:] != b"7" else b"3"
    rows[len(rows) // 2] = middle[:-4] + digit * 4 + b"\n"
    return rows


def _exchanged(rows):
    rows[3], rows[4] = rows[4], rows[3]
    return rows


WRONG_DIGIT = Spoiled("a wrong digit", _with_wrong_digit)
LOST_LINE = Spoiled("a lost line", lambda rows: rows[:5] + rows[6:])
EXCHANGED_LINES = Spoiled("two lines exchanged", _exchanged)
EMPTY = Spoiled("nothing was written", lambda rows: [])
LONG_TURN = Reworded("a turn of 900 ms", r"processor for [\d.]+ ms", "processor for 900.0 ms")
BLANK = Blank()
NO_REPORT = Lost("a report without the crash", b"crash:")
NO_FRAMES = Lost("a report without frames", b"[0x")
GROWTH = Growing("3 MB that stay", 3_000_000, 0)
OPEN_FILES = Growing("a file that stays open", 0, 1)
CRASH = Before("a crash", "os.kill(os.getpid(), signal.SIGSEGV)")
HANG = Before("a hang", "signal.pause()", patience=2.0)
MEMORY = Growing("300 MB of memory", 300_000_000, 0)
# The monitor ends with the program before it, which a driver may kill; 1 is PR_SET_PDEATHSIG.
WRONG_CODE = Before("another exit code",
                    "import ctypes, subprocess\n"
                    "end_with_me = lambda: ctypes.CDLL(None).prctl(1, signal.SIGKILL)\n"
                    "subprocess.run(sys.argv[1:], preexec_fn=end_with_me)\nsys.exit(1)")
