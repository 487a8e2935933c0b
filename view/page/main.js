import { makeClock } from "./clock.js";
import { makeConsole, makeRequests } from "./console.js";
import { note } from "./dom.js";
import { makeGroups } from "./groups.js";
import { makeHandset } from "./handset.js";
import { link } from "./link.js";
import { makeLogs } from "./logs.js";
import { makeTabs } from "./tabs.js";
import { words } from "./words.js";

const states = {
  on: "The phone is on.",
  off: "The phone is off, or starts again.",
  gone: "The phone's folder has gone.",
  lost: "The page's server has gone; it is looked for.",
  stranger: "The page's server was started anew: open the address that it printed.",
};

function makeTheme() {
  const select = document.getElementById("theme");
  select.value = localStorage.getItem("theme") ?? "";
  const apply = () => {
    document.documentElement.dataset.theme = select.value;
    localStorage.setItem("theme", select.value);
  };
  select.addEventListener("change", apply);
  apply();
}

function makeState() {
  const told = document.getElementById("state");
  const start = document.getElementById("start");
  start.addEventListener("click", () => link.send("start"));
  link.addEventListener("state", ({ detail: { text } }) => {
    told.textContent = states[text];
    document.body.dataset.state = text;
    start.hidden = text !== "off" && text !== "gone";
    if (text === "on") words.read().catch((error) => note(error.message));
  });
  link.addEventListener("said", ({ detail: { text } }) => note(text));
}

const place = (id) => document.getElementById(id);
makeTheme();
makeState();
makeHandset(place("handset"));
makeGroups(place("groups"));
makeClock(place("clock"));
makeTabs(place("lower"), "Console, requests and logs", [makeConsole(), makeRequests(), ...makeLogs()]);
link.connect();
