"""Writes C++'s table of functions by model, for kvsignpadsdk/signpad.hpp."""

from __future__ import annotations

from typing import Any

Json = dict[str, Any]

_HEAD = """\
/// @file
/// The functions of every family in one table: generated from the header by bindings/generate, not to be edited.
/// Part of signpad.hpp. A function that a family does not have is null.
#ifndef KVSIGNPADSDK_SIGNPADTABLE_HPP
#define KVSIGNPADSDK_SIGNPADTABLE_HPP

#include "kvsignpadsdk_global.h"

namespace kv {

/// The pad models.
enum class Model
{
%s};

} // namespace kv

namespace kv::detail {

/// The version of the header that this was made from.
inline constexpr const char *kVersion = "%s";

/// The device type is the first argument of all but the about box.
struct Family
{
    const char *model;
    int type;
"""


def _note(sentence: str) -> str:
    return sentence[0].lower() + sentence[1:].rstrip(".")


def write(api: Json) -> str:
    operations = api["operations"]
    models = "".join(f"    {family['model']}, ///< {_note(family['doc'])}\n" for family in api["families"])
    text = str(_HEAD % (models, api["version"]))
    for operation in operations:
        # Every family's function has the same type; the first that there is names it.
        text += f"    decltype(&{operation['families'][0]}_{operation['name']}) {operation['name']};\n"
    text += "};\n\n/// In the order of kv::Model.\ninline constexpr Family kFamilies[] = {\n"
    for family in api["families"]:
        prefix = family["prefix"]
        text += f"    {{\"{family['model']}\", {family['deviceType']},\n"
        for operation in operations:
            name = f"{prefix}_{operation['name']}" if prefix in operation["families"] else "nullptr"
            text += f"        {name},\n"
        text = text.rstrip(",\n") + "},\n"
    return text + "};\n\n} // namespace kv::detail\n\n#endif\n"
