"""Receiving indications: sent by hand, and by a sandbox that reports changes."""

import http.client
import json
import signal
import threading
import unittest

import harness
from harness import Program, paths, run, sandbox

ALERT = (
    '<?xml version="1.0" encoding="utf-8"?><CIM CIMVERSION="2.0" DTDVERSION="2.0">'
    '<MESSAGE ID="77" PROTOCOLVERSION="1.0"><SIMPLEEXPREQ>'
    '<EXPMETHODCALL NAME="ExportIndication"><EXPPARAMVALUE NAME="NewIndication">'
    '<INSTANCE CLASSNAME="CIM_AlertIndication"><PROPERTY NAME="Message" TYPE="string">'
    "<VALUE>hot &lt; hotter</VALUE></PROPERTY></INSTANCE></EXPPARAMVALUE></EXPMETHODCALL>"
    "</SIMPLEEXPREQ></MESSAGE></CIM>"
)


class Listener(Program):
    """A client that listens; its results are read when it has ended."""

    def __init__(self, *options):
        super().__init__(
            [paths.client, "listen", "--listen-port", "0", *options], "stderr",
            stdout=harness.subprocess.PIPE,
        )  # fmt: skip

    def end(self):
        """Exit status, output, and what was said on standard error behind the first line."""
        output, errors = self.process.communicate(timeout=harness.PATIENCE)
        return self.process.returncode, output, errors

    def post(self, body, method="POST"):
        """Status and text of the answer to a request."""
        connection = http.client.HTTPConnection("127.0.0.1", self.port, timeout=harness.PATIENCE)
        connection.request(method, "/", body, {"Content-Type": "application/xml"})
        answer = connection.getresponse()
        text = answer.read().decode()
        connection.close()
        return answer.status, text


class ByHand(unittest.TestCase):
    def listener(self, *options):
        listener = Listener(*options)
        self.addCleanup(listener.process.stdout.close)
        self.addCleanup(listener.stream.close)
        self.addCleanup(listener.stop)
        return listener

    def test_indications_are_shown_as_text(self):
        listener = self.listener("--count", "1")
        status, text = listener.post(ALERT)
        self.assertEqual(status, 200)
        self.assertIn('<MESSAGE ID="77"', text)
        self.assertEqual(
            listener.end(), (0, "CIM_AlertIndication\n  Message  hot < hotter\n\n", "")
        )

    def test_indications_are_json_lines(self):
        listener = self.listener("--count", "2", "--output", "json")
        listener.post(ALERT)
        listener.post(ALERT)
        status, output, _ = listener.end()
        self.assertEqual(status, 0)
        lines = [json.loads(line) for line in output.splitlines()]
        self.assertEqual(len(lines), 2)
        self.assertEqual(lines[0]["properties"]["Message"]["value"], "hot < hotter")

    def test_indications_are_xml_as_they_came(self):
        listener = self.listener("--count", "1", "--output", "xml")
        listener.post(ALERT)
        output = listener.end()[1]
        self.assertTrue(output.startswith('<EXPPARAMVALUE NAME="NewIndication"><INSTANCE'), output)
        self.assertIn("hot &lt; hotter", output)

    def test_malformed_requests_are_answered_and_survived(self):
        listener = self.listener("--count", "1")
        self.assertEqual(listener.post("rubbish")[0], 400)
        status, text = listener.post(ALERT.replace("SIMPLEEXPREQ", "SIMPLERSP"))
        self.assertEqual(status, 200)
        self.assertIn('<ERROR CODE="4"', text)
        self.assertEqual(listener.post(None, "GET")[0], 405)
        self.assertEqual(listener.post("x" * 2_000_000)[0], 413)
        listener.post(ALERT)
        status, output, errors = listener.end()
        self.assertEqual(status, 0)
        self.assertIn("hot < hotter", output)
        self.assertEqual(
            errors, "cim-client: 3 requests were refused: they were no indications\n"
        )

    def test_signals_end_it_cleanly(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(number):
                listener = self.listener("--output", "json")
                listener.post(ALERT)
                listener.process.send_signal(number)
                status, output, errors = listener.end()
                self.assertEqual((status, errors), (0, ""))
                self.assertEqual(len(output.splitlines()), 1, "what was accepted is shown")

    def test_many_senders_at_once_lose_nothing(self):
        senders, each = 8, 10
        listener = self.listener("--count", str(senders * each), "--output", "json")
        statuses = []

        def send():
            for _ in range(each):
                statuses.append(listener.post(ALERT)[0])

        threads = [threading.Thread(target=send) for _ in range(senders)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        status, output, _ = listener.end()
        self.assertEqual(statuses, [200] * (senders * each))
        self.assertEqual((status, len(output.splitlines())), (0, senders * each))

    def test_a_port_in_use_is_said(self):
        listener = self.listener()
        outcome = run("listen", "--listen-port", str(listener.port))
        self.assertEqual(outcome.status, 2)
        self.assertIn("Address already in use", outcome.errors)


class FromTheSandbox(unittest.TestCase):
    def test_a_change_arrives_as_an_indication(self):
        listener = Listener("--count", "1", "--output", "json")
        try:
            with sandbox("--indicate", f"http://127.0.0.1:{listener.port}/indications") as url:
                outcome = run("mi", "CIM_Fan.DeviceID=fan1", "DesiredSpeed=1111", url=url)
                self.assertEqual(outcome.status, 0, outcome.errors)
                status, output, _ = listener.end()
        finally:
            listener.stop()
            listener.process.stdout.close()
            listener.stream.close()
        self.assertEqual(status, 0)
        indication = json.loads(output)
        self.assertEqual(indication["class"], "CIM_InstModification")
        source = indication["properties"]["SourceInstance"]["value"]
        self.assertEqual(source["class"], "CIM_Fan")
        self.assertEqual(source["properties"]["DesiredSpeed"]["value"], "1111")


if __name__ == "__main__":
    harness.main()
