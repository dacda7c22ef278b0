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


def send_until(monitor, end):
    """Sends readings as they fall due until the time has come; returns the moment at which each piece was sent."""
    sent = []
    begin = time.monotonic()
    while (now := time.monotonic()) < end:
        due = int((now - begin) * 1000 / PIECE) + 1
        for piece in range(len(sent), due):
            monitor.send(lines(piece * PIECE, (piece + 1) * PIECE))
            sent.append(time.monotonic())
        threading.Event().wait(0.002)
    return sent


def kill_once(bench, from_start):
    path = bench.folder / "killed.csv"
    with bench.start("-", "--settings", "killed.xui", "--record", path) as monitor:
        monitor.send(header())
        age = bench.random.uniform(0.0, 0.4) if from_start else bench.random.uniform(0.7, 2.2)
        sent = send_until(monitor, time.monotonic() + age)
        killed = time.monotonic()
        monitor.kill()
    if path.exists():
        judge(bench, path, sent, killed, from_start)
    elif from_start:
        count_from_start(bench, len(sent) * PIECE)
    else:
        raise Fault("there is no recording")


def count_from_start(bench, lost):
    """No age is promised while the program starts; what is lost then is counted."""
    bench.lost += lost
    bench.at_most("from the start: most lost readings", lost)


def judge(bench, path, sent, killed, from_start):
    indices = recorded(path.read_bytes())
    expect_rising(indices)
    expect_all(indices, 0, len(indices))
    code, said = bench.ask("--check", path)
    if code != (0 if indices else 2) or f"{len(indices)} readings, 0 lines dropped" not in said:
        raise Fault(f"--check ends with {code}: {said}")
    lost = len(sent) * PIECE - len(indices)
    if from_start:
        count_from_start(bench, lost)
        return
    bench.lost += lost
    oldest = killed - sent[len(indices) // PIECE] if lost else 0.0
    bench.at_most("oldest lost reading, ms:", 1000 * oldest)
    if not indices:
        raise Fault("nothing was recorded")
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
