#!/usr/bin/env python3
"""Shows that include_directions.py finds the includes that it is there to find."""
import pathlib
import tempfile
import unittest

from include_directions import wrong_includes


def findings(**files):
    """What is wrong in a tree of these files: names with "__" for "/" and "_h" for ".h"."""
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for name, text in files.items():
            path = root / (name.replace("__", "/").removesuffix("_h").removesuffix("_cpp")
                           + (".h" if name.endswith("_h") else ".cpp"))
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text)
        return [f"{path}:{number}: {text}" for path, number, text in wrong_includes(root)]


class IncludeDirections(unittest.TestCase):
    def test_allowed_directions_pass(self):
        self.assertEqual([], findings(
            src__base__memory_h='#include <cstdlib>\n',
            src__model__release_h='#include "base/memory.h"\n#include "cim_client.h"\n',
            src__reader__walk_cpp='#include <vector>\n\n#include "XMLParser.h"\n'))

    def test_model_may_not_include_the_writer(self):
        self.assertEqual(
            ["src/model/release.h:2: includes writer/text.h: src/model may not reach src/writer"],
            findings(src__model__release_h='#pragma once\n#include "writer/text.h"\n',
                     src__writer__text_h=''))

    def test_a_path_with_dots_is_followed(self):
        self.assertEqual(
            ["src/base/memory.h:1: includes ../model/lists.h: src/base may not reach src/model"],
            findings(src__base__memory_h='#include "../model/lists.h"\n', src__model__lists_h=''))

    def test_writer_and_reader_do_not_know_each_other(self):
        self.assertEqual(2, len(findings(
            src__writer__text_h='#include "reader/walk.h"\n',
            src__reader__walk_h='#  include "writer/text.h"\n')))

    def test_local_broker_knows_neither_writer_nor_reader(self):
        self.assertEqual(2, len(findings(
            src__clientapi__loader_cpp='#include "reader/walk.h"\n#include "writer/text.h"\n',
            src__reader__walk_h='', src__writer__text_h='')))

    def test_only_operations_use_the_transport(self):
        tree = {"src__CIMC_SendRequest__headers_h": ""}
        self.assertEqual([], findings(
            src__operations__skeleton_cpp='#include "CIMC_SendRequest/headers.h"\n', **tree))
        self.assertEqual(1, len(findings(
            src__client__handle_cpp='#include "CIMC_SendRequest/headers.h"\n', **tree)))

    def test_only_three_parts_use_platform_headers(self):
        for part, header, count in (("reader", "XMLParser.h", 0), ("clientapi", "rtlog.h", 0),
                                    ("CIMC_SendRequest", "rtlog.h", 0), ("reader", "rtlog.h", 1),
                                    ("operations", "XMLParser.h", 1), ("client", "rtlog.h", 1)):
            with self.subTest(part=part, header=header):
                self.assertEqual(count, len(findings(
                    **{f"src__{part}__some_cpp": f"#include <{header}>\n"})))

    def test_sandbox_shares_nothing_with_the_library(self):
        self.assertEqual(1, len(findings(
            **{"tools__cim-sandbox__main_cpp": '#include "cim_client.h"\n'})))
        self.assertEqual(1, len(findings(
            **{"tools__cim-sandbox__main_cpp": '#include "../../src/writer/text.h"\n',
               "src__writer__text_h": ""})))

    def test_a_missing_file_is_told(self):
        self.assertEqual(["src/base/memory.h:1: includes base/gone.h, which is not there"],
                         findings(src__base__memory_h='#include "base/gone.h"\n'))

    def test_a_folder_without_directions_is_told(self):
        self.assertEqual(1, len(findings(src__extra__some_h="")))


if __name__ == "__main__":
    unittest.main()
