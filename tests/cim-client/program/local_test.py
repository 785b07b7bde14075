"""The local broker's route, against the broker library that serves the sandbox's model."""

import json
import os
import unittest

import harness
from harness import run, sandbox

FAN1 = 'CIM_Fan.DeviceID="fan1"'
MARKER = "/etc/Binary.txt"


def local(*arguments, **options):
    """Runs the client on the local route."""
    folder = os.path.dirname(os.path.abspath(harness.paths.local))
    variables = {"LD_LIBRARY_PATH": folder, **options.pop("environment", {})}
    return run("--backend", "local", *arguments, environment=variables, **options)


class LocalRoute(unittest.TestCase):
    def succeed(self, *arguments, **options):
        outcome = local(*arguments, **options)
        # The broker's library complains here about objects that were not released.
        self.assertEqual((outcome.status, outcome.errors), (0, ""), arguments)
        return outcome.output

    def test_both_routes_name_the_same_instances(self):
        # Over HTTP the names of keys come in lower case, as some object managers send them.
        with sandbox() as url:
            for arguments in (("ein", "CIM_ManagedElement"), ("ain", FAN1)):
                with self.subTest(arguments):
                    over_http = run("--backend", "xml", *arguments, url=url).output.lower()
                    self.assertNotEqual(over_http, "")
                    self.assertEqual(
                        sorted(self.succeed(*arguments).lower().splitlines()),
                        sorted(over_http.splitlines()),
                    )

    def test_an_instance_is_read(self):
        properties = json.loads(self.succeed("gi", FAN1, "-o", "json"))["properties"]
        self.assertEqual(properties["DeviceID"]["value"], "fan1")
        self.assertEqual(properties["DesiredSpeed"]["value"], "4800")
        self.assertEqual(properties["VariableSpeed"]["value"], True)

    def test_associations_queries_and_graphs_go_this_way(self):
        self.assertIn("CIM_PowerSupply", self.succeed("ai", FAN1))
        self.assertIn("PartComponent", self.succeed("rin", FAN1))
        self.assertIn("Spare fan", self.succeed("query", "SELECT * FROM CIM_Fan"))
        self.assertIn('taillabel="Antecedent"', self.succeed("graph", FAN1))

    def test_nothing_found_is_success(self):
        self.assertEqual(self.succeed("ain", FAN1, "--role", "NoSuchRole", "-o", "json"), "[]\n")

    def test_texts_are_not_escaped_on_this_way(self):
        outcome = local("gi", 'CIM_Fan.DeviceID="a & <b>"')
        self.assertEqual(outcome.status, 1)
        self.assertIn('CIM_Fan.DeviceID="a & <b>"', outcome.errors)

    def test_an_error_of_the_broker_is_status_1(self):
        outcome = local("ei", "CIM_Nope")
        self.assertEqual((outcome.status, outcome.output), (1, ""))
        self.assertIn("CIM error 5 CIM_ERR_INVALID_CLASS: ", outcome.errors)
        self.assertEqual(local("di", "CIM_Fan.DeviceID=none").status, 1)

    def test_classes_are_read_over_http_and_changes_go_to_the_broker(self):
        with sandbox() as url:
            self.assertIn("class CIM_Fan", self.succeed("gc", "CIM_Fan", url=url))
            self.assertEqual(self.succeed("mi", "--partial", FAN1, "DesiredSpeed=7", url=url), "")
            self.assertEqual(
                self.succeed("cm", FAN1, "SetSpeed", "Speed=3000", url=url).splitlines()[0],
                "returned 0",
            )
            self.assertEqual(
                self.succeed("ci", "CIM_Fan", "DeviceID=fan9", url=url).strip().split(":")[-1],
                'CIM_Fan.DeviceID="fan9"',
            )
            # The broker of each process begins anew: nothing of this reached the sandbox.
            self.assertEqual(run("gi", "CIM_Fan.DeviceID=fan9", url=url).status, 1)

    def test_what_this_way_cannot_do_is_said(self):
        for arguments, text in (
            (("ecn",), "the local broker lists no classes; --backend xml asks over CIM-XML"),
            (("ec",), "the local broker lists no classes"),
            (("-o", "xml", "ein", "CIM_Fan"), "the local broker sends no XML"),
        ):
            with self.subTest(arguments):
                outcome = local(*arguments)
                self.assertEqual((outcome.status, outcome.output), (2, ""))
                self.assertIn(text, outcome.errors)

    def test_an_unreadable_class_is_explained(self):
        outcome = local("--port", "1", "mi", FAN1, "DesiredSpeed=7")
        self.assertEqual(outcome.status, 3)
        self.assertIn("the class is read over CIM-XML, also with the local broker: ", outcome.errors)

    def test_verbose_names_the_back_end(self):
        self.assertIn(
            "cim-client: back end: the local broker, as --backend says\n",
            local("--verbose", "ein", "CIM_Fan").errors,
        )
        with sandbox() as url:
            outcome = run("--verbose", "--backend", "xml", "ein", "CIM_Fan", url=url)
        self.assertIn("cim-client: back end: CIM-XML over HTTP, as --backend says\n", outcome.errors)

    def test_the_doctor_examines_this_way(self):
        steps = [json.loads(line) for line in self.succeed("doctor", "-o", "json").splitlines()]
        self.assertEqual(
            [(step["step"], step["result"]) for step in steps],
            [("back end", "ok"), ("library", "ok"), ("connection", "ok"), ("class", "ok")],
        )
        self.assertEqual(steps[0]["text"], "the local broker, as --backend says")
        self.assertTrue(os.path.samefile(steps[1]["text"], harness.paths.local))

    def test_a_missing_library_is_no_answer(self):
        outcome = run("--backend", "local", "ein", "CIM_Fan")
        self.assertEqual((outcome.status, outcome.output), (3, ""))
        self.assertIn("the client library of the local broker cannot be loaded: ", outcome.errors)
        outcome = run("--backend", "local", "doctor")
        self.assertEqual(outcome.status, 3)
        self.assertRegex(outcome.output, r"(?m)^failed +library ")

    def test_a_missing_model_is_a_failed_connection(self):
        outcome = local("ein", "CIM_Fan", environment={"CIM_SANDBOX_MODEL": "/no/such/file.mof"})
        self.assertEqual((outcome.status, outcome.output), (3, ""))
        self.assertIn("the connection to the local broker failed", outcome.errors)

    def test_an_unknown_back_end_is_a_usage_error(self):
        outcome = run("--backend", "smoke", "ecn")
        self.assertEqual(outcome.status, 2)
        self.assertIn("there is no back end smoke; there are xml and local", outcome.errors)

    def test_the_marker_file_is_left_alone(self):
        before = os.path.exists(MARKER)
        local("ein", "CIM_Fan")
        run("--backend", "xml", "--port", "1", "ecn")
        self.assertEqual(os.path.exists(MARKER), before)


if __name__ == "__main__":
    harness.main("local")
