import { makeLine } from "../complete.js";
import { element, note } from "../dom.js";
import { button, field, row, say } from "../kit.js";
import { link } from "../link.js";

export const faults = {
  title: "Make calls fail",
  needs: ["fail", "calls"],
  make: () => {
    let offered = [];
    const pattern = makeLine({
      label: "The call that fails, or a part of it",
      name: "faults",
      hint: "open /dev/i2c-5, i2c 5 18 0f, ...",
      candidates: (text) => offered.filter((one) => one.includes(text)).map((one) => ({ value: one })),
      enter: () => arm(),
      clear: false,
    });
    const count = field("Times", { min: "1", value: "1" });
    const always = element("input", { type: "checkbox" });
    const kind = element(
      "select",
      { "aria-label": "How it fails" },
      ...[
        ["eio", "error"],
        ["short", "short transfer"],
        ["eof", "end of file"],
        ["slow", "slow"],
      ].map(([value, name]) => element("option", { value }, name)),
    );
    const ms = field("ms", { min: "0", max: "3600000", value: "1000" });
    const armed = element("ul", { class: "list", "aria-label": "What was armed" });
    const arm = async () => {
      const what = pattern.input.value.trim();
      if (what === "") return note("Which call? Record some, or type a part of one.");
      const times = always.checked ? "all" : count.input.value;
      await say(`fail ${what} ${times} ${kind.value}${kind.value === "slow" ? ` ${ms.input.value}` : ""}`);
    };
    link.addEventListener("word", ({ detail: { text } }) => {
      if (text === "fail off") armed.replaceChildren();
      else if (text.startsWith("fail ")) armed.append(element("li", {}, text.slice(5)));
    });
    const record = button(
      "Record calls",
      async () => {
        const on = record.getAttribute("aria-pressed") !== "true";
        if (on && (await say("calls on")) === null) return;
        if (!on) {
          offered = [...new Set(((await say("calls")) ?? "").split("\n"))].filter((one) => one !== "").sort();
          say("calls off");
          note(`${offered.length} different calls are offered.`);
        }
        record.setAttribute("aria-pressed", String(on));
      },
      { "aria-pressed": "false", title: "What the program calls until this is pressed again is offered" },
    );
    const off = button("All off", async () => {
      const left = await say("fail off");
      if (left !== null) note(`${left} of them had not been reached.`);
    });
    return [
      row(pattern.box, record),
      row(count.box, element("label", { class: "check" }, always, "for good"), kind, ms.box),
      row(button("Arm", arm), off),
      armed,
    ];
  },
};
