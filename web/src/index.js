export { BridgeClient, BridgeError, findBridge, loopbackPermission } from "./client.js";
export { KvSignature } from "./element.js";
export { Ink } from "./ink.js";
export { bindSignaturePad } from "./signature-pad.js";
