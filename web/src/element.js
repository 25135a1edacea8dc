// <kv-signature>: a field that is signed on the pad, or with the pointer where there is none.
import { BridgeClient, loopbackPermission } from "./client.js";
import { AREAS, Ink, heightOf } from "./ink.js";
import { readPointer } from "./pointer.js";
import { words } from "./words.js";

const style = `
:host { display: inline-block; width: 100%; max-width: 40rem; color-scheme: light dark; font: inherit;
  --line: light-dark(#6b7280, #9ca3af); --text: light-dark(#1f2937, #e5e7eb); --button: light-dark(#fff, #1f2937) }
:host([hidden]) { display: none }
canvas { display: block; width: 100%; box-sizing: border-box; background: #fff; border: 1px solid var(--line);
  border-radius: .4rem; touch-action: none }
canvas:focus-visible, button:focus-visible { outline: 3px solid light-dark(#1d4ed8, #93c5fd); outline-offset: 2px }
div { display: flex; gap: .5rem; align-items: center; margin-top: .5rem; color: var(--text) }
p { flex: 1; margin: 0; min-height: 2.6em }
svg { flex: none; align-self: start; width: 1.4rem; height: 1.4rem; fill: currentColor }
button { font: inherit; color: var(--text); background: var(--button); border: 1px solid var(--line);
  border-radius: .4rem; padding: .4rem .8rem; min-height: 2.4rem }
button:disabled { opacity: .55 }`;

const RETRY = 1000;

// The bridge has ended it on purpose: a limit was passed, or the consent was taken back. Who comes again at once helps nobody.
const ENDED = [1008, 4000];
const FINAL = ["denied", "browser-denied", "not-allowed"];
const SIGNING = ["connecting", "asking", "ready", "pointer", "lost", "reconnecting", "busy"];

// A page may be made on a server, where there are no elements.
export class KvSignature extends (globalThis.HTMLElement ?? Object) {
  static formAssociated = true;
  static observedAttributes = ["disabled", "required", "label"];

  #internals = this.attachInternals();
  #client = null;
  #ink = null;
  #state = "idle";
  #source = "";
  #waiting = []; // segments for the next frame
  #frame = 0;
  #ahead = 0;
  #reading = null; // of the pointer
  #retry = 0;
  #fit = null; // watches the canvas's size
  #parts;

