import { Display } from "../display.js";
import { element } from "../dom.js";
import { wordChoice } from "../kit.js";

export const monitor = {
  title: "Monitor on the HDMI cable",
  needs: ["sink", "screen"],
  make: (group) => {
    const display = new Display(1, "screen2", "What the monitor shows");
    const box = element("div", { class: "monitor" }, display.canvas);
    group.addEventListener("open", () => display.open());
    group.addEventListener("close", () => display.close());
    return [wordChoice(group, "Monitor", "sink", { in: "plugged", out: "pulled" }), box];
  },
};
