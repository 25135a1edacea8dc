"""Finds and loads the library, once a process."""

from __future__ import annotations

import ctypes
import os
import re
import threading

from . import lowlevel
from .errors import LibraryNotFound, VersionMismatch

_loading = threading.Lock()
_loaded: lowlevel.Library | None = None


def library() -> lowlevel.Library:
    """The library's functions. KVSIGNPAD_LIBRARY names another file than the installed one."""
    global _loaded
    with _loading:
        if _loaded is None:
            _loaded = _load(os.environ.get("KVSIGNPAD_LIBRARY") or "libkvsignpadsdk.so.1")
        return _loaded


def about() -> str:
    """The library's name, version and maker."""
    buffer = ctypes.create_string_buffer(256)
    library().KVS300_GetAboutInfo(lowlevel.DeviceType.S300, buffer)
    return buffer.value.decode()


def _load(path: str) -> lowlevel.Library:
    try:
        found = lowlevel.Library(path)
    except OSError as error:
        raise LibraryNotFound(
            f"{path} cannot be loaded ({error}): install the package libkvsignpadsdk1, or set KVSIGNPAD_LIBRARY"
        ) from error
    except AttributeError as error:
        raise VersionMismatch(f"{path} lacks a function ({error}): it is older than these bindings") from error
    _compare(found, path)
    return found


def _compare(found: lowlevel.Library, path: str) -> None:
    buffer = ctypes.create_string_buffer(256)
    found.KVS300_GetAboutInfo(lowlevel.DeviceType.S300, buffer)
    stated = re.search(r"Version : ([\d.]+)", buffer.value.decode(errors="replace"))
    there = _numbers(stated.group(1)) if stated else ()
    wanted = _numbers(lowlevel.VERSION)
    if not there or there[0] != wanted[0] or there < wanted:
        version = stated.group(1) if stated else "unknown"
        raise VersionMismatch(f"{path} has version {version}, these bindings want {lowlevel.VERSION} or a later one")


def _numbers(version: str) -> tuple[int, ...]:
    return tuple(int(part) for part in version.split("."))
