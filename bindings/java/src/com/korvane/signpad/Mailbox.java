package com.korvane.signpad;

import java.time.Duration;
import java.util.ArrayDeque;
import java.util.Deque;

/** What arrives on the driver's thread, handed to whoever waits. With a limit the oldest goes for the newest. */
final class Mailbox<T> {
    private final Deque<T> items = new ArrayDeque<>();
    private final int limit;
    private boolean closed;

    Mailbox(int limit) {
        this.limit = limit;
    }

    /** Never waits for a reader, so the driver's thread may call it. */
    synchronized void put(T item) {
        if (items.size() == limit) {
            items.removeFirst();
        }
        items.addLast(item);
        notifyAll();
    }

    synchronized void close() {
        closed = true;
        notifyAll();
    }

    synchronized boolean isClosed() {
        return closed;
    }

    /** The oldest item; null when the time is over or the mailbox is closed. */
    synchronized T poll(Duration time) throws InterruptedException {
        long end = System.nanoTime() + time.toNanos();
        while (items.isEmpty() && !closed) {
            long left = end - System.nanoTime();
            if (left <= 0) {
                return null;
            }
            wait(left / 1_000_000, (int) (left % 1_000_000));
        }
        return items.pollFirst();
    }
}
