#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Sends a window more than anybody can look at, while the window measures the turns of its own event loop.

No turn uses the processor for longer than an operator would notice, and every reading is recorded.
"""
import re
import socket
import sys
import threading
import time

import plants
from bench import main
from hostile_streams import STREAMS
from readings import Fault, expect_all, header, lines, recorded

RATE = 50_000  # readings a second
PIECE = 0.02  # s between two writes
BEGINNING = 2.5  # s, after which the window counts its turns
STEADY_LIMIT = 50  # ms of processor time in a turn, while readings come at the rate
FLOOD_LIMIT = 200  # ms, in any flood
FLOOD = 2_000_000  # bytes of each flood; ten times as many in the long form
FLOODS = ("events", "comments", "bad lines", "bad descriptions", "restarts", "10 000 columns", "another shape on each line",
          "no line end", "any bytes")
SOCKET_FLOODS = ("bad descriptions",)  # what takes longest to read
# Other programs on the machine spoil what the processor has in store, so that the same work takes longer.
BUSY_MACHINE = 3


class Watched:
    """A window that records what it is sent, and tells at its end how long its turns were."""

    def __init__(self, bench, source="-"):
        self.bench = bench
        self.path = bench.folder / "watched.csv"
        self.monitor = bench.start(source, "--settings", "watched.xui", "--record", self.path, "--diagnostics")
        self.sent = 0

    def __enter__(self):
        self.send_bytes(header())
        self.send(20)
        self.monitor.wait_until("the first readings are recorded", lambda: self.path.exists() and self.readings())
        threading.Event().wait(BEGINNING)
        return self

    def __exit__(self, *_):
        self.monitor.__exit__()

    def send_bytes(self, data):
        self.monitor.send(data)

    def send(self, count):
        self.send_bytes(lines(self.sent, self.sent + count))
        self.sent += count

    def connect_again(self):
        """A pipe has one sender, which stays."""

    def readings(self):
        parts = sorted(self.bench.folder.glob("watched*.csv"), key=lambda part: part.stat().st_mtime_ns)
        return [index for part in parts for index in recorded(part.read_bytes())]

    def end(self, limit, note):
        """Checks how long the longest turn used the processor, and that everything is recorded."""
        self.monitor.wait_until("the last reading is recorded", lambda: self.sent - 1 in self.readings()[-1:])
        code = self.monitor.close_window()
        said = self.monitor.output.read_text(errors="replace")
        if code:
            raise Fault(f"exit code {code}; {self.monitor.said()}")
        told = re.search(r"(\d+) turns .* processor for ([\d.]+) ms", said)
        if not told or int(told[1]) < 10:
            raise Fault(f"it does not tell of its turns; {self.monitor.said()}")
        longest = float(told[2])
        self.bench.at_most(f"{note}, ms:", longest)
        if longest > limit * (1 if self.bench.long else BUSY_MACHINE):
            raise Fault(f"a turn of the event loop used the processor for {longest} ms")
        expect_all(self.readings(), 0, self.sent)


class WatchedPeer(Watched):
    """The same of a window that is sent its readings through a socket."""

    def __init__(self, bench):
        self.server = socket.create_server(("127.0.0.1", 0))
        self.server.settimeout(60)
        super().__init__(bench, f"tcp://127.0.0.1:{self.server.getsockname()[1]}")
        self.peer = self.server.accept()[0]

    def __exit__(self, *_):
        super().__exit__()
        self.peer.close()
        self.server.close()

    def send_bytes(self, data):
        self.peer.sendall(data)

    def connect_again(self):
        """Leaves while the window still reads what was sent, and takes its next connection."""
        self.peer.close()
        self.peer = self.server.accept()[0]
        self.send_bytes(header())


def steady(bench):
    """Readings come at the rate."""
    with Watched(bench) as window:
        pieces = [lines(begin, begin + int(RATE * PIECE))
                  for begin in range(window.sent, window.sent + int(RATE * (5 if bench.long else 1)), int(RATE * PIECE))]
        begin = time.monotonic()
        for number, piece in enumerate(pieces, 1):
            window.monitor.send(piece)
            window.sent += int(RATE * PIECE)
            threading.Event().wait(max(0.0, begin + number * PIECE - time.monotonic()))
        window.end(STEADY_LIMIT, "50 k readings/s")


def flood(bench, names, watched=Watched):
    """Floods come as fast as the window takes them."""
    with watched(bench) as window:
        for name in names:
            stream = next(stream for stream in STREAMS if stream.name == name)
            block = stream.make(bench.random, FLOOD // 2)
            for _ in range(20 if bench.long else 2):
                window.send_bytes(block)
            window.send_bytes(b"\n")
            window.send(20)
            window.connect_again()
            window.send(20)
        window.end(FLOOD_LIMIT, "flood")


def drive(bench):
    with bench.trying(steady.__doc__):
        steady(bench)
    with bench.trying("a flood through a socket"):
        flood(bench, SOCKET_FLOODS, WatchedPeer)
    if not bench.long:
        with bench.trying("all floods, one after the other"):
            flood(bench, FLOODS)
        return
    for name in FLOODS:
        with bench.trying(name):
            flood(bench, [name])


if __name__ == "__main__":
    sys.exit(main("event loop", drive, [plants.LONG_TURN, plants.LOST_LINE, plants.CRASH]))
