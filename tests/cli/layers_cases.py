"""Layers in the picture: groups that a style sheet finds, and layers for Inkscape."""
import xml.etree.ElementTree as ElementTree

import command_support
from command_support import CommandTest, dxf, entities

SVG = "{http://www.w3.org/2000/svg}"
INKSCAPE = "{http://www.inkscape.org/namespaces/inkscape}"


def line_on(layer, x):
    return ("0", "LINE", "8", layer, "10", "0", "20", "0", "11", str(x), "21", "0")


def block(name, *lines):
    return ("0", "BLOCK", "2", name, "10", "0", "20", "0", *lines, "0", "ENDBLK")


def insert(name, layer):
    return ("0", "INSERT", "8", layer, "2", name, "10", "0", "20", "10")


def with_blocks(blocks, *lines):
    return dxf("0", "SECTION", "2", "BLOCKS", *(word for one in blocks for word in one), "0", "ENDSEC") + entities(*lines)


class Layers(CommandTest):
    AS_IS = False
    WRAP = ("--no-wrap",)  # so that coordinates stay what they are

    def drawn(self, content, *options):
        """The drawing's group as text: "A(10 20) -(30)", layers with the lengths of their lines, - without one."""
        self.write("plan.dxf", content)
        self.expect(0, "-q", *options, *self.WRAP, "plan.dxf")
        root = ElementTree.parse(self.path("plan.svg")).getroot()
        return self.outline(root.findall(SVG + "g")[-1])

    def outline(self, group):
        parts = []
        for element in group:
            if element.tag == SVG + "g":
                parts.append(f"{element.get('data-layer', '-')}({self.outline(element)})")
            elif element.tag == SVG + "line":
                parts.append(element.get("x2"))
            else:
                parts.append(element.tag.replace(SVG, ""))
        return " ".join(parts)

    def test_runs_of_elements_on_one_layer_in_the_drawings_order(self):
        content = entities(*line_on("A", 10), *line_on("A", 20), *line_on("B", 30), *line_on("A", 40), *line_on("0", 50))
        self.assertEqual(self.drawn(content), "A(10 20) B(30) A(40) 0(50)")

    def test_names_of_any_letters(self):
        names = ["Ebene 1", "W\u00e4nde|<&\">", "x" * 255]
        # On Windows the module reads the system's code page, which has no other letters.
        names += [] if command_support.EMULATOR else ["\u65e5\u672c"]
        for name in names:
            self.assertEqual(self.drawn(entities(*line_on(name, 10))), f"{name}(10)")

    def test_what_is_in_a_block_is_found_by_its_own_layer(self):
        blocks = [block("MIXED", *line_on("A", 10), *line_on("0", 20)), block("ONE", *line_on("0", 30))]
        content = with_blocks(blocks, *insert("MIXED", "C"), *insert("ONE", "D"), *line_on("D", 40))
        self.assertEqual(self.drawn(content), "-(A(10) C(20)) D(-(30) 40)")

    def test_a_style_sheet_finds_a_layer(self):
        self.drawn(entities(*line_on("A", 10), *line_on("B", 20)))
        groups = ElementTree.parse(self.path("plan.svg")).getroot().findall(f".//{SVG}g[@data-layer='A']")
        self.assertEqual([[line.get("x2") for line in group] for group in groups], [["10"]])

    def test_layers_for_inkscape(self):
        content = entities(*line_on("A", 10), *line_on("B", 20), *line_on("A", 30))
        self.assertEqual(self.drawn(content, "--layers-as", "inkscape"), "A(10 30) B(20)")
        self.assertEqual(self.drawn(content, "--layers-as", "groups"), "A(10) B(20) A(30)")
        self.drawn(content, "--layers-as=inkscape")
        group = ElementTree.parse(self.path("plan.svg")).getroot().findall(SVG + "g")[-1]
        self.assertEqual([(layer.get(INKSCAPE + "groupmode"), layer.get(INKSCAPE + "label")) for layer in (group, *group)],
                         [("layer", "Drawing"), ("layer", "A"), ("layer", "B")])

    def test_a_tiny_drawing_has_its_layers_too(self):
        content = entities(*line_on("A", 0.001), *line_on("B", 0.002), *line_on("A", 0.001))
        self.WRAP = ()
        self.assertEqual(self.drawn(content), "-(-(A(234.38) B(10234.38) A(234.38)))")
        self.assertEqual(self.drawn(content, "--layers-as", "inkscape"), "-(-(A(234.38 234.38) B(10234.38)))")

    def test_what_the_module_draws_by_itself_has_none(self):
        self.WRAP = ()
        self.assertEqual(self.drawn(entities(*line_on("A", 10), *line_on("B", 20)), "--as-is"), "10 20")
        self.assertIn("--as-is draws what the module draws by itself",
                      self.expect(2, "--as-is", "--layers-as", "inkscape", "plan.dxf"))

    def test_a_form_that_is_none(self):
        self.write("plan.dxf")
        self.assertIn("'css' is no form of layers; give groups or inkscape", self.expect(2, "--layers-as", "css", "plan.dxf"))
