/// <reference types="node" />

import type { Model } from './models.js';

export type { Model };
export type TapKey = 'confirm' | 'cancel';
export type Color = string | readonly [number, number, number];

/** The version of the header that these bindings were made from. */
export const VERSION: string;

/** The library's name, version and maker. */
export function about(): string;

/** The library's functions, as they are. KVSIGNPAD_LIBRARY names another file than the installed one. */
export function library(): Readonly<Record<string, (...values: unknown[]) => unknown>>;

export interface OpenOptions {
    /** Of the canvas, in pixels; 800 by 452 if not given. */
    width?: number;
    height?: number;
    /** The folder of libkvsignpaddrv.so; the working directory if not given. */
    driver?: string;
}

export interface WaitOptions {
    /** Milliseconds. */
    timeout?: number;
    signal?: AbortSignal;
}

/** Opens a pad. Rejects with a PadError that says why it cannot. */
export function open(model: Model, options?: OpenOptions): Promise<Pad>;

export interface PadInfo {
    vendor: string;
    product: string;
    /** Of the writing area, in raw units. */
    width: number;
    height: number;
    maxPressure: number;
}

/** One point, in the pad's raw units. A stroke is closed by a copy of its last point with strokeEnd set. */
export interface Point {
    x: number;
    y: number;
    pressure: number;
    strokeEnd: boolean;
    /** Milliseconds of a clock that nobody sets. */
    tick: number;
    time: Date;
}

/** The points of a signature, in the order in which they were written. */
export class Ink implements Iterable<Point> {
    constructor(record: Uint8Array);
    readonly length: number;
    at(index: number): Point | undefined;
    [Symbol.iterator](): Iterator<Point>;
    /** The ink record, as kvsign and the library's Base64Decode read it. */
    toBuffer(): Buffer;
}

export interface Size {
    width: number;
    height: number;
}

export interface Rectangle extends Size {
    left: number;
    top: number;
}

/** One open signature pad. Use it on the thread that opened it; it polls and takes no callbacks. */
export class Pad {
    private constructor();
    readonly model: Model;
    readonly width: number;
    readonly height: number;
    readonly closed: boolean;
    readonly connected: boolean;
    readonly info: PadInfo;
    readonly padId: string;
    readonly penId: string;
    readonly version: string;
    /** How many points are stored. */
    readonly points: number;

    close(): Promise<void>;
    /** As close, at once: for handlers of 'exit'. */
    closeNow(): void;
    [Symbol.asyncDispose](): Promise<void>;

    pen(settings: { width?: number; color?: Color; pressure?: boolean }): void;
    clear(): void;
    screen(on: boolean): void;
    showVersion(on: boolean): void;

    /** The next tap; null when the time is over or the pad was closed. Rejects with PadLost when it was unplugged. */
    tap(options?: WaitOptions): Promise<TapKey | null>;
    /** Waits for the next tap: true for confirm; false for cancel, and when the time is over. */
    confirmed(options?: WaitOptions): Promise<boolean>;
    taps(options?: WaitOptions): AsyncGenerator<TapKey, void, void>;

    ink(): Ink;
    /** Cuts pictures to come to the ink and margins in pixels; null: the whole canvas. */
    clip(across: number | null, down?: number): void;
    png(options?: { transparent?: boolean }): Buffer;
    jpeg(): Buffer;
    bmp(): Buffer;
    svg(): string;
    /** Writes the signature; the name's ending says how: .png .jpg .bmp .pdf .svg. */
    save(file: string, options?: { dpi?: 150 | 300; transparent?: boolean }): void;

    /** The whole signature whenever there are new points, until the pad is closed (S210). */
    live(kind?: 'png' | 'jpeg', options?: WaitOptions & { interval?: number }): AsyncGenerator<Buffer, void, void>;
    /** The signature stretched to a size in pixels (S210). */
    office(width: number, height: number, kind?: 'png' | 'jpeg'): Buffer;

    /** Gives the fingerprint a canvas of its own and a rectangle on it, in pixels (S310X). */
    placeFingerprint(rectangle: Rectangle, canvas?: Size): void;
    /** The fingerprint's picture; only: cut to its rectangle (S310X). */
    fingerprint(kind?: 'png' | 'jpeg' | 'bmp', options?: { only?: boolean }): Buffer;
}

/** Whatever goes wrong with a pad. Its name says what, its message what to do about it. */
export class PadError extends Error {}
/** The library libkvsignpadsdk.so.1 cannot be loaded. */
export class LibraryNotFound extends PadError {}
/** The library is older than these bindings, or of another major version. */
export class VersionMismatch extends PadError {}
/** There is no pad driver where it was looked for. */
export class DriverNotFound extends PadError {}
/** The driver is there, but no pad of this model answers. */
export class PadNotFound extends PadError {}
/** The pad no longer answers: its plug was pulled, or it has lost its power. The ink so far is kept. */
export class PadLost extends PadError {}
/** Another pad is open: the library has one at a time. */
export class AlreadyOpen extends PadError {}
/** The pad was closed before. */
export class PadClosed extends PadError {}
/** This model has no such thing. */
export class NotSupported extends PadError {}
/** Nothing has been written on the pad yet. */
export class NoInk extends PadError {}
/** A picture could not be made or written; an earlier file is as it was. */
export class NotSaved extends PadError {}
/** The pad or its driver refused a command. */
export class CommandFailed extends PadError {
    readonly code: number;
}
