// Small help with elements: the page has no framework.

// element("button", {class: "x", onclick: f, "aria-label": "y"}, "text", child)
export function element(name, attributes = {}, ...children) {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (key.startsWith("on")) made.addEventListener(key.slice(2), value);
    else if (key in made && typeof value !== "string") made[key] = value;
    else if (value !== false && value !== undefined) made.setAttribute(key, value === true ? "" : value);
  }
  made.append(...children);
  return made;
}

// Something that couldn't be done, told for a while.
export function note(text) {
  const one = element("p", {}, text);
  document.getElementById("notes").append(one);
  setTimeout(() => one.remove(), 8000);
}

// Runs `f` at most once in `ms`, the last time with the newest arguments.
export function throttled(ms, f) {
  let timer = null;
  let newest = null;
  const run = () => {
    timer = null;
    if (newest === null) return;
    const now = newest;
    newest = null;
    f(...now);
    timer = setTimeout(run, ms);
  };
  return (...args) => {
    newest = args;
    if (timer === null) run();
  };
}
