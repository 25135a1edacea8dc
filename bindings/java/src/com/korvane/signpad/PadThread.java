package com.korvane.signpad;

import java.util.concurrent.Callable;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.concurrent.Future;

/**
 * The one thread that every pad lives on, so that a program may use a pad from any thread of its own: the library wants
 * it opened, used and closed on one. A daemon, which still runs while shutdown hooks do.
 */
final class PadThread {
    private static volatile Thread thread;
    private static final ExecutorService EXECUTOR = Executors.newSingleThreadExecutor(work -> {
        thread = new Thread(work, "kvsignpad");
        thread.setDaemon(true);
        return thread;
    });

    private PadThread() {}

    /** The work's result, or its exception; an interrupted caller stays interrupted and waits on. */
    static <T> T run(Callable<T> work) {
        if (Thread.currentThread() == thread) {
            try {
                return work.call();
            } catch (Exception error) {
                throw thrown(error);
            }
        }
        return result(EXECUTOR.submit(work));
    }

    static void run(Runnable work) {
        run(Executors.callable(work));
    }

    private static <T> T result(Future<T> future) {
        boolean interrupted = false;
        try {
            while (true) {
                try {
                    return future.get();
                } catch (InterruptedException error) {
                    interrupted = true;
                } catch (ExecutionException error) {
                    throw thrown(error.getCause());
                }
            }
        } finally {
            if (interrupted) {
                Thread.currentThread().interrupt();
            }
        }
    }

    /** The same exception; one that the work may not throw says that the bindings are wrong. */
    private static RuntimeException thrown(Throwable error) {
        if (error instanceof RuntimeException) {
            return (RuntimeException) error;
        }
        if (error instanceof Error) {
            throw (Error) error;
        }
        return new IllegalStateException(error);
    }
}
