"""The page in a browser: what is on it, what reaches the phone, what comes back."""

import os
import time
import unittest

from desk import Desk, Watch
from webdriver import Browser

ENTER, TAB, SPACE, LEFT, UP = "\ue007", "\ue004", " ", "\ue012", "\ue013"
MENU_KEY = ("key", "116", "tap")

COLOUR = """
const canvas = document.querySelector(arguments[2]);
const [r, g, b] = canvas.getContext("2d").getImageData(arguments[0], arguments[1], 1, 1).data;
return [r, g, b].map((part) => part.toString(16).padStart(2, "0")).join("").toUpperCase();
"""
BOX = """
const box = document.querySelector(arguments[0]).getBoundingClientRect();
return [box.left, box.top, box.width, box.height];
"""
TEXT = "return document.querySelector(arguments[0])?.textContent ?? '';"
IS_ON = "return document.body.dataset.state === 'on' && document.querySelectorAll('.group:not([hidden])').length > 5;"
OPEN_ALL = "for (const group of document.querySelectorAll('.group')) group.open = true;"
# What a person who can't see it would be read.
NAMELESS = """
return [...document.querySelectorAll("button, input, select, canvas, [role=tab]")].filter((one) => {
  const named = one.getAttribute("aria-label") || one.labels?.[0]?.textContent || one.textContent;
  return !named?.trim();
}).map((one) => one.outerHTML);
"""


