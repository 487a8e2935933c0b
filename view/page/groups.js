// The widgets in groups that fold. A group that is folded asks for nothing; a widget whose words the phone
// lacks isn't shown.

import { element } from "./dom.js";
import { groups } from "./widgets/all.js";
import { words } from "./words.js";

class Group extends EventTarget {
  constructor({ name, open = false, widgets }) {
    super();
    this.key = `group ${name}`;
    this.box = element(
      "details",
      { class: "group", ontoggle: () => this.toggled() },
      element("summary", {}, name),
    );
    this.widgets = widgets.map((widget) => ({
      ...widget,
      box: element(
        "section",
        { class: "widget", "aria-label": widget.title },
        element("h3", {}, widget.title),
        ...widget.make(this),
      ),
    }));
    this.box.append(element("div", { class: "widgets" }, ...this.widgets.map(({ box }) => box)));
    this.box.open = (localStorage.getItem(this.key) ?? String(open)) === "true";
  }

  get shown() {
    return this.box.open && !this.box.hidden;
  }

  toggled() {
    localStorage.setItem(this.key, String(this.box.open));
    this.dispatchEvent(new Event(this.shown ? "open" : "close"));
  }

  look() {
    for (const { box, needs } of this.widgets) box.hidden = !needs.every((word) => words.has(word));
    this.box.hidden = this.widgets.every(({ box }) => box.hidden);
    if (this.shown) this.dispatchEvent(new Event("open"));
  }
}

export function makeGroups(place) {
  const made = groups.map((group) => new Group(group));
  place.append(element("div", { class: "columns" }, ...made.map(({ box }) => box)));
  words.addEventListener("read", () => made.forEach((group) => group.look()));
}
