// What each state says to the person, and the picture beside it.

const lock = "M6 10V8a4 4 0 0 1 8 0v2h1v8H5v-8zm2 0h4V8a2 2 0 0 0-4 0z";
const plug = "M7 2v5H5v4a5 5 0 0 0 4 4.9V18h2v-2.1A5 5 0 0 0 15 11V7h-2V2h-2v5H9V2z";
const window_ = "M2 3h16v14H2zm2 4v8h12V7z";
const pen = "M3 17l1-4L14 3l3 3L7 16z";
const people = "M7 9a3 3 0 1 1 0-6 3 3 0 0 1 0 6zm-6 8c0-4 3-6 6-6s6 2 6 6zm13-8a2.5 2.5 0 1 1 0-5 2.5 2.5 0 0 1 0 5zm1 8c0-2-.5-4-2-5.5 3-.5 6 1.5 6 5.5z";

/** state: [what is, what the person can do, picture] */
export const words = {
  idle: ["Not signed yet.", "Choose Sign to begin.", pen],
  connecting: ["Looking for the signature pad.", "", plug],
  "browser-asks": ["The browser has not let this page reach the signature pad yet.",
    "Choose Sign, and then Allow when the browser asks. If it does not ask, start “kv-sign-bridge”.", window_],
  "browser-denied": ["The browser does not let this page reach the signature pad.",
    "Open the site settings, the symbol to the left of the address, and allow access to this device. Then choose Sign.", lock],
  "no-bridge": ["The signature pad's program does not run on this computer.",
    "Start “kv-sign-bridge”, or ask who looks after this computer to install it. Then choose Sign.", plug],
  "not-allowed": ["This page is not on the list of pages that may use the signature pad.",
    "Ask who looks after this computer to add it.", lock],
  asking: ["A window on this computer asks whether this page may use the signature pad.",
    "Answer it, and go on here.", window_],
  denied: ["This page was not allowed to use the signature pad.", "Choose Sign and allow it in the window.", lock],
  busy: ["Another page or program uses the signature pad.", "It is your turn when that one has finished.", people],
  "no-pad": ["No signature pad answers.", "Plug it in, and choose Sign.", plug],
  "no-driver": ["The signature pad's driver is missing or not safe.", "Ask who looks after this computer.", plug],
  lost: ["The signature pad is unplugged.", "Plug it in again: what was written is kept.", plug],
  reconnecting: ["The connection to the signature pad is interrupted.",
    "What was written is kept. It goes on by itself.", plug],
  ended: ["The signature pad's program has ended the connection.", "What was written is kept. Choose Done to use it, or Sign to begin anew.", plug],
  failed: ["The signature pad has refused.", "Unplug it, plug it in, and choose Sign.", plug],
  ready: ["Sign on the pad.", "Then tap confirm on the pad, or choose Done here.", pen],
  pointer: ["Sign here with the mouse, a finger or a stylus.", "Then choose Done.", pen],
  done: ["Signed.", "", pen],
};

words["already-open"] = words.busy;
