"""Starts a sandbox object manager for a test."""
import contextlib
import re
import subprocess


@contextlib.contextmanager
def sandbox(program):
    """Runs the sandbox with its sample model on a free loopback port; gives the port."""
    process = subprocess.Popen([program, "--port", "0"], stdout=subprocess.PIPE, text=True)
    try:
        greeting = process.stdout.readline()
        yield int(re.fullmatch(r"listening on 127\.0\.0\.1:(\d+)\n", greeting)[1])
    finally:
        process.terminate()
        status = process.wait(timeout=20)
        process.stdout.close()
    if status != 0:
        raise RuntimeError(f"the sandbox ended with status {status}")
