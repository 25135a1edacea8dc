using System;
using System.Diagnostics;
using System.Runtime.InteropServices;
using System.Text;
using System.Threading;
using System.Threading.Tasks;

namespace Korvane.Signpad
{
    /// <summary>
    /// One open signature pad: the canvas that the pen writes on, and the ink on it. One pad is open at a time in a
    /// process. It may be used from any thread; its functions run on a thread of their own. Whatever goes wrong is a
    /// <see cref="PadException"/> that says what to do, or an <see cref="ArgumentException"/>.
    /// </summary>
    public sealed class Pad : IDisposable
    {
        // A pad counts as lost when it fails to answer twice in a row: one failure may be a busy line.
        private static readonly TimeSpan AskEvery = TimeSpan.FromMilliseconds(500);

        private readonly Model model;
        private readonly int width;
        private readonly int height;
        private readonly Family family;
        private readonly Receivers receivers = new Receivers();
        private volatile bool closed;
        private ImageKind? liveKind;

        private Pad(Model model, int width, int height)
        {
            this.model = model;
            this.width = width;
            this.height = height;
            family = new Family(model);
        }

        /// <summary>
        /// Opens a pad with a canvas of so many pixels. driver: the folder of libkvsignpaddrv.so; null: the working
        /// directory. (The process's working directory is that folder while the pad is being opened, and is put back.)
        /// </summary>
        public static Pad Open(Model model, int width, int height, string driver = null)
        {
            if (!Enum.IsDefined(typeof(Model), model))
                throw new ArgumentException("there is no model " + model);
            if (width < 1 || height < 1)
                throw new ArgumentException("a canvas has at least one pixel, not " + width + " x " + height);
            var pad = new Pad(model, width, height);
            OpenPad.Claim(pad);
            try
            {
                PadThread.Run(() => OpenPad.InDirectory(driver, () => pad.Begin(driver)));
            }
            catch
            {
                pad.Dispose();
                throw;
            }
            return pad;
        }

        private bool Begin(string driver)
        {
            if (!family.Call<bool>("InitialDevice", IntPtr.Zero, 0, 0, width, height))
                throw OpenPad.WhyNot(model, driver);
            Receivers.Current = receivers;
            family.Command("SignPadEventCallback", Receivers.OnEvent);
            return true;
        }

        /// <summary>
        /// Ends the work with the pad; what was written and not taken is gone. Closing twice does nothing.
        /// </summary>
        public void Dispose()
        {
            PadThread.Run(() => {
                if (closed)
                    return 0;
                closed = true;
                int result = family.Call<int>("UnInitialDevice");
                if (Receivers.Current == receivers)
                    Receivers.Current = null;
                return result;
            });
            receivers.Close();
            OpenPad.Release(this);
        }

        /// <summary>Whether it was closed.</summary>
        public bool IsClosed => closed;

        /// <summary>Its model and size.</summary>
        public override string ToString()
        {
            return "Pad " + model + " " + width + "x" + height + (closed ? " (closed)" : "");
        }

        /// <summary>Sets the width of strokes to come: 1 to 10, 3 at first.</summary>
        public void SetPenWidth(int level)
        {
            if (level < 1 || level > 10)
                throw new ArgumentException("a pen's width is 1 to 10, not " + level);
            Command("SetPenWidth", level);
        }

        /// <summary>Sets the colour of strokes to come: "#rrggbb" or a name such as "navy".</summary>
        public void SetPenColor(string color)
        {
            int rgb;
            bool hexadecimal = color.Length == 7 && color[0] == '#';
            if (!LowLevel.Colors.TryGetValue(color.ToLowerInvariant(), out rgb)
                && !(hexadecimal && int.TryParse(color.Substring(1), System.Globalization.NumberStyles.AllowHexSpecifier,
                    System.Globalization.CultureInfo.InvariantCulture, out rgb)))
                throw new ArgumentException(
                    color + " is no colour: write #rrggbb or one of " + string.Join(", ", LowLevel.Colors.Keys));
            Command("SetPenColor", rgb >> 16, rgb >> 8 & 255, rgb & 255);
        }

        /// <summary>Whether the width of strokes to come follows the pressure; it does at first.</summary>
        public void SetPenPressure(bool on) => Command("SetPenStyle", on);

        /// <summary>Empties the canvas, the ink and the pad's own screen, and ends Clip.</summary>
        public void Clear() => Command("Clear");

        /// <summary>Switches the pad's screen on or off (models with one); off also empties the canvas.</summary>
        public void SetScreen(bool on) => Command("OpenLCD", on);

        /// <summary>Shows or hides the version on the pad's screen (models with one).</summary>
        public void ShowVersion(bool on) => Command("DisplayHWVersion", on);

