"""What the library calls on the driver's thread.

The two functions at the end live as long as the process, so no garbage collector can take away what the library may still
call. They copy what arrives into the open pad's mailboxes and return at once.
"""

from __future__ import annotations

import base64
import enum
from typing import Optional

from . import lowlevel
from .mailbox import Mailbox


class Tap(enum.Enum):
    """A tap on the pad's buttons."""

    CANCEL = 0
    CONFIRM = 1


class Receivers:
    """The mailboxes of one open pad."""

    def __init__(self) -> None:
        self.taps: Mailbox[Tap] = Mailbox()
        self.handled_taps: Mailbox[Tap] | None = None
        self.images: Mailbox[bytes] = Mailbox(limit=1)

    def close(self) -> None:
        self.taps.close()
        self.images.close()
        if self.handled_taps is not None:
            self.handled_taps.close()


current: Optional[Receivers] = None


def _on_event(key: int) -> None:
    receivers = current
    if receivers is None or key not in (0, 1):
        return
    receivers.taps.put(Tap(key))
    if receivers.handled_taps is not None:
        receivers.handled_taps.put(Tap(key))


def _on_live_image(text: bytes) -> None:
    receivers = current
    if receivers is not None:
        receivers.images.put(base64.b64decode(text))


on_event = lowlevel.EventCallback(_on_event)
on_live_image = lowlevel.LiveImageCallback(_on_live_image)
