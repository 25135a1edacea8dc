export * from './errors.js';
export { Ink } from './ink.js';
export { Pad, open } from './pad.js';
export { about, library } from './sdk.js';
export { VERSION } from './lowlevel.js';
