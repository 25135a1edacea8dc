// The page's side in Debian's Chromium: signing on every screen pad, pixels, forms, permissions, troubles, axe.
import assert from "node:assert/strict";
import { cpSync, mkdirSync, readFileSync, writeFileSync } from "node:fs";
import path from "node:path";
import { chromium } from "playwright-core";
import { bridgeEnvironment, build, certificate, home, root, servePages, startBridge, startProgram, writePolicies } from "./bridge.mjs";

const pages = await servePages(...certificate());
const desk = `https://desk.test:${pages.port}`;
const pictures = path.join(build, "web-pictures");
mkdirSync(pictures, { recursive: true });

const arguments_ = ["--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
  "--disable-component-update", "--disable-sync", "--host-resolver-rules=MAP desk.test 127.0.0.1,MAP evil.test 127.0.0.1",
  `--ip-address-space-overrides=127.0.0.1:${pages.port}=public`];
const browser = await chromium.launch({ executablePath: "/usr/bin/chromium", args: arguments_ });

async function open(address, { permissions = ["local-network-access"], from = browser, ...options } = {}) {
  const context = await from.newContext({ ignoreHTTPSErrors: true, viewport: { width: 900, height: 900 }, ...options });
  if (permissions.length) await context.grantPermissions(permissions, { origin: new URL(address).origin });
  const page = await context.newPage();
  page.setDefaultTimeout(60000);
  await page.goto(address);
  return page;
}

const field = (page) => page.locator("kv-signature").first();
const setUp = (page, attributes) => field(page).evaluate((element, all) => {
  for (const [name, value] of Object.entries(all)) element.setAttribute(name, value);
}, attributes);
const reaches = (page, state) => page.waitForFunction(
  (wanted) => document.querySelector("kv-signature").state === wanted, state);
const says = (page) => field(page).evaluate((element) => element.shadowRoot.querySelector("p").textContent);
const sign = (page) => page.getByRole("button", { name: "Sign", exact: true }).first().click();

