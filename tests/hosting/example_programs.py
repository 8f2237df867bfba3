"""What the example programs must print, wherever they were built: in the project's tree or from a package."""
import os
import subprocess
import xml.etree.ElementTree as ElementTree

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(os.path.dirname(HERE))
DRAWING = os.path.join(HERE, "every_operation.dxf")
FLOOR_PLAN = os.path.join(ROOT, "examples", "floor-plan.dxf")


def run_text(*command, **options):
    """The exit code, what was printed and what was complained about, with plain line ends."""
    result = subprocess.run(command, capture_output=True, **options)
    return (result.returncode, *(text.decode("utf-8").replace("\r\n", "\n") for text in (result.stdout, result.stderr)))


def program(folder, name, emulator=()):
    """The command that runs a program of that name in folder."""
    path = os.path.join(folder, name)
    return [*emulator, path + ".exe" if emulator else path]


def expected_calls():
    with open(os.path.join(HERE, "every_operation.calls"), encoding="utf-8") as file:
        return file.read()


def names_of_elements(svg):
    return {element.tag.split("}")[1] for element in ElementTree.fromstring(svg).iter()}


class ExamplePrograms:
    """Tests of both programs; the class that mixes them in has minimal_host and record_calls, commands."""

    maxDiff = None

    def test_the_host_of_ones_own_prints_every_call(self):
        self.assertEqual(run_text(*self.record_calls, DRAWING), (0, expected_calls(), ""))

    def test_the_minimal_host_draws_every_element_and_reports(self):
        code, svg, messages = run_text(*self.minimal_host, DRAWING)
        self.assertEqual((code, messages), (0, "SOLID - Unknown Object Type Name (298)\n"))
        self.assertLessEqual({"svg", "line", "path", "circle", "ellipse", "polyline", "polygon", "text", "use",
                              "symbol", "g"}, names_of_elements(svg))

    def test_a_drawing_that_is_not_there_is_reported(self):
        code, calls, _ = run_text(*self.record_calls, "none.dxf")
        self.assertEqual((code, calls), (0, 'qlmSetLastError(0, "DXF", 1, "Failed to load DXF file.", false, 0)\n'))
        code, svg, messages = run_text(*self.minimal_host, "none.dxf")
        self.assertEqual((code, names_of_elements(svg), messages), (0, {"svg", "g"}, "Failed to load DXF file.\n"))

    def test_no_drawing_is_wrong_usage(self):
        self.assertEqual(run_text(*self.record_calls), (2, "", ""))
        self.assertEqual(run_text(*self.minimal_host), (2, "", ""))
