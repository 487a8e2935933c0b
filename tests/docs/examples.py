"""Does what a page shows, from its first line to its last, as a reader does. Usage: examples.py BUILD PAGE

What stands on the fence of an example tells what is done with it:

  session         "hvt> " sends a line to the phone's port, "$ " runs a command; what follows, to the next of them, is
                  what comes back, byte for byte: the command's output, then what the phone sends. A command that
                  ends badly is followed by "$ echo $?".
  sh              shell lines that all end well
  python          a program that ends well
  transcript      is played
  conf            is the phone.conf of a new phone, which starts with it, and is off again then
  lua             goes on with the menu script of the examples before it; the menu runs to its end
  text, ...       is shown and not run (SHOWN below), as is any other behind the word "shape": tests/docs/not_run
                  says of each page how many these are, and why

and further words, what comes before and after:

  up              the phone is on; for session and python it is anyway
  off             the phone is off
  fresh           it is on and nobody has had it before
  waits           goes on until Ctrl-C, which comes behind the next example
  needs=MODULE    a Python module that not everybody has: without it the program is only compiled
  NAME.EXT        the example is a file of that name, which a later one must use; it isn't run by itself

/dev/ttyUSB0 stands for the virtual phone's port.
"""

import importlib.util
import os
import re
import select
import signal
import subprocess
import sys
import time

sys.dont_write_bytecode = True
from house import PORT, Failed, House  # noqa: E402
from page import BadPage, blocks  # noqa: E402

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
WORDS = ("up", "off", "fresh", "waits", "shape")
SHOWN = ("text", "cmake", "cpp", "json")
QUIET = 20  # seconds that may pass until what a session shows has come


def on_this_desk(text):
    return text.replace("/dev/ttyUSB0", PORT)


def name_of(block):
    """The name of the file that an example is, or None."""
    return next((word for word in block.words if "." in word), None)


def is_shown(block):
    return "shape" in block.words or block.language in SHOWN and name_of(block) is None


def is_known(block):
    return ((is_shown(block) or name_of(block) is not None or block.language in KINDS)
            and all(word in WORDS or "." in word or word.startswith("needs=") for word in block.words))


def as_lines(data):
    """What came from the port: CR LF ends a line, all else that can't be seen is written out."""
    text = data.decode("latin-1")
    lines = text.split("\r\n")
    if lines[-1] == "":
        lines.pop()
    elif text:
        lines[-1] += " (without CR LF)"
    escape = {"\r": "\\r", "\n": "\\n", "\0": "\\0"}
    return ["".join(escape.get(c, c) for c in line) for line in lines]


def take(port):
    """What is in the port now."""
    data = b""
    while select.select([port], [], [], 0)[0]:
        try:
            part = os.read(port, 65536)
        except OSError:  # hung up
            break
        if not part:
            break
        data += part
    return data


