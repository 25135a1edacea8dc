package com.korvane.signpad;

import com.sun.jna.CallbackThreadInitializer;
import com.sun.jna.Library;
import com.sun.jna.Memory;
import com.sun.jna.Native;
import java.util.Arrays;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** The loaded library. */
public final class Sdk {
    private static LowLevel loaded;

    private Sdk() {}

    /**
     * The library's functions, loaded at the first call. The system property kvsignpad.library, or the environment
     * variable KVSIGNPAD_LIBRARY, names another file than the installed one.
     *
     * @return the functions
     */
    public static synchronized LowLevel library() {
        if (loaded == null) {
            loaded = load(System.getProperty("kvsignpad.library", environment()));
        }
        return loaded;
    }

    /**
     * The library's name, version and maker.
     *
     * @return a text of several lines
     */
    public static String about() {
        return about(library());
    }

    private static String environment() {
        String named = System.getenv("KVSIGNPAD_LIBRARY");
        return named == null || named.isEmpty() ? "libkvsignpadsdk.so.1" : named;
    }

    private static LowLevel load(String file) {
        LowLevel found;
        try {
            found = Native.load(file, LowLevel.class);
        } catch (UnsatisfiedLinkError error) {
            throw new PadException.LibraryNotFound(
                    file + " cannot be loaded (" + error.getMessage() + "): install the package libkvsignpadsdk1, or set"
                            + " KVSIGNPAD_LIBRARY",
                    error);
        }
        Matcher stated = Pattern.compile("Version : ([\\d.]+)").matcher(about(found));
        String version = stated.find() ? stated.group(1) : "0";
        if (!serves(numbers(version), numbers(LowLevel.VERSION))) {
            throw new PadException.VersionMismatch(
                    file + " has version " + version + ", these bindings want " + LowLevel.VERSION + " or a later one");
        }
        return found;
    }

    private static String about(LowLevel library) {
        try (Memory text = new Memory(256)) {
            text.clear();
            library.KVS300_GetAboutInfo(LowLevel.DeviceType.S300, text);
            return text.getString(0);
        }
    }

    private static int[] numbers(String version) {
        return Arrays.stream(version.split("\\.")).mapToInt(Integer::parseInt).toArray();
    }

    private static boolean serves(int[] there, int[] wanted) {
        return there[0] == wanted[0] && Arrays.compare(there, wanted) >= 0;
    }

    /** The driver's thread must not keep the virtual machine from ending. */
    static <T extends com.sun.jna.Callback> T onDaemonThread(T callback) {
        Native.setCallbackThreadInitializer(
                callback, new CallbackThreadInitializer(true, false, "kvsignpad driver"));
        return callback;
    }

    /** The C library's own functions: Java cannot change the process's directory. */
    interface C extends Library {
        C INSTANCE = Native.load("c", C.class);
        /** A directory that may be entered, and perhaps not be listed. */
        int O_PATH_CLOEXEC = 0x280000;

        int open(String path, int flags);

        int chdir(String path);

        int fchdir(int directory);

        int close(int file);
    }
}
