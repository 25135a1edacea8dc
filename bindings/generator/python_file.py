"""Writes Python's low-level file: the functions through ctypes, as they are."""

from __future__ import annotations

import textwrap
from typing import Any

from .colors import COLORS

Json = dict[str, Any]

_HEAD = '''"""The library's functions as they are: generated from the header by bindings/generate, not to be edited.

Texts that the library hands out are addresses here, and the caller gives them back to the function that the operation
names. For everyday use there is kvsignpad.Pad.
"""

from __future__ import annotations

import ctypes
import enum
from typing import Any, Callable, Mapping, NamedTuple

VERSION = "{version}"
'''

_TAIL = '''

class Operation(NamedTuple):
    """One operation, the same for every family that has it."""

    families: tuple[str, ...]
    result: Any
    parameters: tuple[Any, ...]
    gives_back: str
    doc: str


class Library:
    """The loaded library: its functions by their names (`library.KVS300_Clear`), or by family and operation."""

    def __init__(self, path: str) -> None:
        self.cdll = ctypes.CDLL(path)
        self._functions: dict[str, Callable[..., Any]] = {}
        for name, operation in OPERATIONS.items():
            for family in operation.families:
                function = self.cdll[f"{family}_{name}"]
                function.restype = operation.result
                function.argtypes = list(operation.parameters)
                function.__doc__ = operation.doc
                self._functions[f"{family}_{name}"] = function

    def __getattr__(self, name: str) -> Callable[..., Any]:
        try:
            return self._functions[name]
        except KeyError:
            raise AttributeError(f"the library has no function {name}") from None

    def __dir__(self) -> list[str]:
        return sorted(self._functions)

    @property
    def log_enabled(self) -> bool:
        """Whether the library writes its log (g_bEnableLog)."""
        return ctypes.c_bool.in_dll(self.cdll, "g_bEnableLog").value

    @log_enabled.setter
    def log_enabled(self, on: bool) -> None:
        ctypes.c_bool.in_dll(self.cdll, "g_bEnableLog").value = on
'''

_TYPES = {
    "bool": "ctypes.c_bool",
    "int": "ctypes.c_int",
    "int16_t": "ctypes.c_int16",
    "int32_t": "ctypes.c_int32",
    "uint64_t": "ctypes.c_uint64",
    "time_t": "ctypes.c_int64",
    "double": "ctypes.c_double",
    "void": "None",
    "void *": "ctypes.c_void_p",
    "QWidget *": "ctypes.c_void_p",
    "wchar_t *": "ctypes.c_wchar_p",
    "const char *": "ctypes.c_char_p",
    "const INKPOINTDATA *": "ctypes.POINTER(InkPointData)",
}


def write(api: Json) -> str:
    parts = [_HEAD.format(version=api["version"])]
    parts += [_enumeration(enumeration) for enumeration in api["enumerations"]]
    parts += [_record(record) for record in api["records"]]
    parts += [_callback(callback) for callback in api["callbacks"] if callback["as"]]
    parts.append(_TAIL)
    parts.append(_families(api))
    parts.append(_operations(api))
    parts.append(_colors())
    return "\n".join(part.rstrip("\n") + "\n" for part in parts)


def _docstring(text: str, indent: str) -> str:
    lines: list[str] = []
    for paragraph in text.replace("\\", "\\\\").replace('"', "'").split("\n\n"):
        lines += textwrap.wrap(paragraph, 118 - len(indent)) + [""]
    lines.pop()
    if len(lines) == 1 and len(lines[0]) + len(indent) + 6 <= 118:
        return f'{indent}"""{lines[0]}"""\n'
    body = "\n".join(f"{indent}{line}".rstrip() for line in lines)
    return f'{indent}"""{body.lstrip()}\n{indent}"""\n'


def _remark(doc: str) -> str:
    return f"  # {doc}" if doc else ""


