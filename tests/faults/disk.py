#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Takes the room, the folder or the file away from a window that records, and looks for every reading in what is left.

A limit on the size of files stands for a full disk: the system refuses writes in the same way, and needs no rights. For a disk that
is broken, a small library that is loaded before the monitor refuses them (failing_disk.c, which needs a compiler).
"""
import errno
import os
import shutil
import sys

import plants
import preloaded
from bench import main
from readings import Fault, expect_all, header, lines, recorded

STEP = 500  # readings that are sent together
OUTPUT_FAILED = 4
ERRORS = [errno.EIO, errno.EROFS, errno.EDQUOT, errno.ESTALE]


class Recording:
    """A window that records what it is sent, and the places where its recordings may be."""

    def __init__(self, bench, changes=()):
        self.bench = bench
        self.path = bench.folder / "records" / "run.csv"
        self.path.parent.mkdir()
        self.monitor = bench.start("-", "--settings", "disk.xui", "--record", self.path, changes=changes)
        self.sent = 0
        self.kept = []  # files that were open before they were removed

    def __enter__(self):
        self.monitor.send(header())
        return self

    def __exit__(self, *_):
        self.monitor.__exit__()
        for file in self.kept:
            file.close()

    def send(self):
        self.monitor.send(lines(self.sent, self.sent + STEP))
        self.sent += STEP

    def keep_open(self):
        """Keeps the present file readable after it has been removed."""
        self.kept.append(open(self.path, "rb"))

    def readings(self):
        data = [path.read_bytes() for path in self.bench.folder.rglob("*.csv")]
        for file in self.kept:
            if os.fstat(file.fileno()).st_nlink == 0:
                file.seek(0)
                data.append(file.read())
        return sorted(index for text in data for index in recorded(text))

    def send_and_await(self):
        """Sends some readings, and waits until the files hold all that was sent."""
        self.send()
        self.monitor.wait_until(f"{self.sent} readings are recorded", lambda: len(self.readings()) >= self.sent)

    def fill_disk(self):
        """Lets the disk become full in the middle of what is sent next."""
        limit = self.path.stat().st_size + self.bench.random.randrange(1, 20_000)
        self.monitor.limit_files(limit)
        self.send()
        self.send()
        self.monitor.wait_until("the disk is full", lambda: self.path.stat().st_size >= limit)

    def end(self, expected=0):
        code = self.monitor.close_window()
        if code != expected:
            raise Fault(f"exit code {code}, and {expected} is documented; {self.monitor.said()}")


def room_again(recording):
    """The disk is full, and has room again before the end."""
    recording.fill_disk()
    recording.monitor.limit_files(None)


def folder_removed(recording):
    """The folder of the recording is removed."""
    recording.keep_open()
    shutil.rmtree(recording.path.parent)


def file_replaced(recording):
    """Another file takes the place of the recording."""
    recording.keep_open()
    other = recording.bench.folder / "other"
    other.write_text("# another program wrote this\n")
    os.replace(other, recording.path)


def file_renamed(recording):
    """The recording gets another name."""
    recording.path.rename(recording.path.with_name("moved.csv"))


def file_changed(recording):
    """Another program writes to the recording."""
    with open(recording.path, "ab") as file:
        file.write(b"# another program wrote this\n")


def second_recorder(recording):
    """Another recorder is told to write to the same file."""
    for options in ([], ["--overwrite"]):
        with recording.bench.without_plant():
            other = recording.bench.start("-", "--convert", recording.path, *options)
        with other:
            code = other.finish()
            if code != OUTPUT_FAILED:
                raise Fault(f"a second recorder with {options} ends with {code}; {other.said()}")


DISTURBANCES = [room_again, folder_removed, file_replaced, file_renamed, file_changed, second_recorder]


def disturb(bench, disturbance):
    with Recording(bench) as recording:
        recording.send_and_await()
        disturbance(recording)
        recording.send_and_await()
        recording.end()
        expect_all(recording.readings(), 0, recording.sent)


def full_to_the_end(bench):
    """What the disk took is exact and without a gap, and the exit code says that the rest is missing."""
    with Recording(bench) as recording:
        recording.send_and_await()
        recording.fill_disk()
        recording.end(OUTPUT_FAILED)
        readings = recording.readings()
        expect_all(readings, 0, max(STEP, len(readings)))
        bench.lost += recording.sent - len(readings)


class BrokenDisk:
    """Lets writes to recordings fail."""

    def __init__(self, folder):
        self.order = folder / "error"
        self.preloaded = preloaded.environment_with("failing_disk", folder)

    def changes(self):
        """The environment in which it is loaded."""
        return self.preloaded | {"FAILING_DISK": str(self.order)}

    def fail(self, error):
        self.order.write_text(str(error))

    def has_failed(self):
        return "failed" in self.order.read_text()

    def work(self):
        self.order.unlink()


def broken(bench, error, is_mended):
    """The disk refuses what is written, with an error, and works again or does not."""
    disk = BrokenDisk(bench.folder)
    with Recording(bench, disk.changes()) as recording:
        recording.send_and_await()
        disk.fail(error)
        recording.send()
        recording.monitor.wait_until("a write has failed", disk.has_failed)
        if is_mended:
            disk.work()
            recording.send_and_await()
        recording.end(0 if is_mended else OUTPUT_FAILED)
        readings = recording.readings()
        expect_all(readings, 0, recording.sent if is_mended else STEP)
        bench.lost += recording.sent - len(readings)


def refused(bench):
    """The folder takes no file. Nobody may create files in /proc, not even root, whom permissions do not stop."""
    with bench.start("-", "--settings", "disk.xui", "--record", "/proc/corvale.csv") as monitor:
        code = monitor.finish()
        if code != OUTPUT_FAILED or "cannot be written" not in monitor.said():
            raise Fault(f"exit code {code}; {monitor.said()}")


def drive(bench):
    for _ in range(20 if bench.long else 1):
        for disturbance in DISTURBANCES:
            with bench.trying(disturbance.__doc__):
                disturb(bench, disturbance)
        with bench.trying("full to the end"):
            full_to_the_end(bench)
        with bench.trying("a folder that takes no file"):
            refused(bench)
        for error in ERRORS if bench.long else ERRORS[:1]:
            for is_mended in (True, False) if preloaded.can_be_made() else ():
                with bench.trying(f"{errno.errorcode[error]}{', and the disk works again' if is_mended else ''}"):
                    broken(bench, error, is_mended)
    if not preloaded.can_be_made():
        bench.skip("a broken disk", "there is no compiler")


if __name__ == "__main__":
    sys.exit(main("disk and files", drive, [plants.WRONG_DIGIT, plants.LOST_LINE, plants.CRASH, plants.HANG]))
