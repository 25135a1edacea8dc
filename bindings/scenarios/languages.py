"""How each language's runner is built and started."""

from __future__ import annotations

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


LANGUAGES: dict[str, Language] = {
    "python": Language(
        command=lambda work: ["/usr/bin/python3", str(BINDINGS / "python" / "tests" / "scenarios.py")],
        environment=lambda work: {"PYTHONPATH": str(BINDINGS / "python")},
    ),
}
