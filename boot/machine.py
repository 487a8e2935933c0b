"""The machine of "./hvt boot": a Linux kernel in the emulator's arm board, with the program on it, and what the desk
has to do with it. Everything that is there while it runs lies in one folder:

    ttyGS0      the station's line, a pseudo terminal; its far end inside is that of a real USB gadget
    kmsg        what the kernel and the program's start-up say
    card        the card, an image of a FAT file system
"""

import fcntl
import json
import os
import pty
import select
import shutil
import socket
import subprocess
import threading
import time
import tty

PANEL = (720, 1280)
CARD_KIB = 16384
START_SECONDS = 180  # a slow desk under load
GREETING = b"TP,OK\r\n"

# Codes of input events, as the phone's keys have them, and the emulator's names of them.
KEYS = {1: "esc", 28: "ret", 102: "home", 103: "up", 105: "left", 106: "right", 108: "down", 114: "volumedown",
        115: "volumeup", 116: "power", 139: "menu", 158: "ac_back"}


class Failed(Exception):
    """What can't be done, and why."""


class Machine:
    """kernel, image: paths. With `counting` each instruction takes a nanosecond of the machine's time, which then has
    nothing to do with the desk's."""

    def __init__(self, folder, kernel, image, counting=False):
        self.folder = os.path.abspath(folder)
        self.kernel = os.path.abspath(kernel)
        self.image = os.path.abspath(image)
        self.counting = counting
        self.process = None
        self.links = []  # to the emulator
        self.events = []
        self.greetings = 0  # how often the program has greeted on the station's line
        self.last_byte = 0.0  # when the line's last byte went by, either way, by time.monotonic()
        self._desk_lock = threading.Lock()
        self._qmp_lock = threading.Lock()

    def path(self, name):
        return os.path.join(self.folder, name)

    # Start and end.

    def start(self):
        """Returns when the program has been started."""
        os.makedirs(self.folder, exist_ok=True)
        for name in ("station", "desk", "qmp", "ttyGS0", "card", "kmsg"):
            if os.path.lexists(self.path(name)):
                os.unlink(self.path(name))
        subprocess.run([shutil.which("mkfs.vfat", path="/sbin:/usr/sbin"), "-C", "card", str(CARD_KIB)],
                       cwd=self.folder, check=True, stdout=subprocess.DEVNULL)
        # in a session of its own: Ctrl-C at a prompt is none for the machine
        self.process = subprocess.Popen(self._command(), cwd=self.folder, stdin=subprocess.DEVNULL,
                                        start_new_session=True)
        try:
            self._qmp = self._connect("qmp").makefile("rw", encoding="utf-8", newline="\n")
            self._qmp.readline()
            self.qmp("qmp_capabilities")
            self._desk = self._connect("desk")
            self._lay_line(self._connect("station"))
            self._await_desk("ready\n", START_SECONDS)
        except BaseException:
            self.stop()
            raise

    def _command(self):
        command = ["qemu-system-arm", "-M", "virt,highmem=off", "-cpu", "cortex-a15", "-m", "256", "-nic", "none",
                   "-display", "none", "-no-reboot", "-nodefaults",
                   "-kernel", self.kernel, "-initrd", self.image, "-append", "quiet panic=-1",
                   "-global", "virtio-mmio.force-legacy=false",
                   "-device", "virtio-gpu-device,xres=%d,yres=%d" % PANEL,
                   "-device", "virtio-keyboard-device",
                   "-drive", "file=card,format=raw,if=none,id=card", "-device", "virtio-blk-device,drive=card",
                   "-device", "virtio-serial-device", "-serial", "file:kmsg",
                   "-qmp", "unix:qmp,server=on,wait=off"]
        for number, name in enumerate(("station", "desk"), 1):
            command += ["-chardev", "socket,id=%s,path=%s,server=on,wait=off" % (name, name),
                        "-device", "virtserialport,chardev=%s,nr=%d" % (name, number)]
        if self.counting:
            command += ["-icount", "shift=0,sleep=off"]
        return command

    def _connect(self, name):
        """A socket's path may be longer than it is allowed to be; the folder's descriptor is short."""
        folder = os.open(self.folder, os.O_PATH | os.O_DIRECTORY)
        try:
            end = time.monotonic() + 20
            while True:
                if self.process.poll() is not None:
                    raise Failed("the emulator ended with %d" % self.process.returncode)
                link = socket.socket(socket.AF_UNIX)
                try:
                    link.connect("/proc/self/fd/%d/%s" % (folder, name))
                    self.links.append(link)
                    return link
                except OSError:
                    link.close()
                    if time.monotonic() > end:
                        raise Failed("the emulator doesn't open %s" % name) from None
                    time.sleep(0.05)
        finally:
            os.close(folder)

    def _lay_line(self, link):
        """The station's pseudo terminal, and what carries its bytes."""
        master, slave = pty.openpty()
        tty.setraw(slave)
        os.symlink(os.ttyname(slave), self.path("ttyGS0"))
        self._line = (master, slave)

        def carry():
            said = b""
            try:
                while True:
                    for end in select.select([master, link], [], [])[0]:
                        part = os.read(master, 4096) if end is master else link.recv(4096)
                        if not part:
                            return
                        self.last_byte = time.monotonic()
                        if end is master:
                            link.sendall(part)
                            continue
                        said = (said + part)[-len(GREETING) - len(part) + 1:]
                        self.greetings += said.count(GREETING)
                        while part:
                            part = part[os.write(master, part):]
            except OSError:
                pass  # the machine is off

        threading.Thread(target=carry, daemon=True).start()

    def is_on(self):
        return self.process is not None and self.process.poll() is None

    def wait_off(self, seconds):
        """Waits until the machine has gone off by itself; the reason in the emulator's words ("guest-shutdown",
        "guest-reset")."""
        try:
            self.process.wait(seconds)
        except subprocess.TimeoutExpired:
            raise Failed("the machine is still on after %d s" % seconds) from None
        for line in self._qmp:
            self._keep_event(json.loads(line))
        return next((e["data"]["reason"] for e in self.events if e.get("event") == "SHUTDOWN"), "")

    def stop(self):
        if self.process is not None and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        for link in self.links:
            link.close()
        self.links = []
        if os.path.lexists(self.path("ttyGS0")):
            os.unlink(self.path("ttyGS0"))

    # The emulator.

    def _keep_event(self, message):
        if "event" in message:
            self.events.append(message)

    def qmp(self, command, **arguments):
        with self._qmp_lock:
            self._qmp.write(json.dumps({"execute": command, "arguments": arguments}) + "\n")
            self._qmp.flush()
            for line in self._qmp:
                message = json.loads(line)
                if "error" in message:
                    raise Failed(message["error"]["desc"])
                if "return" in message:
                    return message["return"]
                self._keep_event(message)
        raise Failed("the machine is off")

    def key(self, code, value):
        """A key of the emulator's keyboard goes down (1) or up (0). `code` as in input events."""
        if code not in KEYS:
            raise Failed("the machine's keyboard has no key %d; it has %s" % (code, ", ".join(map(str, KEYS))))
        self.qmp("input-send-event", events=[
            {"type": "key", "data": {"down": bool(value), "key": {"type": "qcode", "data": KEYS[code]}}}])

    def screen(self, path):
        """What the panel shows, as PNG."""
        self.qmp("screendump", filename=os.path.abspath(path), format="png")

    # The shell inside.

    def _await_desk(self, mark, seconds):
        """What comes up to the mark, and behind it to the line's end."""
        end = time.monotonic() + seconds
        got = ""
        while mark not in got or not got.endswith("\n"):
            left = end - time.monotonic()
            if left <= 0 or not select.select([self._desk], [], [], left)[0]:
                raise Failed("no answer from inside the machine after %d s, only %r" % (seconds, got))
            part = self._desk.recv(65536).decode("utf-8", "replace")
            if not part:
                raise Failed("the machine is off")
            got += part
        return got

    def shell(self, line, seconds=30):
        """Runs a shell line as root inside; its output. A line that fails raises with what it printed."""
        with self._desk_lock:
            self._desk.sendall((line + "\n").encode())
            text, _, status = self._await_desk("\n--desk-- ", seconds).rpartition("\n--desk-- ")
        if status.strip() != "0":
            raise Failed("%r ended with %s: %s" % (line, status.strip(), text))
        return text

    def cable(self, plugged):
        self.shell("cable in" if plugged else "cable out")

    def touch(self, words):
        """A finger: "down X Y", "move X Y" or "up"."""
        self.shell("echo %s > /run/finger" % words)

    def await_greeting(self, since, seconds=60):
        """Waits until the program has greeted more often than `since`."""
        end = time.monotonic() + seconds
        while self.greetings <= since:
            if time.monotonic() > end:
                raise Failed("the program didn't greet within %d s" % seconds)
            time.sleep(0.01)

    def fresh(self):
        """The program is started anew, with the files of a new phone; returns when it has greeted."""
        since = self.greetings
        self.shell("fresh")
        self.await_greeting(since)

    def program(self, file):
        """A file of the program's in /proc."""
        return self.shell("cat /proc/$(cat /run/program)/" + file)


def take_folder(folder):
    """The folder is this process's as long as it lives; None when another has it."""
    os.makedirs(folder, exist_ok=True)
    lock = open(os.path.join(folder, "hvt.pid"), "a+")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except OSError:
        return None
    lock.truncate(0)
    lock.write("%d\n" % os.getpid())
    lock.flush()
    return lock
