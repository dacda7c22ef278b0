# SPDX-License-Identifier: LGPL-2.1-or-later
"""Readings that are known in advance, so that a recording of them can be compared digit by digit."""

CHANNELS = 8
INTERVAL = 0.001  # s between two readings
FOREIGN = 1e6  # s; readings from here on, or before 0, come from a fault and are not judged


class Fault(Exception):
    """What a driver found wrong with the monitor."""


def header():
    names = ",".join(f"c{k}" for k in range(1, CHANNELS + 1))
    return f"#corvale 1\n#channels {names}\n#unit nA\n".encode()


def values(index):
    """Time and values of a reading: numbers with many digits that no other reading has."""
    return [index * INTERVAL] + [(index * 7919 + k * 104729) % 1000003 / 997.0 for k in range(CHANNELS)]


def line(index):
    return ",".join(repr(value) for value in values(index)).encode() + b"\n"


def lines(begin, end):
    return b"".join(line(index) for index in range(begin, end))


def index_of(row):
    """The index of the reading on a line of a recording; None if a fault sent it. Raises Fault if a digit is wrong."""
    try:
        numbers = [float(field) if field else float("nan") for field in row.split(b",")]
    except ValueError:
        raise Fault(f"not a line of a recording: {row[:80]!r}") from None
    if not 0 <= numbers[0] < FOREIGN:
        return None
    index = round(numbers[0] / INTERVAL)
    if numbers != values(index):
        raise Fault(f"a wrong reading: {row[:80]!r}, sent was {line(index)[:80]!r}")
    return index


def recorded(data):
    """The indices of the readings on the complete lines of a recording."""
    rows = [row for row in data.split(b"\n")[:-1] if row and not row.startswith((b"#", b"time_s"))]
    return [index for index in map(index_of, rows) if index is not None]


def expect_rising(indices):
    for before, after in zip(indices, indices[1:]):
        if after <= before:
            raise Fault(f"reading {after} follows reading {before}")


def expect_all(indices, begin, end):
    """Raises Fault unless each reading from begin up to end is there, once, and no other."""
    missing = sorted(set(range(begin, end)) - set(indices))
    if missing:
        raise Fault(f"{len(missing)} readings are missing, the first is {missing[0]}")
    if len(indices) != end - begin:
        raise Fault(f"{len(indices)} readings where {end - begin} were sent")
