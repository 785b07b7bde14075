"""What is different on a terminal: tables, the password prompt, progress."""

import fcntl
import os
import pty
import re
import select
import signal
import struct
import sys
import termios
import time
import unittest

import harness
from harness import sandbox


class Terminal:
    """A client that runs on a terminal of its own."""

    def __init__(self, *arguments, columns=80, environment=None, output=None):
        variables = harness.clean_environment(**(environment or {}))
        self.process, self.master = pty.fork()
        if self.process == 0:
            try:
                fcntl.ioctl(1, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
                if output is not None:
                    os.dup2(os.open(output, os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600), 1)
                os.execve(harness.paths.client, [harness.paths.client, *arguments], variables)
            finally:
                os._exit(127)
        self.shown = ""

    def read_until(self, text):
        """Reads on until `text` has been shown."""
        deadline = time.monotonic() + harness.PATIENCE
        while text not in self.shown:
            if not self._read(deadline):
                raise AssertionError(f"{text!r} was not shown, but: {self.shown!r}")

    def finish(self):
        """Reads what is left; the exit status."""
        deadline = time.monotonic() + harness.PATIENCE
        while self._read(deadline):
            pass
        os.close(self.master)
        return os.waitstatus_to_exitcode(os.waitpid(self.process, 0)[1])

    def type(self, text):
        os.write(self.master, text.encode())

    def shows_what_is_typed(self):
        return bool(termios.tcgetattr(self.master)[3] & termios.ECHO)

    def wait_for_hidden_input(self):
        deadline = time.monotonic() + harness.PATIENCE
        while self.shows_what_is_typed():
            if time.monotonic() > deadline:
                raise AssertionError("the terminal shows what is typed")
            time.sleep(0.01)

    def _read(self, deadline):
        ready = select.select([self.master], [], [], max(0, deadline - time.monotonic()))[0]
        if not ready:
            raise AssertionError(f"nothing more came behind {self.shown!r}")
        try:
            part = os.read(self.master, 65536)
        except OSError:  # the other end is closed
            return False
        self.shown += part.decode().replace("\r\n", "\n")
        return part != b""


class Tables(unittest.TestCase):
    def shown(self, columns):
        with sandbox() as url:
            terminal = Terminal(
                "ei", "CIM_Fan", "-p", "DeviceID,ElementName",
                columns=columns, environment={"CIM_CLIENT_URL": url},
            )  # fmt: skip
            self.assertEqual(terminal.finish(), 0)
        return terminal.shown

    def test_instances_are_a_table_where_it_fits(self):
        self.assertEqual(
            self.shown(25),
            "DeviceID  ElementName\nfan1      Front fan left\nfan2      Front fan right\n"
            "fan3      Spare fan\n",
        )

    def test_instances_are_blocks_where_a_table_does_not_fit(self):
        self.assertTrue(
            self.shown(24).startswith(
                'CIM_Fan.DeviceID="fan1"\n  DeviceID     fan1\n  ElementName  Front fan left\n'
            )
        )

    def test_nothing_found_is_said_to_people(self):
        with sandbox() as url:
            terminal = Terminal("ecn", "CIM_Fan", environment={"CIM_CLIENT_URL": url})
            self.assertEqual(terminal.finish(), 0)
        self.assertEqual(terminal.shown, "cim-client: no classes found\n")


class Prompt(unittest.TestCase):
    def test_the_password_is_asked_for_and_not_shown(self):
        with sandbox("--user", "admin", "--password", "geheim") as url:
            terminal = Terminal("-U", "admin", "ecn", environment={"CIM_CLIENT_URL": url})
            terminal.read_until("Password of admin at 127.0.0.1: ")
            terminal.wait_for_hidden_input()
            terminal.type("geheim\n")
            self.assertEqual(terminal.finish(), 0)
        self.assertNotIn("geheim", terminal.shown)
        self.assertIn("CIM_ManagedElement\n", terminal.shown)

    def test_the_prompt_does_not_mix_with_results(self):
        path = f"/tmp/cim-client-terminal-{os.getpid()}"
        self.addCleanup(os.remove, path)
        with sandbox("--user", "admin", "--password", "geheim") as url:
            terminal = Terminal(
                "-U", "admin", "ecn", "CIM_LogicalDevice",
                environment={"CIM_CLIENT_URL": url}, output=path,
            )  # fmt: skip
            terminal.read_until("Password of admin at 127.0.0.1: ")
            terminal.wait_for_hidden_input()
            terminal.type("geheim\n")
            self.assertEqual(terminal.finish(), 0)
        with open(path, encoding="utf-8") as file:
            self.assertEqual(file.read(), "CIM_Fan\nCIM_PowerSupply\nCIM_NumericSensor\n")

    def test_a_signal_puts_the_terminal_back(self):
        terminal = Terminal("-U", "admin", "--host", "127.0.0.1", "ecn")
        terminal.read_until("Password of admin")
        terminal.wait_for_hidden_input()
        # While the other end is open, the terminal's state can be read.
        keeper = os.open(os.readlink(f"/proc/{terminal.process}/fd/0"), os.O_RDWR | os.O_NOCTTY)
        os.kill(terminal.process, signal.SIGTERM)
        _, status = os.waitpid(terminal.process, 0)
        self.assertEqual(os.waitstatus_to_exitcode(status), -signal.SIGTERM)
        self.assertTrue(terminal.shows_what_is_typed())
        os.close(keeper)
        os.close(terminal.master)

    def test_the_password_can_be_asked_for_whatever_else_is_there(self):
        with sandbox("--user", "admin", "--password", "geheim") as url:
            terminal = Terminal(
                "-W", "-U", "admin", "ecn",
                environment={"CIM_CLIENT_URL": url, "CIM_CLIENT_PASSWORD": "other"},
            )  # fmt: skip
            terminal.read_until("Password of admin")
            terminal.wait_for_hidden_input()
            terminal.type("geheim\n")
            self.assertEqual(terminal.finish(), 0)

    def test_without_a_terminal_it_is_said_what_to_do(self):
        # A session of its own has no terminal to ask on.
        process = harness.subprocess.run(
            [harness.paths.client, "-U", "admin", "--host", "127.0.0.1", "ecn"],
            capture_output=True, check=False, encoding="utf-8",
            env=harness.clean_environment(), start_new_session=True, timeout=harness.PATIENCE,
        )  # fmt: skip
        self.assertEqual(process.returncode, 2)
        self.assertIn("there is no terminal to ask on", process.stderr)


class Progress(unittest.TestCase):
    def test_a_long_wait_shows_itself_and_cleans_up(self):
        with sandbox("--fault", "all delay 2500") as url:
            terminal = Terminal("ecn", "CIM_Fan", environment={"CIM_CLIENT_URL": url})
            self.assertEqual(terminal.finish(), 0)
        self.assertIn("waiting for 127.0.0.1", terminal.shown)
        self.assertTrue(terminal.shown.endswith("\x1b[Kcim-client: no classes found\n"))

    def test_a_long_enumeration_counts_what_has_been_read(self):
        path = f"/tmp/cim-client-progress-{os.getpid()}"
        self.addCleanup(os.remove, path)
        with sandbox("--generate", "CIM_Fan=20000", "--fault", "all delay 1000") as url:
            terminal = Terminal(
                "ei", "CIM_Fan", "-p", "DeviceID",
                environment={"CIM_CLIENT_URL": url}, output=path,
            )  # fmt: skip
            self.assertEqual(terminal.finish(), 0)
        counts = [int(n) for n in re.findall(r"reading the answer, (\d+) objects", terminal.shown)]
        self.assertNotEqual(counts, [])
        self.assertEqual(counts, sorted(counts))
        self.assertLessEqual(counts[-1], 20003)
        self.assertTrue(terminal.shown.endswith("\r\x1b[K"), "the line is erased")
        with open(path, encoding="utf-8") as file:
            self.assertNotIn("\x1b", file.read(), "nothing of it goes into the results")


if __name__ == "__main__":
    sys.stdout.flush()
    harness.main()
