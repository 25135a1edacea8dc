// Compiled, never run: what docs/web.md says has these types.
import { BridgeClient, BridgeError, KvSignature, bindSignaturePad, findBridge, loopbackPermission } from "../src/index.js";
import SignaturePad from "signature_pad";

const field: KvSignature = document.querySelector("kv-signature")!;
field.required = true;
const state: "ready" | "done" | undefined = field.state === "ready" || field.state === "done" ? field.state : undefined;
const picture: Promise<Blob> = field.toBlob({ type: "image/jpeg", scale: 2, background: "#ffffff" });
const strokes: number = field.ink.parts.reduce((sum, part) => sum + part.points.length, 0);
// @ts-expect-error what was signed is nobody's to write
field.value = "data:,";
// @ts-expect-error there is no such state
if (field.state === "open") console.log(state, picture, strokes);

const client = new BridgeClient({ port: 47631 });
client.addEventListener("points", ({ detail }) => detail.points.forEach(([x, y, pressure, time, end]) => console.log(x, y, pressure, time, end)));
client.addEventListener("tap", ({ detail }) => detail.key === "confirm");
client.addEventListener("end", ({ detail }) => detail.code.toFixed());
// @ts-expect-error there is no such event
client.addEventListener("stroke", () => {});

export async function sign(): Promise<Blob> {
  const port: number = await findBridge();
  const permission: "granted" | "prompt" | "denied" | "unknown" = await loopbackPermission();
  try {
    await client.connect();
    const { area } = await client.open({ model: "S300", width: 800, height: 452, penColor: "#000080" });
    await client.pen({ width: 3 });
    // @ts-expect-error no such model
    await client.open({ model: "S400", width: 800, height: 452 });
    console.log(port, permission, area.left);
    return await client.image("pdf", { dpi: 300 });
  } catch (error) {
    if (error instanceof BridgeError && error.code === "busy") console.log(error.ahead);
    throw error;
  }
}

const bound: Promise<{ stop: () => void }> = bindSignaturePad(new SignaturePad(document.querySelector("canvas")!), { model: "S210" });
console.log(bound);
