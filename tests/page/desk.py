"""A phone of a test's own, its server for browsers, and its two ports."""

import os
import re
import shutil
import signal
import socket
import subprocess
import tempfile
import time

BUILD = os.environ.get("HVT_BUILD", "")


class Desk:
    def __init__(self, conf=""):
        self.dir = tempfile.mkdtemp(prefix="hvt-page-")
        with open(self.dir + "/phone.conf", "w") as file:
            file.write(conf)
        self.serve(18770)

    def serve(self, port):
        """Starts the server, and the phone unless it runs."""
        self.view = subprocess.Popen(
            [BUILD + "/view/hvt-view", "--no-browser", "--port", str(port), self.dir], stdout=subprocess.PIPE, text=True
        )
        self.address = re.search(r"http://\S+", self.view.stdout.readline()).group()

    def end_server(self):
        self.view.terminate()
        self.view.wait()
        self.view.stdout.close()

    def close(self):
        self.end_server()
        self.off()
        shutil.rmtree(self.dir, ignore_errors=True)

    def pid(self):
        with open(self.dir + "/hvt.pid") as file:
            return int(file.read())

    def off(self):
        try:
            os.kill(self.pid(), signal.SIGTERM)
            while os.path.exists(self.dir + "/control"):
                time.sleep(0.02)
        except (OSError, ValueError):
            pass

    def on(self):
        subprocess.run([BUILD + "/phone/hvt-virtual", "--background", self.dir], check=True)

    def ask(self, *words):
        """One request to the control port, as ./hvt phone does it."""
        made = subprocess.run([BUILD + "/phone/hvt-ask", self.dir, *words], capture_output=True, text=True, timeout=60)
        if made.returncode != 0:
            raise AssertionError(f"{words}: {made.stderr}")
        return made.stdout.rstrip("\n")

    def station(self, *lines):
        """Lines of a station, as ./hvt run takes them; what the program answers."""
        made = subprocess.run(
            [BUILD + "/phone/hvt-station", self.dir],
            input="".join(line + "\n" for line in lines),
            capture_output=True,
            text=True,
            timeout=120,
        )
        return made.stdout


class Watch:
    """A connection to the control port that waits for changes: the word `watch`."""

    def __init__(self, directory, *kinds):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(directory + "/control")
        self.kinds = " ".join(kinds)
        self.next(0)

    def next(self, ms=10000):
        """The next changes and when they were told, in seconds of the wall clock."""
        self.socket.sendall(f"watch {ms} {self.kinds}\n".encode())
        got = b""
        while not (got == b"ok\n" or got.endswith(b"\nok\n")):
            part = self.socket.recv(65536)
            if not part:
                raise AssertionError("the phone went off")
            got += part
        return got.decode().split("\n")[:-2], time.time()

    def close(self):
        self.socket.close()
