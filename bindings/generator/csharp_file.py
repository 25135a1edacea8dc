"""Writes C#'s low-level file: the functions through P/Invoke, as they are."""

from __future__ import annotations

import textwrap
from typing import Any

from .colors import COLORS

Json = dict[str, Any]

_HEAD = """\
// Generated from the header by bindings/generate, not to be edited.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

namespace Korvane.Signpad
{
    /// <summary>
    /// The library's functions as they are. Texts that it hands out are addresses here, and go back to the function that
    /// frees them; paths are UTF-32 with a closing zero. For everyday use there is <see cref="Pad"/>.
    /// </summary>
    public static class LowLevel
    {
        /// <summary>The version of the header that this was made from.</summary>
        public const string Version = "%s";

        private const string Sdk = "libkvsignpadsdk.so.1";
"""

_TYPES = {
    "bool": "[MarshalAs(UnmanagedType.I1)] bool",
    "int": "int",
    "int16_t": "short",
    "int32_t": "int",
    "uint64_t": "ulong",
    "time_t": "long",
    "double": "double",
    "void": "void",
    "void *": "IntPtr",
    "QWidget *": "IntPtr",
    "wchar_t *": "byte[]",
    "char *": "IntPtr",
    "const char *": "byte[]",
    "const INKPOINTDATA *": "ref InkPointData",
}


def write(api: Json) -> str:
    text = str(_HEAD % api["version"])
    text += "".join(_record(record) for record in api["records"])
    text += "".join(_callback(callback) for callback in api["callbacks"] if callback["as"])
    text += _colors()
    text += "".join(_operation(operation, api) for operation in api["operations"])
    text += "    }\n"
    text += "".join(_enumeration(enumeration) for enumeration in api["enumerations"])
    return text + _models(api) + "}\n"


def _models(api: Json) -> str:
    text = "\n    /// <summary>The pad models.</summary>\n    public enum Model\n    {\n"
    for family in api["families"]:
        text += f"        /// <summary>{family['doc']}</summary>\n        {family['model']},\n"
    return text + "    }\n"


def pascal(name: str) -> str:
    """INVALID_PARAMETERS as InvalidParameters; model names and abbreviations of one part stay."""
    parts = name.split("_")
    if len(parts) == 1 and (len(name) <= 3 or any(c.isdigit() for c in name) or name in ("JPEG",)):
        return {"PNG": "Png", "JPEG": "Jpeg", "PDF": "Pdf", "SVG": "Svg", "INK": "Ink", "UP": "Up"}.get(name, name)
    return "".join(part.capitalize() for part in parts)


def _escaped(text: str) -> str:
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def _summary(text: str, indent: str, tag: str = "summary") -> str:
    words = " ".join(text.split())
    whole = f"{indent}/// <{tag}>{_escaped(words)}</{tag}>"
    if len(whole) <= 120:
        return whole + "\n"
    lines = textwrap.wrap(_escaped(words), 116 - len(indent))
    body = "".join(f"{indent}/// {line}\n" for line in lines)
    return f"{indent}/// <{tag}>\n{body}{indent}/// </{tag}>\n"


def _enumeration(enumeration: Json) -> str:
    text = "\n" + _summary(enumeration["doc"], "    ") + f"    public enum {enumeration['as']}\n    {{\n"
    for value in enumeration["values"]:
        text += _summary(value["doc"] or value["name"], "        ")
        text += f"        {pascal(value['as'])} = {value['value']},\n"
    return text + "    }\n"


def _record(record: Json) -> str:
    text = "\n" + _summary(record["doc"], "        ")
    text += f"        [StructLayout(LayoutKind.Sequential)]\n        public struct {record['as']}\n        {{\n"
    for member in record["fields"]:
        text += _summary(member["doc"] or member["name"], "            ")
        if member["type"] == "bool":
            text += "            [MarshalAs(UnmanagedType.I1)]\n"
        text += f"            public {_TYPES[member['type']].split('] ')[-1]} {member['name']};\n"
    return text + "        }\n"


def _callback(callback: Json) -> str:
    argument = {"void (*)(int)": "int value", "void (*)(char *)": "IntPtr text"}[callback["type"]]
    text = "\n" + _summary(callback["doc"] + " Keep a reference to it for as long as it is set.", "        ")
    text += "        [UnmanagedFunctionPointer(CallingConvention.Cdecl)]\n"
    return text + f"        public delegate void {callback['as']}({argument});\n"


def _colors() -> str:
    text = "\n        /// <summary>Colours by name, as 0xRRGGBB.</summary>\n"
    text += "        public static readonly IReadOnlyDictionary<string, int> Colors = new Dictionary<string, int>\n"
    text += "        {\n"
    for name, (red, green, blue) in COLORS.items():
        text += f'            {{ "{name}", 0x{red:02X}{green:02X}{blue:02X} }},\n'
    return text + "        };\n"


def _parameter(parameter: Json, callbacks: dict[str, str]) -> str:
    if parameter["role"].startswith("buffer"):
        return f"byte[] {parameter['name']}"
    return f"{callbacks.get(parameter['type']) or _TYPES[parameter['type']]} {parameter['name']}"


def _operation(operation: Json, api: Json) -> str:
    callbacks = {callback["name"]: callback["as"] for callback in api["callbacks"] if callback["as"]}
    parameters = ["int nDeviceType"] if operation["takesDeviceType"] else []
    parameters += [_parameter(parameter, callbacks) for parameter in operation["parameters"]]
    flag = operation["result"]["type"] == "bool"
    result = "bool" if flag else _TYPES[operation["result"]["type"]]
    text = ""
    for family in operation["families"]:
        text += "\n" + _summary(operation["doc"], "        ")
        remarks = " ".join(f"{p['name']}: {p['doc']}" for p in operation["parameters"] if p["doc"])
        if remarks:
            text += _summary(remarks, "        ", "remarks")
        if operation["result"]["doc"]:
            text += _summary(operation["result"]["doc"], "        ", "returns")
        text += "        [DllImport(Sdk, CallingConvention = CallingConvention.Cdecl)]\n"
        if flag:
            text += "        [return: MarshalAs(UnmanagedType.I1)]\n"
        line = f"        public static extern {result} {family}_{operation['name']}({', '.join(parameters)});"
        if len(line) > 120:
            rest = textwrap.wrap(", ".join(parameters) + ");", 104)
            line = f"        public static extern {result} {family}_{operation['name']}(\n"
            line += "\n".join(f"            {part}" for part in rest)
        text += line + "\n"
    return text
