using System;
using System.Collections;
using System.Collections.Generic;

namespace Korvane.Signpad
{
    /// <summary>
    /// One point of the ink, in the pad's raw units. A stroke is closed by a copy of its last point with StrokeEnd set.
    /// </summary>
    public struct Point
    {
        /// <summary>Raw units from the left.</summary>
        public short X { get; internal set; }
        /// <summary>Raw units from the top.</summary>
        public short Y { get; internal set; }
        /// <summary>Raw pressure.</summary>
        public short Pressure { get; internal set; }
        /// <summary>Whether it closes a stroke.</summary>
        public bool StrokeEnd { get; internal set; }
        /// <summary>Milliseconds of a clock that nobody sets.</summary>
        public ulong Tick { get; internal set; }
        /// <summary>The wall clock: seconds since 1970, UTC.</summary>
        public long UnixTime { get; internal set; }
    }

    /// <summary>The points of a signature, in the order in which they were written. It does not change.</summary>
    public sealed class Ink : IReadOnlyList<Point>
    {
        private const int Entry = 24;

        private readonly byte[] record;

        /// <summary>Takes an ink record: 24 bytes a point; what is left over at its end is ignored.</summary>
        public Ink(byte[] record)
        {
            this.record = new byte[record.Length / Entry * Entry];
            Array.Copy(record, this.record, this.record.Length);
        }

        /// <summary>How many points there are.</summary>
        public int Count => record.Length / Entry;

        /// <summary>The point at an index.</summary>
        public Point this[int index]
        {
            get
            {
                if (index < 0 || index >= Count)
                    throw new ArgumentOutOfRangeException(nameof(index));
                int at = index * Entry;
                return new Point
                {
                    X = BitConverter.ToInt16(record, at),
                    Y = BitConverter.ToInt16(record, at + 2),
                    Pressure = BitConverter.ToInt16(record, at + 4),
                    StrokeEnd = record[at + 6] != 0,
                    Tick = BitConverter.ToUInt64(record, at + 8),
                    UnixTime = BitConverter.ToInt64(record, at + 16),
                };
            }
        }

        /// <summary>The ink record, as kvsign and the library's Base64Decode read it.</summary>
        public byte[] ToBytes()
        {
            var bytes = new byte[record.Length + 1];
            record.CopyTo(bytes, 0);
            return bytes;
        }

        /// <summary>The points one after the other.</summary>
        public IEnumerator<Point> GetEnumerator()
        {
            for (int i = 0; i < Count; ++i)
                yield return this[i];
        }

        IEnumerator IEnumerable.GetEnumerator() => GetEnumerator();
    }
}
