import { element } from "../dom.js";
import { button, field, follow, output, row, say, wordChoice } from "../kit.js";

export const broadcast = {
  title: "On the air",
  needs: ["broadcast"],
  make: (group) => {
    const list = element("ul", { class: "list" });
    const channel = field("Channel or MHz", { step: "any", value: "20" });
    const level = field("Level, dBm", { step: "any", value: "-61.5" });
    follow(group, "broadcast", (answer) => {
      const lines = answer.split("\n").filter((line) => line !== "");
      list.replaceChildren(
        ...lines.map((line) => {
          const [name] = line.split(" ", 1);
          const [, strength] = /level (\S+)/.exec(line) ?? [];
          return element(
            "li",
            { title: line },
            element("span", {}, `${name}: ${strength ?? "?"} dBm`),
            button("Off", () => say(`broadcast ${name} off`), { "aria-label": `Take ${name} off the air` }),
          );
        }),
      );
    });
    return [
      list,
      row(
        channel.box,
        level.box,
        button("Put on", () => say(`broadcast ${channel.input.value} level ${level.input.value}`)),
        button("All off", () => say("broadcast off")),
      ),
    ];
  },
};

export const tuner = {
  title: "Demodulator and stream",
  needs: ["tuner", "stream"],
  make: (group) => {
    const told = output("What the stream does next");
    follow(group, "stream", (answer) => (told.textContent = `next: ${answer}`));
    const next = (kind) =>
      button(kind, () => say(`stream ${kind} 5`), { title: `The next 5 packets: ${kind}` });
    return [
      wordChoice(group, "Demodulator", "tuner", {
        good: "good",
        noload: "no load",
        badrom: "bad ROM",
        nocal: "no calibration",
        nosettle: "doesn't settle",
      }),
      row(told, ...["error", "nosync", "gap", "filler"].map(next)),
    ];
  },
};
