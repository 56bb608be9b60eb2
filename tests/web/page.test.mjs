// The simulator's page in a real browser: Debian's headless Chromium, driven by puppeteer-core.
// For the demo and the example: a sale and a declined refund played by clicking the page's
// keypad, by real key events and by its card buttons, and again as a session pasted into the
// page; every picture read from the visible canvas equals the native headless run's of the same
// script, the tones are Web Audio oscillators, and nothing is requested outside the page's folder.
//
// Environment: UI_WEB (the built pages, out/web), UI_NATIVE (the native build's bin folder),
// UI_PAY_DATA (the example's data folder), UI_OUT (where the native recordings go).
import assert from "node:assert/strict";
import { spawn, execFileSync } from "node:child_process";
import fs from "node:fs";
import path from "node:path";
import { after, before, describe, test } from "node:test";
import zlib from "node:zlib";

import { PNG } from "pngjs";
import puppeteer from "puppeteer-core";

const root = path.resolve(import.meta.dirname, "../..");
const web = process.env.UI_WEB ?? path.join(root, "out/web");
const native = process.env.UI_NATIVE ?? path.join(root, "build/default/bin");
const out = process.env.UI_OUT ?? path.join(root, "build/web/test");

// A sale and a declined refund, as each application takes them; the card taps included.
const demoSale = fs
    .readFileSync(path.join(root, "demo/demo.session"), "utf8")
    .split("\n")
    .filter((line) => line && !line.startsWith("#"));
const apps = {
    demo: {
        script: demoSale.slice(demoSale.indexOf("key ENTER"), demoSale.indexOf("tap declined") + 2),
        toEntry: ["ENTER", "ENTER"], // from the idle screen to a sale's amount
        run: (script, folder) => [path.join(native, "ui_demo"), "--data", root, "--script", script, "--out", folder],
    },
    pay: {
        script: ["keys 1250", "key ENTER", "tap", "key CANCEL", "keys 500", "key ENTER", "tap declined"],
        toEntry: [],
        run: (script, folder) => [
            path.join(native, "pay-sim"),
            "--data",
            process.env.UI_PAY_DATA ?? path.join(root, "build/default/examples/pay/data"),
            "--script",
            script,
            "--out",
            folder,
        ],
    },
};

let server;
let origin;
let browser;

before(async () => {
    server = spawn("python3", [path.join(root, "simulator/web/serve.py"), web, "0"], { stdio: ["ignore", "pipe", "ignore"] });
    origin = await new Promise((resolve, reject) => {
        server.stdout.once("data", (line) => resolve(String(line).match(/http:\/\/[0-9.:]+/)[0]));
        server.once("exit", () => reject(new Error("the server did not start")));
    });
    browser = await puppeteer.launch({
        executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium-headless-shell",
        args: ["--no-sandbox", "--autoplay-policy=no-user-gesture-required"],
    });
});

after(async () => {
    await browser?.close();
    server?.kill();
});

// The native headless run of a script: its steps' pictures, by file name, as RGBA.
function nativeRun(name, lines) {
    const folder = path.join(out, name);
    fs.rmSync(folder, { recursive: true, force: true });
    fs.mkdirSync(folder, { recursive: true });
    const script = path.join(folder, "test.session");
    fs.writeFileSync(script, lines.join("\n") + "\n");
    const [program, ...args] = apps[name].run(script, folder);
    execFileSync(program, args, { stdio: "pipe" });
    const pictures = fs.readdirSync(folder).filter((file) => /^\d\d_.*\.png$/.test(file)).sort();
    return pictures.map((file) => {
        const picture = path.join(folder, file);
        return { file, path: picture, rgba: PNG.sync.read(fs.readFileSync(picture)).data };
    });
}

