"""What can go wrong, each with what to do about it in its message."""

from __future__ import annotations


class PadError(Exception):
    """Whatever goes wrong with a pad; the others derive from it."""


class LibraryNotFound(PadError):
    """The library libkvsignpadsdk.so.1 cannot be loaded."""


class VersionMismatch(PadError):
    """The library is older than these bindings, or of another major version."""


class DriverNotFound(PadError):
    """There is no pad driver where it was looked for."""


class PadNotFound(PadError):
    """The driver is there, but no pad of this model answers."""


class PadLost(PadError):
    """The pad no longer answers: its plug was pulled, or it has lost its power. The ink so far is kept."""


class AlreadyOpen(PadError):
    """Another pad is open in this process: the library has one at a time."""


class PadClosed(PadError):
    """The pad was closed before."""


class WrongThread(PadError):
    """A pad in a window is used from another thread than the one that opened it."""


class NotSupported(PadError):
    """This model, or this way of opening it, has no such thing."""


class NoInk(PadError):
    """Nothing has been written on the pad yet."""


class NotSaved(PadError):
    """A picture could not be made or written; an earlier file is as it was."""


class CommandFailed(PadError):
    """The pad or its driver refused a command."""

    def __init__(self, operation: str, code: int, name: str) -> None:
        super().__init__(f"{operation} failed with {name} ({code}): is the pad still plugged in?")
        self.operation = operation
        self.code = code
