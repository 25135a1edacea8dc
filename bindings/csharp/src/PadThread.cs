using System;
using System.Collections.Concurrent;
using System.Runtime.ExceptionServices;
using System.Threading;

namespace Korvane.Signpad
{
    /// <summary>
    /// The one thread that every pad lives on, so that a program may use a pad from any thread of its own: the library
    /// wants it opened, used and closed on one.
    /// </summary>
    internal static class PadThread
    {
        private static readonly BlockingCollection<Action> Work = new BlockingCollection<Action>();
        private static readonly Thread Worker = Start();

        private static Thread Start()
        {
            var thread = new Thread(() => {
                foreach (Action action in Work.GetConsumingEnumerable())
                    action();
            });
            thread.IsBackground = true;
            thread.Name = "kvsignpad";
            thread.Start();
            return thread;
        }

        /// <summary>The work's result, or its exception.</summary>
        internal static T Run<T>(Func<T> work)
        {
            if (Thread.CurrentThread == Worker)
                return work();
            T result = default(T);
            ExceptionDispatchInfo error = null;
            // Not a Task: its continuations could run on the pad's thread.
            using (var done = new ManualResetEventSlim())
            {
                Work.Add(() => {
                    try
                    {
                        result = work();
                    }
                    catch (Exception thrown)
                    {
                        error = ExceptionDispatchInfo.Capture(thrown);
                    }
                    done.Set();
                });
                done.Wait();
            }
            error?.Throw();
            return result;
        }
    }
}
