#!/usr/bin/python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Measures the monitor among many instruments of a control system, on the loopback of one machine.

    benchmarks/instruments.py attributes    one monitor reads 200 attributes at 10 Hz, records and publishes them
    benchmarks/instruments.py publishers    20 monitors without a window publish a profile of 64 strips each, at 10 Hz

Each says how much of a processor the monitors used, how long after it was taken a reading could be read as a published result, and
whether a reading was lost. Needs python3-tango, which brings the instruments and the client; they know nothing of the monitor.
"""
import argparse
import math
import multiprocessing
import os
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
ATTRIBUTES = 200
PUBLISHERS = 20
INTERVAL = 0.1  # s
READY = 60  # s, within which everything has to answer
TICKS = os.sysconf("SC_CLK_TCK")


def free_ports(count):
    """Ports that differ from each other, and that nobody listens at."""
    probes = [socket.create_server(("127.0.0.1", 0)) for _ in range(count)]
    ports = [probe.getsockname()[1] for probe in probes]
    for probe in probes:
        probe.close()
    return ports


def processor_time(process):
    """The seconds of processor time of a process and its threads."""
    fields = Path(f"/proc/{process.pid}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def memory(process):
    """The resident memory of a process in MB."""
    status = Path(f"/proc/{process.pid}/status").read_text()
    return int(status.partition("VmRSS:")[2].split()[0]) / 1024


def percentile(values, share):
    ranked = sorted(values)
    return ranked[min(len(ranked) - 1, math.ceil(share * len(ranked)) - 1)]


def device(port):
    """A client of the monitor's device, once something listens there: the library waits long after a try that failed."""
    import tango
    end = time.monotonic() + READY
    while True:
        try:
            socket.create_connection(("127.0.0.1", port)).close()
            break
        except OSError:
            if time.monotonic() > end:
                raise
            time.sleep(0.1)
    time.sleep(1)  # until the device is exported
    return tango.DeviceProxy(f"tango://127.0.0.1:{port}/beam/monitor/1#dbase=no")


class Latencies:
    """How long after their time stamps the changes of an attribute arrive, in seconds."""

    def __init__(self, proxy, attribute):
        import tango
        self.found = []
        self.proxy = proxy
        proxy.subscribe_event(attribute, tango.EventType.CHANGE_EVENT, self.take)

    def take(self, event):
        now = time.time()
        if not event.err:
            self.found.append(now - event.attr_value.time.totime())

    def so_far(self):
        return self.found[5:]  # the first are those of the subscription


def serve_attributes(port):
    """A device with many scalars; each call gives all of them the number of the call."""
    import tango
    from tango.server import Device, run

    class Instrument(Device):
        def init_device(self):
            super().init_device()
            self.calls = 0
            for i in range(ATTRIBUTES):
                self.add_attribute(tango.Attr(f"a{i:03}", tango.DevDouble), self.give)

        def read_attr_hardware(self, _):
            self.calls += 1
            self.time = time.time()

        def give(self, attribute):
            attribute.set_value_date_quality(float(self.calls), self.time, tango.AttrQuality.ATTR_VALID)

    run((Instrument,), ["Instrument", "test", "-nodb", "-ORBendPoint", f"giop:tcp:127.0.0.1:{port}",
                        "-dlist", "beam/test/1"])


def report(name, processes, before, seconds, latencies):
    used = [(processor_time(process) - old) / seconds for process, old in zip(processes, before)]
    print(f"{name}: {100 * sum(used):.1f} % of a processor in all, {100 * max(used):.1f} % at most; "
          f"{max(map(memory, processes)):.0f} MB at most")
    print(f"latency of {len(latencies)} results: median {1000 * percentile(latencies, 0.5):.0f} ms, "
          f"p99 {1000 * percentile(latencies, 0.99):.0f} ms, longest {1000 * max(latencies):.0f} ms")


def end(processes):
    for process in processes:
        process.send_signal(signal.SIGTERM)
    codes = [process.wait(READY) for process in processes]
    if any(codes):
        print(f"exit codes {codes}")
    return not any(codes)


def end_at_once(processes):
    """Ends what still runs, so that nothing outlives a measurement that failed."""
    for process in processes:
        if process.poll() is None:
            process.kill()


def start(options, folder, port, *arguments):
    environment = os.environ | {"XDG_STATE_HOME": str(folder), "XDG_CONFIG_HOME": str(folder)}
    process = subprocess.Popen([options.monitor, "--headless", "--publish",
                             f"tango://127.0.0.1:{port}/beam/monitor/1#dbase=no", *map(str, arguments)], env=environment)
    options.started.append(process)
    return process


