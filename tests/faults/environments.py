#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Starts the monitor in the environments that its users have: platforms, folders, languages, time zones, fonts and screens.

A window records what it is sent, to the last digit, and closes by itself with exit code 0. On a display its screen shows a
window. A picture has the size that was asked for and shows something. Statistics are the same in all languages.
"""
import json
import os
import shutil
import subprocess
import sys
import time

import plants
from bench import main
from pictures import Display, WaylandDisplay, parts_of_png
from readings import Fault, expect_all, header, lines, recorded

READINGS = 300
FEWEST_COLOURS = 40  # of a window with a curve; an empty one has fewer
FEWEST_PARTS = 1500  # of a picture; an empty one has a few hundred at most

PLATFORMS = [{"QT_QPA_PLATFORM": "offscreen"}, {"QT_QPA_PLATFORM": "minimal"}]
DISPLAYS = [(24, []), (16, []), (24, ["-extension", "GLX"])]
LANGUAGES = ["de_DE", "ja_JP", "ar_EG", "tr_TR"]
FOLDERS = [
    {"HOME": None}, {"HOME": "/nowhere/at/all"}, {"HOME": "/proc"}, {"HOME": "/dev/null"}, {"HOME": ""},
    {"XDG_RUNTIME_DIR": None}, {"XDG_RUNTIME_DIR": "/nowhere"}, {"XDG_RUNTIME_DIR": "/"},
    {"XDG_CONFIG_HOME": "/proc"}, {"XDG_STATE_HOME": "/proc"}, {"XDG_CACHE_HOME": "/dev/null"}, {"XDG_DATA_DIRS": "/nowhere"},
    {"TMPDIR": "/nowhere"}, {"TMPDIR": "/proc", "XDG_RUNTIME_DIR": None},
]
# A font of 9 points is drawn as large as one of 6 to 32 points.
FONTS = [{"QT_FONT_DPI": str(96 * points // 9)} for points in (6, 12, 18, 32)]
RATIOS = [{"QT_SCALE_FACTOR": ratio} for ratio in ("1", "1.5", "2")]


def in_language(bench, name):
    """The environment of a user of a language. What the system lacks of it is made where that can be done."""
    made = bench.folder / "locales" / f"{name}.UTF-8"
    if shutil.which("localedef"):
        made.parent.mkdir(exist_ok=True)
        subprocess.run(["localedef", "-i", name, "-f", "UTF-8", made], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    own = {"LOCPATH": str(made.parent)} if made.exists() else {}
    return own | {"LC_ALL": f"{name}.UTF-8", "LANGUAGE": name}


def told(changes):
    return ", ".join(f"{name} {'unset' if value is None else value}" for name, value in changes.items())


def record(bench, changes, through=()):
    """Lets a window record what is sent in such an environment, and returns its recordings."""
    folder = bench.folder / "recordings"
    folder.mkdir()
    folder.chmod(0o777)
    with bench.start("-", "--record", folder, "--after", f"{READINGS}readings", changes=changes, through=through) as monitor:
        monitor.send(header() + lines(0, READINGS))
        if (code := monitor.finish()) != 0:
            raise Fault(f"it ended with {code}; {monitor.said()}")
    return [path.read_bytes() for path in sorted(folder.iterdir())]


def expect_recording(bench, changes, through=()):
    recordings = record(bench, changes, through)
    expect_all([index for data in recordings for index in recorded(data)], 0, READINGS)


def expect_window(bench, depth, options):
    """A window on a display of its own is seen there, and closes when it is asked to."""
    with Display(bench.folder, depth, *options) as display:
        changes = {"QT_QPA_PLATFORM": "xcb", "DISPLAY": display.name}
        empty = display.colours()
        with bench.start("sim:ic4", changes=changes) as monitor:
            monitor.wait_until("the window is seen", lambda: display.colours() > empty + FEWEST_COLOURS)
            if (code := monitor.close_window()) != 0:
                raise Fault(f"it ended with {code}; {monitor.said()}")


def expect_wayland_window(bench):
    """A window on a Wayland compositor records what it is sent, is seen there, and closes when it is asked to."""
    path = bench.folder / "wayland.csv"
    with WaylandDisplay(bench.folder) as display:
        empty = parts_of_png(display.picture())[2]
        with bench.start("-", "--record", path, changes=display.changes()) as monitor:
            monitor.send(header() + lines(0, READINGS))

            def is_seen():
                picture = display.picture()
                bench.plant.overpaint(picture)
                return parts_of_png(picture)[2] > empty + FEWEST_PARTS
            monitor.wait_until("the window is seen", is_seen)
            monitor.wait_until("the readings are recorded", lambda: path.exists() and len(recorded(path.read_bytes())) >= READINGS)
            if (code := monitor.close_window()) != 0:
                raise Fault(f"it ended with {code}; {monitor.said()}")
    expect_all(recorded(path.read_bytes()), 0, READINGS)


def with_full_temporary_folder(bench):
    """The environment, and the command before the monitor, in which the folder for temporary files is a full file system."""
    folder = bench.folder / "tmp"
    folder.mkdir()
    fill = 'mount -t tmpfs -o size=16k none "$TMPDIR" && cat /dev/zero > "$TMPDIR/full" 2>/dev/null; exec "$@"'
    namespace = ["unshare", "--mount"] if os.geteuid() == 0 else ["unshare", "--user", "--map-root-user", "--mount"]
    return {"TMPDIR": str(folder), "XDG_RUNTIME_DIR": None}, [*namespace, "sh", "-c", fill, "sh"]


def can_mount(bench):
    changes, through = with_full_temporary_folder(bench)
    tried = subprocess.run([*through, "sh", "-c", '! echo text > "$TMPDIR/more"'], env=os.environ | {"TMPDIR": changes["TMPDIR"]},
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    (bench.folder / "tmp").rmdir()
    return tried.returncode == 0


def expect_recording_with_full_temporary_folder(bench):
    if not can_mount(bench):
        bench.skip("a full folder for temporary files", "this user cannot mount one")
        return
    # Settings that are there already are read by way of a temporary file.
    settings = bench.folder / ".config/Corvale"
    settings.mkdir(parents=True)
    (settings / "corvale-monitor.ini").write_text("[Monitor]\ntime-span=90 s\n")
    expect_recording(bench, *with_full_temporary_folder(bench))


def expect_recording_in_foreign_folders(bench):
    """All of a user's folders belong to somebody else, who lets nobody enter them."""
    user = 65534
    bench.folder.chmod(0o755)
    foreign = bench.folder / "foreign"
    foreign.mkdir(mode=0o700)
    names = ("HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "TMPDIR")
    become = ["setpriv", "--reuid", str(user), "--regid", str(user), "--clear-groups"]
    expect_recording(bench, dict.fromkeys(names, str(foreign)), become)
    if list(foreign.iterdir()):
        raise Fault("something was written to the folder of another user")


def expect_picture(bench, changes):
    ratio = float(changes.get("QT_SCALE_FACTOR", "1"))
    path = bench.folder / "picture.png"
    with bench.start("sim:strips", "--screenshot", path, "--size", "1300x850", "--after", "40frames", changes=changes) as monitor:
        if (code := monitor.finish()) != 0:
            raise Fault(f"it ended with {code}; {monitor.said()}")
    bench.plant.overpaint(path)
    width, height, parts = parts_of_png(path)
    if abs(width - 1300 * ratio) > 1 or abs(height - 850 * ratio) > 1:
        raise Fault(f"the picture has {width} x {height} pixels")
    if parts < FEWEST_PARTS:
        raise Fault(f"the picture has {parts} different parts")


def statistics(bench, changes):
    path = bench.folder / "table.csv"
    path.write_bytes(header() + lines(0, READINGS))
    with bench.start("--stats", "--json", path, changes=changes) as monitor:
        monitor.finish()
        return json.loads(monitor.output.read_text())["channels"]


def expect_same_numbers(bench, language):
    """Readings are recorded, and statistics printed, with the same digits in all languages."""
    changes = in_language(bench, language)
    expect_recording(bench, changes)
    with bench.without_plant():
        usual = statistics(bench, {})
    if statistics(bench, changes) != usual:
        raise Fault("the statistics differ from those of the usual language")


def summer_time_in(seconds):
    """A time zone in which clocks are put forward by an hour this many seconds from now."""
    then = time.gmtime(time.time() + seconds)
    return {"TZ": f"AAA0BBB,{then.tm_yday - 1}/{then.tm_hour}:{then.tm_min}:{then.tm_sec},{then.tm_yday}/23"}


def expect_recording_over_summer_time(bench, seconds):
    """Readings that arrive before and after clocks are put forward: none is lost, and names of files are in UTC."""
    folder = bench.folder / "recordings"
    folder.mkdir()
    half = READINGS // 2
    changed_at = time.monotonic() + seconds
    with bench.start("-", "--record", folder, "--rotate", "1s", "--after", f"{READINGS}readings",
                     changes=summer_time_in(seconds)) as monitor:
        monitor.send(header() + lines(0, half))
        monitor.wait_until("clocks are put forward", lambda: time.monotonic() > changed_at + 1)
        monitor.send(lines(half, READINGS))
        monitor.finish()
    files = sorted(folder.iterdir())
    expect_all([index for path in files for index in recorded(path.read_bytes())], 0, READINGS)
    begun = time.gmtime(time.time() - 60)
    if any(path.name < time.strftime("corvale-%Y%m%d-%H%M%S", begun) for path in files) or any(
            path.name > time.strftime("corvale-%Y%m%d-%H%M%S~", time.gmtime()) for path in files):
        raise Fault(f"a file has a wrong time: {', '.join(path.name for path in files)}")


def drive(bench):
    def some(cases):
        return cases if bench.long else cases[:1]

    def try_each(cases, attempt):
        for case in cases:
            with bench.trying(case if isinstance(case, str) else told(case)):
                attempt(bench, case)
    try_each(some(PLATFORMS[1:] + PLATFORMS[:1]), expect_recording)
    try_each(FOLDERS if bench.long else FOLDERS[2:4], expect_recording)
    try_each(some(LANGUAGES), expect_same_numbers)
    try_each((RATIOS + FONTS) if bench.long else RATIOS[1:2] + FONTS[3:], expect_picture)
    for depth, options in some(DISPLAYS[1:] + DISPLAYS[:1]) if shutil.which("Xvfb") else []:
        with bench.trying(f"a display of {depth} bits {' '.join(options)}"):
            expect_window(bench, depth, options)
    if bench.long:
        with bench.trying("summer time begins"):
            expect_recording_over_summer_time(bench, 3)
        try_what_the_machine_has(bench)


def try_what_the_machine_has(bench):
    """Tries environments that need tools or rights which not every machine has, and notes those that it lacks."""
    attempts = [
        ("Wayland", expect_wayland_window, shutil.which("weston") and shutil.which("weston-screenshooter"), "there is no weston"),
        ("a full folder for temporary files", expect_recording_with_full_temporary_folder, shutil.which("unshare"),
         "there is no unshare"),
        ("folders of another user", expect_recording_in_foreign_folders, os.geteuid() == 0 and shutil.which("setpriv"),
         "only root becomes somebody else"),
    ]
    for what, attempt, is_possible, why in attempts:
        if is_possible:
            with bench.trying(what):
                attempt(bench)
        else:
            bench.skip(what, why)


if __name__ == "__main__":
    sys.exit(main("environments", drive, [plants.WRONG_DIGIT, plants.LOST_LINE, plants.BLANK, plants.WRONG_CODE]))
