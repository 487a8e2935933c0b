// The phone itself: its panel with touches, the keys at its sides, its lamps and its motor.

import { Display } from "./display.js";
import { element, note } from "./dom.js";
import { link } from "./link.js";

// Linux codes of the keys of the case, from the top.
const keys = [
  { code: 116, name: "Power" },
  { code: 115, name: "Volume up", short: "Vol +" },
  { code: 114, name: "Volume down", short: "Vol −" },
  { code: 528, name: "Camera, half pressed", short: "Focus" },
  { code: 212, name: "Camera" },
];
const coarse = 40; // panel pixels that an arrow key moves the pointer, 8 with Shift
const fine = 8;

function hand(request) {
  if (!link.hand(request)) note("The page's server has gone.");
}

function keyButton(key) {
  let down = false;
  const press = () => {
    if (down) return;
    down = true;
    button.setAttribute("aria-pressed", "true");
    hand(`key ${key.code} down`);
  };
  const release = () => {
    if (!down) return;
    down = false;
    button.setAttribute("aria-pressed", "false");
    hand(`key ${key.code} up`);
  };
  const isPress = (event) => event.key === "Enter" || event.key === " ";
  const button = element(
    "button",
    {
      class: "key",
      "aria-label": `Key ${key.name}`,
      "aria-pressed": "false",
      title: `${key.name}, code ${key.code}`,
      onpointerdown: (event) => {
        button.setPointerCapture(event.pointerId);
        press();
      },
      onpointerup: release,
      onpointercancel: release,
      onkeydown: (event) => {
        if (!isPress(event)) return;
        event.preventDefault();
        press();
      },
      onkeyup: (event) => {
        if (isPress(event)) release();
      },
      onblur: release,
    },
    key.short ?? key.name,
  );
  return button;
}

// Mouse, finger and arrow keys become touches of the panel.
class Finger {
  constructor(canvas, cross) {
    this.canvas = canvas;
    this.cross = cross;
    this.down = false;
    this.at = null; // where the pointer of the keyboard is, in panel pixels
    this.next = null;
    canvas.addEventListener("pointerdown", (event) => this.press(event));
    canvas.addEventListener("pointermove", (event) => this.move(event));
    canvas.addEventListener("pointerup", (event) => this.release(event));
    canvas.addEventListener("pointercancel", (event) => this.release(event));
    canvas.addEventListener("keydown", (event) => this.key(event));
    canvas.addEventListener("keyup", (event) => this.keyUp(event));
    canvas.addEventListener("focus", () => this.showCross(canvas.matches(":focus-visible")));
    canvas.addEventListener("blur", () => this.showCross(false));
    canvas.addEventListener("resized", () => (this.at = null));
  }

  place(event) {
    const box = this.canvas.getBoundingClientRect();
    const inside = (value, size) => Math.max(0, Math.min(size - 1, Math.floor(value)));
    return [
      inside(((event.clientX - box.left) / box.width) * this.canvas.width, this.canvas.width),
      inside(((event.clientY - box.top) / box.height) * this.canvas.height, this.canvas.height),
    ];
  }

  press(event) {
    if (event.button !== 0 || this.down) return;
    this.canvas.setPointerCapture(event.pointerId);
    this.showCross(false);
    this.down = true;
    this.last = this.place(event);
    hand(`touch ${this.last.join(" ")} down`);
  }

  // At most one move for each frame of the browser.
  move(event) {
    if (!this.down) return;
    const waits = this.next !== null;
    this.next = this.place(event);
    if (!waits) requestAnimationFrame(() => this.sendMove());
  }

  sendMove() {
    const next = this.next;
    this.next = null;
    if (!this.down || next === null || String(next) === String(this.last)) return;
    this.last = next;
    hand(`touch ${next.join(" ")} move`);
  }

  release(event) {
    if (!this.down) return;
    this.next = this.place(event);
    this.sendMove();
    this.down = false;
    hand(`touch ${this.last.join(" ")} up`);
  }

  key(event) {
    const { width, height } = this.canvas;
    this.at ??= [width >> 1, height >> 1];
    const step = event.shiftKey ? fine : coarse;
    const moves = { ArrowLeft: [-step, 0], ArrowRight: [step, 0], ArrowUp: [0, -step], ArrowDown: [0, step] };
    const move = moves[event.key];
    if (move) {
      this.at = [
        Math.max(0, Math.min(width - 1, this.at[0] + move[0])),
        Math.max(0, Math.min(height - 1, this.at[1] + move[1])),
      ];
      if (this.down) hand(`touch ${this.at.join(" ")} move`);
    } else if (event.key === "Enter" || event.key === " ") {
      if (!this.down) hand(`touch ${this.at.join(" ")} down`);
      this.down = true;
    } else {
      return;
    }
    event.preventDefault();
    this.showCross(true);
  }

  keyUp(event) {
    if ((event.key !== "Enter" && event.key !== " ") || !this.down) return;
    this.down = false;
    hand(`touch ${this.at.join(" ")} up`);
  }

  showCross(shown) {
    const { width, height } = this.canvas;
    this.at ??= [width >> 1, height >> 1];
    this.cross.hidden = !shown;
    this.cross.style.left = `${(this.at[0] / width) * 100}%`;
    this.cross.style.top = `${(this.at[1] / height) * 100}%`;
  }
}

function lamps(frame) {
  const led = element("span", { class: "led", role: "img", "aria-label": "LED off", title: "LED" });
  const now = { red: 0, green: 0, blue: 0 };
  link.addEventListener("lamp", ({ detail: { name, value } }) => {
    if (name in now) {
      now[name] = Math.min(255, value);
      const lit = now.red + now.green + now.blue > 0;
      led.style.background = lit ? `rgb(${now.red} ${now.green} ${now.blue})` : "";
      led.classList.toggle("lit", lit);
      led.setAttribute(
        "aria-label",
        lit ? `LED red ${now.red} green ${now.green} blue ${now.blue}` : "LED off",
      );
    } else if (name === "vib") {
      frame.classList.toggle("shakes", value > 0);
      frame.style.setProperty("--shake", `${Math.min(4, value / 1000)}px`);
    }
  });
  return led;
}

export function makeHandset(place) {
  const panel = new Display(0, "screen0", "The panel: click to touch, or arrow keys and Enter");
  panel.canvas.tabIndex = 0;
  panel.canvas.id = "panel";
  panel.canvas.setAttribute("role", "application");
  const cross = element("div", { class: "cross", hidden: true });
  const glass = element("div", { class: "glass" }, panel.canvas, cross);
  const veil = element("p", { class: "veil", hidden: true });
  const frame = element("div", { class: "frame" });
  frame.append(lamps(frame), glass, veil);
  new Finger(panel.canvas, cross);
  place.append(
    frame,
    element("div", { class: "keys", role: "group", "aria-label": "Keys" }, ...keys.map(keyButton)),
  );
  const fit = () => frame.style.setProperty("--ratio", panel.canvas.width / panel.canvas.height);
  panel.canvas.addEventListener("resized", fit);
  fit();
  link.addEventListener("state", ({ detail: { text } }) => {
    veil.hidden = text === "on";
    veil.textContent = text === "off" ? "off" : text === "on" ? "" : "not there";
  });
  link.want("lamps");
  panel.open();
  return panel;
}
