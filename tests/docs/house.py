"""A place where a page's examples can be run as they stand: a folder with ./hvt, the programs of a build in place of
its own, the client for Python, and DIR, which is the folder of the usual phone."""

import ctypes
import fcntl
import glob
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time

LIMIT = 60  # seconds that one command may take
PORT = "build/phone/ttyGS0"
COMPLAINT = re.compile(r"ERROR: \w+Sanitizer|runtime error:|WARNING: ThreadSanitizer")
PR_SET_CHILD_SUBREAPER = 36


class Failed(Exception):
    pass


class House:
    """Everything that is started in it ends with it."""

    def __init__(self, source, build):
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)  # the orphans of what is started here are ours
        self.top = tempfile.mkdtemp(prefix="hvt-page-")
        for name in ("hvt", "clients", "debian", "desk", "docs", "tests"):
            os.symlink(os.path.join(source, name), os.path.join(self.top, name))
        os.makedirs(self.path("build/phone"))
        os.symlink(build, self.path("build/release"))
        os.symlink("build/phone", self.path("DIR"))
        shutil.copy(os.path.join(source, "clients/python/hvt.py"), self.top)
        self._stand_in("cmake", "exit 0")  # the build is there, and so are the packages
        self._stand_in("dpkg-query", "echo 'install ok installed'")
        self.env = dict(os.environ, PATH=self.path("bin") + ":" + os.environ["PATH"], PYTHONDONTWRITEBYTECODE="1")
        for name in ("DISPLAY", "WAYLAND_DISPLAY"):
            self.env.pop(name, None)  # nothing is shown on the desk of who runs the tests

    def path(self, name):
        return os.path.join(self.top, name)

    def _stand_in(self, name, text):
        os.makedirs(self.path("bin"), exist_ok=True)
        with open(self.path("bin/" + name), "w") as file:
            file.write("#!/bin/sh\n%s\n" % text)
        os.chmod(self.path("bin/" + name), 0o755)

    def start(self, *argv):
        """Starts a command in a session of its own; what it says comes to the file `said`."""
        said = tempfile.TemporaryFile()
        done = subprocess.Popen(argv, cwd=self.top, env=self.env, stdin=subprocess.DEVNULL, stdout=said,
                                stderr=subprocess.STDOUT, start_new_session=True)
        done.said = said
        return done

    def end(self, done, seconds=LIMIT):
        """The status of a command and what it has said."""
        try:
            status = done.wait(seconds)
        except subprocess.TimeoutExpired:
            os.killpg(done.pid, signal.SIGKILL)
            done.wait()
            status = "none in time"
        done.said.seek(0)
        return status, done.said.read().decode("utf-8", "replace")

    def run(self, *argv):
        return self.end(self.start(*argv))

    def must(self, *argv):
        status, said = self.run(*argv)
        if status != 0:
            raise Failed("%s: status %s\n%s" % (" ".join(argv), status, said))
        return said

    # The phone of DIR.

    def is_up(self):
        try:
            with open(self.path("DIR/hvt.pid")) as file:
                fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except FileNotFoundError:
            return False
        except BlockingIOError:
            return True
        return False

    def up(self):
        if not self.is_up():
            self.must("build/release/phone/hvt-virtual", "--background", "DIR")

    def down(self):
        """Ends the phone. It must have known all that it was asked for, and no sanitizer may have complained."""
        if self.is_up():
            strange = self.ask("strange")
            if strange:
                raise Failed("the program has asked for what the phone doesn't know:\n" + strange)
            self.must("./hvt", "down")
        for output in glob.glob(self.path("build/*/log/output")):
            with open(output, errors="replace") as file:
                text = file.read()
            if COMPLAINT.search(text):
                raise Failed("a sanitizer complains:\n" + text)

    def fresh(self, conf=None):
        """A phone that nobody has had before."""
        self.down()
        shutil.rmtree(self.path("build/phone"))
        os.makedirs(self.path("build/phone"))
        if conf is not None:
            with open(self.path("DIR/phone.conf"), "w") as file:
                file.write(conf)
        self.up()

    def ask(self, *words):
        return self.must("build/release/phone/hvt-ask", "DIR", *words)

    def open_port(self):
        """The station's port, or None when there is none."""
        try:
            return os.open(self.path(PORT), os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK)
        except OSError:
            return None

    # The end.

    def _children(self):
        with open("/proc/self/task/%d/children" % os.getpid()) as file:
            return [int(pid) for pid in file.read().split()]

    def close(self):
        """Ends all that is left, phones before they are killed."""
        for how in (signal.SIGTERM, signal.SIGKILL):
            end = time.monotonic() + 10
            told = set()
            while self._children() and time.monotonic() < end:
                for pid in self._children():
                    if pid not in told:
                        os.kill(pid, how)
                        told.add(pid)
                    os.waitpid(pid, os.WNOHANG)
                time.sleep(0.02)
        shutil.rmtree(self.top)
