import { button, choice, field, follow, row, say } from "../kit.js";

const simLine = 100; // the GPIO line of the SIM's tray, high while a card is in

export const memoryCard = {
  title: "Memory card",
  needs: ["card"],
  make: (group) => {
    const size = field("MiB", { min: "0", max: "2097152" });
    const in_out = choice("Memory card", { in: "in", out: "out" }, (value) => say(`card ${value}`));
    follow(group, "card", (answer) => {
      const [state, mib] = answer.split(" ");
      in_out.set(state);
      if (document.activeElement !== size.input) size.input.value = mib ?? "";
    });
    return [
      in_out.box,
      row(
        size.box,
        button("Take one of this size", () => say(`card size ${size.input.value}`)),
      ),
    ];
  },
};

export const sim = {
  title: "SIM",
  needs: ["gpio"],
  make: (group) => {
    const in_out = choice("SIM", { 1: "in", 0: "out", free: "as it is" }, (value) =>
      say(`gpio ${simLine} ${value}`),
    );
    follow(group, `gpio ${simLine}`, (answer) => in_out.set(answer.split(" ")[0]));
    return [in_out.box];
  },
};
