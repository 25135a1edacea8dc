package com.korvane.signpad;

/** Whatever goes wrong with a pad. The message says what to do about it. */
public class PadException extends RuntimeException {
    private static final long serialVersionUID = 1;

    PadException(String message) {
        super(message);
    }

    PadException(String message, Throwable cause) {
        super(message, cause);
    }

    /** The library libkvsignpadsdk.so.1 cannot be loaded. */
    public static final class LibraryNotFound extends PadException {
        private static final long serialVersionUID = 1;

        LibraryNotFound(String message, Throwable cause) {
            super(message, cause);
        }
    }

    /** The library is older than these bindings, or of another major version. */
    public static final class VersionMismatch extends PadException {
        private static final long serialVersionUID = 1;

        VersionMismatch(String message) {
            super(message);
        }
    }

    /** There is no pad driver where it was looked for. */
    public static final class DriverNotFound extends PadException {
        private static final long serialVersionUID = 1;

        DriverNotFound(String message) {
            super(message);
        }
    }

    /** The driver is there, but no pad of this model answers. */
    public static final class PadNotFound extends PadException {
        private static final long serialVersionUID = 1;

        PadNotFound(String message) {
            super(message);
        }
    }

    /** The pad no longer answers: its plug was pulled, or it has lost its power. The ink so far is kept. */
    public static final class PadLost extends PadException {
        private static final long serialVersionUID = 1;

        PadLost() {
            super("the pad no longer answers: plug it in and open it again; take the ink so far before closing");
        }
    }

    /** Another pad is open in this process: the library has one at a time. */
    public static final class AlreadyOpen extends PadException {
        private static final long serialVersionUID = 1;

        AlreadyOpen(String message) {
            super(message);
        }
    }

    /** The pad was closed before. */
    public static final class PadClosed extends PadException {
        private static final long serialVersionUID = 1;

        PadClosed() {
            super("the pad is closed: open a new one with Pad.open(...)");
        }
    }

    /** This model has no such thing. */
    public static final class NotSupported extends PadException {
        private static final long serialVersionUID = 1;

        NotSupported(String message) {
            super(message);
        }
    }

    /** Nothing has been written on the pad yet. */
    public static final class NoInk extends PadException {
        private static final long serialVersionUID = 1;

        NoInk() {
            super("nothing has been written on the pad yet: wait for the signer first");
        }
    }

    /** A picture could not be made or written; an earlier file is as it was. */
    public static final class NotSaved extends PadException {
        private static final long serialVersionUID = 1;

        NotSaved(String message) {
            super(message);
        }
    }

    /** The pad or its driver refused a command. */
    public static final class CommandFailed extends PadException {
        private static final long serialVersionUID = 1;

        private final int code;

        CommandFailed(String operation, int code) {
            super(operation + " failed with " + code + ": is the pad still plugged in?");
            this.code = code;
        }

        /**
         * The library's result.
         *
         * @return one of {@link LowLevel.ReturnCode}
         */
        public int code() {
            return code;
        }
    }
}
