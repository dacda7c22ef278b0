#!/usr/bin/python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Measures which share of one core a window takes while it shows 64 channels at 1 kHz over 60 s, 25 frames a second, and how often
a window is woken without data.

    benchmarks/window_share.py BUILD              all of it, one after the other
    benchmarks/window_share.py BUILD monitor      some of it: monitor, qwt, qcustomplot, hidden, silent

monitor, qwt and qcustomplot are the monitor and plain windows of the other libraries. hidden is the monitor while its window is not on
the screen, unmapped as a minimised one is, and silent is the monitor after its instrument has fallen silent. Prints "goal, measured,
limit"; the exit code is 1 if a goal was missed.

BUILD is the folder of a release build with benchmarks. All windows have the same size on a screen of their own (Xvfb) and read the
same lines from a pipe: a minute at once, then each millisecond as it passes. The monitor draws legend, limits, gaps and, under the
pointer, the cursor; the others draw axes, grid and curves. The share is that of the process, after its minute is full.
"""
import argparse
import contextlib
import ctypes
import ctypes.util
import math
import os
import random
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

CHANNELS = 64
RATE = 1000  # rows a second
SPAN = 60  # s
WRITES = 25  # a second
SIZE = (1600, 1000)
TICKS = os.sysconf("SC_CLK_TCK")
SHARES = ("monitor", "qwt", "qcustomplot", "hidden")
SUBJECTS = (*SHARES, "silent")
LIMITS = {"monitor": 15, "hidden": 1}  # %
LEADS = {"qwt": 6, "qcustomplot": 3}


def header():
    names = [f"c{i:02}" for i in range(CHANNELS)]
    limits = [f"#limits {name} {low:.2f},{low + 0.2:.2f},{low + 3.8:.2f},{low + 4:.2f}"
              for name, low in ((name, 2 * i - 2.0) for i, name in enumerate(names))]
    return "\n".join(["#corvale 1", "#channels " + ",".join(names), "#unit nA", *limits, ""]).encode()


def readings():
    """The readings of four seconds as text, over and over: a wave with noise for each channel, each around another level."""
    noise = random.Random(1)
    rows = 4 * RATE
    return [",".join(f"{2 * c + math.sin(2 * math.pi * row * (1 + c % 7) / rows) + noise.gauss(0, 0.2):.3f}"
                     for c in range(CHANNELS)).encode() for row in range(rows)]


class Instrument(threading.Thread):
    """Writes the readings into a pipe: a minute of the past at once, then as time passes."""

    def __init__(self, pipe, falls_silent):
        super().__init__(daemon=True)
        self.pipe = pipe
        self.falls_silent = falls_silent
        self.rows = readings()
        self.caught_up = threading.Event()

    def lines(self, first, end):
        return b"".join(b"%.3f,%b\n" % (row / RATE, self.rows[row % len(self.rows)]) for row in range(first, end))

    def run(self):
        try:
            self.pipe.write(header())
            sent = (SPAN + 5) * RATE
            for first in range(1, sent, RATE):
                self.pipe.write(self.lines(first, min(first + RATE, sent)))
            self.pipe.flush()
            self.caught_up.set()
            if self.falls_silent:
                return
            begin = time.monotonic() - sent / RATE
            while True:
                time.sleep(1 / WRITES)
                due = int((time.monotonic() - begin) * RATE)
                self.pipe.write(self.lines(sent, due))
                self.pipe.flush()
                sent = due
        except (BrokenPipeError, ValueError):
            self.caught_up.set()


class Screen:
    """A screen of its own, with the pointer in the middle of the window."""

    def __init__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{SIZE[0]}x{SIZE[1]}x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            self.name = ":" + answer.readline().strip()
        self.library = ctypes.CDLL(ctypes.util.find_library("X11"))
        self.library.XOpenDisplay.restype = ctypes.c_void_p
        self.library.XDefaultRootWindow.restype = ctypes.c_ulong

    @contextlib.contextmanager
    def root(self):
        """A connection to the screen, and its root window."""
        display = ctypes.c_void_p(self.library.XOpenDisplay(self.name.encode()))
        yield display, ctypes.c_ulong(self.library.XDefaultRootWindow(display))
        self.library.XCloseDisplay(display)

    def move_pointer(self, x, y):
        with self.root() as (display, root):
            self.library.XWarpPointer(display, ctypes.c_ulong(0), root, 0, 0, 0, 0, x, y)

    def hide_windows(self):
        """Unmaps all windows, as a window manager does that minimises them."""
        with self.root() as (display, root):
            self.library.XUnmapSubwindows(display, root)

    def close(self):
        self.server.terminate()
        self.server.wait()


def processor_time(pid):
    """The seconds of processor time of a process and its threads."""
    fields = Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def share(pid, seconds):
    """The share of one core that a process takes, in percent."""
    before, begin = processor_time(pid), time.monotonic()
    time.sleep(seconds)
    return 100 * (processor_time(pid) - before) / (time.monotonic() - begin)


def sleeps(pid):
    """How often the threads of a process have gone to sleep until now."""
    return sum(int(line.split()[1]) for task in Path(f"/proc/{pid}/task").iterdir()
               for line in (task / "status").read_text().splitlines() if line.startswith("voluntary_ctxt_switches"))


def wake_ups(pid, seconds):
    """How often a second a process wakes. The answers of the display server to what was painted belong to the wake-up before them."""
    rest = 0.05
    last, changed, count, begin = sleeps(pid), -rest, 0, time.monotonic()
    while (passed := time.monotonic() - begin) < seconds:
        time.sleep(rest / 5)
        now = sleeps(pid)
        if now != last:
            count += passed - changed > rest
            last, changed = now, passed
    return count / passed


def command(build, subject, folder):
    size = f"{SIZE[0]}x{SIZE[1]}"
    if subject in LEADS:
        return [build / "benchmarks/corvale_window_peer", subject, size]
    return [build / "monitor/corvale-monitor", "--settings", f"{folder}/share.xui", "--size", size, "--span", f"{SPAN}s", "-"]


def measure(build, subject, seconds):
    """The share of one core that a window takes, in percent, or how often it is woken in a second if it gets no data."""
    screen = Screen()
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(os.environ, DISPLAY=screen.name, QT_QPA_PLATFORM="xcb", XDG_RUNTIME_DIR=folder,
                           XDG_CONFIG_HOME=folder, XDG_CACHE_HOME=folder, QT_SCALE_FACTOR="1")
        process = subprocess.Popen(command(build, subject, folder), stdin=subprocess.PIPE, env=environment,
                                   stderr=subprocess.DEVNULL)
        try:
            instrument = Instrument(process.stdin, subject == "silent")
            instrument.start()
            instrument.caught_up.wait()
            time.sleep(5)
            if subject == "hidden":
                screen.hide_windows()
            else:
                screen.move_pointer(SIZE[0] // 2, SIZE[1] // 2)
            time.sleep(5)
            measured = (share if subject in SHARES else wake_ups)(process.pid, seconds)
            if process.poll() is not None:
                sys.exit(f"{subject} ended with {process.returncode}")
            return measured
        finally:
            process.kill()
            process.wait()
            screen.close()


def report(goal, measured, bound, limit):
    """Prints the row of a goal, and returns whether it was met."""
    met = measured >= limit if bound == ">=" else measured <= limit
    print(f"| {goal:62} | {measured:10.4g} | {bound} {limit:7} | {'met' if met else 'MISSED'} |", flush=True)
    return met


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=Path)
    parser.add_argument("subject", nargs="*", choices=[*SUBJECTS, []], help="all by default")
    parser.add_argument("--seconds", type=float, default=20)
    arguments = parser.parse_args()
    wanted = arguments.subject or SUBJECTS
    measured = {subject: measure(arguments.build.resolve(), subject, arguments.seconds) for subject in SUBJECTS if subject in wanted}
    met = []
    for subject, value in measured.items():
        if subject in LIMITS:
            name = "hidden window" if subject == "hidden" else "window"
            met.append(report(f"18 {name} of 64 channels at 1 kHz, % of a core", value, "<=", LIMITS[subject]))
        elif subject in LEADS and "monitor" in measured:
            met.append(report(f"18 the same, times less than a window of {subject}", value / measured["monitor"], ">=", LEADS[subject]))
        elif subject == "silent":
            met.append(report("18 window without data, wake-ups a second", round(value, 1), "<=", 1))
    sys.exit(0 if all(met) else 1)


if __name__ == "__main__":
    main()
