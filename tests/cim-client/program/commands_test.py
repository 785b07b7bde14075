"""Every command, typed as a person types it, against a sandbox."""

import json

import harness

FAN1 = 'CIM_Fan.DeviceID="fan1"'
SERVER = 'CIM_ComputerSystem.CreationClassName="CIM_ComputerSystem",Name="server1"'
LAST_EVERYTHING = "Sandbox_EveryType.Id=1"


def lines(text):
    return text.splitlines()


class Reading(harness.SandboxTest):
    def test_get_class_writes_mof(self):
        text = self.succeed("get-class", "CIM_Fan")
        self.assertIn("class CIM_Fan : CIM_LogicalDevice\n{\n", text)
        self.assertIn("  uint64 DesiredSpeed;\n", text)
        self.assertIn("    [In, Required, Units(\"Revolutions per Minute\")] uint64 Speed,\n", text)

    def test_get_class_can_leave_out_what_is_inherited_and_qualifiers(self):
        text = self.succeed("gc", "CIM_Fan", "--local-only", "--no-qualifiers")
        self.assertNotIn("DeviceID", text)
        self.assertNotIn("[Key", text)
        self.assertIn("boolean VariableSpeed = true;", text)

    def test_class_names_are_direct_or_deep(self):
        direct = lines(self.succeed("enumerate-class-names"))
        deep = lines(self.succeed("ecn", "--deep"))
        self.assertIn("CIM_ManagedElement", direct)
        self.assertNotIn("CIM_Fan", direct)
        self.assertIn("CIM_Fan", deep)
        self.assertLess(set(direct), set(deep))

    def test_classes_are_listed_below_a_class(self):
        classes = json.loads(self.succeed("enumerate-classes", "CIM_LogicalDevice", "-o", "json"))
        self.assertEqual(
            sorted(entry["class"] for entry in classes),
            ["CIM_Fan", "CIM_NumericSensor", "CIM_PowerSupply"],
        )

    def test_instance_names_are_paths_that_get_instance_takes(self):
        names = lines(self.succeed("enumerate-instance-names", "CIM_Fan"))
        self.assertEqual(len(names), 3)
        for name in names:
            self.assertIn("DeviceID", self.succeed("get-instance", name))

    def test_instances_are_blocks_in_a_pipe_and_tables_on_request(self):
        blocks = self.succeed("enumerate-instances", "CIM_Fan", "-p", "DeviceID,DesiredSpeed")
        self.assertEqual(
            blocks,
            'CIM_Fan.DeviceID="fan1"\n  DeviceID      fan1\n  DesiredSpeed  4800\n\n'
            'CIM_Fan.DeviceID="fan2"\n  DeviceID      fan2\n  DesiredSpeed  4800\n\n'
            'CIM_Fan.DeviceID="fan3"\n  DeviceID      fan3\n  DesiredSpeed  null\n',
        )
        table = self.succeed(
            "ei", "CIM_Fan", "--properties", "DeviceID,DesiredSpeed", "--layout", "table"
        )
        self.assertEqual(
            table,
            "DeviceID  DesiredSpeed\nfan1              4800\nfan2              4800\nfan3\n",
        )

    def test_instances_of_a_base_class_include_those_of_subclasses(self):
        instances = json.loads(self.succeed("ei", "CIM_LogicalDevice", "-o", "json"))
        self.assertEqual(
            {entry["class"] for entry in instances},
            {"CIM_Fan", "CIM_NumericSensor", "CIM_PowerSupply"},
        )

    def test_values_of_every_type_arrive_as_they_are(self):
        entry = json.loads(self.succeed("gi", LAST_EVERYTHING, "-o", "json"))["properties"]
        values = {name: value["value"] for name, value in entry.items()}
        self.assertEqual(
            values["AString"],
            "\"quoted\" <tag> & 'apostrophe', grüße €, tab\tand line\nend",
        )
        self.assertEqual(values["AChar16"], "ß")
        self.assertEqual(values["AUint32"], 4294967295)
        self.assertEqual(values["AUint64"], "18446744073709551615")
        self.assertEqual(values["ASint64"], "-9223372036854775808")
        self.assertEqual(values["AReal64"], -2.5e-300)
        self.assertEqual(values["Booleans"], [True, False, True])
        self.assertEqual(values["Strings"], ["one", "", "<three>"])
        self.assertEqual(values["AnInstance"]["properties"]["Building"]["value"], "Inside")
        self.assertEqual(values["AnInstance"]["properties"]["Floor"]["value"], 1)

    def test_empty_and_null_values_differ(self):
        nulls = json.loads(self.succeed("gi", "Sandbox_EveryType.Id=2", "-o", "json"))["properties"]
        empty = json.loads(self.succeed("gi", "Sandbox_EveryType.Id=3", "-o", "json"))["properties"]
        self.assertIsNone(nulls["AString"]["value"])
        self.assertEqual(empty["AString"]["value"], "")
        self.assertIsNone(nulls["Strings"]["value"])
        self.assertEqual(empty["Strings"]["value"], [])

    def test_keys_of_every_type_are_typed(self):
        (name,) = lines(self.succeed("ein", "Sandbox_TypedKeys"))
        self.assertIn("found by typed keys", self.succeed("gi", name))

    def test_xml_is_what_the_object_manager_sent(self):
        text = self.succeed("ein", "CIM_PowerSupply", "-o", "xml")
        self.assertTrue(text.startswith("<IRETURNVALUE>\n<INSTANCENAME CLASSNAME="), text)
        self.assertTrue(text.endswith("</IRETURNVALUE>\n"), text)

    def test_nothing_found_is_success_in_every_format(self):
        for output, expected in (("text", ""), ("json", "[]\n")):
            with self.subTest(output):
                self.assertEqual(self.succeed("ei", "CIM_Chassis", "-p", "X", "-o", output) != "", True)
                self.assertEqual(self.succeed("ecn", "CIM_Fan", "-o", output), expected)

    def test_associations_are_followed(self):
        names = lines(self.succeed("associator-names", FAN1))
        self.assertIn('/root/cimv2:CIM_PowerSupply.DeviceID="psu1"', names)
        self.assertEqual(
            lines(self.succeed("ain", FAN1, "--assoc-class", "CIM_AssociatedSensor")),
            ['/root/cimv2:CIM_NumericSensor.DeviceID="tach1"'],
        )
        objects = json.loads(
            self.succeed("associators", FAN1, "--result-class", "CIM_PowerSupply", "-o", "json")
        )
        self.assertEqual([entry["class"] for entry in objects], ["CIM_PowerSupply"])
        self.assertEqual(
            self.succeed("ain", FAN1, "--role", "PartComponent", "--result-role", "GroupComponent"),
            '/root/cimv2:CIM_ComputerSystem.Name="server1",'
            'CreationClassName="CIM_ComputerSystem"\n',
        )
        self.assertEqual(self.succeed("ain", FAN1, "--role", "NoSuchRole"), "")

    def test_reference_names_come_as_object_paths_and_are_shown(self):
        names = lines(self.succeed("reference-names", FAN1, "--result-class", "CIM_SystemDevice"))
        self.assertEqual(len(names), 1)
        self.assertTrue(names[0].startswith("/root/cimv2:CIM_SystemDevice.GroupComponent="), names)
        text = self.succeed("get-instance", names[0])
        self.assertIn("PartComponent", text)

    def test_references_show_both_ends(self):
        objects = json.loads(
            self.succeed("references", FAN1, "--result-class", "CIM_AssociatedSensor", "-o", "json")
        )
        self.assertEqual(len(objects), 1)
        ends = objects[0]["properties"]
        self.assertEqual(ends["Antecedent"]["value"]["keys"]["DeviceID"]["value"], "tach1")
        self.assertEqual(ends["Dependent"]["value"]["keys"]["DeviceID"]["value"], "fan1")

    def test_a_query_selects(self):
        objects = json.loads(
            self.succeed("query", "SELECT * FROM CIM_Fan WHERE DeviceID = 'fan2'", "-o", "json")
        )
        self.assertEqual([entry["path"]["keys"]["DeviceID"]["value"] for entry in objects], ["fan2"])

    def test_a_graph_is_written_as_dot(self):
        text = self.succeed("graph", FAN1)
        self.assertTrue(text.startswith("graph cim {\n"), text)
        self.assertIn('n0 [label="CIM_Fan\\nDeviceID = fan1", style=bold];', text)
        self.assertIn('taillabel="Antecedent", headlabel="Dependent"', text)

    def test_the_doctor_finds_nothing_wrong(self):
        steps = [json.loads(line) for line in lines(self.succeed("doctor", "-o", "json"))]
        self.assertEqual(
            [step["step"] for step in steps],
            ["back end", "address", "connection", "HTTP answer", "authentication", "namespace", "class"],
        )
        self.assertEqual({step["result"] for step in steps}, {"ok"})

    def test_verbose_shows_the_exchange_on_standard_error_alone(self):
        outcome = self.run_client("--verbose", "ein", "CIM_PowerSupply")
        self.assertEqual(outcome.status, 0)
        self.assertEqual(len(lines(outcome.output)), 1)
        self.assertIn('<IMETHODCALL NAME="EnumerateInstanceNames">', outcome.errors)
        self.assertIn("<IRETURNVALUE>", outcome.errors)


