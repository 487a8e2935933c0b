"""The machine's control port, for the prompt and for "./hvt phone": the words of the virtual phone's, as far as a
machine with a kernel of its own has them, and a shell."""

import os
import socketserver
import threading
import time

from machine import Failed

QUIET_SECONDS = 0.15  # a program that waits, on a line that has been silent for so long, has answered
IDLE_SECONDS = 30
PSELECT6 = "335 "  # the system call of the program's loop, by its number on this processor

HELP = """\
  key CODE down|up|tap      a key of the machine's keyboard: 114, 115 volume, 116 power and some others
  touch X Y down|move|tap, touch up    a finger on the panel
  usb on|off                plugs or pulls the station's cable
  screen FILE               what the panel shows, as PNG
  shell LINE                a shell line inside the machine, as root
  fresh                     starts the program anew, with the files of a new phone
  idle                      returns when the program has answered"""


def idle(machine):
    asked = time.monotonic()
    while time.monotonic() - asked < IDLE_SECONDS:
        if time.monotonic() - max(asked, machine.last_byte) < QUIET_SECONDS:
            time.sleep(0.02)
        elif machine.program("syscall").startswith(PSELECT6):
            return
    raise Failed("the program is still at work")


def key(machine, code, action):
    steps = {"down": (1,), "up": (0,), "tap": (1, 0)}.get(action)
    if steps is None or not code.isdigit():
        raise Failed("key CODE down|up|tap")
    for value in steps:
        machine.key(int(code), value)
        time.sleep(0.1)


def touch(machine, words):
    if words == ["up"]:
        return machine.touch("up")
    if len(words) != 3 or not words[0].isdigit() or not words[1].isdigit() or words[2] not in ("down", "move", "tap"):
        raise Failed("touch X Y down|move|tap, or touch up")
    machine.touch("%s %s %s" % ("move" if words[2] == "move" else "down", words[0], words[1]))
    if words[2] == "tap":
        time.sleep(0.2)
        machine.touch("up")


def carry_out(machine, folder, line):
    """The answer to a request; what is wrong with it is raised as Failed."""
    word, _, rest = line.partition(" ")
    words = rest.split()
    if word == "help":
        return HELP
    if word == "idle":
        return idle(machine)
    if word == "key" and len(words) == 2:
        return key(machine, *words)
    if word == "touch":
        return touch(machine, words)
    if word == "usb" and rest in ("on", "off"):
        return machine.cable(rest == "on")
    if word == "screen" and rest:
        return machine.screen(os.path.join(folder, rest))
    if word == "shell" and rest:
        return machine.shell(rest).rstrip("\n")
    if word == "fresh" and not rest:
        return machine.fresh()
    raise Failed("the machine knows no \"%s\"; \"help\" lists its words" % line)


class Requests(socketserver.StreamRequestHandler):
    def handle(self):
        folder = os.getcwd()
        for raw in self.rfile:
            line = raw.decode("utf-8", "replace").strip()
            if line.startswith("from "):
                folder = line[5:]
                self.say("ok")
                continue
            try:
                answer = carry_out(self.server.machine, folder, line)
                self.say((answer + "\n" if answer else "") + "ok")
            except (Failed, OSError) as error:
                self.say("error: " + str(error).replace("\n", " "))

    def say(self, text):
        try:
            self.wfile.write((text + "\n").encode())
        except OSError:
            pass  # who asked is gone


class Server(socketserver.ThreadingMixIn, socketserver.UnixStreamServer):
    daemon_threads = True


def serve(machine):
    """Opens the control port in the machine's folder; serves it until the process ends."""
    path = machine.path("control")
    if os.path.lexists(path):
        os.unlink(path)
    before = os.getcwd()
    os.chdir(machine.folder)  # a socket's path is short
    try:
        server = Server("control", Requests)
    finally:
        os.chdir(before)
    server.machine = machine
    threading.Thread(target=server.serve_forever, daemon=True).start()
