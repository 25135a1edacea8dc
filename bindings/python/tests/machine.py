"""A machine of states: Hypothesis opens, writes, taps, clears and closes in any order, beside a model in plain Python.

    LD_LIBRARY_PATH=build/release/kvsignpadsdk PYTHONPATH=bindings/python python3 bindings/python/tests/machine.py DRIVER
"""

from __future__ import annotations

import ctypes
import os
import sys
import unittest
from typing import Any

from hypothesis import HealthCheck, settings, strategies as st
from hypothesis.stateful import RuleBasedStateMachine, initialize, invariant, precondition, rule

from kvsignpad import AlreadyOpen, NoInk, Pad, PadClosed, Tap

DRIVER = os.path.abspath(sys.argv.pop(1))
DOWN, MOVE, UP, CANCEL, CONFIRM = range(5)


class Packet(ctypes.Structure):
    _fields_ = [("x", ctypes.c_int), ("y", ctypes.c_int), ("pressure", ctypes.c_int), ("status", ctypes.c_int)]


raw = st.integers(-32768, 32767)
pressures = st.integers(0, 2048)


class Signing(RuleBasedStateMachine):
    """The model: the points that must be stored, whether the pen is down, and the taps that nobody has taken."""

    def __init__(self) -> None:
        super().__init__()
        self.simulator = ctypes.CDLL(os.path.join(DRIVER, "libkvsignpaddrv.so"))
        self.pad: Pad | None = None

    @initialize(model=st.sampled_from(["S210", "S300", "S310X", "R800", "M450"]))
    def open_first(self, model: str) -> None:
        self.open(model)

    def open(self, model: str) -> None:
        self.pad = Pad(model, size=(60, 40), driver=DRIVER)
        self.points: list[tuple[int, int, int, bool]] = []
        self.down = False
        self.taps: list[Tap] = []

    def send(self, x: int, y: int, pressure: int, status: int) -> None:
        sent = self.simulator.KVSIM_SendPackets(ctypes.byref(Packet(x, y, pressure, status)), 1)
        assert sent == 1

    @precondition(lambda self: self.pad is not None)
    @rule(x=raw, y=raw, pressure=pressures)
    def pen_down(self, x: int, y: int, pressure: int) -> None:
        self.send(x, y, pressure, DOWN)
        self.points.append((x, y, pressure, False))
        self.down = True

    @precondition(lambda self: self.pad is not None)
    @rule(x=raw, y=raw, pressure=pressures)
    def pen_move(self, x: int, y: int, pressure: int) -> None:
        self.send(x, y, pressure, MOVE)
        if self.down:
            self.points.append((x, y, pressure, False))

    @precondition(lambda self: self.pad is not None)
    @rule(x=raw, y=raw)
    def pen_up(self, x: int, y: int) -> None:
        self.send(x, y, 0, UP)
        if self.down and self.points:
            self.points.append((*self.points[-1][:3], True))
        self.down = False

    @precondition(lambda self: self.pad is not None)
    @rule(tap=st.sampled_from(list(Tap)))
    def tap(self, tap: Tap) -> None:
        self.send(0, 0, 0, CONFIRM if tap is Tap.CONFIRM else CANCEL)
        self.taps.append(tap)
        self.down = False

    @precondition(lambda self: self.pad is not None)
    @rule()
    def take_tap(self) -> None:
        assert self.pad is not None
        expected = self.taps.pop(0) if self.taps else None
        assert self.pad.wait(timeout=30 if expected else 0) is expected

    @precondition(lambda self: self.pad is not None)
    @rule()
    def clear(self) -> None:
        assert self.pad is not None
        self.pad.clear()
        self.points.clear()

    @precondition(lambda self: self.pad is not None)
    @rule(width=st.integers(1, 10), color=st.tuples(*[st.integers(0, 255)] * 3), pressure=st.booleans())
    def pen(self, width: int, color: Any, pressure: bool) -> None:
        assert self.pad is not None
        self.pad.pen(width=width, color=color, pressure=pressure)

    @precondition(lambda self: self.pad is not None)
    @rule()
    def picture(self) -> None:
        assert self.pad is not None
        try:
            assert self.pad.png().startswith(b"\x89PNG")
            assert self.points
        except NoInk:
            assert not self.points

    @precondition(lambda self: self.pad is not None)
    @rule()
    def open_second(self) -> None:
        try:
            Pad("S300", driver=DRIVER)
            raise AssertionError("a second pad was opened")
        except AlreadyOpen:
            pass

    @precondition(lambda self: self.pad is not None)
    @rule(model=st.sampled_from(["S210", "S300", "S310X", "R800", "M450"]))
    def close_and_open(self, model: str) -> None:
        closed = self.pad
        assert closed is not None
        closed.close()
        try:
            len(closed)
            raise AssertionError("a closed pad answered")
        except PadClosed:
            pass
        self.open(model)

    @invariant()
    def ink_is_the_models(self) -> None:
        if self.pad is not None:
            assert len(self.pad) == len(self.points)
            assert [tuple(point[:4]) for point in self.pad.ink()] == self.points

    def teardown(self) -> None:
        if self.pad is not None:
            self.pad.close()


Signing.TestCase.settings = settings(
    max_examples=60, stateful_step_count=40, deadline=None, suppress_health_check=list(HealthCheck)
)
TestSigning = Signing.TestCase

if __name__ == "__main__":
    unittest.main()