def _enumeration(enumeration: Json) -> str:
    text = f"\nclass {enumeration['as']}(enum.IntEnum):\n"
    text += _docstring(enumeration["doc"], "    ") + "\n"
    for value in enumeration["values"]:
        text += f"    {value['as']} = {value['value']}{_remark(value['doc'])}\n"
    return text


def _record(record: Json) -> str:
    text = f"\nclass {record['as']}(ctypes.Structure):\n"
    text += _docstring(record["doc"], "    ") + "\n    _fields_ = [\n"
    for member in record["fields"]:
        text += f"        (\"{member['name']}\", {_TYPES[member['type']]}),{_remark(member['doc'])}\n"
    return text + "    ]\n"


def _callback(callback: Json) -> str:
    argument = {"void (*)(int)": "ctypes.c_int", "void (*)(char *)": "ctypes.c_char_p"}[callback["type"]]
    lines = "\n".join(f"# {line}" for line in textwrap.wrap(callback["doc"], 116))
    return f"\n{lines}\n{callback['as']} = ctypes.CFUNCTYPE(None, {argument})\n"


def _families(api: Json) -> str:
    text = "\n# Each model's prefix and device type.\nFAMILIES: Mapping[str, tuple[str, DeviceType]] = {\n"
    for family in api["families"]:
        text += f"    \"{family['model']}\": (\"{family['prefix']}\", DeviceType.{family['model']}),\n"
    return text + "}\n"


def _parameter_type(parameter: Json, callbacks: dict[str, str]) -> str:
    if parameter["role"].startswith("buffer") or parameter["role"] == "owned":
        return "ctypes.c_void_p" if parameter["role"] == "owned" else "ctypes.c_char_p"
    return callbacks.get(parameter["type"]) or _TYPES[parameter["type"]]


def _operations(api: Json) -> str:
    callbacks = {callback["name"]: callback["as"] for callback in api["callbacks"] if callback["as"]}
    text = "\nOPERATIONS: Mapping[str, Operation] = {\n"
    for operation in api["operations"]:
        types = ["ctypes.c_int"] if operation["takesDeviceType"] else []
        types += [_parameter_type(parameter, callbacks) for parameter in operation["parameters"]]
        role, _, taker = operation["result"]["role"].partition(":")
        result = "ctypes.c_void_p" if role == "text" else _TYPES[operation["result"]["type"]]
        families = "".join(f'"{family}", ' for family in operation["families"])
        text += f"    \"{operation['name']}\": Operation(\n"
        text += f"        ({families.rstrip() if len(operation['families']) == 1 else families.rstrip(', ')}),\n"
        text += f"        {result},\n"
        text += f"        ({', '.join(types)}{',' if len(types) == 1 else ''}),\n"
        text += f"        \"{taker}\",\n"
        text += _doc_literal(operation)
        text += "    ),\n"
    return text + "}\n"


def _doc_literal(operation: Json) -> str:
    paragraphs = [operation["doc"]]
    paragraphs += [f"{p['name']}: {p['doc']}" for p in operation["parameters"] if p["doc"]]
    if operation["result"]["doc"]:
        paragraphs.append(f"Returns {operation['result']['doc']}")
    lines: list[str] = []
    for index, paragraph in enumerate(paragraphs):
        wrapped = textwrap.wrap(paragraph.replace("\n\n", " "), 100)
        lines += [line + " " for line in wrapped[:-1]]
        lines.append(wrapped[-1] + ("" if index == len(paragraphs) - 1 else "\\n\\n"))
    escaped = [line.replace('"', '\\"') for line in lines]
    return "".join(f'        "{line}"\n' for line in escaped)


def _colors() -> str:
    text = "\n# Colours by name.\nCOLORS: Mapping[str, tuple[int, int, int]] = {\n"
    for name, (red, green, blue) in COLORS.items():
        text += f'    "{name}": ({red}, {green}, {blue}),\n'
    return text + "}\n"
