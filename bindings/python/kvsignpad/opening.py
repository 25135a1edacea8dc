"""Opens and closes the one pad of the process."""

from __future__ import annotations

import atexit
import contextlib
import os
import threading
from typing import TYPE_CHECKING, Iterator

from .errors import AlreadyOpen, DriverNotFound, PadNotFound

if TYPE_CHECKING:
    from .pad import Pad

DRIVER = "libkvsignpaddrv.so"

_opening = threading.Lock()
_open_pad: Pad | None = None


def open_pad() -> Pad | None:
    """The pad that is open in this process, if there is one."""
    return _open_pad


def claim(pad: Pad) -> None:
    """Makes it the one pad of the process. It is held until it is closed: a pad that is forgotten is closed at exit."""
    global _open_pad
    with _opening:
        if _open_pad is not None and _open_pad.inherited:
            raise AlreadyOpen(
                f"{_open_pad!r} was open when this process was forked, and is its parent's: fork before a pad is opened"
            )
        if _open_pad is not None:
            raise AlreadyOpen(
                f"{_open_pad!r} is open, and the library has one pad at a time: close it, or kvsignpad.open_pad().close()"
            )
        _open_pad = pad


def release(pad: Pad) -> None:
    global _open_pad
    with _opening:
        if _open_pad is pad:
            _open_pad = None


@contextlib.contextmanager
def driver_directory(directory: str | os.PathLike[str] | None) -> Iterator[None]:
    """The library loads the driver from the working directory: changes it, and puts it back."""
    if directory is None:
        yield
        return
    before = os.open(".", os.O_PATH | os.O_DIRECTORY | os.O_CLOEXEC)  # O_PATH: it may be one that cannot be listed
    try:
        try:
            os.chdir(directory)
        except OSError as error:
            raise DriverNotFound(f"the pad driver's folder cannot be entered: {error}") from error
        try:
            yield
        finally:
            os.fchdir(before)
    finally:
        os.close(before)


def why_not_opened(model: str, directory: str | os.PathLike[str] | None) -> DriverNotFound | PadNotFound:
    """What most likely kept a pad from being opened."""
    place = os.path.abspath(os.fsdecode(directory) if directory is not None else ".")
    if not os.path.exists(os.path.join(place, DRIVER)):
        return DriverNotFound(
            f"there is no {DRIVER} in {place}: name the pad driver's folder, Pad(..., driver=\"/its/folder\")"
        )
    return PadNotFound(
        f"no {model} answers: is it plugged in, is it this model, may this user reach it, does another program "
        "use it? (`kvsign doctor` finds out)"
    )


def _close_at_exit() -> None:
    pad = _open_pad
    if pad is not None:
        pad.close()


def _forked() -> None:
    global _opening
    _opening = threading.Lock()  # another thread of the parent may have held it


atexit.register(_close_at_exit)
os.register_at_fork(after_in_child=_forked)
