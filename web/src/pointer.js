// Mouse, touch and stylus in the place of a pad: the same raw points.

/** Reads strokes on an element until the signal is aborted. @param {(points: number[][]) => void} receive */
export function readPointer(element, area, receive, signal) {
  const zero = performance.now();
  let last = null;
  let id = null;
  const pointOf = (event) => {
    const box = element.getBoundingClientRect();
    const share = (value, from, length) => Math.min(Math.max((value - from) / length, 0), 1);
    // A mouse and most fingers have no pressure: half of a strong hand's.
    const pressure = event.pointerType === "pen" && event.pressure > 0 ? event.pressure : 0.35;
    return [
      Math.round(area.left + share(event.clientX, box.left, box.width) * (area.width - 1)),
      Math.round(area.top + share(event.clientY, box.top, box.height) * (area.height - 1)),
      Math.round(pressure * area.maxPressure),
      Math.max(0, Math.round(event.timeStamp - zero)),
      0,
    ];
  };
  const on = (name, handle) => element.addEventListener(name, handle, { signal, passive: false });
  on("pointerdown", (event) => {
    if (id !== null || event.button !== 0) return;
    event.preventDefault();
    id = event.pointerId;
    element.setPointerCapture?.(id);
    last = pointOf(event);
    receive([last]);
  });
  on("pointermove", (event) => {
    if (event.pointerId !== id) return;
    const all = event.getCoalescedEvents?.() ?? [];
    const points = (all.length ? all : [event]).map(pointOf);
    last = points.at(-1);
    receive(points);
  });
  for (const name of ["pointerup", "pointercancel"]) {
    on(name, (event) => {
      if (event.pointerId !== id) return;
      id = null;
      receive([[...last.slice(0, 4), 1]]);
    });
  }
}
