#!/usr/bin/env python3
"""What SECURITY.md tells applications to do works as it stands there: the TLS forwarders, with the
limits to their waiting, and the limit that a program puts around its own operations.

usage: security_test.py PROJECT_FOLDER BUILD_FOLDER CIM_SANDBOX CIM_CLIENT
"""
import contextlib
import pathlib
import re
import socket
import ssl
import subprocess
import sys
import tempfile
import threading
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "project"))
from sandbox import sandbox  # noqa: E402: the folder of the test's helper comes first

ROOT, BUILD, SANDBOX, CLIENT = map(pathlib.Path, sys.argv[1:5])
HOST = "objectmanager.example"

# What stands around the snippet; the argument is the port to ask.
PROGRAM = """
#include <arpa/inet.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cim_client.h"

static uint32_t port;

static int ask_and_print(void) {
  struct client_Configuration *handle =
      client_Configuration("127.0.0.1", port, "root/cimv2", 0, "user", "password");
  ClassName *className = CIMC_CreateClassName("CIM_Fan");
  Error *error = NULL;
  InstanceName *names = EnumerateInstanceNames(handle, className, &error);
  puts(names ? "answered" : "nothing");
  fflush(stdout);
  Free_InstanceName(names);
  Free_Error(error);
  Free_ClassName(className);
  Free_client_Configuration(handle);
  return 0;
}

int main(int count, char *arguments[]) {
  port = count > 1 ? (uint32_t)atoi(arguments[1]) : 0;
  SNIPPET
  return 0;
}
"""


def block(language, number=0):
    """A code block of the page."""
    found = re.findall(rf"^```{language}\n(.*?)^```$", (ROOT / "SECURITY.md").read_text(),
                       re.DOTALL | re.MULTILINE)
    return found[number]


def unused_port():
    with socket.create_server(("127.0.0.1", 0)) as listener:
        return listener.getsockname()[1]


def make_certificate(folder, name):
    """A key and a certificate that vouches for itself; their files."""
    key, certificate = folder / f"{name}.key", folder / f"{name}.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt",
                    "ec_paramgen_curve:prime256v1", "-nodes", "-days", "2", "-subj", f"/CN={name}",
                    "-addext", f"subjectAltName=DNS:{name}", "-keyout", key, "-out", certificate],
                   check=True, capture_output=True, timeout=60)
    return key, certificate


def carry(source, target):
    """Hands bytes on until the source ends."""
    with contextlib.suppress(OSError):
        while data := source.recv(65536):
            target.sendall(data)
    with contextlib.suppress(OSError):
        target.shutdown(socket.SHUT_WR)


@contextlib.contextmanager
def tls_port(key, certificate, behind):
    """A port that speaks TLS in front of another one, or never answers where that is None."""
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    context.load_cert_chain(certificate, key)
    listener = socket.create_server(("127.0.0.1", 0))
    open_sockets = [listener]

    def serve(plain):
        with contextlib.suppress(OSError):
            outer = context.wrap_socket(plain, server_side=True)
            open_sockets.append(outer)
            if behind is None:
                return
            inner = socket.create_connection(("127.0.0.1", behind))
            open_sockets.append(inner)
            back = threading.Thread(target=carry, args=(inner, outer), daemon=True)
            back.start()
            carry(outer, inner)
            back.join()
            outer.close()

    def accept():
        with contextlib.suppress(OSError):
            while True:
                threading.Thread(target=serve, args=(listener.accept()[0],), daemon=True).start()

    threading.Thread(target=accept, daemon=True).start()
    try:
        yield listener.getsockname()[1]
    finally:
        for used in open_sockets:
            used.close()


@contextlib.contextmanager
def silent_port():
    """A port that takes connections and says nothing."""
    with socket.create_server(("127.0.0.1", 0)) as listener:
        yield listener.getsockname()[1]


@contextlib.contextmanager
def forwarder(command, port):
    """Runs a forwarder until the end, once it listens."""
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                               text=True)
    try:
        for _ in range(200):
            # Connecting would count as a connection: the kernel's table tells who listens.
            if f":{port:04X} 00000000:0000 0A" in pathlib.Path("/proc/net/tcp").read_text():
                break
            if process.poll() is not None:
                raise RuntimeError(f"{command}: {process.stderr.read()}")
            time.sleep(0.05)
        yield
    finally:
        process.terminate()
        process.communicate(timeout=20)


