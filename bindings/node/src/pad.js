import fs from 'node:fs';
import path from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';
import koffi from 'koffi';
import {
    AlreadyOpen,
    CommandFailed,
    DriverNotFound,
    NoInk,
    NotSaved,
    NotSupported,
    PadClosed,
    PadLost,
    PadNotFound,
} from './errors.js';
import { Ink } from './ink.js';
import {
    COLORS,
    DeviceInfoItem,
    DpiLevel,
    EncodedImageType,
    FAMILIES,
    GIVES_BACK,
    ImageType,
    ReturnCode,
} from './lowlevel.js';
import { library } from './sdk.js';

// Why nothing here gives the library a function to call: koffi runs callbacks on the main thread, the driver's thread
// waits for it, and closing waits for the driver's thread. Closing from JavaScript would wait for itself, for ever.
const LOOK_EVERY = 20; // milliseconds between two looks for a tap
const ASK_EVERY = 500; // between two questions whether the pad is still there; two failures in a row: it is lost

const DRIVER = 'libkvsignpaddrv.so';
const KINDS = Object.freeze({ png: EncodedImageType.PNG, jpeg: EncodedImageType.JPEG, bmp: EncodedImageType.BITMAP });
const ENDINGS = Object.freeze({
    '.bmp': ImageType.BITMAP,
    '.jpg': ImageType.JPEG,
    '.jpeg': ImageType.JPEG,
    '.png': ImageType.PNG,
    '.pdf': ImageType.PDF,
    '.svg': ImageType.SVG,
});

let current = null;

process.on('exit', () => current?.closeNow());

/** One open signature pad: the canvas that the pen writes on, and the ink on it. Made by open(). */
export class Pad {
    #functions;
    #prefix;
    #device;
    #closed = false;
    #has;

    /** For open(). */
    constructor(model, { width = 800, height = 452, driver } = {}) {
        if (!Object.hasOwn(FAMILIES, model)) {
            throw new RangeError(`${model} is no model: ${Object.keys(FAMILIES).join(', ')}`);
        }
        if (!(Number.isInteger(width) && Number.isInteger(height) && width > 0 && height > 0)) {
            throw new RangeError(`a canvas has at least one pixel, not ${width} x ${height}`);
        }
        if (driver !== undefined && (typeof driver !== 'string' || driver === '')) {
            throw new RangeError(`the driver's folder is a path, not ${driver}`);
        }
        if (current) {
            throw new AlreadyOpen(`${current} is open, and the library has one pad at a time: close it first`);
        }
        this.model = model;
        this.width = width;
        this.height = height;
        this.#functions = library();
        [this.#prefix, this.#device] = FAMILIES[model];
        this.#has = (operation) => Object.hasOwn(this.#functions, `${this.#prefix}_${operation}`);
        const opened = inDirectory(driver, () => this.#call('InitialDevice', null, 0, 0, width, height));
        if (!opened) {
            this.#closed = true;
            throw whyNot(model, driver);
        }
        current = this;
    }

    toString() {
        return `Pad ${this.model} ${this.width}x${this.height}${this.#closed ? ' (closed)' : ''}`;
    }

    get closed() {
        return this.#closed;
    }

    /** Ends the work with the pad; what was written and not taken is gone. Closing twice does nothing. */
    async close() {
        this.closeNow();
    }

    /** As close, at once: for handlers of 'exit'. */
    closeNow() {
        if (!this.#closed) {
            this.#call('UnInitialDevice');
            this.#closed = true;
            current = current === this ? null : current;
        }
    }

    async [Symbol.asyncDispose ?? Symbol.for('Symbol.asyncDispose')]() {
        await this.close();
    }

    // --- The pen ---

    /** Sets the pen for strokes to come: width 1 to 10, colour ("navy", "#000080", [0, 0, 128]), pressure or not. */
    pen({ width, color, pressure } = {}) {
        if (width !== undefined && !(Number.isInteger(width) && width >= 1 && width <= 10)) {
            throw new RangeError(`a pen's width is 1 to 10, not ${width}`);
        }
        const rgb = color === undefined ? undefined : colorOf(color);
        if (width !== undefined) {
            this.#command('SetPenWidth', width);
        }
        if (rgb) {
            this.#command('SetPenColor', ...rgb);
        }
        if (pressure !== undefined) {
            this.#command('SetPenStyle', Boolean(pressure));
        }
    }

    /** Empties the canvas, the ink and the pad's own screen, and ends clip. */
    clear() {
        this.#command('Clear');
    }

    /** Switches the pad's screen on or off (models with one); off also empties the canvas, not the ink. */
    screen(on) {
        this.#command('OpenLCD', Boolean(on));
    }

    /** Shows or hides the version on the pad's screen (models with one). */
    showVersion(on) {
        this.#command('DisplayHWVersion', Boolean(on));
    }

    // --- Taps ---

    /**
     * The next tap: 'confirm' or 'cancel'; null when the time (milliseconds) is over or the pad was closed. Rejects with
     * PadLost soon after the pad was unplugged. Of two taps within 20 ms the second is told.
     */
    async tap({ timeout = Infinity, signal } = {}) {
        return this.#until(timeout, signal, () => {
            const key = this.#call('GetDeviceConfirmOrCancelKeyStatus');
            return key < 0 ? null : key === 1 ? 'confirm' : 'cancel';
        });
    }

