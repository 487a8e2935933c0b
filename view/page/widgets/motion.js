import { element, throttled } from "../dom.js";
import { button, field, follow, row, say, wordChoice } from "../kit.js";

const gravity = 1000; // milli-g
const degreesAPixel = 0.6;
const keyDegrees = 5;

// The phone is seen from above, lying on its back. Turned by `a` about its short side and `b` about its long
// one, as CSS turns, what points upward lies so in its own axes: x to the right, y to the top, z out of the panel.
function poseOf(a, b) {
  const [sa, ca, sb, cb] = [Math.sin(a), Math.cos(a), Math.sin(b), Math.cos(b)];
  return [-sb * ca, -sa, ca * cb].map((part) => Math.round(part * gravity));
}

function anglesOf([x, y, z]) {
  return [Math.asin(Math.max(-1, Math.min(1, -y / gravity))), Math.atan2(-x, z)];
}

const degrees = (radians) => (radians * 180) / Math.PI;
const radians = (inDegrees) => (inDegrees * Math.PI) / 180;

function makeBody(turned) {
  const body = element(
    "div",
    { class: "body" },
    element("div", { class: "front" }, "HVT"),
    element("div", { class: "back" }),
  );
  const box = element(
    "div",
    {
      class: "space",
      tabindex: "0",
      role: "application",
      "aria-label": "The phone's pose: drag it, or turn it with the arrow keys",
    },
    body,
  );
  let [a, b] = [0, 0];
  let last = null;
  const show = () => (body.style.transform = `rotateX(${degrees(a)}deg) rotateY(${degrees(b)}deg)`);
  const turn = (dx, dy) => {
    a = Math.max(-Math.PI / 2, Math.min(Math.PI / 2, a - radians(dy * degreesAPixel)));
    b += radians(dx * degreesAPixel);
    show();
    turned(poseOf(a, b));
  };
  box.addEventListener("pointerdown", (event) => {
    box.setPointerCapture(event.pointerId);
    last = [event.clientX, event.clientY];
  });
  box.addEventListener("pointermove", (event) => {
    if (!last) return;
    turn(event.clientX - last[0], event.clientY - last[1]);
    last = [event.clientX, event.clientY];
  });
  for (const end of ["pointerup", "pointercancel"]) box.addEventListener(end, () => (last = null));
  box.addEventListener("keydown", (event) => {
    const step = keyDegrees / degreesAPixel;
    const move = { ArrowLeft: [-step, 0], ArrowRight: [step, 0], ArrowUp: [0, -step], ArrowDown: [0, step] }[
      event.key
    ];
    if (!move) return;
    event.preventDefault();
    turn(...move);
  });
  const set = (pose) => {
    if (last) return;
    [a, b] = anglesOf(pose);
    show();
  };
  return { box, set };
}

// Three numbers of one word.
function axes(group, word, unit, limit) {
  const inputs = ["X", "Y", "Z"].map((name) =>
    field(name, { min: String(-limit), max: String(limit), step: "any" }),
  );
  const send = () => say(`${word} ${inputs.map((one) => Number(one.input.value)).join(" ")}`);
  follow(group, word, (answer) => {
    if (inputs.some((one) => one.input === document.activeElement)) return;
    answer.split(" ").forEach((value, i) => (inputs[i].input.value = value));
  });
  for (const one of inputs)
    one.input.addEventListener("keydown", (event) => {
      if (event.key === "Enter") send();
    });
  return row(
    ...inputs.map((one) => one.box),
    element("span", { class: "unit" }, unit),
    button("Set", send, { "aria-label": `Set ${word}` }),
  );
}

export const pose = {
  title: "Pose",
  needs: ["pose"],
  make: (group) => {
    const body = makeBody(throttled(50, (now) => say(`pose ${now.join(" ")}`)));
    follow(group, "pose", (answer) => body.set(answer.split(" ").map(Number)));
    const named = (name, values) => button(name, () => say(`pose ${values}`));
    return [
      body.box,
      row(
        named("On its back", "0 0 1000"),
        named("Upright", "0 1000 0"),
        named("On its side", "1000 0 0"),
        named("On its face", "0 0 -1000"),
      ),
      axes(group, "pose", "milli-g", 16000),
    ];
  },
};

export const turn = {
  title: "Turning",
  needs: ["turn", "tremble"],
  make: (group) => [
    axes(group, "turn", "degrees a second", 2000),
    wordChoice(group, "Noise of the motion chips", "tremble", { on: "some", off: "none" }),
  ],
};

export const magnet = {
  title: "Magnet",
  needs: ["magnet"],
  make: (group) => [axes(group, "magnet", "microtesla", 5000)],
};