class Security(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def stunnel(self, target, certificate, host=HOST):
        """The page's forwarder, with the ports, the host and the authority of this test."""
        port = unused_port()
        text = block("ini")
        for before, after in (("127.0.0.1:5988", f"127.0.0.1:{port}"),
                              ("server.example:5989", f"127.0.0.1:{target}"),
                              ("/etc/ssl/certs/ca-certificates.crt", str(certificate)),
                              ("checkHost = server.example", f"checkHost = {host}")):
            self.assertIn(before, text)
            text = text.replace(before, after)
        file = self.folder / "cim.conf"
        file.write_text(text)
        return port, ["stunnel4", str(file)]

    def socat(self, number, target, certificate, host=HOST):
        """A forwarder of one line; the page leaves the second one's last options out."""
        port = unused_port()
        text = block("sh", number).replace("\\\n", " ").replace(
            ",...", ",verify=1,cafile=/etc/ssl/certs/ca-certificates.crt")
        for before, after in (("TCP-LISTEN:5988", f"TCP-LISTEN:{port}"),
                              ("server.example:5989", f"127.0.0.1:{target},commonname={host}"),
                              ("/etc/ssl/certs/ca-certificates.crt", str(certificate))):
            self.assertIn(before, text)
            text = text.replace(before, after)
        return port, text.split()

    def ask(self, port):
        """What the client lists through a port: status and fans."""
        done = subprocess.run(
            [CLIENT, "--host", "127.0.0.1", "--port", str(port), "--backend", "xml",
             "enumerate-instance-names", "CIM_Fan"],
            capture_output=True, text=True, timeout=120, env={"HOME": str(self.folder)})
        return done.returncode, done.stdout

    def through(self, make, server):
        """What the client gets directly, and through the forwarder that make() gives; `server` is
        the key and the certificate of the object manager."""
        with sandbox(SANDBOX) as plain, tls_port(*server, plain) as target:
            port, command = make(target)
            with forwarder(command, port):
                return self.ask(plain), self.ask(port)

    def test_stunnel_carries_an_operation(self):
        server = make_certificate(self.folder, HOST)
        direct, carried = self.through(lambda target: self.stunnel(target, server[1]), server)
        self.assertIn("CIM_Fan", direct[1])
        self.assertEqual(direct, carried)

    def test_stunnel_carries_nothing_to_a_server_of_another_name(self):
        server = make_certificate(self.folder, HOST)
        _, carried = self.through(
            lambda target: self.stunnel(target, server[1], "other.example"), server)
        self.assertNotEqual(0, carried[0])

    def test_stunnel_carries_nothing_to_a_server_that_nobody_vouches_for(self):
        server = make_certificate(self.folder, HOST)
        other = make_certificate(self.folder, "other.example")
        _, carried = self.through(lambda target: self.stunnel(target, other[1]), server)
        self.assertNotEqual(0, carried[0])

    def test_socat_carries_an_operation(self):
        server = make_certificate(self.folder, HOST)
        direct, carried = self.through(lambda target: self.socat(0, target, server[1]), server)
        self.assertEqual(direct, carried)

    def test_socat_carries_nothing_to_a_server_of_another_name(self):
        server = make_certificate(self.folder, HOST)
        _, carried = self.through(
            lambda target: self.socat(0, target, server[1], "other.example"), server)
        self.assertNotEqual(0, carried[0])

    def test_socat_carries_nothing_to_a_server_that_nobody_vouches_for(self):
        server = make_certificate(self.folder, HOST)
        other = make_certificate(self.folder, "other.example")
        _, carried = self.through(lambda target: self.socat(0, target, other[1]), server)
        self.assertNotEqual(0, carried[0])

    def seconds_to_give_up(self, make):
        """How long the client waits for an object manager that is silent behind a forwarder."""
        key, certificate = make_certificate(self.folder, HOST)
        with tls_port(key, certificate, None) as target:
            port, command = make(target, certificate)
            with forwarder(command, port):
                start = time.monotonic()
                status, _ = self.ask(port)
                self.assertNotEqual(0, status)
                return time.monotonic() - start

    def test_socat_ends_a_connection_that_stays_silent(self):
        def make(target, certificate):
            port, command = self.socat(1, target, certificate)
            command[command.index("30")] = "2"
            return port, command
        self.assertTrue(1 < self.seconds_to_give_up(make) < 30)

    def test_stunnel_ends_a_connection_that_stays_silent(self):
        self.assertIn("`TIMEOUTidle = 30`", (ROOT / "SECURITY.md").read_text())

        def make(target, certificate):
            port, command = self.stunnel(target, certificate)
            with open(command[1], "a") as file:
                file.write("TIMEOUTidle = 2\n")
            return port, command
        self.assertTrue(1 < self.seconds_to_give_up(make) < 30)

    def run_snippet(self, port):
        """What the page's snippet prints in a program, with two seconds for thirty."""
        snippet = block("c", 1)
        self.assertEqual(2, snippet.count("30"), "the alarm and the message")
        file = self.folder / "limit.c"
        file.write_text(PROGRAM.replace("SNIPPET", snippet.replace("alarm(30)", "alarm(2)")))
        program = self.folder / "limit"
        subprocess.run(["gcc", "-std=gnu99", "-Wall", "-Wextra", "-Werror", "-o", program, file,
                        "-I", ROOT / "include", "-L", BUILD / "src", "-lCIM-Client",
                        f"-Wl,-rpath,{BUILD / 'src'}"], check=True, timeout=120)
        return subprocess.run([program, str(port)], capture_output=True, text=True,
                              timeout=60).stdout

    def test_a_program_ends_an_operation_that_takes_too_long(self):
        with silent_port() as port:
            self.assertEqual("no answer within 30 seconds\n", self.run_snippet(port))

    def test_a_program_keeps_an_answer_that_comes_in_time(self):
        with sandbox(SANDBOX) as port:
            self.assertEqual("answered\n", self.run_snippet(port))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
