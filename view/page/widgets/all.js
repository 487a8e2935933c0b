// All widgets, by the group that they are shown in. A device that comes later adds a file here and its line.

import * as air from "./air.js";
import * as camera from "./camera.js";
import * as cards from "./cards.js";
import * as contactless from "./contactless.js";
import * as faults from "./faults.js";
import * as lights from "./lights.js";
import * as monitor from "./monitor.js";
import * as motion from "./motion.js";
import * as power from "./power.js";
import * as sound from "./sound.js";
import * as surroundings from "./surroundings.js";

export const groups = [
  { name: "Power", open: true, widgets: [power.cable, power.battery] },
  { name: "Cards", widgets: [cards.memoryCard, cards.sim] },
  { name: "Motion", widgets: [motion.pose, motion.turn, motion.magnet] },
  { name: "Surroundings", open: true, widgets: [surroundings.light, surroundings.near] },
  { name: "Sound", widgets: [sound.listen, sound.microphones, sound.jack] },
  { name: "Camera", widgets: [camera.main, camera.sub] },
  { name: "Antenna", widgets: [contactless.tags, contactless.secureElement] },
  { name: "On the air", widgets: [air.broadcast, air.tuner] },
  { name: "Monitor", widgets: [monitor.monitor] },
  { name: "Lights", widgets: [lights.brightness, lights.health] },
  { name: "Faults", widgets: [faults.faults] },
];
