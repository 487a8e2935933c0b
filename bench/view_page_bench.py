#!/usr/bin/env python3
"""The phone in a browser, the whole way, with Chromium at its end on the same machine: times from the program's
invalidate to the canvas, from a click to the touch, and what a quiet phone costs."""

import os
import pathlib
import select
import statistics
import sys
import threading
import time

BUILD = pathlib.Path(__file__).absolute().parent.parent
os.environ["HVT_BUILD"] = str(BUILD)
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests/page"))
sys.dont_write_bytecode = True

from desk import Desk, Watch  # noqa: E402
from webdriver import Browser  # noqa: E402

PICTURES = 60
CLICKS = 40
QUIET_S = 20
NS = 1e-9
PATTERNS = [48, 40, 1, 36, 14, 41]  # colour cube, ramps, chess of single pixels, grey: next to no pixel stays

LISTEN = """
window.shownAt = [];
document.getElementById("panel").addEventListener("shown",
  () => window.shownAt.push(performance.timeOrigin + performance.now()));
window.pressedAt = [];
document.getElementById("panel").addEventListener("pointerdown",
  () => window.pressedAt.push(performance.timeOrigin + performance.now()), true);
"""
TAKE = "const taken = window[arguments[0]]; window[arguments[0]] = []; return taken;"

failed = False


def figure(name, measured, limit, unit):
    global failed
    over = measured > limit
    failed = failed or over
    print(f"{name:<52} {measured:12.2f} {unit}   limit {limit:.2f}{'   OVER' if over else ''}", flush=True)


def percentile(values, share):
    return sorted(values)[min(len(values) - 1, int(len(values) * share))]


class Station:
    """The station's port, read so that nothing piles up."""

    def __init__(self, directory):
        self.fd = os.open(directory + "/ttyGS0", os.O_RDWR | os.O_NOCTTY)

    def take(self):
        """What the program has said by itself."""
        while select.select([self.fd], [], [], 0)[0]:
            os.read(self.fd, 65536)

    def send(self, line):
        self.take()
        os.write(self.fd, line.encode() + b"\r")
        got = b""
        while not got.endswith(b"\r\n"):
            got += os.read(self.fd, 65536)
        return got


def pictures(desk, browser, station, lines):
    """For each line the ms from the phone's first word of a change to the last picture that the line led to."""
    watch = Watch(desk.dir, "screen")
    took = []
    for line in lines:
        time.sleep(0.15)
        watch.next(0)
        browser.run(TAKE, "shownAt")
        told = []
        waiting = threading.Thread(target=lambda: told.append(watch.next()[1]))
        waiting.start()
        station.send(line)
        waiting.join()
        end = time.monotonic() + 5
        shown = []
        while time.monotonic() < end and not shown:
            time.sleep(0.1)
            shown = browser.run(TAKE, "shownAt")
        took.append(shown[-1] - told[0] * 1000 if shown else 5000)
    watch.close()
    return took


def clicks(desk, browser):
    left, top, width, height = browser.run(
        "const box = document.getElementById('panel').getBoundingClientRect();"
        "return [box.left, box.top, box.width, box.height];")
    watch = Watch(desk.dir, "word")
    took = []
    for i in range(CLICKS):
        browser.run(TAKE, "pressedAt")
        told = []

        def wait():
            while not told:
                lines, at = watch.next()
                if any(line.startswith("word touch ") and line.endswith(" down") for line in lines):
                    told.append(at)

        waiting = threading.Thread(target=wait)
        waiting.start()
        browser.pointer(("move", left + width * (0.3 + i / 100), top + height * 0.98), ("down",), ("wait", 50), ("up",))
        waiting.join()
        took.append(told[0] * 1000 - browser.run(TAKE, "pressedAt")[0])
    watch.close()
    return took


def processor_ns(pid):
    total = 0
    for task in os.listdir(f"/proc/{pid}/task"):
        with open(f"/proc/{pid}/task/{task}/schedstat") as file:
            total += int(file.read().split()[0])
    return total


def share(pids):
    """The percent of a core that processes take while nothing happens."""
    before = sum(map(processor_ns, pids))
    time.sleep(QUIET_S)
    return (sum(map(processor_ns, pids)) - before) * NS / QUIET_S * 100


def main():
    desk = Desk()
    try:
        station = Station(desk.dir)
        station.send("lcdl=1")
        time.sleep(3)
        alone = share([desk.pid()])
        with Browser() as browser:
            browser.open(desk.address)
            browser.until("return document.body.dataset.state === 'on';")
            time.sleep(2)
            together = share([desk.pid(), desk.view.pid])
            browser.run(LISTEN)
            full = pictures(desk, browser, station, [f"dpat={PATTERNS[i % len(PATTERNS)]}" for i in range(PICTURES)])
            button = pictures(desk, browser, station, [f"dbox=100,400,880,150,0,{i * 4},80,160" for i in range(PICTURES)])
            touched = clicks(desk, browser)
        figure("a full panel in the canvas, in the middle", statistics.median(full), 60, "ms")
        figure("a full panel in the canvas, 99th percentile", percentile(full, 0.99), 120, "ms")
        figure("a changed button in the canvas, in the middle", statistics.median(button), 30, "ms")
        figure("a click at the program, in the middle", statistics.median(touched), 15, "ms")
        figure("a quiet phone with a page, beyond it alone", together - alone, 0.3, "% of a core")
        print(f"  alone {alone:.3f} %, button 99th {percentile(button, 0.99):.1f} ms, click 99th {percentile(touched, 0.99):.1f} ms")
    finally:
        desk.close()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
