"""What sblim-wbemcli, an independent client, lists and does, cim-client lists and does as well."""

import json
import re
import subprocess
import unittest

import harness

FAN1 = 'CIM_Fan.DeviceID="fan1"'
CLASSES = ("CIM_Fan", "CIM_LogicalDevice", "CIM_NumericSensor", "Sandbox_TypedKeys")
# Which values wbemcli shows without a loss: it writes texts as they are, line ends included, and
# embedded instances as XML.
PLAIN = ("CIM_Fan", "CIM_PowerSupply", "CIM_NumericSensor", "CIM_SystemDevice")


def bare_path(text):
    """A path without host, namespace and quotes, its keys in order and in lower case: what both
    clients agree to write."""
    text = re.sub(r'[\\"]', "", text)
    text = re.sub(r"(//)?(localhost|127\.0\.0\.1)(:\d+)?", "", text)
    text = text.replace("/root/cimv2:", "").replace("/root/cimv2", "")
    class_name, _, keys = text.partition(".")
    if not keys:
        return class_name.lower()
    # A reference among the keys holds "=" and "," itself: its parts are sorted along.
    return class_name.lower() + "|" + ",".join(sorted(part.lower() for part in keys.split(",")))


def bare_value(value):
    """A value of cim-client's JSON as wbemcli writes it, without quotes."""
    if value is None:
        return ""
    if isinstance(value, bool):
        return "TRUE" if value else "FALSE"
    if isinstance(value, list):
        return ",".join(bare_value(element) for element in value)
    if isinstance(value, dict):
        return bare_path(value["uri"])
    if isinstance(value, float):
        return repr(value)
    return str(value)


