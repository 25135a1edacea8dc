"""Python's bindings inside other programs: asyncio, a notebook, numpy, a window of PyQt5, a forked child.

    python3 surroundings.py DRIVER
"""

from __future__ import annotations

import asyncio
import os
import sys
import tempfile
import threading
import unittest
import xml.dom.minidom
from pathlib import Path
from typing import Callable

import numpy
from PyQt5.QtWidgets import QApplication, QWidget

from kvsignpad import AlreadyOpen, DriverNotFound, Ink, NotSupported, Pad, PadClosed, PadError, PadLost, Tap, WrongThread, open_pad

DRIVER = sys.argv.pop(1)
RECORDINGS = Path(__file__).resolve().parents[3] / "bindings" / "scenarios" / "recordings"


class Environment:
    """One variable's value for the time of a block."""

    def __init__(self, name: str, value: str) -> None:
        self._name, self._value = name, value

    def __enter__(self) -> None:
        self._before = os.environ.get(self._name)
        os.environ[self._name] = self._value

    def __exit__(self, *_: object) -> None:
        del os.environ[self._name]
        if self._before is not None:
            os.environ[self._name] = self._before


class Asyncio(unittest.TestCase):
    def test_taps_and_live_images(self) -> None:
        async def capture() -> tuple[Tap | None, int, bytes, bytes]:
            images = []
            async with Pad("S210", size=(200, 120), driver=DRIVER) as pad:

                async def read() -> None:
                    async for image in pad.live_async("PNG"):
                        images.append(image)

                reading = asyncio.ensure_future(read())
                tap = await pad.tapped(timeout=60)
                while not images or images[-1] != pad.png():
                    await asyncio.sleep(0.01)
                picture = pad.png()
                pad.close()
                await asyncio.wait_for(reading, 60)
                return tap, len(images), images[-1], picture

        tap, count, newest, picture = asyncio.run(capture())
        self.assertIs(tap, Tap.CONFIRM)
        self.assertGreater(count, 1)
        self.assertEqual(newest, picture)

    def test_timeout_and_loss(self) -> None:
        async def wait(recording: str, timeout: float) -> Tap | None:
            with Environment("KVSIM_RECORDING", recording):
                async with Pad("S300", driver=DRIVER) as pad:
                    return await pad.tapped(timeout=timeout)

        self.assertIsNone(asyncio.run(wait("none", 0.1)))
        with self.assertRaises(PadLost):
            asyncio.run(wait(str(RECORDINGS / "unplugged.kvrec"), 60))

    def test_cancelled_task_leaves_the_pad_alone(self) -> None:
        async def cancel() -> int:
            with Environment("KVSIM_RECORDING", "none"):
                async with Pad("S300", driver=DRIVER) as pad:
                    with self.assertRaises(asyncio.TimeoutError):
                        await asyncio.wait_for(pad.tapped(), 0.05)
                    return len(pad)

        self.assertEqual(asyncio.run(cancel()), 0)


class Threads(unittest.TestCase):
    def test_used_and_closed_on_other_threads(self) -> None:
        found: list[int] = []
        pads: list[Pad] = []
        opening = threading.Thread(target=lambda: pads.append(Pad("S300", driver=DRIVER)))
        opening.start()
        opening.join()
        pad = pads[0]
        self.assertIs(pad.wait(timeout=60), Tap.CONFIRM)
        threads = [threading.Thread(target=lambda: found.append(len(pad.ink()))) for _ in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(found, [763] * 8)
        pad.close()
        self.assertIsNone(open_pad())

    def test_handler_that_raises_hears_the_next_tap_too(self) -> None:
        heard: list[Tap] = []
        told: list[type[BaseException]] = []
        enough = threading.Event()
        before, threading.excepthook = threading.excepthook, lambda arguments: told.append(arguments.exc_type)
        try:
            with Environment("KVSIM_REPEAT", "0"), Environment("KVSIM_RECORDING", "tick-and-cross"):
                with Pad("S300", driver=DRIVER) as pad:

                    def handle(tap: Tap) -> None:
                        heard.append(tap)
                        if len(heard) == 2:
                            enough.set()
                        raise ValueError("a receiver's own trouble")

                    pad.on_tap(handle)
                    self.assertTrue(enough.wait(60))
        finally:
            threading.excepthook = before
        self.assertEqual(heard[:2], [Tap.CANCEL] * 2)
        self.assertIs(told[0], ValueError)

    def test_waiting_thread_is_told_that_the_pad_was_closed(self) -> None:
        with Environment("KVSIM_RECORDING", "none"):
            pad = Pad("S300", driver=DRIVER)
        answers: list[Tap | None] = []
        waiting = threading.Thread(target=lambda: answers.append(pad.wait()))
        waiting.start()
        pad.close()
        waiting.join(60)
        self.assertFalse(waiting.is_alive())
        with self.assertRaises(PadClosed):
            pad.wait(timeout=0)

    def test_forked_child_is_refused_and_ends(self) -> None:
        with Environment("KVSIM_RECORDING", "none"), Pad("S300", driver=DRIVER) as pad:
            child = os.fork()
            if child == 0:
                try:
                    len(pad)
                except PadError:
                    os._exit(5)
                os._exit(1)
            self.assertEqual(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), 5)
            self.assertEqual(len(pad), 0)

    def _in_child(self, work: Callable[[], bool]) -> int:
        """The exit code of a forked child: 5 when the work is done and answers true."""
        child = os.fork()
        if child == 0:
            try:
                os._exit(5 if work() else 1)
            finally:
                os._exit(2)
        return os.waitstatus_to_exitcode(os.waitpid(child, 0)[1])

    def test_forked_child_opens_a_pad_of_its_own(self) -> None:
        def capture() -> bool:
            with Pad("S300", driver=DRIVER) as pad:
                return pad.wait(timeout=60) is Tap.CONFIRM and len(pad) == 763

        with Environment("KVSIM_RECORDING", "none"):
            Pad("S300", driver=DRIVER).close()
        self.assertEqual(self._in_child(capture), 5)

    def test_forked_child_leaves_its_parents_pad_alone(self) -> None:
        def open_and_close() -> bool:
            pad = open_pad()
            assert pad is not None
            pad.close()
            try:
                Pad("S300", driver=DRIVER)
            except AlreadyOpen:
                return not pad.closed
            return False

        with Environment("KVSIM_DELAY_MS", "500"), Pad("S300", driver=DRIVER) as pad:
            self.assertEqual(self._in_child(open_and_close), 5)
            self.assertIs(pad.wait(timeout=60), Tap.CONFIRM)


