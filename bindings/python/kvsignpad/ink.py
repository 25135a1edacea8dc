"""The ink itself: every point with its pressure and time."""

from __future__ import annotations

import base64
import datetime
import struct
from typing import Any, Iterator, NamedTuple, Sequence, overload

_ENTRY = struct.Struct("<hhhBxQq")


class Point(NamedTuple):
    """One point, in the pad's raw units.

    A stroke is closed by a copy of its last point with `stroke_end` set. `tick` counts milliseconds of a clock that
    nobody sets, `time` is the wall clock's second.
    """

    x: int
    y: int
    pressure: int
    stroke_end: bool
    tick: int
    time: datetime.datetime


class Ink(Sequence[Point]):
    """The points of a signature, in the order in which they were written. In a notebook it shows itself."""

    def __init__(self, record: bytes, *, max_pressure: int = 2048) -> None:
        """Takes the ink record: 24 bytes a point; what is left over at its end is ignored."""
        count = len(record) // _ENTRY.size
        self._record = record[: count * _ENTRY.size]
        self.max_pressure = max_pressure

    @classmethod
    def from_base64(cls, text: str | bytes, *, max_pressure: int = 2048) -> Ink:
        """From the text that the library's Base64Encode gives for EBITI_INK."""
        return cls(base64.b64decode(text), max_pressure=max_pressure)

    def to_bytes(self) -> bytes:
        """The ink record, as `kvsign` and the library's Base64Decode read it."""
        return self._record + b"\0"

    def __len__(self) -> int:
        return len(self._record) // _ENTRY.size

    @overload
    def __getitem__(self, index: int) -> Point: ...

    @overload
    def __getitem__(self, index: slice) -> list[Point]: ...

    def __getitem__(self, index: int | slice) -> Point | list[Point]:
        if isinstance(index, slice):
            return [self[i] for i in range(*index.indices(len(self)))]
        if index < 0:
            index += len(self)
        if not 0 <= index < len(self):
            raise IndexError("the ink has no such point")
        return _point(_ENTRY.unpack_from(self._record, index * _ENTRY.size))

    def __iter__(self) -> Iterator[Point]:
        return map(_point, _ENTRY.iter_unpack(self._record))

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Ink) and self._record == other._record

    def __hash__(self) -> int:
        return hash(self._record)

    def __repr__(self) -> str:
        return f"<Ink of {len(self)} points in {len(self.strokes())} strokes>"

    def strokes(self) -> list[list[Point]]:
        """The points stroke by stroke, without the copies that close them.

        A stroke that a tap on the pad's buttons cut short has no such copy: the next pen down begins a new stroke in
        the record too, but cannot be told from a move. It is then part of the stroke before it.
        """
        result: list[list[Point]] = []
        current: list[Point] = []
        for point in self:
            if not point.stroke_end:
                current.append(point)
            elif current:
                result.append(current)
                current = []
        if current:
            result.append(current)
        return result

    def to_numpy(self) -> Any:
        """A structured array with the fields x, y, pressure, stroke_end, tick and time (seconds). Needs numpy."""
        import numpy  # only here: nothing else needs it

        entry = numpy.dtype(
            {
                "names": ["x", "y", "pressure", "stroke_end", "tick", "time"],
                "formats": ["<i2", "<i2", "<i2", "?", "<u8", "<i8"],
                "offsets": [0, 2, 4, 6, 8, 16],
                "itemsize": _ENTRY.size,
            }
        )
        return numpy.frombuffer(self._record, dtype=entry)

    def svg(self, *, color: str = "black", width: float = 800.0) -> str:
        """A drawing of the ink alone, cut to it, `width` wide. (A pad's `svg()` has the canvas's own size.)"""
        strokes = self.strokes()
        if not strokes:
            return '<svg xmlns="http://www.w3.org/2000/svg" width="1" height="1"/>'
        points = [point for stroke in strokes for point in stroke]
        left, top = min(p.x for p in points), min(p.y for p in points)
        across = max(max(p.x for p in points) - left, 1)
        down = max(max(p.y for p in points) - top, 1)
        pen = max(across, down) / 60
        lines = "".join(
            f'<line x1="{a.x}" y1="{a.y}" x2="{b.x}" y2="{b.y}" '
            f'stroke-width="{pen * max(b.pressure, 0) / self.max_pressure:.2f}"/>'
            for stroke in strokes
            for a, b in zip(stroke, stroke[1:])
        )
        box = f"{left - pen:.1f} {top - pen:.1f} {across + 2 * pen:.1f} {down + 2 * pen:.1f}"
        height = width * (down + 2 * pen) / (across + 2 * pen)
        return (
            f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="{box}" width="{width:g}" height="{height:.1f}">'
            f'<g stroke="{color}" stroke-linecap="round">{lines}</g></svg>'
        )

    def _repr_svg_(self) -> str:
        return self.svg(width=400.0)


def _point(fields: tuple[Any, ...]) -> Point:
    x, y, pressure, stroke_end, tick, seconds = fields
    return Point(x, y, pressure, bool(stroke_end), tick, _moment(seconds))


def _moment(seconds: int) -> datetime.datetime:
    """The moment in local time; a record from elsewhere may hold one that no calendar has."""
    try:
        return datetime.datetime.fromtimestamp(seconds, datetime.timezone.utc).astimezone()
    except (ValueError, OverflowError, OSError):
        return datetime.datetime.max if seconds > 0 else datetime.datetime.min
