package com.korvane.signpad;

import java.nio.ByteBuffer;
import java.nio.ByteOrder;
import java.time.Instant;
import java.util.AbstractList;
import java.util.Arrays;
import java.util.RandomAccess;

/** The points of a signature, in the order in which they were written. It does not change. */
public final class Ink extends AbstractList<Point> implements RandomAccess {
    private static final int ENTRY = 24;

    private final ByteBuffer entries;

    /**
     * Takes an ink record: 24 bytes a point; what is left over at its end is ignored.
     *
     * @param record the bytes, as {@link #toBytes} gives them
     */
    public Ink(byte[] record) {
        byte[] whole = Arrays.copyOf(record, record.length / ENTRY * ENTRY);
        entries = ByteBuffer.wrap(whole).order(ByteOrder.LITTLE_ENDIAN);
    }

    @Override
    public Point get(int index) {
        if (index < 0 || index >= size()) {
            throw new IndexOutOfBoundsException("the ink has no point " + index);
        }
        int at = index * ENTRY;
        return new Point(
                entries.getShort(at),
                entries.getShort(at + 2),
                entries.getShort(at + 4),
                entries.get(at + 6) != 0,
                entries.getLong(at + 8),
                moment(entries.getLong(at + 16)));
    }

    @Override
    public int size() {
        return entries.capacity() / ENTRY;
    }

    /**
     * The ink record, as kvsign and the library's Base64Decode read it.
     *
     * @return a new array
     */
    public byte[] toBytes() {
        return Arrays.copyOf(entries.array(), entries.capacity() + 1);
    }

    /** A record from elsewhere may hold a second that no calendar has. */
    private static Instant moment(long seconds) {
        long bounded = Math.max(Instant.MIN.getEpochSecond(), Math.min(Instant.MAX.getEpochSecond(), seconds));
        return Instant.ofEpochSecond(bounded);
    }
}
