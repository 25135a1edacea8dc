// Made by bridge/generate from protocol.schema.json, not to be edited.
// name: [kind, required, [least, most] or choices]

export const requests = {
  open: { id: ["Integer", 1, [1, 2147483647]], model: ["Word", 1, ["S210", "S300", "S310X", "R800", "M450"]], width: ["Integer", 1, [1, 4096]], height: ["Integer", 1, [1, 4096]], penWidth: ["Integer", 0, [1, 10]], penColor: ["Color", 0], penPressure: ["Boolean", 0] },
  pen: { id: ["Integer", 1, [1, 2147483647]], width: ["Integer", 0, [1, 10]], color: ["Color", 0], pressure: ["Boolean", 0] },
  clear: { id: ["Integer", 1, [1, 2147483647]] },
  image: { id: ["Integer", 1, [1, 2147483647]], kind: ["Word", 1, ["png", "jpeg", "bmp", "svg", "pdf", "ink", "fingerprint"]], transparent: ["Boolean", 0], dpi: ["Word", 0, [150, 300]], marginX: ["Integer", 0, [0, 4096]], marginY: ["Integer", 0, [0, 4096]] },
  live: { id: ["Integer", 1, [1, 2147483647]], on: ["Boolean", 1], kind: ["Word", 0, ["png", "jpeg"]] },
  fingerprint: { id: ["Integer", 1, [1, 2147483647]], left: ["Integer", 1, [0, 4095]], top: ["Integer", 1, [0, 4095]], width: ["Integer", 1, [1, 4096]], height: ["Integer", 1, [1, 4096]], canvasWidth: ["Integer", 1, [1, 4096]], canvasHeight: ["Integer", 1, [1, 4096]] },
  close: { id: ["Integer", 1, [1, 2147483647]] },
};

export const events = {
  welcome: { version: ["Text", 1], protocol: ["Integer", 1, [1, 2147483647]] },
  asking: {},
  points: { first: ["Integer", 1, [0, 2147483647]], points: ["List", 1] },
  tap: { key: ["Word", 1, ["confirm", "cancel"]] },
  live: { type: ["Text", 1], bytes: ["Integer", 1, [-2147483648, 2147483647]] },
  lost: {},
  found: { kept: ["Boolean", 1] },
  queue: { ahead: ["Integer", 1, [1, 2147483647]] },
  free: {},
};

export const answer = { id: ["Integer", 1, [0, 2147483647]], ok: ["Boolean", 1], error: ["Word", 0, ["bad-message", "busy", "denied", "no-pad", "no-driver", "lost", "not-open", "already-open", "not-supported", "no-ink", "failed", "too-many"]], message: ["Text", 0], ahead: ["Integer", 0, [1, 64]], area: ["Object", 0], bytes: ["Integer", 0, [0, 2147483647]], type: ["Text", 0] };

export const area = { left: ["Integer", 1, [-2147483648, 2147483647]], top: ["Integer", 1, [-2147483648, 2147483647]], width: ["Integer", 1, [-2147483648, 2147483647]], height: ["Integer", 1, [-2147483648, 2147483647]], perPressure: ["Number", 1], fixed: ["Number", 1], maxPressure: ["Integer", 1, [-2147483648, 2147483647]] };
