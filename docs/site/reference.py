#!/usr/bin/python3
"""Writes the reference as Doxygen's pages: one for each operation, for all pad families together.

    docs/site/reference.py OUTPUT-DIRECTORY

What is said comes from bindings/api.json, which is made of the header's comments; the listings are those of examples.c.
"""

from __future__ import annotations

import json
import re
import sys
from pathlib import Path
from typing import Any

HERE = Path(__file__).resolve().parent
REPOSITORY = HERE.parent.parent
Json = dict[str, Any]

GROUPS = {
    "device": "Opening, closing, and what the pad is",
    "pen": "How the pen writes",
    "events": "Taps on the pad",
    "ink": "The ink, point by point",
    "files": "Pictures in files",
    "texts": "Pictures and ink as Base64 texts",
    "decoding": "Texts back to pictures and points",
    "about": "About the library",
    "live push": "The signature while it is written (S210)",
    "office canvas": "A canvas of another size (S210)",
    "fingerprint": "The finger (S310X)",
}

# What the kind of a parameter means, beside what its own comment says.
ROLES = {
    "flag": "true or false, one byte",
    "length": "size of the buffer in bytes",
    "item": "where the item is written; its type follows from nIndex",
    "callback": "the receiver, or null for none; called on the driver's thread",
    "callback!": "the receiver, not null; called on the driver's thread",
    "point": "in: `nIndex`; out: everything else",
    "owned": "a text that the library handed out; null is ignored",
    "path": "a path, in which the library changes nothing",
    "text": "zero-terminated Base64 text; stays the caller's",
    "null": "a `QWidget` of this thread, or null",
    "bytes:128": "at least 128 bytes, which are written",
}

RESULTS = {
    "code": "an API_RETURN_ID value: 0 is success, below 0 says what was wrong",
    "flag": "true or false",
    "key": "1, 0 or -1",
    "count": "a number above 0, or an error code below 0",
    "coordinate": "raw units of the pad; an error code looks the same",
}


def families(api: Json, operation: Json) -> list[Json]:
    return [family for family in api["families"] if family["prefix"] in operation["families"]]


def prototype(operation: Json, prefix: str) -> str:
    parameters = ["int nDeviceType"] if operation["takesDeviceType"] else []
    for parameter in operation["parameters"]:
        space = "" if parameter["type"].endswith("*") else " "
        parameters.append(f"{parameter['type']}{space}{parameter['name']}")
    result = operation["result"]["type"]
    space = "" if result.endswith("*") else " "
    return f"{result}{space}{prefix}_{operation['name']}({', '.join(parameters) or 'void'});"


def meaning(role: str) -> str:
    if role in ROLES:
        return ROLES[role]
    kind, _, rest = role.partition(":")
    if kind == "int":
        return f"from {rest.replace('..', ' to ')}" if rest else "a whole number"
    if kind == "enum":
        name, _, only = rest.partition(":")
        return f"a value of `{name}`" + (f": {only.replace(',', ', ')}" if only else "")
    if kind == "buffer":
        return f"the caller's buffer of `{rest}` bytes, in which a zero-terminated text is written"
    raise SystemExit(f"reference.py knows no parameter of the kind {role}")


def parameter_rows(api: Json, operation: Json) -> list[str]:
    rows = []
    if operation["takesDeviceType"]:
        types = ", ".join(f"`{family['deviceType']}`" for family in families(api, operation))
        rows.append(f"| `nDeviceType` | `int` | {types}: the value of the function's own family |")
    for parameter in operation["parameters"]:
        said = meaning(parameter["role"])
        if parameter["doc"]:
            said += "; " + re.sub(r"^[A-Z_]+\. ", "", " ".join(parameter["doc"].split()))
        rows.append(f"| `{parameter['name']}` | `{parameter['type']}` | {said} |")
    return rows


def result_lines(operation: Json) -> list[str]:
    role, doc = operation["result"]["role"], operation["result"]["doc"]
    if role == "none":
        return []
    lines = ["", "## Result", ""]
    if role.startswith("text:"):
        lines += [f"A zero-terminated text that belongs to the caller until it is given to @ref {role[5:]} of the same family.", ""]
    else:
        lines += [RESULTS[role][0].upper() + RESULTS[role][1:] + ".", ""]
    return lines + ([doc[0].upper() + doc[1:]] if doc else [])


def threads(operation: Json) -> str:
    if any(parameter["role"].startswith("callback") for parameter in operation["parameters"]):
        return "Call it on the thread that opened the pad. The receiver runs on the driver's thread, with no lock held."
    if operation["name"] in ("InitialDevice", "UnInitialDevice"):
        return "The application's GUI thread, or the one thread of a program without windows; never from a receiver."
    if operation["name"] == "AboutBox":
        return "The GUI thread alone."
    return "The thread that opened the pad, or a receiver of the library on the driver's thread."


