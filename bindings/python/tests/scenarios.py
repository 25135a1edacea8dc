"""Python's runner of the scenarios (bindings/scenarios/table.py says what each does)."""

from __future__ import annotations

import ctypes
import gc
import json
import os
import sys
import threading
import time
from pathlib import Path
from typing import Any, Callable

import kvsignpad
from kvsignpad import Pad, PadError, Tap

_MODEL, _DRIVER = sys.argv[2:4]
Answer = dict[str, Any]


def _open(model: str = _MODEL, driver: str = _DRIVER) -> Pad:
    pad = Pad(model, size=(400, 226), driver=driver)
    pad.pen(width=2, color="navy")
    assert ctypes.CDLL(f"{_DRIVER}/libkvsignpaddrv.so").KVSIM_EndDelay() == 0
    return pad


def _name(tap: Tap | None) -> str | None:
    return None if tap is None else tap.name.lower()


def _error(action: Callable[[], Any]) -> str | None:
    try:
        action()
    except PadError as error:
        return type(error).__name__
    except ValueError:
        return "InvalidArgument"
    return None


def capture() -> Answer:
    with _open() as pad:
        tap = pad.wait(timeout=60)
        Path("text.png").write_bytes(pad.png())
        Path("opaque.png").write_bytes(pad.png(transparent=False))
        Path("text.jpg").write_bytes(pad.jpeg())
        Path("text.bmp").write_bytes(pad.bmp())
        Path("text.svg").write_text(pad.svg(), encoding="utf-8")
        ink = pad.ink()
        Path("record.ink").write_bytes(ink.to_bytes())
        for ending in ("png", "jpg", "bmp", "pdf", "svg"):
            pad.save(f"saved.{ending}", dpi=300)
        return {"tap": _name(tap), "points": len(ink), "ends": sum(point.stroke_end for point in ink)}


def path() -> Answer:
    with _open() as pad:
        tap = pad.wait(timeout=60)
        pad.save("signature ✍️ 😀 ü.png")
        return {"tap": _name(tap)}


def cancel() -> Answer:
    with _open() as pad:
        return {"tap": _name(pad.wait()), "points": len(pad)}


def timeout() -> Answer:
    with _open() as pad:
        tap = pad.wait(timeout=0.3)
        picture, file = _error(pad.png), _error(lambda: pad.save("nothing.png"))
        return {"tap": _name(tap), "points": len(pad), "picture": picture, "file": file}


def unplug() -> Answer:
    with _open() as pad:
        return {"error": _error(lambda: pad.wait(timeout=60)), "points": len(pad)}


def fingerprint() -> Answer:
    with _open() as pad:
        before = _error(pad.fingerprint)
        pad.place_fingerprint((10, 20, 104, 144), canvas=(300, 200))
        outside = _error(lambda: pad.place_fingerprint((290, 20, 104, 144), canvas=(300, 200)))
        pad.place_fingerprint((10, 20, 104, 144), canvas=(300, 200))
        tap = pad.wait(timeout=60)
        Path("text.png").write_bytes(pad.png())
        Path("fingerprint.png").write_bytes(pad.fingerprint(only=True))
        return {"before": before, "outside": outside, "tap": _name(tap)}


def live() -> Answer:
    with _open() as pad:
        images, newest = 0, b""
        tapped = threading.Event()
        pad.on_tap(lambda tap: tapped.set())
        while not tapped.is_set():
            for newest in pad.live("PNG", timeout=0.05):
                images += 1
        for newest in pad.live("PNG", timeout=0):  # the last came before the tap
            images += 1
        Path("text.png").write_bytes(pad.png())
        return {"images": images > 1, "same": newest == pad.png()}


def _resident() -> int:
    return int(Path("/proc/self/statm").read_text().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def cycles() -> Answer:
    memory = files = 0
    for count in range(1000):
        with Pad(_MODEL, size=(400, 226), driver=_DRIVER) as pad:
            pad.on_tap(lambda tap: None)
        if count == 99:
            memory, files = _resident(), len(os.listdir("/proc/self/fd"))
    grown = _resident() - memory > 16 << 20 or len(os.listdir("/proc/self/fd")) > files
    return {"cycles": 1000, "grown": grown}


def collect() -> Answer:
    with _open() as pad:
        taps: list[Tap] = []
        pad.on_tap(taps.append)
        while not taps:
            gc.collect()
        return {"tap": _name(taps[0]), "points": len(pad)}


def inside() -> Answer:
    taps = 0
    pad = _open()
    for _ in pad.taps():
        taps += 1
        pad.close()
    _open().close()
    return {"taps": taps, "closed": pad.closed}


def exit() -> Answer:
    pad = _open()
    pad.on_tap(lambda tap: os._exit(7))
    threading.Event().wait()
    return {}


def forgotten() -> Answer:
    pad = _open()
    pad.on_tap(lambda tap: None)
    return {"open": not pad.closed}


def errors() -> Answer:
    os.mkdir("empty")
    driver = _error(lambda: _open(driver="empty"))
    nowhere = _error(lambda: _open(driver="not-there/below"))
    pad = _open()
    pad.wait(timeout=60)
    answer = {
        "nowhere": nowhere,
        "second": _error(lambda: Pad("S300", driver=_DRIVER)),
        "unsupported": _error(lambda: next(pad.live())),
        "width": _error(lambda: pad.pen(width=11)),
        "color": _error(lambda: pad.pen(color="nocolour")),
        "ending": _error(lambda: pad.save("signature")),
        "folder": _error(lambda: pad.save("missing/signature.png")),
    }
    pad.close()
    answer["closed"] = _error(lambda: len(pad))
    answer["driver"] = driver
    answer["model"] = _error(lambda: _open(model="S999"))
    return answer


def missing() -> Answer:
    return {"first": _error(_open), "again": _error(_open)}


def lowlevel() -> Answer:
    library = kvsignpad.library()
    before = os.getcwd()
    points = library.KVS300_GetTotalInkPointsNumber(5)
    _open().close()
    return {"functions": len(dir(library)), "points": points, "directory": os.getcwd() == before}


def bench() -> Answer:
    """For bench/languages: nanoseconds of a call as it is and through the class, milliseconds for all points."""
    library = kvsignpad.library()
    with _open() as pad:
        pad.wait(timeout=60)

        def timed(count: int, action: Callable[[], Any]) -> float:
            begin = time.perf_counter()
            for _ in range(count):
                action()
            return (time.perf_counter() - begin) / count

        raw = timed(20000, lambda: library.KVS300_GetTotalInkPointsNumber(5))
        call = timed(5000, lambda: len(pad))
        ink = timed(20, lambda: sum(point.x for point in pad.ink()))
        return {"raw_ns": raw * 1e9, "call_ns": call * 1e9, "ink_ms": ink * 1e3, "points": len(pad)}


if __name__ == "__main__":
    print(json.dumps(globals()[sys.argv[1]]()))
