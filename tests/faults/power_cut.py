#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Cuts a finished recording at each byte of its last 4 KiB, as a power cut does, and reads what is left.

The rest of the block is missing, or is full of zeros, as file systems leave it. The short form takes a sample of the
places.
"""
import json
import sys

import plants
from bench import main
from readings import Fault, expect_all, header, lines, recorded

BLOCK = 4096
READINGS = 60
SAMPLE = 24


def make_recording(bench):
    """The bytes of a recording that the monitor made and ended."""
    with bench.without_plant(), bench.start("-", "--convert", "whole.csv") as monitor:
        monitor.send(header() + lines(0, READINGS))
        if code := monitor.finish():
            raise Fault(f"exit code {code}; {monitor.said()}")
    data = (bench.folder / "whole.csv").read_bytes()
    expect_all(recorded(data), 0, READINGS)
    return data


def read_cut(bench, data):
    """Reads a cut recording in each way, and compares with its complete lines."""
    (bench.folder / "cut.csv").write_bytes(data)
    count = len(recorded(data))
    code, said = bench.ask("--check", "cut.csv")
    if code or f"{count} readings, 0 lines dropped" not in said:
        raise Fault(f"--check ends with {code}: {said}")
    code, said = bench.ask("--stats", "--json", "cut.csv")
    if code or json.loads(said[said.index("{"):said.rindex("}") + 1])["readings"] != count:
        raise Fault(f"--stats ends with {code}: {said[:200]}")
    code, said = bench.ask("--convert", "read.csv", "cut.csv")
    if code:
        raise Fault(f"--convert ends with {code}: {said}")
    expect_all(recorded((bench.folder / "read.csv").read_bytes()), 0, count)


def drive(bench):
    whole = b""
    with bench.trying("the whole recording"):
        whole = make_recording(bench)
        read_cut(bench, whole)
    if not whole:
        return
    places = range(len(whole) - BLOCK, len(whole))
    if not bench.long:
        end_of_line = whole.rindex(b"\n", 0, -1)
        places = sorted({*bench.random.sample(places, SAMPLE), end_of_line, end_of_line + 1, end_of_line + 2})
    for place in places:
        zeros = bytes(BLOCK if bench.random.random() < 0.5 else 0)
        with bench.trying(f"cut at byte {place}, {len(zeros)} zeros"):
            read_cut(bench, whole[:place] + zeros)


if __name__ == "__main__":
    sys.exit(main("power cut", drive, [plants.WRONG_DIGIT, plants.LOST_LINE, plants.CRASH, plants.WRONG_CODE]))
