"""Writes Java's low-level file: the functions through JNA, as they are."""

from __future__ import annotations

import textwrap
from typing import Any

from .colors import COLORS

Json = dict[str, Any]

_HEAD = """\
// Generated from the header by bindings/generate, not to be edited.
package com.korvane.signpad;

import com.sun.jna.Callback;
import com.sun.jna.Library;
import com.sun.jna.Pointer;
import com.sun.jna.Structure;
import java.util.List;
import java.util.Map;

/**
 * The library's functions as they are.
 *
 * <p>A C bool result is one byte, and JNA would read a Java boolean from four: it is a byte here, 0 or 1. Paths are
 * UTF-32LE with a closing zero, for JNA's WString passes an emoji as two characters. Texts that the library hands out are
 * pointers, which go back to the function that frees them. For everyday use there is {@link Pad}.
 */
public interface LowLevel extends Library {
    /** The version of the header that this was made from. */
    String VERSION = "%s";
"""

_TYPES = {
    "bool": "boolean",
    "int": "int",
    "int16_t": "short",
    "int32_t": "int",
    "uint64_t": "long",
    "time_t": "long",
    "double": "double",
    "void": "void",
    "void *": "Pointer",
    "QWidget *": "Pointer",
    "wchar_t *": "byte[]",
    "char *": "Pointer",
    "const char *": "String",
    "const INKPOINTDATA *": "InkPointData",
}


def write(api: Json) -> str:
    text = str(_HEAD % api["version"])
    text += "".join(_enumeration(enumeration) for enumeration in api["enumerations"])
    text += "".join(_record(record) for record in api["records"])
    text += "".join(_callback(callback) for callback in api["callbacks"] if callback["as"])
    text += _colors()
    text += _families(api)
    text += "".join(_operation(operation, api) for operation in api["operations"])
    return text + "}\n"


def _escaped(text: str) -> str:
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def _doc(paragraphs: list[str], tags: list[str], indent: str) -> str:
    lines: list[str] = []
    for index, paragraph in enumerate(paragraphs):
        lines += textwrap.wrap(("<p>" if index else "") + _escaped(paragraph), 116 - len(indent))
        lines.append("")
    lines.pop()
    if tags:
        lines.append("")
        for tag in tags:
            lines += textwrap.wrap(_escaped(tag), 116 - len(indent), subsequent_indent="    ")
    if len(lines) == 1 and len(lines[0]) + len(indent) + 7 <= 120:
        return f"{indent}/** {lines[0]} */\n"
    body = "".join(f"{indent} * {line}".rstrip() + "\n" for line in lines)
    return f"{indent}/**\n{body}{indent} */\n"


def _enumeration(enumeration: Json) -> str:
    text = "\n" + _doc([enumeration["doc"]], [], "    ")
    text += f"    interface {enumeration['as']} {{\n"
    for value in enumeration["values"]:
        if value["doc"]:
            text += _doc([value["doc"]], [], "        ")
        text += f"        int {value['as']} = {value['value']};\n"
    return text + "    }\n"


def _record(record: Json) -> str:
    text = "\n" + _doc([record["doc"]], [], "    ")
    text += f"    final class {record['as']} extends Structure {{\n"
    for member in record["fields"]:
        if member["doc"]:
            text += _doc([member["doc"]], [], "        ")
        java = "byte" if member["type"] == "bool" else _TYPES[member["type"]]
        text += f"        public {java} {member['name']};\n"
    names = ", ".join(f'"{member["name"]}"' for member in record["fields"])
    text += f"\n        /** All zero. */\n        public {record['as']}() {{}}\n"
    text += "\n        @Override\n        protected List<String> getFieldOrder() {\n"
    lines = textwrap.wrap(names, 92)
    text += "            return List.of(" + ("\n                    ".join(lines)) + ");\n        }\n"
    return text + "    }\n"


def _callback(callback: Json) -> str:
    argument = {"void (*)(int)": "int value", "void (*)(char *)": "Pointer text"}[callback["type"]]
    text = "\n" + _doc([callback["doc"], "Keep a reference to it for as long as it is set."], [], "    ")
    text += f"    interface {callback['as']} extends Callback {{\n"
    text += f"        /** What the library calls. */\n        void invoke({argument});\n"
    return text + "    }\n"


def _colors() -> str:
    text = "\n    /** Colours by name, as 0xRRGGBB. */\n    Map<String, Integer> COLORS =\n            Map.ofEntries(\n"
    rows = [
        f'                    Map.entry("{name}", 0x{red:02X}{green:02X}{blue:02X})'
        for name, (red, green, blue) in COLORS.items()
    ]
    return text + ",\n".join(rows) + ");\n"


def _families(api: Json) -> str:
    text = "\n    /** The families that have an operation, where not all have it. */\n"
    text += "    Map<String, List<String>> FAMILIES =\n            Map.ofEntries(\n"
    rows = []
    for operation in api["operations"]:
        if len(operation["families"]) < len(api["families"]):
            names = ", ".join(f'"{family}"' for family in operation["families"])
            rows.append(f'                    Map.entry("{operation["name"]}", List.of({names}))')
    return text + ",\n".join(rows) + ");\n"


def _parameter(parameter: Json, callbacks: dict[str, str]) -> str:
    if parameter["role"].startswith("buffer"):
        return f"byte[] {parameter['name']}"
    java = callbacks.get(parameter["type"]) or _TYPES[parameter["type"]]
    return f"{java} {parameter['name']}"


def _operation(operation: Json, api: Json) -> str:
    callbacks = {callback["name"]: callback["as"] for callback in api["callbacks"] if callback["as"]}
    parameters = ["int nDeviceType"] if operation["takesDeviceType"] else []
    parameters += [_parameter(parameter, callbacks) for parameter in operation["parameters"]]
    role, _, taker = operation["result"]["role"].partition(":")
    result = {"flag": "byte", "text": "Pointer"}.get(role) or _TYPES[operation["result"]["type"]]
    tags = [f"@param {p['name']} {p['doc']}" for p in operation["parameters"] if p["doc"]]
    if operation["result"]["doc"]:
        tags.append(f"@return {operation['result']['doc']}")
    text = "\n" + _doc(operation["doc"].split("\n\n"), tags, "    ")
    lines = []
    for family in operation["families"]:
        line = f"    {result} {family}_{operation['name']}({', '.join(parameters)});"
        if len(line) > 120:
            line = f"    {result} {family}_{operation['name']}(\n            {', '.join(parameters)});"
        lines.append(line)
    return text + "\n".join(lines) + "\n"
