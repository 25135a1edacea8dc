using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Threading;
using Korvane.Signpad;

/// <summary>C#'s runner of the scenarios (bindings/scenarios/table.py says what each does).</summary>
static class Scenarios
{
    static readonly TimeSpan Long = TimeSpan.FromSeconds(60);

    static Model model;
    static string driver;

    static void Main(string[] arguments)
    {
        model = (Model)Enum.Parse(typeof(Model), arguments[1]);
        driver = arguments[2];
        var scenario = typeof(Scenarios).GetMethod(char.ToUpper(arguments[0][0]) + arguments[0].Substring(1));
        var answer = (Dictionary<string, object>)scenario.Invoke(null, null);
        Console.WriteLine("{" + string.Join(", ", answer.Select(pair => "\"" + pair.Key + "\": " + Json(pair.Value)))
            + "}");
    }

    static string Json(object value)
    {
        if (value == null)
            return "null";
        return value is string ? "\"" + value + "\"" : value.ToString().ToLowerInvariant();
    }

    [System.Runtime.InteropServices.DllImport("libkvsignpaddrv.so")]
    static extern int KVSIM_EndDelay();

    static Pad Open() => Open(model, driver);

    static Pad Open(Model which, string where)
    {
        Pad pad = Pad.Open(which, 400, 226, where);
        pad.SetPenWidth(2);
        pad.SetPenColor("navy");
        if (KVSIM_EndDelay() != 0)
            throw new InvalidOperationException("the recording does not begin");
        return pad;
    }

    static string Name(Tap? tap) => tap?.ToString().ToLowerInvariant();

    static string Error(Action action)
    {
        try
        {
            action();
        }
        catch (PadException error)
        {
            string name = error.GetType().Name.Replace("Exception", "");
            return name == "NotSupportedByPad" ? "NotSupported" : name;
        }
        catch (ArgumentException)
        {
            return "InvalidArgument";
        }
        return null;
    }

    public static Dictionary<string, object> Capture()
    {
        using (Pad pad = Open())
        {
            Tap? tap = pad.Wait(Long);
            File.WriteAllBytes("text.png", pad.Png());
            File.WriteAllBytes("opaque.png", pad.Picture(ImageKind.Png, false));
            File.WriteAllBytes("text.jpg", pad.Picture(ImageKind.Jpeg));
            File.WriteAllBytes("text.bmp", pad.Picture(ImageKind.Bmp));
            File.WriteAllText("text.svg", pad.Svg());
            Ink ink = pad.Ink();
            File.WriteAllBytes("record.ink", ink.ToBytes());
            foreach (string ending in new[] { "png", "jpg", "bmp", "pdf", "svg" })
                pad.Save("saved." + ending, 300);
            return new Dictionary<string, object> {
                { "tap", Name(tap) }, { "points", ink.Count }, { "ends", ink.Count(point => point.StrokeEnd) },
            };
        }
    }

    public static Dictionary<string, object> Path()
    {
        using (Pad pad = Open())
        {
            Tap? tap = pad.Wait(Long);
            pad.Save("signature ✍️ 😀 ü.png");
            return new Dictionary<string, object> { { "tap", Name(tap) } };
        }
    }

    public static Dictionary<string, object> Cancel()
    {
        using (Pad pad = Open())
            return new Dictionary<string, object> {
                { "tap", Name(pad.WaitAsync(System.Threading.Timeout.InfiniteTimeSpan).Result) }, { "points", pad.Points },
            };
    }

    public static Dictionary<string, object> Timeout()
    {
        using (Pad pad = Open())
        {
            Tap? tap = pad.Wait(TimeSpan.FromSeconds(0.3));
            return new Dictionary<string, object> {
                { "tap", Name(tap) }, { "points", pad.Points }, { "picture", Error(() => pad.Png()) },
                { "file", Error(() => pad.Save("nothing.png")) },
            };
        }
    }

    public static Dictionary<string, object> Unplug()
    {
        using (Pad pad = Open())
            return new Dictionary<string, object> {
                { "error", Error(() => pad.Wait(Long)) }, { "points", pad.Points },
            };
    }

    public static Dictionary<string, object> Fingerprint()
    {
        using (Pad pad = Open())
        {
            string before = Error(() => pad.Fingerprint());
            pad.PlaceFingerprint(10, 20, 104, 144, 300, 200);
            string outside = Error(() => pad.PlaceFingerprint(290, 20, 104, 144, 300, 200));
            pad.PlaceFingerprint(10, 20, 104, 144, 300, 200);
            Tap? tap = pad.Wait(Long);
            File.WriteAllBytes("text.png", pad.Png());
            File.WriteAllBytes("fingerprint.png", pad.Fingerprint());
            return new Dictionary<string, object> {
                { "before", before }, { "outside", outside }, { "tap", Name(tap) },
            };
        }
    }

