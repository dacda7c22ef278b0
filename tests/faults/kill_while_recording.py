#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Kills a window at random moments while it records 8 channels at 1 kHz from a pipe, and reads the recording.

Each file opens, each complete line is exact, and nothing is missing before the last of them. The age of the oldest
reading that is lost is printed; the long form fails if it reaches a second in a window that has begun to record.
"""
import sys
import threading
import time

import plants
from bench import main
from readings import Fault, expect_all, expect_rising, header, lines, recorded

PIECE = 10  # readings that are sent together, every 10 ms
OLDEST = 1.0  # s, the promised age


class Stream:
    """Readings that are sent as they fall due, and the moment at which each piece of them was sent."""

    def __init__(self, monitor):
        self.monitor = monitor
        self.begin = time.monotonic()
        self.sent = []
        monitor.send(header())

    def readings(self):
        return len(self.sent) * PIECE

    def send_due(self):
        due = int((time.monotonic() - self.begin) * 1000 / PIECE) + 1
        for piece in range(len(self.sent), due):
            self.monitor.send(lines(piece * PIECE, (piece + 1) * PIECE))
            self.sent.append(time.monotonic())

    def go_on(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.send_due()
            threading.Event().wait(0.002)

    def go_on_until_recorded(self, path):
        """Goes on until a recording holds the first readings."""
        def holds_readings():
            self.send_due()
            return path.exists() and len(recorded(path.read_bytes())) > 0
        self.monitor.wait_until("the first readings are recorded", holds_readings)


def kill_once(bench, from_start):
    path = bench.folder / "killed.csv"
    with bench.start("-", "--settings", "killed.xui", "--record", path) as monitor:
        stream = Stream(monitor)
        if from_start:
            stream.go_on(bench.random.uniform(0.0, 0.4))
        else:
            stream.go_on_until_recorded(path)
            stream.go_on(bench.random.uniform(0.0, 1.5))
        killed = time.monotonic()
        monitor.kill()
    if path.exists():
        judge(bench, path, stream, killed, from_start)
    elif from_start:
        count_from_start(bench, stream.readings())
    else:
        raise Fault("there is no recording")


def count_from_start(bench, lost):
    """No age is promised while the program starts; what is lost then is counted."""
    bench.lost += lost
    bench.at_most("from the start: most lost readings", lost)


def judge(bench, path, stream, killed, from_start):
    indices = recorded(path.read_bytes())
    expect_rising(indices)
    expect_all(indices, 0, len(indices))
    code, said = bench.ask("--check", path)
    if code != (0 if indices else 2) or f"{len(indices)} reading{'s' * (len(indices) != 1)}, 0 lines dropped" not in said:
        raise Fault(f"--check ends with {code}: {said}")
    lost = stream.readings() - len(indices)
    if from_start:
        count_from_start(bench, lost)
        return
    if not indices:
        raise Fault("nothing was recorded")
    bench.lost += lost
    oldest = killed - stream.sent[len(indices) // PIECE] if lost else 0.0
    bench.at_most("oldest lost reading, ms:", 1000 * oldest)
    if bench.long and oldest >= OLDEST:
        raise Fault(f"a reading of {oldest:.2f} s before is lost")


def drive(bench):
    tries = 200 if bench.long else 10
    for number in range(tries):
        from_start = number % 5 == 4
        with bench.trying(f"kill {number}"):
            kill_once(bench, from_start)


if __name__ == "__main__":
    sys.exit(main("kill -9", drive, [plants.WRONG_DIGIT, plants.LOST_LINE, plants.EMPTY, plants.CRASH]))