    /** Waits for the next tap: true for confirm; false for cancel, and when the time is over. */
    async confirmed(options) {
        return (await this.tap(options)) === 'confirm';
    }

    /** The taps as they come, until the pad is closed. */
    async *taps(options) {
        let tap = await this.tap(options);
        while (tap !== null) {
            yield tap;
            tap = this.#closed ? null : await this.tap(options); // whoever reads them may close the pad
        }
    }

    // --- What it is ---

    /** What the library knows of the pad. */
    get info() {
        return {
            vendor: text(this.#item(DeviceInfoItem.VENDOR)),
            product: text(this.#item(DeviceInfoItem.PRODUCT)),
            width: this.#item(DeviceInfoItem.AXIS_X).readInt32LE(4),
            height: this.#item(DeviceInfoItem.AXIS_Y).readInt32LE(4),
            maxPressure: this.#item(DeviceInfoItem.PRESSURE).readInt32LE(0),
        };
    }

    /** The pad's own identifier. */
    get padId() {
        return this.#text('GetHWPadID');
    }

    /** The pen's identifier (models with a screen). */
    get penId() {
        return this.#text('GetHWPenID');
    }

    /** The pad's version text. */
    get version() {
        return this.#text('GetHWVersion');
    }

    /** Whether the pad answers. */
    get connected() {
        const buffer = Buffer.alloc(256);
        this.#checkOpen();
        return this.#call('GetHWVersion', buffer, buffer.length) === ReturnCode.SUCCESS;
    }

    // --- The ink ---

    /** How many points are stored. */
    get points() {
        this.#checkOpen();
        return Math.max(0, this.#call('GetTotalInkPointsNumber'));
    }

    /** All points that are stored now; none when nothing was written. */
    ink() {
        return new Ink(this.#decoded('Base64Encode', EncodedImageType.INK) ?? Buffer.alloc(0));
    }

    // --- Pictures ---

    /** Cuts pictures to come to the ink and margins in pixels; null: the whole canvas. */
    clip(across, down = across) {
        if (across !== null && !(across >= 0 && down >= 0)) {
            throw new RangeError('a margin is 0 pixels or more');
        }
        this.#command('SetSaveClipImageMargin', across !== null, across ?? 0, down ?? 0);
    }

    /** The signature as PNG; transparent: white is see-through. */
    png({ transparent = true } = {}) {
        return this.#picture('Base64EncodeEx', EncodedImageType.PNG, transparent);
    }

    jpeg() {
        return this.#picture('Base64EncodeEx', EncodedImageType.JPEG, false);
    }

    bmp() {
        return this.#picture('Base64EncodeEx', EncodedImageType.BITMAP, false);
    }

    /** The signature as SVG, drawn anew from the points. (The library also leaves it in /tmp/KVeSign.svg.) */
    svg() {
        return this.#picture('GetSVGImageBase64Data').toString();
    }

    /** Writes the signature at 150 or 300 dpi; the name's ending says how: .png .jpg .bmp .pdf .svg. */
    save(file, { dpi = 300, transparent = true } = {}) {
        const name = path.resolve(file);
        let type = ENDINGS[path.extname(name).toLowerCase()];
        if (type === undefined || name.includes('\0')) {
            throw new RangeError(`${file}: its name ends in one of ${Object.keys(ENDINGS).join(', ')}`);
        }
        if (dpi !== 150 && dpi !== 300) {
            throw new RangeError(`files have 150 or 300 dots per inch, not ${dpi}`);
        }
        if (type === ImageType.PNG && !transparent) {
            type = ImageType.BITMAP; // the ending chooses the format, the type only whether white becomes transparent
        }
        this.#checkOpen();
        const before = identity(name);
        const level = dpi === 150 ? DpiLevel.DPI_150 : DpiLevel.DPI_300;
        const code = this.#call('SaveDrawingImage', type, name, level);
        if (code === ReturnCode.SUCCESS && isWhole(name, type, before)) {
            return;
        }
        if (this.points === 0) {
            throw new NoInk();
        }
        throw new NotSaved(`${name} could not be written: is its folder there, may this user write, is the disk full?`);
    }

    // --- Live images, office canvas (S210) ---

    /**
     * The whole signature, 'png' or 'jpeg', whenever there are new points, until the pad is closed (S210). Made here and
     * not by the library's push, which needs a callback.
     */
    async *live(kind = 'png', { interval = LOOK_EVERY, timeout = Infinity, signal } = {}) {
        if (kind !== 'png' && kind !== 'jpeg') {
            throw new RangeError(`live images are png or jpeg, not ${kind}`);
        }
        this.#require('SetRealTimeSignBase64DataCallback');
        this.#checkOpen();
        let shown = 0;
        while (!this.#closed) {
            const image = await this.#until(timeout, signal, () => {
                const points = this.points;
                if (points === shown || points === 0) {
                    return null;
                }
                shown = points;
                return this.#picture('Base64Encode', KINDS[kind]);
            }, interval);
            if (image === null) {
                return;
            }
            yield image;
        }
    }

    /** The signature stretched to a size in pixels, as 'png' (white is see-through) or 'jpeg' (S210). */
    office(width, height, kind = 'png') {
        if (!(width > 0 && height > 0) || (kind !== 'png' && kind !== 'jpeg')) {
            throw new RangeError('an office canvas has at least one pixel, and gives png or jpeg');
        }
        this.#require('InitialWPSSignCanvas');
        this.#checkOpen();
        this.#call('InitialWPSSignCanvas', width, height);
        return this.#picture('WPSBase64Encode', KINDS[kind]);
    }

    // --- Fingerprint (S310X) ---

    /** Gives the fingerprint a canvas of its own and a rectangle on it, in pixels (S310X). */
    placeFingerprint({ left, top, width, height }, canvas = this) {
        this.#require('SetDisplayedFPImageAt');
        this.#checkOpen();
        const size = [canvas.width, canvas.height];
        const code = this.#call('SetDisplayedFPImageAt', null, ...size, left, top, width, height);
        if (code === ReturnCode.INVALID_PARAMETERS) {
            throw new RangeError("the fingerprint's rectangle does not lie inside the canvas");
        }
    }

    /** The fingerprint's picture: 'png', 'jpeg' or 'bmp'; only: cut to its rectangle (S310X). */
    fingerprint(kind = 'png', { only = true } = {}) {
        this.#require('GetFPImageBase64Data');
        if (!Object.hasOwn(KINDS, kind)) {
            throw new RangeError(`the fingerprint's picture is png, jpeg or bmp, not ${kind}`);
        }
        const picture = this.#decoded('GetFPImageBase64Data', KINDS[kind], only);
        if (!picture) {
            throw new NotSupported('the fingerprint has no picture of its own yet: call placeFingerprint first');
        }
        return picture;
    }

    // --- Calls ---

    #checkOpen() {
        if (this.#closed) {
            throw new PadClosed();
        }
    }

    #require(operation) {
        if (!this.#has(operation)) {
            throw new NotSupported(`the ${this.model} has no ${operation}`);
        }
    }

