#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Kills a window while it turns the files of a recording into HDF5, or records two sources; fills the disk meanwhile; cuts HDF5 files.

Whatever is left is read by the monitor: each reading that a file held before is there, as text or as HDF5, and a file that is cut
is refused with a sentence, or read without a wrong number.
"""
import contextlib
import itertools
import socket
import sys
import threading
import time

import plants
from bench import main
from connections import LOCAL, free_port
from readings import Fault, expect_all, expect_rising, header, lines, recorded

PIECE = 20  # readings that are sent together
WHOLE = 400  # readings of the HDF5 file that is cut
NO_READINGS = 2  # the exit code for a file without readings
READ_BADLY = 3  # the exit code for a file that cannot be read
OUTPUT_FAILED = 4


def read(bench, path):
    """The indices of the readings of a recording, as the monitor reads it; None if it refuses to."""
    out = bench.folder / "read.csv"
    out.unlink(missing_ok=True)
    code, said = bench.ask("--convert", out, path)
    if code not in (0, NO_READINGS, READ_BADLY):
        raise Fault(f"--convert of {path.name} ends with {code}: {said[-300:]}")
    if code and not said.strip():
        raise Fault(f"--convert of {path.name} does not say why it ends with {code}")
    indices = recorded(out.read_bytes()) if out.exists() else []
    out.unlink(missing_ok=True)
    expect_rising(indices)
    return indices if code != READ_BADLY else None


def expect_segments(bench, folder):
    """How many readings the files of a folder hold, without a gap. A reading is there twice only if its file is there in both
    forms, as a kill between the two steps of a conversion leaves it."""
    found = {}
    for path in sorted([*folder.glob("*.csv"), *folder.glob("*.h5")]):
        indices = read(bench, path)
        if indices is None:
            raise Fault(f"{path.name} cannot be read")
        found.setdefault(path.stem, set()).update(indices)
    every = sorted(itertools.chain.from_iterable(found.values()))
    expect_all(every, 0, len(set(every)))
    return len(every)


def send_until(monitor, send, what, condition):
    """Sends pieces of readings until a condition holds; returns how many readings were sent."""
    sent = itertools.count(0, PIECE)
    end = 0

    def is_so():
        nonlocal end
        begin = next(sent)
        end = begin + PIECE
        send(lines(begin, end))
        return condition()
    monitor.wait_until(what, is_so)
    return end


def kill_while_converting(bench):
    """Kills it in one of the moments in which complete files become HDF5."""
    folder = bench.folder / "segments"
    folder.mkdir()
    few = bench.random.randrange(2, 5)
    with bench.start("-", "--settings", "segments.xui", "--record", folder, "--rotate", "20k", "--segments", "hdf5") as monitor:
        monitor.send(header())
        sent = send_until(monitor, monitor.send, "files are HDF5", lambda: len(list(folder.iterdir())) >= few)
        threading.Event().wait(bench.random.uniform(0.0, 0.3))
        monitor.kill()
    bench.lost += sent - expect_segments(bench, folder)


def full_while_converting(bench):
    """Text has room on the disk and HDF5, which needs more for so few readings, has not: all of it stays text."""
    folder = bench.folder / "segments"
    folder.mkdir()
    with bench.start("-", "--stats", "--record", folder, "--rotate", "1s", "--segments", "hdf5") as monitor:
        monitor.limit_files(12_000)
        monitor.send(header())
        sent = 0
        for files in (1, 2, 3):
            monitor.send(lines(sent, sent + PIECE))
            sent += PIECE
            monitor.wait_until(f"file {files} is begun", lambda: len(list(folder.glob("*.csv"))) >= files)
            threading.Event().wait(1.1)
        code = monitor.finish()
    if code not in (0, OUTPUT_FAILED) or "stays text" not in monitor.output.read_text(errors="replace"):
        raise Fault(f"exit code {code}; {monitor.said()}")
    if list(folder.glob("*.h5")) or list(folder.glob("*.part")):
        raise Fault("a part of an HDF5 file is left")
    expect_all(range(expect_segments(bench, folder)), 0, sent)


class Peer:
    """An instrument that sends readings to a port."""

    def __init__(self, port):
        self.port = port
        self.socket = None
        self.sent = 0

    def connects(self):
        with contextlib.suppress(ConnectionRefusedError):
            self.socket = socket.create_connection((LOCAL, self.port), timeout=60)
            self.socket.sendall(header())
        return self.socket is not None

    def send(self):
        self.socket.sendall(lines(self.sent, self.sent + PIECE))
        self.sent += PIECE


def kill_with_two_sources(bench):
    """Kills it while it records two sources, each to a file of its own."""
    peers = {name: Peer(free_port()) for name in ("one", "two")}
    sources = [word for name, peer in peers.items() for word in ("--source", f"{name}=tcp-listen://{LOCAL}:{peer.port}")]
    files = {name: bench.folder / f"run-{name}.csv" for name in peers}
    with bench.start(*sources, "--settings", "two.xui", "--record", bench.folder / "run.csv") as monitor:
        for peer in peers.values():
            monitor.wait_until("it listens", peer.connects)

        def are_recorded():
            for peer in peers.values():
                peer.send()
            return all(path.exists() and len(recorded(path.read_bytes())) > 0 for path in files.values())
        monitor.wait_until("both are recorded", are_recorded)
        end = time.monotonic() + bench.random.uniform(0.0, 1.0)
        while time.monotonic() < end:
            for peer in peers.values():
                peer.send()
            threading.Event().wait(0.02)
        monitor.kill()
    for name, peer in peers.items():
        peer.socket.close()
        indices = read(bench, files[name]) or []
        expect_all(indices, 0, len(indices))
        if not indices:
            raise Fault(f"nothing of {name} was recorded")
        bench.lost += peer.sent - len(indices)


def make_hdf5(bench):
    """The bytes of an HDF5 file that the monitor made."""
    with bench.without_plant(), bench.start("-", "--convert", "whole.h5") as monitor:
        monitor.send(header() + lines(0, WHOLE))
        if code := monitor.finish():
            raise Fault(f"exit code {code}; {monitor.said()}")
    path = bench.folder / "whole.h5"
    expect_all(read(bench, path) or [], 0, WHOLE)
    return path.read_bytes()


def read_cut(bench, data):
    """Reads a file that a power cut has left: refused, or without a wrong number."""
    path = bench.folder / "cut.h5"
    path.write_bytes(data)
    if indices := read(bench, path):
        expect_all(indices, 0, len(indices))


def drive(bench):
    for attempt, tries in ((kill_while_converting, 40), (kill_with_two_sources, 20), (full_while_converting, 2)):
        for _ in range(tries if bench.long else 1):
            with bench.trying(attempt.__doc__):
                attempt(bench)
    whole = b""
    with bench.trying("the whole HDF5 file"):
        whole = make_hdf5(bench)
    for _ in range((200 if bench.long else 4) if whole else 0):
        place = bench.random.randrange(len(whole))
        hole = bench.random.randrange(1, 4096)
        with bench.trying(f"cut at byte {place}"):
            read_cut(bench, whole[:place])
        with bench.trying(f"{hole} zeros at byte {place}"):
            read_cut(bench, whole[:place] + bytes(hole) + whole[place + hole:])


if __name__ == "__main__":
    sys.exit(main("segments and sources", drive, [plants.WRONG_DIGIT, plants.LOST_LINE, plants.CRASH, plants.WRONG_CODE]))
