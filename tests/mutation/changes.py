"""What tests/mutants changes in a line of C++: a comparison turned, a constant changed, a call dropped, two arguments
swapped."""

from __future__ import annotations

import re
from collections.abc import Iterator
from pathlib import Path
from typing import NamedTuple

TURNED = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&"}
PUBLIC = ("kvsignpadsdk.h", "kvsignpadsdk_global.h")
# Lines that declare rather than do, and those whose constants are for the compiler or for speed alone.
NOT_CHANGED = re.compile(r"\s*(static_assert|using |friend |template|#|case |default:|public|private|protected)"
                         r"|\s*[/*:,]|.*\breserve\(")
# A function in one line, as the forwarders are.
ONE_LINE_FUNCTION = re.compile(r"\S.*\) (const )?\{ .*\}$")
# A statement that is a call and nothing else; log lines are told apart by their texts, which tests compare.
CALL = re.compile(r"\s+(?!(?:return|throw|delete|if|for|while|else|KV_LOG)\b)[\w.:>\-\[\]<]*\w\(.*\);\s*$")


class Change(NamedTuple):
    """A line of a file, from 0, and what stands there instead."""

    file: str
    line: int
    name: str
    changed: str

    def __str__(self) -> str:
        return f"{self.file}:{self.line + 1}: {self.name}: {self.changed.strip()}"


def bare(line: str) -> str:
    """The line without its comment, and with nothing in its texts, of the same length before the comment."""
    line = re.sub(r'"(\\.|[^"\\])*"', lambda text: '"' + "_" * (len(text[0]) - 2) + '"', line)
    line = re.sub(r"'(\\.|[^'\\])'", lambda text: "_" * len(text[0]), line)
    return line.split("//")[0]


def is_body(line: str) -> bool:
    """A line that does something rather than declare: inside a function or a table, or a whole function."""
    code = bare(line).rstrip()
    inside = code.startswith("    ") and not NOT_CHANGED.match(code)
    return inside or bool(ONE_LINE_FUNCTION.match(code))


def replaced(line: str, found: re.Match[str], new: str) -> str:
    return line[:found.start()] + new + line[found.end():]


def of_line(line: str) -> Iterator[tuple[str, str]]:
    """Every change of the line: its name, and the changed line."""
    if not is_body(line):
        return
    code = bare(line)
    for found in re.finditer(r"(?<=\s)(==|!=|<=|>=|<|>|&&|\|\|)(?=\s)", code):
        yield f"{found[0]} to {TURNED[found[0]]}", replaced(line, found, TURNED[found[0]])
    for found in re.finditer(r"(?<![\w.\"])\d+(?![\w.\"])", code):
        octal = len(found[0]) > 1 and found[0][0] == "0"
        new = f"0{int(found[0], 8) + 1:o}" if octal else str(int(found[0]) + 1)
        yield f"{found[0]} to {new}", replaced(line, found, new)
    for found in re.finditer(r"\b(true|false)\b", code):
        new = "false" if found[0] == "true" else "true"
        yield f"{found[0]} to {new}", replaced(line, found, new)
    if CALL.match(code):
        indent = line[:len(line) - len(line.lstrip())]
        yield "call dropped", f"{indent}; // {line.strip()}\n"
    for found in re.finditer(r"(?:(?<=\()|(?<=, ))(?=([\w.]+), ([\w.]+)[,)])", code):
        first, second = (line[slice(*found.span(group))] for group in (1, 2))
        if first != second:
            yield "arguments swapped", f"{line[:found.start(1)]}{second}, {first}{line[found.end(2):]}"


def of_folder(folder: Path, pattern: str) -> list[Change]:
    """Every change of the sources in the folder and below whose path matches, but for the public headers."""
    changes = []
    for path in sorted(folder.rglob("*")):
        file = path.relative_to(folder)
        if path.suffix not in (".cpp", ".h", ".inl") or path.name in PUBLIC or not file.match(pattern):
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(keepends=True)):
            changes += [Change(str(file), number, name, changed) for name, changed in of_line(line)]
    return changes
