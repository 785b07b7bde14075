"""Starts the programs for the tests of cim-client as people run it: each test module is called with
--client and --sandbox, the paths of the two programs."""

import argparse
import contextlib
import os
import signal
import subprocess
import sys
import unittest

PATIENCE = 60  # seconds; sanitizers and busy machines are slow

paths = argparse.Namespace()


class Outcome:
    """What a run of the client ended in."""

    def __init__(self, process):
        self.status = process.returncode
        self.output = process.stdout
        self.errors = process.stderr


def clean_environment(**variables):
    """This process's environment without the client's variables, and with the given ones."""
    environment = {
        name: value for name, value in os.environ.items() if not name.startswith("CIM_CLIENT_")
    }
    environment.update(variables)
    return environment


def run(*arguments, url=None, environment=None, stdin=""):
    """Runs the client; `url` goes into its environment."""
    variables = clean_environment(**(environment or {}))
    if url is not None:
        variables["CIM_CLIENT_URL"] = url
    return Outcome(
        subprocess.run(
            [paths.client, *arguments],
            capture_output=True,
            check=False,
            encoding="utf-8",
            env=variables,
            input=stdin,
            timeout=PATIENCE,
        )
    )


class Program:
    """A program that says on its first line where it listens, as "... on 127.0.0.1:PORT"."""

    def __init__(self, arguments, stream, **options):
        self.process = subprocess.Popen(
            arguments, encoding="utf-8", env=clean_environment(), **{stream: subprocess.PIPE}, **options
        )
        self.stream = getattr(self.process, stream)
        line = self.stream.readline()
        if ":" not in line:
            self.stop()
            raise AssertionError(f"{arguments[0]} does not listen: {line!r}")
        self.port = int(line.rsplit(":", 1)[1])

    def stop(self):
        """Ends the program as an interrupt from the keyboard does. Its exit status."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGINT)
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
            raise


@contextlib.contextmanager
def sandbox(*options):
    """A sandbox on a free port; gives its URL."""
    program = Program([paths.sandbox, "--port", "0", *options], "stdout")
    try:
        yield f"http://127.0.0.1:{program.port}"
    finally:
        program.stop()
        program.stream.close()


class SandboxTest(unittest.TestCase):
    """Tests against one sandbox, each with the state that the ones before have left."""

    sandbox_options = ()

    @classmethod
    def setUpClass(cls):
        stack = contextlib.ExitStack()
        cls.addClassCleanup(stack.close)
        cls.url = stack.enter_context(sandbox(*cls.sandbox_options))

    def run_client(self, *arguments, **options):
        """Runs the client against the sandbox."""
        return run(*arguments, url=self.url, **options)

    def succeed(self, *arguments, **options):
        """Runs the client, which must succeed without a word on standard error. Its output."""
        outcome = self.run_client(*arguments, **options)
        self.assertEqual((outcome.status, outcome.errors), (0, ""), arguments)
        return outcome.output


def main(*more):
    """Runs the tests of the calling module. `more` names further arguments: they, too, are paths."""
    parser = argparse.ArgumentParser()
    for name in ("client", "sandbox", *more):
        parser.add_argument(f"--{name}", required=True)
    rest = parser.parse_known_args(namespace=paths)[1]
    unittest.main(module="__main__", argv=[sys.argv[0], *rest])