    public static Dictionary<string, object> Live()
    {
        using (Pad pad = Open())
        {
            int images = 0;
            byte[] newest = null;
            var tapped = new ManualResetEventSlim();
            pad.Tapped += tap => tapped.Set();
            while (!tapped.IsSet)
            {
                byte[] image = pad.LiveImage(ImageKind.Png, TimeSpan.FromMilliseconds(50));
                images += image == null ? 0 : 1;
                newest = image ?? newest;
            }
            newest = pad.LiveImage(ImageKind.Png, TimeSpan.Zero) ?? newest; // the last came before the tap
            File.WriteAllBytes("text.png", pad.Png());
            return new Dictionary<string, object> {
                { "images", images > 1 }, { "same", newest != null && newest.SequenceEqual(pad.Png()) },
            };
        }
    }

    static long Resident()
    {
        GC.Collect();
        return long.Parse(File.ReadAllText("/proc/self/statm").Split(' ')[1]) * 4096;
    }

    static int Files() => Directory.GetFileSystemEntries("/proc/self/fd").Length;

    public static Dictionary<string, object> Cycles()
    {
        long memory = 0;
        int files = 0;
        for (int count = 0; count < 1000; ++count)
        {
            using (Pad pad = Pad.Open(model, 400, 226, driver))
                pad.Tapped += tap => { };
            if (count == 99)
            {
                memory = Resident();
                files = Files();
            }
        }
        return new Dictionary<string, object> {
            { "cycles", 1000 }, { "grown", Resident() - memory > 16 << 20 || Files() > files },
        };
    }

    public static Dictionary<string, object> Collect()
    {
        using (Pad pad = Open())
        {
            var tap = pad.WaitAsync(Long);
            while (!tap.IsCompleted)
                GC.Collect();
            return new Dictionary<string, object> { { "tap", Name(tap.Result) }, { "points", pad.Points } };
        }
    }

    public static Dictionary<string, object> Inside()
    {
        Pad pad = Open();
        int taps = 0;
        using (var closed = new ManualResetEventSlim())
        {
            pad.Tapped += tap => {
                if (pad.IsClosed)
                    return; // one that was on its way already
                ++taps;
                pad.Dispose();
                closed.Set();
            };
            closed.Wait();
        }
        Open().Dispose();
        return new Dictionary<string, object> { { "taps", taps }, { "closed", pad.IsClosed } };
    }

    public static Dictionary<string, object> Exit()
    {
        Pad pad = Open();
        pad.Tapped += tap => Environment.Exit(7);
        Thread.Sleep(System.Threading.Timeout.Infinite);
        return null;
    }

    public static Dictionary<string, object> Forgotten()
    {
        Pad pad = Open();
        pad.Tapped += tap => { };
        return new Dictionary<string, object> { { "open", !pad.IsClosed } };
    }

    public static Dictionary<string, object> Errors()
    {
        Directory.CreateDirectory("empty");
        string none = Error(() => Open(model, "empty"));
        string nowhere = Error(() => Open(model, "not-there/below"));
        Pad pad = Open();
        pad.Wait(Long);
        var answer = new Dictionary<string, object> {
            { "driver", none },
            { "nowhere", nowhere },
            { "second", Error(() => Open()) },
            { "unsupported", Error(() => pad.LiveImage(ImageKind.Png, Long)) },
            { "width", Error(() => pad.SetPenWidth(11)) },
            { "color", Error(() => pad.SetPenColor("nocolour")) },
            { "ending", Error(() => pad.Save("signature")) },
            { "folder", Error(() => pad.Save("missing/signature.png")) },
        };
        pad.Dispose();
        answer["closed"] = Error(() => pad.Ink());
        answer["model"] = Error(() => Open((Model)99, driver));
        return answer;
    }

    public static Dictionary<string, object> Missing()
    {
        return new Dictionary<string, object> { { "first", Error(() => Open()) }, { "again", Error(() => Open()) } };
    }

    public static Dictionary<string, object> Lowlevel()
    {
        int functions = typeof(LowLevel).GetMethods().Count(method => method.Name.StartsWith("KV"));
        string before = Directory.GetCurrentDirectory();
        Open().Dispose();
        return new Dictionary<string, object> {
            { "functions", functions },
            { "points", LowLevel.KVS300_GetTotalInkPointsNumber(5) },
            { "directory", Directory.GetCurrentDirectory() == before },
        };
    }

    static double Timed(int count, Action action)
    {
        for (int i = 0; i < count; ++i)
            action(); // until the compiler has done its work
        var watch = System.Diagnostics.Stopwatch.StartNew();
        for (int i = 0; i < count; ++i)
            action();
        return watch.Elapsed.TotalMilliseconds * 1e6 / count;
    }

    /// <summary>
    /// For bench/languages: nanoseconds of a call as it is and through the class, milliseconds for all points.
    /// </summary>
    public static Dictionary<string, object> Bench()
    {
        using (Pad pad = Open())
        {
            pad.Wait(Long);
            double raw = Timed(20000, () => LowLevel.KVS300_GetTotalInkPointsNumber(5));
            double call = Timed(5000, () => { int points = pad.Points; });
            double ink = Timed(20, () => pad.Ink().Sum(point => point.X));
            return new Dictionary<string, object> {
                { "raw_ns", raw }, { "call_ns", call }, { "ink_ms", ink / 1e6 }, { "points", pad.Points },
            };
        }
    }
}
