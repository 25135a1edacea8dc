// The connection to kv-sign-bridge on this computer: finds it, opens the pad, hands on what comes from it.
import { answer, area, events, requests } from "./checks.js";

const PORTS = [47631, 47632, 47633, 47634, 47635, 47636, 47637, 47638];
const PROTOCOL = 1;

/** What went wrong, by the names of the protocol and those of words.js. */
export class BridgeError extends Error {
  constructor(name, message = name, more = {}) {
    super(message);
    this.name = "BridgeError";
    this.code = name;
    Object.assign(this, more);
  }
}

const isInteger = (value, [least, most]) => Number.isInteger(value) && value >= least && value <= most;
const fits = {
  Integer: isInteger,
  Word: (value, choices) => choices.includes(value),
  Boolean: (value) => typeof value === "boolean",
  Text: (value) => typeof value === "string",
  Number: (value) => Number.isFinite(value),
  Color: (value) => /^#[0-9a-f]{6}$/.test(value),
  List: Array.isArray,
  Object: (value) => value !== null && typeof value === "object",
};

/** Whether the members of a message are those of the protocol. */
export function isMessage(message, rules) {
  return Object.entries(rules).every(([name, [kind, required, range]]) =>
    message[name] === undefined ? !required : fits[kind](message[name], range));
}

const isPoint = (point) => Array.isArray(point) && point.length === 5 && point.every(Number.isInteger);

// No browser asks for a page that is on the own computer itself, but Chromium says prompt all the same.
const isOfThisComputer = () => /^(localhost|.+\.localhost|127(\.\d+){3}|\[::1\])$/.test(globalThis.location?.hostname);

/** granted, prompt, denied; or unknown where the browser asks nobody. */
export async function loopbackPermission() {
  if (isOfThisComputer()) return "unknown";
  for (const name of ["loopback-network", "local-network-access"]) {
    try {
      return (await navigator.permissions.query({ name })).state;
    } catch { /* not known under this name */ }
  }
  return "unknown";
}

async function hello(port, signal) {
  const reply = await fetch(`http://127.0.0.1:${port}/hello`, { signal, credentials: "omit", cache: "no-store" });
  const { product, protocol } = await reply.json();
  if (product !== "kv-sign-bridge" || protocol !== PROTOCOL) throw new Error("another program");
  return port;
}

/** The bridge's port. Where the browser has to ask the person, this waits for the answer. */
export async function findBridge(ports = PORTS) {
  const before = await loopbackPermission();
  if (before === "denied") throw new BridgeError("browser-denied");
  const signal = before === "prompt" ? undefined : AbortSignal.timeout(5000);
  try {
    return await Promise.any(ports.map((port) => hello(port, signal)));
  } catch { /* nobody has answered, or not to this page */ }
  const after = await loopbackPermission();
  if (after === "denied") throw new BridgeError("browser-denied");
  // Chromium would ask the person again. Firefox says prompt also where it lets the page through without asking.
  if (after === "prompt" && navigator.userAgentData) throw new BridgeError("browser-asks");
  // Without CORS an answer cannot be read, but that there was one can be told.
  const probes = ports.map((port) =>
    fetch(`http://127.0.0.1:${port}/hello`, { mode: "no-cors", credentials: "omit", signal: AbortSignal.timeout(5000) }));
  const answered = await Promise.any(probes).catch(() => null);
  throw new BridgeError(answered ? "not-allowed" : after === "prompt" ? "browser-asks" : "no-bridge");
}

/**
 * One pad, while it is open. Events: points (detail.points, detail.first), tap (detail.key), live (detail.blob), asking,
 * lost, found, queue (detail.ahead), free, end (detail.code and detail.reason, of the WebSocket).
 */
export class BridgeClient extends EventTarget {
  #socket = null;
  #calls = new Map();
  #id = 0;
  #binary = [];

  /** @param {{port?: number, token?: string}} [options] */
  constructor(options = {}) {
    super();
    this.options = options;
  }

  get connected() {
    return this.#socket?.readyState === 1;
  }

