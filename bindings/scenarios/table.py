"""The scenarios: what every language's bindings are put through, and what must come of it.

A language's runner is a program that is started as

    RUNNER SCENARIO MODEL DRIVER-DIRECTORY

in an empty directory, with the simulator's settings in its environment. It does what the scenario's text says, through
the language's own Pad class, writes the named files into the working directory and ends with one line of JSON on its
standard output. Errors are told by their names, which are the same in every language.

The simulated pad begins to write when the runner has called KVSIM_EndDelay of the loaded driver, which it does after it
has opened the pad and set the pen.
"""

from __future__ import annotations

import json
from dataclasses import dataclass, field
from pathlib import Path
from typing import Any

_API = json.loads((Path(__file__).resolve().parent.parent / "api.json").read_text(encoding="utf-8"))
ALL = tuple(family["model"] for family in _API["families"])

# What `pad.save` and the picture functions write, compared with what C gets.
PICTURES = ("text.png", "opaque.png", "text.jpg", "text.bmp", "text.svg")
FILES = ("saved.png", "saved.jpg", "saved.bmp", "saved.pdf", "saved.svg")


@dataclass(frozen=True)
class Scenario:
    name: str
    text: str
    """What the runner does."""
    answer: dict[str, Any]
    """What its line of JSON says. POINTS stands for the number of points in the recording, a set for one of these."""
    models: tuple[str, ...] = ("S300",)
    recording: str = "signature"
    settings: dict[str, str] = field(default_factory=dict)
    exit_code: int = 0
    compared: tuple[str, ...] = ()
    """Files that must be those that C writes."""
    action: str = ""
    """The scenario by whose name the runner is started, when it is not its own."""
    version: str = ""
    """Runs with a stand-in for the library that says it has this version, and whose functions do nothing."""


POINTS = "the recording's points"

SCENARIOS = (
    Scenario(
        "capture",
        "Opens the pad with 400 by 226 pixels, pen width 2, colour navy. Waits 60 s for a tap. Takes text.png (white "
        "see-through), opaque.png, text.jpg, text.bmp, text.svg; record.ink, the ink record's bytes; and saves "
        "saved.png, .jpg, .bmp, .pdf, .svg at 300 dpi. Closes. points: those of the ink object; ends: how many of them "
        "close a stroke.",
        {"tap": "confirm", "points": POINTS, "ends": 2},
        models=ALL,
        compared=(*PICTURES, *FILES, "record.ink"),
    ),
    Scenario(
        "path",
        "As capture, but saves only 'signature ✍️ 😀 ü.png'.",
        {"tap": "confirm"},
        compared=("signature ✍️ 😀 ü.png",),
    ),
    Scenario(
        "cancel",
        "Waits for ever for a tap, says which it was and how many points there are.",
        {"tap": "cancel", "points": POINTS},
        models=ALL,
        recording="tick-and-cross",
    ),
    Scenario(
        "timeout",
        "Waits 0.3 s for a tap that does not come; there is no ink: the picture, and a file to save, are refused.",
        {"tap": None, "points": 0, "picture": "NoInk", "file": "NoInk"},
        recording="none",
    ),
    Scenario(
        "unplug",
        "Waits 60 s; the pad is pulled out meanwhile. Says the error, and how many points are still there.",
        {"error": "PadLost", "points": 4},
        recording="unplugged.kvrec",
    ),
    Scenario(
        "fingerprint",
        "Asks for the fingerprint's picture, which has no place yet. Places it at (10, 20), 104 by 144 pixels, on a "
        "canvas of 300 by 200, and outside of it, which is refused. Waits for the tap. Takes text.png and "
        "fingerprint.png, cut to its rectangle.",
        {"before": "NotSupported", "outside": "InvalidArgument", "tap": "confirm"},
        models=("S310X",),
        recording="signature-finger",
        compared=("text.png", "fingerprint.png"),
    ),
    Scenario(
        "live",
        "Reads live PNG images until the tap. images: whether there was more than one; same: whether the newest, read "
        "after the tap, is text.png.",
        {"images": True, "same": True},
        models=("S210",),
        compared=("text.png",),
    ),
    Scenario(
        "cycles",
        "Opens and closes the pad 1,000 times while pen packets come as fast as they can be taken, with a receiver of "
        "taps set. grown: whether the process's memory grew by more than 16 MB, or its open files at all, from the "
        "100th time to the last.",
        {"cycles": 1000, "grown": False},
        settings={"KVSIM_SPEED": "max", "KVSIM_DELAY_MS": "0", "KVSIM_REPEAT": "0"},
    ),
    Scenario(
        "collect",
        "Forces the garbage collector as often as it can while packets come, until the tap.",
        {"tap": "confirm", "points": POINTS},
    ),
    Scenario(
        "inside",
        "Closes the pad from inside the loop or the receiver that is told of the first tap, while packets come. taps: how "
        "many it was told of. Then opens a pad again and closes it.",
        {"taps": 1, "closed": True},
        settings={"KVSIM_REPEAT": "0"},
    ),
    Scenario(
        "exit",
        "Ends the process with exit code 7 from inside its receiver of taps, with the pad open and packets coming.",
        {},
        settings={"KVSIM_REPEAT": "0", "KVSIM_DELAY_MS": "0"},
        exit_code=7,
    ),
    Scenario(
        "forgotten",
        "Opens the pad, sets a receiver of taps, and ends without closing it while packets come.",
        {"open": True},
        settings={"KVSIM_SPEED": "max", "KVSIM_REPEAT": "0", "KVSIM_DELAY_MS": "0"},
    ),
    Scenario(
        "errors",
        "Opens with a driver's folder that is empty, and with one that is not there. With the pad open: opens a second one; asks a pad without that for "
        "live images; sets pen width 11; names an unknown colour; saves to a name without an ending, and into a folder "
        "that is not there. Then closes it, and asks for the points. Then opens an unknown model.",
        {
            "second": "AlreadyOpen",
            "unsupported": "NotSupported",
            "width": "InvalidArgument",
            "color": "InvalidArgument",
            "ending": "InvalidArgument",
            "folder": "NotSaved",
            "closed": "PadClosed",
            "driver": "DriverNotFound",
            "nowhere": "DriverNotFound",
            "model": "InvalidArgument",
        },
    ),
    Scenario(
        "missing",
        "Opens a pad that is not at the cable; says the error; opens again after that says the same.",
        {"first": "PadNotFound", "again": "PadNotFound"},
        recording="not-there.kvrec",
    ),
    Scenario(
        "lowlevel",
        "Counts the library's functions that can be called directly, and calls KVS300_GetTotalInkPointsNumber without "
        "a pad. directory: whether the process is still in the directory that it was started in, after a pad was "
        "opened and closed.",
        {"functions": 156, "points": -8, "directory": True},
    ),
    Scenario(
        "older",
        "Opens a pad, twice, with a library that is older than the bindings.",
        {"first": "VersionMismatch", "again": "VersionMismatch"},
        action="missing",
        version="1.0.4.9",
    ),
    Scenario(
        "major",
        "The same with a library of the next major version.",
        {"first": "VersionMismatch", "again": "VersionMismatch"},
        action="missing",
        version="2.0.0.0",
    ),
    Scenario(
        "later",
        "The same with a later library of this major version, which serves: it is asked for the pad, and has none.",
        {"first": "PadNotFound", "again": "PadNotFound"},
        action="missing",
        version="1.10.0.0",
    ),
)
