#!/usr/bin/env python3
"""A device's own librtlog.so.1 takes the place of ours: it gets the library's calls.

usage: replaced_logger.py CIM_CLIENT CIM_SANDBOX FOLDER_OF_THE_OTHER_LOGGER
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from sandbox import sandbox

CLIENT, SANDBOX, OTHER_LOGGER = sys.argv[1:4]


def calls_of_a_request(**environment):
    """The calls that one request makes to the recording logger; a list of fields for each."""
    with tempfile.TemporaryDirectory() as folder, sandbox(SANDBOX) as port:
        record = pathlib.Path(folder) / "calls"
        record.touch()
        subprocess.run([CLIENT, "--url", f"http://127.0.0.1:{port}/root/cimv2",
                        "enumerate-instance-names", "CIM_Fan"],
                       check=True, capture_output=True, timeout=60,
                       env={**os.environ, "RECORDED_LOG": str(record), **environment})
        return [line.split("\t") for line in record.read_text().splitlines()]


class ReplacedLogger(unittest.TestCase):
    def test_the_other_logger_gets_request_and_answer(self):
        calls = calls_of_a_request(LD_LIBRARY_PATH=OTHER_LOGGER)
        lines = [call for call in calls if call[0] == "_rt_log"]
        self.assertIn(["rt_log_init"], calls)
        self.assertEqual({("CIMCLIENT", "network")}, {(line[3], line[4]) for line in lines})
        self.assertTrue(any('<IMETHODCALL NAME="EnumerateInstanceNames">' in line[7]
                            for line in lines))
        self.assertTrue(any("<INSTANCENAME CLASSNAME=\"CIM_Fan\">" in line[7] for line in lines))

    def test_without_it_nothing_is_recorded(self):
        self.assertEqual([], calls_of_a_request())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
