#!/usr/bin/env python3
"""An adapter to another XML library takes the place of our libXMLParser.so.1.

usage: replaced_xml.py CIM_CLIENT CIM_SANDBOX FOLDER_OF_THE_ADAPTER
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from sandbox import sandbox

CLIENT, SANDBOX, ADAPTER = sys.argv[1:4]

# Embedded instances, references, arrays, texts with white space and special characters.
REQUESTS = (
    ("enumerate-instances", "CIM_Fan"),
    ("enumerate-instances", "CIM_ManagedElement"),
    ("enumerate-instance-names", "CIM_ManagedElement"),
    ("get-class", "CIM_Fan"),
    ("enumerate-instances", "CIM_NoSuchClass"),
)


class ReplacedXml(unittest.TestCase):
    def answers(self, **environment):
        """What the client prints for each request, and the root elements that were recorded."""
        with tempfile.TemporaryDirectory() as folder, sandbox(SANDBOX) as port:
            record = pathlib.Path(folder) / "documents"
            record.touch()
            printed = []
            for request in REQUESTS:
                result = subprocess.run(
                    [CLIENT, "--url", f"http://127.0.0.1:{port}/root/cimv2", "--output", "json",
                     *request], capture_output=True, text=True, timeout=60,
                    env={**os.environ, "ADAPTED_XML": str(record), **environment})
                printed.append((result.returncode, result.stdout))
            return printed, record.read_text().split()

    def test_the_client_reads_the_same_through_the_adapter(self):
        expected, unadapted = self.answers()
        actual, adapted = self.answers(LD_LIBRARY_PATH=ADAPTER)
        self.assertEqual(expected, actual)
        self.assertEqual([], unadapted)
        # Embedded instances are documents of their own.
        self.assertEqual({"CIM", "INSTANCE"}, set(adapted))
        self.assertGreaterEqual(len(adapted), len(REQUESTS))
        self.assertIn("Front fan left", expected[0][1])
        self.assertNotEqual(0, expected[-1][0])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
