import { element } from "../dom.js";
import { button, choice, field, follow, output, row, say } from "../kit.js";
import { link } from "../link.js";

function before(number, title) {
  return {
    title,
    needs: ["scene"],
    make: (group) => {
      const told = output(`Before the ${title}`);
      const word = `scene ${number}`;
      const tilt = field("Tilt", { min: "-360", max: "360", value: "10" });
      const [y, u, v] = [
        ["Y", 118],
        ["U", 128],
        ["V", 128],
      ].map(([name, value]) => field(name, { min: "0", max: "255", value: String(value) }));
      const base = choice("Shows", { chart: "chart", flat: "flat", tilt: "tilted" }, (value) => {
        if (value === "chart") say(`${word} chart`);
        if (value === "flat") say(`${word} flat ${y.input.value} ${u.input.value} ${v.input.value}`);
        if (value === "tilt") say(`${word} tilt ${tilt.input.value}`);
      });
      const name = `scene${number}.png`;
      const file = element("input", {
        type: "file",
        accept: ".png,image/png",
        "aria-label": `A PNG picture for the ${title}`,
        onchange: async () => {
          const [one] = file.files;
          if (!one) return;
          link.keep(name, await one.arrayBuffer());
          say(`${word} ${name}`);
        },
      });
      follow(group, word, (answer) => {
        told.textContent = answer.replace(/\S*\//g, "");
        base.set(answer.split(" ", 1)[0]);
      });
      return [
        base.box,
        row(y.box, u.box, v.box, tilt.box),
        element("label", { class: "field" }, "Picture ", file),
        row(
          told,
          button("Chart again", () => say(`${word} chart`)),
        ),
      ];
    },
  };
}

export const main = before(1, "main camera");
export const sub = before(2, "sub camera");
