#!/usr/bin/env python3
"""The README's first program compiles as shown there and prints what is shown there.

usage: readme_program.py SOURCE_FOLDER BUILD_FOLDER CIM_SANDBOX

The README holds, in this order, the program (a block "c"), how to compile it (a block "sh"
that begins with gcc) and how to run it (a block "console": the command behind "$ ", and its
output).
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from sandbox import sandbox

SOURCE, BUILD, SANDBOX = map(pathlib.Path, sys.argv[1:4])


def blocks(language):
    """The README's code blocks in a language."""
    return re.findall(rf"^```{language}\n(.*?)^```$", (SOURCE / "README.md").read_text(),
                      re.DOTALL | re.MULTILINE)


class ReadmeProgram(unittest.TestCase):
    def test_it_compiles_and_runs_as_shown(self):
        program, = blocks("c")
        compilation, = [block for block in blocks("sh") if block.startswith("gcc ")]
        command, output = re.fullmatch(r"\$ (.*?)\n(.*)", blocks("console")[0], re.DOTALL).groups()
        name = re.search(r"\S+\.c\b", compilation)[0]
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            (root / name).write_text(program)
            (root / "include").symlink_to(SOURCE / "include")
            (root / "build").mkdir()
            (root / "build/run").symlink_to(BUILD)
            compiled = subprocess.run(compilation, shell=True, cwd=root, text=True,
                                      capture_output=True, timeout=60)
            self.assertEqual((0, ""), (compiled.returncode, compiled.stderr))
            with sandbox(SANDBOX) as port:
                self.assertTrue(command.endswith(" 5988"), command)
                run = subprocess.run(command.replace("5988", str(port)), shell=True, cwd=root,
                                     text=True, capture_output=True, timeout=60)
            self.assertEqual((0, output, ""), (run.returncode, run.stdout, run.stderr))

    def test_it_is_about_twenty_lines_long(self):
        program, = blocks("c")
        self.assertLessEqual(len(program.splitlines()), 25)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
