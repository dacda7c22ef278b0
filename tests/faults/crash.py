#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Lets a window that records crash by each signal of a crash, and starts it again.

The program ends by that signal. Its report can be read by its owner only and has the version, the source, the last lines
of the log and the frames of the stack. The next start tells of the crash in its log and goes on with the recording in
another file; the first one has every complete line.
"""
import re
import signal
import stat
import sys

import plants
from bench import main
from readings import Fault, expect_all, header, lines, recorded

SIGNALS = [signal.SIGSEGV, signal.SIGABRT, signal.SIGBUS, signal.SIGFPE, signal.SIGILL]
REPORTS = ".local/state/Corvale/runs"
PIECE = 500  # readings that are sent before a crash


def reports(bench, suffix):
    return sorted((bench.folder / REPORTS).glob(f"*.{suffix}"))


def record_until_crash(bench, number, path):
    """Starts a window, with --record the first time, and ends it by the signal once it has recorded."""
    options = ["--record", bench.folder / "a.csv"] if path.name == "a.csv" else []
    with bench.start("-", "--settings", "crash.xui", *options) as monitor:
        monitor.send(header() + lines(0, PIECE))
        monitor.wait_until(f"{path.name} holds the readings",
                           lambda: path.exists() and len(recorded(path.read_bytes())) == PIECE)
        monitor.process.send_signal(number)
        code = monitor.wait_for_end()
        if code != -number:
            raise Fault(f"it ended with {code} after {number.name}")
        bench.plant.spoil([path])
    expect_all(recorded(path.read_bytes()), 0, PIECE)


def expect_report(report, number, said):
    text = report.read_text(errors="replace")
    if stat.S_IMODE(report.stat().st_mode) != 0o600:
        raise Fault("others may read the report")
    frames = text.partition("The frames of the stack")[2]
    for what, found in {"version": text.startswith("corvale-monitor 2."), "source": "\nsource: " in text,
                        "signal": f"crash: signal {number.value} ({number.name})" in text,
                        "log": said in text, "frames": len(re.findall(r"\[0x[0-9a-f]+\]", frames)) >= 4}.items():
        if not found:
            raise Fault(f"the report lacks the {what}: {text[:2000]}")


def crash_twice(bench, number):
    first, second = bench.folder / "a.csv", bench.folder / "a-2.csv"
    record_until_crash(bench, number, first)
    bench.plant.lose(reports(bench, "run"))
    if len(reports(bench, "run")) != 1:
        raise Fault("there is no report")
    expect_report(reports(bench, "run")[0], number, "readings begin: 8 channels")
    record_until_crash(bench, number, second)
    if len(reports(bench, "txt")) != 1:
        raise Fault("the report of the first crash was not kept")
    expect_report(reports(bench, "run")[0], number, "WARNING The program crashed")


def end_properly(bench):
    """A window that is closed leaves nothing."""
    with bench.start("-", "--settings", "crash.xui") as monitor:
        monitor.send(header() + lines(0, PIECE))
        monitor.wait_until("a report is there", lambda: reports(bench, "run"))
        monitor.close_window()
    if reports(bench, "*"):
        raise Fault("a proper end leaves a report")


def drive(bench):
    for number in SIGNALS * (20 if bench.long else 1):
        with bench.trying(number.name):
            crash_twice(bench, number)
    with bench.trying("a proper end"):
        end_properly(bench)


if __name__ == "__main__":
    sys.exit(main("crash", drive, [plants.WRONG_DIGIT, plants.NO_REPORT, plants.NO_FRAMES]))
