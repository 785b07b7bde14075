"""The tutorial, typed command by command on a terminal: each shows what the page says. Ports are
replaced by free ones on the way in and put back on the way out; nothing else is adapted."""

import fcntl
import os
import pty
import re
import select
import shlex
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

import harness

SANDBOX_PORT = "5988"
LISTEN_PORT = "5990"
END = "end-of-command-"


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as server:
        return str(server.getsockname()[1])


def commands_of(page):
    """The commands of the page's console blocks, each with the text below it."""
    found = []
    for block in re.findall(r"(?ms)^```console\n(.*?)^```", page):
        for line in block.splitlines(keepends=True):
            if line.startswith("$ "):
                found.append([line[2:].rstrip("\n"), ""])
            else:
                found[-1][1] += line
    return found


class Shell:
    """A bash whose programs write to a terminal of 80 columns, and their remarks to a pipe."""

    def __init__(self, folder, ports):
        self.ports = ports
        self.folder = folder
        self.terminal, inner = pty.openpty()
        fcntl.ioctl(inner, termios.TIOCSWINSZ, struct.pack("HHHH", 24, 80, 0, 0))
        modes = termios.tcgetattr(inner)
        modes[1] &= ~termios.OPOST
        termios.tcsetattr(inner, termios.TCSANOW, modes)
        for name in ("client", "sandbox"):
            os.symlink(os.path.abspath(getattr(harness.paths, name)), f"{folder}/cim-{name}")
        variables = harness.clean_environment(
            PATH=f"{folder}:{os.environ['PATH']}", CIM_CLIENT_PORT=ports[SANDBOX_PORT]
        )
        self.process = subprocess.Popen(
            ["bash", "--norc", "--noprofile", "-O", "expand_aliases"],
            stdin=subprocess.PIPE, stdout=inner, stderr=subprocess.PIPE,
            cwd=folder, env=variables, start_new_session=True,
        )  # fmt: skip
        os.close(inner)
        self.pending = ""
        self.count = 0
        self.type(f"alias cim-sandbox='cim-sandbox --port {ports[SANDBOX_PORT]}'")

    def swapped(self, text, back):
        for shown, used in self.ports.items():
            text = text.replace(used, shown) if back else text.replace(shown, used)
        return text

    def type(self, command, expected=""):
        """Types a command. What is shown until it is over; in the background, until as much has
        been shown as is expected."""
        self.count += 1
        marker = f"{END}{self.count}\n"
        line = f"{self.swapped(command, False)}\necho {marker}"
        self.process.stdin.write(line.encode())
        self.process.stdin.flush()
        shown = self._read_until(lambda text: marker in text).replace(marker, "")
        if command.endswith("&"):
            self.pending = shown
            lines = expected.count("\n")
            shown = self._read_until(lambda text: text.count("\n") >= lines)
        return self.swapped(shown, True)

    def _read_until(self, complete):
        deadline = time.monotonic() + harness.PATIENCE
        text, self.pending = self.pending, ""
        ends = [self.terminal, self.process.stderr.fileno()]
        while not complete(text):
            ready = select.select(ends, [], [], max(0, deadline - time.monotonic()))[0]
            if not ready:
                raise AssertionError(f"nothing more came behind {text!r}")
            # A program's remarks were written before the shell says that it is over.
            for end in sorted(ready, key=lambda one: one == self.terminal):
                text += os.read(end, 65536).decode()
        return text

    def close(self):
        os.killpg(self.process.pid, signal.SIGTERM)  # it and what it runs in the background
        self.process.stdin.close()
        self.process.wait(harness.PATIENCE)
        self.process.stderr.close()
        os.close(self.terminal)


class Tutorial(unittest.TestCase):
    def test_every_command_shows_what_the_page_says(self):
        with open(harness.paths.tutorial, encoding="utf-8") as file:
            commands = commands_of(file.read())
        self.assertGreater(len(commands), 20)
        ports = {SANDBOX_PORT: free_port(), LISTEN_PORT: free_port()}
        with tempfile.TemporaryDirectory() as folder:
            shell = Shell(folder, ports)
            self.addCleanup(shell.close)
            for command, expected in commands:
                with self.subTest(command):
                    self.assertEqual(shell.type(command, expected), expected)

    def test_it_shows_each_thing_that_a_newcomer_needs(self):
        with open(harness.paths.tutorial, encoding="utf-8") as file:
            typed = " ".join(command for command, _ in commands_of(file.read()))
        words = set(shlex.split(typed, comments=False))
        self.assertLessEqual(
            {"enumerate-instances", "get-instance", "modify-instance", "invoke",
             "associators", "query", "listen", "graph", "doctor"},
            words,
        )  # fmt: skip


if __name__ == "__main__":
    sys.stdout.flush()
    harness.main("tutorial")