// A page of the application; every console error, failed load, wasm trap and request that
// leaves the page's folder is a fault the test reports at its end.
async function open(name, query) {
    const page = await browser.newPage();
    const faults = [];
    const requests = [];
    page.on("console", (message) => message.type() === "error" && faults.push(`console: ${message.text()}`));
    page.on("pageerror", (error) => faults.push(`page error: ${error.message}`));
    page.on("requestfailed", (request) => faults.push(`failed: ${request.url()}`));
    page.on("response", (response) => response.status() >= 400 && faults.push(`${response.status()}: ${response.url()}`));
    page.on("request", (request) => requests.push(request.url()));
    // Every tone the page starts, as Web Audio sees it.
    await page.evaluateOnNewDocument(() => {
        window.toBase64 = (bytes) => {
            let text = "";
            for (let i = 0; i < bytes.length; i += 0x8000) {
                text += String.fromCharCode(...bytes.subarray(i, i + 0x8000));
            }
            return btoa(text);
        };
        window.oscillators = [];
        const start = OscillatorNode.prototype.start;
        const stop = OscillatorNode.prototype.stop;
        OscillatorNode.prototype.start = function (when) {
            this.record = { frequency: this.frequency.value, start: when };
            window.oscillators.push(this.record);
            return start.apply(this, arguments);
        };
        OscillatorNode.prototype.stop = function (when) {
            this.record.stop = when;
            return stop.apply(this, arguments);
        };
    });
    const loading = Date.now();
    await page.goto(`${origin}/${name}/index.html?${query}`);
    await page.waitForFunction(() => window.sim?.ready && window.sim.framesDrawn > 0, { timeout: 30000 });
    const firstFrame = await page.evaluate(() => sim.firstFrameMs);
    return { page, faults, requests, firstFrame, loading: Date.now() - loading };
}

function differing(a, b) {
    let count = 0;
    for (let i = 0; i < a.length; i += 4) {
        if (a[i] !== b[i] || a[i + 1] !== b[i + 1] || a[i + 2] !== b[i + 2] || a[i + 3] !== b[i + 3]) {
            count++;
        }
    }
    return count;
}

// The canvas read back at zoom 1, once it shows what it should; else how many pixels differ,
// with what it showed written beside the native picture (NAME_page.png).
async function canvasMatches(page, expected, timeoutMs = 10000) {
    const until = Date.now() + timeoutMs;
    for (;;) {
        await page.evaluate(() => sim.settle());
        const shown = Buffer.from(
            await page.evaluate(() => {
                const canvas = document.getElementById("panel");
                return window.toBase64(canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height).data);
            }),
            "base64",
        );
        const count = shown.length === expected.rgba.length ? differing(shown, expected.rgba) : Infinity;
        if (count === 0) {
            return 0;
        }
        if (Date.now() > until) {
            const png = new PNG({ width: 320, height: shown.length / 4 / 320 });
            shown.copy(png.data);
            fs.writeFileSync(expected.path.replace(/\.png$/, "_page.png"), PNG.sync.write(png));
            return count;
        }
    }
}

function tones(oscillators) {
    return oscillators.map((o) => `${o.frequency} Hz ${Math.round((o.stop - o.start) * 1000)} ms`);
}

function checkClean(name, opened) {
    assert.deepEqual(opened.faults, [], `${name}: faults`);
    const outside = opened.requests.filter((url) => !url.startsWith(`${origin}/${name}/`) && !url.startsWith("blob:"));
    assert.deepEqual(outside, [], `${name}: requests outside the page's folder`);
}

function gzipSize(folder) {
    return fs.readdirSync(folder).reduce((sum, file) => sum + zlib.gzipSync(fs.readFileSync(path.join(folder, file)), { level: 9 }).length, 0);
}

