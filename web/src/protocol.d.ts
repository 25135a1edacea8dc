// Made by bridge/generate from protocol.schema.json, not to be edited.

/** x, y, pressure, milliseconds since the opening, 1 when a stroke ends */
export type RawPoint = [x: number, y: number, pressure: number, time: number, end: 0 | 1];

export type ErrorName = "bad-message" | "busy" | "denied" | "no-pad" | "no-driver" | "lost" | "not-open" | "already-open" | "not-supported" | "no-ink" | "failed" | "too-many";

/** How a raw point becomes a pixel of the canvas and a width, for the open pad and pen level 1. */
export interface Area {
  left: number;
  top: number;
  width: number;
  height: number;
  perPressure: number;
  fixed: number;
  maxPressure: number;
}

/** Opens the pad for this client, asks the person at the desk first, or joins the queue. */
export interface OpenRequest {
  model: "S210" | "S300" | "S310X" | "R800" | "M450";
  width: number;
  height: number;
  penWidth?: number;
  penColor?: string;
  penPressure?: boolean;
}

/** The pen of strokes to come. */
export interface PenRequest {
  width?: number;
  color?: string;
  pressure?: boolean;
}

/** Empties the canvas, the ink and the pad's screen. */
export interface ClearRequest {
}

/** The signature as the library makes it; a binary frame follows the answer. */
export interface ImageRequest {
  kind: "png" | "jpeg" | "bmp" | "svg" | "pdf" | "ink" | "fingerprint";
  transparent?: boolean;
  dpi?: 150 | 300;
  marginX?: number;
  marginY?: number;
}

/** The whole picture after every movement of the pen, as binary frames (S210). */
export interface LiveRequest {
  on: boolean;
  kind?: "png" | "jpeg";
}

/** Gives the fingerprint a canvas of its own and a place on it (S310X). */
export interface FingerprintRequest {
  left: number;
  top: number;
  width: number;
  height: number;
  canvasWidth: number;
  canvasHeight: number;
}

/** Ends the work with the pad, or leaves the queue. */
export interface CloseRequest {
}

/** The first message of a connection. */
export interface WelcomeEvent {
  version: string;
  protocol: number;
}

/** A window on the desktop asks the person whether this page may use the pad. */
export interface AskingEvent {
}

/** Points as they came, [x, y, pressure, milliseconds since the opening, 1 when a stroke ends]. */
export interface PointsEvent {
  first: number;
  points: RawPoint[];
}

export interface TapEvent {
  key: "confirm" | "cancel";
}

/** A picture of the live push follows as a binary frame of id 0. */
export interface LiveEvent {
  type: string;
  bytes: number;
}

/** The pad has been unplugged and is being looked for. */
export interface LostEvent {
}

/** The pad is open again. Without kept the library's canvas begins anew. */
export interface FoundEvent {
  kept: boolean;
}

/** How many are still ahead in the queue; 1: this one is next. */
export interface QueueEvent {
  ahead: number;
}

/** The pad is kept free for this client for ten seconds: open it again. */
export interface FreeEvent {
}
