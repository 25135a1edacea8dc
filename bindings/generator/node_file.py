"""Writes Node's low-level file: the functions through koffi, as they are, and their types."""

from __future__ import annotations

import json
import textwrap
from typing import Any

from .colors import COLORS

Json = dict[str, Any]

_HEAD = """\
// Generated from the header by bindings/generate, not to be edited.
//
// The library's functions as they are. Texts that it hands out are addresses here, and go back to the function that
// frees them. For everyday use there is open().

import koffi from 'koffi';

/** The version of the header that this was made from. */
export const VERSION = '%s';
"""

_TYPES = {
    "bool": "bool",
    "int": "int",
    "int16_t": "int16_t",
    "int32_t": "int32_t",
    "uint64_t": "uint64_t",
    "time_t": "int64_t",
    "double": "double",
    "void": "void",
    "void *": "_Out_ uint8_t *",
    "QWidget *": "void *",
    "wchar_t *": "wchar_t *",
    "char *": "void *",
    "const char *": "const char *",
    "const INKPOINTDATA *": "_Inout_ InkPointData *",
}


def write(api: Json) -> str:
    text = str(_HEAD % api["version"])
    text += "".join(_enumeration(enumeration) for enumeration in api["enumerations"])
    text += "\n/** Colours by name: red, green, blue. */\nexport const COLORS = Object.freeze({\n"
    text += "".join(f"    {name}: [{r}, {g}, {b}],\n" for name, (r, g, b) in COLORS.items()) + "});\n"
    text += "\n/** Each model's prefix and device type. */\nexport const FAMILIES = Object.freeze({\n"
    for family in api["families"]:
        text += f"    {family['model']}: ['{family['prefix']}', DeviceType.{family['model']}],\n"
    text += "});\n\n/** Which function takes a text back, by the operation that hands it out. */\n"
    text += "export const GIVES_BACK = Object.freeze({\n"
    for operation in api["operations"]:
        role, _, taker = operation["result"]["role"].partition(":")
        if role == "text":
            text += f"    {operation['name']}: '{taker}',\n"
    text += "});\n\nconst RECORDS = {\n" + "".join(_record(record) for record in api["records"]) + "};\n"
    text += "\n// Declared as C does; koffi reads them.\nconst FUNCTIONS = [\n"
    text += "".join(_operation(operation) for operation in api["operations"]) + "];\n"
    return text + _TAIL


_TAIL = """
/** Loads the library and gives its functions by their names. */
export function load(path) {
    for (const [name, fields] of Object.entries(RECORDS)) {
        if (!declared.has(name)) {
            koffi.struct(name, fields);
            declared.add(name);
        }
    }
    const library = koffi.load(path);
    return Object.fromEntries(
        FUNCTIONS.map((declaration) => {
            const name = declaration.slice(0, declaration.indexOf('(')).split(/[ *]/).pop();
            return [name, library.func(declaration)];
        }),
    );
}

const declared = new Set();
"""


def _comment(text: str) -> str:
    words = " ".join(text.split())
    if len(words) <= 110:
        return f"/** {words} */\n"
    return "/**\n" + "".join(f" * {line}\n" for line in textwrap.wrap(words, 114)) + " */\n"


def _enumeration(enumeration: Json) -> str:
    text = "\n" + _comment(enumeration["doc"]) + f"export const {enumeration['as']} = Object.freeze({{\n"
    for value in enumeration["values"]:
        remark = f" // {value['doc']}" if value["doc"] else ""
        text += f"    {value['as']}: {value['value']},{remark}\n"
    return text + "});\n"


def _record(record: Json) -> str:
    fields = ", ".join(f"{member['name']}: '{_TYPES[member['type']]}'" for member in record["fields"])
    lines = textwrap.wrap(fields, 108)
    if len(lines) == 1 and len(fields) < 96:
        return f"    {record['as']}: {{ {fields} }},\n"
    return f"    {record['as']}: {{\n" + "".join(f"        {line}\n" for line in lines) + "    },\n"


def _parameter(parameter: Json) -> str:
    if parameter["role"].startswith("buffer"):
        return f"_Out_ uint8_t *{parameter['name']}"
    if parameter["role"].startswith("callback"):
        return f"void *{parameter['name']}"
    declared = _TYPES[parameter["type"]]
    return f"{declared}{parameter['name']}" if declared.endswith("*") else f"{declared} {parameter['name']}"


def _operation(operation: Json) -> str:
    parameters = ["int nDeviceType"] if operation["takesDeviceType"] else []
    parameters += [_parameter(parameter) for parameter in operation["parameters"]]
    result = "void *" if operation["result"]["type"] == "char *" else _TYPES[operation["result"]["type"]] + " "
    text = "".join(f"    // {line}\n" for line in textwrap.wrap(" ".join(operation["doc"].split()), 112))
    for family in operation["families"]:
        text += f"    {json.dumps(f'{result}{family}_' + operation['name'] + '(' + ', '.join(parameters) + ')')},\n"
    return text.replace('"', "'") if "'" not in text else text


def write_models(api: Json) -> str:
    """The type of a model's name, for index.d.ts."""
    models = " | ".join(f"'{family['model']}'" for family in api["families"])
    return f"// Generated from the header by bindings/generate, not to be edited.\nexport type Model = {models};\n"