class Agreement(harness.SandboxTest):
    def wbemcli(self, *arguments):
        """What wbemcli writes, as lines; `arguments` end in an object of the namespace."""
        *options, object_path = arguments
        process = subprocess.run(
            ["wbemcli", *options, f"{self.url}/root/cimv2:{object_path}"],
            capture_output=True,
            check=False,
            encoding="utf-8",
            timeout=harness.PATIENCE,
        )
        self.assertEqual((process.returncode, process.stderr), (0, ""), arguments)
        return process.stdout.splitlines()

    def wbemcli_objects(self, *arguments):
        """What `wbemcli -nl` lists: properties by path."""
        objects = {}
        for line in self.wbemcli("-nl", *arguments):
            if line.startswith("-"):
                name, _, value = line[1:].partition("=")
                objects[path][name.lower()] = value.replace('"', "")
            elif line:
                path = bare_path(line)
                objects[path] = {}
        return objects

    def client_objects(self, *arguments):
        """The same of cim-client."""
        listed = json.loads(self.succeed(*arguments, "--output", "json"))
        listed = listed if isinstance(listed, list) else [listed]
        return {
            bare_path(entry["path"]["uri"]): {
                name.lower(): bare_value(value["value"])
                for name, value in entry["properties"].items()
            }
            for entry in listed
        }

    def assert_same_objects(self, theirs, ours):
        self.assertEqual(set(theirs), set(ours))
        for path, properties in theirs.items():
            self.assertEqual(set(properties), set(ours[path]), path)
            for name, value in properties.items():
                expected = bare_path(value) if "root/cimv2" in value else value
                if self.is_number(expected):
                    self.assertEqual(float(expected), float(ours[path][name]), (path, name))
                else:
                    self.assertEqual(expected, ours[path][name], (path, name))

    @staticmethod
    def is_number(text):
        return re.fullmatch(r"[-+]?\d+(\.\d+)?(e[-+]?\d+)?", text) is not None

    def assert_same_paths(self, theirs, ours):
        self.assertNotEqual(theirs, [])
        self.assertEqual(sorted(map(bare_path, theirs)), sorted(map(bare_path, ours)))

    def test_class_names(self):
        # wbemcli always asks for all subclasses.
        for parent in ("", "CIM_LogicalDevice", "CIM_ManagedElement"):
            with self.subTest(parent):
                ours = self.succeed("ecn", "--deep", *([parent] if parent else []))
                self.assert_same_paths(self.wbemcli("ecn", parent), ours.splitlines())

    def test_class_definitions(self):
        for name in CLASSES:
            with self.subTest(name):
                theirs = [line[1:].partition("=")[0] for line in self.wbemcli("-nl", "gc", name)[1:]]
                ours = json.loads(self.succeed("gc", name, "-o", "json"))["properties"]
                self.assertEqual(sorted(filter(None, theirs)), sorted(ours))

    def test_instance_names(self):
        for name in CLASSES:
            with self.subTest(name):
                ours = self.succeed("ein", name).splitlines()
                self.assert_same_paths(self.wbemcli("ein", name), ours)

    def test_instances(self):
        for name in PLAIN:
            with self.subTest(name):
                self.assert_same_objects(
                    self.wbemcli_objects("ei", name), self.client_objects("ei", name)
                )

    def test_one_instance(self):
        self.assert_same_objects(self.wbemcli_objects("gi", FAN1), self.client_objects("gi", FAN1))

    def test_associator_names(self):
        self.assert_same_paths(
            self.wbemcli("ain", FAN1), self.succeed("ain", FAN1).splitlines()
        )
        self.assert_same_paths(
            self.wbemcli("-ac", "CIM_SystemDevice", "ain", FAN1),
            self.succeed("ain", FAN1, "--assoc-class", "CIM_SystemDevice").splitlines(),
        )

    def test_associators(self):
        self.assert_same_objects(
            self.wbemcli_objects("-arc", "CIM_LogicalDevice", "ai", FAN1),
            self.client_objects("ai", FAN1, "--result-class", "CIM_LogicalDevice"),
        )

    def test_reference_names(self):
        self.assert_same_paths(
            self.wbemcli("rin", FAN1), self.succeed("rin", FAN1).splitlines()
        )

    def test_references(self):
        self.assert_same_objects(self.wbemcli_objects("ri", FAN1), self.client_objects("ri", FAN1))

    def test_what_one_creates_and_changes_the_other_sees(self):
        self.wbemcli_do("ci", "Sandbox_EveryType.Id=50", "Id=50,AString=theirs")
        created = json.loads(self.succeed("gi", "Sandbox_EveryType.Id=50", "-o", "json"))
        self.assertEqual(created["properties"]["AString"]["value"], "theirs")
        self.succeed("mi", "Sandbox_EveryType.Id=50", "AString=ours")
        self.assertIn('-AString="ours"', self.wbemcli("-nl", "gi", "Sandbox_EveryType.Id=50"))
        self.wbemcli_do("mi", "Sandbox_EveryType.Id=50", "AUint8=7")
        entry = json.loads(self.succeed("gi", "Sandbox_EveryType.Id=50", "-o", "json"))
        self.assertEqual(entry["properties"]["AUint8"]["value"], 7)
        self.assertEqual(entry["properties"]["AString"]["value"], "ours")
        self.wbemcli_do("di", "Sandbox_EveryType.Id=50")
        self.assertEqual(self.run_client("gi", "Sandbox_EveryType.Id=50").status, 1)
        self.succeed("ci", "Sandbox_EveryType", "Id=51", "AString=ours")
        self.assertIn('-AString="ours"', self.wbemcli("-nl", "gi", "Sandbox_EveryType.Id=51"))
        self.succeed("di", "Sandbox_EveryType.Id=51")

    def test_a_method_does_the_same(self):
        self.assertIn("Stop: 0", self.wbemcli_do("cm", FAN1, "Stop"))
        self.assertEqual(self.succeed("cm", FAN1, "Stop"), "returned 3\n")
        self.assertEqual(self.succeed("cm", FAN1, "Start"), "returned 0\n")
        self.assertIn("Start: 2", self.wbemcli_do("cm", FAN1, "Start"))

    def wbemcli_do(self, command, object_path, *arguments):
        process = subprocess.run(
            ["wbemcli", command, f"{self.url}/root/cimv2:{object_path}", *arguments],
            capture_output=True,
            check=False,
            encoding="utf-8",
            timeout=harness.PATIENCE,
        )
        self.assertEqual((process.returncode, process.stderr), (0, ""), (command, object_path))
        return process.stdout


class Notation(unittest.TestCase):
    """The comparison itself must be able to fail."""

    def test_paths_that_differ_stay_different(self):
        self.assertNotEqual(bare_path('CIM_A.K="1"'), bare_path('CIM_A.K="2"'))
        self.assertNotEqual(bare_path('CIM_A.K="1"'), bare_path('CIM_B.K="1"'))

    def test_host_order_case_and_quotes_do_not_matter(self):
        self.assertEqual(
            bare_path('127.0.0.1:5988/root/cimv2:CIM_A.B="2",a="1"'),
            bare_path('/root/cimv2:CIM_A.A="1",b="2"'),
        )


if __name__ == "__main__":
    harness.main()
