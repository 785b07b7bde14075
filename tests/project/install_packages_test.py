#!/usr/bin/env python3
"""Runs packaging/install-packages.sh among stand-ins for dpkg, apt-get, id and sudo."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "packaging/install-packages.sh"
LIST = ("# build\ncmake\ng++\n# test\ngcc-multilib [amd64 i386]\nvalgrind\n"
        "# machines\nqemu-user\n")

# What the script may call besides the stand-ins.
TOOLS = ("awk", "comm", "dirname", "env", "mktemp", "rm", "sed", "sort", "tail", "tr")


class InstallPackages(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.log = self.root / "calls"
        self.log.touch()
        (self.root / "bin").mkdir()
        (self.root / "packaging").mkdir()
        shutil.copy(SCRIPT, self.root / "packaging")
        (self.root / "packaging/debian-packages.txt").write_text(LIST)
        for tool in TOOLS:
            (self.root / "bin" / tool).symlink_to(shutil.which(tool))

    def stand_in(self, name, body):
        path = self.root / "bin" / name
        path.write_text(f'#!/bin/sh\n{body}\n')
        path.chmod(0o755)

    def machine(self, installed, user=0, sudo=True, architecture="amd64", apt_status=0):
        lines = "".join(f"installed {package}\\n" for package in installed)
        self.stand_in("dpkg-query", f"printf '{lines}'")
        self.stand_in("dpkg", f"echo {architecture}")
        self.stand_in("id", f"echo {user}")
        self.stand_in("apt-get", f'echo "apt-get $*" >>{self.log}; echo broken; exit {apt_status}')
        if sudo:
            self.stand_in("sudo", f'echo "sudo $*" >>{self.log}; [ "$1" != --non-interactive ] '
                                  '|| shift; exec "$@"')

    def run_script(self, *sections):
        return subprocess.run([self.root / "packaging/install-packages.sh", *sections],
                              env={"PATH": str(self.root / "bin"), "TMPDIR": str(self.root)},
                              stdin=subprocess.DEVNULL, capture_output=True, text=True)

    def calls(self):
        return self.log.read_text().splitlines()

    def test_nothing_is_called_when_all_is_there(self):
        self.machine(["cmake", "g++", "gcc-multilib", "valgrind"])
        result = self.run_script()
        self.assertEqual((0, "", ""), (result.returncode, result.stdout, result.stderr))
        self.assertEqual([], self.calls())

    def test_root_updates_once_and_installs_what_is_missing(self):
        self.machine(["cmake"])
        self.assertEqual(0, self.run_script().returncode)
        self.assertEqual(["apt-get -qq update", "apt-get -qq -y --no-install-recommends install "
                          "g++ gcc-multilib valgrind"], self.calls())

    def test_a_section_leaves_the_others_alone(self):
        self.machine([])
        self.assertEqual(0, self.run_script("build").returncode)
        self.assertTrue(self.calls()[1].endswith(" install cmake g++"), self.calls())

    def test_sections_beyond_build_and_test_are_installed_when_named(self):
        self.machine([])
        self.assertEqual(0, self.run_script("build", "machines").returncode)
        self.assertTrue(self.calls()[1].endswith(" install cmake g++ qemu-user"), self.calls())

    def test_a_package_of_another_architecture_is_left_out(self):
        self.machine(["cmake", "g++", "valgrind"], architecture="arm64")
        self.assertEqual(0, self.run_script().returncode)
        self.assertEqual([], self.calls())

    def test_an_ordinary_user_goes_through_sudo(self):
        self.machine(["cmake", "g++", "gcc-multilib"], user=1000)
        self.assertEqual(0, self.run_script().returncode)
        self.assertEqual("sudo --non-interactive apt-get -qq update", self.calls()[0])
        self.assertIn("apt-get -qq -y --no-install-recommends install valgrind", self.calls())

    def test_without_sudo_one_line_says_what_is_missing(self):
        self.machine(["cmake"], user=1000, sudo=False)
        result = self.run_script()
        self.assertEqual((1, ""), (result.returncode, result.stdout))
        self.assertEqual("cannot install packages: neither root nor sudo; missing: "
                         "g++ gcc-multilib valgrind\n", result.stderr)

    def test_when_installing_fails_one_line_says_what_is_missing(self):
        self.machine(["cmake", "g++", "gcc-multilib"], apt_status=100)
        result = self.run_script()
        self.assertEqual(1, result.returncode)
        self.assertEqual("cannot update the list of packages (broken); missing: valgrind\n",
                         result.stderr)

    def test_another_system_is_left_to_its_own_packages(self):
        result = self.run_script()
        self.assertEqual((0, 1), (result.returncode, len(result.stderr.splitlines())))


if __name__ == "__main__":
    unittest.main()
