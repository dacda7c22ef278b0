#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Sends a window the readings of months, as fast as it takes them: 2 million of eight channels, or 20 million in the long form.

The clock of the readings is accelerated: one comes each ten seconds, so that the week that a window remembers is over when the
warm-up is. From then on its memory grows by less than a megabyte for a million readings, and the number of its open
descriptors stays as it is. In the long form the readings after that take as little processor time as in a window that is new.

    soak.py --hours 8     a window of a simulated instrument at the speed of the clock, for a shift
"""
import statistics
import sys
import time

import plants
from bench import main
from readings import CHANNELS, Fault, header

BLOCK = 10_000  # readings that are sent together
INTERVAL = 10  # s between two of them
WARM_UP = 500_000  # readings; 58 days
READINGS = 2_000_000
LONG_READINGS = 20_000_000
PART = 500_000  # readings between two looks at the memory
TIMED = 200_000  # readings whose processor time is taken together
COMPARED = 9  # such times
MOST_GROWTH = 1e6  # bytes for a million readings
MOST_STEPS = 8e6  # bytes that come at once and stay, such as the memory of a larger frame
MOST_SLOWER = 1.1  # of a new window's processor time

VALUES = [b"," + b",".join(b"%.3f" % ((row * 7919 + k * 104729) % 100_003 / 997.0) for k in range(CHANNELS)) + b"\n"
          for row in range(BLOCK)]


def block(begin):
    """Readings of the same values again and again, with times that go on."""
    return b"".join(b"%d%b" % ((begin + row) * INTERVAL, values) for row, values in enumerate(VALUES))


def send(monitor, begin, end):
    for first in range(begin, end, BLOCK):
        monitor.send(block(first))


def expect_flat(bench, memory):
    """Raises Fault if memory grew in every part: what comes once, in a step, does not count up to a limit."""
    least = min(after - before for before, after in zip(memory, memory[1:]))
    parts = len(memory) - 1
    bench.at_most("kB of growth:", (memory[-1] - memory[0]) / 1e3)
    if least > MOST_GROWTH * PART / 1e6:
        raise Fault(f"its memory grew by {least / 1e6:.1f} MB at least with each {PART} readings")
    if memory[-1] - memory[0] > MOST_STEPS + MOST_GROWTH * parts * PART / 1e6:
        raise Fault(f"its memory grew by {(memory[-1] - memory[0]) / 1e6:.1f} MB with {parts * PART} readings")


def expect_as_fast(bench, old, begin):
    """Raises Fault if readings take longer than in a window that has just been opened; both take turns on the same machine."""
    with bench.start("-", "--settings", "fresh.xui") as fresh:
        fresh.send(header())
        send(fresh, 0, WARM_UP)
        times = {old: [], fresh: []}
        for part in range(COMPARED):
            for monitor, first in ((old, begin), (fresh, WARM_UP)):
                before = monitor.processor_time()
                send(monitor, first + part * TIMED, first + (part + 1) * TIMED)
                times[monitor].append(monitor.processor_time() - before)
        share = statistics.median(times[old]) / statistics.median(times[fresh])
        bench.at_most("% of a new window's processor time:", 100 * share)
        if share > MOST_SLOWER:
            raise Fault(f"readings take {share:.2f} times the processor time that they take in a new window")


def soak(bench):
    # Planted growth comes with each look at the memory, however many readings lie between two of them.
    part = PART if bench.plant.name == plants.Plant.name else BLOCK
    readings = LONG_READINGS if bench.long else WARM_UP + (READINGS - WARM_UP) // PART * part
    with bench.start("-", "--settings", "soak.xui") as monitor:
        monitor.send(header())
        send(monitor, 0, WARM_UP)
        memory, descriptors = [monitor.memory()], monitor.descriptors()
        for begin in range(WARM_UP, readings, part):
            send(monitor, begin, begin + part)
            memory.append(monitor.memory())
        expect_flat(bench, memory)
        if monitor.descriptors() > descriptors:
            raise Fault("files that it opened stay open")
        if bench.long:
            expect_as_fast(bench, monitor, readings)
        if monitor.close_window():
            raise Fault(f"it ended with {monitor.process.returncode}; {monitor.said()}")


def busy_time(monitor, seconds):
    """Milliseconds of processor time that a window uses in a second, nearly all of them for painting."""
    before, begin = monitor.processor_time(), time.monotonic()
    monitor.run_for(seconds)
    return 1000 * (monitor.processor_time() - before) / (time.monotonic() - begin)


def shift(bench, hours):
    """A window shows a simulated instrument at the speed of the clock. Looked at sixty times, it holds no more in the last third than
    in the second, has no more files open, and paints for no longer at the end than after the warm-up."""
    end = time.monotonic() + 3600 * hours
    pause = 3600 * hours / 60
    with bench.start("sim:ic4", "--settings", "shift.xui") as monitor:
        busy, memory, descriptors = [], [], []
        while time.monotonic() < end:
            busy.append(busy_time(monitor, pause))
            memory.append(monitor.memory())
            descriptors.append(monitor.descriptors())
        third = len(busy) // 3
        early, late = statistics.median(busy[third:2 * third]), statistics.median(busy[2 * third:])
        bench.at_most("% of the processor time of the second third:", 100 * late / early)
        bench.at_most("MB at the end:", memory[-1] / 1e6)
        bench.at_most("kB of growth in the last third:", (memory[-1] - memory[2 * third]) / 1e3)
        if late > MOST_SLOWER * early:
            raise Fault(f"it is busy for {late:.1f} ms in a second, after {early:.1f} ms")
        if descriptors[-1] > descriptors[third]:
            raise Fault("files that it opened stay open")
        if memory[-1] - memory[2 * third] > MOST_STEPS:
            raise Fault(f"its memory grew by {(memory[-1] - memory[2 * third]) / 1e6:.1f} MB in the last third")
        if monitor.close_window():
            raise Fault(f"it ended with {monitor.process.returncode}; {monitor.said()}")


def add_options(parser):
    parser.add_argument("--hours", type=float, default=0.0, help="how long a simulated instrument is shown, instead of the readings of months")


def drive(bench):
    if hours := getattr(bench.options, "hours", 0.0):
        with bench.trying(f"{hours:g} hours"):
            shift(bench, hours)
        return
    with bench.trying("readings of months"):
        soak(bench)


if __name__ == "__main__":
    sys.exit(main("soak", drive, [plants.GROWTH, plants.OPEN_FILES, plants.CRASH], add_options))
