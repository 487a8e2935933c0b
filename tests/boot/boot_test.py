#!/usr/bin/env python3
"""The program on a Linux kernel in the emulator.  boot_test.py KERNEL IMAGE BUILD SOURCE [NAME]

BUILD is the desk's own build, with the virtual phone that pictures are compared with and the player of transcripts."""

import calendar
import fcntl
import json
import os
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

KERNEL, IMAGE, BUILD, SOURCE = sys.argv[1:5]
sys.dont_write_bytecode = True
sys.path[:0] = [os.path.join(SOURCE, "boot"), os.path.join(SOURCE, "clients", "python")]
import control  # noqa: E402
import hvt  # noqa: E402
import machine  # noqa: E402
import picture  # noqa: E402

MOST_RESIDENT_KIB = 8 * 1024
LINES = 100_000


def start(counting=False):
    phone = machine.Machine(tempfile.mkdtemp(prefix="hvt-boot-"), KERNEL, IMAGE, counting)
    phone.start()
    phone.await_greeting(0)
    return phone


def end(phone):
    phone.stop()
    shutil.rmtree(phone.folder)


class Desk(unittest.TestCase):
    """One machine for the tests that leave it as it was; the program is fresh for each."""

    @classmethod
    def setUpClass(cls):
        cls.phone = start()
        cls.station = hvt.open(cls.phone.path("ttyGS0"), timeout=60)

    @classmethod
    def tearDownClass(cls):
        cls.station.close()
        end(cls.phone)

    def setUp(self):
        self.phone.fresh()
        list(self.station.reports(0.5))

    def ask(self, line, expected=None):
        answer = self.station.ask(line).text
        if expected is not None:
            self.assertEqual(answer, expected)
        return answer

    def reports(self, count):
        """The next reports, of which there are so many and no more."""
        got = []
        for report in self.station.reports(20):
            got.append(report)
            if len(got) == count:
                break
        return got + list(self.station.reports(0.5))


class Port(Desk):
    def test_versions_clock_and_kernel_are_those_of_the_machine(self):
        release = self.phone.shell("uname -r").strip()
        self.assertIn(release, self.ask("vers=2"))
        self.ask("case?", "CASE:false,OK")
        told = [int(value) for value in self.station.ask("rtcr").values]
        self.assertLess(abs(calendar.timegm((*told, 0, 0, 0)) - time.time()), 60)

    def test_the_clock_is_set_and_read_beyond_2038(self):
        for moment in ("2040,2,29,23,59,30", "2000,1,1,0,0,0"):
            self.assertTrue(self.station.ask("rtcw=" + moment).ok)
            year = moment.split(",")[0]
            self.assertEqual(self.station.ask("rtcr").values[0], year)
            self.assertEqual(self.phone.shell("cat /kernel/sys/class/rtc/rtc0/date").strip()[:4], year)
        now = time.gmtime()
        self.station.ask("rtcw=%d,%d,%d,%d,%d,%d" % now[:6])

    def test_each_time_that_the_cable_comes_back_the_phone_greets_once(self):
        for _ in range(5):
            self.phone.cable(False)
            self.assertFalse(self.phone.shell("ls /dev/ttyACM0 2>/dev/null; true").strip())
            self.phone.cable(True)
            self.assertEqual(self.reports(1), ["TP,OK"])
            self.ask("case?", "CASE:false,OK")

    def test_a_line_that_is_on_its_way_when_the_cable_goes_does_no_harm(self):
        os.write(self.station._fd, b"list\rlist\rcase")
        self.phone.cable(False)
        self.phone.cable(True)
        self.assertIn("TP,OK", list(self.station.reports(3))[-1:])
        os.write(self.station._fd, b"\r")  # ends what has come through of the third line
        list(self.station.reports(1))
        self.ask("case?", "CASE:false,OK")

    def test_nobody_but_the_kernel_tells_of_the_cable(self):
        header = "add@/devices/virtual/net/%s"
        fields = "ACTION=add DEVPATH=/devices/virtual/net/%s SUBSYSTEM=net INTERFACE=%s"
        # twice, since the first word of a pulled cable isn't believed while the attribute says otherwise
        for word in ("DISCONNECTED", "DISCONNECTED", "CONFIGURED"):
            self.phone.shell(("hvt-forge %s %s" % (header, fields)) % (word, word, word))
        self.assertEqual(self.reports(1), [])
        # the same words from the kernel
        for word in ("DISCONNECTED", "CONFIGURED"):
            self.phone.shell("ip link add %s type dummy; ip link del %s" % (word, word))
        self.assertEqual(self.reports(1), ["TP,OK"])

    def test_a_hundred_thousand_lines(self):
        """One after the other, as a station sends them: the answer is awaited."""
        before = self.resident()
        station = self.station._fd
        exchanges = [(b"case?\r", b"CASE:false,OK\r\n"), (b"nosuch\r", b"NOT FOUND\r\n"),
                     (b"s3=1,2,3,four\r", b"s3        0xB[,0xB]" + b" " * 41 + b"s3(ct,final),SYNTAX\r\n")]
        for number in range(LINES):
            line, wanted = exchanges[number % 3]
            os.write(station, line)
            got = b""
            while len(got) < len(wanted):
                self.assertTrue(select.select([station], [], [], 30)[0], (number, line, got))
                got += os.read(station, 4096)
            self.assertEqual(got, wanted, number)
        self.assertLess(self.resident() - before, 256)

    def resident(self):
        """In KiB."""
        return int(self.phone.shell("grep VmRSS /proc/$(cat /run/program)/status").split()[1])

    def test_the_program_is_small(self):
        resident = self.resident()
        print("resident after the start: %d KiB" % resident)
        self.assertLess(resident, MOST_RESIDENT_KIB)

    def test_the_card_is_a_block_device(self):
        self.ask("mstt=0", "MSTT:0x1,OK")
        self.ask('mstt=3,1,"a.txt","hello"', "MSTT:,OK")
        self.ask('mstt=2,3,"/a.txt"', "MSTT:hello,OK")
        seen = self.phone.shell("mount -t vfat -o ro /dev/vda /sdcard && cat /sdcard/a.txt && umount /sdcard")
        self.assertEqual(seen, "hello")
        self.ask('mstt=4,1,"a.txt"', "MSTT:,OK")
        self.ask('mstt=2,3,"/a.txt"', "ERROR")

    def test_units_outlive_the_program(self):
        self.ask("ppwr=0,PLANT7", "PPWR:,OK")
        self.phone.shell("kill -9 $(cat /run/program)")
        self.assertEqual(self.reports(1), ["TP,OK"])
        self.ask("ppre", "PPRE:PLANT7,OK")


