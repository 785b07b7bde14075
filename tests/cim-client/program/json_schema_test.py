"""The JSON of every command matches its definition in the published schema."""

import json
import unittest

import jsonschema

import harness

FAN1 = 'CIM_Fan.DeviceID="fan1"'
SERVER = 'CIM_ComputerSystem.CreationClassName="CIM_ComputerSystem",Name="server1"'

SCHEMA = {}


def setUpModule():  # pylint: disable=invalid-name
    """Reads the schema."""
    with open(harness.paths.schema, encoding="utf-8") as file:
        SCHEMA.update(json.load(file))


def validator(name):
    """A validator for the output of a command."""
    return jsonschema.Draft202012Validator({"$ref": f"#/$defs/{name}", "$defs": SCHEMA["$defs"]})


# Each command with arguments that together reach every kind of value.
RUNS = (
    ("get-class", "CIM_Fan"),
    ("get-class", "CIM_SystemDevice", "--class-origin"),
    ("get-class", "Sandbox_EveryType"),
    ("get-class", "CIM_ManagedElement", "--no-qualifiers"),
    ("enumerate-classes", "--deep"),
    ("enumerate-class-names",),
    ("enumerate-class-names", "CIM_Fan"),
    ("enumerate-instances", "Sandbox_EveryType"),
    ("enumerate-instances", "CIM_SystemDevice", "--qualifiers", "--class-origin"),
    ("enumerate-instances", "CIM_Fan", "--properties", "DeviceID"),
    ("enumerate-instance-names", "CIM_SystemDevice"),
    ("enumerate-instance-names", "Sandbox_TypedKeys"),
    ("get-instance", SERVER),
    ("associators", FAN1),
    ("associator-names", FAN1),
    ("references", FAN1),
    ("reference-names", FAN1),
    ("query", "SELECT * FROM CIM_Fan"),
    ("invoke", FAN1, "SetSpeed", "Speed=1000"),
    ("invoke", "Sandbox_EveryType", "Identify"),
    ("invoke", "Sandbox_EveryType.Id=1", "Echo", "AReference=CIM_Fan.DeviceID=fan1",
     "AUint64=5", "References=[CIM_Fan.DeviceID=fan1]", "Real64s=[1.5]"),
    ("create-instance", "Sandbox_EveryType", "Id=99"),
)  # fmt: skip
LINE_RUNS = (
    ("doctor",),
    ("doctor", "--namespace", "root/none"),
    ("doctor", "--port", "1"),
    ("doctor", "--backend", "local"),
)


class Validation(harness.SandboxTest):
    def test_the_schema_is_a_schema(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_every_command_writes_what_the_schema_says(self):
        for arguments in RUNS:
            with self.subTest(arguments):
                text = self.succeed(*arguments, "--output", "json")
                validator(arguments[0]).validate(json.loads(text))

    def test_every_step_of_the_doctor_is_described(self):
        for arguments in LINE_RUNS:
            with self.subTest(arguments):
                text = self.run_client(*arguments, "--output", "json").output
                for line in text.splitlines():
                    validator(arguments[0]).validate(json.loads(line))

    def test_every_command_with_json_has_a_definition(self):
        commands = set()
        for line in self.succeed("--help").split("Commands:\n")[1].split("\n\n")[0].splitlines():
            if line.startswith("  ") and not line.startswith("   "):
                commands.add(line.split()[0].rstrip(","))
        without = {"modify-instance", "delete-instance", "graph"}
        self.assertLessEqual(commands - without, set(SCHEMA["$defs"]))
        covered = {arguments[0] for arguments in RUNS + LINE_RUNS} | {"listen"}
        self.assertEqual(commands - without, covered)


class Refusals(unittest.TestCase):
    """The schema must be able to refuse."""

    GOOD = {
        "class": "CIM_Fan",
        "properties": {"A": {"type": "uint64", "value": "5"}},
    }

    def changed(self, **value):
        instance = json.loads(json.dumps(self.GOOD))
        instance["properties"]["A"] = value
        return instance

    def test_wrong_values_are_refused(self):
        check = validator("listen")
        check.validate(self.GOOD)
        for value in (
            {"type": "uint64", "value": 5},
            {"type": "uint8", "value": 1.5},
            {"type": "boolean", "value": 1},
            {"type": "string", "value": 5},
            {"type": "string", "array": True, "value": "x"},
            {"type": "reference", "value": "CIM_Fan.K=1"},
            {"type": "string"},
            {"value": "x"},
            {"type": "string", "value": "x", "novelty": 1},
        ):
            with self.subTest(value), self.assertRaises(jsonschema.ValidationError):
                check.validate(self.changed(**value))


if __name__ == "__main__":
    harness.main("schema")
