"""A copy of the repository with a build of its own, in which one source at a time is changed."""

from __future__ import annotations

import json
import os
import re
import shlex
import shutil
import subprocess
import sys
from collections.abc import Iterator
from contextlib import contextmanager
from pathlib import Path

from changes import Change

LIBRARIES = ("libkvsignpadsdk.so", "libkvsignpadsdk_inside.so")
OPTIONS = ["-DCMAKE_BUILD_TYPE=None", "-DKV_INSIDE_SHARED=ON", "-DKV_UNITY=OFF", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON",
           "-DKV_BUILD_TOOLS=OFF", "-DKV_BUILD_EXAMPLES=OFF", "-DKV_BUILD_BENCH=OFF"]
TARGETS = ["kvsignpadsdk/" + name for name in LIBRARIES]


def said(command: list[str], directory: Path) -> str:
    """What a command says that must not fail."""
    done = subprocess.run(command, cwd=directory, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          errors="replace", check=False)
    if done.returncode != 0:
        sys.exit(f"{shlex.join(command)}\n{done.stdout[-3000:]}")
    return done.stdout


def succeeds(command: list[str], directory: Path) -> bool:
    return subprocess.run(command, cwd=directory, capture_output=True, check=False).returncode == 0


def copy(root: Path, target: Path) -> None:
    """What git knows of, as it is now; only what changed is written, and what is gone is removed."""
    listed = said(["git", "ls-files", "-co", "--exclude-standard"], root).splitlines()
    names = {name for name in listed if (root / name).is_file()}
    for path in [path for path in target.rglob("*") if path.is_file()]:
        if str(path.relative_to(target)) not in names:
            path.unlink()
    for name in names:
        old, new = root / name, target / name
        if not new.exists() or old.read_bytes() != new.read_bytes():
            new.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(old, new)


class Tree:
    """The folders source/, build/ (as the tests run) and coverage/ (the library alone, with gcov's counters)."""

    def __init__(self, place: Path) -> None:
        self.place = place = place.resolve()
        self.source = place / "source"
        self.library = self.source / "kvsignpadsdk"
        self.build = place / "build"
        self.coverage = place / "coverage"

    def configure(self) -> None:
        """Without optimisation: most of the time goes into compiling."""
        common = ["cmake", "-S", str(self.source), "-G", "Ninja", *OPTIONS]
        counting = ["-DCMAKE_CXX_FLAGS=-O0 --coverage", "-DKV_BUILD_TESTS=OFF"]
        said([*common, "-B", str(self.build), "-DCMAKE_CXX_FLAGS=-O0"], self.place)
        said([*common, "-B", str(self.coverage), *counting], self.place)

    def make(self, programs: list[str]) -> bool:
        return succeeds(["ninja", "-C", str(self.build), *TARGETS, "simulator/all", *programs], self.build)

    def make_counting(self) -> bool:
        return succeeds(["ninja", "-C", str(self.coverage), *TARGETS], self.build)

    def read(self) -> None:
        """Looks up what was built: how each object is compiled, how the libraries are linked, what includes what."""
        entries = json.loads((self.build / "compile_commands.json").read_text())
        commands = [shlex.split(entry["command"]) for entry in entries]
        self.compiling = {output: command for command in commands
                          if "/kvsignpadsdk_objects.dir/" in (output := command[command.index("-o") + 1])}
        self.linking = {name: self.link_command(name) for name in LIBRARIES}
        self.includes = dict(map(self.included, said(["ninja", "-t", "deps"], self.build).split("\n\n")))

    def included(self, told: str) -> tuple[str, set[str]]:
        """An object, and the library's files that it was made of."""
        unit, *paths = told.rstrip().split("\n    ")
        absolute = {os.path.normpath(self.build / path) for path in paths}
        return unit.split(":")[0], {os.path.relpath(path, self.library) for path in absolute if self.is_ours(path)}

    def is_ours(self, path: str) -> bool:
        return path.startswith(f"{self.library}/")

    def link_command(self, name: str) -> str:
        commands = said(["ninja", "-t", "commands", "kvsignpadsdk/" + name], self.build).splitlines()
        linked = next(line for line in commands if " -shared " in line and name in line)
        return linked.removeprefix(": && ").split(" && ")[0]

    def objects_with(self, file: str) -> list[str]:
        """The library's objects that are made of a source or include a header."""
        return sorted(each for each in self.compiling if file in self.includes.get(each, ()))

    def programs_with(self, file: str) -> set[str]:
        """The programs of tests of which a source includes a header of the library."""
        units = (each for each in self.includes if file in self.includes[each])
        return {found[1] for each in units if (found := re.match(r"tests/(?:.*/)?CMakeFiles/([^/]+)\.dir/", each))}

    @contextmanager
    def changed(self, change: Change, hidden: bool) -> Iterator[None]:
        """A line of a source is another. Hidden: afterwards ninja sees nothing of it; else it makes all of it anew."""
        path = self.library / change.file
        times = path.stat()
        original = path.read_bytes()
        lines = original.decode().splitlines(keepends=True)
        lines[change.line] = change.changed
        path.write_bytes("".join(lines).encode())
        try:
            yield
        finally:
            path.write_bytes(original)
            if hidden:
                os.utime(path, ns=(times.st_atime_ns, times.st_mtime_ns))

    def compile(self, unit: str) -> Path | None:
        """The unit's object, made anew beside the build; None when the compiler refuses it."""
        made = self.place / "changed.o"
        words = [str(made) if word == unit else word for word in self.compiling[unit] if not word.endswith("/ccache")]
        return made if succeeds(words, self.build) else None

    def is_same(self, unit: str, made: Path) -> bool:
        return made.read_bytes() == (self.build / unit).read_bytes()

    def link(self, library: str, unit: str, made: Path) -> None:
        """Puts a library in place in which the object is the first: its inline functions are taken for all."""
        file = (self.build / "kvsignpadsdk" / library).resolve()
        options, objects = self.linking[library].replace(f" {unit} ", " ").split(" -o ", 1)
        said(["sh", "-c", f"{options} -o {file}.new {made} {objects.split(' ', 1)[1]}"], self.build)
        os.replace(f"{file}.new", file)

    def keep_libraries(self, of: Path, name: str) -> None:
        kept = self.place / name
        kept.mkdir(exist_ok=True)
        for library in LIBRARIES:
            shutil.copy2(of / "kvsignpadsdk" / library, kept)

    def use_libraries(self, name: str) -> None:
        """Puts those in place that were kept, if they were."""
        for library in LIBRARIES:
            kept, file = self.place / name / library, (self.build / "kvsignpadsdk" / library).resolve()
            if kept.exists() and file.exists():
                shutil.copy2(kept, f"{file}.new")
                os.replace(f"{file}.new", file)
