#!/usr/bin/env python3
"""The manual pages of section 3: they are as the header says, every exported name has its place in
one, and groff finds no fault in them.

usage: man_pages_test.py PROJECT_FOLDER VERSION
"""
import pathlib
import re
import subprocess
import sys
import unittest

ROOT, VERSION = pathlib.Path(sys.argv[1]), sys.argv[2]
PAGES = sorted((ROOT / "docs/man").glob("*.3"))


class ManPages(unittest.TestCase):
    def test_they_are_as_the_header_says(self):
        done = subprocess.run(
            [sys.executable, "-B", ROOT / "docs/man/make_pages.py", ROOT / "include/cim_client.h",
             VERSION, ROOT / "docs/man", "--check"], capture_output=True, text=True, timeout=60)
        self.assertEqual((0, "", ""), (done.returncode, done.stdout, done.stderr))

    def test_every_exported_name_is_described(self):
        listed = (ROOT / "tests/project/abi/libCIM-Client.so.1.txt").read_text().splitlines()
        exported = {line.split()[0] for line in listed}
        headings = {name for page in PAGES
                    for name in re.findall(r"^\.SS (\w+)", page.read_text(), re.MULTILINE)}
        self.assertGreater(len(exported), 100)
        self.assertEqual(set(), exported - headings)

    def test_every_exported_name_is_in_the_name_section_of_one_page(self):
        listed = (ROOT / "tests/project/abi/libCIM-Client.so.1.txt").read_text().splitlines()
        found = []
        for page in PAGES:
            section = re.search(r"^\.SH NAME\n(.*?) \\- ", page.read_text(),
                                re.DOTALL | re.MULTILINE)[1]
            found += re.split(r",\s+", section)
        for line in listed:
            self.assertEqual(1, found.count(line.split()[0]), line)

    def test_every_type_and_function_of_the_cxx_header_is_described(self):
        header = (ROOT / "include/cim_client.hpp").read_text()
        shown = re.sub(r"/\*\* @cond.*?@endcond \*/|^#define.*?[^\\]$", "", header,
                       flags=re.DOTALL | re.MULTILINE)
        declared = set(re.findall(
            r"^(?:class(?: \[\[nodiscard\]\])?|struct|enum class|using) (\w+)", shown,
            re.MULTILINE))
        declared |= set(re.findall(r"^(?:inline|constexpr|std::|Owner|bool|void)[^(;=]*?(\w+)\(",
                                   shown, re.MULTILINE))
        page = (ROOT / "docs/man/cim_client.hpp.3").read_text()
        headings = set(re.findall(r"^\.SS (\w+)", page, re.MULTILINE))
        self.assertGreater(len(declared), 40)
        self.assertEqual(set(), declared - headings)

    def test_every_operation_of_the_cxx_client_is_described(self):
        page = (ROOT / "docs/man/cim_client.hpp.3").read_text()
        for operation in ("get_class", "enumerate_classes", "enumerate_class_names",
                          "enumerate_instances", "enumerate_instance_names", "get_instance",
                          "associators", "associator_names", "references", "reference_names",
                          "create_instance", "modify_instance", "delete_instance", "invoke",
                          "query"):
            self.assertRegex(page, rf"(?m)^\.B .*\b{operation}\(")

    def test_pages_that_are_named_exist(self):
        names = {page.stem for page in (ROOT / "docs/man").glob("*.[13]")}
        for page in PAGES:
            for name, section in re.findall(r"^\.BR (\S+) \((\d)\)", page.read_text(),
                                            re.MULTILINE):
                self.assertTrue((ROOT / f"docs/man/{name}.{section}").exists(), name)
        self.assertIn("cim_client", names)

    def test_groff_finds_no_fault(self):
        for page in PAGES:
            done = subprocess.run(["groff", "-man", "-ww", "-Tutf8", page], capture_output=True,
                                  text=True, timeout=60)
            self.assertEqual((0, ""), (done.returncode, done.stderr), page.name)
            self.assertNotIn("@", done.stdout)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
