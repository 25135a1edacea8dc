"""Writes Java's enumeration of the models."""

from __future__ import annotations

from typing import Any

Json = dict[str, Any]

_HEAD = """\
// Generated from the header by bindings/generate, not to be edited.
package com.korvane.signpad;

/** The pad models. */
public enum Model {
"""

_TAIL = """
    final int deviceType;
    final String prefix;

    Model(int deviceType, String prefix) {
        this.deviceType = deviceType;
        this.prefix = prefix;
    }
}
"""


def write(api: Json) -> str:
    models = [
        f"    /** {family['doc']} */\n"
        f"    {family['model']}(LowLevel.DeviceType.{family['model']}, \"{family['prefix']}\")"
        for family in api["families"]
    ]
    return _HEAD + ",\n".join(models) + ";\n" + _TAIL