  constructor() {
    super();
    const root = this.attachShadow({ mode: "open", delegatesFocus: true });
    root.innerHTML = `<style>${style}</style><canvas part="canvas" role="img"></canvas>`
      + '<div><svg viewBox="0 0 20 20" aria-hidden="true"><path/></svg><p part="status" role="status"></p></div>'
      + '<div><button part="button" type="button">Sign</button><button part="button" type="button">Clear</button>'
      + '<button part="button" type="button">Done</button></div>';
    const [sign, clear, done] = root.querySelectorAll("button");
    this.#parts = { canvas: root.querySelector("canvas"), status: root.querySelector("p"),
      picture: root.querySelector("path"), sign, clear, done };
    sign.onclick = () => this.sign();
    clear.onclick = () => this.clear();
    done.onclick = () => this.confirm();
  }

  connectedCallback() {
    if (!this.#ink) this.#renew();
    this.#fit = new ResizeObserver(() => this.#redraw());
    this.#fit.observe(this.#parts.canvas);
    this.#show(this.#state);
    loopbackPermission().then((state) => {
      if (this.#state === "idle" && state === "prompt") this.#show("browser-asks");
      if (this.#state === "idle" && state === "denied") this.#show("browser-denied");
    });
  }

  // A canvas in the proportions of the pad.
  #renew() {
    this.#ink = new Ink(this.#width, heightOf(this.model, this.#width));
    this.#parts.canvas.style.aspectRatio = `${this.#ink.width} / ${this.#ink.height}`;
  }

  disconnectedCallback() {
    this.#fit.disconnect();
    this.#letGo();
    if (this.#state !== "done") this.#state = "idle";
  }

  attributeChangedCallback() {
    if (this.#ink) this.#show(this.#state);
  }

  formResetCallback() { this.clear(); this.#letGo(); this.#show("idle"); }
  formDisabledCallback() { if (this.disabled) this.#letGo(); this.#show(this.#state); }

  get model() { return AREAS[this.getAttribute("model")] ? this.getAttribute("model") : "S300"; }
  get form() { return this.#internals.form; }
  get name() { return this.getAttribute("name"); }
  get type() { return this.localName; }
  get disabled() { return this.matches(":disabled") || this.hasAttribute("disabled"); }
  get required() { return this.hasAttribute("required"); }
  set required(on) { this.toggleAttribute("required", on); }
  get validity() { return this.#internals.validity; }
  get validationMessage() { return this.#internals.validationMessage; }
  checkValidity() { return this.#internals.checkValidity(); }
  reportValidity() { return this.#internals.reportValidity(); }
  /** By the names of words.js. */
  get state() { return this.#state; }
  /** "pad" or "pointer"; empty as long as nothing is written. */
  get source() { return this.#source; }
  get client() { return this.#client; }
  /** The signature as a data: URL of a PNG; empty before it is confirmed. */
  get value() { return this.#state === "done" ? this.#ink.picture().toDataURL() : ""; }

  get #width() { return Math.min(Math.max(Number(this.getAttribute("width")) || 800, 16), 4096); }
  get #pen() {
    return {
      width: Math.min(Math.max(Math.round(Number(this.getAttribute("pen-width"))) || 2, 1), 10),
      color: /^#[0-9a-f]{6}$/.test(this.getAttribute("pen-color")) ? this.getAttribute("pen-color") : "#000000",
      pressure: this.getAttribute("pen-pressure") !== "off",
    };
  }

  /** Opens the pad for a new signature. In a click, for the browser may ask the person. */
  async sign() {
    if (this.disabled || SIGNING.includes(this.#state)) return;
    this.#letGo();
    this.#renew();
    this.#empty();
    await this.#open("connecting");
  }

  async #open(state) {
    this.#show(state);
    const client = (this.#client = this.#listen(new BridgeClient({ port: Number(this.getAttribute("port")) || undefined })));
    try {
      await client.connect();
      await this.#begin(client);
    } catch (error) {
      if (client === this.#client) this.#onFailure(error, state);
    }
  }

  #onFailure(error, state) {
    this.#ahead = error.ahead ?? 0;
    if (error.code === "busy") return this.#show("busy");
    if (state === "reconnecting" && !FINAL.includes(error.code)) {
      this.#client.disconnect();
      this.#retry = setTimeout(() => this.#open(state), RETRY);
      return this.#show(state);
    }
    const mayPoint = this.getAttribute("fallback") === "pointer" && state === "connecting";
    this.#letGo();
    if (!mayPoint || error.code === "denied") return this.#show(words[error.code] ? error.code : "failed");
    return this.#point(error.code);
  }

  #point(reason) {
    this.#source = "pointer";
    this.#ink.begin(AREAS[this.model], this.#pen);
    this.#reading = new AbortController();
    readPointer(this.#parts.canvas, AREAS[this.model], (points) => this.#write(points), this.#reading.signal);
    this.#show("pointer", reason);
  }

  #listen(client) {
    const on = (name, handle) => client.addEventListener(name, ({ detail }) => client === this.#client && handle(detail));
    on("points", ({ points }) => this.#write(points));
    on("tap", ({ key }) => (key === "confirm" ? this.confirm() : this.cancel()));
    on("asking", () => this.#show("asking"));
    on("lost", () => this.#show("lost"));
    on("found", () => { this.#ink.begin(this.#ink.parts.at(-1).area, this.#pen); this.#show("ready"); });
    on("queue", ({ ahead }) => { this.#ahead = ahead; this.#show("busy"); });
    on("free", () => this.#reopen(client));
    on("end", ({ code }) => (ENDED.includes(code) ? this.#show("ended") : this.#open("reconnecting")));
    return client;
  }

  // The bridge keeps the pad for this connection: it is used again.
  async #reopen(client) {
    try {
      await this.#begin(client);
    } catch (error) {
      if (client === this.#client) this.#onFailure(error, "busy");
    }
  }

  async #begin(client) {
    const pen = this.#pen;
    const { area } = await client.open({ model: this.model, width: this.#ink.width, height: this.#ink.height,
      penWidth: pen.width, penColor: pen.color, penPressure: pen.pressure });
    if (client !== this.#client) return;
    this.#ink.begin(area, pen);
    this.#source = "pad";
    this.#show("ready");
  }

  #write(points) {
    for (const segment of this.#ink.add(points)) this.#waiting.push(segment);
    this.#frame ||= requestAnimationFrame(() => this.#paint());
    this.dispatchEvent(new CustomEvent("points", { detail: { points, source: this.#source } }));
    if (this.#parts.done.disabled) this.#show(this.#state);
  }

  #paint() {
    this.#frame = 0;
    Ink.draw(this.#context(), this.#waiting);
    this.#waiting = [];
    this.dispatchEvent(new CustomEvent("painted"));
  }

  #context() {
    const { canvas } = this.#parts;
    const context = canvas.getContext("2d");
    context.setTransform(canvas.width / this.#ink.width, 0, 0, canvas.height / this.#ink.height, 0, 0);
    return context;
  }

  #redraw() {
    const { canvas } = this.#parts;
    const ratio = window.devicePixelRatio || 1;
    canvas.width = Math.max(1, Math.round(canvas.clientWidth * ratio));
    canvas.height = Math.max(1, Math.round(canvas.clientHeight * ratio));
    this.#waiting = [];
    Ink.draw(this.#context(), this.#ink.segments());
  }

  /** Takes what is written as the signature, and gives the pad back. */
  confirm() {
    if (this.#ink.isEmpty || this.#state === "done" || this.disabled) return;
    this.#letGo();
    this.#show("done");
    for (const name of ["input", "change"]) this.dispatchEvent(new Event(name, { bubbles: true }));
    this.dispatchEvent(new CustomEvent("confirm", { detail: { source: this.#source } }));
  }

  /** Gives the pad back without a signature. */
  cancel() {
    this.#letGo();
    this.#empty();
    this.#show("idle");
    this.dispatchEvent(new CustomEvent("cancel"));
  }

  clear() {
    this.#empty();
    if (this.#state === "ready") this.#client.clear().catch(() => {});
    if (this.#state === "done") this.#show("idle");
    else this.#show(this.#state);
  }

  #empty() {
    this.#ink.clear();
    this.#redraw();
    this.#source = this.#state === "pointer" || this.#state === "ready" ? this.#source : "";
  }

  #letGo() {
    clearTimeout(this.#retry);
    const client = this.#client;
    this.#client = null;
    client?.disconnect();
    this.#reading?.abort();
  }

  #setValue() {
    const value = this.value;
    this.#internals.setFormValue(this.disabled || !value ? null : value);
    if (this.required && !value) this.#internals.setValidity({ valueMissing: true }, "Please sign.", this.#parts.sign);
    else this.#internals.setValidity({});
  }

  #show(state, reason) {
    const changed = state !== this.#state;
    this.#state = state;
    const { canvas, status, picture, sign, clear, done } = this.#parts;
    const [what, todo, path] = words[state];
    const next = state === "busy" && this.#ahead > 1 ? `${this.#ahead} are ahead of you.` : todo;
    const why = reason ? `${words[reason]?.[0] ?? ""} ` : "";
    const how = state === "done" ? ` On the ${this.#source === "pad" ? "signature pad" : "screen"}.` : "";
    const text = `${why}${what}${how} ${next}`.trim();
    if (status.textContent !== text) status.textContent = text;
    picture.setAttribute("d", path);
    const label = this.getAttribute("label") || "Signature";
    canvas.setAttribute("aria-label", `${label}, ${this.#ink.isEmpty ? "empty" : "written"}`);
    const signing = SIGNING.includes(state);
    sign.disabled = this.disabled || signing;
    sign.textContent = state === "done" ? "Sign again" : "Sign";
    clear.disabled = this.disabled || this.#ink.isEmpty;
    done.disabled = this.disabled || this.#ink.isEmpty || state === "done";
    this.#setValue();
    if (changed) this.dispatchEvent(new CustomEvent("state", { detail: { state, source: this.#source } }));
  }

  /** @returns {Promise<Blob>} */
  toBlob({ type = "image/png", quality, scale = 1, background } = {}) {
    const paper = background ?? (type === "image/png" ? undefined : "#ffffff");
    return new Promise((resolve) => this.#ink.picture({ scale, background: paper }).toBlob(resolve, type, quality));
  }

  toSVG() { return this.#ink.toSVG(); }

  /** Every point with its pressure and time, and what they mean. */
  get ink() {
    return { model: this.model, source: this.#source, width: this.#ink.width, height: this.#ink.height,
      parts: structuredClone(this.#ink.parts) };
  }
}

const { customElements: known } = globalThis;
if (known && !known.get("kv-signature")) known.define("kv-signature", KvSignature);
