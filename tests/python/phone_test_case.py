"""A virtual phone of its own for each test, started by the program VIRTUAL and asked by ASK."""

import fcntl
import os
import shutil
import signal
import subprocess
import tempfile
import unittest


class PhoneTest(unittest.TestCase):
    VIRTUAL = ASK = None

    def setUp(self):
        self.dir = tempfile.mkdtemp(prefix="hvt-phone-")
        subprocess.run([self.VIRTUAL, "--background", self.dir], check=True)
        self.control("battery", "3812", "-200")

    def tearDown(self):
        with open(os.path.join(self.dir, "hvt.pid")) as file:
            os.kill(int(file.read()), signal.SIGTERM)
            fcntl.flock(file, fcntl.LOCK_EX)  # the phone holds it as long as it is
        shutil.rmtree(self.dir)

    def control(self, *words):
        return subprocess.run([self.ASK, self.dir, *words], check=True, stdout=subprocess.PIPE).stdout.decode()
