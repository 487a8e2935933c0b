import { button, field, follow, output, row, say, slider, wordChoice } from "../kit.js";

const batteryMs = 2000; // a battery drains without anybody's word: it is asked while it is looked at

export const cable = {
  title: "Cable and charger",
  needs: ["usb", "charger"],
  make: (group) => [
    wordChoice(group, "Station's cable", "usb", { on: "in", off: "out" }),
    wordChoice(group, "Charger", "charger", { none: "none", usb: "USB", wall: "wall", simple: "simple" }),
  ],
};

export const battery = {
  title: "Battery",
  needs: ["battery"],
  make: (group) => {
    const told = output("Battery now");
    const charge = slider("Charge", {
      min: 0,
      max: 100,
      unit: " %",
      moved: (percent) => say(`battery ${percent}%`),
    });
    const mv = field("mV", { min: "0", max: "5000", value: "3800" });
    const ma = field("mA", { min: "-5000", max: "5000", value: "-200" });
    const read = follow(group, "battery", (answer) => {
      const [voltage, current, percent] = answer.split(" ");
      told.textContent = answer === "" ? "" : `${voltage} mV, ${current} mA, ${percent}`;
      charge.set(parseInt(percent, 10) || 0);
    });
    setInterval(() => {
      if (group.shown && !document.hidden) read();
    }, batteryMs);
    return [
      told,
      charge.box,
      row(
        mv.box,
        ma.box,
        button("Pin", () => say(`battery ${mv.input.value} ${ma.input.value}`), {
          title: "Voltage and current stay so",
        }),
        button("Model", () => say("battery auto"), { title: "Gives all back to the model of the cell" }),
      ),
    ];
  },
};
