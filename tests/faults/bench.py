# SPDX-License-Identifier: LGPL-2.1-or-later
"""What the drivers have in common: their arguments, a scratch folder for each try, the count of tries and faults."""
import argparse
import contextlib
import random
import shutil
import sys
import tempfile
from dataclasses import dataclass, field
from pathlib import Path

from monitor import Monitor
from plants import Plant
from readings import Fault

SEED = 22


class Enough(Exception):
    """A planted fault was found; no further try is needed."""


@dataclass
class Bench:
    """One run of a driver."""

    program: str
    long: bool
    plant: Plant = field(default_factory=Plant)
    tries: int = 0
    survived: int = 0
    faults: list = field(default_factory=list)
    lost: int = 0
    notes: dict = field(default_factory=dict)
    missing: list = field(default_factory=list)
    options: argparse.Namespace = None
    folder: Path = None
    started: list = field(default_factory=list)

    def __post_init__(self):
        self.random = random.Random(SEED)

    @contextlib.contextmanager
    def trying(self, what, tries=1):
        """One try, or several that are made together, in a scratch folder of their own. A fault is kept, and the next try begins.

        A monitor that is broken enough lets the driver's own reading and sending fail; this counts as a fault, too.
        """
        self.tries += tries
        self.folder = Path(tempfile.mkdtemp(prefix="corvale-faults-"))
        try:
            yield
            self.survived += tries
        except (Fault, OSError, ValueError) as fault:
            self.faults.append(f"{what}: {fault}")
            if self.plant.name != Plant.name:
                raise Enough from None
        finally:
            for monitor in self.started:
                monitor.end_at_once()
            self.started.clear()
            shutil.rmtree(self.folder, ignore_errors=True)

    @contextlib.contextmanager
    def without_plant(self):
        """The monitor as it is, for what a try needs beforehand."""
        plant, self.plant = self.plant, Plant()
        yield
        self.plant = plant

    def start(self, *arguments, changes=(), through=()):
        """Starts a monitor in the scratch folder, with changes of its environment, by a command that starts it in turn if one is
        given. It ends with the try at the latest."""
        self.started.append(Monitor(self, *arguments, changes=changes, through=through))
        return self.started[-1]

    def ask(self, *arguments):
        """Runs the monitor to its end without input; returns the exit code and what it printed."""
        with self.start(*arguments) as monitor:
            code = monitor.finish()
            return code, monitor.output.read_text(errors="replace")

    def at_most(self, note, value):
        """Keeps the largest value of what a note is about."""
        self.notes[note] = max(value, self.notes.get(note, value))

    def skip(self, what, why):
        """Keeps what cannot be tried on this machine, so that the summary says it."""
        self.missing.append(f"not tried: {what} ({why})")

    def summary(self, name):
        notes = "".join(f", {note} {value:.0f}" for note, value in self.notes.items())
        notes += "".join(f", {missing}" for missing in self.missing)
        return f"{name} | {self.tries} tries | {self.survived} survived | {self.lost} lost{notes}"


def _self_test(program, name, drive, plants):
    """Whether the driver reports each plant."""
    unseen = []
    for plant in plants:
        bench = Bench(program, long=False, plant=plant)
        with contextlib.suppress(Enough):
            drive(bench)
        if not bench.faults:
            unseen.append(plant.name)
    for plant in unseen:
        print(f"{name}: planted, and not found: {plant}", file=sys.stderr)
    if not unseen:
        print(f"{name}: each of {len(plants)} planted faults was found.")
    return not unseen


def main(name, drive, plants, add_options=None):
    """The program of a driver: exit code 0 if nothing was found wrong. Options of its own are added to the parser, and come to it
    as Bench.options."""
    parser = argparse.ArgumentParser(description=sys.modules["__main__"].__doc__)
    parser.add_argument("--monitor", default="corvale-monitor", help="the program to try")
    parser.add_argument("--long", action="store_true", help="many tries instead of a few")
    parser.add_argument("--self-test", action="store_true", help="plant faults, and check that each is found")
    if add_options:
        add_options(parser)
    arguments = parser.parse_args()
    program = shutil.which(arguments.monitor)
    if not program:
        parser.error(f"there is no program {arguments.monitor}; --monitor names it")
    program = str(Path(program).absolute())
    if arguments.self_test:
        return 0 if _self_test(program, name, drive, plants) else 1
    bench = Bench(program, arguments.long, options=arguments)
    drive(bench)
    for fault in bench.faults[:20]:
        print(f"{name}: {fault}", file=sys.stderr)
    print(bench.summary(name), flush=True)
    return 1 if bench.faults else 0
