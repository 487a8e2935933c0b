"""A station for HVT in one file: the standard library alone, Python 3.8 or later, on Linux.

    import hvt
    with hvt.open("build/phone/ttyGS0") as phone:     # or "/dev/ttyUSB0"
        answer = phone.ask("batc=3")
        answer.status                                  # "OK"
        answer.values                                  # ["45", "3800", "-200"]
        answer.text                                    # "BATC:45,3800,-200,OK"

A reply is whole when its status word and the final sequence have come. A line that comes when nothing was asked is a
late report. The module knows the console's first settings (line term ",", final sequence CR LF); a station that
changes them with s3 and s4 says so with set_terms.
"""

import collections
import os
import select
import termios
import time
import tty

__all__ = ["open", "Phone", "Answer", "Error", "Timeout", "Disconnected", "STATUSES", "GREETING"]

STATUSES = ("OK", "ERROR", "SYNTAX", "NOT FOUND", "BLOCKED")

GREETING = "TP,OK"  # what a phone says at its start and when the cable comes back

_os_open = os.open


class Error(Exception):
    """What can go wrong with a phone; each kind is a class of its own."""


class Timeout(Error):
    """No whole reply in time; `text` is what has come of it."""

    def __init__(self, line, seconds, text):
        super().__init__("%r: no whole reply after %g s, only %r" % (line, seconds, text))
        self.line = line
        self.text = text


class Disconnected(Error):
    """The port is gone: the cable was pulled, or the phone is off."""


class Answer(collections.namedtuple("Answer", "text status values name")):
    """The reply to a line. `text` is all of it without the final sequence, line ends inside as "\\n"; `values` what
    stands behind the name of the last line and before the status; `name` is "" where a reply has none."""

    @property
    def ok(self):
        return self.status == "OK"


def open(port, timeout=30.0, term=",", final="\r\n"):
    """Opens a serial port, or a virtual phone's DIR/ttyGS0. `timeout` in seconds is that of each ask."""
    return Phone(port, timeout, term, final)


class Phone:
    def __init__(self, port, timeout=30.0, term=",", final="\r\n"):
        self.port = port
        self.timeout = timeout
        self.set_terms(term, final)
        self._got = b""
        self._reports = collections.deque()
        try:
            self._fd = _os_open(port, os.O_RDWR | os.O_NOCTTY | os.O_NONBLOCK | os.O_CLOEXEC)
        except OSError as error:
            raise Disconnected("%s can't be opened: %s" % (port, error.strerror)) from error
        if os.isatty(self._fd):
            tty.setraw(self._fd, termios.TCSANOW)  # what has come stays
            settings = termios.tcgetattr(self._fd)
            settings[2] |= termios.CREAD | termios.CLOCAL
            settings[4] = settings[5] = termios.B115200
            termios.tcsetattr(self._fd, termios.TCSANOW, settings)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self._fd >= 0:
            os.close(self._fd)
        self._fd = -1

    def set_terms(self, term, final="\r\n"):
        """The line term and final sequence that replies have from now on: before s3 or s4 is sent, whose own replies
        have the new ones."""
        self._term = term.encode("latin-1")
        self._final = final.encode("latin-1")

    def ask(self, line, timeout=None, quiet=None):
        """Sends a line and waits for its whole reply. What has come before it is a late report. For the few commands
        whose answer ends without a status word, `quiet`: it is whole when nothing more has come for so many seconds,
        and its status is ""."""
        seconds = self.timeout if timeout is None else timeout
        end = time.monotonic() + seconds
        self._receive(0)
        self._keep_reports()
        self._send(line.encode("latin-1") + b"\r", end, line, seconds)
        while True:
            answer = self._take_answer(line)
            if answer is not None:
                return answer
            left = end - time.monotonic()
            if left > 0 and self._receive(left if quiet is None else min(left, quiet)):
                continue
            text = self._got.decode("latin-1")
            if left <= 0:
                self._got = b""
                raise Timeout(line, seconds, text)
            if quiet is not None and text:
                self._got = b""
                return Answer(text.replace(self._final.decode("latin-1"), "\n").rstrip("\n"), "", [], "")

    def reports(self, timeout=None):
        """The late reports, each a line without its end, as they come; ends when none has come for `timeout` seconds
        (None: never)."""
        while True:
            while self._reports:
                yield self._reports.popleft()
            end = None if timeout is None else time.monotonic() + timeout
            while not self._reports:
                left = None if end is None else end - time.monotonic()
                if left is not None and left <= 0:
                    return
                self._receive(left)
                self._keep_lines()

    # Private.

    def _lost(self, error=None):
        return Disconnected("%s is gone: the cable was pulled, or the phone is off%s"
                            % (self.port, " (%s)" % error.strerror if error else ""))

    def _receive(self, seconds):
        """Takes what comes within the time; False when nothing does."""
        if self._fd < 0:
            raise Disconnected("%s is closed" % self.port)
        ready, _, _ = select.select([self._fd], [], [], seconds)
        if not ready:
            return False
        try:
            part = os.read(self._fd, 65536)
        except BlockingIOError:
            return False
        except OSError as error:
            raise self._lost(error) from error
        if not part:
            raise self._lost()
        self._got += part
        return True

    def _send(self, data, end, line, seconds):
        while data:
            left = end - time.monotonic()
            _, room, _ = select.select([], [self._fd], [], max(left, 0))
            if not room:
                raise Timeout(line, seconds, "")
            try:
                data = data[os.write(self._fd, data):]
            except BlockingIOError:
                continue
            except OSError as error:
                raise self._lost(error) from error

    def _take_answer(self, line):
        """The reply if it is whole: lines up to one that ends in a status word, lines of others before it apart."""
        at = 0
        while True:
            end = self._got.find(self._final, at)
            if end < 0:
                return None
            last = self._got[at:end]
            status = self._status_of(last)
            if status is not None and not self._is_foreign(last, line):
                whole = self._got[:end]
                self._got = self._got[end + len(self._final):]
                return self._answer(whole, last, status, line)
            at = end + len(self._final)

    def _status_of(self, text):
        for status in STATUSES:
            word = status.encode()
            if text == word or text.endswith(self._term + word):
                return status
        return None

    @staticmethod
    def _name_of(text):
        """"BATC" of b"BATC:3812,OK", "" where a line has no name."""
        name, colon, _ = text.partition(b":")
        return name.decode("latin-1") if colon and name.isalnum() else ""

    def _is_foreign(self, text, line):
        """A report of another command that comes between question and answer has that command's name."""
        if text == GREETING.encode():
            return True
        asked = line.split("=")[0].split("?")[0].strip().upper()
        name = self._name_of(text).upper()
        return name not in ("", asked)

    def _answer(self, whole, last, status, line):
        kept = []
        for part in whole.split(self._final):
            if part != last and self._is_foreign(part, line):
                self._reports.append(part.decode("latin-1"))
            else:
                kept.append(part.decode("latin-1"))
        term = self._term.decode("latin-1")
        body = last.decode("latin-1")[:-len(status)]
        body = body[:-len(term)] if body.endswith(term) else body
        name = self._name_of(last)
        values = body[len(name) + 1:] if name else body
        return Answer("\n".join(kept), status, values.split(term) if values else [], name)

    def _keep_lines(self):
        while self._final in self._got:
            text, self._got = self._got.split(self._final, 1)
            if text:
                self._reports.append(text.decode("latin-1"))

    def _keep_reports(self):
        """What came before a line is sent is no part of its reply, whole or not."""
        self._keep_lines()
        if self._got:
            self._reports.append(self._got.decode("latin-1"))
            self._got = b""