  async connect() {
    if (this.connected) return;
    const port = await findBridge(this.options.port ? [Number(this.options.port)] : PORTS);
    const protocols = ["kvsign.v1"];
    if (this.options.token) protocols.push(`kvsign.token.${this.options.token}`);
    const socket = new WebSocket(`ws://127.0.0.1:${port}/`, protocols);
    socket.binaryType = "arraybuffer";
    await new Promise((resolve, reject) => {
      socket.onopen = resolve;
      socket.onclose = () => reject(new BridgeError("no-bridge"));
    });
    this.#socket = socket;
    socket.onmessage = ({ data }) => (typeof data === "string" ? this.#onText(data) : this.#onBinary(data));
    socket.onclose = ({ code, reason }) => this.#onEnd(socket, { code, reason });
  }

  /** Ends the connection; the pad is free then. */
  disconnect() {
    const socket = this.#socket;
    this.#socket = null;
    socket?.close();
    this.#failAll();
  }

  /** @returns {Promise<object>} the answer, whose area says where a raw point is */
  open(options) { return this.#call("open", options); }
  pen(options) { return this.#call("pen", options); }
  clear() { return this.#call("clear", {}); }
  live(options) { return this.#call("live", options); }
  fingerprint(place) { return this.#call("fingerprint", place); }
  close() { return this.#call("close", {}); }

  /** @returns {Promise<Blob>} the library's own picture: png, jpeg, bmp, svg, pdf, ink, fingerprint */
  async image(kind, options = {}) {
    return (await this.#call("image", { ...options, kind })).blob;
  }

  #call(op, members) {
    if (!this.connected) return Promise.reject(new BridgeError("no-bridge"));
    const id = ++this.#id;
    const message = { op, id, ...members };
    if (!isMessage(message, requests[op])) return Promise.reject(new BridgeError("bad-message"));
    return new Promise((resolve, reject) => {
      this.#calls.set(id, { resolve, reject });
      this.#socket.send(JSON.stringify(message));
    });
  }

  #onText(text) {
    let message;
    try {
      message = JSON.parse(text);
    } catch {
      return;
    }
    if (Object.hasOwn(events, message.event)) {
      if (isMessage(message, events[message.event])) this.#onEvent(message);
    } else if (isMessage(message, answer)) {
      this.#onAnswer(message);
    }
  }

  #onEvent(message) {
    if (message.event === "points" && !message.points.every(isPoint)) return;
    if (message.event === "live") this.#binary.push({ id: 0, type: message.type });
    else this.#tell(message.event, message);
  }

  #onAnswer(message) {
    const call = this.#calls.get(message.id);
    if (!call) return;
    if (message.ok && message.bytes !== undefined) {
      this.#binary.push({ ...call, id: message.id, type: message.type, message });
      return;
    }
    this.#calls.delete(message.id);
    if (!message.ok) call.reject(new BridgeError(message.error ?? "failed", message.message, { ahead: message.ahead }));
    else if (message.area && !isMessage(message.area, area)) call.reject(new BridgeError("failed"));
    else call.resolve(message);
  }

  #onBinary(data) {
    if (data.byteLength < 4) return;
    const id = new DataView(data).getUint32(0);
    const expected = this.#binary.findIndex((each) => each.id === id);
    if (expected < 0) return;
    const [{ resolve, type, message }] = this.#binary.splice(expected, 1);
    const blob = new Blob([new Uint8Array(data, 4)], { type });
    if (id === 0) {
      this.#tell("live", { blob });
      return;
    }
    this.#calls.delete(id);
    resolve({ ...message, blob });
  }

  #onEnd(socket, detail) {
    if (socket !== this.#socket) return;
    this.#socket = null;
    this.#failAll();
    this.#tell("end", detail);
  }

  #failAll() {
    const calls = [...this.#calls.values()];
    this.#calls.clear();
    this.#binary = [];
    for (const { reject } of calls) reject(new BridgeError("no-bridge"));
  }

  #tell(name, detail) {
    this.dispatchEvent(new CustomEvent(name, { detail }));
  }
}
