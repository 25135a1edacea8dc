"""A signature pad."""

from __future__ import annotations

import asyncio
import base64
import contextlib
import ctypes
import functools
import os
import threading
import time
from types import TracebackType
from typing import Any, AsyncIterator, Callable, Iterator, Optional, TypeVar

from . import lowlevel, opening, receivers, sdk, settings
from .errors import CommandFailed, NoInk, NotSaved, NotSupported, PadClosed, PadError, PadLost
from .widgetaddress import widget_address
from .info import PadInfo, device_info, device_text
from .ink import Ink
from .lowlevel import EncodedImageType, ReturnCode
from .mailbox import Mailbox
from .receivers import Receivers, Tap
from .thread import CallersThread, Runner, pad_thread

T = TypeVar("T")

# How often a waiting program asks whether the pad is still there, in seconds. A pad counts as lost when it fails to
# answer twice in a row: one failure may be a busy line.
_ASK_EVERY = 0.5


class Pad:
    """One open signature pad: the canvas that the pen writes on, and the ink on it.

    Opens at once and raises a PadError that says why when it cannot. Use it in a `with` block, or close it. It may be
    used from any thread; a pad in a window from the GUI thread alone.

    model: its name, such as "S300".
    size: the canvas, in pixels.
    driver: the folder of libkvsignpaddrv.so; without it the working directory. (The process's working directory is
        this folder while the pad is being opened, and is put back.)
    parent: a QWidget (of PyQt5, PySide2, or its address): the canvas is then a widget in it, at `position`.
    """

    def __init__(
        self,
        model: str,
        size: tuple[int, int] = (800, 452),
        *,
        driver: str | os.PathLike[str] | None = None,
        parent: Any = None,
        position: tuple[int, int] = (0, 0),
    ) -> None:
        if model not in lowlevel.FAMILIES:
            raise ValueError(f"{model!r} is no model: {', '.join(lowlevel.FAMILIES)}")
        size = settings.canvas(size)
        self.model = model
        self.size = size
        self._library = sdk.library()
        self._prefix, self._device = lowlevel.FAMILIES[model]
        self._thread: Runner = pad_thread
        if parent is not None:
            self._thread = CallersThread()
        self._receivers = Receivers()
        self._live_kind: str | None = None
        self._closed = False
        self._closing = threading.Lock()
        self._process = os.getpid()
        opening.claim(self)
        try:
            address = None if parent is None else widget_address(parent)
            self._thread.run(lambda: self._open(address, position, driver))
            self._info = device_info(self)
        except BaseException:
            self.close()
            raise

    def __repr__(self) -> str:
        return f"<Pad {self.model} {self.size[0]}x{self.size[1]}{' closed' if self._closed else ''}>"

    # --- Opening and closing ---

    def _open(
        self, address: Optional[int], position: tuple[int, int], driver: str | os.PathLike[str] | None
    ) -> None:
        with opening.driver_directory(driver):
            opened = self._raw("InitialDevice", address, *position, *self.size)
        if not opened:
            raise opening.why_not_opened(self.model, driver)
        receivers.current = self._receivers
        self._raw("SignPadEventCallback", receivers.on_event)

    def close(self) -> None:
        """Ends the work with the pad; what was written and not taken is gone. Closing twice does nothing, nor does
        closing in a forked child: the pad is its parent's."""
        if self.inherited:
            return
        with self._closing:
            if self._closed:
                return
            self._thread.run(self._close)
            self._closed = True
        self._receivers.close()
        opening.release(self)

    def _close(self) -> None:
        self._raw("UnInitialDevice")
        if receivers.current is self._receivers:
            receivers.current = None

    @property
    def closed(self) -> bool:
        return self._closed

    @property
    def inherited(self) -> bool:
        """Whether this process was forked from the one that opened the pad: only that one can use it."""
        return os.getpid() != self._process

    def __enter__(self) -> Pad:
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    async def __aenter__(self) -> Pad:
        return self

    async def __aexit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    # --- The pen ---

    def pen(
        self, *, width: int | None = None, color: settings.Color | None = None, pressure: bool | None = None
    ) -> None:
        """Sets the pen for strokes to come: the width's level (1 to 10, at first 3), the colour ("navy", "#001a57",
        (0, 26, 87); at first black), and whether the width follows the pressure (at first it does)."""
        if width is not None and width not in range(1, 11):
            raise ValueError(f"a pen's width is a whole number from 1 to 10, not {width}")
        rgb = None if color is None else settings.color(color)
        if width is not None:
            self._command("SetPenWidth", width)
        if rgb is not None:
            self._command("SetPenColor", *rgb)
        if pressure is not None:
            self._command("SetPenStyle", pressure)

    def clear(self) -> None:
        """Empties the canvas, the ink and the pad's own screen."""
        self._command("Clear")

    def screen(self, on: bool) -> None:
        """Switches the pad's screen on or off (models with one); off also empties the canvas, not the ink."""
        self._command("OpenLCD", on)

    def show_version(self, on: bool) -> None:
        """Shows or hides the version on the pad's screen (models with one)."""
        self._command("DisplayHWVersion", on)

    # --- Taps on confirm and cancel ---

    def wait(self, timeout: float | None = None) -> Tap | None:
        """The next tap on confirm or cancel; None when none came in `timeout` seconds.

        Raises PadLost soon after the pad was unplugged; the ink so far can still be taken.
        """
        return self._next(self._receivers.taps, timeout)

    async def tapped(self, timeout: float | None = None) -> Tap | None:
        """As wait, for asyncio."""
        tap = await self._anext(self._receivers.taps, timeout)
        return tap

    def taps(self) -> Iterator[Tap]:
        """The taps as they come, until the pad is closed."""
        self._check_open()
        with contextlib.suppress(PadClosed):
            while (tap := self.wait()) is not None:
                yield tap

    def on_tap(self, handler: Callable[[Tap], None]) -> None:
        """Calls the handler for each tap to come, on a thread that waits for nothing else: it may take its time, and
        may close the pad. What it raises goes to threading.excepthook. Another handler takes the place of the first."""
        self._check_open()
        mailbox: Mailbox[Tap] = Mailbox()
        replaced, self._receivers.handled_taps = self._receivers.handled_taps, mailbox
        if replaced is not None:
            replaced.close()  # its thread ends

        def serve() -> None:
            while (tap := mailbox.get()) is not None:
                try:
                    handler(tap)
                except Exception as error:
                    threading.excepthook(
                        threading.ExceptHookArgs((type(error), error, error.__traceback__, threading.current_thread()))
                    )

        threading.Thread(target=serve, name="kvsignpad taps", daemon=True).start()

    # --- Is it still there? ---

    @property
    def info(self) -> PadInfo:
        """What the library knows of the pad."""
        return self._info

    @property
    def pad_id(self) -> str:
        """The pad's own identifier."""
        return device_text(self, "GetHWPadID")

    @property
    def pen_id(self) -> str:
        """The pen's identifier (models with a screen)."""
        return device_text(self, "GetHWPenID")

    @property
    def version(self) -> str:
        """The pad's version text. Asking for it also tells whether the pad is there: CommandFailed if not."""
        return device_text(self, "GetHWVersion")

    def connected(self) -> bool:
        """Whether the pad answers."""
        try:
            device_text(self, "GetHWVersion")
        except CommandFailed:
            return False
        return True

    # --- The ink ---

    def ink(self) -> Ink:
        """All points that are stored now. Empty ink has no points."""
        record = self._encoded("Base64Encode", EncodedImageType.INK)
        return Ink(record or b"", max_pressure=self._info.max_pressure)

    def __len__(self) -> int:
        """How many points are stored."""
        return max(0, int(self._call("GetTotalInkPointsNumber")))

    def __bool__(self) -> bool:
        return True  # an open pad without ink is still a pad

    # --- Pictures ---

    def clip(self, margin: int | tuple[int, int] | None) -> None:
        """Cuts pictures to come to the ink and a margin in pixels; None (or a margin of 0): the whole canvas.

        clear() switches this off.
        """
        across, down = (0, 0) if margin is None else settings.margins(margin)
        self._command("SetSaveClipImageMargin", margin is not None, across, down)

    def png(self, *, transparent: bool = True) -> bytes:
        """The signature as PNG; transparent: white is see-through."""
        return self._picture("Base64EncodeEx", EncodedImageType.PNG, transparent)

    def jpeg(self) -> bytes:
        """The signature as JPEG."""
        return self._picture("Base64EncodeEx", EncodedImageType.JPEG, False)

    def bmp(self) -> bytes:
        """The signature as BMP."""
        return self._picture("Base64EncodeEx", EncodedImageType.BITMAP, False)

    def svg(self) -> str:
        """The signature as SVG, drawn anew from the points. (The library also leaves it in /tmp/KVeSign.svg.)"""
        return self._picture("GetSVGImageBase64Data").decode()

    def save(self, path: str | bytes | os.PathLike[str], *, dpi: int = 300, transparent: bool = True) -> None:
        """Writes the signature; the name's ending says how: .png .jpg .bmp .pdf .svg. dpi: 150 or 300.

        Raises NoInk or NotSaved; an earlier file of that name is then as it was.
        """
        name, kind = settings.file_type(path, transparent)
        level = settings.dpi_level(dpi)
        before = _identity(name)
        code = self._call("SaveDrawingImage", kind, name, level)
        if code == ReturnCode.SUCCESS and _whole(name, kind, before):
            return
        if not len(self) and not self._has_fingerprint():
            raise NoInk("nothing has been written on the pad yet: wait for the signer, then save")
        raise NotSaved(f"{name} could not be written: is its folder there, may this user write, is the disk full?")

    # --- Live images (S210) ---

    def live(self, kind: str = "PNG", *, timeout: float | None = None) -> Iterator[bytes]:
        """The whole signature as "PNG" or "JPEG" after pen movements, until the pad is closed (S210), or until none
        has come for `timeout` seconds.

        A slow reader gets the newest image each time. Once asked for, the library makes an image after every movement
        as long as the pad is open, and the pad's next packet waits for it.
        """
        self._start_live(kind)
        with contextlib.suppress(PadClosed):
            while (image := self._next(self._receivers.images, timeout)) is not None:
                yield image

    async def live_async(self, kind: str = "PNG", *, timeout: float | None = None) -> AsyncIterator[bytes]:
        """As live, for `async for`."""
        self._start_live(kind)
        with contextlib.suppress(PadClosed):
            while (image := await self._anext(self._receivers.images, timeout)) is not None:
                yield image

    def _start_live(self, kind: str) -> None:
        if kind not in ("PNG", "JPEG"):
            raise ValueError(f"live images are PNG or JPEG, not {kind!r}")
        if kind != self._live_kind:
            if not self._call("SetRealTimeSignBase64DataCallback", EncodedImageType[kind], receivers.on_live_image):
                raise NotSupported("the library refused the live images")
            self._live_kind = kind

    # --- Office canvas (S210, no parent) ---

    def office(self, size: tuple[int, int], kind: str = "PNG") -> bytes:
        """The signature stretched to `size` pixels, as "PNG" (white is see-through) or "JPEG" (S210 without a
        parent)."""
        if kind not in ("PNG", "JPEG"):
            raise ValueError(f"the office canvas gives PNG or JPEG, not {kind!r}")
        if not self._call("InitialWPSSignCanvas", *settings.canvas(size)):
            raise NotSupported("a pad in a window has no office canvas")
        return self._picture("WPSBase64Encode", EncodedImageType[kind])

    # --- Fingerprint (S310X) ---

    def place_fingerprint(
        self, rect: tuple[int, int, int, int], *, canvas: tuple[int, int] | None = None, parent: Any = None
    ) -> None:
        """Gives the fingerprint the rectangle (left, top, width, height), in pixels (S310X).

        Without a window it has a canvas of its own of that size (the pad's, if none is given). In a window `parent`
        is the signing widget's parent, for a place beside the ink, or another widget.
        """
        across, down = canvas or self.size
        address = None if parent is None else widget_address(parent)
        code = self._call("SetDisplayedFPImageAt", address, across, down, *rect)
        if code == ReturnCode.INVALID_PARAMETERS:
            raise ValueError(f"the rectangle {rect!r} does not lie inside the canvas, or a parent is missing")
        self._check("SetDisplayedFPImageAt", code)

    def fingerprint(self, kind: str = "PNG", *, only: bool = True) -> bytes:
        """The fingerprint's picture as "PNG", "JPEG" or "BITMAP"; only: cut to its rectangle (S310X)."""
        if kind not in ("PNG", "JPEG", "BITMAP"):
            raise ValueError(f"the fingerprint's picture is PNG, JPEG or BITMAP, not {kind!r}")
        picture = self._encoded("GetFPImageBase64Data", EncodedImageType[kind], only)
        if picture is None:
            raise NotSupported("the fingerprint has no picture of its own yet: call place_fingerprint first")
        if not picture:
            raise NotSaved("the fingerprint's picture could not be made")
        return picture

    def _has_fingerprint(self) -> bool:
        return self._offers("GetFPImageBase64Data") and bool(self._encoded("Base64Encode", EncodedImageType.PNG))

    # --- Calls ---

    def _check_open(self) -> None:
        if self.inherited:
            raise PadError("the pad is the parent process's: use it there, or fork before a pad is opened")
        if self._closed:
            raise PadClosed("the pad is closed: open a new one with Pad(...)")

    def _offers(self, operation: str) -> bool:
        return self._prefix in lowlevel.OPERATIONS[operation].families

    def _check_offered(self, operation: str) -> None:
        if not self._offers(operation):
            raise NotSupported(f"the {self.model} has no {operation}")

    def _raw(self, operation: str, *arguments: Any) -> Any:
        return getattr(self._library, f"{self._prefix}_{operation}")(self._device, *arguments)

    def _call(self, operation: str, *arguments: Any) -> Any:
        self._check_open()
        self._check_offered(operation)
        result: Any = self._thread.run(functools.partial(self._alive, operation, *arguments))
        return result

    def _alive(self, operation: str, *arguments: Any) -> Any:
        self._check_open()  # once more: it may have been closed while this call waited for its turn
        return self._raw(operation, *arguments)

    def _command(self, operation: str, *arguments: Any) -> None:
        self._check(operation, self._call(operation, *arguments))

    @staticmethod
    def _check(operation: str, code: int) -> None:
        if code == ReturnCode.SUCCESS:
            return
        name = ReturnCode(code).name if code in ReturnCode._value2member_map_ else "an unknown code"
        raise CommandFailed(operation, code, name)

    def _encoded(self, operation: str, *arguments: Any) -> bytes | None:
        """What a text of the library says, decoded; the text is given back at once."""
        self._check_open()
        self._check_offered(operation)

        def take() -> bytes | None:
            address = self._alive(operation, *arguments)
            if address is None:
                return None
            try:
                return ctypes.string_at(address)
            finally:
                self._raw(lowlevel.OPERATIONS[operation].gives_back, address)

        text = self._thread.run(take)
        return None if text is None else base64.b64decode(text)

    def _picture(self, operation: str, *arguments: Any) -> bytes:
        picture = self._encoded(operation, *arguments)
        if picture is None:
            raise NoInk("nothing has been written on the pad yet: wait for the signer, then take the picture")
        if not picture:
            raise NotSaved("the picture could not be made: the canvas is too large, or memory or /tmp is full")
        return picture

    # --- Waiting ---

    def _next(self, mailbox: Mailbox[T], timeout: float | None) -> T | None:
        watch = _Watch(self, timeout)
        while True:
            item = mailbox.get(watch.slice())
            if item is not None or mailbox.closed or watch.over():
                self._check_why_none(item is None, mailbox.closed)
                return item
            watch.ask()

    async def _anext(self, mailbox: Mailbox[T], timeout: float | None) -> T | None:
        watch = _Watch(self, timeout)
        while True:
            item = await mailbox.aget(watch.slice())
            if item is not None or mailbox.closed or watch.over():
                self._check_why_none(item is None, mailbox.closed)
                return item
            await asyncio.get_running_loop().run_in_executor(None, watch.ask)

    def _check_why_none(self, none: bool, ended: bool) -> None:
        if none and not ended:
            self._check_open()


