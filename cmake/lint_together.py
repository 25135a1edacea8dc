#!/usr/bin/env python3
"""clang-tidy over several sources at once: lint_together.py CLANG_TIDY DATABASE UNIT SOURCE...

Most of its time goes to what a source includes, Qt above all, which it looks through for each source again. So it gets
one source, UNIT, that includes several. Sources that cannot be compiled together, since names of theirs meet, are
halved until they can. DATABASE is what CMake writes for GCC.
"""
import json
import pathlib
import shlex
import subprocess
import sys

# A compiler takes its own precompiled headers alone; warnings are for the compilers to give.
DROPPED = {"-c", "-fno-gnu-unique"}
DROPPED_WITH_VALUE = {"-o", "-include", "-Xclang"}


def options_of(entry):
    words = iter(shlex.split(entry["command"]))
    for word in words:
        if word.endswith(("/c++", "/g++", "/clang++", "/clang++-14")):
            break
    kept = []
    for word in words:
        if word in DROPPED_WITH_VALUE:
            next(words)
        elif word == "-isystem":
            kept.append((word, next(words)))
        elif word not in DROPPED and not word.startswith("-W") and word != entry["file"]:
            kept.append((word,))
    return kept


def look(clang_tidy, options, unit, sources):
    """Whether nothing was found."""
    unit.write_text("".join(f'#include "{source}" // NOLINT(bugprone-suspicious-include)\n' for source in sources))
    compiler = clang_tidy.replace("clang-tidy", "clang++")
    together = subprocess.run([compiler, *options, "-fsyntax-only", str(unit)], capture_output=True, check=False)
    if together.returncode != 0 and len(sources) > 1:
        middle = len(sources) // 2
        halves = [look(clang_tidy, options, unit, half) for half in (sources[:middle], sources[middle:])]
        return all(halves)
    found = subprocess.run([clang_tidy, "--quiet", str(unit), "--", *options], check=False)
    return found.returncode == 0


def main():
    clang_tidy, database, unit, *sources = sys.argv[1:]
    entries = {entry["file"]: entry for entry in json.loads(pathlib.Path(database).read_text())}
    options = {option: None for source in sources for option in options_of(entries[source])}
    words = [word for option in options for word in option] + ["-w"]
    return 0 if look(clang_tidy, words, pathlib.Path(unit), sources) else 1


if __name__ == "__main__":
    sys.exit(main())
