// The terminal's page: the panel on a canvas, a keypad, the card reader and the header's states
// as buttons, the tones through Web Audio, and a session played and recorded in the page. The
// application runs in app.js (WebAssembly, its threads on workers); this file talks to it
// through Module.
"use strict";

const query = new URLSearchParams(location.search);
const zoom = Math.max(1, Math.min(8, Number(query.get("zoom")) || 2));
const canvas = document.getElementById("panel");
const context = canvas.getContext("2d");
const statusLine = document.getElementById("status");

// What the page shows and records, for its own buttons and for a driver (a browser test).
const sim = {
    ready: false,
    features: {},
    steps: [], // the last session's steps: number, action, picture, leds, the canvas's pixels
    tones: [], // every tone started: frequency (Hz), duration (ms)
    holding: false, // a session's step is on the canvas until it has been read back
    framesDrawn: 0, // pictures put on the canvas, the first and the last at (performance.now())
    firstFrameMs: 0,
    lastDrawnAt: 0,
    waiting: new Map(), // requests to the application not yet answered, by id
    nextId: 1,
};
window.sim = sim;

let audio = null;
function audioContext() {
    if (!audio) {
        audio = new AudioContext();
    }
    return audio;
}

// The arguments main() gets: the language, and --pin for pictures that match a headless run.
const args = [];
if (query.get("lang")) {
    args.push("--lang", query.get("lang"));
}
if (query.has("pin")) {
    args.push("--pin");
}

window.Module = {
    arguments: args,
    print: (text) => console.log(text),
    printErr: (text) => console.warn(text),
    sim: {
        onReady(battery, ethernet, signal, flightMode, offlineCount, updateAvailable) {
            const has = { b: battery, e: ethernet, s: signal, f: flightMode, o: offlineCount, u: updateAvailable };
            for (const button of document.querySelectorAll("#header-states button")) {
                button.hidden = !has[button.dataset.control];
            }
            sim.features = has;
            sim.ready = true;
            document.getElementById("loading").hidden = true;
            resize();
        },
        onFailed(why) {
            document.getElementById("loading").textContent = `The application did not start: ${why}`;
            console.error(why);
        },
        onTone(frequency, duration) {
            sim.tones.push({ frequency, duration });
            const sound = audioContext();
            const oscillator = sound.createOscillator();
            const gain = sound.createGain();
            oscillator.type = "square";
            oscillator.frequency.value = frequency;
            gain.gain.value = 0.08;
            oscillator.connect(gain).connect(sound.destination);
            oscillator.start(sound.currentTime);
            oscillator.stop(sound.currentTime + duration / 1000);
        },
        // A session's step: drawn, read back from the canvas, and only then let go.
        onStep(number, action, picture, leds) {
            const size = canvas.width * canvas.height * 4;
            const buffer = Module._malloc(size);
            if (Module._sim_step(buffer)) {
                draw(buffer);
                const shown = context.getImageData(0, 0, canvas.width, canvas.height);
                sim.steps.push({ number, action, picture, leds, pixels: shown.data, png: canvas.toDataURL("image/png") });
                statusLine.textContent = `step ${number}: ${action}`;
            }
            Module._free(buffer);
            Module._sim_step_shown();
        },
        onSettled(id) {
            answer(id, { ok: true });
        },
        onPlayed(id, ok, text) {
            sim.holding = false;
            statusLine.textContent = ok ? `Played ${sim.steps.length} steps.\n\n${text}` : `The script stops: ${text}`;
            if (ok) {
                offerStoryboard(text);
            }
            answer(id, { ok, text });
        },
    },
};

function answer(id, result) {
    const resolve = sim.waiting.get(id);
    sim.waiting.delete(id);
    if (resolve) {
        resolve(result);
    }
}

function request(call) {
    const id = sim.nextId++;
    return new Promise((resolve) => {
        sim.waiting.set(id, resolve);
        call(id);
    });
}

// Resolves once what was pressed is on the panel: every key handled, the application and the
// library's threads done, and a frame begun after that shown.
sim.settle = () => request((id) => Module._sim_settle(id)).then(() => refresh());

// Plays a script from a fresh start; resolves with { ok, text } (the timeline, or the error).
sim.play = (script) => {
    sim.steps = [];
    sim.holding = true;
    document.getElementById("download").hidden = true;
    return request((id) => Module.ccall("sim_play", null, ["string", "number"], [script, id]));
};