        /// <summary>
        /// Each tap to come, on a thread of the pool: it may take its time, and may close the pad.
        /// </summary>
        public event Action<Tap> Tapped
        {
            add { receivers.Tapped += value; }
            remove { receivers.Tapped -= value; }
        }

        /// <summary>
        /// Waits for the next tap on confirm or cancel; null when the time is over or the pad was closed meanwhile.
        /// Timeout.InfiniteTimeSpan waits for as long as it takes.
        /// Throws PadLostException soon after the pad was unplugged.
        /// </summary>
        public Tap? Wait(TimeSpan time)
        {
            Tap tap;
            return Next(receivers.Taps, time, CancellationToken.None, out tap) ? tap : (Tap?)null;
        }

        /// <summary>As Wait, without holding the caller's thread.</summary>
        public Task<Tap?> WaitAsync(TimeSpan time, CancellationToken cancelled = default(CancellationToken))
        {
            CheckOpen();
            return Task.Factory.StartNew(() => {
                Tap tap;
                return Next(receivers.Taps, time, cancelled, out tap) ? tap : (Tap?)null;
            }, cancelled, TaskCreationOptions.LongRunning, TaskScheduler.Default);
        }

        /// <summary>The pad's own identifier.</summary>
        public string PadId => Text("GetHWPadID");

        /// <summary>The pen's identifier (models with a screen).</summary>
        public string PenId => Text("GetHWPenID");

        /// <summary>The pad's version text.</summary>
        public string Version => Text("GetHWVersion");

        /// <summary>The largest pressure that the pad reports.</summary>
        public int MaxPressure => Item(DeviceInfoItem.Pressure, place => Marshal.ReadInt32(place));

        /// <summary>The maker.</summary>
        public string Vendor => Item(DeviceInfoItem.Vendor, Marshal.PtrToStringAnsi);

        /// <summary>The width of the writing area, in raw units.</summary>
        public int AreaWidth => Item(DeviceInfoItem.AxisX, place => Marshal.ReadInt32(place, 4));

        /// <summary>The height of the writing area, in raw units.</summary>
        public int AreaHeight => Item(DeviceInfoItem.AxisY, place => Marshal.ReadInt32(place, 4));

        /// <summary>Whether the pad answers.</summary>
        public bool IsConnected
        {
            get
            {
                try
                {
                    return Version != null;
                }
                catch (CommandFailedException)
                {
                    return false;
                }
            }
        }

        /// <summary>How many points are stored.</summary>
        public int Points => Math.Max(0, On(() => family.Call<int>("GetTotalInkPointsNumber")));

        /// <summary>All points that are stored now; without points when nothing was written.</summary>
        public Ink Ink()
        {
            byte[] record = On(() => family.Decoded("Base64Encode", "Base64EncodeFree", (int)EncodedImageType.Ink));
            return new Ink(record ?? new byte[0]);
        }

        /// <summary>Cuts pictures to come to the ink and these margins in pixels; two of 0: the whole canvas.</summary>
        public void Clip(int across, int down)
        {
            if (across < 0 || down < 0)
                throw new ArgumentException("a margin is 0 pixels or more");
            Command("SetSaveClipImageMargin", true, across, down);
        }

        /// <summary>The signature as a whole picture file; transparent, for PNG: white is see-through.</summary>
        public byte[] Picture(ImageKind kind, bool transparent = true)
        {
            return Taken(On(() => family.Decoded("Base64EncodeEx", "Base64EncodeExFree", (int)kind, transparent)));
        }

        /// <summary>The signature as PNG with see-through white.</summary>
        public byte[] Png() => Picture(ImageKind.Png);

        /// <summary>
        /// The signature as SVG, drawn anew from the points. (The library also leaves it in /tmp/KVeSign.svg.)
        /// </summary>
        public string Svg()
        {
            byte[] picture = Taken(On(() => family.Decoded("GetSVGImageBase64Data", "FreeSVGImageBase64Data")));
            return Encoding.UTF8.GetString(picture);
        }

        /// <summary>
        /// Writes the signature at 150 or 300 dots per inch; the name's ending says how: .png .jpg .bmp .pdf .svg. When
        /// it fails an earlier file is as it was.
        /// </summary>
        public void Save(string path, int dpi = 300)
        {
            var file = new SavedFile(path, dpi);
            int code = On(() => family.Call<int>("SaveDrawingImage", (int)file.Type, file.Path, file.Level));
            if (code == (int)ReturnCode.Success && file.IsWhole())
                return;
            if (Points == 0)
                throw new NoInkException();
            throw new NotSavedException(
                file.Name + " could not be written: is its folder there, may this user write, is the disk full?");
        }

