#!/usr/bin/env python3
"""The programs of a documentation page compile as shown there and print what is shown there.

usage: page.py PAGE SOURCE_FOLDER BUILD_FOLDER CIM_SANDBOX

The page's code blocks are taken in their order, in a folder that has the project's `include`
and `build/run`:

  c, cpp, xml  a file; its first line is a comment that begins with its name and a colon
  sh           commands that succeed and say nothing
  console      commands behind "$ ", each with what it prints, run with the sandbox listening;
               5988 stands for its port
  others       are shown only

An XML file is written without its first line, which must not stand before the XML declaration.
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "project"))
from sandbox import sandbox  # noqa: E402: the folder of the test's helper comes first

PAGE, SOURCE, BUILD, SANDBOX = map(pathlib.Path, sys.argv[1:5])
FILE_NAME = re.compile(r"\A(?:/\*|//|<!--) (\S+\.(?:c|cpp|xml)): ")


def blocks(text):
    """The code blocks of a page: language and content."""
    return re.findall(r"^```(\w+)\n(.*?)^```$", text, re.DOTALL | re.MULTILINE)


def commands(console):
    """The commands of a console block, each with what it prints."""
    return re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", console, re.MULTILINE)


class Page(unittest.TestCase):
    maxDiff = None

    def run_shell(self, command, folder):
        return subprocess.run(["bash", "-c", command], cwd=folder, text=True, timeout=120,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def write_file(self, language, content, folder):
        name = FILE_NAME.match(content)
        self.assertTrue(name, f"no file name in {content[:60]!r}")
        if language == "xml":
            content = content.split("\n", 1)[1]
        (folder / name[1]).write_text(content)
        return name[1]

    def test_programs_compile_and_print_what_is_shown(self):
        written, used, ran = set(), "", 0
        with tempfile.TemporaryDirectory() as name, sandbox(SANDBOX) as port:
            folder = pathlib.Path(name)
            (folder / "include").symlink_to(SOURCE / "include")
            (folder / "build").mkdir()
            (folder / "build/run").symlink_to(BUILD)
            for language, content in blocks(PAGE.read_text()):
                if language in ("c", "cpp", "xml"):
                    written.add(self.write_file(language, content, folder))
                elif language == "sh":
                    done = self.run_shell(content, folder)
                    self.assertEqual((0, ""), (done.returncode, done.stdout), content)
                    used += content
                elif language == "console":
                    for command, output in commands(content):
                        done = self.run_shell(command.replace("5988", str(port)), folder)
                        self.assertEqual(output, done.stdout, command)
                        used, ran = used + command, ran + 1
        self.assertTrue(ran, "the page runs nothing")
        self.assertEqual([], [name for name in sorted(written) if name not in used])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