sim.key = (name) => Module.ccall("sim_key", "number", ["string"], [name]) === 1;
sim.control = (letter) => Module._sim_control(letter.charCodeAt(0));

function draw(buffer) {
    const size = canvas.width * canvas.height * 4;
    const pixels = new Uint8ClampedArray(Module.HEAPU8.slice(buffer, buffer + size));
    context.putImageData(new ImageData(pixels, canvas.width, canvas.height), 0, 0);
    sim.framesDrawn++;
    sim.lastDrawnAt = performance.now();
    sim.firstFrameMs = sim.firstFrameMs || sim.lastDrawnAt;
}

// The panel as shown now, if it changed since it was last drawn.
let framesDrawn = -1;
function refresh() {
    if (!sim.ready || sim.holding) {
        return;
    }
    const frames = Module._sim_frames();
    if (frames === framesDrawn) {
        return;
    }
    framesDrawn = frames;
    const size = canvas.width * canvas.height * 4;
    const buffer = Module._malloc(size);
    Module._sim_panel(buffer);
    draw(buffer);
    Module._free(buffer);
}

function resize() {
    canvas.width = Module._sim_width();
    canvas.height = Module._sim_height();
    canvas.style.width = `${canvas.width * zoom}px`;
    canvas.style.height = `${canvas.height * zoom}px`;
    framesDrawn = -1;
}

function loop() {
    refresh();
    requestAnimationFrame(loop);
}
requestAnimationFrame(loop);

function press(name) {
    if (sim.ready && !sim.holding) {
        audioContext();
        sim.key(name);
    }
}

function operate(letter) {
    if (sim.ready && !sim.holding) {
        audioContext();
        sim.control(letter);
    }
}

for (const button of document.querySelectorAll("button[data-key]")) {
    button.addEventListener("click", () => press(button.dataset.key));
}
for (const button of document.querySelectorAll("button[data-control]")) {
    button.addEventListener("click", () => operate(button.dataset.control));
}

// The PC keyboard as in the window: the characters typed for digits, '*' and '#', the keys'
// places for the rest.
const keyNames = {
    Enter: "ENTER",
    Escape: "CANCEL",
    Backspace: "CLEAR",
    ArrowUp: "UP",
    ArrowDown: "DOWN",
    F1: "F1",
    F2: "F2",
    F3: "F3",
    F4: "F4",
    m: "MENU",
    a: "ALPHA",
    p: "POWER",
};
document.addEventListener("keydown", (event) => {
    if (event.target instanceof HTMLTextAreaElement || event.ctrlKey || event.altKey || event.metaKey) {
        return;
    }
    const key = event.key.length === 1 ? event.key.toLowerCase() : event.key;
    if (/^[0-9*#]$/.test(key)) {
        press(key);
    } else if (key === "t" || key === "d" || sim.features[key]) {
        operate(key);
    } else if (keyNames[key]) {
        press(keyNames[key]);
    } else {
        return;
    }
    event.preventDefault();
});

document.getElementById("play").addEventListener("click", () => {
    if (sim.ready && !sim.holding) {
        sim.play(document.getElementById("script").value);
    }
});

// The recording as one page: every step's picture in it, and the timeline.
function offerStoryboard(timeline) {
    const escape = (text) => text.replace(/[&<>"]/g, (c) => `&#${c.charCodeAt(0)};`);
    const steps = sim.steps
        .map(
            (step) =>
                `<figure><img src="${step.png}" alt="${escape(step.action)}">` +
                `<figcaption>${step.number}. ${escape(step.action)} <code>${step.leds}</code></figcaption></figure>`,
        )
        .join("\n");
    const html =
        `<!doctype html><html lang="en"><head><meta charset="utf-8"><title>${escape(document.title)}: storyboard</title>` +
        "<style>body{font-family:sans-serif}figure{display:inline-block;margin:8px}img{border:1px solid #888}</style>" +
        `</head><body><h1>${escape(document.title)}: storyboard</h1>\n${steps}\n<h2>Timeline</h2><pre>${escape(timeline)}</pre></body></html>`;
    const link = document.getElementById("download");
    if (link.href) {
        URL.revokeObjectURL(link.href);
    }
    link.href = URL.createObjectURL(new Blob([html], { type: "text/html" }));
    link.hidden = false;
    sim.storyboard = html;
}
