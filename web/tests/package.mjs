// The package as a page's author gets it: what is in it, installed in an empty folder, imported and compiled there.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtempSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";

const web = path.resolve(import.meta.dirname, "..");
const folder = mkdtempSync(path.join(tmpdir(), "kvsign-package-"));
process.on("exit", () => rmSync(folder, { recursive: true, force: true }));
const run = (command, ...options) => execFileSync(command, options, { cwd: folder, encoding: "utf8", timeout: 120000 });

const [{ filename, files }] = JSON.parse(run("npm", "pack", web, "--json", "--offline"));
assert.deepEqual(files.map((file) => file.path).filter((name) => !/^src\/[a-z-]+(\.d)?\.[jt]s$/.test(name)).sort(),
  ["LICENSE", "README.md", "package.json"]);
writeFileSync(path.join(folder, "package.json"), '{ "private": true, "type": "module" }');
run("npm", "install", "--offline", "--no-audit", "--no-fund", `./${filename}`);

// Pages are also made on servers, where there is no element.
assert.match(run(process.execPath, "-e", 'import("@kvsignpad/web").then((all) => console.log(Object.keys(all).sort().join()))'),
  /BridgeClient.*BridgeError.*bindSignaturePad/);
writeFileSync(path.join(folder, "page.ts"), `import { bindSignaturePad, type SignatureState } from "@kvsignpad/web";
const field = document.querySelector("kv-signature")!;
const state: SignatureState = field.state;
export const signed: Promise<Blob> | null = state === "done" ? field.toBlob() : null;
export const bind = (pad: Parameters<typeof bindSignaturePad>[0]) => bindSignaturePad(pad, { model: "S300" });
`);
run(path.join(web, "node_modules/.bin/tsc"), "--noEmit", "--strict", "--target", "es2022", "--module", "nodenext", "page.ts");
console.log(`  ${files.length} files; imported, and compiled with their types`);
process.exit(0);
