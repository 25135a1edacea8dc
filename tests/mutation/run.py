"""Tries changes one after another, and writes down what became of each."""

from __future__ import annotations

import json
import random
import time
from collections.abc import Callable
from pathlib import Path

import trial
from changes import Change
from reach import Reach
from tree import Tree

Result = tuple[str, str, str]  # what became of a change, the test that noticed it, where it was made
Attempt = Callable[[Change], Result]

NAMES = ("killed", "survived", "not compiled", "same code")
EVERYWHERE = "all that include it"


def change_of(result: dict[str, str]) -> Change:
    return Change(result["file"], int(result["line"]), result["name"], result["changed"])


class Run:
    def __init__(self, tree: Tree, reach: Reach, file: Path) -> None:
        self.tree = tree
        self.tests = reach.tests
        self.reach = reach
        self.file = file
        self.results = [json.loads(line) for line in file.read_text().splitlines()] if file.exists() else []
        for each in self.results:
            if each["by"] in self.tests:
                self.tests[each["by"]].noticed(each["file"])

    def through(self, drawn: list[Change], count: int, at_most: int) -> bool:
        """Tries changes until so many could be tried, but at most so many this time. Whether that was all."""
        tried = {change_of(each) for each in self.results}
        for change in drawn:
            if self.counted() >= count:
                break
            if change in tried:
                continue
            if at_most == 0:
                return False
            at_most -= 1
            self.write(change, self.attempt)
        for change in self.left():
            if at_most == 0:
                return False
            at_most -= 1
            self.write(change, self.attempt_everywhere)
        return True

    def counted(self) -> int:
        return len({change_of(each) for each in self.results if each["result"] in ("killed", "survived")})

    def left(self) -> list[Change]:
        """Changes of headers that no test saw, and that have not been made in everything yet, header by header."""
        done = {change_of(each) for each in self.results if each["object"] == EVERYWHERE}
        survived = {change_of(each) for each in self.results if each["result"] == "survived"}
        return sorted(change for change in survived - done if not change.file.endswith(".cpp"))

    def write(self, change: Change, attempt: Attempt) -> None:
        begin = time.monotonic()
        result, by, unit = attempt(change)
        self.results.append({**change._asdict(), "result": result, "by": by, "object": unit})
        with self.file.open("a") as file:
            file.write(json.dumps(self.results[-1]) + "\n")
        seconds = time.monotonic() - begin
        print(f"{self.counted():4d} {result:12s} {seconds:5.0f} s  {change}" + (f"  ({by})" if by else ""), flush=True)

    def units_of(self, change: Change) -> dict[str, list[str]]:
        """The objects in which tests reach the line, and the names of these tests."""
        text = (self.tree.library / change.file).read_text().splitlines()
        units = self.reach.of_line(change.file, change.line, text)
        if units is None:
            return {unit: list(self.tests) for unit in self.tree.objects_with(change.file)}
        return units

    def attempt(self, change: Change) -> Result:
        """Makes the change in the first object, in an order drawn at random, whose code it changes."""
        units = self.units_of(change) or {unit: [] for unit in self.tree.objects_with(change.file)}
        for unit in random.Random(str(change)).sample(sorted(units), len(units)):
            with self.tree.changed(change, hidden=True):
                made = self.tree.compile(unit)
            if made is None:
                return "not compiled", "", unit
            if not self.tree.is_same(unit, made):
                return self.attempt_with(change, unit, made, units[unit])
        return "same code", "", ""

    def attempt_with(self, change: Change, unit: str, made: Path, names: list[str]) -> Result:
        """Runs the tests with the object, but for those that include the changed header as it was."""
        including = self.tree.programs_with(change.file)
        tests = [self.tests[name] for name in names if self.tests[name].program not in including]
        try:
            return self.judged(tests, change, unit, self.linker(unit, made))
        finally:
            self.tree.use_libraries("original")

    def linker(self, unit: str, made: Path) -> trial.Before:
        """Puts the object into the library of a test that is about to run, unless it is there."""
        linked = set()

        def link(test: trial.Test) -> None:
            if test.library not in linked:
                linked.add(test.library)
                self.tree.link(test.library, unit, made)

        return link

    def attempt_everywhere(self, change: Change) -> Result:
        """Makes a header's change in all that includes it."""
        names = {name for each in self.units_of(change).values() for name in each}
        including = self.tree.programs_with(change.file)
        tests = [test for test in self.tests.values() if test.name in names or test.program in including]
        with self.tree.changed(change, hidden=False):
            if not self.tree.make(trial.programs(list(self.tests.values()))):
                return "not compiled", "", EVERYWHERE
            return self.judged(tests, change, EVERYWHERE, lambda test: None)

    def judged(self, tests: list[trial.Test], change: Change, unit: str, before: trial.Before) -> Result:
        killer = trial.killer(tests, change.file, before)
        return ("killed", killer.name, unit) if killer else ("survived", "", unit)
