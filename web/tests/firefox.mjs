// The page's side in Firefox ESR: connect, sign, a page that is not on the list, a person who has said no, and a page for
// which a managed policy answers.
import assert from "node:assert/strict";
import { writeFileSync } from "node:fs";
import path from "node:path";
import puppeteer from "puppeteer-core";
import { certificate, home, servePages, startBridge, writePolicies } from "./bridge.mjs";

const pages = await servePages(...certificate());
const desk = `https://desk.test:${pages.port}`;
const bridge = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk], { KVSIM_SPEED: "20" });

// The pages are on this computer too; Firefox is told to treat them as those of the internet.
async function launch(executablePath) {
  const started = await puppeteer.launch({ browser: "firefox", executablePath, headless: true, acceptInsecureCerts: true,
    timeout: 60000, extraPrefsFirefox: { "network.dns.localDomains": "desk.test,evil.test",
      "network.lna.enabled": true, "network.lna.blocking": true, "network.lna.websocket.enabled": true,
      "network.lna.address_space.public.override": `127.0.0.1:${pages.port}` } });
  process.on("exit", () => started.process().kill("SIGKILL"));
  return started;
}

/** The field of a host's page, when it has come to rest after Sign was chosen. Without a state the person is to be asked. */
async function signed(browser, host, state) {
  const context = await browser.createBrowserContext();
  const origin = `https://${host}:${pages.port}`;
  if (state) await context.setPermission(origin, { permission: { name: "loopback-network" }, state });
  const page = await context.newPage();
  await page.goto(`${origin}/tests/field.html`);
  const field = await page.evaluate(async (port) => {
    await customElements.whenDefined("kv-signature");
    const element = document.querySelector("kv-signature");
    element.setAttribute("port", port);
    await element.sign();
    while (["connecting", "ready"].includes(element.state)) await new Promise((resolve) => { setTimeout(resolve, 50); });
    return { state: element.state, source: element.source, value: element.value.slice(0, 22),
      points: element.ink.parts[0]?.points.length ?? 0 };
  }, bridge.port);
  return field;
}

const browser = await launch("/usr/bin/firefox-esr");
const done = await signed(browser, "desk.test", "granted");
assert.deepEqual({ ...done, points: done.points > 100 },
  { state: "done", source: "pad", value: "data:image/png;base64,", points: true });
assert.equal((await signed(browser, "evil.test", "granted")).state, "not-allowed");
assert.equal((await signed(browser, "desk.test", "denied")).state, "browser-denied");
console.log(`  connects and signs (${done.points} points); who is not listed stays out, and so does who was denied`);

// Firefox reads its policies from one place alone: there, for this one process, are ours, beside links to what else is there.
const managed = writePolicies(desk);
const wrapper = path.join(home, "managed-firefox");
writeFileSync(wrapper, `#!/bin/bash
exec unshare --map-root-user --mount bash -c 'mkdir -p "$0/etc-itself" && mount --bind /etc "$0/etc-itself" &&
  mount -t tmpfs none /etc && ln -s "$0"/etc-itself/* /etc/ && rm -f /etc/firefox && cp -r "$0/etc/firefox" /etc/ &&
  exec /usr/bin/firefox-esr "$@"' ${managed} "$@"
`, { mode: 0o755 });
assert.equal((await signed(await launch(wrapper), "desk.test")).state, "done");
console.log("  a page for which a managed policy answers signs without a question");
await bridge.stop();
// Firefox may take minutes to end in order, and nobody needs what it would store.
process.exit(0);
