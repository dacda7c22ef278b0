#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Cuts a finished recording at each byte of its last 4 KiB, as a power cut does, and reads what is left.

The rest of the block is missing, or is full of zeros, as file systems leave it. The short form takes a sample of the
places. One process reads many cuts as its sources, because starting it takes longer than reading them; --convert has one source,
so the long form, too, converts only the sample.
"""
import json
import re
import sys

import plants
from bench import main
from readings import Fault, expect_all, header, lines, recorded

BLOCK = 4096
READINGS = 60
SAMPLE = 24
CUTS_AT_ONCE = 64


def make_recording(bench):
    """The bytes of a recording that the monitor made and ended."""
    with bench.without_plant(), bench.start("-", "--convert", "whole.csv") as monitor:
        monitor.send(header() + lines(0, READINGS))
        if code := monitor.finish():
            raise Fault(f"exit code {code}; {monitor.said()}")
    data = (bench.folder / "whole.csv").read_bytes()
    expect_all(recorded(data), 0, READINGS)
    return data


def convert_cut(bench, data):
    """Converts a cut recording, and compares with its complete lines."""
    (bench.folder / "cut.csv").write_bytes(data)
    code, said = bench.ask("--convert", "read.csv", "cut.csv")
    if code:
        raise Fault(f"--convert ends with {code}: {said}")
    expect_all(recorded((bench.folder / "read.csv").read_bytes()), 0, len(recorded(data)))


def expect_counts(found, counts, option):
    """Raises Fault unless an option told of as many readings of each cut as it has complete lines."""
    if found != counts:
        wrong = next((name for name in counts if found.get(name) != counts[name]), "another source")
        raise Fault(f"{option} finds {found.get(wrong)} readings in {wrong}, which has {counts.get(wrong)}")


def read_cuts(bench, cuts):
    """Reads many cut recordings, each of which has a name, as the sources of one process."""
    for name, data in cuts.items():
        (bench.folder / f"{name}.csv").write_bytes(data)
    counts = {name: len(recorded(data)) for name, data in cuts.items()}
    files = [f"{name}.csv" for name in cuts]
    code, said = bench.ask("--check", *files)
    if code:
        raise Fault(f"--check ends with {code}: {said[-300:]}")
    expect_counts({name: int(count) for name, count in re.findall(r"^(\w+): (\d+) readings, 0 lines dropped", said, re.MULTILINE)},
                  counts, "--check")
    code, said = bench.ask("--stats", "--json", *files)
    if code:
        raise Fault(f"--stats ends with {code}: {said[-300:]}")
    sources = json.loads(said[said.index("{"):said.rindex("}") + 1])["sources"]
    expect_counts({source["source"].removesuffix(".csv"): source["readings"] for source in sources}, counts, "--stats")
    code, said = bench.ask("--headless", "--speed", "0", "--record", "read.csv", *files)
    if code:
        raise Fault(f"--record ends with {code}: {said[-300:]}")
    for name, count in counts.items():
        expect_all(recorded((bench.folder / f"read-{name}.csv").read_bytes()), 0, count)


def drive(bench):
    whole = b""
    with bench.trying("the whole recording"):
        whole = make_recording(bench)
    if not whole:
        return
    end_of_line = whole.rindex(b"\n", 0, -1)
    everywhere = range(len(whole) - BLOCK, len(whole) + 1)
    sample = sorted({*bench.random.sample(everywhere, SAMPLE), end_of_line, end_of_line + 1, end_of_line + 2, len(whole)})
    cuts = {place: whole[:place] + bytes(BLOCK * bench.random.getrandbits(1)) for place in everywhere}
    places = everywhere if bench.long else sample
    parts = -(-len(places) // CUTS_AT_ONCE)
    for part in range(parts):
        some = places[part::parts]
        with bench.trying(f"cuts at bytes {some[0]}, {some[1]} ... {some[-1]}", tries=len(some)):
            read_cuts(bench, {f"cut{place}": cuts[place] for place in some})
    for place in sample:
        with bench.trying(f"--convert of a cut at byte {place}, {len(cuts[place]) - place} zeros"):
            convert_cut(bench, cuts[place])


if __name__ == "__main__":
    sys.exit(main("power cut", drive, [plants.WRONG_DIGIT, plants.LOST_LINE, plants.CRASH, plants.WRONG_CODE]))
