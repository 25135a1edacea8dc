using System;
using System.Runtime.InteropServices;
using System.Threading.Tasks;

namespace Korvane.Signpad
{
    /// <summary>
    /// What the library calls on the driver's thread. The two delegates live as long as the program, so the garbage
    /// collector cannot take away what the library may still call. They copy what arrives and return.
    /// </summary>
    internal sealed class Receivers
    {
        internal static volatile Receivers Current;
        internal static readonly LowLevel.EventCallback OnEvent = HandleEvent;
        internal static readonly LowLevel.LiveImageCallback OnLiveImage = HandleLiveImage;

        internal readonly Mailbox<Tap> Taps = new Mailbox<Tap>(int.MaxValue);
        internal readonly Mailbox<byte[]> Images = new Mailbox<byte[]>(1);

        // Taps are handed on in their order, on a thread that the driver does not wait for.
        private Task handling = Task.CompletedTask;

        internal event Action<Tap> Tapped;

        internal void Close()
        {
            Taps.Close();
            Images.Close();
        }

        private static void HandleEvent(int key)
        {
            Receivers receivers = Current;
            if (receivers == null || (key != 0 && key != 1))
                return;
            var tap = (Tap)key;
            receivers.Taps.Put(tap);
            Action<Tap> listeners = receivers.Tapped;
            if (listeners != null)
                receivers.handling = receivers.handling.ContinueWith(_ => listeners(tap), TaskScheduler.Default);
        }

        private static void HandleLiveImage(IntPtr text)
        {
            Receivers receivers = Current;
            if (receivers != null)
                receivers.Images.Put(Convert.FromBase64String(Marshal.PtrToStringAnsi(text)));
        }
    }
}
