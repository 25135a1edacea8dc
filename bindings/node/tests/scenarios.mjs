// Node's runner of the scenarios (bindings/scenarios/table.py says what each does).
import fs from 'node:fs';
import koffi from 'koffi';
import { PadError, library, open as openPad } from '../src/index.js';

const [scenario, model, driver] = process.argv.slice(2);
const LONG = { timeout: 60_000 };

async function open() {
    const pad = await openPad(model, { width: 400, height: 226, driver });
    pad.pen({ width: 2, color: 'navy' });
    const simulator = koffi.load(`${driver}/libkvsignpaddrv.so`);
    if (simulator.func('int KVSIM_EndDelay()')() !== 0) {
        throw new Error('the recording does not begin');
    }
    return pad;
}

async function error(action) {
    try {
        await action();
    } catch (thrown) {
        if (thrown instanceof PadError) {
            return thrown.name;
        }
        if (thrown instanceof RangeError) {
            return 'InvalidArgument';
        }
        throw thrown;
    }
    return null;
}

async function withPad(work) {
    const pad = await open();
    try {
        return await work(pad);
    } finally {
        await pad.close();
    }
}

const resident = () => Number(fs.readFileSync('/proc/self/statm', 'utf8').split(' ')[1]) * 4096;
const files = () => fs.readdirSync('/proc/self/fd').length;

const scenarios = {
    capture: () => withPad(async (pad) => {
        const tap = await pad.tap(LONG);
        fs.writeFileSync('text.png', pad.png());
        fs.writeFileSync('opaque.png', pad.png({ transparent: false }));
        fs.writeFileSync('text.jpg', pad.jpeg());
        fs.writeFileSync('text.bmp', pad.bmp());
        fs.writeFileSync('text.svg', pad.svg());
        const ink = pad.ink();
        fs.writeFileSync('record.ink', ink.toBuffer());
        for (const ending of ['png', 'jpg', 'bmp', 'pdf', 'svg']) {
            pad.save(`saved.${ending}`, { dpi: 300 });
        }
        return { tap, points: ink.length, ends: [...ink].filter((point) => point.strokeEnd).length };
    }),

    path: () => withPad(async (pad) => {
        const tap = await pad.tap(LONG);
        pad.save('signature ✍️ 😀 ü.png');
        return { tap };
    }),

    cancel: () => withPad(async (pad) => ({ tap: await pad.tap(), points: pad.points })),

    timeout: () => withPad(async (pad) => ({
        tap: await pad.tap({ timeout: 300 }),
        points: pad.points,
        picture: await error(() => pad.png()),
        file: await error(() => pad.save('nothing.png')),
    })),

    unplug: () => withPad(async (pad) => ({ error: await error(() => pad.tap(LONG)), points: pad.points })),

    fingerprint: () => withPad(async (pad) => {
        const before = await error(() => pad.fingerprint());
        const place = { left: 10, top: 20, width: 104, height: 144 };
        const canvas = { width: 300, height: 200 };
        pad.placeFingerprint(place, canvas);
        const outside = await error(() => pad.placeFingerprint({ ...place, left: 290 }, canvas));
        pad.placeFingerprint(place, canvas);
        const tap = await pad.tap(LONG);
        fs.writeFileSync('text.png', pad.png());
        fs.writeFileSync('fingerprint.png', pad.fingerprint());
        return { before, outside, tap };
    }),

    live: () => withPad(async (pad) => {
        let images = 0;
        let newest;
        let tapped = false;
        const tap = pad.tap(LONG).then(() => (tapped = true));
        while (!tapped) {
            for await (const image of pad.live('png', { timeout: 50 })) {
                newest = image;
                ++images;
                if (tapped) {
                    break;
                }
            }
        }
        await tap;
        for await (const image of pad.live('png', { timeout: 0 })) {
            newest = image;
        }
        fs.writeFileSync('text.png', pad.png());
        return { images: images > 1, same: newest.equals(pad.png()) };
    }),

    cycles: async () => {
        let memory;
        let descriptors;
        for (let count = 0; count < 1000; ++count) {
            const pad = await openPad(model, { width: 400, height: 226, driver });
            pad.points;
            await pad.close();
            if (count === 99) {
                global.gc();
                memory = resident();
                descriptors = files();
            }
        }
        global.gc();
        return { cycles: 1000, grown: resident() - memory > 16 << 20 || files() > descriptors };
    },

    collect: () => withPad(async (pad) => {
        let tapped;
        pad.tap(LONG).then((tap) => (tapped = tap));
        while (!tapped) {
            global.gc();
            await new Promise(setImmediate);
        }
        return { tap: tapped, points: pad.points };
    }),

    exit: async () => {
        const pad = await open();
        for await (const tap of pad.taps()) {
            process.exit(tap === 'confirm' ? 7 : 1);
        }
    },

    forgotten: async () => {
        const pad = await open();
        return { open: !pad.closed };
    },

    errors: async () => {
        fs.mkdirSync('empty');
        const none = await error(() => openPad(model, { driver: 'empty' }));
        const nowhere = await error(() => openPad(model, { driver: 'not-there/below' }));
        const pad = await open();
        await pad.tap(LONG);
        const answer = {
            driver: none,
            nowhere,
            second: await error(() => open()),
            unsupported: await error(() => pad.live().next()),
            width: await error(() => pad.pen({ width: 11 })),
            color: await error(() => pad.pen({ color: 'nocolour' })),
            ending: await error(() => pad.save('signature')),
            folder: await error(() => pad.save('missing/signature.png')),
        };
        await pad.close();
        answer.closed = await error(() => pad.points);
        answer.model = await error(() => openPad('S999', { driver }));
        return answer;
    },

    missing: async () => ({ first: await error(open), again: await error(open) }),

    inside: async () => {
        let taps = 0;
        const pad = await open();
        for await (const tap of pad.taps()) {
            taps += tap === null ? 0 : 1;
            await pad.close();
        }
        await (await open()).close();
        return { taps, closed: pad.closed };
    },

    lowlevel: async () => {
        const before = process.cwd();
        const functions = library();
        const points = functions.KVS300_GetTotalInkPointsNumber(5);
        await (await open()).close();
        return { functions: Object.keys(functions).length, points, directory: process.cwd() === before };
    },

    // For bench/languages: nanoseconds of a call as it is and through the class, milliseconds for all points.
    bench: () => withPad(async (pad) => {
        const functions = library();
        await pad.tap(LONG);
        const timed = (count, action) => {
            for (let i = 0; i < count; ++i) {
                action(); // until the compiler has done its work
            }
            const begin = performance.now();
            for (let i = 0; i < count; ++i) {
                action();
            }
            return ((performance.now() - begin) * 1e6) / count;
        };
        const raw = timed(20000, () => functions.KVS300_GetTotalInkPointsNumber(5));
        const call = timed(5000, () => pad.points);
        const ink = timed(20, () => [...pad.ink()].reduce((sum, point) => sum + point.x, 0));
        return { raw_ns: raw, call_ns: call, ink_ms: ink / 1e6, points: pad.points };
    }),
};

console.log(JSON.stringify(await scenarios[scenario]()));
