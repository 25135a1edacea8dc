"""Handwritten signatures from signature pads.

    from kvsignpad import Pad, Tap

    with Pad("S300", size=(800, 452)) as pad:
        if pad.wait(timeout=60) is Tap.CONFIRM:
            pad.save("signature.pdf")
            ink = pad.ink()
"""

from .errors import (
    AlreadyOpen,
    CommandFailed,
    DriverNotFound,
    LibraryNotFound,
    NoInk,
    NotSaved,
    NotSupported,
    PadClosed,
    PadError,
    PadLost,
    PadNotFound,
    VersionMismatch,
    WrongThread,
)
from .info import PadInfo
from .ink import Ink, Point
from .lowlevel import VERSION as __version__
from .opening import open_pad
from .pad import Pad
from .receivers import Tap
from .sdk import about, library

__all__ = [
    "AlreadyOpen",
    "CommandFailed",
    "DriverNotFound",
    "Ink",
    "LibraryNotFound",
    "NoInk",
    "NotSaved",
    "NotSupported",
    "Pad",
    "PadClosed",
    "PadError",
    "PadInfo",
    "PadLost",
    "PadNotFound",
    "Point",
    "Tap",
    "VersionMismatch",
    "WrongThread",
    "__version__",
    "about",
    "library",
    "open_pad",
]
