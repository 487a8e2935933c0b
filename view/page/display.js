// A canvas that shows one of the phone's displays: unpacks the tiles that the server sends (view/tiles.h) and
// says when a picture is whole.

import { link } from "./link.js";

const headBytes = 16;
const runsFlag = 0x80000000;

export class Display {
  // `index` counts the displays as messages do, `wish` is what the server calls it.
  constructor(index, wish, label) {
    this.index = index;
    this.wish = wish;
    this.canvas = document.createElement("canvas");
    this.canvas.width = 1080;
    this.canvas.height = 1920;
    this.canvas.setAttribute("role", "img");
    this.canvas.setAttribute("aria-label", label);
    this.context = this.canvas.getContext("2d", { alpha: false, willReadFrequently: true });
    this.clear();
    link.addEventListener("picture", (event) => this.take(event.detail.data));
  }

  open() {
    this.done ??= link.want(this.wish);
  }

  close() {
    this.done?.();
    this.done = null;
  }

  clear() {
    this.image = this.context.createImageData(this.canvas.width, this.canvas.height);
    this.pixels = new Uint32Array(this.image.data.buffer);
    this.noneDirty();
  }

  noneDirty() {
    this.dirty = { left: Infinity, top: Infinity, right: 0, bottom: 0 };
  }

  take(data) {
    const head = new DataView(data, 0, headBytes);
    if (head.getUint8(0) !== this.index) return;
    const width = head.getUint16(4, true);
    const height = head.getUint16(6, true);
    if (width !== this.canvas.width || height !== this.canvas.height) {
      this.canvas.width = width;
      this.canvas.height = height;
      this.clear();
      this.canvas.dispatchEvent(new Event("resized"));
    }
    this.unpack(data, head.getUint16(2, true), head.getUint16(8, true), head.getUint16(10, true));
    if (head.getUint8(1) === 0) return;
    this.paint();
    link.send(`seen ${this.index}`);
    this.canvas.dispatchEvent(new Event("shown"));
  }

  unpack(data, count, tileWidth, tileHeight) {
    const words = new Uint32Array(data);
    const { width, height } = this.canvas;
    let at = headBytes / 4;
    for (let i = 0; i < count; i++) {
      const left = (words[at] & 0xffff) * tileWidth;
      const top = (words[at] >>> 16) * tileHeight;
      const length = (words[at + 1] & ~runsFlag) >>> 2;
      const isRuns = words[at + 1] >= runsFlag;
      at += 2;
      const right = Math.min(left + tileWidth, width);
      const bottom = Math.min(top + tileHeight, height);
      const tile = words.subarray(at, at + length);
      if (isRuns) this.putRuns(tile, left, top, right);
      else this.putPixels(tile, left, top, right, bottom);
      at += length;
      this.dirty.left = Math.min(this.dirty.left, left);
      this.dirty.top = Math.min(this.dirty.top, top);
      this.dirty.right = Math.max(this.dirty.right, right);
      this.dirty.bottom = Math.max(this.dirty.bottom, bottom);
    }
  }

  putPixels(tile, left, top, right, bottom) {
    const across = right - left;
    for (let y = top, from = 0; y < bottom; y++, from += across)
      this.pixels.set(tile.subarray(from, from + across), y * this.canvas.width + left);
  }

  putRuns(tile, left, top, right) {
    const { width } = this.canvas;
    let x = left;
    let row = top * width;
    for (let i = 0; i < tile.length; i += 2) {
      let count = tile[i];
      while (count > 0) {
        const part = Math.min(count, right - x);
        this.pixels.fill(tile[i + 1], row + x, row + x + part);
        count -= part;
        x += part;
        if (x < right) continue;
        x = left;
        row += width;
      }
    }
  }

  paint() {
    const { left, top, right, bottom } = this.dirty;
    if (right > left) this.context.putImageData(this.image, 0, 0, left, top, right - left, bottom - top);
    this.noneDirty();
  }
}
