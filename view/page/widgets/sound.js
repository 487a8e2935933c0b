import { element, note } from "../dom.js";
import { button, choice, field, follow, output, row, say, wordChoice } from "../kit.js";
import { link } from "../link.js";

const pieceMs = 1000;
const everyMs = 400; // pieces overlap, and are laid together where they are the same
const aheadS = 0.6; // how late a piece may come
const matchSamples = 400;
const searchSamples = 4800;
const headBytes = 44;
const mineName = `hear-${Math.random().toString(36).slice(2, 10)}.wav`;

function samplesOf(wav) {
  const view = new DataView(wav);
  const raw = new Int16Array(wav, headBytes, (wav.byteLength - headBytes) >> 1);
  return { rate: view.getUint32(24, true), samples: Float32Array.from(raw, (sample) => sample / 32768) };
}

// Where in `samples` the piece before goes on: behind the place that is most like its end, looked for round the
// one where it should be by the time that has passed. A tone has many that are alike; the nearest is meant.
function joint(tail, samples, expected) {
  let best = expected;
  let least = Infinity;
  for (let away = 0; away < searchSamples && least > 0; away++) {
    for (const at of [expected - away, expected + away]) {
      if (at < tail.length || at > samples.length) continue;
      let differs = 0;
      for (let i = 0; i < tail.length && differs < least; i += 4)
        differs += Math.abs(samples[at - tail.length + i] - tail[i]);
      if (differs < least) [least, best] = [differs, at];
    }
  }
  return Math.max(0, Math.min(samples.length, best));
}

class Ear {
  start(output) {
    this.output = output;
    this.context = new AudioContext();
    this.ends = this.context.currentTime + aheadS;
    this.tail = null;
    this.busy = false; // a piece is on its way
    this.askedAt = performance.now();
    this.timer = setInterval(() => this.next(), everyMs);
  }

  stop() {
    clearInterval(this.timer);
    this.context?.close();
    this.context = null;
  }

  async next() {
    if (this.busy || link.state !== "on" || document.hidden) return;
    this.busy = true;
    try {
      await link.ask(`listen ${this.output} ${mineName} ${pieceMs}`);
      const passedMs = performance.now() - this.askedAt;
      this.askedAt = performance.now();
      this.play(passedMs, samplesOf(await (await fetch(`files/${mineName}`)).arrayBuffer()));
    } catch (error) {
      note(error.message);
    }
    this.busy = false;
  }

  play(passedMs, { rate, samples }) {
    if (!this.context || samples.length <= matchSamples) return;
    const expected = samples.length - Math.round((passedMs * rate) / 1000);
    const from = this.tail && expected > 0 ? joint(this.tail, samples, expected) : 0;
    this.tail = samples.slice(-matchSamples);
    const fresh = samples.subarray(from);
    if (fresh.length === 0) return;
    const buffer = this.context.createBuffer(1, fresh.length, rate);
    buffer.copyToChannel(fresh, 0);
    const source = this.context.createBufferSource();
    source.buffer = buffer;
    source.connect(this.context.destination);
    this.ends = Math.max(this.ends, this.context.currentTime + 0.02);
    source.start(this.ends);
    this.ends += buffer.duration;
  }
}

export const listen = {
  title: "What it plays",
  needs: ["listen"],
  make: (group) => {
    const ear = new Ear();
    const told = output("What is heard");
    let heard = "speaker";
    let on = false;
    const read = follow(group, "sound 1", async () => {
      const answer = await link.ask(`listen ${heard}`);
      const [frequency, peak] = answer.split(" ");
      told.textContent = peak ? `${frequency} Hz, peak ${peak}` : answer;
    });
    const outputs = choice(
      "Output",
      { speaker: "speaker", ear: "ear", left: "left", right: "right" },
      (value) => {
        heard = value;
        outputs.set(value);
        ear.output = value;
        read();
      },
    );
    outputs.set(heard);
    const hear = button(
      "Hear it",
      () => {
        on = !on;
        hear.setAttribute("aria-pressed", String(on));
        if (on) ear.start(heard);
        else ear.stop();
      },
      { "aria-pressed": "false" },
    );
    let done = null;
    group.addEventListener("open", () => (done ??= link.want("log sound")));
    group.addEventListener("close", () => {
      done?.();
      done = null;
    });
    link.addEventListener("log", ({ detail: { name } }) => {
      if (name === "sound") read();
    });
    return [outputs.box, row(told, hear)];
  },
};

export const microphones = {
  title: "What the microphones get",
  needs: ["source"],
  make: (group) => {
    const told = element("pre", { class: "small" });
    const input = element(
      "select",
      { "aria-label": "Input" },
      ...["mic1", "mic2", "hsmic", "line", "fm", "stream"].map((name) => element("option", {}, name)),
    );
    const frequency = field("Hz", { min: "1", max: "24000", value: "400" });
    const peak = field("Peak", { min: "0", max: "32767", value: "1000" });
    const file = element("input", {
      type: "file",
      accept: ".wav,audio/wav",
      "aria-label": "A WAV file for the input",
      onchange: async () => {
        const [one] = file.files;
        if (!one) return;
        link.keep("source.wav", await one.arrayBuffer());
        say(`source ${input.value} source.wav`);
      },
    });
    follow(group, "source", (answer) => (told.textContent = answer));
    return [
      told,
      row(input, frequency.box, peak.box),
      row(
        button("Tone", () => say(`source ${input.value} ${frequency.input.value} ${peak.input.value}`)),
        button("Noise", () => say(`source ${input.value} noise ${peak.input.value}`)),
        button("Off", () => say(`source ${input.value} off`)),
      ),
      element("label", { class: "field" }, "File ", file),
    ];
  },
};

export const jack = {
  title: "Headset jack",
  needs: ["jack"],
  make: (group) => [
    wordChoice(group, "Plugged", "jack", {
      none: "nothing",
      headphones: "headphones",
      headset: "headset",
      loop: "loop",
    }),
  ],
};
