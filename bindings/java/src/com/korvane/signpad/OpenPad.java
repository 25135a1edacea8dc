package com.korvane.signpad;

import java.nio.file.Files;
import java.nio.file.Path;
import java.util.concurrent.Callable;

/** The one pad of the process: claimed, released, and closed at exit when it was forgotten. */
final class OpenPad {
    private static final String DRIVER = "libkvsignpaddrv.so";

    private static Pad open;

    static {
        Runtime.getRuntime().addShutdownHook(new Thread(OpenPad::closeForgotten, "kvsignpad exit"));
    }

    private OpenPad() {}

    /** Holds the pad until it is released, so that it cannot be collected while the library calls it. */
    static synchronized void claim(Pad pad) {
        if (open != null) {
            throw new PadException.AlreadyOpen(
                    open + " is open, and the library has one pad at a time: close it first");
        }
        open = pad;
    }

    static synchronized void release(Pad pad) {
        if (open == pad) {
            open = null;
        }
    }

    private static synchronized Pad current() {
        return open;
    }

    private static void closeForgotten() {
        Pad forgotten = current();
        if (forgotten != null) {
            forgotten.close();
        }
    }

    /** The library loads the driver from the working directory: changes it, and puts it back. */
    static <T> T inDirectory(Path directory, Callable<T> work) throws Exception {
        if (directory == null) {
            return work.call();
        }
        int before = Sdk.C.INSTANCE.open(".", Sdk.C.O_PATH_CLOEXEC);
        if (Sdk.C.INSTANCE.chdir(directory.toString()) != 0) {
            Sdk.C.INSTANCE.close(before);
            throw new PadException.DriverNotFound("there is no directory " + directory);
        }
        try {
            return work.call();
        } finally {
            Sdk.C.INSTANCE.fchdir(before);
            Sdk.C.INSTANCE.close(before);
        }
    }

    /** What most likely kept a pad from being opened. */
    static PadException whyNot(Model model, Path directory) {
        Path place = (directory == null ? Path.of("") : directory).toAbsolutePath();
        if (!Files.exists(place.resolve(DRIVER))) {
            return new PadException.DriverNotFound(
                    "there is no " + DRIVER + " in " + place + ": name the folder of the pad's driver");
        }
        return new PadException.PadNotFound(
                "no " + model + " answers: is it plugged in, is it this model, may this user reach it, does another"
                        + " program use it? (`kvsign doctor` finds out)");
    }
}