class Page(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desk = Desk()
        cls.addClassCleanup(cls.desk.close)
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.__exit__)

    def setUp(self):
        self.browser.size(1280, 720)
        self.browser.open(self.desk.address)
        self.browser.until(IS_ON, what="the phone is on")

    def until_text(self, css, wanted):
        self.browser.until("return document.querySelector(arguments[0])?.textContent.includes(arguments[1]);", css, wanted,
                           what=f"{css} tells {wanted!r}")

    def until_same(self, points, css="#panel", slot="0"):
        """The canvas has what the panel, or the monitor in slot 2, shows."""
        end = time.monotonic() + 10
        while True:
            wanted = [self.desk.ask("pixel", str(x), str(y), slot) for x, y in points]
            shown = [self.browser.run(COLOUR, x, y, css) for x, y in points]
            if wanted == shown:
                return wanted
            self.assertLess(time.monotonic(), end, f"the panel has {wanted}, the page {shown}")
            time.sleep(0.05)

    def menu(self):
        """The menu is open: points of the panel with it."""
        points = [(x, y) for x in range(20, 1080, 173) for y in range(30, 1920, 211)]
        if len({self.desk.ask("pixel", str(x), str(y)) for x, y in points}) == 1:
            self.desk.ask(*MENU_KEY)
            self.desk.ask("idle")
        colours = self.until_same(points)
        self.assertGreater(len(set(colours)), 1, "the panel shows something")
        return points

    def test_the_panel_is_shown_pixel_by_pixel_and_follows(self):
        points = self.menu()
        self.desk.ask("touch", "250", "190", "tap")
        self.until_same(points)

    def test_what_a_camera_sees_lies_over_the_panel(self):
        self.assertIn("CAMV:,OK", self.desk.station("lcdl=1", "caml=1", "camv=1,0"))
        points = [(x, y) for x in range(40, 1080, 97) for y in range(700, 1300, 67)]
        colours = set(self.until_same(points))
        self.assertIn("000000", colours, "the panel beside the picture")
        self.assertGreater(len(colours), 4, "the chart")
        self.desk.station("camv=0", "caml=0")

    def test_the_monitor_is_a_second_screen(self):
        self.browser.run(OPEN_ALL)
        answers = self.desk.station("hdmi=1", "hdmi=2,1,2")
        points = [(x, y) for x in range(30, 1920, 311) for y in range(20, 1080, 173)]
        colours = set(self.until_same(points, ".monitor canvas", "2"))
        self.assertGreater(len(colours), 1, answers)

    def test_a_click_is_a_touch_and_a_drag_is_drawn(self):
        left, top, width, height = self.browser.run(BOX, "#panel")
        watch = Watch(self.desk.dir, "word")
        place = lambda x, y: ("move", left + (x + 0.5) * width / 1080, top + (y + 0.5) * height / 1920)
        self.browser.pointer(place(540, 960), ("down",), ("wait", 60), place(700, 1200), ("wait", 60), ("up",))
        said = []
        while not said or not said[-1].endswith(" up"):
            said += watch.next()[0]
        watch.close()
        touches = [line.split() for line in said if line.startswith("word touch ")]
        self.assertEqual([one[4] for one in touches], ["down"] + ["move"] * (len(touches) - 2) + ["up"])
        for one, (x, y) in ((touches[0], (540, 960)), (touches[-1], (700, 1200))):
            self.assertAlmostEqual(int(one[2]), x, delta=3)
            self.assertAlmostEqual(int(one[3]), y, delta=3)
        self.assertIn("move", [one[4] for one in touches])

    def test_the_keyboard_alone_presses_keys_and_touches(self):
        watch = Watch(self.desk.dir, "word")
        self.browser.run("document.querySelector('.key').focus();")
        self.browser.keys(ENTER)
        self.browser.run("document.getElementById('panel').focus();")
        self.browser.keys(UP, LEFT, ENTER)
        said = []
        while not said or not said[-1].startswith("word touch 500 920 up"):
            said += watch.next()[0]
        watch.close()
        said = [line for line in said if line.startswith(("word key", "word touch"))]
        self.assertEqual(said, ["word key 116 down", "word key 116 up", "word touch 500 920 down", "word touch 500 920 up"])

    def test_the_console_answers_completes_and_remembers(self):
        line = "[aria-label=\"A line for the station's port\"]"
        self.browser.type(line, "case?" + ENTER)
        self.until_text("#pane-console .scroll", "CASE:false,OK")
        self.browser.click("#pane-console button")
        self.until_text("#pane-console .scroll", "acct ")
        for _ in range(50):
            self.browser.run("document.querySelector(arguments[0]).value = '';", line)
            self.browser.type(line, "bat" + TAB)
            value = self.browser.run("return document.querySelector(arguments[0]).value;", line)
            if value != "bat":
                break
            time.sleep(0.1)
        self.assertEqual(value, "batc")
        self.browser.run("document.querySelector(arguments[0]).value = '';", line)
        self.browser.type(line, "\ue00c" + UP)
        self.assertEqual(self.browser.run("return document.querySelector(arguments[0]).value;", line), "case?")

    def test_every_word_is_reached_by_the_line_for_requests(self):
        self.browser.click("[aria-controls=pane-requests]")
        line = "[aria-label='A request to the control port']"
        words = [one.split()[0] for one in self.desk.ask("help").split("\n")]
        self.assertGreater(len(words), 40)
        for word in words:
            self.browser.run(
                "const line = document.querySelector(arguments[0]); line.value = arguments[1];"
                "line.dispatchEvent(new Event('input'));", line, word[:1])
            offered = self.browser.run("return [...document.querySelectorAll('#pane-requests li b')].map((b) => b.textContent);")
            self.assertIn(word, offered)
        self.browser.run("document.querySelector(arguments[0]).value = '';", line)
        self.browser.type(line, "unit 2499" + ENTER)
        self.until_text("#pane-requests .scroll", "unit 2499\n")
        self.browser.type(line, "nosuch" + ENTER)
        self.until_text("#pane-requests .scroll", "no word \"nosuch\"")

    def test_widgets_follow_what_another_client_says(self):
        self.browser.run(OPEN_ALL)
        for words, css, wanted in (
            (("charger", "wall"), "[aria-label=Charger] [data-value=wall][aria-pressed=true]", "wall"),
            (("light", "1000"), "[aria-label=Light] output", "1000 lux"),
            (("jack", "headset"), "[aria-label=Plugged] [data-value=headset][aria-pressed=true]", "headset"),
            (("gpio", "100", "0"), "[aria-label=SIM] [data-value='0'][aria-pressed=true]", "out"),
            (("scene", "2", "flat", "100"), "[aria-label='Before the sub camera']", "flat"),
            (("card", "out"), "[aria-label='Memory card'] [data-value=out][aria-pressed=true]", "out"),
        ):
            self.desk.ask(*words)
            self.until_text(css, wanted)

    def test_widgets_reach_the_phone(self):
        self.browser.run(OPEN_ALL)
        for css, words, wanted in (
            ("[aria-label=Charger] [data-value=usb]", ("charger",), "usb"),
            ("[aria-label='Sound'], [aria-label=Plugged] [data-value=none]", ("jack",), "none"),
            ("[aria-label='Cards before the antenna'] input[value=f]", ("tag",), "f"),
        ):
            self.browser.run("document.querySelector(arguments[0]).click();", css.split(", ")[-1])
            end = time.monotonic() + 5
            while self.desk.ask(*words).split()[0] != wanted and time.monotonic() < end:
                time.sleep(0.05)
            self.assertEqual(self.desk.ask(*words).split()[0], wanted)

    def test_the_page_says_that_the_phone_is_off_and_comes_back(self):
        points = self.menu()
        self.desk.off()
        self.until_text("#state", "off")
        self.assertFalse(self.browser.run("return document.getElementById('start').hidden;"))
        self.browser.click("#start")
        self.browser.until(IS_ON)
        self.until_same(points)

    def test_a_hidden_page_is_sent_nothing_and_catches_up(self):
        points = self.menu()
        self.browser.run("""
          window.shown = 0;
          document.getElementById("panel").addEventListener("shown", () => window.shown++);
          Object.defineProperty(document, "hidden", { value: true, configurable: true });
          document.dispatchEvent(new Event("visibilitychange"));""")
        time.sleep(0.5)
        before = self.browser.run("return window.shown;")
        self.desk.station("lcdl=1", "dclr=0,200,0,0", "dclr=0,0,200,0")
        time.sleep(0.5)
        self.assertEqual(self.browser.run("return window.shown;"), before)
        self.browser.run("delete document.hidden; document.dispatchEvent(new Event('visibilitychange'));")
        self.assertEqual(set(self.until_same(points)), {"00C800"})

    def test_the_page_says_that_its_server_has_gone_or_is_another(self):
        self.desk.end_server()
        self.until_text("#state", "server has gone")
        self.desk.serve(int(self.desk.address.split(":")[2].split("/")[0]))
        self.until_text("#state", "started anew")
        self.browser.open(self.desk.address)
        self.browser.until(IS_ON)

    def test_what_the_speaker_plays_is_heard_as_it_goes_on(self):
        self.browser.run("""
          window.pieces = [];
          const start = AudioBufferSourceNode.prototype.start;
          AudioBufferSourceNode.prototype.start = function (at) {
            window.pieces.push([at, this.buffer.duration, [...this.buffer.getChannelData(0)], performance.now() / 1000]);
            return start.call(this, at);
          };
          for (const group of document.querySelectorAll(".group")) group.open = true;""")
        self.desk.station("aloop=1,1,1")
        self.until_text("[aria-label='What is heard']", "1000 Hz")
        hear = "[...document.querySelectorAll('button')].find((one) => one.textContent === 'Hear it').click();"
        self.browser.run(hear)
        self.browser.until("return window.pieces.length > 8;")
        self.browser.run(hear)
        self.desk.station("aloop=0")
        pieces = self.browser.run("return window.pieces;")
        peak = max(abs(sample) for _, _, piece, _ in pieces for sample in piece)
        gaps = 0
        for (at, lasts, piece, _), (following, _, next_piece, _) in zip(pieces, pieces[1:]):
            self.assertGreater(following, at + lasts - 0.001, "no two at once")
            gaps += following > at + lasts + 0.001
            # A tone of 1000 Hz at 48000 samples a second moves by at most 2 pi / 48 of its peak.
            if following < at + lasts + 0.001:
                self.assertLess(abs(next_piece[0] - piece[-1]), 0.2 * peak, "no click")
        self.assertLess(gaps, 4, "only a machine that is too busy makes gaps")
        self.assertLess(pieces[-1][0] - pieces[0][0], pieces[-1][3] - pieces[0][3] + 0.8, "it doesn't fall behind")

    def test_what_a_log_has_is_filtered_and_paused(self):
        self.browser.click("[aria-controls=pane-kernel]")
        self.until_text("#pane-kernel .scroll", "phone")
        self.browser.type("#pane-kernel input", "nothing like it")
        self.browser.until("return document.querySelector('#pane-kernel .scroll').textContent === '';")

    def test_a_window_of_1280_by_720_needs_no_scrolling(self):
        for css in ("#panel", ".key:last-child", "[aria-label=\"A line for the station's port\"]"):
            left, top, width, height = self.browser.run(BOX, css)
            self.assertGreater(width, 40, css)
            self.assertLessEqual(left + width, 1280, css)
            self.assertLessEqual(top + height, 720, css)
        self.assertEqual(self.browser.run("return [document.body.scrollWidth, document.body.scrollHeight];"), [1280, 720])
        for width, height in ((390, 844), (820, 1180)):
            self.browser.size(width, height)
            self.assertLessEqual(self.browser.run("return document.documentElement.scrollWidth;"), width)

    def test_all_controls_have_names_and_nothing_leaves_the_machine(self):
        self.browser.run(OPEN_ALL)
        self.assertEqual(self.browser.run(NAMELESS), [])
        own = self.desk.address
        loaded = self.browser.run("return performance.getEntriesByType('resource').map((one) => one.name);")
        self.assertGreater(len(loaded), 20)
        self.assertEqual([name for name in loaded if not name.startswith((own, own.replace("http", "ws")))], [])
        self.assertEqual(self.browser.run("return document.referrer + document.cookie;"), "")
        wrong = [one for one in self.browser.ask("POST", "/se/log", {"type": "browser"}) if one["level"] == "SEVERE"]
        self.assertEqual([one for one in wrong if "403" not in one["message"]], [])


if __name__ == "__main__":
    unittest.main()
