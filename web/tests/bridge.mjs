// Starts the bridge on the simulated pad, and serves pages that it lets in.
import { execFileSync, spawn } from "node:child_process";
import { readFile } from "node:fs/promises";
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createServer } from "node:https";
import { tmpdir } from "node:os";
import path from "node:path";

export const build = path.resolve(process.argv[2] ?? "build/release");
export const root = path.resolve(import.meta.dirname, "../..");
export const home = mkdtempSync(path.join(tmpdir(), "kvsign-web-"));

const running = new Set();
for (const signal of ["SIGTERM", "SIGINT", "SIGHUP"]) process.on(signal, () => process.exit(1));
process.on("exit", () => {
  running.forEach((child) => child.kill("SIGKILL"));
  rmSync(home, { recursive: true, force: true });
});

/** A key and a certificate for the hosts of the tests' pages. */
export function certificate() {
  const [key, cert] = ["key", "cert"].map((name) => path.join(home, name));
  execFileSync("openssl", ["req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=desk.test",
    "-addext", "subjectAltName=DNS:desk.test,DNS:evil.test", "-keyout", key, "-out", cert], { stdio: "ignore" });
  return [readFileSync(key), readFileSync(cert)];
}

export const bridgeEnvironment = { ...process.env, HOME: home, XDG_CONFIG_HOME: home, XDG_RUNTIME_DIR: home,
  QT_QPA_PLATFORM: "offscreen", LD_LIBRARY_PATH: path.join(build, "kvsignpadsdk") };

/**
 * Starts a program that says on which port it listens, by a pattern with that in it.
 * @returns {Promise<{port: number, stop: () => Promise<void>, said: () => string}>}
 */
export function startProgram(command, options, pattern, more = {}) {
  const child = spawn(command, options, { stdio: ["ignore", "pipe", "pipe"], ...more });
  running.add(child);
  const ended = new Promise((resolve) => child.once("exit", resolve)).then(() => running.delete(child));
  let said = "";
  return new Promise((resolve, reject) => {
    const hear = (data) => {
      said += data;
      const found = pattern.exec(said);
      if (found) {
        resolve({ port: Number(found[1]), said: () => said,
          stop: (signal = "SIGTERM") => { child.kill(signal); return ended; } });
      }
    };
    child.stderr.on("data", hear);
    child.stdout.on("data", hear);
    child.once("exit", () => reject(new Error(`${command} ended: ${said}`)));
  });
}

export const startBridge = (options, environment = {}) => startProgram(path.join(build, "bridge/kv-sign-bridge"),
  ["--no-lists", "--unsafe-driver", "--driver", path.join(build, "simulator"), ...options], /listens on port (\d+)/,
  { env: { ...bridgeEnvironment, ...environment } });

/** The managed policies for an administrator's list with this page. @returns {string} the folder in which etc is */
export function writePolicies(origin) {
  const managed = path.join(home, "managed");
  mkdirSync(path.join(managed, "etc/kvsignpad/origins.d"), { recursive: true });
  writeFileSync(path.join(managed, "etc/kvsignpad/origins.d/shop"), `${origin} # the counter\n`, { mode: 0o644 });
  execFileSync(path.join(root, "bridge/system/kv-sign-policies"), [managed]);
  return managed;
}

const types = { ".html": "text/html", ".js": "text/javascript", ".css": "text/css" };

/** Serves examples/web, the package under /kvsignpad/, signature_pad, and the tests' own pages, by TLS. */
export async function servePages(key, cert) {
  const places = { "/kvsignpad/": path.join(root, "web/src"), "/tests/": path.join(root, "web/tests/pages"),
    "/signature_pad/": path.join(root, "web/node_modules/signature_pad/dist"), "/": path.join(root, "examples/web") };
  const server = createServer({ key, cert }, async (request, response) => {
    const { pathname } = new URL(request.url, "https://x");
    const [prefix, folder] = Object.entries(places).find(([each]) => pathname.startsWith(each));
    try {
      const bytes = await readFile(path.join(folder, path.basename(pathname.slice(prefix.length))));
      // A sandboxed frame, whose origin is null, gets its scripts too.
      response.writeHead(200, { "Content-Type": types[path.extname(pathname)] ?? "text/plain",
        "Access-Control-Allow-Origin": "*" }).end(bytes);
    } catch {
      response.writeHead(404).end();
    }
  });
  await new Promise((resolve) => { server.listen(0, "127.0.0.1", resolve); });
  return { port: server.address().port, stop: () => server.closeAllConnections() ?? server.close() };
}
