#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Gives the monitor no threads, as where a user or a service may have no more of them.

What can be done without them is done: every reading is recorded. What cannot be done is told, and nothing waits for it.
"""
import sys

import plants
import preloaded
from bench import main
from readings import Fault, expect_all, header, lines, recorded

FLOOD = 20_000  # readings, of which a thread would get some thousand at a time
READINGS = 3000
USAGE, SOURCE_FAILED = 1, 3
WHY = "the system cannot start another thread"


def expect_end(monitor, expected, text):
    if (code := monitor.finish()) != expected or text not in monitor.output.read_text(errors="replace"):
        raise Fault(f"exit code {code}, where {expected} and '{text}' are right; {monitor.said()}")


def flood(bench, changes):
    """A window records what comes at once."""
    path = bench.folder / "flood.csv"
    with bench.start("-", "--settings", "flood.xui", "--record", path, "--after", f"{FLOOD}readings", changes=changes) as monitor:
        monitor.send(header() + lines(0, FLOOD))
        expect_end(monitor, 0, "")
    expect_all(recorded(path.read_bytes()), 0, FLOOD)


def segments(bench, changes):
    """Complete files are to be compressed: they stay as they are, with a line for each."""
    folder = bench.folder / "segments"
    folder.mkdir()
    with bench.start("-", "--stats", "--record", folder, "--rotate", "20k", "--segments", "zstd", changes=changes) as monitor:
        monitor.send(header() + lines(0, READINGS))
        expect_end(monitor, 0, f"stays uncompressed: {WHY}")
    files = sorted(folder.iterdir())
    expect_all([index for path in files for index in recorded(path.read_bytes())], 0, READINGS)


def tape(bench, changes):
    """A recording is shown, which cannot be searched."""
    path, picture = bench.folder / "tape.csv", bench.folder / "tape.png"
    path.write_bytes(header() + lines(0, READINGS))
    with bench.start(path, "--screenshot", picture, changes=changes) as monitor:
        expect_end(monitor, 0, "")
    if not picture.exists():
        raise Fault("there is no picture")


def plugins(bench, changes):
    """Sources that wait for their peers in threads fail at once."""
    for address, expected in (("ca:BPM1:X", USAGE), ("tango://127.0.0.1:1/a/b/c/d#dbase=no", SOURCE_FAILED)):
        with bench.start(address, "--stats", changes=changes) as monitor:
            code = monitor.finish()
            said = monitor.output.read_text(errors="replace")
        if "is not a known kind of source" in said:
            bench.skip(address, "this monitor has no plugin for it")
        elif code != expected or WHY not in said:
            raise Fault(f"{address}: exit code {code}, where {expected} and '{WHY}' are right; {monitor.said()}")


def drive(bench):
    if not preloaded.can_be_made():
        bench.skip("no threads", "there is no compiler")
        return
    for attempt in (flood, segments, tape, plugins):
        for _ in range(10 if bench.long else 1):
            with bench.trying(attempt.__doc__):
                attempt(bench, preloaded.environment_with("no_threads", bench.folder))


if __name__ == "__main__":
    sys.exit(main("no threads", drive, [plants.WRONG_DIGIT, plants.LOST_LINE, plants.CRASH, plants.WRONG_CODE]))
