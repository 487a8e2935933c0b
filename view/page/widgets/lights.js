import { element } from "../dom.js";
import { choice, say } from "../kit.js";
import { link } from "../link.js";

export const brightness = {
  title: "LEDs, backlights and motor",
  needs: ["led"],
  make: () => {
    const list = element("ul", {
      class: "list",
      "aria-label": "Brightness of each lamp, voltage of the motor",
    });
    const rows = new Map();
    link.addEventListener("lamp", ({ detail: { name, value } }) => {
      if (!rows.has(name)) {
        const bar = element("meter", { min: 0, max: name === "vib" ? 3600 : 255, "aria-label": name });
        const told = element("output", {});
        rows.set(name, { bar, told });
        list.append(element("li", {}, element("span", {}, name === "vib" ? "motor" : name), bar, told));
      }
      const { bar, told } = rows.get(name);
      bar.value = value;
      told.textContent = name === "vib" ? `${value} mV` : String(value);
    });
    return [list];
  },
};

export const health = {
  title: "LEDs of the power chip",
  needs: ["led"],
  make: () =>
    [1, 2, 3].map((number) => {
      const made = choice(`LED ${number}`, { good: "good", short: "short", open: "open" }, async (value) => {
        if ((await say(`led ${number} ${value}`)) !== null) made.set(value);
      });
      link.addEventListener("word", ({ detail: { text } }) => {
        const [word, which, value] = text.split(" ");
        if (word === "led" && which === String(number)) made.set(value);
      });
      made.set("good");
      return made.box;
    }),
};
