"""How each language's runner is built and started."""

from __future__ import annotations

import subprocess
from dataclasses import dataclass
from pathlib import Path
from typing import Callable

BINDINGS = Path(__file__).resolve().parent.parent


def _nothing(work: Path, library: Path) -> None:
    pass


def _no_settings(work: Path) -> dict[str, str]:
    return {}


@dataclass(frozen=True)
class Language:
    command: Callable[[Path], list[str]]
    """The runner's command, given the directory in which it was built."""
    build: Callable[[Path, Path], None] = _nothing
    """Builds it, given that directory and the library's."""
    environment: Callable[[Path], dict[str, str]] = _no_settings
    own_zlib: bool = False
    """Its program brings a zlib of its own, which the library then uses too: the same contents, packed otherwise."""


def _build(command: list[str]) -> None:
    subprocess.run(command, check=True, capture_output=True, text=True)


JNA = "/usr/share/java/jna.jar"


def _build_java(work: Path, library: Path) -> None:
    sources = sorted(str(path) for path in (BINDINGS / "java" / "src").rglob("*.java"))
    options = ["-Xlint:all,-requires-automatic,-requires-transitive-automatic", "-Werror", "-encoding", "UTF-8"]
    _build(["javac", *options, "-p", JNA, "-d", str(work / "java"), *sources])
    runner = str(BINDINGS / "java" / "tests" / "Scenarios.java")
    classpath = f"{work / 'java'}:{JNA}"
    _build(["javac", "-encoding", "UTF-8", "-cp", classpath, "-d", str(work / "java-tests"), runner])


def _build_csharp(work: Path, library: Path) -> None:
    sources = sorted(str(path) for path in (BINDINGS / "csharp" / "src").glob("*.cs"))
    assembly = work / "Korvane.Signpad.dll"
    strict = ["-langversion:7", "-warn:4", "-warnaserror", f"-doc:{work / 'Korvane.Signpad.xml'}"]
    _build(["mcs", *strict, "-target:library", f"-out:{assembly}", *sources])
    runner = str(BINDINGS / "csharp" / "tests" / "Scenarios.cs")
    _build(["mcs", "-langversion:7", f"-r:{assembly}", f"-out:{work / 'Scenarios.exe'}", runner])


def _build_node(work: Path, library: Path) -> None:
    place = BINDINGS / "node"
    if not (place / "node_modules" / "koffi").exists():
        _build(["npm", "--prefix", str(place), "ci", "--no-audit", "--no-fund", "--prefer-offline"])


def _build_cpp(work: Path, library: Path) -> None:
    strict = ["-std=c++17", "-O2", "-Wall", "-Wextra", "-Wshadow", "-Werror", f"-I{BINDINGS.parent / 'kvsignpadsdk'}"]
    linked = [f"-L{library}", "-lkvsignpadsdk", "-pthread"]
    source = str(BINDINGS / "cpp" / "scenarios.cpp")
    _build(["g++", *strict, source, "-o", str(work / "scenarios-cpp"), *linked])


LANGUAGES: dict[str, Language] = {
    "python": Language(
        command=lambda work: ["/usr/bin/python3", str(BINDINGS / "python" / "tests" / "scenarios.py")],
        environment=lambda work: {"PYTHONPATH": str(BINDINGS / "python")},
    ),
    "java": Language(
        build=_build_java,
        command=lambda work: ["java", "-cp", f"{work / 'java'}:{work / 'java-tests'}:{JNA}", "Scenarios"],
    ),
    "csharp": Language(
        build=_build_csharp,
        command=lambda work: ["mono", str(work / "Scenarios.exe")],
    ),
    "node": Language(
        build=_build_node,
        command=lambda work: ["node", "--expose-gc", str(BINDINGS / "node" / "tests" / "scenarios.mjs")],
        own_zlib=True,
    ),
    "cpp": Language(
        build=_build_cpp,
        command=lambda work: [str(work / "scenarios-cpp")],
    ),
}
