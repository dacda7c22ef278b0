#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Feeds streams that no instrument should send, between readings that are right.

The monitor neither crashes nor hangs, holds little memory, ends with the documented exit code, and records each of the
readings before and after.
"""
import sys
from dataclasses import dataclass
from typing import Callable

import plants
from bench import main
from readings import CHANNELS, FOREIGN, Fault, expect_all, header, line, lines, recorded

GOOD = 20  # readings before, and as many after
MOST_MEMORY = 120_000_000  # bytes, of which the program and its libraries take about 30 MB
BLOCK = 1_000_000  # bytes of a flood that are sent together
ROUNDS = 3  # times that a block is sent
LONG_ROUNDS = 100


@dataclass
class Stream:
    """What is sent between the readings, and the exit code that follows."""

    name: str
    code: int
    make: Callable  # one block, from a random source and the size of a block in a flood
    by_byte: bool = False
    once: bool = False  # the block is sent a single time
    rounds: int = ROUNDS  # times that it is sent in the short form


def repeated(text):
    return lambda random, size: text * (size // len(text))


def shapes(random, size):
    """Lines of 2 to 7 fields, so that none of them is like a reading; each is longer or shorter than the one before."""
    return b"".join(b",".join([b"%d" % (FOREIGN + at)] * (2 + at % 6)) + b"\n" for at in range(size // 200))


def garbage(random, size):
    """Bytes of any value on lines of any length. None of them holds a digit, so that none of them is a reading."""
    return bytes(random.choices([code for code in range(256) if not 48 <= code <= 57], k=size // 20)) + b"\n"


def jumps(random, size):
    """Single readings from another time, between two that are right."""
    stray = b",".join([b"%d"] + [b"1"] * CHANNELS) + b"\n"
    return b"".join(stray % random.choice([-5, -FOREIGN]) for _ in range(9))


def restarts(random, size):
    return b"".join(b"#corvale 1\n" + header() for _ in range(size // 1000))


STREAMS = [
    Stream("nothing between", 0, lambda random, size: b""),
    Stream("one byte at a time", 2, lambda random, size: b"0.0205,1,nonsense\r\n#event slow\r\n", by_byte=True, once=True),
    Stream("no line end", 2, repeated(b"1"), rounds=10),
    Stream("only spaces", 2, repeated(b" ")),
    Stream("NUL", 2, repeated(b"\0")),
    Stream("NUL inside lines", 2, repeated(b"0.0\x0025,1,2,3\n")),
    Stream("UTF-16", 2, lambda random, size: lines(0, GOOD).decode().encode("utf-16")),
    Stream("Latin-1", 2, lambda random, size: "0.0205,1µA,2\n#event Ströme\n# Überlauf\n".encode("latin-1") * 100),
    Stream("broken UTF-8", 2, lambda random, size: b"#event \xf8\xff\xc0\x80\n\xed\xa0\x80\n" * 100),
    Stream("any bytes", 2, garbage),
    Stream("empty lines, CR and LF mixed", 0, repeated(b"\n\r\r\n\n\n\r\r")),
    Stream("10 000 columns", 2, lambda random, size: (b"0.0205" + b",1" * 10_000 + b"\n") * 50),
    Stream("another shape on each line", 2, shapes),
    Stream("too large for a double", 2, repeated(b"0.0205" + b",-1e400" * CHANNELS + b"\n")),
    Stream("time too large for a double", 2, repeated(b"1e400" + b",1" * CHANNELS + b"\n")),
    Stream("events", 0, repeated(b"#event the shutter moved\n")),
    Stream("comments", 0, repeated(b"# nothing to say\n")),
    Stream("bad lines", 2, repeated(b"this is not a reading\n")),
    Stream("bad descriptions", 2, repeated(b"#pitch a lot\n")),
    Stream("detectors that are none", 2, lambda random, size: (b"#detector " + b'{"a":[' * 5000 + b"\n") * 50),
    Stream("wrong time stamps", 2, jumps, once=True),
    Stream("restarts", 0, restarts),
]


def feed(monitor, stream, data):
    if stream.by_byte:
        for at in range(len(data)):
            monitor.send(data[at:at + 1])
    else:
        monitor.send(data)


def send_between(bench, monitor, stream, rounds):
    block = stream.make(bench.random, BLOCK)
    for _ in range(1 if stream.once else rounds):
        feed(monitor, stream, block)


def parts_of(bench):
    """The recordings of a run, oldest first."""
    return sorted(bench.folder.glob("out*.csv"), key=lambda path: path.stat().st_mtime_ns)


def send_stream(bench, stream):
    with bench.start("-", "--convert", "out.csv") as monitor:
        feed(monitor, stream, header() + lines(0, GOOD))
        send_between(bench, monitor, stream, LONG_ROUNDS if bench.long else stream.rounds)
        feed(monitor, stream, b"\n" + lines(GOOD, 2 * GOOD))
        code = monitor.finish()
    bench.at_most("most memory, MB:", monitor.peak / 1e6)
    expect_all([index for part in parts_of(bench) for index in recorded(part.read_bytes())], 0, 2 * GOOD)
    if code != stream.code:
        raise Fault(f"exit code {code}, and {stream.code} is documented; {monitor.said()}")
    if monitor.peak > MOST_MEMORY:
        raise Fault(f"it held {monitor.peak / 1e6:.0f} MB")


def all_in_one_window(bench):
    """The streams come one after another, and a window shows and records what it can use of them."""
    with bench.start("-", "--settings", "window.xui", "--record", "out.csv") as monitor:
        monitor.send(header() + lines(0, GOOD))
        for number, stream in enumerate(STREAMS, 1):
            send_between(bench, monitor, stream, 1)
            monitor.send(b"\n" + lines(number * GOOD, (number + 1) * GOOD))
            last = (number + 1) * GOOD - 1
            monitor.wait_until(f"the readings after \"{stream.name}\" are recorded",
                               lambda: any(last in recorded(part.read_bytes()) for part in parts_of(bench)))
        bench.at_most("of a window, MB:", monitor.memory() / 1e6)
        if monitor.memory() > MOST_MEMORY:
            raise Fault(f"it holds {monitor.memory() / 1e6:.0f} MB")
        if code := monitor.close_window():
            raise Fault(f"exit code {code}; {monitor.said()}")
    expect_all([index for part in parts_of(bench) for index in recorded(part.read_bytes())], 0,
               (len(STREAMS) + 1) * GOOD)


def line_ends(bench):
    """The readings themselves, with each kind of line end in turn."""
    with bench.start("-", "--convert", "out.csv") as monitor:
        ends = [b"\n", b"\r\n", b"\r", b"\n\n", b"\r\n\r\n"]
        monitor.send(header() + b"".join(line(at)[:-1] + ends[at % len(ends)] for at in range(1000)))
        code = monitor.finish()
    expect_all(recorded((bench.folder / "out.csv").read_bytes()), 0, 1000)
    if code:
        raise Fault(f"exit code {code}; {monitor.said()}")


def drive(bench):
    for stream in STREAMS:
        with bench.trying(stream.name):
            send_stream(bench, stream)
    with bench.trying("readings with any line end"):
        line_ends(bench)
    with bench.trying("all of them in one window"):
        all_in_one_window(bench)


PLANTS = [plants.WRONG_DIGIT, plants.LOST_LINE, plants.CRASH, plants.HANG, plants.MEMORY, plants.WRONG_CODE]

if __name__ == "__main__":
    sys.exit(main("hostile streams", drive, PLANTS))
