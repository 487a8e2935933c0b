"""A browser to drive: Debian's Chromium without a window, over the WebDriver protocol."""

import base64
import json
import socket
import subprocess
import time
import urllib.error
import urllib.request

ELEMENT = "element-6066-11e4-a52e-4f735466cecf"


class Refused(Exception):
    """The browser couldn't do it."""


def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


class Browser:
    def __init__(self, width=1280, height=720, scheme="light"):
        self.port = free_port()
        self.driver = subprocess.Popen(
            ["chromedriver", f"--port={self.port}"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL
        )
        self.session = ""
        arguments = [
            "--headless=new",
            "--no-sandbox",
            "--disable-gpu",
            "--disable-dev-shm-usage",
            "--hide-scrollbars",
            "--autoplay-policy=no-user-gesture-required",
            f"--window-size={width},{height}",
        ]
        if scheme == "dark":
            arguments.append("--force-dark-mode")
        capabilities = {"browserName": "chrome", "goog:chromeOptions": {"args": arguments}}
        try:
            self._wait_for_driver()
            made = self._call("POST", "/session", {"capabilities": {"alwaysMatch": capabilities}})
            self.session = "/session/" + made["sessionId"]
            self.size(width, height)
        except BaseException:
            self.driver.kill()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self._call("DELETE", self.session)
        finally:
            self.driver.terminate()
            self.driver.wait()

    def _wait_for_driver(self):
        for _ in range(200):
            try:
                if self._call("GET", "/status")["ready"]:
                    return
            except (OSError, Refused):
                pass
            time.sleep(0.05)
        raise Refused("chromedriver doesn't start")

    def _call(self, method, path, body=None):
        data = None if method != "POST" else json.dumps(body or {}).encode()
        request = urllib.request.Request(f"http://127.0.0.1:{self.port}{path}", data, method=method)
        try:
            with urllib.request.urlopen(request, timeout=60) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise Refused(json.load(error)["value"]["message"]) from None

    def ask(self, method, path, body=None):
        return self._call(method, self.session + path, body)

    def size(self, width, height):
        """The size of what shows the page, without a browser's frame; also below a window's least width."""
        self.cdp("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)

    def cdp(self, command, **parameters):
        return self.ask("POST", "/goog/cdp/execute", {"cmd": command, "params": parameters})

    def open(self, address):
        self.ask("POST", "/url", {"url": address})

    def run(self, script, *arguments):
        return self.ask("POST", "/execute/sync", {"script": script, "args": list(arguments)})

    def run_async(self, script, *arguments):
        return self.ask("POST", "/execute/async", {"script": script, "args": list(arguments)})

    def find(self, css):
        return self.ask("POST", "/element", {"using": "css selector", "value": css})[ELEMENT]

    def click(self, css):
        self.ask("POST", f"/element/{self.find(css)}/click")

    def type(self, css, text):
        self.ask("POST", f"/element/{self.find(css)}/value", {"text": text})

    def pointer(self, *actions):
        """Steps of a mouse: ("move", x, y), ("down",), ("up",), ("wait", ms)."""
        steps = []
        for what, *values in actions:
            if what == "move":
                steps.append({"type": "pointerMove", "x": round(values[0]), "y": round(values[1]), "duration": 0})
            elif what == "wait":
                steps.append({"type": "pause", "duration": values[0]})
            else:
                steps.append({"type": "pointerDown" if what == "down" else "pointerUp", "button": 0})
        self.ask("POST", "/actions", {"actions": [{"type": "pointer", "id": "mouse", "actions": steps}]})

    def keys(self, *keys):
        steps = [{"type": kind, "value": key} for key in keys for kind in ("keyDown", "keyUp")]
        self.ask("POST", "/actions", {"actions": [{"type": "key", "id": "keys", "actions": steps}]})

    def screenshot(self, path):
        with open(path, "wb") as file:
            file.write(base64.b64decode(self.ask("GET", "/screenshot")))

    def until(self, script, *arguments, seconds=10, what=None):
        """Waits until a script gives something true; what it gives."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            value = self.run(script, *arguments)
            if value:
                return value
            time.sleep(0.03)
        raise AssertionError(f"not within {seconds} s: {what or script}")
