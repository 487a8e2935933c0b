"""The prompt, on a terminal of its own, and scripts that it checks. Usage: prompt_test.py HVT_VIRTUAL HVT_ASK HVT_STATION"""

import fcntl
import os
import pty
import re
import select
import struct
import subprocess
import sys
import termios
import time
import unittest

sys.dont_write_bytecode = True
from phone_test_case import PhoneTest  # noqa: E402

PhoneTest.VIRTUAL, PhoneTest.ASK, STATION = sys.argv[1:4]
LIMIT = 20  # seconds that the prompt may take for anything


class Terminal:
    """A person's terminal of 24 lines and 60 columns with the prompt in it."""

    def __init__(self, *argv):
        self.got = ""
        self.pid, self.fd = pty.fork()
        if self.pid == 0:
            os.environ["TERM"] = "dumb"
            os.environ["INPUTRC"] = "/dev/null"
            fcntl.ioctl(1, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 60, 0, 0))
            os.execv(argv[0], argv)

    def _take(self, seconds):
        ready, _, _ = select.select([self.fd], [], [], seconds)
        try:
            part = os.read(self.fd, 65536) if ready else None
        except OSError:
            part = b""
        if part:
            self.got += part.decode("latin-1").replace("\r\n", "\n")
        return part

    def until(self, pattern):
        """What comes up to and with the pattern."""
        end = time.monotonic() + LIMIT
        while True:
            found = re.search(pattern, self.got)
            if found:
                text, self.got = self.got[:found.end()], self.got[found.end():]
                return text
            if time.monotonic() > end or self._take(0.1) == b"":
                raise AssertionError("no %r in %r" % (pattern, self.got))

    def type(self, keys):
        os.write(self.fd, keys.encode())

    def ask(self, line):
        """What is shown between a line that is typed and the next prompt."""
        self.type(line + "\r")
        self.until(re.escape(line) + "\n")
        return self.until(r"hvt> $")[:-len("hvt> ")]

    def ends(self):
        """The rest, and the exit status."""
        end = time.monotonic() + LIMIT
        while self._take(0.1) != b"" and time.monotonic() < end:
            pass
        _, status = os.waitpid(self.pid, 0)
        os.close(self.fd)
        return self.got, os.waitstatus_to_exitcode(status)


class PromptTest(PhoneTest):
    def script(self, text, *options):
        done = subprocess.run([STATION, *options, self.dir], input=text.encode(), stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE)
        return done.returncode, done.stdout.decode("latin-1"), done.stderr.decode()

    def test_the_greeting_tells_what_one_may_have_forgotten(self):
        self.script("case?\n")  # takes the phone's own greeting
        terminal = Terminal(STATION, "--joined", self.dir)
        first = terminal.until("hvt> $")
        self.assertIn("The phone is on and stays on.", first)
        self.assertNotIn("armed", first)
        self.assertNotIn("doesn't know", first)
        self.assertEqual(terminal.ask("!fail open /dev/rtc0 2 slow 5"), "")
        self.assertEqual(terminal.ask("!fail open /dev/i2c-5"), "")
        self.assertIn("ERROR", terminal.ask("i2cr=5,18,F,1"))
        terminal.ask('vregctl="none",1')  # no phone has this regulator
        self.assertEqual(terminal.ask("!battery"), "3812 -200 " + self.control("battery").split()[2] + "\n")
        terminal.type("exit\r")
        self.assertEqual(terminal.ends()[1], 0)

        terminal = Terminal(STATION, "--joined", self.dir)
        first = terminal.until("hvt> $")
        self.assertIn('Faults are armed ("!fail off" clears them):\n  open /dev/rtc0, 2 left, slow 5, 0 hits\n', first)
        self.assertNotIn("/dev/i2c-5", first)  # used up
        self.assertIn('doesn\'t know ("!strange off" forgets it):\n1 open /sys/kernel/debug/regulator/none/enable\n', first)
        terminal.type("\x04")  # Ctrl-D
        self.assertEqual(terminal.ends()[1], 0)
        self.assertEqual(self.script("batc=1\n")[1], "BATC:3812,OK\n")  # the phone is still on

    def test_tab_completes_commands_control_words_and_what_stands_behind_them(self):
        terminal = Terminal(STATION, self.dir)
        terminal.until("hvt> $")
        terminal.type("rtc\t\t")
        self.assertRegex(terminal.until("rtcw"), r"rtcr +rtcw")
        terminal.type("r\r")
        terminal.until("RTCR:")
        terminal.until("hvt> $")
        terminal.type("!char\tw\t\r")
        self.assertIn("!charger wall", terminal.until("hvt> $"))
        self.assertEqual(self.control("charger"), "wall\n")
        terminal.type('help="bat\t\r')
        self.assertIn('help="batc"', terminal.until("hvt> $"))
        terminal.type("\x04")
        terminal.ends()

    def test_long_answers_are_laid_out_for_a_person_and_byte_for_byte_for_a_pipe(self):
        piped = self.script("list\n")[1].replace("TP,OK\n", "")
        self.assertRegex(piped, r"^[a-z0-9]+ *,.*,OK\n$")
        names = [name.strip() for name in piped.split(",")[:-1]]
        terminal = Terminal(STATION, self.dir)
        terminal.until("hvt> $")
        terminal.type("list\r")
        terminal.until("list\n")
        shown = terminal.until("hvt> $|-- more")
        while shown.endswith("-- more"):
            terminal.until("--")
            terminal.type(" ")
            shown += terminal.until("hvt> $|-- more")
        lines = [line for line in re.sub(r"\x1b\[K|\r|-- more", "\n", shown).split("\n") if not line.startswith("hvt>")]
        self.assertLessEqual(max(map(len, lines)), 60)
        self.assertEqual(sorted(" ".join(lines).replace("OK", "").split()), sorted(names))
        self.assertLess(len(lines), len(names) / 3)
        self.assertIn("Ctrl-D ends", terminal.ask("?"))
        terminal.type("exit\r")
        terminal.ends()

    def test_a_script_is_checked(self):
        text = "batc=1\n!clock hold\nnosuch\n!usb sideways\nbatc=1\n"
        status, said, wrong = self.script(text, "--check")
        self.assertEqual(status, 1)
        self.assertEqual(said.replace("TP,OK\n", ""),
                         "BATC:3812,OK\nNOT FOUND\nerror: on, off or off hangup is wanted\nBATC:3812,OK\n")
        self.assertEqual(wrong, 'hvt: line 3, "nosuch": NOT FOUND\nhvt: line 4, "!usb sideways": isn\'t carried out\n')
        self.assertEqual(self.script(text)[0], 0)
        self.assertEqual(self.script("batc=1\ncase?\n!strange\n", "--check")[::2], (0, ""))

    def test_a_port_that_is_hung_up_is_told_and_comes_back(self):
        terminal = Terminal(STATION, self.dir)
        terminal.until("hvt> $")
        terminal.type("!usb off hangup\r")
        terminal.until("has been hung up")
        terminal.until("hvt> $")
        self.control("idle")  # the program has seen the cable go
        terminal.type("!usb on\r")
        terminal.until("TP,OK")
        terminal.type("\rbatc=1\r")
        terminal.until("BATC:3812,OK")
        self.control("key", "114", "tap")
        terminal.type("poff\r")
        self.assertIn("The phone is off", terminal.ends()[0])


unittest.main(argv=sys.argv[:1])
