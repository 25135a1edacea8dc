"""Folds the header's functions into operations and puts the tables' meanings to them: the contents of api.json."""

from __future__ import annotations

import re
from dataclasses import replace
from pathlib import Path
from typing import Any, Iterable

from . import meanings
from .header import Enumeration, Function, Header, Member, Record

Json = dict[str, Any]

# Sizes and alignments on every 64-bit Linux.
_SIZES = {"bool": 1, "int16_t": 2, "int": 4, "int32_t": 4, "uint64_t": 8, "time_t": 8, "double": 8}


class UnplacedError(Exception):
    """The header and the tables do not say the same."""


def describe(header: Header, project: Path) -> Json:
    """The whole interface as plain data."""
    _same("enumerations", (e.name for e in header.enumerations), meanings.ENUMERATIONS)
    _same("records", (r.name for r in header.records), meanings.RECORDS)
    _same("variables", (v.name for v in header.variables), meanings.VARIABLES)
    callbacks = {**meanings.CALLBACKS, **dict.fromkeys(meanings.DRIVER_CALLBACKS, "")}
    _same("callbacks", (c.name for c in header.callbacks), callbacks)
    families = _families(header.functions)
    return {
        "version": project_version(project),
        "families": families,
        "enumerations": [_enumeration(e) for e in header.enumerations],
        "records": [_record(r) for r in header.records],
        "deviceInfo": _device_info(header),
        "callbacks": [
            {"name": c.name, "as": meanings.CALLBACKS.get(c.name), "type": c.type, "doc": c.doc}
            for c in header.callbacks
        ],
        "variables": [{"name": v.name, "type": v.type, "doc": v.doc} for v in header.variables],
        "operations": _operations(header.functions, families),
    }


def project_version(project: Path) -> str:
    """The version that CMake gives the library."""
    found = re.search(r"project\(\s*\w+\s+VERSION\s+([\d.]+)", project.read_text(encoding="utf-8"))
    if not found:
        raise UnplacedError(f"{project} names no version")
    return found.group(1)


def _same(what: str, declared: Iterable[str], placed: Iterable[str]) -> None:
    in_header, in_tables = set(declared), set(placed)
    if in_header - in_tables:
        raise UnplacedError(f"{what} in the header that meanings.py does not place: {sorted(in_header - in_tables)}")
    if in_tables - in_header:
        raise UnplacedError(f"{what} in meanings.py that the header does not have: {sorted(in_tables - in_header)}")


def _split(name: str) -> tuple[str, str]:
    family, _, operation = name.partition("_")
    if not family.startswith("KV") or not operation:
        raise UnplacedError(f"the function {name} belongs to no family")
    return family, operation


def _families(functions: list[Function]) -> list[Json]:
    """The families in the order in which the header first names them, with their models and device types."""
    present: dict[str, set[str]] = {}
    for function in functions:
        family, operation = _split(function.name)
        present.setdefault(family, set()).add(operation)
    return [
        {
            "prefix": name,
            "model": meanings.model_of(name),
            "deviceType": f"{name}_DEVICE",
            "doc": _features(operations),
        }
        for name, operations in present.items()
    ]


def _features(operations: set[str]) -> str:
    """What a model has that not every one has, as a sentence."""
    features = [feature for operation, feature in meanings.FEATURES.items() if operation in operations]
    if not features:
        return "Without a screen of its own."
    return "With " + ", ".join(features[:-1]) + (" and " if features[1:] else "") + features[-1] + "."


def _enumeration(enumeration: Enumeration) -> Json:
    naming = meanings.ENUMERATIONS[enumeration.name]
    if enumeration.name == "DEVICE_TYPE_ID":
        naming = replace(naming, values={v.name: meanings.model_of(v.name) for v in enumeration.values})
    _same(f"values of {enumeration.name}", (v.name for v in enumeration.values), naming.values)
    return {
        "name": enumeration.name,
        "as": naming.name,
        "doc": enumeration.doc,
        "values": [
            {"name": v.name, "as": naming.values[v.name], "value": v.value, "doc": v.doc} for v in enumeration.values
        ],
    }


