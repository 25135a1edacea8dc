"""The sixteen basic colours of CSS and a few inks, by name: the same in every language."""

from __future__ import annotations

COLORS: dict[str, tuple[int, int, int]] = {
    "aqua": (0, 255, 255),
    "black": (0, 0, 0),
    "blue": (0, 0, 255),
    "darkblue": (0, 0, 139),
    "darkgreen": (0, 100, 0),
    "darkred": (139, 0, 0),
    "fuchsia": (255, 0, 255),
    "gray": (128, 128, 128),
    "green": (0, 128, 0),
    "indigo": (75, 0, 130),
    "lime": (0, 255, 0),
    "maroon": (128, 0, 0),
    "midnightblue": (25, 25, 112),
    "navy": (0, 0, 128),
    "olive": (128, 128, 0),
    "purple": (128, 0, 128),
    "red": (255, 0, 0),
    "silver": (192, 192, 192),
    "teal": (0, 128, 128),
    "white": (255, 255, 255),
    "yellow": (255, 255, 0),
}
