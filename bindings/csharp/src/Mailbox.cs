using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.Threading;

namespace Korvane.Signpad
{
    /// <summary>
    /// What arrives on the driver's thread, handed to whoever waits. With a limit the oldest goes for the newest.
    /// </summary>
    internal sealed class Mailbox<T>
    {
        private readonly Queue<T> items = new Queue<T>();
        private readonly int limit;

        internal Mailbox(int limit)
        {
            this.limit = limit;
        }

        internal bool Closed { get; private set; }

        /// <summary>Never waits for a reader, so the driver's thread may call it.</summary>
        internal void Put(T item)
        {
            lock (items)
            {
                if (items.Count == limit)
                    items.Dequeue();
                items.Enqueue(item);
                Monitor.PulseAll(items);
            }
        }

        internal void Close()
        {
            lock (items)
            {
                Closed = true;
                Monitor.PulseAll(items);
            }
        }

        /// <summary>False when the time is over or the mailbox is closed.</summary>
        internal bool TryTake(TimeSpan time, out T item)
        {
            Stopwatch waited = Stopwatch.StartNew();
            lock (items)
            {
                while (items.Count == 0 && !Closed)
                {
                    TimeSpan left = time - waited.Elapsed;
                    if (left <= TimeSpan.Zero)
                        break;
                    Monitor.Wait(items, left);
                }
                item = items.Count > 0 ? items.Peek() : default(T);
                if (items.Count == 0)
                    return false;
                items.Dequeue();
                return true;
            }
        }
    }
}