class _Watch:
    """A wait that looks now and then whether the pad is still there."""

    def __init__(self, pad: Pad, timeout: float | None) -> None:
        pad._check_open()
        self._pad = pad
        self._end = None if timeout is None else time.monotonic() + timeout
        self._failures = 0

    def slice(self) -> float:
        return _ASK_EVERY if self._end is None else max(0.0, min(_ASK_EVERY, self._end - time.monotonic()))

    def over(self) -> bool:
        return self._end is not None and time.monotonic() >= self._end

    def ask(self) -> None:
        try:
            self._failures = 0 if self._pad.connected() else self._failures + 1
        except PadClosed:
            return  # the mailbox says so too
        if self._failures >= 2:
            raise PadLost("the pad no longer answers: plug it in and open it again; take the ink so far before closing")


def _identity(name: str) -> tuple[int, ...] | None:
    """What changes of a file when it is written."""
    try:
        status = os.stat(name)
    except OSError:
        return None
    return status.st_dev, status.st_ino, status.st_size, status.st_mtime_ns


def _whole(name: str, kind: lowlevel.ImageType, before: tuple[int, ...] | None) -> bool:
    """The library does not notice an SVG that could not be written: looks for its end."""
    if kind is not lowlevel.ImageType.SVG:
        return True
    if _identity(name) in (None, before):
        return False
    with open(name, "rb") as file:
        file.seek(max(0, os.path.getsize(name) - 16))
        return file.read().rstrip().endswith(b"</svg>")