def attributes(options, folder):
    """One monitor, many attributes: every answer of the instrument stands in the recording, in its order."""
    served, published = free_ports(2)
    instrument = multiprocessing.Process(target=serve_attributes, args=(served,), daemon=True)
    instrument.start()
    time.sleep(3)
    names = ",".join(f"a{i:03}" for i in range(ATTRIBUTES))
    recording = folder / "attributes.csv"
    monitor = start(options, folder, published, "--record", recording,
                    f"tango://127.0.0.1:{served}/beam/test/1/{names}?every=100ms#dbase=no")
    latencies = Latencies(device(published), "values")
    before = [processor_time(monitor)]
    time.sleep(options.seconds)
    report("one monitor", [monitor], before, options.seconds, latencies.so_far())
    good = end([monitor])
    instrument.kill()
    rows = [line.split(",") for line in recording.read_text().splitlines() if line[:1].isdigit()]
    calls = [int(float(row[1])) for row in rows]
    whole = all(len(set(row[1:])) == 1 and len(row) == ATTRIBUTES + 1 for row in rows)
    lost = calls[-1] - calls[0] + 1 - len(calls)
    print(f"{len(rows)} rows of {ATTRIBUTES} values in {options.seconds} s; lost {lost}, "
          f"{'all' if whole else 'NOT all'} rows are of one call")
    return good and whole and lost == 0


def frame(number):
    """A row of two profiles of 32 strips, whose beam moves."""
    centre = 15.5 + 3 * math.sin(0.1 * number)
    strips = [100 * math.exp(-0.5 * ((i - centre) / 3) ** 2) + 1 for i in range(32)]
    return ",".join(f"{value:.3f}" for value in strips + strips)


class Feed:
    """An instrument that sends a frame at its time to a monitor which has connected."""

    def __init__(self, seconds):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.sent = 0
        self.go = threading.Event()
        self.thread = threading.Thread(target=self.run, args=(seconds,), daemon=True)
        self.thread.start()

    def run(self, seconds):
        peer, _ = self.listener.accept()
        peer.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.go.wait()
        begin = time.time()
        stamp = time.strftime("%Y-%m-%dT%H:%M:%S", time.gmtime(begin)) + f".{int(begin % 1 * 1000):03}Z"
        peer.sendall(f"#corvale 1\n#layout strips\n#unit nA\n#t0 {stamp}\n".encode())
        origin = math.floor(begin * 1000) / 1000
        while self.sent < seconds / INTERVAL:
            time.sleep(max(0.0, origin + INTERVAL * (self.sent + 1) - time.time()))
            peer.sendall(f"{time.time() - origin:.6f},{frame(self.sent)}\n".encode())
            self.sent += 1
        self.go.clear()
        self.go.wait()  # the connection stays


def publishers(options, folder):
    """Many monitors: each has counted every frame that it was sent."""
    feeds = [Feed(options.seconds) for _ in range(PUBLISHERS)]
    ports = free_ports(PUBLISHERS)
    monitors = [start(options, folder, port, f"tcp://127.0.0.1:{feed.port}") for port, feed in zip(ports, feeds)]
    proxies = [device(port) for port in ports]
    all_latencies = [Latencies(proxy, "x_position") for proxy in proxies]
    before = [processor_time(monitor) for monitor in monitors]
    for feed in feeds:
        feed.go.set()
    time.sleep(options.seconds + 1)
    latencies = [latency for each in all_latencies for latency in each.so_far()]
    report(f"{PUBLISHERS} monitors", monitors, before, options.seconds + 1, latencies)
    counted = [proxy.read_attribute("readings").value for proxy in proxies]
    sent = [feed.sent for feed in feeds]
    print(f"sent {sum(sent)} frames, counted {sum(counted)}")
    return end(monitors) and counted == sent


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("what", choices=["attributes", "publishers"])
    parser.add_argument("--monitor", default=str(ROOT / "build/dev/monitor/corvale-monitor"))
    parser.add_argument("--seconds", type=int, default=60)
    options = parser.parse_args()
    options.started = []
    with tempfile.TemporaryDirectory() as folder:
        try:
            return 0 if globals()[options.what](options, Path(folder)) else 1
        finally:
            end_at_once(options.started)


if __name__ == "__main__":
    code = main()
    sys.stdout.flush()
    os._exit(code)  # threads of the client library that still wait for events would hold up the end
