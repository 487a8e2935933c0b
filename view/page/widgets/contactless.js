import { element } from "../dom.js";
import { follow, row, say, wordChoice } from "../kit.js";

const kinds = { a: "type A", b: "type B", f: "type F", v: "type V" };

export const tags = {
  title: "Cards before the antenna",
  needs: ["tag"],
  make: (group) => {
    const boxes = Object.entries(kinds).map(([kind, name]) => {
      const box = element("input", { type: "checkbox", value: kind, onchange: () => send() });
      return { box, label: element("label", { class: "check" }, box, name) };
    });
    const send = () => {
      const laid = boxes.filter(({ box }) => box.checked).map(({ box }) => box.value);
      say(`tag ${laid.join(" ") || "none"}`);
    };
    follow(group, "tag", (answer) => {
      const laid = answer.split(/\s+/);
      for (const { box } of boxes) box.checked = laid.includes(box.value);
    });
    return [row(...boxes.map(({ label }) => label))];
  },
};

export const secureElement = {
  title: "Secure element",
  needs: ["swp"],
  make: (group) => [wordChoice(group, "Answers", "swp", { on: "yes", off: "no" })],
};
