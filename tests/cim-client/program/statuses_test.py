"""Each exit status and the words that go with it, against sandboxes that behave and that do not."""

import contextlib
import json
import os
import tempfile
import time
import unittest

import harness
from harness import run, sandbox


class Statuses(harness.SandboxTest):
    def expect(self, status, text, *arguments, **options):
        outcome = self.run_client(*arguments, **options)
        self.assertEqual(outcome.status, status, (arguments, outcome.errors))
        self.assertIn(text, outcome.errors)
        self.assertEqual(outcome.output, "", arguments)

    def test_0_success(self):
        outcome = self.run_client("ecn")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))

    def test_1_an_error_of_the_object_manager(self):
        self.expect(1, "cim-client: CIM error 5 CIM_ERR_INVALID_CLASS: ", "ei", "CIM_Nope")
        self.expect(1, "cim-client: CIM error 6 CIM_ERR_NOT_FOUND: ", "gi", "CIM_Fan.DeviceID=no")
        self.expect(1, "CIM error 3 CIM_ERR_INVALID_NAMESPACE: ", "-n", "root/none", "ecn")
        self.expect(1, "CIM error 1 CIM_ERR_FAILED: ", "cm",
                    'CIM_ComputerSystem.CreationClassName="CIM_ComputerSystem",Name="server1"',
                    "Reboot", "Delay=0")  # fmt: skip
        self.expect(1, "CIM error 11 CIM_ERR_ALREADY_EXISTS: ", "ci", "CIM_Fan", "DeviceID=fan1")
        self.expect(1, "CIM error 15 CIM_ERR_INVALID_QUERY: ", "xq", "SELECT FROM WHERE")
        self.expect(1, "CIM_ERR_QUERY_LANGUAGE_NOT_SUPPORTED: ", "xq", "--language", "SQL", "x")

    def test_2_usage(self):
        self.expect(2, "a command is missing")
        self.expect(2, 'there is no command "frobnicate"', "frobnicate")
        self.expect(2, "CLASS is required", "gc")
        self.expect(2, "not an object path: CIM_Fan.DeviceID=\"x", "gi", 'CIM_Fan.DeviceID="x')
        self.expect(2, "is no port", "--port", "70000", "ecn")
        self.expect(2, "is not UTF-8", "gi", "CIM_Fan.DeviceID=caf\udce9")

    def test_3_no_connection(self):
        self.expect(3, "failed: Connection refused", "--port", "1", "ecn")

    def test_3_no_such_host(self):
        self.expect(3, "no IPv4 address is known for host no-such-host.invalid: ",
                    "--host", "no-such-host.invalid", "ecn")  # fmt: skip

    def test_output_that_cannot_be_written_is_said(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            process = harness.subprocess.run(
                [harness.paths.client, "ecn"],
                check=False,
                encoding="utf-8",
                env=harness.clean_environment(CIM_CLIENT_URL=self.url),
                stderr=harness.subprocess.PIPE,
                stdout=full,
                timeout=harness.PATIENCE,
            )
        self.assertEqual(process.returncode, 2)
        self.assertIn("cannot write to standard output: No space left on device", process.stderr)


class Authorisation(harness.SandboxTest):
    sandbox_options = ("--user", "admin", "--password", "geheim")

    def test_4_without_a_user(self):
        outcome = self.run_client("ecn")
        self.assertEqual(outcome.status, 4)
        self.assertIn("refused the user name or the password", outcome.errors)

    def test_4_for_every_operation(self):
        fan = "CIM_Fan.DeviceID=fan1"
        for arguments in (
            ("gc", "CIM_Fan"), ("ec",), ("ecn",), ("ei", "CIM_Fan"), ("ein", "CIM_Fan"),
            ("gi", fan), ("ci", "CIM_Fan"), ("mi", fan, "Caption=x"), ("di", fan), ("ai", fan),
            ("ain", fan), ("ri", fan), ("rin", fan), ("xq", "SELECT * FROM CIM_Fan"),
            ("cm", fan, "Stop"), ("graph", fan), ("doctor",),
        ):  # fmt: skip
            with self.subTest(arguments):
                self.assertEqual(self.run_client(*arguments).status, 4)

    def test_a_password_from_the_environment_a_file_and_standard_input(self):
        self.succeed("-U", "admin", "ecn", environment={"CIM_CLIENT_PASSWORD": "geheim"})
        with tempfile.NamedTemporaryFile("w", encoding="utf-8") as file:
            file.write("geheim\n")
            file.flush()
            self.succeed("-U", "admin", "--password-file", file.name, "ecn")
            self.succeed(
                "ecn",
                environment={"CIM_CLIENT_USER": "admin", "CIM_CLIENT_PASSWORD_FILE": file.name},
            )
        self.succeed("-U", "admin", "--password-file", "-", "ecn", stdin="geheim\n")

    def test_a_wrong_password_is_4_and_is_never_shown(self):
        outcome = self.run_client(
            "-v", "-U", "admin", "ecn", environment={"CIM_CLIENT_PASSWORD": "verkehrt"}
        )
        self.assertEqual(outcome.status, 4)
        shown = outcome.output + outcome.errors
        for text in ("verkehrt", "YWRtaW46dmVya2VocnQ="):  # plain, and base64 of admin:verkehrt
            self.assertNotIn(text, shown)

    def test_the_doctor_names_the_step(self):
        outcome = self.run_client("doctor", "-o", "json")
        steps = {step["step"]: step for step in map(json.loads, outcome.output.splitlines())}
        self.assertEqual(steps["HTTP answer"]["result"], "ok")
        self.assertEqual(steps["authentication"]["result"], "failed")
        self.assertEqual(steps["authentication"]["advice"], "Name one with --user.")
        self.assertEqual(steps["class"]["result"], "skipped")


@contextlib.contextmanager
def faulty(fault):
    """A sandbox that misbehaves on every request."""
    with sandbox("--fault", f"all {fault}") as url:
        yield url


class Faults(unittest.TestCase):
    def failing_step(self, url):
        """The step at which the doctor stops, and the status of that."""
        outcome = run("doctor", "-o", "json", "-t", "3", url=url)
        steps = [json.loads(line) for line in outcome.output.splitlines()]
        failed = [step for step in steps if step["result"] == "failed"]
        self.assertEqual(len(failed), 1, steps)
        return outcome.status, failed[0]

    def test_head_and_body_apart_are_recognised(self):
        with faulty("split 300") as url:
            outcome = run("ein", "CIM_Fan", url=url)
            self.assertEqual(outcome.status, 3)
            self.assertIn("sends head and body of its answer apart", outcome.errors)
            status, step = self.failing_step(url)
            self.assertEqual((status, step["step"]), (3, "HTTP answer"))
            self.assertTrue(step["text"].startswith("head and body arrive apart: "), step)
            self.assertIn("head and the beginning of the body from one read", step["advice"])

    def test_silence_ends_with_the_time_out(self):
        with faulty("silent") as url:
            begin = time.monotonic()
            outcome = run("ecn", "--timeout", "1", url=url)
            self.assertEqual(outcome.status, 3)
            self.assertIn("within 1 s (see --timeout)", outcome.errors)
            self.assertLess(time.monotonic() - begin, 20)
            status, step = self.failing_step(url)
            self.assertEqual((status, step["step"]), (3, "HTTP answer"))
            self.assertIn("nothing came back in time", step["text"])

    def test_a_time_out_may_come_from_the_environment(self):
        with faulty("silent") as url:
            outcome = run("ecn", url=url, environment={"CIM_CLIENT_TIMEOUT": "1"})
            self.assertIn("within 1 s", outcome.errors)

    def test_a_dropped_connection_is_no_answer(self):
        with faulty("drop") as url:
            for arguments in (
                ("ecn",), ("di", "CIM_Fan.DeviceID=fan1"), ("cm", "Sandbox_EveryType", "Identify"),
            ):  # fmt: skip
                outcome = run(*arguments, url=url)
                self.assertEqual(outcome.status, 3, arguments)
                self.assertIn("closed the connection without an answer", outcome.errors)
            status, step = self.failing_step(url)
            self.assertEqual((status, step["step"]), (3, "HTTP answer"))

    def test_a_lost_answer_to_a_change_is_not_taken_for_success(self):
        with sandbox("--fault", "operation DeleteInstance drop") as url:
            outcome = run("di", "CIM_Fan.DeviceID=fan1", url=url)
            self.assertEqual(outcome.status, 3)
            self.assertIn("was lost, cut short or is no CIM-XML response", outcome.errors)

    def test_http_errors_are_named(self):
        with faulty("status 500") as url:
            outcome = run("ecn", url=url)
            self.assertEqual(outcome.status, 3)
            self.assertIn('answered "HTTP/1.1 500', outcome.errors)
            status, step = self.failing_step(url)
            self.assertEqual((status, step["step"]), (3, "HTTP answer"))
            self.assertIn("500", step["text"])

    def test_malformed_answers_are_no_answers(self):
        with faulty("malformed") as url:
            outcome = run("ecn", url=url)
            self.assertEqual((outcome.status, outcome.output), (3, ""))
            status, step = self.failing_step(url)
            self.assertEqual((status, step["step"]), (3, "HTTP answer"))
            self.assertIn("cut short or is no CIM-XML response", step["text"])

    def test_an_answer_without_length_is_named(self):
        with faulty("no-length") as url:
            outcome = run("ecn", url=url)
            self.assertEqual(outcome.status, 3)
            self.assertIn("without a Content-Length", outcome.errors)

    def test_a_cut_answer_is_no_answer(self):
        with faulty("close-at 400") as url:
            outcome = run("ei", "CIM_Fan", "-t", "5", url=url)
            self.assertEqual((outcome.status, outcome.output), (3, ""))

    def test_every_cim_error_has_its_name(self):
        for code, name in ((2, "ACCESS_DENIED"), (7, "NOT_SUPPORTED"), (17, "METHOD_NOT_FOUND")):
            with faulty(f"error {code}") as url:
                outcome = run("ecn", url=url)
                self.assertEqual(outcome.status, 1)
                self.assertIn(f"CIM error {code} CIM_ERR_{name}", outcome.errors)

    def test_a_slow_answer_is_waited_for(self):
        with faulty("delay 1500") as url:
            outcome = run("ecn", url=url)
            self.assertEqual((outcome.status, outcome.errors), (0, ""), "no progress in a pipe")

    def test_a_large_answer_comes_whole(self):
        with sandbox("--generate", "CIM_Fan=3000") as url:
            outcome = run("ein", "CIM_Fan", url=url)
            self.assertEqual(outcome.status, 0)
            self.assertEqual(len(outcome.output.splitlines()), 3003)


class Elsewhere(unittest.TestCase):
    def test_a_port_of_another_service_is_recognised(self):
        import socket
        import threading

        listener = socket.create_server(("127.0.0.1", 0))
        self.addCleanup(listener.close)

        def greet():
            with contextlib.suppress(OSError):
                while True:
                    connection, _ = listener.accept()
                    connection.sendall(b"SSH-2.0-OpenSSH_9.2\r\n")
                    connection.recv(65536)
                    connection.close()

        threading.Thread(target=greet, daemon=True).start()
        url = f"http://127.0.0.1:{listener.getsockname()[1]}"
        outcome = run("doctor", url=url)
        self.assertEqual(outcome.status, 3)
        self.assertIn("what came is no HTTP: SSH-2.0-OpenSSH_9.2", outcome.output)

    def test_graphviz_may_be_missing(self):
        with sandbox() as url:
            outcome = run(
                "graph", "CIM_Fan.DeviceID=fan1", "--svg", os.devnull,
                url=url, environment={"PATH": "/nowhere"},
            )  # fmt: skip
        self.assertEqual(outcome.status, 2)
        self.assertIn("needs the program 'dot' of Graphviz", outcome.errors)


if __name__ == "__main__":
    harness.main()
