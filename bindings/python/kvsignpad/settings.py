"""Reads what a caller says of colours, margins and files."""

from __future__ import annotations

import operator
import os
import re
from typing import Tuple, Union

from . import lowlevel
from .lowlevel import ImageType

Color = Union[str, Tuple[int, int, int]]

_MOST = 2**31 - 1  # of a C int

_SUFFIXES = {
    ".bmp": ImageType.BITMAP,
    ".jpg": ImageType.JPEG,
    ".jpeg": ImageType.JPEG,
    ".png": ImageType.PNG,
    ".pdf": ImageType.PDF,
    ".svg": ImageType.SVG,
}


def color(value: Color) -> tuple[int, int, int]:
    """Red, green and blue of a name, of "#rrggbb", or of three numbers from 0 to 255."""
    if isinstance(value, str):
        if value.lower() in lowlevel.COLORS:
            return lowlevel.COLORS[value.lower()]
        hexadecimal = re.fullmatch(r"#([0-9a-fA-F]{2})([0-9a-fA-F]{2})([0-9a-fA-F]{2})", value)
        if not hexadecimal:
            known = ", ".join(lowlevel.COLORS)
            raise ValueError(f"{value!r} is no colour: write #rrggbb, three numbers, or one of {known}")
        red, green, blue = (int(part, 16) for part in hexadecimal.groups())
        return red, green, blue
    red, green, blue = value
    if not all(0 <= part <= 255 for part in (red, green, blue)):
        raise ValueError(f"{value!r}: red, green and blue are numbers from 0 to 255")
    return red, green, blue


def canvas(size: tuple[int, int]) -> tuple[int, int]:
    """Width and height in pixels."""
    across, down = (operator.index(value) for value in size)
    if not (1 <= across <= _MOST and 1 <= down <= _MOST):
        raise ValueError(f"a canvas has one pixel or more, and its sides fit into an int: not {size!r}")
    return across, down


def margins(value: int | tuple[int, int]) -> tuple[int, int]:
    """Margins across and down, in pixels."""
    across, down = (value, value) if isinstance(value, int) else value
    if not (0 <= across <= _MOST and 0 <= down <= _MOST):
        raise ValueError(f"a margin is 0 pixels or more, and fits into an int: not {value!r}")
    return across, down


def file_type(path: str | bytes | os.PathLike[str], transparent: bool) -> tuple[str, ImageType]:
    """The file's whole name, and what the library is to write into it."""
    name = os.path.abspath(os.fsdecode(path))
    if "\0" in name:
        raise ValueError("a file's name holds no zero character")
    suffix = os.path.splitext(name)[1].lower()
    if suffix not in _SUFFIXES:
        raise ValueError(f"{name}: its name ends in one of {', '.join(_SUFFIXES)}")
    kind = _SUFFIXES[suffix]
    if kind is ImageType.PNG and not transparent:
        kind = ImageType.BITMAP  # the suffix chooses the format, the type only whether white becomes transparent
    return name, kind


def dpi_level(dpi: int) -> lowlevel.DpiLevel:
    if dpi not in (150, 300):
        raise ValueError(f"files have 150 or 300 dots per inch, not {dpi}")
    return lowlevel.DpiLevel.DPI_150 if dpi == 150 else lowlevel.DpiLevel.DPI_300
