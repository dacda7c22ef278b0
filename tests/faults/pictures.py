# SPDX-License-Identifier: LGPL-2.1-or-later
"""Reads the pictures that the monitor draws, and those of displays without a monitor."""
import os
import struct
import subprocess
import threading
import time
import zlib

from readings import Fault


def parts_of_png(path):
    """Width and height of a PNG picture as Qt writes it, and how many parts of 64 bytes, filtered, differ from each other."""
    data = path.read_bytes()
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise Fault(f"{path.name} is no picture")
    width, height = struct.unpack(">II", data[16:24])
    packed, at = b"", 8
    while at < len(data):
        size, name = struct.unpack(">I4s", data[at:at + 8])
        packed += data[at + 8:at + 8 + size] if name == b"IDAT" else b""
        at += size + 12
    rows = zlib.decompress(packed)
    return width, height, len({rows[at:at + 64] for at in range(0, len(rows), 64)})


class Display:
    """An X server without a monitor, whose screen lies in a file."""

    def __init__(self, folder, depth, *options):
        self.screen = folder / "Xvfb_screen0"
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", f"1280x800x{depth}", "-fbdir", str(folder), "-nolisten", "tcp", *options],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.name = ":" + self.process.stdout.readline().decode().strip()

    def colours(self):
        """The number of colours on the screen. The file is an X window dump: a header of big-endian numbers, then rows."""
        data = self.screen.read_bytes()
        header = struct.unpack(">25I", data[:100])
        begin, pixel, length = header[0] + 12 * header[19], header[11] // 8, header[12]
        rows = (data[at:at + length] for at in range(begin, begin + header[5] * length, 4 * length))
        return len({row[at:at + pixel] for row in rows for at in range(0, header[4] * pixel, 4 * pixel)})

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
        self.process.stdout.close()


class WaylandDisplay:
    """A Wayland compositor without a monitor. What it shows is asked for as a picture."""

    def __init__(self, folder):
        self.folder = folder / "wayland"
        self.folder.mkdir(mode=0o700)
        self.name = "corvale"
        self.environment = os.environ | {
            "XDG_RUNTIME_DIR": str(self.folder), "HOME": str(self.folder), "WAYLAND_DISPLAY": self.name}
        # Pictures are given only to those who debug, and only if no graphics processor drew them.
        self.process = subprocess.Popen(
            ["weston", "--backend=headless-backend.so", "--use-pixman", "--debug", f"--socket={self.name}", "--idle-time=0",
             "--no-config", "--width=1280", "--height=800"],
            env=self.environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._wait_for_its_socket()

    def changes(self):
        """What a program needs in its environment to open windows on it."""
        return {"QT_QPA_PLATFORM": "wayland", "XDG_RUNTIME_DIR": str(self.folder), "WAYLAND_DISPLAY": self.name}

    def picture(self):
        """The path of a picture of its screen."""
        for old in self.folder.glob("*.png"):
            old.unlink()
        done = subprocess.run(["weston-screenshooter"], env=self.environment, cwd=self.folder, timeout=60,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        pictures = list(self.folder.glob("*.png"))
        if done.returncode or not pictures:
            raise Fault("the Wayland compositor gives no picture")
        return pictures[0]

    def _wait_for_its_socket(self):
        deadline = time.monotonic() + 30
        while not (self.folder / self.name).exists():
            if self.process.poll() is not None or time.monotonic() > deadline:
                self.__exit__()
                raise Fault("the Wayland compositor does not start")
            threading.Event().wait(0.02)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
