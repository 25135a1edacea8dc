"""Which test reaches which line of the library, by gcov's counters."""

from __future__ import annotations

import dataclasses
import json
import os
import subprocess
from collections import defaultdict
from pathlib import Path

import trial
from tree import Tree

SLOWEST = 15  # seconds of the processors; other tests are not for changes by the hundred


def counters(tree: Tree) -> list[Path]:
    return sorted(tree.coverage.rglob("*.gcda"))


def counted(tree: Tree) -> list[tuple[str, str, int, bool]]:
    """Object, file, line and whether it was reached, of all that the counters tell."""
    names = [str(path) for path in counters(tree)]
    if not names:
        return []
    told = subprocess.run(["gcov", "--json-format", "--stdout", *names], cwd=tree.coverage, check=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    found = []
    for each in map(json.loads, told.splitlines()):
        unit = str(Path(each["data_file"]).relative_to(tree.coverage)).removesuffix(".gcda") + ".o"
        for file in each["files"]:
            path = Path(os.path.normpath(Path(each["current_working_directory"], file["file"])))
            if path.is_relative_to(tree.library):
                name = str(path.relative_to(tree.library))
                found += [(unit, name, line["line_number"], line["count"] > 0) for line in file["lines"]]
    return found


class Reach:
    """What is known of the tests: a line of a file for each, so that measuring can go on where it was cut off."""

    def __init__(self, file: Path) -> None:
        self.file = file
        self.tests: dict[str, trial.Test] = {}  # those that pass and are quick enough
        self.measured: set[str] = set()
        self.code: set[tuple[str, int]] = set()  # file and line, from 1, of what has code of its own
        self.reaching: dict[tuple[str, int], dict[str, list[str]]] = defaultdict(dict)  # object: names of tests
        if file.exists():
            for line in file.read_text().splitlines():
                self.learn(json.loads(line))

    def learn(self, known: dict[str, object]) -> None:
        test = trial.Test(**known["test"])  # type: ignore[arg-type]
        self.measured.add(test.name)
        if not known["taken"]:
            return
        self.tests[test.name] = test
        for unit, file, line, was_reached in known["lines"]:  # type: ignore[attr-defined]
            self.code.add((file, line))
            if was_reached:
                self.reaching[file, line].setdefault(unit, []).append(test.name)

    def measure(self, tree: Tree, tests: list[trial.Test]) -> None:
        """Runs each test that is not known yet with the counting library."""
        tree.use_libraries("counting")
        for test in tests:
            if test.name not in self.measured:
                self.write(tree, test)
        tree.use_libraries("original")

    def write(self, tree: Tree, test: trial.Test) -> None:
        for path in counters(tree):
            path.unlink()
        outcome = trial.run(test, 600)
        test.seconds, test.clock = outcome.seconds, outcome.clock
        taken = outcome.passed and test.seconds <= SLOWEST
        print(f"{test.name}: {test.seconds:.1f} s", "" if taken else "and is left out", flush=True)
        if not outcome.passed:
            print(f"fails without a change:\n{outcome.said[-2000:]}", flush=True)
        # What was not reached is told once.
        lines = [each for each in counted(tree) if each[3] or (each[1], each[2]) not in self.code] if taken else []
        known = {"test": dataclasses.asdict(test), "taken": taken, "lines": lines}
        with self.file.open("a") as file:
            file.write(json.dumps(known) + "\n")
        self.learn(known)

    def of_line(self, file: str, line: int, text: list[str]) -> dict[str, list[str]] | None:
        """The objects in which tests reach the line, from 0; None when it has no code of its own, as in a table.

        A statement of several lines has its code in some of them.
        """
        while (file, line + 1) not in self.code:
            line -= 1
            if line < 0 or not text[line].strip() or text[line].rstrip()[-1] in ";{}":
                return None
        return self.reaching.get((file, line + 1), {})
