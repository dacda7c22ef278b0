#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Sends a window the readings of months, as fast as it takes them: 2 million of eight channels, or 20 million in the long form.

The clock of the readings is accelerated: one comes each ten seconds, so that the week that a window remembers is over when the
warm-up is. From then on its memory grows by less than a megabyte for a million readings, and the number of its open
descriptors stays as it is. In the long form the readings after that take as little processor time as in a window that is new.
"""
import statistics
import sys

import plants
from bench import main
from readings import CHANNELS, Fault, header

BLOCK = 10_000  # readings that are sent together
INTERVAL = 10  # s between two of them
WARM_UP = 500_000  # readings; 58 days
READINGS = 2_000_000
LONG_READINGS = 20_000_000
PART = 200_000  # readings whose processor time is taken together
COMPARED = 9  # parts
MOST_GROWTH = 1e6  # bytes for a million readings
RESOLUTION = 512e3  # bytes that come and go with a frame
MOST_SLOWER = 1.1  # of a new window's processor time

VALUES = [b"," + b",".join(b"%.3f" % ((row * 7919 + k * 104729) % 100_003 / 997.0) for k in range(CHANNELS)) + b"\n"
          for row in range(BLOCK)]


def block(begin):
    """Readings of the same values again and again, with times that go on."""
    return b"".join(b"%d%b" % ((begin + row) * INTERVAL, values) for row, values in enumerate(VALUES))


def send(monitor, begin, end):
    for first in range(begin, end, BLOCK):
        monitor.send(block(first))


def expect_flat(bench, memory, begin, descriptors, readings):
    """Raises Fault if memory grew from what it was at the beginning, or descriptors stay open, while so many readings came."""
    bench.at_most("kB of growth:", (memory - begin) / 1e3)
    if memory - begin > RESOLUTION + MOST_GROWTH * readings / 1e6:
        raise Fault(f"its memory grew by {(memory - begin) / 1e6:.1f} MB with {readings} readings")
    if descriptors[1] != descriptors[0]:
        raise Fault(f"it has {descriptors[1]} descriptors open, and had {descriptors[0]}")


def expect_as_fast(bench, old, begin):
    """Raises Fault if readings take longer than in a window that has just been opened; both take turns on the same machine."""
    with bench.start("-", "--settings", "fresh.xui") as fresh:
        fresh.send(header())
        send(fresh, 0, WARM_UP)
        times = {old: [], fresh: []}
        for part in range(COMPARED):
            for monitor, first in ((old, begin), (fresh, WARM_UP)):
                before = monitor.processor_time()
                send(monitor, first + part * PART, first + (part + 1) * PART)
                times[monitor].append(monitor.processor_time() - before)
        share = statistics.median(times[old]) / statistics.median(times[fresh])
        bench.at_most("% of a new window's processor time:", 100 * share)
        if share > MOST_SLOWER:
            raise Fault(f"readings take {share:.2f} times the processor time that they take in a new window")


def soak(bench):
    readings = LONG_READINGS if bench.long else READINGS
    with bench.start("-", "--settings", "soak.xui") as monitor:
        monitor.send(header())
        send(monitor, 0, WARM_UP)
        memory, descriptors = monitor.memory(), monitor.descriptors()
        send(monitor, WARM_UP, readings)
        expect_flat(bench, monitor.memory(), memory, (descriptors, monitor.descriptors()), readings - WARM_UP)
        if bench.long:
            expect_as_fast(bench, monitor, readings)
        if monitor.close_window():
            raise Fault(f"it ended with {monitor.process.returncode}; {monitor.said()}")


def drive(bench):
    with bench.trying("readings of months"):
        soak(bench)


if __name__ == "__main__":
    sys.exit(main("soak", drive, [plants.GROWTH, plants.OPEN_FILES, plants.CRASH]))
