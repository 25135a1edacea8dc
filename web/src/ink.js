// Ink: raw points, and drawing them as the library does.

/** The writing areas of the models, and the pens of a page that has no pad. */
export const AREAS = {
  S210: { left: 160, top: 220, width: 2360, height: 1430, perPressure: 1 / 306, fixed: 1, maxPressure: 2048 },
  S300: { left: 200, top: 200, width: 2300, height: 1300, perPressure: 1 / 306, fixed: 1, maxPressure: 2048 },
  S310X: { left: 2050, top: 1750, width: 21170, height: 11490, perPressure: 1 / 306, fixed: 1, maxPressure: 2048 },
  R800: { left: 550, top: 180, width: 29870, height: 20120, perPressure: 3 / 8192, fixed: 3, maxPressure: 8192 },
  M450: { left: 550, top: 180, width: 29870, height: 20120, perPressure: 3 / 8192, fixed: 3, maxPressure: 8192 },
};

/** The canvas's height in the proportions of the pad. */
export const heightOf = (model, width) => Math.round((width * AREAS[model].height) / AREAS[model].width);

export class Ink {
  /** @type {{area: object, pen: object, points: number[][]}[]} a part for each pen and each opening */
  parts = [];

  constructor(width, height) {
    this.width = width;
    this.height = height;
  }

  get isEmpty() {
    return this.parts.every((part) => part.points.length === 0);
  }

  get points() {
    return this.parts.flatMap((part) => part.points);
  }

  /** From here on points are of this area and pen. */
  begin(area, pen) {
    this.parts.push({ area, pen, points: [] });
  }

  add(points) {
    const part = this.parts.at(-1);
    const from = part.points.length;
    for (const point of points) part.points.push(point);
    return this.#segmentsOf(part, from);
  }

  clear() {
    this.parts = this.parts.slice(-1).map(({ area, pen }) => ({ area, pen, points: [] }));
  }

  segments() {
    return this.parts.flatMap((part) => [...this.#segmentsOf(part, 0)]);
  }

  // A line from each point to the next, as wide as the pressure at its end. A stroke's end repeats its last point.
  *#segmentsOf({ area, pen, points }, from) {
    for (let i = Math.max(1, from); i < points.length; i += 1) {
      if (points[i][4] || points[i - 1][4]) continue;
      const [x0, y0] = this.#place(area, points[i - 1]);
      const [x1, y1] = this.#place(area, points[i]);
      const width = pen.pressure ? points[i][2] * pen.width * area.perPressure : pen.width * area.fixed;
      yield { x0, y0, x1, y1, width: Math.max(1, width), color: pen.color };
    }
  }

  #place(area, [x, y]) {
    const within = (raw, offset, span) => Math.min(Math.max(raw - offset, 0), span - 1);
    return [
      (within(x, area.left, area.width) * this.width) / area.width,
      (within(y, area.top, area.height) * this.height) / area.height,
    ];
  }

  /** On a canvas whose context has been scaled to this.width by this.height. */
  static draw(context, segments) {
    context.lineCap = "round";
    for (const { x0, y0, x1, y1, width, color } of segments) {
      context.strokeStyle = color;
      context.lineWidth = width;
      context.beginPath();
      context.moveTo(x0, y0);
      context.lineTo(x1, y1);
      context.stroke();
    }
  }

  /** A picture of its own, `scale` times the canvas's pixels. */
  picture({ scale = 1, background } = {}) {
    const canvas = document.createElement("canvas");
    canvas.width = Math.round(this.width * scale);
    canvas.height = Math.round(this.height * scale);
    const context = canvas.getContext("2d");
    if (background) {
      context.fillStyle = background;
      context.fillRect(0, 0, canvas.width, canvas.height);
    }
    context.scale(canvas.width / this.width, canvas.height / this.height);
    Ink.draw(context, this.segments());
    return canvas;
  }

  toSVG() {
    const round = (value) => Math.round(value * 100) / 100;
    const lines = this.segments().map(({ x0, y0, x1, y1, width, color }) =>
      `<path d="M${round(x0)} ${round(y0)}L${round(x1)} ${round(y1)}" stroke="${color}" stroke-width="${round(width)}"/>`);
    return `<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 ${this.width} ${this.height}" `
      + `width="${this.width}" height="${this.height}" fill="none" stroke-linecap="round">${lines.join("")}</svg>`;
  }
}