class Changing(harness.SandboxTest):
    def value(self, path, name):
        entry = json.loads(self.succeed("gi", path, "-o", "json"))
        return entry["properties"][name]["value"]

    def test_an_instance_is_created_changed_and_deleted(self):
        name = self.succeed(
            "create-instance", "Sandbox_EveryType", "Id=77", "AString=a <b> & \"c\"",
            'Strings=["x, y",z]', "Uint8s=1", "Uint8s=0xFF", "AReal32=5",
            "ADateTime=2024-01-31T23:59:59+01:00", "ABoolean=true", "AChar16=null",
        ).strip()  # fmt: skip
        self.assertEqual(name, "Sandbox_EveryType.Id=77")
        self.assertEqual(self.value(name, "AString"), 'a <b> & "c"')
        self.assertEqual(self.value(name, "Strings"), ["x, y", "z"])
        self.assertEqual(self.value(name, "Uint8s"), [1, 255])
        self.assertEqual(self.value(name, "AReal32"), 5.0)
        self.assertEqual(self.value(name, "ADateTime"), "20240131235959.000000+060")
        self.assertIsNone(self.value(name, "AChar16"))
        self.assertEqual(self.succeed("modify-instance", name, "AString=null", "AUint8=7"), "")
        self.assertIsNone(self.value(name, "AString"))
        self.assertEqual(self.value(name, "AUint8"), 7)
        self.assertEqual(self.value(name, "Uint8s"), [1, 255], "the others stay as they were")
        self.assertEqual(self.succeed("delete-instance", name), "")
        self.assertEqual(self.run_client("gi", name).status, 1)

    def test_a_partial_modification_sends_the_changes_alone(self):
        outcome = self.run_client("-v", "mi", "--partial", FAN1, "DesiredSpeed=2222")
        self.assertEqual(outcome.status, 0)
        self.assertNotIn('NAME="GetInstance"', outcome.errors)
        self.assertEqual(self.value(FAN1, "DesiredSpeed"), "2222")

    def test_an_embedded_instance_is_sent(self):
        self.run_client("mi", SERVER, 'Location=Sandbox_Location{Building="B < 2", Floor=-4}')
        location = self.value(SERVER, "Location")
        self.assertEqual(location["properties"]["Building"]["value"], "B < 2")
        self.assertEqual(location["properties"]["Floor"]["value"], -4)

    def test_what_cannot_be_sent_back_is_said(self):
        outcome = self.run_client("mi", SERVER, "Caption=new")
        self.assertEqual(outcome.status, 0)
        self.assertIn("property FormerLocations is not sent", outcome.errors)
        self.assertEqual(self.value(SERVER, "Caption"), "new")

    def test_a_method_returns_its_value_and_parameters(self):
        before = self.value(FAN1, "DesiredSpeed")
        self.assertEqual(
            self.succeed("invoke", FAN1, "SetSpeed", "Speed=3000"),
            f"returned 0\n  PreviousSpeed  {before}\n",
        )
        self.assertEqual(self.value(FAN1, "DesiredSpeed"), "3000")

    def test_a_return_value_other_than_zero_is_success_and_shown(self):
        self.succeed("cm", FAN1, "Stop")
        self.assertEqual(self.succeed("cm", FAN1, "Stop"), "returned 3\n")
        self.assertEqual(self.succeed("cm", FAN1, "Start"), "returned 0\n")

    def test_a_method_of_a_class_returns_a_text(self):
        self.assertEqual(
            self.succeed("cm", "Sandbox_EveryType", "Identify"),
            "returned a sandbox & nothing more\n",
        )

    def test_parameters_of_every_type_are_sent(self):
        sent = {
            "ABoolean": "true", "AString": "a <b>", "AChar16": "€", "AUint8": "255",
            "AUint16": "65535", "AUint32": "4294967295", "AUint64": "18446744073709551615",
            "ASint8": "-128", "ASint16": "-32768", "ASint32": "-2147483648",
            "ASint64": "-9223372036854775808", "AReal32": "1.5", "AReal64": "-2.5",
            "ADateTime": "20240229120000.123456-300", "AReference": FAN1,
            "AnInstance": "Sandbox_Location{Room=R1}", "Booleans": "[true,false]",
            "Strings": '["a, b",c]', "Uint8s": "[1,2]", "Sint64s": "[-1]", "Real64s": "[0.5]",
            "References": "[CIM_Fan.DeviceID=fan1,CIM_Fan.DeviceID=fan2]",
        }  # fmt: skip
        text = self.succeed(
            "cm", LAST_EVERYTHING, "Echo", "-o", "json",
            *(f"{name}={value}" for name, value in sent.items()),
        )  # fmt: skip
        echoed = {
            name: value["value"] for name, value in json.loads(text)["parameters"].items()
        }
        self.assertLessEqual(set(sent), set(echoed))
        self.assertEqual(echoed["AString"], "a <b>")
        self.assertEqual(echoed["AUint64"], "18446744073709551615")
        self.assertEqual(echoed["AReference"]["keys"]["DeviceID"]["value"], "fan1")
        self.assertEqual(echoed["Strings"], ["a, b", "c"])
        self.assertEqual(
            [path["keys"]["DeviceID"]["value"] for path in echoed["References"]], ["fan1", "fan2"]
        )
        self.assertEqual(echoed["AnInstance"]["properties"]["Room"]["value"], "R1")

    def test_mistakes_are_found_before_anything_is_sent(self):
        for arguments, text in (
            (("mi", FAN1, "DesiredSpeed=-5"), "does not fit uint64"),
            (("mi", FAN1, "Nope=5"), "CIM_Fan has no property Nope; it has: "),
            (("cm", FAN1, "Nope"), "CIM_Fan has no method Nope; it has: Start, Stop, SetSpeed"),
            (("cm", FAN1, "SetSpeed", "PreviousSpeed=1"), "has no input parameter PreviousSpeed"),
            (("mi", FAN1), "no NAME=VALUE says what to change"),
        ):
            with self.subTest(arguments):
                outcome = self.run_client(*arguments)
                self.assertEqual(outcome.status, 2)
                self.assertIn(text, outcome.errors)
                self.assertEqual(outcome.output, "")


if __name__ == "__main__":
    harness.main()