def _record(record: Record) -> Json:
    fields, offset, alignment = [], 0, 1
    for member in record.fields:
        if member.type not in _SIZES:
            raise UnplacedError(f"{record.name}.{member.name} has the type {member.type}, which has no place")
        size = _SIZES[member.type]
        alignment = max(alignment, size)
        offset = -(-offset // size) * size
        fields.append({"name": member.name, "type": member.type, "offset": offset, "doc": member.doc})
        offset += size
    size = -(-offset // alignment) * alignment
    return {
        "name": record.name,
        "as": meanings.RECORDS[record.name],
        "size": size,
        "doc": record.doc,
        "fields": fields,
    }


def _device_info(header: Header) -> Json:
    items = next(e for e in header.enumerations if e.name == "GET_DEVICE_INFO_ID_LIST")
    _same("items of GetDeviceInfo", (v.name for v in items.values), meanings.DEVICE_INFO)
    return dict(meanings.DEVICE_INFO)


def _operations(functions: list[Function], families: list[Json]) -> list[Json]:
    folded: dict[str, list[Function]] = {}
    for function in functions:
        folded.setdefault(_split(function.name)[1], []).append(function)
    _same("operations", folded, meanings.OPERATIONS)
    return [_operation(name, group, families) for name, group in folded.items()]


def _signature(function: Function) -> tuple[str, tuple[tuple[str, str], ...]]:
    return function.result, tuple((p.name, p.type) for p in function.parameters)


def _operation(name: str, functions: list[Function], families: list[Json]) -> Json:
    first = functions[0]
    for other in functions[1:]:
        if _signature(other) != _signature(first):
            raise UnplacedError(f"{other.name} has other parameters or another result than {first.name}")
    if not first.doc.text:
        raise UnplacedError(f"{first.name}, the first of its operation, has no comment")
    meaning = meanings.OPERATIONS[name]
    parameters = list(first.parameters)
    if name not in meanings.WITHOUT_DEVICE_TYPE:
        if not parameters or (parameters[0].name, parameters[0].type) != ("nDeviceType", "int"):
            raise UnplacedError(f"{first.name} does not begin with its device type")
        parameters.pop(0)
    _same(f"parameters of {name}", (p.name for p in parameters), meaning.parameters)
    present = [_split(function.name)[0] for function in functions]
    return {
        "name": name,
        "group": meaning.group,
        "families": [family["prefix"] for family in families if family["prefix"] in present],
        "doc": first.doc.text,
        "takesDeviceType": name not in meanings.WITHOUT_DEVICE_TYPE,
        "parameters": [_parameter(p, meaning.parameters[p.name], first) for p in parameters],
        "result": {"type": first.result, "role": _result_role(meaning.result, first), "doc": first.doc.result},
    }


_ROLE_TYPES = {
    "null": {"QWidget *"},
    "flag": {"bool"},
    "int": {"int"},
    "enum": {"int"},
    "buffer": {"char *"},
    "length": {"int"},
    "item": {"void *"},
    "bytes": {"void *"},
    "point": {"const INKPOINTDATA *"},
    "path": {"wchar_t *"},
    "text": {"const char *"},
    "owned": {"char *"},
    "callback": set(meanings.CALLBACKS),
    "callback!": set(meanings.CALLBACKS),
}

_RESULT_TYPES = {
    "code": "int",
    "flag": "bool",
    "count": "int",
    "key": "int",
    "coordinate": "int",
    "text": "char *",
    "none": "void",
}


def _parameter(parameter: Member, role: str, function: Function) -> Json:
    kind, _, rest = role.partition(":")
    if parameter.type not in _ROLE_TYPES.get(kind, set()):
        raise UnplacedError(f"{function.name}: {parameter.name} is a {parameter.type}, which is no {role}")
    if kind == "enum" and rest.partition(":")[0] not in meanings.ENUMERATIONS:
        raise UnplacedError(f"{function.name}: {parameter.name} names the unknown enumeration {rest}")
    if kind == "buffer" and rest not in {p.name for p in function.parameters}:
        raise UnplacedError(f"{function.name}: {parameter.name} has no length {rest}")
    doc = function.doc.parameters.get(parameter.name, "")
    return {"name": parameter.name, "type": parameter.type, "role": role, "doc": doc}


def _result_role(role: str, function: Function) -> str:
    kind, _, taker = role.partition(":")
    if _RESULT_TYPES.get(kind) != function.result:
        raise UnplacedError(f"{function.name} answers a {function.result}, which is no {role}")
    if kind == "text" and taker not in meanings.OPERATIONS:
        raise UnplacedError(f"{function.name}: nothing takes its text back ({taker})")
    return role
