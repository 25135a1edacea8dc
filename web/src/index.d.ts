import type { Area, ErrorName, FingerprintRequest, LiveRequest, OpenRequest, PenRequest, RawPoint } from "./protocol.js";

export type { Area, ErrorName, RawPoint } from "./protocol.js";

/** Names of the protocol's errors, and of what happens before anybody talks. */
export type ErrorCode = ErrorName | "browser-asks" | "browser-denied" | "no-bridge" | "not-allowed";

export class BridgeError extends Error {
  readonly code: ErrorCode;
  /** How many are ahead in the queue, of "busy". */
  readonly ahead?: number;
}

export type ImageKind = "png" | "jpeg" | "bmp" | "svg" | "pdf" | "ink" | "fingerprint";

export interface ImageOptions {
  transparent?: boolean;
  dpi?: 150 | 300;
  /** Cut to the ink, with this margin in pixels. */
  marginX?: number;
  marginY?: number;
}

export interface ClientEvents {
  points: CustomEvent<{ first: number; points: RawPoint[] }>;
  tap: CustomEvent<{ key: "confirm" | "cancel" }>;
  live: CustomEvent<{ blob: Blob }>;
  asking: CustomEvent<unknown>;
  lost: CustomEvent<unknown>;
  found: CustomEvent<{ kept: boolean }>;
  queue: CustomEvent<{ ahead: number }>;
  free: CustomEvent<unknown>;
  end: CustomEvent<{ code: number; reason: string }>;
}

/** One pad, while it is open; an EventTarget of the events above. What goes wrong rejects with a BridgeError. */
export class BridgeClient {
  constructor(options?: { port?: number; token?: string });
  readonly connected: boolean;
  connect(): Promise<void>;
  disconnect(): void;
  open(options: OpenRequest): Promise<{ area: Area }>;
  pen(options: PenRequest): Promise<unknown>;
  clear(): Promise<unknown>;
  live(options: LiveRequest): Promise<unknown>;
  fingerprint(place: FingerprintRequest): Promise<unknown>;
  close(): Promise<unknown>;
  image(kind: ImageKind, options?: ImageOptions): Promise<Blob>;
  addEventListener<Name extends keyof ClientEvents>(
    name: Name, listener: (event: ClientEvents[Name]) => void, options?: boolean | AddEventListenerOptions): void;
  removeEventListener<Name extends keyof ClientEvents>(
    name: Name, listener: (event: ClientEvents[Name]) => void, options?: boolean | EventListenerOptions): void;
}

export function findBridge(ports?: number[]): Promise<number>;
export function loopbackPermission(): Promise<"granted" | "prompt" | "denied" | "unknown">;

export type SignatureState = "idle" | "connecting" | "asking" | "ready" | "pointer" | "lost" | "reconnecting" | "done"
  | "ended" | "failed" | ErrorCode;

export interface Pen {
  width: number;
  color: string;
  pressure: boolean;
}

export interface SignatureInk {
  model: string;
  source: "pad" | "pointer" | "";
  width: number;
  height: number;
  parts: { area: Area; pen: Pen; points: RawPoint[] }[];
}

/** <kv-signature model port width pen-width pen-color pen-pressure fallback required name label disabled> */
export class KvSignature extends HTMLElement {
  readonly model: string;
  readonly state: SignatureState;
  readonly source: "pad" | "pointer" | "";
  readonly client: BridgeClient | null;
  readonly value: string;
  readonly ink: SignatureInk;
  readonly form: HTMLFormElement | null;
  readonly name: string | null;
  readonly type: string;
  readonly disabled: boolean;
  required: boolean;
  readonly validity: ValidityState;
  readonly validationMessage: string;
  checkValidity(): boolean;
  reportValidity(): boolean;
  sign(): Promise<void>;
  confirm(): void;
  cancel(): void;
  clear(): void;
  toBlob(options?: { type?: string; quality?: number; scale?: number; background?: string }): Promise<Blob>;
  toSVG(): string;
}

/** Lets the pad write on a SignaturePad of npm's signature_pad 5. */
export function bindSignaturePad(
  pad: { clear(): void; toData(): unknown },
  options?: { model?: OpenRequest["model"]; port?: number; onTap?: (key: "confirm" | "cancel") => void },
): Promise<{ client: BridgeClient; stop: () => void }>;

declare global {
  interface HTMLElementTagNameMap {
    "kv-signature": KvSignature;
  }
}