    #call(operation, ...values) {
        return this.#functions[`${this.#prefix}_${operation}`](this.#device, ...values);
    }

    #command(operation, ...values) {
        this.#require(operation);
        this.#checkOpen();
        const code = this.#call(operation, ...values);
        if (code !== ReturnCode.SUCCESS) {
            throw new CommandFailed(operation, code);
        }
    }

    #text(operation) {
        const buffer = Buffer.alloc(256);
        this.#command(operation, buffer, buffer.length);
        return text(buffer);
    }

    #item(item) {
        const buffer = Buffer.alloc(64);
        this.#command('GetDeviceInfo', item, buffer);
        return buffer;
    }

    /** What a text of the library says, which gets it back at once; null when there is none. */
    #decoded(operation, ...values) {
        this.#checkOpen();
        const address = this.#call(operation, ...values);
        if (!address) {
            return null;
        }
        try {
            return Buffer.from(koffi.decode(address, 'char', -1), 'base64');
        } finally {
            this.#call(GIVES_BACK[operation], address);
        }
    }

    #picture(operation, ...values) {
        const picture = this.#decoded(operation, ...values);
        if (!picture) {
            throw new NoInk();
        }
        if (picture.length === 0) {
            throw new NotSaved('the picture could not be made: the canvas is too large, or memory or /tmp is full');
        }
        return picture;
    }

    /** What `look` answers as soon as that is not null; looks meanwhile whether the pad is still there. */
    async #until(timeout, signal, look, interval = LOOK_EVERY) {
        this.#checkOpen();
        const end = performance.now() + timeout;
        let asked = performance.now();
        for (let failures = 0; ; ) {
            signal?.throwIfAborted();
            if (this.#closed) {
                return null;
            }
            const found = look();
            if (found !== null || performance.now() >= end) {
                return found;
            }
            if (performance.now() - asked >= ASK_EVERY) {
                asked = performance.now();
                failures = this.connected ? 0 : failures + 1;
                if (failures === 2) {
                    throw new PadLost();
                }
            }
            await sleep(Math.max(0, Math.min(interval, end - performance.now())));
        }
    }
}

