import { LibraryNotFound, VersionMismatch } from './errors.js';
import { DeviceType, VERSION, load } from './lowlevel.js';

let loaded;

/** The library's functions. KVSIGNPAD_LIBRARY names another file than the installed one. */
export function library() {
    loaded ??= find(process.env.KVSIGNPAD_LIBRARY || 'libkvsignpadsdk.so.1');
    return loaded;
}

/** The library's name, version and maker. */
export function about() {
    return aboutOf(library());
}

function find(path) {
    let functions;
    try {
        functions = load(path);
    } catch (error) {
        throw new LibraryNotFound(
            `${path} cannot be loaded (${error.message}): install the package libkvsignpadsdk1, or set KVSIGNPAD_LIBRARY`,
        );
    }
    const there = /Version : ([\d.]+)/.exec(aboutOf(functions))?.[1] ?? '0';
    if (!serves(there.split('.').map(Number), VERSION.split('.').map(Number))) {
        throw new VersionMismatch(`${path} has version ${there}, these bindings want ${VERSION} or a later one`);
    }
    return functions;
}

function aboutOf(functions) {
    const text = Buffer.alloc(256);
    functions.KVS300_GetAboutInfo(DeviceType.S300, text);
    return text.toString('utf8', 0, text.indexOf(0));
}

function serves(there, wanted) {
    if (there[0] !== wanted[0]) {
        return false;
    }
    const first = wanted.findIndex((number, i) => number !== there[i]);
    return first < 0 || there[first] > wanted[first];
}
