// The words of the control port, as `help` lists them, and what can stand behind each. Nothing here knows a
// word: one that is added to the phone is on the page at once.

import { link } from "./link.js";

class Words extends EventTarget {
  constructor() {
    super();
    this.all = new Map(); // name: {usage, help}
  }

  has(name) {
    return this.all.has(name);
  }

  async read() {
    this.all.clear();
    for (const line of (await link.ask("help")).split("\n")) {
      const end = line.search(/ {2}/);
      const usage = line.slice(0, end < 0 ? line.length : end);
      const name = usage.split(" ", 1)[0];
      this.all.set(name, { usage, help: line.slice(end).trim() });
    }
    this.dispatchEvent(new Event("read"));
  }

  // What the usage offers at that place: "clock [hold|run|+MS]" gives hold and run at 1.
  offered(name, place) {
    const { usage } = this.all.get(name) ?? { usage: "" };
    const found = new Set();
    const parts = usage
      .slice(name.length)
      .trim()
      .split(/ (?![^[]*\])| \| /);
    const part = place === 1 ? usage.slice(name.length) : (parts[place - 1] ?? "");
    for (const one of part.split(/[[\]| .]+/)) if (/^[a-z][a-z0-9]*$/.test(one)) found.add(one);
    return [...found];
  }

  // Whole lines that go on from `text`.
  complete(text) {
    const name = text.split(" ", 1)[0];
    if (!text.includes(" ")) {
      const fits = [...this.all].filter(([word]) => word.startsWith(name));
      return fits.map(([word, { usage, help }]) => ({
        value: `${word} `.trimEnd(),
        note: `${usage.slice(word.length)} ${help}`,
      }));
    }
    const cut = text.lastIndexOf(" ") + 1;
    const place = text.slice(0, cut).trim().split(/ +/).length;
    const head = text.slice(0, cut);
    const { usage = "", help = "" } = this.all.get(name) ?? {};
    const fits = this.offered(name, place).filter((one) => one.startsWith(text.slice(cut)));
    return fits.map((one, i) => ({ value: head + one, note: i === 0 ? `${usage}: ${help}` : "" }));
  }
}

export const words = new Words();
