const ENTRY = 24;

/**
 * The points of a signature, in the order in which they were written. It does not change.
 * A point: { x, y, pressure, strokeEnd, tick, time }, in the pad's raw units; a stroke is closed by a copy of its last
 * point with strokeEnd set. tick counts milliseconds of a clock that nobody sets, time is the wall clock's second.
 */
export class Ink {
    #record;

    /** Takes an ink record: 24 bytes a point; what is left over at its end is ignored. */
    constructor(record) {
        this.#record = Buffer.from(record.subarray(0, Math.floor(record.length / ENTRY) * ENTRY));
    }

    get length() {
        return this.#record.length / ENTRY;
    }

    at(index) {
        const i = index < 0 ? index + this.length : index;
        if (!(i >= 0 && i < this.length)) {
            return undefined;
        }
        const entry = this.#record.subarray(i * ENTRY, (i + 1) * ENTRY);
        return {
            x: entry.readInt16LE(0),
            y: entry.readInt16LE(2),
            pressure: entry.readInt16LE(4),
            strokeEnd: entry[6] !== 0,
            tick: Number(entry.readBigUInt64LE(8)),
            time: new Date(Number(entry.readBigInt64LE(16)) * 1000),
        };
    }

    *[Symbol.iterator]() {
        for (let i = 0; i < this.length; ++i) {
            yield this.at(i);
        }
    }

    /** The ink record, as kvsign and the library's Base64Decode read it. */
    toBuffer() {
        return Buffer.concat([this.#record, Buffer.alloc(1)]);
    }
}
