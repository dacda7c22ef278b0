# SPDX-License-Identifier: LGPL-2.1-or-later
"""Shows the rings of readings in gdb as what they hold, oldest first.

In gdb, or in a .gdbinit:    source scripts/gdb/corvale_printers.py
"""
import gdb
import gdb.printing


class RingPrinter:
    """A boost::circular_buffer of any type: its size, its capacity, and its elements from the oldest to the newest."""

    def __init__(self, value):
        self.value = value
        self.size = int(value["m_size"])
        self.capacity = int(value["m_end"] - value["m_buff"])

    def to_string(self):
        return f"ring of {self.size} (capacity {self.capacity})"

    def children(self):
        first = int(self.value["m_first"] - self.value["m_buff"])
        for i in range(self.size):
            yield f"[{i}]", self.value["m_buff"][(first + i) % self.capacity]

    def display_hint(self):
        return "array"


class TimeRingPrinter:
    """Corvale_Qt::TimeRing: its stamps, and how many of them do not rise."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        steps = int(self.value["m_steps"])
        return "rising time stamps" if steps == 0 else f"time stamps, {steps} of them not rising"

    def children(self):
        yield "times", self.value["m_times"]


def printers():
    collection = gdb.printing.RegexpCollectionPrettyPrinter("corvale_qt")
    collection.add_printer("ring", "^boost::circular_buffer<.*>$", RingPrinter)
    collection.add_printer("time ring", "^Corvale_Qt::TimeRing$", TimeRingPrinter)
    return collection


gdb.printing.register_pretty_printer(gdb.current_objfile(), printers(), replace=True)
