using System;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Text;
using System.Text.RegularExpressions;
using Microsoft.Win32.SafeHandles;

namespace Korvane.Signpad
{
    /// <summary>One model's functions, called by the name that they have in every family.</summary>
    internal sealed class Family
    {
        private static bool compared;

        private readonly Model model;
        private readonly string prefix;
        private readonly int deviceType;

        internal Family(Model model)
        {
            this.model = model;
            prefix = "KV" + model;
            deviceType = (int)Enum.Parse(typeof(DeviceType), model.ToString());
            Compare();
        }

        /// <summary>Refuses what this model has not.</summary>
        internal void Require(string operation)
        {
            if (Find(operation) == null)
                throw new NotSupportedByPadException("the " + model + " has no " + operation);
        }

        internal T Call<T>(string operation, params object[] arguments)
        {
            object[] all = new object[] { deviceType }.Concat(arguments).ToArray();
            try
            {
                return (T)Find(operation).Invoke(null, all);
            }
            catch (TargetInvocationException error)
            {
                throw error.InnerException;
            }
        }

        internal void Command(string operation, params object[] arguments)
        {
            int code = Call<int>(operation, arguments);
            if (code != (int)ReturnCode.Success)
                throw new CommandFailedException(operation, code);
        }

        /// <summary>What a call that fills a buffer has written.</summary>
        internal string Buffer(string operation)
        {
            var buffer = new byte[256];
            Command(operation, buffer, buffer.Length);
            return Encoding.UTF8.GetString(buffer, 0, Array.IndexOf(buffer, (byte)0));
        }

        /// <summary>What a text of the library says, which gets it back at once; null when there is none.</summary>
        internal byte[] Decoded(string operation, string givesBack, params object[] arguments)
        {
            using (var text = new Text(this, givesBack, Call<IntPtr>(operation, arguments)))
                return text.IsInvalid ? null : Convert.FromBase64String(Marshal.PtrToStringAnsi(text.Address));
        }

        private MethodInfo Find(string operation)
        {
            return typeof(LowLevel).GetMethod(prefix + "_" + operation);
        }

        private static void Compare()
        {
            if (compared)
                return;
            string there = Regex.Match(Sdk.About(), @"Version : ([\d.]+)").Groups[1].Value;
            Version found;
            Version wanted = new Version(LowLevel.Version);
            if (!Version.TryParse(there, out found) || found.Major != wanted.Major || found < wanted)
                throw new VersionMismatchException(there);
            compared = true;
        }

        /// <summary>A text that the library gets back, whatever happens in between.</summary>
        private sealed class Text : SafeHandleZeroOrMinusOneIsInvalid
        {
            private readonly Family family;
            private readonly string givesBack;

            internal Text(Family family, string givesBack, IntPtr address) : base(true)
            {
                this.family = family;
                this.givesBack = givesBack;
                SetHandle(address);
            }

            internal IntPtr Address => handle;

            protected override bool ReleaseHandle()
            {
                family.Call<object>(givesBack, handle);
                return true;
            }
        }
    }
}
