# SPDX-License-Identifier: LGPL-2.1-or-later
"""Starts and ends corvale-monitor, and reads from /proc what it uses."""
import contextlib
import os
import re
import resource
import signal
import subprocess
import threading
import time
from pathlib import Path

from readings import Fault


def environment(folder, changes):
    """The environment of a user whose folders are all inside the scratch folder, with some changes; None unsets."""
    keep = ("PATH", "LD_LIBRARY_PATH", "LSAN_OPTIONS", "UBSAN_OPTIONS")
    own = {name: os.environ[name] for name in keep if name in os.environ}
    usual = own | {"HOME": str(folder), "XDG_RUNTIME_DIR": str(folder), "TMPDIR": str(folder), "LC_ALL": "C.UTF-8",
                   "TZ": "UTC", "QT_QPA_PLATFORM": "offscreen"} | changes
    return {name: value for name, value in usual.items() if value is not None}


class Monitor:
    """One process of the monitor. Its output goes to a file of the scratch folder."""

    def __init__(self, bench, *arguments, changes=(), through=()):
        self.plant = bench.plant
        self.folder = bench.folder
        self.output = bench.folder / "output.txt"
        command = [*through, *self.plant.before_monitor(), bench.program, *map(str, arguments)]
        with open(self.output, "wb") as output:
            self.process = subprocess.Popen(
                command, stdin=subprocess.PIPE, stdout=output, stderr=subprocess.STDOUT, cwd=bench.folder,
                env=environment(bench.folder, dict(changes)), bufsize=0)
        self.peak = 0  # bytes of memory, as far as they were seen before it ended

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end_at_once()

    def end_at_once(self):
        """Ends it if it still runs."""
        if self.process.returncode is None:
            self.process.kill()
            self._reap(time.monotonic() + 60)
        if not self.process.stdin.closed:
            self.process.stdin.close()

    def limit_files(self, size):
        """Lets no file grow beyond this size, as on a full disk; None takes the limit away."""
        hard = resource.RLIM_INFINITY
        resource.prlimit(self.process.pid, resource.RLIMIT_FSIZE, (hard if size is None else size, hard))

    def send(self, data):
        """Writes to its standard input. A monitor that takes nothing any more is ended, and counts as hanging."""
        watchdog = threading.Timer(self.plant.patience, self.process.kill)
        watchdog.start()
        try:
            view = memoryview(data)
            while view:
                view = view[self.process.stdin.write(view[:65536]):]
        except BrokenPipeError:
            if not watchdog.is_alive():
                raise Fault("it hangs, and takes no more input") from None
            raise Fault(f"it ended before its input did; {self.said()}") from None
        finally:
            watchdog.cancel()

    def finish(self):
        """Ends its input, waits for its end and returns the exit code. Raises Fault if it crashed or hangs."""
        if not self.process.stdin.closed:
            self.process.stdin.close()
        return self._end()

    def close_window(self):
        """Asks a window to close, as the end of a session does; returns the exit code."""
        self.process.send_signal(signal.SIGTERM)
        return self._end()

    def kill(self):
        """Ends it at once, as when the system runs out of memory."""
        self.process.kill()
        self._reap(time.monotonic() + 60)
        self.plant.spoil(list(self.folder.rglob("*.csv")))

    def wait_for_end(self):
        """Waits until it has ended by itself; returns the exit code, which is negative for a signal."""
        if not self._reap(time.monotonic() + self.plant.patience):
            raise Fault("it hangs")
        return self.process.returncode

    def _end(self):
        if self.wait_for_end() < 0:
            raise Fault(f"it crashed by signal {-self.process.returncode}; {self.said()}")
        self.plant.spoil(list(self.folder.rglob("*.csv")))
        self.plant.reword(self.output)
        return self.process.returncode

    def _reap(self, deadline):
        """Waits for the end of the process."""
        while self.process.returncode is None:
            self._note_peak()
            pid, status = os.waitpid(self.process.pid, os.WNOHANG)
            if pid:
                self.process.returncode = os.waitstatus_to_exitcode(status)
            elif time.monotonic() > deadline:
                return False
            else:
                threading.Event().wait(0.002)
        return True

    def _note_peak(self):
        """Keeps the most memory that it has held. What the system tells of a process that has ended counts the memory of the
        driver, too, which was its own for a moment."""
        with contextlib.suppress(OSError):
            status = Path(f"/proc/{self.process.pid}/status").read_text()
            if found := re.search(r"VmHWM:\s*(\d+)", status):
                self.peak = max(self.peak, self.plant.weigh(int(found[1]) * 1024))

    def wait_until(self, what, condition):
        """Waits for a condition. Raises Fault if the monitor ends before it holds, or if it does not hold in time."""
        deadline = time.monotonic() + self.plant.patience
        while not condition():
            if self._reap(0):
                raise Fault(f"it ended with {self.process.returncode} before {what}; {self.said()}")
            if time.monotonic() > deadline:
                raise Fault(f"waited in vain until {what}; {self.said()}")
            threading.Event().wait(0.01)

    def run_for(self, seconds):
        """Lets it run for some time. Raises Fault if it ends meanwhile."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if self._reap(0):
                raise Fault(f"it ended with {self.process.returncode}; {self.said()}")
            threading.Event().wait(min(1.0, max(0.0, end - time.monotonic())))

    def memory(self):
        """Bytes of memory that it holds now."""
        pages = int(Path(f"/proc/{self.process.pid}/statm").read_text().split()[1])
        return self.plant.weigh(pages * os.sysconf("SC_PAGE_SIZE"))

    def descriptors(self):
        return self.plant.count(len(os.listdir(f"/proc/{self.process.pid}/fd")))

    def processor_time(self):
        """Seconds for which it has used a processor."""
        fields = Path(f"/proc/{self.process.pid}/stat").read_text().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")

    def said(self):
        """The end of what it printed."""
        return "it said: " + self.output.read_bytes()[-300:].decode(errors="replace").strip()