for (const name of Object.keys(apps)) {
    describe(name, () => {
        const { script } = apps[name];
        let expected;
        // The native step each script line ends on (moments of the application come between).
        const afterLine = [];
        before(() => {
            expected = nativeRun(name, script);
            let at = 0;
            for (const line of script) {
                const file = new RegExp(`^\\d\\d_${line.replace(/[^A-Za-z0-9-]/g, "_")}\\.png$`);
                while (at < expected.length && !file.test(expected[at].file)) {
                    at++;
                }
                assert.ok(at < expected.length, `${name}: no native step for "${line}"`);
                afterLine.push(expected[at++]);
            }
        });

        test("played by its keypad, real keys and its card buttons, it shows what the native run shows", async () => {
            const opened = await open(name, "pin&zoom=1");
            const { page } = opened;
            assert.equal(await canvasMatches(page, expected[0]), 0, `${name}: ${expected[0].file}`);
            let typed = 0;
            for (const [i, line] of script.entries()) {
                const [command, argument] = line.split(" ");
                if (command === "keys") {
                    await page.keyboard.type(argument); // real key events, the characters typed
                } else if (command === "key" && typed++ % 2 === 0) {
                    await page.click(`button[data-key="${argument}"]`);
                } else if (command === "key") {
                    const pcKey = { ENTER: "Enter", CANCEL: "Escape", CLEAR: "Backspace", UP: "ArrowUp", DOWN: "ArrowDown" }[argument];
                    await page.keyboard.press(pcKey);
                } else if (command === "tap") {
                    await page.click(argument === "declined" ? "#tap-declined" : "#tap-approved");
                }
                const picture = afterLine[i];
                assert.equal(await canvasMatches(page, picture), 0, `${name}: pixels differ at ${picture.file} (${line})`);
            }
            const heard = tones(await page.evaluate(() => window.oscillators));
            assert.deepEqual(heard, ["1500 Hz 500 ms", "750 Hz 200 ms", "750 Hz 200 ms"]);

            // Key to frame: a key that changes the screen, until the page has drawn the change.
            for (const key of apps[name].toEntry) {
                await page.evaluate((k) => sim.key(k), key);
                await page.evaluate(() => sim.settle());
            }
            const times = await page.evaluate(async () => {
                const spent = [];
                for (let i = 0; i < 60; i++) {
                    const drawn = sim.framesDrawn;
                    const pressed = performance.now();
                    sim.key(i % 2 ? "CLEAR" : "5");
                    while (sim.framesDrawn === drawn && performance.now() - pressed < 5000) {
                        await new Promise((resolve) => requestAnimationFrame(resolve));
                    }
                    spent.push(sim.lastDrawnAt - pressed);
                }
                return spent.sort((a, b) => a - b);
            });
            const p = (q) => times[Math.min(times.length - 1, Math.floor(q * times.length))].toFixed(1);
            console.log(
                `${name}: download ${(gzipSize(path.join(web, name)) / 1e6).toFixed(2)} MB gzip, ` +
                    `first frame ${opened.firstFrame.toFixed(0)} ms after load began, key to frame p50 ${p(0.5)} ms, p99 ${p(0.99)} ms`,
            );
            checkClean(name, opened);
            await page.close();
        });

        test("a session pasted into the page records every step as the native run does", async () => {
            const opened = await open(name, "zoom=2");
            const { page } = opened;
            await page.$eval("#script", (box, text) => (box.value = text), script.join("\n"));
            await page.click("#play");
            await page.waitForFunction(() => !document.getElementById("download").hidden || /stops/.test(document.getElementById("status").textContent), { timeout: 60000 });
            assert.doesNotMatch(await page.$eval("#status", (s) => s.textContent), /stops/);
            const steps = await page.evaluate(() => sim.steps.map((s) => ({ picture: s.picture, pixels: window.toBase64(s.pixels) })));
            assert.deepEqual(steps.map((s) => s.picture), expected.map((e) => e.file));
            for (const [i, step] of steps.entries()) {
                assert.equal(differing(Buffer.from(step.pixels, "base64"), expected[i].rgba), 0, `${name}: pixels differ at ${step.picture}`);
            }
            const storyboard = await page.evaluate(() => sim.storyboard);
            assert.equal((storyboard.match(/<img src="data:image\/png;base64,/g) ?? []).length, expected.length);
            assert.deepEqual(tones(await page.evaluate(() => window.oscillators)), ["1500 Hz 500 ms", "750 Hz 200 ms", "750 Hz 200 ms"]);
            checkClean(name, opened);
            await page.close();
        });
    });
}
