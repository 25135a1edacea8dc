/** Whatever goes wrong with a pad. Its name says what, its message what to do about it. */
export class PadError extends Error {
    constructor(message) {
        super(message);
        this.name = new.target.name;
    }
}

/** The library libkvsignpadsdk.so.1 cannot be loaded. */
export class LibraryNotFound extends PadError {}

/** The library is older than these bindings, or of another major version. */
export class VersionMismatch extends PadError {}

/** There is no pad driver where it was looked for. */
export class DriverNotFound extends PadError {}

/** The driver is there, but no pad of this model answers. */
export class PadNotFound extends PadError {}

/** The pad no longer answers: its plug was pulled, or it has lost its power. The ink so far is kept. */
export class PadLost extends PadError {
    constructor() {
        super('the pad no longer answers: plug it in and open it again; take the ink so far before closing');
    }
}

/** Another pad is open: the library has one at a time. */
export class AlreadyOpen extends PadError {}

/** The pad was closed before. */
export class PadClosed extends PadError {
    constructor() {
        super('the pad is closed: open a new one with open(...)');
    }
}

/** This model has no such thing. */
export class NotSupported extends PadError {}

/** Nothing has been written on the pad yet. */
export class NoInk extends PadError {
    constructor() {
        super('nothing has been written on the pad yet: wait for the signer first');
    }
}

/** A picture could not be made or written; an earlier file is as it was. */
export class NotSaved extends PadError {}

/** The pad or its driver refused a command. */
export class CommandFailed extends PadError {
    constructor(operation, code) {
        super(`${operation} failed with ${code}: is the pad still plugged in?`);
        this.code = code;
    }
}