class Panel(Desk):
    """What the panel shows is compared with the virtual phone's, pixel by pixel."""

    def setUp(self):
        super().setUp()
        self.folder = tempfile.mkdtemp(prefix="hvt-virtual-")
        with open(os.path.join(self.folder, "phone.conf"), "w") as conf:
            conf.write("panel %dx%dx32 1\n" % machine.PANEL)
        subprocess.run([os.path.join(BUILD, "phone", "hvt-virtual"), "--background", self.folder], check=True)
        self.twin = hvt.open(os.path.join(self.folder, "ttyGS0"), timeout=20)

    def tearDown(self):
        self.twin.close()
        with open(os.path.join(self.folder, "hvt.pid")) as lock:
            os.kill(int(lock.read()), signal.SIGTERM)
            fcntl.flock(lock, fcntl.LOCK_EX)
        shutil.rmtree(self.folder)

    def both(self, line):
        self.assertEqual(self.ask(line), self.twin.ask(line).text)

    def virtual(self, *words):
        subprocess.run([os.path.join(BUILD, "phone", "hvt-ask"), self.folder, *words], check=True,
                       stdout=subprocess.DEVNULL)

    def same(self, what, seconds=20):
        """The two panels become the same within the time."""
        ours, twins = self.phone.path("panel.png"), os.path.join(self.folder, "panel.png")
        deadline = time.monotonic() + seconds
        while True:
            self.phone.screen(ours)
            self.virtual("screen", twins)
            difference = picture.first_difference(picture.rows(ours), picture.rows(twins))
            if difference is None:
                return
            self.assertLess(time.monotonic(), deadline, "%s differs %s" % (what, difference))
            time.sleep(0.2)

    def test_patterns_figures_and_text(self):
        self.both("lcdl=1")
        for pattern in (*range(0, 50), "14,200"):
            self.both("dpat=%s" % pattern)
            self.same("pattern %s" % pattern)
        self.both("dclr=255,18,52,86")
        self.both("dfig=0,0,0,719,1279,1,0,255,255,0")
        self.both("dfig=2,100,300,400,500,0,200,0,100")
        self.both("dbox=600,1200,500,500,0,0,255,128")
        self.both('dtxt=40,90,255,255,255,"Hardware"')
        self.same("what is drawn")

    def test_the_menu_by_key_and_finger(self):
        self.both("lcdl=1")
        self.press(116)
        self.same("the menu's first page")
        first = picture.rows(self.phone.path("panel.png"))
        # a button, the way back by the key, another button that does something
        self.tap(250, 700)
        self.same("a page of the menu")
        self.assertIsNotNone(picture.first_difference(first, picture.rows(self.phone.path("panel.png"))))
        self.press(114)
        self.same("the first page again")
        self.assertIsNone(picture.first_difference(first, picture.rows(self.phone.path("panel.png"))))

    def press(self, code):
        control.key(self.phone, str(code), "tap")
        self.virtual("key", str(code), "tap")

    def tap(self, x, y):
        control.touch(self.phone, [str(x), str(y), "tap"])
        self.virtual("touch", str(x), str(y), "tap")


