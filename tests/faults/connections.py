#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Treats a window on a TCP source badly: many peers, broken connections, peers that say nothing any more.

After each of them a peer sends readings properly: all of these are recorded, and no descriptor stays open.
"""
import contextlib
import socket
import struct
import sys

import plants
from bench import main
from readings import Fault, expect_all, expect_rising, header, line, lines, recorded

LOCAL = "127.0.0.1"
MOST_MEMORY = 120_000_000  # bytes
STEP = 20  # readings that a peer sends


def free_port():
    with socket.socket() as probe:
        probe.bind((LOCAL, 0))
        return probe.getsockname()[1]


class Listening:
    """A window that records what peers send to its port."""

    def __init__(self, bench):
        self.bench = bench
        self.port = free_port()
        self.path = bench.folder / "peers.csv"
        source = f"tcp-listen://{LOCAL}:{self.port}"
        self.monitor = bench.start(source, "--settings", "peers.xui", "--record", self.path)
        self.sent = 0

    def __enter__(self):
        self.monitor.wait_until("it listens", self.listens)
        self.send_properly()
        self.descriptors = self.monitor.descriptors()
        return self

    def __exit__(self, *_):
        self.monitor.__exit__()

    def listens(self):
        with contextlib.suppress(ConnectionRefusedError), self.connect():
            return True
        return False

    def connect(self):
        return socket.create_connection((LOCAL, self.port), timeout=self.monitor.plant.patience)

    def next_lines(self, count=STEP):
        self.sent += count
        return lines(self.sent - count, self.sent)

    def recorded(self):
        parts = sorted(self.bench.folder.glob("*.csv"), key=lambda path: path.stat().st_mtime_ns)
        return [index for part in parts for index in recorded(part.read_bytes())]

    def send_properly(self):
        """A peer sends readings, waits until the last of them is recorded, and closes the connection."""
        first = self.sent
        with self.connect() as peer:
            peer.sendall(header() + self.next_lines())
            self.monitor.wait_until("the readings of a proper peer are recorded",
                                    lambda: self.sent - 1 in self.recorded())
        expect_all([index for index in self.recorded() if index >= first], first, self.sent)

    def end(self):
        """Checks what is held after all peers have gone, and what was recorded of them."""
        self.monitor.wait_until("no more descriptors are open than before",
                                lambda: self.monitor.descriptors() <= self.descriptors)
        memory = self.monitor.memory()
        self.bench.at_most("most memory, MB:", memory / 1e6)
        if memory > MOST_MEMORY:
            raise Fault(f"it holds {memory / 1e6:.0f} MB")
        code = self.monitor.close_window()
        if code:
            raise Fault(f"exit code {code}; {self.monitor.said()}")
        indices = self.recorded()
        expect_rising(indices)
        expect_all(indices, 0, self.sent)


def reset(peer):
    """Breaks a connection off, without the handshake at its end."""
    peer.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    peer.close()


def storm(window, count):
    """Each peer sends a few readings and leaves; the next one comes at once."""
    for _ in range(count):
        with window.connect() as peer:
            peer.sendall(window.next_lines(3))


def broken_off(window, count):
    """Each peer breaks off in the middle of a line."""
    for _ in range(count):
        peer = window.connect()
        peer.sendall(line(window.sent)[:30])
        reset(peer)


def all_at_once(window, count):
    """All peers are connected at the same time, and say nothing or half a line."""
    with contextlib.ExitStack() as peers:
        for number in range(count):
            peer = peers.enter_context(window.connect())
            if number % 2:
                peer.sendall(line(window.sent)[:20])
        window.send_properly()


def half_open(window, count):
    """The connection of each peer stays open when the peer comes back."""
    with contextlib.ExitStack() as peers:
        for _ in range(count // 20):
            peers.enter_context(window.connect())
            window.send_properly()


def trouble(bench, peers, count):
    with Listening(bench) as window:
        peers(window, count)
        window.send_properly()
        window.end()


def frozen_peer(bench, times):
    """An instrument freezes in the middle of a line. The monitor gives it up after a second, and connects again."""
    path = bench.folder / "frozen.csv"
    with contextlib.ExitStack() as open_ones, socket.create_server((LOCAL, 0)) as server:
        server.settimeout(bench.plant.patience)
        source = f"tcp://{LOCAL}:{server.getsockname()[1]}?silence=1s"
        monitor = open_ones.enter_context(bench.start(source, "--settings", "frozen.xui", "--record", path))
        try:
            for time in range(times):
                peer = open_ones.enter_context(server.accept()[0])
                peer.sendall(header() + lines(time * STEP, (time + 1) * STEP) + line((time + 1) * STEP)[:-9])
            peer = open_ones.enter_context(server.accept()[0])
        except TimeoutError:
            raise Fault(f"it does not connect again; {monitor.said()}") from None
        if code := monitor.close_window():
            raise Fault(f"exit code {code}; {monitor.said()}")
        parts = sorted(bench.folder.glob("frozen*.csv"), key=lambda part: part.stat().st_mtime_ns)
        expect_all([index for part in parts for index in recorded(part.read_bytes())], 0, times * STEP)


def drive(bench):
    for peers in (storm, broken_off, all_at_once, half_open):
        with bench.trying(peers.__doc__):
            trouble(bench, peers, 1000 if bench.long else 100)
    with bench.trying(frozen_peer.__doc__):
        frozen_peer(bench, 20 if bench.long else 2)


if __name__ == "__main__":
    sys.exit(main("connections", drive, [plants.WRONG_DIGIT, plants.EXCHANGED_LINES, plants.CRASH, plants.HANG]))