/** Opens a pad. model: its name, such as 'S300'. driver: the folder of libkvsignpaddrv.so. */
export async function open(model, options) {
    return new Pad(model, options);
}

/** The library loads the driver from the working directory: changes it, and puts it back. */
function inDirectory(directory, work) {
    if (directory === undefined) {
        return work();
    }
    const before = process.cwd();
    try {
        process.chdir(directory);
    } catch (error) {
        throw new DriverNotFound(`the pad driver's folder cannot be entered (${error.message})`);
    }
    try {
        return work();
    } finally {
        process.chdir(before);
    }
}

/** What most likely kept a pad from being opened. */
function whyNot(model, directory) {
    const place = path.resolve(directory ?? '.');
    if (!fs.existsSync(path.join(place, DRIVER))) {
        return new DriverNotFound(`there is no ${DRIVER} in ${place}: name the pad driver's folder as the option driver`);
    }
    return new PadNotFound(
        `no ${model} answers: is it plugged in, is it this model, may this user reach it, does another program use it? ` +
            '(`kvsign doctor` finds out)',
    );
}

function colorOf(color) {
    const rgb =
        typeof color !== 'string'
            ? color
            : COLORS[color.toLowerCase()] ??
              /^#([0-9a-f]{2})([0-9a-f]{2})([0-9a-f]{2})$/i.exec(color)?.slice(1).map((part) => parseInt(part, 16));
    if (!Array.isArray(rgb) || rgb.length !== 3 || !rgb.every((part) => Number.isInteger(part) && part >= 0 && part <= 255)) {
        throw new RangeError(`${color} is no colour: write #rrggbb, [r, g, b], or ${Object.keys(COLORS).join(', ')}`);
    }
    return rgb;
}

function text(buffer) {
    return buffer.toString('utf8', 0, Math.max(0, buffer.indexOf(0)));
}

/** What changes of a file when it is written. */
function identity(name) {
    const found = fs.statSync(name, { bigint: true, throwIfNoEntry: false });
    return found && `${found.dev} ${found.ino} ${found.size} ${found.mtimeNs}`;
}

/** The library does not notice an SVG that could not be written: looks for its end. */
function isWhole(name, type, before) {
    if (type !== ImageType.SVG) {
        return true;
    }
    const after = identity(name);
    return after !== undefined && after !== before && fs.readFileSync(name, 'utf8').trimEnd().endsWith('</svg>');
}
