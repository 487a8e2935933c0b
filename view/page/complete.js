// A line with completion and history: what is typed narrows a list, Tab takes from it, arrow up and down go
// through the list while it is open and through the history otherwise.

import { element } from "./dom.js";

const historyLimit = 300;
const shownLimit = 40;
let lists = 0;

function readHistory(name) {
  try {
    return JSON.parse(localStorage.getItem(name) ?? "[]").filter((line) => typeof line === "string");
  } catch {
    return [];
  }
}

// `candidates(text)` gives [{value, note}], whole lines; `enter(line)` takes what was typed; `clear` empties the
// line behind it.
export function makeLine({ label, name, hint, candidates, enter, clear = true }) {
  const history = readHistory(name);
  let at = history.length;
  let shown = [];
  let picked = -1;
  const listId = `list${lists++}`;
  const list = element("ul", {
    class: "choices",
    id: listId,
    role: "listbox",
    "aria-label": label,
    hidden: true,
  });
  const input = element("input", {
    type: "text",
    "aria-label": label,
    placeholder: hint ?? "",
    role: "combobox",
    "aria-expanded": "false",
    "aria-controls": listId,
    "aria-autocomplete": "list",
    autocomplete: "off",
    autocapitalize: "none",
    spellcheck: "false",
    enterkeyhint: "send",
    oninput: () => show(),
    onblur: () => hide(),
    onkeydown: (event) => key(event),
  });

  function hide() {
    list.hidden = true;
    picked = -1;
    input.setAttribute("aria-expanded", "false");
    input.removeAttribute("aria-activedescendant");
  }

  function show() {
    const text = input.value;
    shown =
      text === ""
        ? []
        : candidates(text)
            .filter((one) => one.value !== text)
            .slice(0, shownLimit);
    list.replaceChildren(
      ...shown.map((one, i) =>
        element(
          "li",
          {
            role: "option",
            id: `${listId}-${i}`,
            "aria-selected": "false",
            onpointerdown: (event) => take(event, one),
          },
          element("b", {}, one.value),
          element("span", {}, one.note ?? ""),
        ),
      ),
    );
    picked = -1;
    list.hidden = shown.length === 0;
    input.setAttribute("aria-expanded", String(!list.hidden));
    input.removeAttribute("aria-activedescendant");
  }

  function take(event, one) {
    event.preventDefault();
    input.value = one.value;
    input.focus();
    show();
  }

  function pick(step) {
    list.children[picked]?.setAttribute("aria-selected", "false");
    picked = (picked + step + shown.length + (picked < 0 && step < 0 ? 1 : 0)) % shown.length;
    const chosen = list.children[picked];
    chosen.setAttribute("aria-selected", "true");
    chosen.scrollIntoView({ block: "nearest" });
    input.setAttribute("aria-activedescendant", chosen.id);
  }

  function common(texts) {
    let text = texts[0];
    for (const other of texts) while (!other.startsWith(text)) text = text.slice(0, -1);
    return text;
  }

  // As in a shell: what all candidates have in common, then the first of them.
  function tab(event) {
    if (list.hidden || shown.length === 0) return;
    event.preventDefault();
    const shared = common(shown.map((one) => one.value));
    const fits = shared.startsWith(input.value) && shared.length > input.value.length;
    input.value = picked >= 0 ? shown[picked].value : fits ? shared : shown[0].value;
    show();
  }

  function recall(step, event) {
    event.preventDefault();
    at = Math.max(0, Math.min(history.length, at + step));
    input.value = history[at] ?? "";
  }

  function send() {
    const line = input.value;
    if (picked >= 0) {
      input.value = shown[picked].value;
      show();
      return;
    }
    hide();
    if (line !== "" && line !== history.at(-1)) history.push(line);
    history.splice(0, history.length - historyLimit);
    at = history.length;
    localStorage.setItem(name, JSON.stringify(history));
    if (clear) input.value = "";
    enter(line);
  }

  function key(event) {
    const isOpen = !list.hidden;
    if (event.key === "Enter") send();
    else if (event.key === "Tab" && !event.shiftKey) tab(event);
    else if (event.key === "Escape" && isOpen) hide();
    else if (event.key === "ArrowDown" && isOpen) (pick(1), event.preventDefault());
    else if (event.key === "ArrowUp" && isOpen) (pick(-1), event.preventDefault());
    else if (event.key === "ArrowUp") recall(-1, event);
    else if (event.key === "ArrowDown") recall(1, event);
  }

  return { box: element("div", { class: "line" }, input, list), input };
}
