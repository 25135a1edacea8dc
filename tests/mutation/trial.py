"""The tests: which there are, which reach a line, and running one."""

from __future__ import annotations

import json
import os
import re
import resource
import signal
import subprocess
import time
from collections.abc import Callable
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any

from tree import LIBRARIES, Tree, said

# Tests of programs around the library see little of a line of it; those of the plain ways compile the library anew.
OTHER_PROGRAMS = {"simulator_tests", "program_ends_test", "documents_tests", "plain_ways_test", "memory_tests"}
MEMORY = 8 << 30  # bytes that a test may have, and write into a file


@dataclass
class Test:
    name: str
    program: str
    library: str  # of tree.LIBRARIES, what its program is linked with
    command: list[str]
    directory: str
    environment: dict[str, str]
    seconds: float = 0.0  # of the processors, and on the clock, when nothing was changed
    clock: float = 0.0
    kills: dict[str, int] = field(default_factory=dict)  # in each file of the library

    def noticed(self, file: str) -> None:
        self.kills[file] = self.kills.get(file, 0) + 1


Before = Callable[[Test], None]  # what is done before a test runs


@dataclass
class Outcome:
    passed: bool
    seconds: float
    clock: float
    said: str


def listed(tree: Tree, wanted: str) -> list[Test]:
    """The tests that look at the library, by what ctest knows of them."""
    known = json.loads(said(["ctest", "--show-only=json-v1"], tree.build))["tests"]
    tests = [described(tree, each) for each in known if re.search(wanted, each["name"])]
    return [test for test in tests if test.program not in OTHER_PROGRAMS]


def described(tree: Tree, known: dict[str, Any]) -> Test:
    properties = {one["name"]: one["value"] for one in known["properties"]}
    command = known["command"]
    program = Path(command[0]).name
    if "--" in command:  # with a /tmp of its own, in which the counters are still to be seen should they lie there
        program = Path(command[command.index("--") + 1]).name
        command.insert(1, str(tree.coverage))
    environment = dict(one.split("=", 1) for one in properties.get("ENVIRONMENT", []))
    return Test(known["name"], program, LIBRARIES[0], command, properties["WORKING_DIRECTORY"], environment)


def look_inside(tree: Tree, tests: list[Test]) -> None:
    """Tells the programs, once they are built, that are linked with the library's inside."""
    for test in tests:
        if LIBRARIES[1].encode() in (tree.build / "tests" / test.program).read_bytes():
            test.library = LIBRARIES[1]


def limited() -> None:
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(test: Test, longest: float) -> Outcome:
    """Runs it up to its first failure. What takes longer than so many seconds has failed too."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    begin = time.monotonic()
    process = subprocess.Popen(test.command, cwd=test.directory, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               stdin=subprocess.DEVNULL, start_new_session=True, preexec_fn=limited,
                               env={**os.environ, **test.environment, "GTEST_FAIL_FAST": "1"})
    try:
        output, _ = process.communicate(timeout=longest)
        passed, told = process.returncode == 0, output.decode(errors="replace")
    except subprocess.TimeoutExpired:
        passed, told = False, "took too long"
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.communicate()
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    seconds = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
    return Outcome(passed, seconds, time.monotonic() - begin, told)


def longest(test: Test) -> float:
    """Far more than it takes: the machine may be busy with other things."""
    return 30 + 6 * test.clock


def in_order(tests: list[Test], file: str) -> list[Test]:
    """First what noticed changes of the same file, then what is named like it, then the quickest."""
    subject = Path(file).stem
    return sorted(tests, key=lambda test: (-test.kills.get(file, 0), subject not in test.name, test.seconds))


def killer(tests: list[Test], file: str, before: Before) -> Test | None:
    """The first test that fails with a change of the file, if any does; `before` is called for each before it runs."""
    for test in in_order(tests, file):
        before(test)
        if not run(test, longest(test)).passed:
            test.noticed(file)
            return test
    return None


def programs(tests: list[Test]) -> list[str]:
    return sorted({test.program for test in tests})