class WrongUse(unittest.TestCase):
    def test_folder_that_cannot_be_entered(self) -> None:
        for folder in ("missing", __file__):
            with self.assertRaises(DriverNotFound):
                Pad("S300", driver=folder)
            self.assertIsNone(open_pad())

    def test_sizes_that_no_int_holds(self) -> None:
        for size in ((2**32 + 10, 10), (10, 0), (10, -1)):
            with self.assertRaises(ValueError):
                Pad("S300", size=size, driver=DRIVER)
            self.assertIsNone(open_pad())

    def test_pad_closed_by_who_reads_its_taps_and_images(self) -> None:
        taps = []
        with Pad("S210", driver=DRIVER) as pad:
            for tap in pad.taps():
                taps.append(tap)
                pad.close()
        self.assertEqual(taps, [Tap.CONFIRM])
        images = 0
        with Pad("S210", driver=DRIVER) as pad:
            for _ in pad.live("PNG"):
                images += 1
                pad.close()
        self.assertEqual(images, 1)

    def test_second_handler_takes_the_first_ones_place(self) -> None:
        tapped = threading.Event()
        with Environment("KVSIM_RECORDING", "signature"), Pad("S300", driver=DRIVER) as pad:
            pad.on_tap(lambda tap: None)
            first = [thread for thread in threading.enumerate() if thread.name == "kvsignpad taps"]
            pad.on_tap(lambda tap: tapped.set())
            first[-1].join(60)
            self.assertFalse(first[-1].is_alive())
            self.assertTrue(tapped.wait(60))

    def test_values_that_make_no_sense(self) -> None:
        with Environment("KVSIM_RECORDING", "none"), Pad("S310X", driver=DRIVER) as pad:
            with self.assertRaises(ValueError):
                pad.fingerprint("GIF")
            with self.assertRaises(ValueError):
                pad.pen(width=2.5)  # type: ignore[arg-type]
            with self.assertRaises(ValueError):
                pad.clip(2**31)

    def test_a_file_named_by_bytes(self) -> None:
        with tempfile.TemporaryDirectory() as place, Pad("S300", driver=DRIVER) as pad:
            pad.wait(timeout=60)
            name = os.path.join(os.fsencode(place), "ü.png".encode())
            pad.save(name)
            self.assertTrue(os.path.exists(name))


class Notebook(unittest.TestCase):
    def test_ink_shows_itself(self) -> None:
        with Pad("R800", driver=DRIVER) as pad:
            pad.wait(timeout=60)
            ink = pad.ink()
        drawing = xml.dom.minidom.parseString(ink._repr_svg_())
        moves = sum(len(stroke) - 1 for stroke in ink.strokes())
        self.assertEqual(len(drawing.getElementsByTagName("line")), moves)
        self.assertEqual(xml.dom.minidom.parseString(Ink(b"")._repr_svg_()).documentElement.tagName, "svg")

    def test_numpy(self) -> None:
        with Pad("S300", driver=DRIVER) as pad:
            pad.wait(timeout=60)
            ink = pad.ink()
        table = ink.to_numpy()
        self.assertEqual(list(table["x"]), [point.x for point in ink])
        self.assertEqual(list(table["stroke_end"]), [point.stroke_end for point in ink])
        self.assertEqual(list(table["tick"]), [point.tick for point in ink])
        self.assertEqual(table["time"].dtype, numpy.dtype("<i8"))
        self.assertEqual(Ink(ink.to_bytes()), ink)


class Window(unittest.TestCase):
    """A pad inside a window of PyQt5."""

    def setUp(self) -> None:
        self.application = QApplication.instance() or QApplication([])

    def test_canvas_in_the_window(self) -> None:
        window = QWidget()
        window.resize(500, 300)
        window.show()
        with Pad("S300", size=(400, 226), driver=DRIVER, parent=window, position=(20, 30)) as pad:
            tap = None
            while tap is None:
                self.application.processEvents()
                tap = pad.wait(timeout=0.01)
            self.assertIs(tap, Tap.CONFIRM)
            self.application.processEvents()
            shown = window.grab().toImage()
            inside = [(x, y) for x in range(20, 420) for y in range(30, 256) if shown.pixel(x, y) == 0xFF000000]
            self.assertGreater(len(inside), 200)
            raised: list[type[BaseException]] = []

            def elsewhere() -> None:
                try:
                    pad.png()
                except WrongThread as error:
                    raised.append(type(error))

            other = threading.Thread(target=elsewhere)
            other.start()
            other.join()
            self.assertEqual(raised, [WrongThread])
            with self.assertRaises(NotSupported):
                pad.office((10, 10))
        self.application.processEvents()

    def test_parent_that_is_no_widget(self) -> None:
        with self.assertRaises(TypeError):
            Pad("S300", driver=DRIVER, parent="a window")
        self.assertIsNone(open_pad())


if __name__ == "__main__":
    unittest.main()