class Finger(Desk):
    def test_presses_and_releases_are_reported(self):
        self.ask("dtch=3", "DTCH: ,OK")
        self.phone.touch("down 540 960")
        self.assertEqual(self.reports(1), ["DTCH:1,540,960,540,960,OK"])
        self.phone.touch("move 7 8")
        self.phone.touch("up")
        self.assertEqual(self.reports(1), ["DTCH:0,7,8,7,8,OK"])
        self.ask("dtch=0", "DTCH: ,OK")


class Off(unittest.TestCase):
    """A machine for each: it is off in the end."""

    def ends(self, line):
        phone = start()
        try:
            with hvt.open(phone.path("ttyGS0"), timeout=60) as station:
                list(station.reports(0.5))
                os.write(station._fd, line.encode() + b"\r")
                return phone.wait_off(60)
        finally:
            end(phone)

    def test_power_off(self):
        self.assertEqual(self.ends("poff"), "guest-shutdown")

    def test_restart(self):
        self.assertEqual(self.ends("kill"), "guest-reset")


class Start(unittest.TestCase):
    def test_what_the_start_costs(self):
        """Each instruction takes a nanosecond of the machine's time, and processor time is counted by it."""
        phone = start(counting=True)
        try:
            counts = {}
            for program in ("hvt-boot", "hvt-bare"):
                since = phone.greetings
                phone.shell("touch /run/hold; kill -9 $(cat /run/program); rm -f /run/count; sleep 1")
                phone.shell("(LD_LIBRARY_PATH=/system/lib HVT_COUNT=/run/count %s >/dev/null 2>&1 &)" % program)
                phone.await_greeting(since)
                phone.shell("until [ -s /run/count ]; do usleep 10000; done; killall %s; true" % program)
                counts[program] = [int(n) for n in phone.shell("cat /run/count").split()]
            own, lines = counts["hvt-boot"]
            bare = counts["hvt-bare"][0]
            print("instructions from exec to TP,OK: %d, and %d in the shell lines that it waits for; "
                  "a bare program %d" % (own, lines, bare))
            self.assertGreater(own, bare)
        finally:
            end(phone)


class Transcripts(unittest.TestCase):
    """Those whose cases need nothing but the port, each case on a program that has just started. boot/skipped says
    which cases this machine can't pass; none of these passes."""

    def test_transcripts(self):
        phone = start()
        lock = machine.take_folder(phone.folder)
        try:
            control.serve(phone)
            passed, wrong = self.play(phone)
        finally:
            lock.close()
            end(phone)
        print("transcripts: %d cases passed on the machine" % passed)
        self.assertEqual(wrong, [])
        self.assertGreater(passed, 0)

    def play(self, phone):
        """How many cases passed, and which didn't do what they should."""
        with open(os.path.join(SOURCE, "boot", "skipped")) as file:
            left_out = {line.split(" | ")[0] for line in file if not line.startswith("#")}
        names = sorted(os.path.join(folder, name)
                       for folder, _, names in os.walk(os.path.join(SOURCE, "tests", "station"))
                       for name in names if name.endswith(".t"))
        fresh = "%s %s fresh" % (os.path.join(BUILD, "phone", "hvt-ask"), phone.folder)
        player = subprocess.Popen([os.path.join(BUILD, "tests", "transcripts"), "--port", phone.path("ttyGS0"),
                                   "--json", "-", "--fresh", fresh, *names], stdout=subprocess.PIPE, text=True)
        passed = 0
        wrong = []
        seen = set()
        with player:
            for row in map(json.loads, player.stdout):
                name = "%s: %s" % (os.path.basename(row["file"])[:-2], row["case"])
                seen.add(name)
                if row["result"] == "passed" and name in left_out:
                    wrong.append(name + " needn't be left out")
                elif row["result"] == "failed" and name not in left_out:
                    wrong.append(name)
                    print("%s (line %d): %s" % (name, row["line"], row["message"]), flush=True)
                passed += row["result"] == "passed"
        return passed, wrong + sorted(name + " isn't there" for name in left_out - seen)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v"] + (["-k", sys.argv[5]] if len(sys.argv) > 5 else []))
