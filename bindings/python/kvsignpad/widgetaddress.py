"""The address of the program's widget in which a pad shows its canvas."""

from __future__ import annotations

import importlib
from typing import Any


def widget_address(parent: Any) -> int:
    """The QWidget's address: of a widget of PyQt5 or PySide2, or a number that already is one.

    The program's Qt must be the system's Qt 5, the one that the library uses.
    """
    if isinstance(parent, int):
        return parent
    for module, function in (("PyQt5.sip", "unwrapinstance"), ("sip", "unwrapinstance"), ("shiboken2", "getCppPointer")):
        try:
            found = getattr(importlib.import_module(module), function)(parent)
        except (ImportError, TypeError):
            continue
        return int(found[0] if isinstance(found, tuple) else found)
    raise TypeError("parent is a widget of PyQt5 or PySide2, or a QWidget's address")
