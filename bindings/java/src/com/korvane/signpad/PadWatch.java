package com.korvane.signpad;

import java.time.Duration;
import java.util.List;
import java.util.Optional;
import java.util.concurrent.CompletableFuture;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.concurrent.Executors;
import java.util.concurrent.ScheduledExecutorService;
import java.util.concurrent.TimeUnit;

/**
 * Waits, and looks meanwhile whether the pad is still there. It counts as lost when it fails to answer twice in a row:
 * one failure may be a busy line.
 */
final class PadWatch {
    private static final Duration ASK_EVERY = Duration.ofMillis(500);

    /** So long that nobody sees its end, and short enough for a count of nanoseconds. */
    private static final Duration FOR_EVER = Duration.ofDays(36_500);

    private final Pad pad;
    private final List<CompletableFuture<?>> waiting = new CopyOnWriteArrayList<>();
    private ScheduledExecutorService clock;
    private int failures;

    PadWatch(Pad pad) {
        this.pad = pad;
    }

    /** The next item; empty when the time is over or the pad was closed. */
    <T> Optional<T> next(Mailbox<T> mailbox, Duration time) throws InterruptedException {
        pad.checkOpen();
        long end = System.nanoTime() + (time.compareTo(FOR_EVER) < 0 ? time : FOR_EVER).toNanos();
        int failed = 0;
        while (true) {
            Duration left = Duration.ofNanos(Math.max(0, end - System.nanoTime()));
            T item = mailbox.poll(left.compareTo(ASK_EVERY) < 0 ? left : ASK_EVERY);
            if (item != null || mailbox.isClosed() || System.nanoTime() - end >= 0) {
                return Optional.ofNullable(item);
            }
            failed = answers() ? 0 : failed + 1;
            if (failed == 2) {
                throw new PadException.PadLost();
            }
        }
    }

    /** Ends the future when the pad is lost or closed. */
    synchronized void failWhenLost(CompletableFuture<?> future) {
        waiting.add(future);
        future.whenComplete((tap, error) -> waiting.remove(future));
        if (clock == null) {
            clock = Executors.newSingleThreadScheduledExecutor(work -> {
                Thread thread = new Thread(work, "kvsignpad watch");
                thread.setDaemon(true);
                return thread;
            });
            clock.scheduleWithFixedDelay(
                    this::ask, ASK_EVERY.toMillis(), ASK_EVERY.toMillis(), TimeUnit.MILLISECONDS);
        }
    }

    synchronized void close() {
        if (clock != null) {
            clock.shutdownNow();
        }
        waiting.forEach(future -> future.completeExceptionally(new PadException.PadClosed()));
    }

    private void ask() {
        if (waiting.isEmpty()) {
            return;
        }
        failures = answers() ? 0 : failures + 1;
        if (failures >= 2) {
            waiting.forEach(future -> future.completeExceptionally(new PadException.PadLost()));
        }
    }

    private boolean answers() {
        try {
            return pad.isConnected();
        } catch (PadException.PadClosed closed) {
            return true; // whoever waits is told by other means
        }
    }
}
