"""Which language, and the linker, gets which generated file."""

from __future__ import annotations

from typing import Any, Callable

from . import cpp_file, csharp_file, java_file, java_models, map_file, node_file, python_file

_WRITERS: dict[str, Callable[[dict[str, Any]], str]] = {
    "python/kvsignpad/lowlevel.py": python_file.write,
    "java/src/com/korvane/signpad/LowLevel.java": java_file.write,
    "java/src/com/korvane/signpad/Model.java": java_models.write,
    "csharp/src/LowLevel.cs": csharp_file.write,
    "node/src/lowlevel.js": node_file.write,
    "node/src/models.d.ts": node_file.write_models,
    "../kvsignpadsdk/signpadtable.hpp": cpp_file.write,
    "../kvsignpadsdk/kvsignpadsdk.map": map_file.write,
}


def files(api: dict[str, Any]) -> dict[str, str]:
    """Each generated file's name, from bindings/, and contents."""
    return {name: write(api) for name, write in _WRITERS.items()}
