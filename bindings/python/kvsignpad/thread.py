"""The thread that every headless pad lives on, so that a program may use a pad from any thread of its own.

The library wants a pad opened, used and closed on one thread. A thread of our own serves all of them: it outlives
threads that end, works beside asyncio and notebooks, and at exit it is still there to close what was forgotten.
"""

from __future__ import annotations

import os
import queue
import threading
from typing import Any, Callable, Generic, Protocol, TypeVar

from .errors import WrongThread

T = TypeVar("T")


class _Job(Generic[T]):
    def __init__(self, work: Callable[[], T]) -> None:
        self._work = work
        self._done = threading.Event()
        self._result: T
        self._error: BaseException | None = None

    def run(self) -> None:
        try:
            self._result = self._work()
        except BaseException as error:  # it belongs to the caller, whatever it is
            self._error = error
        self._done.set()

    def result(self) -> T:
        self._done.wait()
        if self._error is not None:
            raise self._error
        return self._result


class Runner(Protocol):
    """Where a pad's calls run."""

    def run(self, work: Callable[[], T]) -> T: ...


class PadThread:
    """Runs work on a thread of its own, one piece after the other."""

    def __init__(self) -> None:
        self._jobs: queue.SimpleQueue[_Job[Any]] = queue.SimpleQueue()
        self._starting = threading.Lock()
        self._thread: threading.Thread | None = None

    def run(self, work: Callable[[], T]) -> T:
        """The result of the work, or its exception."""
        self._start()
        if threading.current_thread() is self._thread:
            return work()
        job = _Job(work)
        self._jobs.put(job)
        return job.result()

    def _start(self) -> None:
        with self._starting:
            if self._thread is None:
                # A daemon: the interpreter does not wait for it, and it still runs when functions at exit do.
                self._thread = threading.Thread(target=self._serve, name="kvsignpad", daemon=True)
                self._thread.start()

    def _serve(self) -> None:
        while True:
            self._jobs.get().run()


class CallersThread:
    """Runs work at once, on the thread that made this: for pads in a window, which belong to its GUI thread."""

    def __init__(self) -> None:
        self._thread = threading.get_ident()

    def run(self, work: Callable[[], T]) -> T:
        if threading.get_ident() != self._thread:
            raise WrongThread("a pad in a window is used from the GUI thread alone: pass the call on to it")
        return work()


pad_thread = PadThread()

# A forked child has none of its parent's threads: it begins anew, so that a program may fork first and open a pad then.
os.register_at_fork(after_in_child=lambda: PadThread.__init__(pad_thread))
