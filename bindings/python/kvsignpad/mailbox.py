"""What arrives on the driver's thread, handed to whoever waits for it: a thread or a task of asyncio."""

from __future__ import annotations

import asyncio
import collections
import threading
import time
from typing import Callable, Generic, TypeVar

T = TypeVar("T")


class Mailbox(Generic[T]):
    """A queue that can also be awaited. With a limit the oldest is dropped for the newest."""

    def __init__(self, limit: int | None = None) -> None:
        self._items: collections.deque[T] = collections.deque(maxlen=limit)
        self._changed = threading.Condition()
        self._wakers: list[Callable[[], None]] = []
        self._closed = False

    def put(self, item: T) -> None:
        """Never waits, so the driver's thread may call it."""
        with self._changed:
            self._items.append(item)
            self._wake()

    def close(self) -> None:
        """Whoever waits gets nothing more once the mailbox is empty."""
        with self._changed:
            self._closed = True
            self._wake()

    def clear(self) -> None:
        with self._changed:
            self._items.clear()

    @property
    def closed(self) -> bool:
        return self._closed

    def get(self, timeout: float | None = None) -> T | None:
        """The oldest item; None when the time is over or the mailbox is closed."""
        with self._changed:
            self._changed.wait_for(lambda: self._items or self._closed, timeout)
            return self._items.popleft() if self._items else None

    async def aget(self, timeout: float | None = None) -> T | None:
        """As get, for a task of asyncio."""
        loop = asyncio.get_running_loop()
        end = None if timeout is None else time.monotonic() + timeout
        while True:
            arrived = asyncio.Event()
            waker = _waker(loop, arrived)
            with self._changed:
                if self._items:
                    return self._items.popleft()
                if self._closed:
                    return None
                self._wakers.append(waker)
            try:
                left = None if end is None else max(0.0, end - time.monotonic())
                await asyncio.wait_for(arrived.wait(), left)
            except asyncio.TimeoutError:
                with self._changed:
                    return self._items.popleft() if self._items else None
            finally:
                with self._changed:
                    if waker in self._wakers:
                        self._wakers.remove(waker)

    def _wake(self) -> None:
        self._changed.notify_all()
        for waker in self._wakers:
            waker()
        self._wakers.clear()


def _waker(loop: asyncio.AbstractEventLoop, arrived: asyncio.Event) -> Callable[[], None]:
    def wake() -> None:
        try:
            loop.call_soon_threadsafe(arrived.set)
        except RuntimeError:  # the loop has ended, and its task with it
            pass

    return wake
