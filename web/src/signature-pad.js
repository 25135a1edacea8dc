// For pages that use npm's signature_pad: the real pad writes on it as a stylus would.
import { BridgeClient } from "./client.js";

const POINTER = 0x6b76;

/**
 * Opens the pad and hands its strokes to a SignaturePad, which draws them in its own way and tells of them by its own
 * events. Give that { throttle: 0, minDistance: 0 } to lose no point.
 * @returns {Promise<{client: BridgeClient, stop: () => void}>}
 */
export async function bindSignaturePad(pad, { model = "S300", port, onTap } = {}) {
  const client = new BridgeClient({ port });
  await client.connect();
  const { area } = await client.open({ model, width: 800, height: 452 }).catch((error) => {
    client.disconnect();
    throw error;
  });
  const view = pad.canvas.ownerDocument.defaultView;
  let down = false;
  const send = (name, [x, y, pressure], buttons) => {
    const box = pad.canvas.getBoundingClientRect();
    const event = new view.PointerEvent(name, { bubbles: true, cancelable: true, isPrimary: true, pointerType: "pen",
      pointerId: POINTER, buttons, button: name === "pointermove" ? -1 : 0,
      pressure: Math.min(1, pressure / area.maxPressure),
      clientX: box.left + ((x - area.left) / area.width) * box.width,
      clientY: box.top + ((y - area.top) / area.height) * box.height });
    pad.canvas.dispatchEvent(event);
  };
  client.addEventListener("points", ({ detail }) => {
    for (const point of detail.points) {
      if (point[4]) send("pointerup", point, 0);
      else send(down ? "pointermove" : "pointerdown", point, 1);
      down = !point[4];
    }
  });
  client.addEventListener("tap", ({ detail }) => {
    if (detail.key === "cancel") pad.clear();
    onTap?.(detail.key);
  });
  return { client, stop: () => client.disconnect() };
}