class Reader:
    """Who follows the page."""

    def __init__(self, house):
        self.house = house
        self.files = {}  # of the page, by name: the line where each stands, until it is used
        self.menu = ""
        self.waiting = None  # an example that goes on until Ctrl-C, and its process

    # Sessions.

    def session(self, block):
        self.house.up()
        port = self.house.open_port()
        if port is not None:
            self.house.ask("idle")
            greeting = take(port)
            os.close(port)
            if greeting not in (b"", b"TP,OK\r\n"):
                raise Failed("before the first line there was %r" % greeting)
        self.status = 0
        steps = []
        for row in on_this_desk(block.text).splitlines():
            if row.startswith(("hvt> ", "$ ")):
                steps.append((row, []))
            elif steps:
                steps[-1][1].append(row)
            else:
                raise Failed("a session begins with \"hvt> \" or \"$ \"")
        for row, wanted in steps:
            got = self.line(row[5:], wanted) if row.startswith("hvt> ") else self.command(row[2:], wanted)
            if got != wanted:
                raise Failed("%s\n--- the page shows\n%s\n--- there came\n%s"
                             % (row, "\n".join(wanted), "\n".join(got)))
        if self.status != 0:
            raise Failed("the last command ended with %s" % self.status)

    def line(self, text, wanted):
        port = self.house.open_port()
        if port is None:
            raise Failed("%s: there is no port" % text)
        try:
            os.write(port, text.encode("latin-1") + b"\r")
            return self.comes(port, [], wanted)
        finally:
            os.close(port)

    def command(self, text, wanted):
        self.use(text)
        before = self.status
        if before != 0 and text != "echo $?":
            raise Failed("the command before this one ended with %s: %s" % (before, text))
        self.status, said = self.house.run("sh", "-c", "(exit %d)\n%s" % (before, text))
        if not isinstance(self.status, int):
            raise Failed("%s: status %s\n%s" % (text, self.status, said))
        got = said.replace(self.house.top + "/", "").splitlines()
        port = self.house.open_port() if self.house.is_up() else None
        if port is None:
            return got
        try:
            return self.comes(port, got, wanted)
        finally:
            os.close(port)

    def comes(self, port, got, wanted):
        """`got` and what the phone sends behind it, until that is what is wanted or can't become it."""
        data, end = b"", time.monotonic() + QUIET
        while True:
            self.house.run("build/release/phone/hvt-ask", "DIR", "idle")
            data += take(port)
            now = got + (as_lines(data) if data else [])
            whole = len(now) >= len(wanted) and (not data or data.endswith(b"\r\n"))
            if whole or time.monotonic() > end:
                return now
            select.select([port], [], [], 0.1)

    # The others.

    def sh(self, block):
        text = on_this_desk(block.text)
        self.use(text)
        if "waits" not in block.words:
            self.house.must("sh", "-e", "-c", text)
            return
        waits = self.house.start("sh", "-c", "exec " + text)
        end = time.monotonic() + QUIET
        while os.fstat(waits.said.fileno()).st_size == 0:  # it says that it waits
            if waits.poll() is not None or time.monotonic() > end:
                raise Failed("it doesn't wait, or doesn't say so: status %s\n%s" % self.house.end(waits, 0))
            time.sleep(0.05)
        self.waiting = block, waits

    def python(self, block):
        self.house.up()
        program = self.saved(block)
        for word in block.words:
            if word.startswith("needs=") and importlib.util.find_spec(word[6:]) is None:
                compile(block.text, program, "exec")
                print("line %d is only compiled: the Python module %s isn't here" % (block.line, word[6:]))
                return
        self.house.must(sys.executable, program)

    def transcript(self, block):
        self.house.must("./hvt", "play", self.saved(block))

    def conf(self, block):
        self.house.fresh(block.text)
        self.house.down()

    def lua(self, block):
        self.menu += block.text
        self.house.fresh()
        with open(self.house.path("DIR/root/system/scripts/start_korvat.lua"), "w") as file:
            file.write(self.menu + '\nprint("the end of the example")\n')
        self.house.ask("key", "116", "tap")
        end = time.monotonic() + QUIET
        while True:
            log = self.house.ask("kmsg")
            if "QAT: luigi:" in log or time.monotonic() > end:
                raise Failed(log)
            if "print: the end of the example" in log:
                return
            time.sleep(0.1)

    def saved(self, block):
        """The file of an example: its own name, or one for the time being."""
        name = name_of(block) or "example." + block.language
        with open(self.house.path(name), "w") as file:
            file.write(on_this_desk(block.text))
        self.use(block.text)
        return name

    def use(self, text):
        """Files that are named, or imported, are used."""
        for name in list(self.files):
            if name in text or re.search(r"^(import|from) %s\b" % name.split(".")[0], text, re.MULTILINE):
                del self.files[name]

    def follow(self, block):
        before, self.waiting = self.waiting, None
        if "fresh" in block.words:
            self.house.fresh()
        elif "up" in block.words:
            self.house.up()
        elif "off" in block.words:
            self.house.down()
        if name_of(block) is not None:
            self.saved(block)
            self.files[name_of(block)] = block.line
        else:
            KINDS[block.language](self, block)
        if before is not None:
            self.interrupt(*before)

    def interrupt(self, block, waits):
        end = time.monotonic() + QUIET
        while waits.poll() is None and time.monotonic() < end:  # whoever isn't heard presses it again
            os.killpg(waits.pid, signal.SIGINT)
            try:
                waits.wait(1)
            except subprocess.TimeoutExpired:
                pass
        status, said = self.house.end(waits, 0)
        if status != 0:
            raise Failed("line %d, behind Ctrl-C: status %s\n%s" % (block.line, status, said))

    def leave(self):
        """The end of the page."""
        if self.waiting is not None:
            self.interrupt(*self.waiting)
        self.house.down()
        if self.files:
            raise Failed("no example uses " + ", ".join("%s (line %d)" % row for row in self.files.items()))


KINDS = {"session": Reader.session, "sh": Reader.sh, "python": Reader.python, "transcript": Reader.transcript,
         "conf": Reader.conf, "lua": Reader.lua}


def not_run(page):
    """How many examples of a page are only shown."""
    with open(os.path.join(SOURCE, "tests/docs/not_run"), encoding="utf-8") as file:
        rows = [row.split(" | ") for row in file if not row.startswith("#")]
    return sum(int(row[1]) for row in rows if row[0] == page)


def examples_of(page):
    """All examples of a page, each of a known kind, as many of them only shown as there may be."""
    found = blocks(os.path.join(SOURCE, page))
    for block in found:
        if not is_known(block):
            fence = " ".join([block.language, *block.words])
            raise BadPage("%d: nobody knows what to do with \"%s\"" % (block.line, fence))
    shown = [str(block.line) for block in found if is_shown(block)]
    if len(shown) != not_run(page):
        raise BadPage(" %d examples are only shown (lines %s), tests/docs/not_run says %d"
                      % (len(shown), ", ".join(shown), not_run(page)))
    return found


def follow_all(reader, examples):
    for block in examples:
        start = time.monotonic()
        try:
            reader.follow(block)
        except (Failed, SyntaxError) as error:
            raise BadPage("%d: %s" % (block.line, error)) from error
        print("line %d: %s, %.1f s" % (block.line, block.language, time.monotonic() - start), flush=True)
    try:
        reader.leave()
    except Failed as error:
        raise BadPage(" at the end: %s" % error) from error


def main(build, page):
    try:
        found = examples_of(page)
        to_do = [block for block in found if not is_shown(block)]
        house = House(SOURCE, os.path.abspath(build))
        try:
            follow_all(Reader(house), to_do)
        finally:
            house.close()
    except BadPage as error:
        return "%s:%s" % (page, error)
    print("%s: %d examples done, %d only shown" % (page, len(to_do), len(found) - len(to_do)))
    return 0


signal.signal(signal.SIGTERM, lambda *_: sys.exit("ended"))
sys.exit(main(*sys.argv[1:3]))
