// What widgets are made of. A widget is {title, needs: [words], make(group) => elements}; it is shown when the
// phone has all of these words. `group` is an EventTarget that says "open" when its widgets come into sight,
// and has `shown`.

import { element, note, throttled } from "./dom.js";
import { link } from "./link.js";

const readMs = 60;

// Says a request; what is wrong with it is noted.
export async function say(request) {
  try {
    return await link.ask(request);
  } catch (error) {
    note(`${request}: ${error.message}`);
    return null;
  }
}

// Keeps what a question of the control port gives on the page: asked when the group comes into sight, when the
// phone comes on and when anybody has said its word. The function that comes back asks once more.
export function follow(group, question, show) {
  const word = question.split(" ", 1)[0];
  const read = throttled(readMs, async () => {
    if (!group.shown || document.hidden || link.state !== "on") return;
    try {
      show(await link.ask(question));
    } catch (error) {
      if (link.state === "on") show("", error.message);
    }
  });
  group.addEventListener("open", () => read());
  link.addEventListener("state", () => read());
  document.addEventListener("visibilitychange", () => read());
  link.addEventListener("word", ({ detail: { text } }) => {
    if (text !== question && text.split(" ", 1)[0] === word) read();
  });
  return () => read();
}

// Buttons of which one is chosen: {value: name}; `set` marks that one.
export function choice(label, values, chosen) {
  const buttons = Object.entries(values).map(([value, name]) =>
    element("button", { "aria-pressed": "false", "data-value": value, onclick: () => chosen(value) }, name),
  );
  const box = element(
    "div",
    { class: "choice", role: "group", "aria-label": label },
    element("span", { class: "label" }, label),
    ...buttons,
  );
  const set = (value) => {
    for (const button of buttons) button.setAttribute("aria-pressed", String(button.dataset.value === value));
  };
  return { box, set };
}

// A word that takes one of some values and tells it when it stands alone.
export function wordChoice(group, label, word, values) {
  const made = choice(label, values, (value) => say(`${word} ${value}`));
  follow(group, word, (answer) => made.set(answer.split(" ", 1)[0]));
  return made.box;
}

export function field(label, attributes) {
  const input = element("input", { type: "number", ...attributes });
  return {
    box: element("label", { class: "field" }, element("span", { class: "label" }, label), input),
    input,
  };
}

export function button(text, clicked, attributes = {}) {
  return element("button", { onclick: clicked, ...attributes }, text);
}

export function row(...children) {
  return element("div", { class: "row" }, ...children);
}

export function output(label) {
  return element("output", { "aria-label": label });
}

// A number by slider, sent while it moves; `toWord` turns its place into what the word takes.
export function slider(label, { min, max, step = 1, unit = "", toText = String, moved }) {
  const told = element("output", {});
  const send = throttled(80, moved);
  let held = false;
  const input = element("input", {
    type: "range",
    min: String(min),
    max: String(max),
    step: String(step),
    "aria-label": label,
    oninput: () => {
      tell();
      send(Number(input.value));
    },
    onpointerdown: () => (held = true),
    onpointerup: () => (held = false),
  });
  const tell = () => {
    told.textContent = `${toText(Number(input.value))}${unit}`;
    input.setAttribute("aria-valuetext", told.textContent);
  };
  const set = (value) => {
    if (held) return;
    input.value = String(value);
    tell();
  };
  tell();
  return {
    box: element("label", { class: "slider" }, element("span", { class: "label" }, label), input, told),
    set,
  };
}