const tests = {
  async "signs on every model, and draws what the library draws"() {
    const bridge = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk], { KVSIM_SPEED: "8" });
    for (const model of ["S300", "S210", "S310X"]) {
      const page = await open(`${desk}/tests/field.html`);
      await setUp(page, { port: bridge.port, model });
      // The library's picture is fetched at the tap, before the field gives the pad back.
      const differing = await field(page).evaluate(async (element) => {
        const library = new Promise((resolve) => {
          const confirm = element.confirm.bind(element);
          element.confirm = async () => {
            resolve(await element.client.image("png"));
            confirm();
          };
        });
        await element.sign();
        const theirs = await createImageBitmap(await library);
        await new Promise((resolve) => {
          if (element.state === "done") resolve();
          element.addEventListener("confirm", resolve);
        });
        const ours = await createImageBitmap(await element.toBlob());
        const grey = (image) => {
          const canvas = new OffscreenCanvas(image.width, image.height);
          const context = canvas.getContext("2d");
          context.fillStyle = "#fff";
          context.fillRect(0, 0, image.width, image.height);
          context.drawImage(image, 0, 0);
          return context.getImageData(0, 0, image.width, image.height).data.filter((_, i) => i % 4 === 0);
        };
        const [one, other] = [grey(theirs), grey(ours)];
        const dark = (all) => all.filter((value) => value < 128).length;
        return { sizes: [theirs.width, theirs.height, ours.width, ours.height], ink: dark(one), ours: dark(other),
          far: one.filter((value, i) => Math.abs(value - other[i]) > 96).length };
      });
      const [width, height, ...own] = differing.sizes;
      assert.deepEqual(own, [width, height]);
      assert.ok(differing.ink > 500, `${model}: the library drew ${differing.ink} dark pixels`);
      assert.ok(differing.far < differing.ink * 0.03, `${model}: ${JSON.stringify(differing)}`);
      assert.equal(await field(page).evaluate((element) => element.source), "pad");
      assert.match(await says(page), /Signed\. On the signature pad\./);
      if (model === "S300") await page.screenshot({ path: path.join(pictures, "signed.png") });
      console.log(`    ${model}: ${differing.far} of ${differing.ink} pixels of ink differ by more than 96 of 255`);
      await page.context().close();
    }
    await bridge.stop();
  },

  async "takes part in its form"() {
    const bridge = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk], { KVSIM_SPEED: "max" });
    const page = await open(`${desk}/tests/field.html`);
    await setUp(page, { port: bridge.port });
    const form = () => page.evaluate(() => {
      const element = document.querySelector("kv-signature");
      return { valid: document.forms[0].checkValidity(), message: element.validationMessage,
        value: String(new FormData(document.forms[0]).get("signature")).slice(0, 22) };
    });
    assert.deepEqual(await form(), { valid: false, message: "Please sign.", value: "null" });
    await sign(page);
    await reaches(page, "done");
    assert.deepEqual(await form(), { valid: true, message: "", value: "data:image/png;base64," });
    assert.match(await field(page).evaluate((element) => element.toSVG()), /^<svg .*stroke-width/);
    assert.ok((await field(page).evaluate((element) => element.ink.parts[0].points.length)) > 100);
    await page.evaluate(() => document.forms[0].reset());
    assert.equal((await form()).valid, false);
    await page.context().close();
    await bridge.stop();
  },

  async "works as docs/web.md says, from an empty folder"() {
    const folder = path.join(home, "site");
    cpSync(path.join(root, "web/src"), path.join(folder, "kvsignpad"), { recursive: true });
    const [, page_] = /\n\n((?: {4}.*\n)+)/.exec(readFileSync(path.join(root, "docs/web.md"), "utf8"));
    writeFileSync(path.join(folder, "index.html"), `<!doctype html>\n${page_}`);
    const server = await startProgram("python3", ["-u", "-m", "http.server", "0"], /port (\d+)/, { cwd: folder });
    const here = `http://localhost:${server.port}`;
    const page = await open(`${here}/`, { permissions: [] });
    await page.waitForFunction(() => document.querySelector("kv-signature").shadowRoot);
    assert.match(await says(page), /^Not signed yet/, "no browser asks a page of the own computer");
    await setUp(page, { port: 9 });
    await sign(page);
    await reaches(page, "no-bridge");
    await field(page).evaluate((element) => element.removeAttribute("port"));
    const bridge = await startProgram(path.join(build, "bridge/kv-sign-bridge"),
      ["--driver", "simulator", "--allow-origin", here, "--no-consent", "--unsafe-driver"], /listens on port (\d+)/,
      { env: { ...bridgeEnvironment, KVSIM_SPEED: "max" } });
    await sign(page);
    await reaches(page, "done");
    const posted = page.waitForRequest(`${here}/received`);
    await page.getByRole("button", { name: "Send" }).click();
    assert.match((await posted).postData(), /^received=data%3Aimage%2Fpng%3Bbase64%2C/);
    await page.context().close();
    await Promise.all([bridge.stop(), server.stop()]);
  },

  async "tells the permissions apart"() {
    const bridge = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk], { KVSIM_RECORDING: "none" });
    const asks = await open(`${desk}/tests/field.html`, { permissions: [] });
    await reaches(asks, "browser-asks");
    assert.match(await says(asks), /choose Sign, and then Allow/i);
    await asks.context().close();

    const denied = await open(`${desk}/tests/field.html`, { permissions: [] });
    const session = await denied.context().newCDPSession(denied);
    for (const name of ["local-network-access", "loopback-network"]) {
      await session.send("Browser.setPermission", { permission: { name }, setting: "denied", origin: desk }).catch(() => {});
    }
    await sign(denied);
    await reaches(denied, "browser-denied");
    assert.match(await says(denied), /site settings/);
    await denied.screenshot({ path: path.join(pictures, "denied.png") });
    await denied.context().close();

    const evil = `https://evil.test:${pages.port}`;
    const foreign = await open(`${evil}/tests/field.html`);
    await setUp(foreign, { port: bridge.port });
    await sign(foreign);
    await reaches(foreign, "not-allowed");
    await foreign.context().close();

    const page = await open(`${desk}/tests/field.html`);
    await setUp(page, { port: 9 });
    await sign(page);
    await reaches(page, "no-bridge");
    await setUp(page, { port: bridge.port });
    await sign(page);
    await reaches(page, "ready");
    const second = await open(`${desk}/tests/field.html`);
    await setUp(second, { port: bridge.port });
    await sign(second);
    await reaches(second, "busy");
    await page.context().close();
    await reaches(second, "ready");
    await second.context().close();
    await bridge.stop();
  },

  async "lets a frame in by its own origin alone"() {
    const bridge = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk], { KVSIM_SPEED: "max" });
    const page = await open(`${desk}/tests/frame.html`);
    await page.context().grantPermissions(["local-network-access"], { origin: `https://evil.test:${pages.port}` });
    await page.locator("iframe").last().evaluate((frame, address) => { frame.src = address; },
      `https://evil.test:${pages.port}/tests/field.html`);
    const state = async (title) => {
      const frame = await (await page.locator(`iframe[title=${title}]`).elementHandle()).contentFrame();
      await frame.waitForFunction(() => customElements.get("kv-signature") && document.querySelector("kv-signature"));
      return frame.evaluate(async (port) => {
        const element = document.querySelector("kv-signature");
        element.setAttribute("port", port);
        await element.sign();
        while (["connecting", "ready"].includes(element.state)) await new Promise((resolve) => { setTimeout(resolve, 20); });
        return element.state;
      }, bridge.port);
    };
    assert.equal(await state("own"), "done");
    for (const title of ["sandboxed", "foreign"]) {
      assert.match(await state(title), /^(not-allowed|browser-denied|browser-asks|no-bridge)$/, title);
    }
    await page.context().close();
    await bridge.stop();
  },

  async "keeps what was written when the consent is taken back"() {
    mkdirSync(path.join(home, "kvsignpad"), { recursive: true });
    writeFileSync(path.join(home, "kvsignpad/consents"), `${desk}\n`);
    const bridge = await startBridge(["--port", "0", "--allow-origin", desk], { KVSIM_SPEED: "0.5" });
    const page = await open(`${desk}/tests/field.html`);
    await setUp(page, { port: bridge.port });
    await sign(page);
    await page.waitForFunction(() => document.querySelector("kv-signature").ink.parts[0]?.points.length > 40);
    await field(page).evaluate(({ client }) => client.addEventListener("end", ({ detail }) => { window.end = detail; }));
    await startBridge(["--revoke", desk]).catch(() => {}); // which ends at once
    await reaches(page, "ended");
    assert.deepEqual(await page.evaluate(() => window.end), { code: 1008, reason: "the consent was taken back" });
    await page.getByRole("button", { name: "Done" }).click();
    await reaches(page, "done");
    assert.ok((await field(page).evaluate((element) => element.ink.parts[0].points.length)) > 40);
    await page.context().close();
    await bridge.stop();
  },

  async "is not asked for where a managed policy names it"() {
    const root = writePolicies(desk);
    // Chromium reads its policies from one place alone: there, for this one process, are ours.
    const wrapper = path.join(home, "managed-chromium");
    writeFileSync(wrapper, `#!/bin/bash
exec unshare --map-root-user --mount bash -c 'mount --bind "$0" /etc/chromium && exec /usr/bin/chromium "$@"' \\
  ${path.join(root, "etc/chromium")} "$@"
`, { mode: 0o755 });
    const managed = await chromium.launch({ executablePath: wrapper, args: arguments_ });
    const bridge = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk], { KVSIM_SPEED: "max" });
    const page = await open(`${desk}/tests/field.html`, { permissions: [], from: managed });
    await setUp(page, { port: bridge.port });
    assert.notEqual(await field(page).evaluate((element) => element.state), "browser-asks");
    await sign(page);
    await reaches(page, "done");
    await managed.close();
    await bridge.stop();
  },

  async "falls back to the pointer where the page allows it"() {
    const page = await open(`${desk}/tests/field.html`);
    await setUp(page, { port: 9, fallback: "pointer" });
    await sign(page);
    await reaches(page, "pointer");
    const box = await field(page).locator("canvas").boundingBox();
    await page.mouse.move(box.x + 50, box.y + 60);
    await page.mouse.down();
    for (let i = 1; i <= 20; i += 1) await page.mouse.move(box.x + 50 + 12 * i, box.y + 60 + 5 * i);
    await page.mouse.up();
    await page.getByRole("button", { name: "Done" }).click();
    await reaches(page, "done");
    assert.equal(await field(page).evaluate((element) => element.source), "pointer");
    assert.match(await says(page), /On the screen/);
    await page.context().close();
  },

  async "goes on after the bridge was killed, and keeps what was written"() {
    const environment = { KVSIM_SPEED: "8", KVSIM_RECORDING: "signature" };
    const first = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk], { ...environment, KVSIM_SPEED: "0.5" });
    const page = await open(`${desk}/tests/field.html`);
    await setUp(page, { port: first.port });
    await sign(page);
    await page.waitForFunction(() => document.querySelector("kv-signature").ink.parts[0]?.points.length > 40);
    await first.stop("SIGKILL");
    await reaches(page, "reconnecting");
    const kept = await field(page).evaluate((element) => element.ink.parts[0].points.length);
    assert.ok(kept > 40);
    const second = await startBridge(["--port", String(first.port), "--no-consent", "--allow-origin", desk], environment);
    await reaches(page, "done");
    const parts = await field(page).evaluate((element) => element.ink.parts.map((part) => part.points.length));
    assert.equal(parts[0], kept);
    assert.ok(parts[1] > 100);
    await page.context().close();
    await second.stop();
  },

  async "writes on a page's signature_pad"() {
    const bridge = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk], { KVSIM_SPEED: "20" });
    const page = await open(`${desk}/tests/signature-pad.html`);
    await page.waitForFunction(() => window.bind);
    await page.evaluate((port) => window.bind(port), bridge.port);
    await page.waitForFunction(() => window.tapped === "confirm");
    const { strokes, points, begun, ended } = await page.evaluate(() => ({
      strokes: window.pad.toData().length, points: window.pad.toData().reduce((sum, group) => sum + group.points.length, 0),
      begun: window.told.filter((name) => name === "beginStroke").length,
      ended: window.told.filter((name) => name === "endStroke").length }));
    assert.ok(strokes >= 1 && begun === strokes && ended === strokes, JSON.stringify({ strokes, begun, ended }));
    assert.ok(points > 100, `${points} points`);
    await page.screenshot({ path: path.join(pictures, "signature-pad.png") });
    await page.context().close();
    await bridge.stop();
  },

  async "axe finds nothing, in light, in dark and on a phone, on every example"() {
    const bridge = await startBridge(["--port", "0", "--demo", "--no-browser"], { KVSIM_RECORDING: "none" });
    const axe = readFileSync(path.resolve(import.meta.dirname, "../node_modules/axe-core/axe.min.js"), "utf8");
    for (const name of ["", "delivery-note.html", "consent-form.html", "two-signers.html"]) {
      for (const look of ["light", "dark", "phone"]) {
        const page = await open(`http://127.0.0.1:${bridge.port}/${name}`, { permissions: [], bypassCSP: true,
          colorScheme: look === "dark" ? "dark" : "light",
          ...(look === "phone" ? { viewport: { width: 360, height: 740 }, deviceScaleFactor: 3 } : {}) });
        if (name && look === "dark") {
          await sign(page);
          await reaches(page, "ready");
        }
        await page.evaluate(axe);
        const { violations } = await page.evaluate(() => window.axe.run());
        assert.deepEqual(violations.map(({ id, nodes }) => [id, nodes[0].html]), [], `${name} ${look}`);
        assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= window.innerWidth), `${name} ${look}: too wide`);
        await page.screenshot({ path: path.join(pictures, `${name || "index"}-${look}.png`) });
        await page.context().close();
      }
    }
    await bridge.stop();
  },

  async "is worked with the keyboard alone"() {
    const bridge = await startBridge(["--port", "0", "--demo", "--no-browser"], { KVSIM_SPEED: "max" });
    const page = await open(`http://127.0.0.1:${bridge.port}/delivery-note.html`, { permissions: [] });
    await page.keyboard.press("Tab");
    await page.keyboard.press("Enter");
    await reaches(page, "done");
    await page.getByRole("button", { name: "Send" }).focus();
    await page.keyboard.press("Enter");
    await page.waitForFunction(() => document.querySelector("output").textContent.startsWith("Sent received: "));
    await page.screenshot({ path: path.join(pictures, "delivery-note.png") });
    await page.context().close();
    await bridge.stop();
  },

  // No time is asserted, for the machine may be busy: bench/ says what was measured.
  async "measures from the packet to the paint"() {
    const bridge = await startBridge(["--port", "0", "--no-consent", "--allow-origin", desk],
      { KVSIM_RECORDING: "signature", KVSIM_SPEED: process.env.KVSIM_SPEED ?? "1" });
    const page = await open(`${desk}/tests/field.html`);
    await setUp(page, { port: bridge.port });
    const session = await page.context().newCDPSession(page);
    await session.send("Performance.enable");
    // The browser's clock and the page's, read as close together as can be.
    let best = { width: Infinity, offset: 0 };
    for (let i = 0; i < 20; i += 1) {
      const before = await page.evaluate(() => performance.now());
      const { metrics } = await session.send("Performance.getMetrics");
      const after = await page.evaluate(() => performance.now());
      const clock = metrics.find(({ name }) => name === "Timestamp").value * 1000;
      if (after - before < best.width) best = { width: after - before, offset: clock - (before + after) / 2 };
    }
    const { frames, ticks } = await field(page).evaluate(async (element) => {
      const painted = [];
      let points = 0;
      element.addEventListener("points", ({ detail }) => { points += detail.points.length; });
      element.addEventListener("painted", () => painted.push([points, performance.now()]));
      const confirm = element.confirm.bind(element);
      const record = new Promise((resolve) => {
        element.confirm = async () => {
          resolve(await (await element.client.image("ink")).arrayBuffer());
          confirm();
        };
      });
      await element.sign();
      const view = new DataView(await record);
      const stored = [];
      for (let at = 8; at < view.byteLength; at += 24) stored.push(Number(view.getBigUint64(at, true)));
      await new Promise((resolve) => { requestAnimationFrame(() => requestAnimationFrame(resolve)); });
      return { frames: painted, ticks: stored };
    });
    const waits = ticks.map((tick, i) => frames.find(([points]) => points > i)[1] + best.offset - tick).sort((x, y) => x - y);
    const share = (part) => Number(waits[Math.floor((waits.length - 1) * part)].toFixed(1));
    const result = { points: ticks.length, frames: frames.length, median: share(0.5), p99: share(0.99),
      pointsPerSecond: Math.round((1000 * ticks.length) / (ticks.at(-1) - ticks[0])), clockWithin: Number(best.width.toFixed(1)) };
    writeFileSync(path.join(build, "web-latency.json"), JSON.stringify(result));
    console.log(`    ${JSON.stringify(result)}`);
    assert.ok(result.points > 100 && result.frames > 0);
    await page.context().close();
    await bridge.stop();
  },
};

const within = (seconds, name, work) => Promise.race([work, new Promise((_, reject) => {
  setTimeout(() => reject(new Error(`${name}: not within ${seconds} s`)), seconds * 1000).unref();
})]);

const wanted = process.argv[3];
let failures = 0;
for (const [name, test] of Object.entries(tests)) {
  if (wanted && !name.includes(wanted)) continue;
  const began = Date.now();
  try {
    await within(90, name, test());
    console.log(`  ${name} (${((Date.now() - began) / 1000).toFixed(1)} s)`);
  } catch (error) {
    failures += 1;
    console.error(`  FAILED: ${name}: ${error.stack}`);
  }
}
await browser.close();
pages.stop();
process.exit(failures ? 1 : 0);
