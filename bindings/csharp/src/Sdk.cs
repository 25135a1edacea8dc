using System;
using System.IO;
using System.Runtime.InteropServices;
using System.Text;

namespace Korvane.Signpad
{
    /// <summary>The library as a whole.</summary>
    public static class Sdk
    {
        /// <summary>The library's name, version and maker.</summary>
        public static string About()
        {
            IntPtr place = Marshal.AllocHGlobal(256);
            try
            {
                Marshal.WriteByte(place, 0);
                LowLevel.KVS300_GetAboutInfo((int)DeviceType.S300, place);
                return Marshal.PtrToStringAnsi(place);
            }
            catch (DllNotFoundException error)
            {
                throw new LibraryNotFoundException(error);
            }
            finally
            {
                Marshal.FreeHGlobal(place);
            }
        }
    }

    /// <summary>The one pad of the process: claimed, released, and closed at exit when it was forgotten.</summary>
    internal static class OpenPad
    {
        private const string Driver = "libkvsignpaddrv.so";

        private static readonly object Guard = new object();
        private static Pad open;

        static OpenPad()
        {
            AppDomain.CurrentDomain.ProcessExit += (sender, arguments) => {
                Pad forgotten;
                lock (Guard)
                    forgotten = open;
                forgotten?.Dispose();
            };
        }

        /// <summary>Holds the pad until it is released, so that it cannot be collected while the library calls it.</summary>
        internal static void Claim(Pad pad)
        {
            lock (Guard)
            {
                if (open != null)
                    throw new AlreadyOpenException(open);
                open = pad;
            }
        }

        internal static void Release(Pad pad)
        {
            lock (Guard)
            {
                if (open == pad)
                    open = null;
            }
        }

        /// <summary>The library loads the driver from the working directory: changes it, and puts it back.</summary>
        internal static T InDirectory<T>(string directory, Func<T> work)
        {
            if (directory == null)
                return work();
            string before = Directory.GetCurrentDirectory();
            try
            {
                Directory.SetCurrentDirectory(directory);
            }
            catch (Exception error) when (error is IOException || error is UnauthorizedAccessException
                || error is ArgumentException)
            {
                throw new DriverNotFoundException("the pad driver's folder cannot be entered: " + error.Message);
            }
            try
            {
                return work();
            }
            finally
            {
                Directory.SetCurrentDirectory(before);
            }
        }

        /// <summary>What most likely kept a pad from being opened.</summary>
        internal static PadException WhyNot(Model model, string directory)
        {
            string place = Path.GetFullPath(directory ?? ".");
            if (!File.Exists(Path.Combine(place, Driver)))
                return new DriverNotFoundException(
                    "there is no " + Driver + " in " + place + ": name the folder of the pad's driver");
            return new PadNotFoundException(model);
        }
    }

    /// <summary>A file that the library is to write, and whether it did.</summary>
    internal sealed class SavedFile
    {
        private readonly DateTime before;

        internal SavedFile(string path, int dpi)
        {
            Name = System.IO.Path.GetFullPath(path);
            if (dpi != 150 && dpi != 300)
                throw new ArgumentException("files have 150 or 300 dots per inch, not " + dpi);
            Level = (int)(dpi == 150 ? DpiLevel.Dpi150 : DpiLevel.Dpi300);
            switch (System.IO.Path.GetExtension(path).ToLowerInvariant())
            {
                case ".bmp": Type = ImageType.Bitmap; break;
                case ".jpg":
                case ".jpeg": Type = ImageType.Jpeg; break;
                case ".png": Type = ImageType.Png; break;
                case ".pdf": Type = ImageType.Pdf; break;
                case ".svg": Type = ImageType.Svg; break;
                default: throw new ArgumentException(path + ": its name ends in .png, .jpg, .bmp, .pdf or .svg");
            }
            before = File.GetLastWriteTimeUtc(Name);
        }

        internal string Name { get; }
        internal ImageType Type { get; }
        internal int Level { get; }

        /// <summary>As the library takes a path: one code point in four bytes, and a closing zero.</summary>
        internal byte[] Path => Encoding.UTF32.GetBytes(Name + "\0");

        /// <summary>The library does not notice an SVG that could not be written: looks for its end.</summary>
        internal bool IsWhole()
        {
            if (Type != ImageType.Svg)
                return true;
            if (!File.Exists(Name) || File.GetLastWriteTimeUtc(Name) == before)
                return false;
            using (FileStream written = File.OpenRead(Name))
            {
                written.Seek(-Math.Min(16, written.Length), SeekOrigin.End);
                using (var reader = new StreamReader(written, Encoding.ASCII))
                    return reader.ReadToEnd().TrimEnd().EndsWith("</svg>", StringComparison.Ordinal);
            }
        }
    }
}
