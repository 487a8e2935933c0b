// The page as a station, and the line for requests to the control port. What crosses the station's port is
// shown whoever sent it: it comes from the port's log.

import { makeLine } from "./complete.js";
import { element, note } from "./dom.js";
import { link } from "./link.js";
import { words } from "./words.js";

const charactersKept = 200000;
const escapes = { r: "\r", n: "\n", t: "\t", 0: "\0", "\\": "\\" };

function unescaped(text) {
  return text.replace(/\\(x([0-9a-fA-F]{2})|.)/g, (all, one, hex) =>
    hex ? String.fromCharCode(parseInt(hex, 16)) : (escapes[one] ?? all),
  );
}

// Text that stays at its end while it grows, unless somebody has scrolled up.
class Scroll {
  constructor(label) {
    this.box = element("pre", { class: "scroll", tabindex: "0", role: "log", "aria-label": label });
    this.size = 0;
  }

  clear() {
    this.box.replaceChildren();
    this.size = 0;
  }

  add(text, kind) {
    const atEnd = this.box.scrollTop + this.box.clientHeight > this.box.scrollHeight - 30;
    this.box.append(element("span", { class: kind }, text));
    this.size += text.length;
    while (this.size > charactersKept && this.box.firstChild) {
      this.size -= this.box.firstChild.textContent.length;
      this.box.firstChild.remove();
    }
    if (atEnd) this.box.scrollTop = this.box.scrollHeight;
  }
}

// The names of the program's commands, once a station has asked for them: the answer to `list`.
class Names {
  constructor() {
    this.all = [];
    this.heard = null; // the answer so far
  }

  sent(text) {
    this.heard = text.trim() === "list" ? "" : null;
  }

  hear(text) {
    if (this.heard === null) return;
    this.heard += text;
    if (!/\bOK\s*$/.test(this.heard)) return;
    this.all = [...new Set(this.heard.match(/\b[a-z]\w*/g))].sort();
    this.heard = null;
  }
}

export function makeConsole() {
  const scroll = new Scroll("What crosses the station's port");
  const names = new Names();
  let fromStation = null;

  function show(line) {
    const sent = line.startsWith("< ");
    const text = unescaped(line.slice(2)).replace(/\r\n?/g, "\n");
    if (line === "...") scroll.add("...\n", "note");
    if (!sent && !line.startsWith("> ")) return;
    if (sent !== fromStation && fromStation !== null && !scroll.box.textContent.endsWith("\n"))
      scroll.add("\n");
    if (sent) names.sent(text);
    else names.hear(text);
    scroll.add(text, sent ? "sent" : "");
    fromStation = sent;
  }

  link.addEventListener("log", ({ detail: { name, text, whole } }) => {
    if (name !== "port") return;
    if (whole) scroll.clear();
    for (const line of text.split("\n")) show(line);
  });
  const line = makeLine({
    label: "A line for the station's port",
    name: "console",
    hint: "a command of the program: help, case?, list ...",
    candidates: (text) => names.all.filter((one) => one.startsWith(text)).map((one) => ({ value: one })),
    enter: (text) => {
      if (link.state !== "on") note("The phone is off.");
      else link.send(`type ${text}`);
    },
  });
  const learn = element(
    "button",
    { title: "Sends `list`: the names are offered from then on", onclick: () => link.send("type list") },
    "Learn names",
  );
  let done = null;
  return {
    name: "Console",
    box: element("div", { class: "pane" }, scroll.box, element("div", { class: "row" }, line.box, learn)),
    open: () => (done ??= link.want("log port")),
    close: () => {
      done?.();
      done = null;
    },
    focus: line.input,
  };
}

export function makeRequests() {
  const scroll = new Scroll("Requests and answers");
  const line = makeLine({
    label: "A request to the control port",
    name: "requests",
    hint: "a word of the control port: battery, help light, pose 0 -640 768 ...",
    candidates: (text) => words.complete(text),
    enter: async (text) => {
      scroll.add(`${text}\n`, "sent");
      try {
        const answer = await link.ask(text);
        scroll.add(answer === "" ? "ok\n" : `${answer}\n`);
      } catch (error) {
        scroll.add(`${error.message}\n`, "wrong");
      }
    },
  });
  link.addEventListener("word", ({ detail: { text, own } }) => {
    if (!own) scroll.add(`another said: ${text}\n`, "note");
  });
  return {
    name: "Requests",
    box: element("div", { class: "pane" }, scroll.box, element("div", { class: "row" }, line.box)),
    open: () => {},
    close: () => {},
    focus: line.input,
  };
}