        /// <summary>
        /// The next live image of the whole signature, PNG or JPEG (S210); null when the time is over or the pad was
        /// closed. A slow reader gets the newest. Once asked for, the library makes one after every movement as long as
        /// the pad is open, and the pad's next packet waits for it.
        /// </summary>
        public byte[] LiveImage(ImageKind kind, TimeSpan time)
        {
            family.Require("SetRealTimeSignBase64DataCallback");
            if (kind == ImageKind.Bmp)
                throw new ArgumentException("live images are PNG or JPEG");
            lock (receivers)
            {
                if (liveKind != kind)
                    On(() => family.Call<bool>(
                        "SetRealTimeSignBase64DataCallback", (int)kind, Receivers.OnLiveImage));
                liveKind = kind;
            }
            byte[] image;
            return Next(receivers.Images, time, CancellationToken.None, out image) ? image : null;
        }

        /// <summary>The signature stretched to a size in pixels, as PNG with see-through white or JPEG (S210).</summary>
        public byte[] Office(int width, int height, ImageKind kind = ImageKind.Png)
        {
            family.Require("InitialWPSSignCanvas");
            if (width < 1 || height < 1 || kind == ImageKind.Bmp)
                throw new ArgumentException("an office canvas has at least one pixel, and gives PNG or JPEG");
            On(() => family.Call<bool>("InitialWPSSignCanvas", width, height));
            return Taken(On(() => family.Decoded("WPSBase64Encode", "WPSBase64EncodeFree", (int)kind)));
        }

        /// <summary>Gives the fingerprint a canvas of its own and a rectangle on it, in pixels (S310X).</summary>
        public void PlaceFingerprint(int left, int top, int width, int height, int canvasWidth, int canvasHeight)
        {
            family.Require("SetDisplayedFPImageAt");
            int code = On(() => family.Call<int>("SetDisplayedFPImageAt", IntPtr.Zero, canvasWidth, canvasHeight, left,
                top, width, height));
            if (code == (int)ReturnCode.InvalidParameters)
                throw new ArgumentException("the fingerprint's rectangle does not lie inside the canvas");
        }

        /// <summary>The fingerprint's picture; only: cut to its rectangle (S310X).</summary>
        public byte[] Fingerprint(ImageKind kind = ImageKind.Png, bool only = true)
        {
            family.Require("GetFPImageBase64Data");
            byte[] picture =
                On(() => family.Decoded("GetFPImageBase64Data", "FreeFPImageBase64Data", (int)kind, only));
            if (picture == null)
                throw new NotSupportedByPadException(
                    "the fingerprint has no picture of its own yet: call PlaceFingerprint first");
            return picture;
        }

        private void CheckOpen()
        {
            if (closed)
                throw new PadClosedException();
        }

        /// <summary>Runs it on the pad's thread while the pad is open.</summary>
        private T On<T>(Func<T> work)
        {
            CheckOpen();
            return PadThread.Run(() => {
                CheckOpen(); // once more: it may have been closed while this waited for its turn
                return work();
            });
        }

        private void Command(string operation, params object[] arguments)
        {
            family.Require(operation);
            On(() => {
                family.Command(operation, arguments);
                return true;
            });
        }

        private string Text(string operation)
        {
            family.Require(operation);
            return On(() => family.Buffer(operation));
        }

        private T Item<T>(DeviceInfoItem item, Func<IntPtr, T> read)
        {
            return On(() => {
                IntPtr place = Marshal.AllocHGlobal(64);
                try
                {
                    family.Command("GetDeviceInfo", (int)item, place);
                    return read(place);
                }
                finally
                {
                    Marshal.FreeHGlobal(place);
                }
            });
        }

        private static byte[] Taken(byte[] picture)
        {
            if (picture == null)
                throw new NoInkException();
            if (picture.Length == 0)
                throw new NotSavedException(
                    "the picture could not be made: the canvas is too large, or memory or /tmp is full");
            return picture;
        }

        /// <summary>Waits, and looks meanwhile whether the pad is still there.</summary>
        private bool Next<T>(Mailbox<T> mailbox, TimeSpan time, CancellationToken cancelled, out T item)
        {
            CheckOpen();
            if (time == Timeout.InfiniteTimeSpan)
                time = TimeSpan.MaxValue;
            Stopwatch waited = Stopwatch.StartNew();
            int failures = 0;
            while (true)
            {
                TimeSpan left = time - waited.Elapsed;
                if (mailbox.TryTake(left < AskEvery ? left : AskEvery, out item))
                    return true;
                cancelled.ThrowIfCancellationRequested();
                if (mailbox.Closed || waited.Elapsed >= time)
                    return false;
                failures = Answers() ? 0 : failures + 1;
                if (failures == 2)
                    throw new PadLostException();
            }
        }

        private bool Answers()
        {
            try
            {
                return IsConnected;
            }
            catch (PadClosedException)
            {
                return true; // the mailbox says so too
            }
        }
    }
}
