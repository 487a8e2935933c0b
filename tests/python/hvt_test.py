"""The Python client against a virtual phone. Usage: hvt_test.py HVT_VIRTUAL HVT_ASK"""

import os
import pty
import sys
import threading
import tty
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "clients", "python"))
sys.dont_write_bytecode = True
import hvt  # noqa: E402
from phone_test_case import PhoneTest  # noqa: E402

PhoneTest.VIRTUAL, PhoneTest.ASK = sys.argv[1:3]


class ClientTest(PhoneTest):
    def setUp(self):
        super().setUp()
        self.phone = hvt.open(self.port(), timeout=20)

    def tearDown(self):
        self.phone.close()
        super().tearDown()

    def port(self):
        return os.path.join(self.dir, "ttyGS0")

    def test_an_answer_has_status_values_and_text(self):
        answer = self.phone.ask("batc=1")
        self.assertEqual(answer, ("BATC:3812,OK", "OK", ["3812"], "BATC"))
        self.assertTrue(answer.ok)
        self.assertEqual(self.phone.ask("i2cr=5,18,F,1")[:3], ("I2CR:0x03,OK", "OK", ["0x03"]))
        self.assertEqual(self.phone.ask("temp=99")[:3], ("TEMP:,SYNTAX", "SYNTAX", []))
        self.assertEqual(self.phone.ask("nosuch"), ("NOT FOUND", "NOT FOUND", [], ""))
        self.assertIn("batc", [name.strip() for name in self.phone.ask("list").values])

    def test_the_greeting_and_what_came_before_a_line_are_reports(self):
        self.assertEqual(self.phone.ask("case?").text, "CASE:false,OK")
        self.assertEqual(list(self.phone.reports(0)), ["TP,OK"])

    def test_late_reports_come_as_an_iterator_and_never_as_an_answer(self):
        self.assertEqual(self.phone.ask("dtch=1").status, "OK")
        self.control("touch", "540", "960", "down")
        reports = self.phone.reports(20)
        self.assertEqual([next(reports), next(reports)], ["TP,OK", "DTCH:540,960,540,960,OK"])
        self.control("touch", "540", "960", "up")
        self.control("clock", "+100")
        self.control("touch", "10", "20", "tap")
        self.control("clock", "+140")  # the panel is polled
        self.control("idle")
        self.assertEqual(self.phone.ask("batc=1").text, "BATC:3812,OK")
        self.assertEqual(list(self.phone.reports(0)), ["DTCH:10,20,10,20,OK"])

    def test_a_report_between_a_line_and_its_answer_is_no_part_of_the_answer(self):
        far, near = pty.openpty()

        def answer_late():
            while not os.read(far, 100).endswith(b"\r"):
                pass
            os.write(far, b"KEYB:72,p\r\nDTCH:540,960,540,960,OK\r\nBATC:3812,OK\r\n")

        tty.setraw(near)
        answering = threading.Thread(target=answer_late)
        answering.start()
        with hvt.open(os.ttyname(near), timeout=20) as phone:
            self.assertEqual(phone.ask("batc=1"), ("BATC:3812,OK", "OK", ["3812"], "BATC"))
            self.assertEqual(list(phone.reports(0)), ["KEYB:72,p", "DTCH:540,960,540,960,OK"])
        answering.join()
        os.close(far)
        os.close(near)

    def test_no_answer_in_time_is_a_timeout_of_its_own(self):
        self.phone.ask("case?")
        self.control("usb", "off")
        with self.assertRaises(hvt.Timeout) as raised:
            self.phone.ask("batc=1", timeout=0.3)
        self.assertEqual(raised.exception.line, "batc=1")
        self.control("usb", "on")
        self.assertEqual(self.phone.ask("batc=1").values, ["3812"])

    def test_a_pulled_cable_is_an_exception_of_its_own(self):
        self.phone.ask("case?")
        self.control("usb", "off", "hangup")
        with self.assertRaises(hvt.Disconnected):
            self.phone.ask("batc=1")
        with self.assertRaises(hvt.Disconnected):
            hvt.open(self.port())
        self.control("usb", "on")
        with hvt.open(self.port()) as phone:
            self.assertEqual(phone.ask("batc=1").values, ["3812"])

    def test_other_terms_and_answers_without_a_status(self):
        self.phone.ask("case?")
        answer = self.phone.ask("", quiet=0.3)
        self.assertEqual((answer.status, answer.text), ("", ""))
        self.phone.set_terms(";")
        self.assertEqual(self.phone.ask("s3=3b,d").status, "OK")
        self.assertEqual(self.phone.ask("batc=1"), ("BATC:3812;OK", "OK", ["3812"], "BATC"))


unittest.main(argv=sys.argv[:1])
