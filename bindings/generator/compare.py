"""Compares today's interface with the last released one: what callers rely on may grow, and not go or change.

released.json is api.json as it was in the last release; a release copies it.
"""

from __future__ import annotations

from typing import Any, Iterator

Json = dict[str, Any]


def broken(released: Json, today: Json) -> list[str]:
    """What a program that was built for the released interface could not rely on any more."""
    if _major(today) > _major(released):
        return []
    return [
        *_named("operation", released["operations"], today["operations"], _operation),
        *_named("enumeration", released["enumerations"], today["enumerations"], _enumeration),
        *_named("record", released["records"], today["records"], _record),
        *_named("callback", released["callbacks"], today["callbacks"], lambda old, new: _same(old, new, "type")),
        *_named("variable", released["variables"], today["variables"], lambda old, new: _same(old, new, "type")),
    ]


def _major(api: Json) -> int:
    return int(api["version"].split(".")[0])


def _named(kind: str, old: list[Json], new: list[Json], compare: Any) -> Iterator[str]:
    found = {entry["name"]: entry for entry in new}
    for entry in old:
        if entry["name"] not in found:
            yield f"the {kind} {entry['name']} is gone"
            continue
        for trouble in compare(entry, found[entry["name"]]):
            yield f"{kind} {entry['name']}: {trouble}"


def _same(old: Json, new: Json, *keys: str) -> Iterator[str]:
    for key in keys:
        if old[key] != new[key]:
            yield f"its {key} was {old[key]!r} and is {new[key]!r}"


def _operation(old: Json, new: Json) -> Iterator[str]:
    for family in old["families"]:
        if family not in new["families"]:
            yield f"{family} no longer has it"
    before = [(p["name"], p["type"], p["role"]) for p in old["parameters"]]
    after = [(p["name"], p["type"], p["role"]) for p in new["parameters"]]
    if before != after:
        yield f"its parameters were {before} and are {after}"
    yield from _same(old["result"], new["result"], "type", "role")


def _enumeration(old: Json, new: Json) -> Iterator[str]:
    yield from _named("value", old["values"], new["values"], lambda a, b: _same(a, b, "value"))


def _record(old: Json, new: Json) -> Iterator[str]:
    yield from _same(old, new, "size")
    if _fields(old) != _fields(new):
        yield f"its fields were {_fields(old)} and are {_fields(new)}"


def _fields(record: Json) -> list[tuple[str, str, int]]:
    return [(f["name"], f["type"], f["offset"]) for f in record["fields"]]
