#!/usr/bin/env python3
"""Other projects build with the installed client and with its sources, and run.

usage: projects_test.py CMAKE SOURCE_FOLDER BUILD_FOLDER WORK_FOLDER LIBDIR VERSION [TEST...]

Installs the build into WORK_FOLDER/prefix, which is made anew.  LIBDIR is the folder of the
libraries under the prefix.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "project"))
from sandbox import sandbox  # noqa: E402 (the folder is known only now)

CMAKE = sys.argv[1]
SOURCE, BUILD, WORK = map(pathlib.Path, sys.argv[2:5])
LIBDIR, VERSION = sys.argv[5:7]
PREFIX = WORK / "prefix"
LIBRARIES = PREFIX / LIBDIR

# Linkers would find libraries through LD_LIBRARY_PATH, which installed programs need.
BUILDING = {**os.environ, "PKG_CONFIG_PATH": str(LIBRARIES / "pkgconfig"),
            "CMAKE_PREFIX_PATH": str(PREFIX), "CMAKE_BUILD_PARALLEL_LEVEL": "2"}
BUILDING.pop("LD_LIBRARY_PATH", None)
RUNNING = {**BUILDING, "LD_LIBRARY_PATH": str(LIBRARIES)}

# The sample model's fans.
NAMES = "Front fan left\nFront fan right\nSpare fan\n"


def run(*command, environment=BUILDING):
    """The output of a command, which must succeed."""
    result = subprocess.run([str(word) for word in command], env=environment, text=True,
                            capture_output=True, timeout=600)
    if result.returncode != 0:
        raise AssertionError(f"{command}: {result.returncode}\n{result.stdout}{result.stderr}")
    return result.stdout


def setUpModule():
    shutil.rmtree(WORK, ignore_errors=True)
    WORK.mkdir(parents=True)
    run(CMAKE, "--install", BUILD, "--prefix", PREFIX)


def configure_and_build(project, name, *options):
    build = WORK / name
    run(CMAKE, "-S", HERE / project, "-B", build, "-G", "Ninja", *options)
    run(CMAKE, "--build", build)
    return build


class Projects(unittest.TestCase):
    def check_fans(self, program, environment=RUNNING):
        with sandbox(PREFIX / "bin/cim-sandbox") as port:
            self.assertEqual(NAMES, run(program, port, environment=environment))

    def check_fan_keys(self, program, environment=RUNNING):
        with sandbox(PREFIX / "bin/cim-sandbox") as port:
            *keys, word = run(program, port, environment=environment).splitlines()
        self.assertEqual("word", word)
        self.assertEqual(["deviceid=fan1", "deviceid=fan2", "deviceid=fan3"],
                         [key.lower() for key in keys])

    def pkg_config(self, *options):
        return run("pkg-config", *options, "cim-client").split()

    def test_installed_by_pkg_config(self):
        self.assertEqual(VERSION, run("pkg-config", "--modversion", "cim-client").strip())
        flags = self.pkg_config("--cflags", "--libs")
        run("gcc", "-std=c99", HERE / "c_project/fans.c", "-o", WORK / "fans", *flags)
        self.check_fans(WORK / "fans")
        run("g++", "-std=c++17", HERE / "cxx_project/fan_keys.cpp", "-o", WORK / "fan_keys",
            *flags, "-lXMLParser", "-lrtlog")
        self.check_fan_keys(WORK / "fan_keys")

    def test_installed_by_find_package(self):
        fans = configure_and_build("c_project", "c_found") / "fans"
        self.check_fans(fans)
        self.check_fan_keys(configure_and_build("cxx_project", "cxx_found") / "fan_keys")

    def test_a_moved_prefix_is_found_by_both(self):
        moved = WORK / "moved"
        shutil.copytree(PREFIX, moved, symlinks=True)
        include = run("pkg-config", "--variable=includedir", "cim-client", environment={
            **BUILDING, "PKG_CONFIG_PATH": str(moved / LIBDIR / "pkgconfig")}).strip()
        self.assertEqual((moved / "include").resolve(), pathlib.Path(include).resolve())
        build = configure_and_build("c_project", "c_moved", f"-DCMAKE_PREFIX_PATH={moved}")
        self.assertIn(f"CIMClient_DIR:PATH={moved}", (build / "CMakeCache.txt").read_text())

    def test_the_sources_by_add_subdirectory(self):
        build = configure_and_build("vendored_project", "vendored",
                                    f"-DCIM_CLIENT_SOURCE={SOURCE}", "-DCMAKE_CXX_FLAGS=-O0")
        # A build tree knows where its libraries lie.
        self.check_fans(build / "c_project/fans", BUILDING)
        self.check_fan_keys(build / "cxx_project/fan_keys", BUILDING)
        self.check_fans(build / "c_project/fans_static", BUILDING)
        needed = run("readelf", "-d", build / "c_project/fans_static")
        self.assertNotIn("libCIM-Client", needed)
        # Tools and tests are not what somebody else's project wants to build.
        targets = run(CMAKE, "--build", build, "--target", "help")
        self.assertNotRegex(targets, r"cim-sandbox|_test\b")

    def test_the_sources_by_fetch_content(self):
        build = WORK / "fetched"
        run(CMAKE, "-S", HERE / "vendored_project", "-B", build, "-G", "Ninja", "-DFETCH=ON",
            f"-DCIM_CLIENT_SOURCE={SOURCE}")
        self.assertIn("fan_keys", run(CMAKE, "--build", build, "--target", "help"))


class InstalledFiles(unittest.TestCase):
    def test_everything_lies_in_the_gnu_folders(self):
        libraries = [f"{LIBDIR}/lib{name}.so{suffix}" for name in ("CIM-Client", "XMLParser", "rtlog")
                     for suffix in ("", ".1", "." + VERSION)]
        missing = [name for name in (
            *libraries, "include/cim_client.h", "include/XMLParser.h", "include/rtlog.h",
            f"{LIBDIR}/pkgconfig/cim-client.pc", f"{LIBDIR}/cmake/CIMClient/CIMClientConfig.cmake",
            f"{LIBDIR}/cim-sandbox-local/libcimcClientSfcbLocal.so",
            "bin/cim-client", "bin/cim-sandbox", "share/man/man1/cim-client.1",
            "share/man/man1/cim-sandbox.1", "share/bash-completion/completions/cim-client",
            "share/zsh/site-functions/_cim-client", "share/cim-sandbox/elements.mof",
        ) if not (PREFIX / name).exists()]
        self.assertEqual([], missing)

    def test_every_header_of_the_source_tree_is_installed(self):
        headers = {path.name for path in (SOURCE / "include").glob("*.h*")}
        self.assertLessEqual(headers, {path.name for path in (PREFIX / "include").iterdir()})

    def test_nothing_says_where_its_libraries_lie(self):
        binaries = [*LIBRARIES.glob("*.so.*"), *(PREFIX / "bin").iterdir(),
                    LIBRARIES / "cim-sandbox-local/libcimcClientSfcbLocal.so"]
        self.assertGreater(len(binaries), 5)
        for binary in binaries:
            self.assertIsNone(re.search("RPATH|RUNPATH", run("readelf", "-d", binary)), binary)

    def test_no_path_of_the_build_is_left_in_a_text(self):
        for path in [*LIBRARIES.rglob("*.cmake"), *LIBRARIES.rglob("*.pc")]:
            text = path.read_text()
            self.assertNotIn(str(SOURCE), text, path)
            self.assertNotIn(str(BUILD), text, path)

    def test_the_installed_client_runs(self):
        with sandbox(PREFIX / "bin/cim-sandbox") as port:
            self.assertIn("Front fan left", run(
                PREFIX / "bin/cim-client", "--url", f"http://127.0.0.1:{port}/root/cimv2",
                "enumerate-instances", "CIM_Fan", environment=RUNNING))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[7:]])
