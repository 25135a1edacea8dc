"""Writes the linker's list of exports: the header's functions, and the variables that programs know."""

from __future__ import annotations

from typing import Any

Json = dict[str, Any]

# The log's switch and buffers and the open instance. Only the first is in the header; programs have been built with all.
_VARIABLES = (
    "g_bEnableLog",
    "g_cKeyBuf",
    "g_cKeyBuf_InThread",
    "g_cValueBuf",
    "g_cValueBuf_InThread",
    "g_wszKeyBuf",
    "g_wszValueBuf",
)


def write(api: Json) -> str:
    functions = sorted(
        f"{family}_{operation['name']}" for operation in api["operations"] for family in operation["families"]
    )
    names = "".join(f"    {name};\n" for name in (*functions, *_VARIABLES))
    return "{\nglobal:\n" + names + "local:\n    *;\n};\n"
