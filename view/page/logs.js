// The phone's logs, one a tab: filtered, paused, copied.

import { element, note, throttled } from "./dom.js";
import { link } from "./link.js";

const linesKept = 5000;

class LogView {
  constructor(label) {
    this.lines = [];
    this.shown = 0;
    this.text = element("pre", { class: "scroll", tabindex: "0", role: "log", "aria-label": label });
    this.filter = element("input", {
      type: "search",
      "aria-label": `Show only lines of ${label} that contain`,
      placeholder: "only lines with ...",
      oninput: () => this.render(),
    });
    this.pause = element(
      "button",
      { "aria-pressed": "false", onclick: () => this.setPaused(!this.paused) },
      "Pause",
    );
    this.paused = false;
    this.render = throttled(60, () => this.draw());
  }

  setPaused(paused) {
    this.paused = paused;
    this.pause.setAttribute("aria-pressed", String(paused));
    this.pause.textContent = paused ? "Go on" : "Pause";
    this.render();
  }

  set(text) {
    this.lines = text === "" ? [] : text.replace(/\n$/, "").split("\n");
    this.render();
  }

  add(text) {
    this.lines.push(...text.replace(/\n$/, "").split("\n"));
    this.lines.splice(0, this.lines.length - linesKept);
    this.render();
  }

  fitting() {
    const wanted = this.filter.value.toLowerCase();
    return this.lines.filter((line) => line.toLowerCase().includes(wanted));
  }

  draw() {
    if (this.paused) return;
    const { text } = this;
    const atEnd = text.scrollTop + text.clientHeight > text.scrollHeight - 30;
    text.textContent = this.fitting().join("\n");
    if (atEnd) text.scrollTop = text.scrollHeight;
  }

  async copy() {
    try {
      await navigator.clipboard.writeText(this.fitting().join("\n"));
      note("Copied.");
    } catch {
      note("The browser doesn't let the page copy.");
    }
  }

  pane(...more) {
    return element(
      "div",
      { class: "pane" },
      this.text,
      element(
        "div",
        { class: "row" },
        this.filter,
        this.pause,
        element("button", { onclick: () => this.copy() }, "Copy"),
        ...more,
      ),
    );
  }
}

function followed(name, title, ...more) {
  const view = new LogView(title);
  let done = null;
  link.addEventListener("log", ({ detail }) => {
    if (detail.name !== name) return;
    if (detail.whole) view.set(detail.text);
    else view.add(detail.text);
  });
  return {
    name: title,
    box: view.pane(...more),
    open: () => (done ??= link.want(`log ${name}`)),
    close: () => {
      done?.();
      done = null;
    },
    focus: view.filter,
  };
}

async function say(request) {
  try {
    await link.ask(request);
  } catch (error) {
    note(error.message);
  }
}

function callsPane() {
  const button = (text, request) => element("button", { onclick: () => say(request) }, text);
  return followed("output", "Calls", button("Show calls", "log on"), button("No more", "log off"));
}

// What is strange has no log of its own; the kernel's has a line for each first time.
function strangePane() {
  const view = new LogView("Strange");
  const read = async () => {
    try {
      view.set(await link.ask("strange"));
    } catch {
      // the phone is off: what it had stays
    }
  };
  let done = null;
  link.addEventListener("log", ({ detail }) => {
    if (detail.name === "kmsg" && done) read();
  });
  const forget = async () => {
    await say("strange off");
    read();
  };
  return {
    name: "Strange",
    box: view.pane(element("button", { onclick: forget }, "Forget")),
    open: () => (done ??= link.want("log kmsg")),
    close: () => {
      done?.();
      done = null;
    },
    focus: view.filter,
  };
}

export function makeLogs() {
  return [
    followed("kmsg", "Kernel"),
    followed("shell", "Shell"),
    followed("port", "Port"),
    followed("sound", "Sound"),
    callsPane(),
    strangePane(),
  ];
}
