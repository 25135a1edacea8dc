package com.korvane.signpad;

import com.sun.jna.Pointer;
import java.util.Base64;
import java.util.List;
import java.util.concurrent.CopyOnWriteArrayList;
import java.util.concurrent.ExecutorService;
import java.util.concurrent.Executors;
import java.util.function.Consumer;

/**
 * What the library calls on the driver's thread. The two callbacks live as long as the class, so the garbage collector
 * cannot take away what the library may still call. They copy what arrives and return.
 */
final class Receivers {
    static volatile Receivers current;

    // Not the driver's thread, which closing waits for: a listener that runs at once may close the pad, or end the program.
    private static final ExecutorService HANDING_ON = Executors.newSingleThreadExecutor(work -> {
        Thread thread = new Thread(work, "kvsignpad taps");
        thread.setDaemon(true);
        return thread;
    });

    static final LowLevel.EventCallback ON_EVENT = Sdk.onDaemonThread(Receivers::onEvent);
    static final LowLevel.LiveImageCallback ON_LIVE_IMAGE = Sdk.onDaemonThread(Receivers::onLiveImage);

    final Mailbox<Tap> taps = new Mailbox<>(Integer.MAX_VALUE);
    final Mailbox<byte[]> images = new Mailbox<>(1);

    /** Each hands the tap on to its executor, which may be one that runs it at once. */
    final List<Consumer<Tap>> listeners = new CopyOnWriteArrayList<>();

    void close() {
        taps.close();
        images.close();
    }

    private static void onEvent(int key) {
        Receivers receivers = current;
        if (receivers != null && (key == 0 || key == 1)) {
            Tap tap = Tap.values()[key];
            receivers.taps.put(tap);
            receivers.listeners.forEach(listener -> HANDING_ON.execute(() -> listener.accept(tap)));
        }
    }

    private static void onLiveImage(Pointer text) {
        Receivers receivers = current;
        if (receivers != null) {
            byte[] encoded = text.getByteArray(0, (int) text.indexOf(0, (byte) 0));
            receivers.images.put(Base64.getDecoder().decode(encoded));
        }
    }
}
