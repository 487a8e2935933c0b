// Panes behind tabs; the one that is shown is open, the others are closed and cost nothing.

import { element } from "./dom.js";

export function makeTabs(place, label, panes) {
  const bar = element("div", { role: "tablist", class: "tabs", "aria-label": label });
  let current = -1;

  const buttons = panes.map((pane, i) => {
    pane.box.id = `pane-${pane.name.toLowerCase()}`;
    pane.box.setAttribute("role", "tabpanel");
    pane.box.setAttribute("aria-label", pane.name);
    pane.box.hidden = true;
    return element(
      "button",
      {
        role: "tab",
        "aria-selected": "false",
        "aria-controls": pane.box.id,
        tabindex: "-1",
        onclick: () => show(i),
      },
      pane.name,
    );
  });

  function show(i) {
    if (current >= 0) {
      panes[current].close();
      panes[current].box.hidden = true;
      buttons[current].setAttribute("aria-selected", "false");
      buttons[current].tabIndex = -1;
    }
    current = i;
    panes[i].box.hidden = false;
    buttons[i].setAttribute("aria-selected", "true");
    buttons[i].tabIndex = 0;
    panes[i].open();
  }

  bar.addEventListener("keydown", (event) => {
    const step = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    if (!step) return;
    const next = (current + step + panes.length) % panes.length;
    show(next);
    buttons[next].focus();
  });
  bar.append(...buttons);
  place.append(bar, ...panes.map((pane) => pane.box));
  show(0);
}