def linked(text: str, names: set[str], own: str) -> str:
    """The names of other operations become links."""
    return re.sub(r"\b[A-Z][A-Za-z0-9]+\b", lambda word: f"@ref {word[0]}" if word[0] in names - {own} else word[0], text)


def example(name: str) -> list[str]:
    text = (HERE / "examples.c").read_text(encoding="utf-8")
    parts = text.split(f"//! [{name}]\n")
    if len(parts) != 3:
        raise SystemExit(f"examples.c has no example of {name}")
    lines = parts[1].rstrip().splitlines()
    indent = min(len(line) - len(line.lstrip()) for line in lines if line.strip())
    return ["", "## Example", "", "```c", *[line[indent:] for line in lines if "//! [" not in line], "```"]


def page(api: Json, operation: Json, names: set[str]) -> str:
    name = operation["name"]
    own = families(api, operation)
    lines = [f"# {name} {{#{name}}}", "", linked(operation["doc"], names, name), "", "## Functions", ""]
    lines += ["```c", *[prototype(operation, family["prefix"]) for family in own], "```"]
    rows = parameter_rows(api, operation)
    if rows:
        lines += ["", "| Parameter | Type | Meaning |", "|---|---|---|", *[linked(row, names, name) for row in rows]]
    lines += [linked(line, names, name) for line in result_lines(operation) if "@ref" not in line] \
        if not operation["result"]["role"].startswith("text:") else result_lines(operation)
    if operation["takesDeviceType"]:
        lines += ["", "Another family's `nDeviceType` has no effect: the result is `ARI_INVALID_PARAMETERS`, null or false."]
    lines += ["", "## Threads", "", threads(operation), *example(name), ""]
    return "\n".join(lines)


def index(api: Json) -> str:
    lines = [
        "# Reference {#reference}", "",
        f"The library has {sum(len(operation['families']) for operation in api['operations'])} functions:"
        f" {len(api['operations'])} operations, which each pad model has under its own prefix. The prefixes are "
        + ", ".join(f"`{family['prefix']}_` ({family['model']})" for family in api["families"])
        + ". Each page is about one operation of all of them.", "",
        "No exception leaves any of them. Texts that are handed out are freed by the function that the page names, while the"
        " pad is open.", "",
    ]
    for group, title in GROUPS.items():
        lines += [f"## {title}", "", "| Operation | |", "|---|---|"]
        for operation in (entry for entry in api["operations"] if entry["group"] == group):
            said = re.sub(r"\s*\([^)]*\)", "", " ".join(operation["doc"].split()))
            first = re.split(r"(?<=[.;:])\s", said, maxsplit=1)[0].rstrip(";:.")
            lines.append(f"| @ref {operation['name']} | {first}. |")
        lines.append("")
    return "\n".join(lines)


def values(api: Json) -> str:
    lines = ["# Values and records {#values}", ""]
    for enumeration in api["enumerations"]:
        lines += [f"## {enumeration['name']}", "", enumeration["doc"], "", "| Name | Value | |", "|---|---|---|"]
        lines += [f"| `{value['name']}` | {value['value']} | {value['doc']} |" for value in enumeration["values"]] + [""]
    for record in api["records"]:
        lines += [f"## {record['name'].lstrip('_')}", "", f"{record['doc']} {record['size']} bytes.", ""]
        lines += ["| Field | Type | Offset | |", "|---|---|---|---|"]
        lines += [f"| `{field['name']}` | `{field['type']}` | {field['offset']} | {field['doc']} |" for field in record["fields"]] + [""]
    for callback in api["callbacks"]:
        lines += [f"## {callback['name']}", "", callback["doc"], "", f"`{callback['type']}`", ""]
    return "\n".join(lines)


def main(output: Path) -> None:
    api: Json = json.loads((REPOSITORY / "bindings" / "api.json").read_text(encoding="utf-8"))
    groups = {operation["group"] for operation in api["operations"]}
    if groups != set(GROUPS):
        raise SystemExit(f"reference.py and api.json have other groups: {groups ^ set(GROUPS)}")
    names = {operation["name"] for operation in api["operations"]}
    output.mkdir(parents=True, exist_ok=True)
    (output / "reference.md").write_text(index(api), encoding="utf-8")
    (output / "values.md").write_text(values(api), encoding="utf-8")
    for operation in api["operations"]:
        (output / f"{operation['name']}.md").write_text(page(api, operation, names), encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main(Path(sys.argv[1]))
