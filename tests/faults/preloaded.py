# SPDX-License-Identifier: LGPL-2.1-or-later
"""Small libraries that are loaded before the monitor, and let the system refuse what it asks for."""
import shutil
import subprocess
from pathlib import Path


def can_be_made():
    return shutil.which("cc") is not None


def environment_with(name, folder):
    """The environment in which the library is loaded whose source NAME.c lies here. It is compiled into a folder."""
    library = folder / f"{name}.so"
    source = Path(__file__).with_name(f"{name}.c")
    subprocess.run(["cc", "-shared", "-fPIC", "-o", library, source, "-ldl"], check=True)
    return {"LD_PRELOAD": str(library)}
