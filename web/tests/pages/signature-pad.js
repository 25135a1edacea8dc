import SignaturePad from "/signature_pad/signature_pad.js";
import { bindSignaturePad } from "/kvsignpad/index.js";

const pad = new SignaturePad(document.querySelector("canvas"), { throttle: 0, minDistance: 0 });
window.told = [];
for (const name of ["beginStroke", "endStroke", "afterUpdateStroke"]) pad.addEventListener(name, () => window.told.push(name));
window.bind = (port) => bindSignaturePad(pad, { port, onTap: (key) => { window.tapped = key; } });
window.pad = pad;
