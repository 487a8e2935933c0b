import { button, follow, row, say, slider } from "../kit.js";

const darkest = -1; // powers of ten of lux
const brightest = 5;
const farthest = 200; // millimetres

const lux = (power) => Number((10 ** power).toPrecision(3));

export const light = {
  title: "Light",
  needs: ["light"],
  make: (group) => {
    const made = slider("On the panel", {
      min: darkest,
      max: brightest,
      step: 0.05,
      unit: " lux",
      toText: lux,
      moved: (power) => say(`light ${lux(power)}`),
    });
    follow(group, "light", (answer) => made.set(Math.log10(Math.max(Number(answer), 10 ** darkest))));
    return [
      made.box,
      row(
        button("Dark", () => say("light 0")),
        button("Office", () => say("light 400")),
        button("Sun", () => say("light 50000")),
      ),
    ];
  },
};

export const near = {
  title: "What is near",
  needs: ["near"],
  make: (group) => {
    const made = slider("A card at", {
      min: 0,
      max: farthest,
      unit: " mm",
      moved: (mm) => say(`near ${mm}`),
    });
    const nothing = button("Nothing", () => say("near none"), { "aria-pressed": "false" });
    follow(group, "near", (answer) => {
      nothing.setAttribute("aria-pressed", String(answer === "none"));
      made.set(answer === "none" ? farthest : Number(answer));
    });
    return [made.box, row(nothing)];
  },
};
