"""The manual pages and the completions know every command and option that --help lists, and no
other."""

import re
import subprocess
import unittest

import harness

# Options that --help shows, at the beginning of a line.
OPTION_LINE = re.compile(r"^  (-\w,)?(--[a-z-]+)")


def text_of(program, *arguments):
    """What a program writes."""
    return subprocess.run(
        [program, *arguments],
        capture_output=True,
        check=True,
        encoding="utf-8",
        env=harness.clean_environment(),
        timeout=harness.PATIENCE,
    ).stdout


def options_in(help_text):
    """The options of a help text, short and long."""
    found = set()
    for line in help_text.splitlines():
        match = OPTION_LINE.match(line)
        if match:
            found.update(name.strip(",") for name in match.groups() if name)
        elif re.match(r"^  -\w ", line):
            found.add(line.split()[0])
    return found


def commands():
    """Long name and alias of every command; the alias may be missing."""
    listed = text_of(harness.paths.client, "--help").split("Commands:\n")[1].split("\n\n")[0]
    lines = [line for line in listed.splitlines() if re.match(r"^  \S", line)]
    return [re.match(r"^  ([a-z-]+)(?:, ([a-z]+))?", line).groups() for line in lines]


def command_words():
    """Every word that is a command."""
    return {word for pair in commands() for word in pair if word}


def command_options(command):
    """The options of a command alone."""
    help_text = text_of(harness.paths.client, command, "--help")
    return options_in(help_text) - {"-h", "--help"}


def global_options():
    """The options that may stand anywhere."""
    return options_in(text_of(harness.paths.client, "--help"))


class ManualPage:
    """A page as people see it."""

    def __init__(self, path):
        self.path = path
        process = subprocess.run(
            ["groff", "-man", "-Tascii", "-ww", "-rLL=200n", "-P-cbou", path],
            capture_output=True, check=True, encoding="utf-8",
        )  # fmt: skip
        self.text = process.stdout
        self.warnings = process.stderr

    def options(self):
        """The options that entries of the page are about."""
        found = set()
        for line in self.text.splitlines():
            if re.match(r"^ {3,10}-", line):
                found.update(re.findall(r"(?<![\w-])--?[a-zA-Z][a-z-]*", line))
        return found


class ClientManual(unittest.TestCase):
    def setUp(self):
        self.page = ManualPage(harness.paths.client_manual)

    def test_it_is_set_without_a_warning(self):
        self.assertEqual(self.page.warnings, "")

    def test_it_describes_every_option(self):
        expected = set(global_options())
        for command, _ in commands():
            expected |= command_options(command)
        self.assertEqual(self.page.options(), expected)

    def test_it_describes_every_command_with_its_alias(self):
        for name, alias in commands():
            with self.subTest(name):
                entry = f"{name}, {alias}" if alias else name
                self.assertRegex(self.page.text, rf"(?m)^ +{re.escape(entry)}\b")

    def test_it_names_every_variable(self):
        with open(harness.paths.client_manual, encoding="utf-8") as file:
            page = file.read()
        for name in re.findall(r"CIM_CLIENT_\w+", text_of(harness.paths.client, "--help")):
            self.assertIn(name, page)


class SandboxManual(unittest.TestCase):
    def setUp(self):
        self.page = ManualPage(harness.paths.sandbox_manual)

    def test_it_is_set_without_a_warning(self):
        self.assertEqual(self.page.warnings, "")

    def test_it_describes_every_option(self):
        self.assertEqual(self.page.options(), options_in(text_of(harness.paths.sandbox, "--help")))


class BashCompletion(unittest.TestCase):
    def offered(self, *words):
        """What is offered for the last word."""
        script = (
            'source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _cim_client;'
            ' printf "%s\\n" "${COMPREPLY[@]}"'
        )
        process = subprocess.run(
            ["bash", "--norc", "-c", script, "bash", harness.paths.bash_completion,
             "cim-client", *words],
            capture_output=True, check=True, encoding="utf-8", timeout=harness.PATIENCE,
        )  # fmt: skip
        self.assertEqual(process.stderr, "")
        return set(process.stdout.split())

    def test_bash_reads_it(self):
        subprocess.run(["bash", "-n", harness.paths.bash_completion], check=True)

    def test_every_command_is_offered(self):
        self.assertEqual(self.offered(""), command_words())

    def test_every_option_of_the_program_is_offered(self):
        self.assertEqual(self.offered("-"), global_options())

    def test_every_option_of_each_command_is_offered(self):
        for name, alias in commands():
            for word in filter(None, (name, alias)):
                with self.subTest(word):
                    expected = command_options(name) | global_options()
                    self.assertEqual(self.offered(word, "-"), expected)

    def test_the_words_that_an_option_takes_are_offered(self):
        self.assertEqual(self.offered("--output", ""), {"text", "json", "xml"})
        self.assertEqual(self.offered("ei", "--layout", ""), {"auto", "table", "blocks"})
        self.assertEqual(self.offered("--backend", ""), {"xml", "local"})

    def test_the_value_of_an_option_is_not_taken_for_the_command(self):
        for option in global_options():
            takes_value = re.search(
                rf"(?m)^  (-\w,)?{option}(,--[a-z-]+)? [A-Z]", text_of(harness.paths.client, "--help")
            )
            if takes_value:
                with self.subTest(option):
                    self.assertIn("get-class", self.offered(option, "value", "get"))


class ZshCompletion(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with open(harness.paths.zsh_completion, encoding="utf-8") as file:
            cls.text = file.read()

    def test_zsh_reads_it(self):
        subprocess.run(["zsh", "-n", harness.paths.zsh_completion], check=True)

    def test_every_command_is_offered(self):
        offered = set(re.findall(r"(?m)^    '([a-z-]+):", self.text))
        self.assertEqual(offered, command_words())

    def offered(self, word):
        """The options that _arguments is given behind a command."""
        # The completion system's own functions are replaced by ones that tell what they are given.
        script = (
            "_arguments() { if [[ $1 == -C ]]; then state=operands; else print -rl -- $@; fi };"
            "_describe() { : };"
            'words=("$2"); source "$1"'
        )
        process = subprocess.run(
            ["zsh", "-f", "-c", script, "zsh", harness.paths.zsh_completion, word],
            capture_output=True, check=True, encoding="utf-8", timeout=harness.PATIENCE,
        )  # fmt: skip
        self.assertEqual(process.stderr, "")
        lines = [re.sub(r"^\([^)]*\)", "", line) for line in process.stdout.splitlines()]
        return {re.match(r"-[a-zA-Z-]+", line)[0] for line in lines if line.startswith("-")}

    def test_every_option_of_each_command_is_offered(self):
        for name, alias in commands():
            for word in filter(None, (name, alias)):
                with self.subTest(word):
                    expected = command_options(name) | global_options()
                    self.assertEqual(self.offered(word), expected)


if __name__ == "__main__":
    harness.main("client-manual", "sandbox-manual", "bash-completion", "zsh-completion")
