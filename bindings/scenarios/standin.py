"""A library of another version: every function of the interface, none of which does anything but the about boxes."""

from __future__ import annotations

import json
import subprocess
from pathlib import Path

INTERFACE = Path(__file__).resolve().parent.parent / "api.json"


def build(version: str, place: Path) -> Path:
    """Makes it in a new directory of that name inside of place, under the real library's name; answers the directory."""
    interface = json.loads(INTERFACE.read_text(encoding="utf-8"))
    directory = place / f"library-{version}"
    directory.mkdir(exist_ok=True)
    lines = ["#include <stdbool.h>", "#include <string.h>"]
    lines += [f"{variable['type']} {variable['name']};" for variable in interface["variables"]]
    for operation in interface["operations"]:
        for family in operation["families"]:
            if operation["name"] == "GetAboutInfo":
                about = f"void {family}_GetAboutInfo(int type, char *text) {{ (void)type; strcpy(text, ABOUT); }}"
                lines.append(about)
            else:
                lines.append(f"int {family}_{operation['name']}(void) {{ return 0; }}")
    source = directory / "standin.c"
    source.write_text("\n".join(lines) + "\n", encoding="utf-8")
    name = "libkvsignpadsdk.so.1"
    subprocess.run(
        ["gcc", "-shared", "-fPIC", f'-DABOUT="Version : {version}"', f"-Wl,-soname,{name}", str(source)]
        + ["-o", str(directory / name)],
        check=True,
    )
    return directory
