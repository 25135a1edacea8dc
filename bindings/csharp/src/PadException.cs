using System;

namespace Korvane.Signpad
{
    /// <summary>Whatever goes wrong with a pad. The message says what to do about it.</summary>
    public class PadException : Exception
    {
        internal PadException(string message, Exception cause = null) : base(message, cause) { }
    }

    /// <summary>The library libkvsignpadsdk.so.1 cannot be loaded.</summary>
    public sealed class LibraryNotFoundException : PadException
    {
        internal LibraryNotFoundException(Exception cause)
            : base("libkvsignpadsdk.so.1 cannot be loaded: install the package libkvsignpadsdk1", cause) { }
    }

    /// <summary>The library is older than these bindings, or of another major version.</summary>
    public sealed class VersionMismatchException : PadException
    {
        internal VersionMismatchException(string there)
            : base("libkvsignpadsdk.so.1 has version " + there + ", these bindings want " + LowLevel.Version
                + " or a later one") { }
    }

    /// <summary>There is no pad driver where it was looked for.</summary>
    public sealed class DriverNotFoundException : PadException
    {
        internal DriverNotFoundException(string message) : base(message) { }
    }

    /// <summary>The driver is there, but no pad of this model answers.</summary>
    public sealed class PadNotFoundException : PadException
    {
        internal PadNotFoundException(Model model)
            : base("no " + model + " answers: is it plugged in, is it this model, may this user reach it, does another "
                + "program use it? (`kvsign doctor` finds out)") { }
    }

    /// <summary>
    /// The pad no longer answers: its plug was pulled, or it has lost its power. The ink so far is kept.
    /// </summary>
    public sealed class PadLostException : PadException
    {
        internal PadLostException()
            : base("the pad no longer answers: plug it in and open it again; take the ink so far before closing") { }
    }

    /// <summary>Another pad is open in this process: the library has one at a time.</summary>
    public sealed class AlreadyOpenException : PadException
    {
        internal AlreadyOpenException(Pad open)
            : base(open + " is open, and the library has one pad at a time: close it first") { }
    }

    /// <summary>The pad was closed before.</summary>
    public sealed class PadClosedException : PadException
    {
        internal PadClosedException() : base("the pad is closed: open a new one with Pad.Open(...)") { }
    }

    /// <summary>This model has no such thing.</summary>
    public sealed class NotSupportedByPadException : PadException
    {
        internal NotSupportedByPadException(string message) : base(message) { }
    }

    /// <summary>Nothing has been written on the pad yet.</summary>
    public sealed class NoInkException : PadException
    {
        internal NoInkException() : base("nothing has been written on the pad yet: wait for the signer first") { }
    }

    /// <summary>A picture could not be made or written; an earlier file is as it was.</summary>
    public sealed class NotSavedException : PadException
    {
        internal NotSavedException(string message) : base(message) { }
    }

    /// <summary>The pad or its driver refused a command.</summary>
    public sealed class CommandFailedException : PadException
    {
        internal CommandFailedException(string operation, int code)
            : base(operation + " failed with " + (ReturnCode)code + ": is the pad still plugged in?")
        {
            Code = (ReturnCode)code;
        }

        /// <summary>The library's result.</summary>
        public ReturnCode Code { get; }
    }
}
