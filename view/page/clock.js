// The phone's clock: told, held, stepped, hurried. It is asked when somebody has set it; between that the page
// counts on by itself.

import { element } from "./dom.js";
import { button, say } from "./kit.js";
import { link } from "./link.js";

const heldTestMs = 40;
const shownEveryMs = 500;

function text(ms) {
  const part = (value, digits = 2) => String(Math.floor(value)).padStart(digits, "0");
  const days = Math.floor(ms / 86400000);
  return `${days > 0 ? `${days} d ` : ""}${part((ms / 3600000) % 24)}:${part((ms / 60000) % 60)}:${part((ms / 1000) % 60)}`;
}

export function makeClock(place) {
  let [base, readAt, speed, held] = [0, 0, 1, false];
  const told = element("output", { class: "time", "aria-label": "The phone's clock" }, "--:--:--");
  const hold = button("Hold", () => say(held ? "clock run" : "clock hold"), { "aria-pressed": "false" });
  const step = element(
    "select",
    { "aria-label": "Step the clock by" },
    ...[
      ["1000", "1 s"],
      ["60000", "1 min"],
      ["3600000", "1 h"],
      ["86400000", "1 day"],
    ].map(([value, name]) => element("option", { value }, name)),
  );
  const factor = element(
    "select",
    { "aria-label": "How many times as fast as real time", onchange: () => say(`speed ${factor.value}`) },
    ...["1", "2", "5", "10", "100", "1000"].map((value) => element("option", { value }, `× ${value}`)),
  );
  place.append(
    told,
    hold,
    step,
    button("Step", () => say(`clock +${step.value}`)),
    factor,
  );

  const show = () => (told.textContent = text(base + (held ? 0 : (performance.now() - readAt) * speed)));

  async function read() {
    if (link.state !== "on" || document.hidden) return;
    let first;
    try {
      first = Number(await link.ask("clock"));
      speed = Number(await link.ask("speed"));
      await new Promise((go) => setTimeout(go, heldTestMs));
      base = Number(await link.ask("clock"));
    } catch {
      return; // the phone went off meanwhile
    }
    readAt = performance.now();
    held = base === first;
    hold.setAttribute("aria-pressed", String(held));
    if (![...factor.options].some((option) => Number(option.value) === speed))
      factor.append(element("option", { value: String(speed) }, `× ${speed}`));
    factor.value = String(speed);
    show();
  }

  link.addEventListener("word", ({ detail: { text: said } }) => {
    if (/^(clock|speed) /.test(said)) read();
  });
  link.addEventListener("state", read);
  document.addEventListener("visibilitychange", read);
  setInterval(() => {
    if (!document.hidden && link.state === "on" && !held) show();
  }, shownEveryMs);
}
