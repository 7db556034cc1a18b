#!/usr/bin/python3
"""One object of every kind that can be drawn, drawn by a script in a new drawing and in older ones, again and again until
cancelled; what a user does wrong on the way: draw_test.py KELMARO
"""

import math
import re
from dataclasses import dataclass
from typing import Callable

import ezdxf
from ezdxf.math import Vec3

import acceptance
from acceptance import AcceptanceTest

RESOURCES = ("blockreference", "dimension", "layer", "linetype", "mleader", "mline", "textstyle")
COMMON = {"layer": "Drawn", "color": 3, "linetype": "Dashed", "ltscale": 2.0, "lineweight": 35}
LOOK = "obj_prop|layer|Drawn\nobj_prop|color|3\nobj_prop|linetype|Dashed\nobj_prop|linetypescale|2\nobj_prop|lineweight|35\n"
RECORD = "od_name|things\nod_key|object\nod_fld|year|Year|integer|2026\n"
PASSES = (0, 60)  # how far up the first and the second lie; what is cancelled is in the third
CANCELLED = 120


def place(vector):
    return tuple(Vec3(vector))


def box_of(places):
    """The lowest and the highest corner."""
    corners = [Vec3(corner) for corner in places]
    return [tuple(pick(corner[axis] for corner in corners) for axis in range(3)) for pick in (min, max)]


def extents(mesh):
    return box_of(mesh.vertices)


def length(line):
    return [abs(line.dxf.end - line.dxf.start)]


def direction(entity):
    return [place(entity.dxf.start), *entity.dxf.unit_vector.vec2]


def circle(entity):
    return [place(entity.dxf.center), entity.dxf.radius]


def ellipse(entity):
    dxf = entity.dxf
    return [place(dxf.center), tuple(dxf.major_axis)[0], dxf.ratio, dxf.start_param, dxf.end_param]


def dimension(*points):
    """The measure, and these points of the definition; the drawn block must be there."""

    def read(entity):
        assert len(entity.get_geometry_block()) > 2
        return [entity.dimtype, entity.dxf.actual_measurement] + [place(entity.dxf.get(point)) for point in points]

    return read


def ordinate(entity):
    measure, feature = entity.dxf.actual_measurement, entity.dxf.defpoint2
    return [entity.dimtype, bool(entity.dxf.dimtype & 64), (measure, feature.y, 0)]


def hatch(entity):
    paths = [len(path.vertices) if hasattr(path, "vertices") else len(path.edges) for path in entity.paths]
    lines = entity.pattern.lines if entity.pattern else []
    return [entity.dxf.pattern_name.lower(), entity.dxf.pattern_scale, entity.dxf.pattern_angle, paths, len(lines)]


def text(entity):
    dxf = entity.dxf
    return [dxf.text, place(entity.get_placement()[1]), dxf.height, dxf.rotation, dxf.style.lower()]


def mtext(entity):
    dxf = entity.dxf
    return [entity.text, place(dxf.insert), dxf.char_height, entity.get_rotation(), dxf.attachment_point, dxf.style.lower()]


def mleader(entity):
    line = entity.context.leaders[0].lines[0]
    style = entity.doc.entitydb[entity.dxf.style_handle].dxf.name
    return [entity.context.mtext.default_content, place(line.vertices[0]), style]


def mline(entity):
    dxf = entity.dxf
    return [dxf.style_name.lower(), dxf.justification, dxf.scale_factor, entity.is_closed, [place(p) for p in entity.get_locations()]]


def polyline(entity):
    return [entity.closed, entity.dxf.get("const_width", 0.0), entity.dxf.elevation] + [(x, y, 0) for x, y in entity.get_points("xy")]


def insert(entity):
    """The scale without what the units make of it: the block is in metres, a new drawing in millimetres, R12 has none."""
    dxf, units = entity.dxf, 1000 if entity.doc.units == ezdxf.units.MM else 1
    scales = [scale / units for scale in (dxf.xscale, dxf.yscale, dxf.zscale)]
    return [dxf.name.lower(), place(dxf.insert), *scales, dxf.rotation, [attribute.dxf.text for attribute in entity.attribs]]


def spline(entity):
    return [entity.closed, len(entity.fit_points)] + [place(point) for point in entity.fit_points[:3]]


def wipeout(entity):
    return box_of(entity.boundary_path_wcs())


@dataclass
class Kind:
    """An object, what one pass of its command is answered, and what another program reads of what was made."""

    type: str
    properties: str
    answers: str
    made: str
    read: Callable
    wanted: list
    count: int = 1  # of one pass
    begun: str = ""  # answers of the pass that is cancelled
    kept: int = 0  # what that pass leaves
    scene: str = ""  # native commands before
    passes: bool = True  # the command starts again by itself


def dimensioned(mode, answers, wanted, *points, made="DIMENSION", scene="", begun=""):
    return Kind("Dimension", f"dimensionmode|{mode};dimensionstyle|Narrow", answers, made, dimension(*points), wanted, scene=scene,
                begun=begun)


def mesh(mode, answers, low, high):
    return Kind("Mesh", f"meshmode|{mode}", answers, "MESH", extents, [low, high], begun=answers.splitlines()[0] + "\n")


CIRCLE = "CIRCLE 0,0 5\n"
ARC = "ARC C 0,0 5,0 0,5\n"
SQUARE = "PLINE 0,0 10,0 10,10 0,10 C\n"
HORIZONTAL = "hor\n0,0\n8,1\n4,5\n\n"  # in the mode of the dimensions
QUARTER = math.pi / 2

KINDS = {
    "Face": Kind("3DFace", "", "0,0\n9,0\n9,9,1\n0,9\n\n", "3DFACE", lambda e: [place(v) for v in e.wcs_vertices()],
                 [(0, 0, 0), (9, 0, 0), (9, 9, 1), (0, 9, 0)], begun="0,0\n9,0\n"),
    "Way": Kind("3DPolyline", "closed|1", "0,0\n9,0,1\n9,9,2\n\n", "POLYLINE",
                lambda e: [e.is_closed, *(place(v) for v in e.points())], [True, (0, 0, 0), (9, 0, 1), (9, 9, 2)],
                begun="0,0\n9,0\n9,9\n", kept=1),
    "Post": Kind("BlockReference", "blockname|Post;blockscale|2;angle|30", "1,2\n", "INSERT", insert,
                 ["post", (1, 2, 0), 2, 2, 2, 30, ["a", "b"]]),
    "Turned post": Kind("BlockReference", "blockname|Post;rotate|1", "1,2\n45\n", "INSERT", insert,
                        ["post", (1, 2, 0), 1, 1, 1, 45, ["a", "b"]], begun="1,2\n", kept=1),
    "Ring": Kind("Circle", "", "1,2\n3\n", "CIRCLE", circle, [(1, 2, 0), 3], begun="1,2\n"),
    "Ring 2p": Kind("Circle", "circlemode|2P", "0,0\n6,0\n", "CIRCLE", circle, [(3, 0, 0), 3], begun="0,0\n"),
    "Ring 3p": Kind("Circle", "circlemode|3P", "0,0\n3,3\n6,0\n", "CIRCLE", circle, [(3, 0, 0), 3], begun="0,0\n3,3\n"),
    "Ring at": Kind("Circle", "circlemode|center;circleradius|0.5", "1,2\n", "CIRCLE", circle, [(1, 2, 0), 0.5]),
    "Lamp": Kind("Circle", "circleradius|0.25", "1,2\n", "CIRCLE", circle, [(1, 2, 0), 0.25]),
    "Linear": dimensioned("linear", "0,0\n8,1\n4,5\n", [0, 8, (0, 0, 0), (8, 1, 0), (8, 5, 0)], "defpoint2", "defpoint3", "defpoint",
                          begun="0,0\n8,1\n"),
    "Aligned": dimensioned("aligned", "0,0\n3,4\n-4,3\n", [1, 5, (0, 0, 0), (3, 4, 0), (-1, 7, 0)],
                           "defpoint2", "defpoint3", "defpoint"),
    "Angular": dimensioned("angular", "\n0,0\n5,0\n0,5\n3,3\n", [5, QUARTER, (0, 0, 0), (5, 0, 0), (0, 5, 0)],
                           "defpoint4", "defpoint2", "defpoint3"),
    "Arc length": dimensioned("arc", "5,0\n7,7\n", [5, 5 * QUARTER, (0, 0, 0), (5, 0, 0), (0, 5, 0)],
                              "defpoint4", "defpoint2", "defpoint3", made="ARC_DIMENSION", scene=ARC),
    "Diameter": dimensioned("diameter", "5,0\n2,2\n", [3, 10], scene=CIRCLE),
    "Jogged": dimensioned("jogged", "5,0\n-10,0\n-2,2\n-6,1\n", [9, 5], made="LARGE_RADIAL_DIMENSION", scene=CIRCLE),
    "Ordinate": Kind("Dimension", "dimensionmode|ordinate;dimensionstyle|Narrow", "1,2\n1,9\n", "DIMENSION", ordinate,
                     [6, True, (1, 2, 0)]),
    "Radius": dimensioned("radius", "5,0\n2,2\n", [4, 5], scene=CIRCLE),
    "Any measure": Kind("Dimension", "dimensionstyle|Narrow", HORIZONTAL + "ver\n0,0\n8,1\n9,0\n\nexit\n", "DIMENSION",
                        dimension("defpoint2", "defpoint3"), [0, None, (0, 0, 0), (8, 1, 0)], count=2, begun=HORIZONTAL, kept=1),
    "Oval": Kind("Ellipse", "", "0,0\n8,0\n2\n", "ELLIPSE", ellipse, [(4, 0, 0), -4, 0.5, 0, 2 * math.pi], begun="0,0\n"),
    "Oval about": Kind("Ellipse", "ellipsemode|center", "0,0\n8,0\n2\n", "ELLIPSE", ellipse, [(4, 0, 0), -4, 0.5, 0, 2 * math.pi]),
    "Bow": Kind("Ellipse", "ellipsemode|arc", "0,0\n8,0\n2\n180\n270\n", "ELLIPSE", ellipse,
                [(4, 0, 0), -4, 0.5, math.pi, 3 * QUARTER]),
    "Field": Kind("Hatch", "pattern|ANSI31;patternscale|0.5;patternangle|30", "5,5\n\n", "HATCH", hatch, ["ansi31", 0.5, 30, [4], 1],
                  scene=SQUARE, passes=False),
    "Pond": Kind("Hatch", "hatchmode|point;pattern|Solid;patternscale|3", "5,5\n\n", "HATCH", hatch, ["solid", None, None, [4], 0],
                 scene=SQUARE, passes=False),
    "Lawn": Kind("Hatch", "hatchmode|boundary;pattern|ansi37;patternscale|2;patternangle|15", "0,0\n9,0\n9,9\n\n", "HATCH", hatch,
                 ["ansi37", 2, 15, [3], 2], begun="0,0\n9,0\n"),
    "Wall": Kind("Line", "", "0,0\n9,0\n9,9\n\n", "LINE", length, [9], count=2, begun="0,0\n9,0\n", kept=1),
    "Box": mesh("box", "0,0\n2,3\n1\n", (0, 0, 0), (2, 3, 1)),
    "Cone": mesh("cone", "0,0\n2\n5\n", (-2, -2, 0), (2, 2, 5)),
    "Cylinder": mesh("cylinder", "0,0\n2\n5\n", (-2, -2, 0), (2, 2, 5)),
    "Pyramid": mesh("pyramid", "0,0\n2,0\n5\n", (-2, -2, 0), (2, 2, 5)),
    "Sphere": mesh("sphere", "0,0\n2\n", (-2, -2, -2), (2, 2, 2)),
    "Wedge": mesh("wedge", "0,0\n2,3\n1\n", (0, 0, 0), (2, 3, 1)),
    "Torus": mesh("torus", "0,0\n4\n1\n", (-5, -5, -1), (5, 5, 1)),
    "Any mesh": Kind("Mesh", "", "box\n0,0\n2,3\n1\n", "MESH", extents, [(0, 0, 0), (2, 3, 1)], begun="box\n"),
    "Note": Kind("MLeader", "mleaderstyle|Note", "0,0\n5,5\nOak\n", "MULTILEADER", mleader, ["Oak", (0, 0, 0), "note"], begun="0,0\n"),
    "Fence": Kind("Mline", "mlinestyle|Fence;mlinescale|2;mlinejustification|zero;closed|1", "0,0\n5,0\n5,5\n\n", "MLINE", mline,
                  ["fence", 1, 2, True, [(0, 0, 0), (5, 0, 0), (5, 5, 0)]], begun="0,0\n5,0\n", kept=1),
    "Rail": Kind("Mline", "mlinejustification|bottom", "0,0\n5,0\n\n", "MLINE", mline, [None, 2, None, False, [(0, 0, 0), (5, 0, 0)]]),
    "Plot": Kind("MPolygon", "pattern|ansi31;patternscale|2;patternangle|30", "0,0\n9,0\n9,9\n\n\n", "MPOLYGON", hatch,
                 ["ansi31", 2, 30, [3], 1], begun="0,0\n9,0\n"),
    "Remark": Kind("MText", "text|Oak;textheight|2;mtextattachmentpoint|middlecenter;textstyle|Slim;angle|90", "1,2\n\n", "MTEXT", mtext,
                   ["Oak", (1, 2, 0), 2, 90, 5, "slim"], begun="1,2\n"),
    "Spot": Kind("Point", "", "1,2\n", "POINT", lambda e: [place(e.dxf.location)], [(1, 2, 0)]),
    "Edge": Kind("Polyline", "closed|1;constantwidth|0.5;elevation|7", "0,0\n9,0\n9,9\n\n", "LWPOLYLINE", polyline,
                 [True, 0.5, 7, (0, 0, 0), (9, 0, 0), (9, 9, 0)], begun="0,0\n9,0\n9,9\n", kept=1),
    "Sight": Kind("Ray", "", "0,0\n3,4\n\n", "RAY", direction, [(0, 0, 0), 0.6, 0.8],
                  begun="0,0\n3,4\n", kept=1),
    "Stream": Kind("Spline", "", "0,0\n4,4\n8,0\n\n", "SPLINE", spline, [False, 3, (0, 0, 0), (4, 4, 0), (8, 0, 0)], begun="0,0\n4,4\n"),
    "Lake": Kind("Spline", "closed|1", "0,0\n4,4\n8,0\n\n", "SPLINE", spline, [True, None, (0, 0, 0), (4, 4, 0), (8, 0, 0)]),
    "Label": Kind("Text", "textheight|2;textjustification|topright;textstyle|Slim;angle|90", "1,2\nOak\n", "TEXT", text,
                  ["Oak", (1, 2, 0), 2, 90, "slim"], begun="1,2\n"),
    "Turned label": Kind("Text", "text|Elm;textheight|2;rotate|1;textstyle|Slim", "1,2\n\n45\n", "TEXT", text,
                         ["Elm", (1, 2, 0), 2, 45, "slim"], begun="1,2\n\n", kept=1),
    "Blank": Kind("Wipeout", "", "0,0\n9,0\n9,9\n\n", "WIPEOUT", wipeout, [(0, 0, 0), (9, 9, 0)], begun="0,0\n9,0\n"),
    "Axis": Kind("Xline", "", "0,0\n3,4\n\n", "XLINE", direction, [(0, 0, 0), 0.6, 0.8],
                 begun="0,0\n3,4\n", kept=1),
    "Broken edge": Kind("Polyline", "explode|1", "0,0\n9,0\n9,9\n\n", "LINE", length, [9], count=2),
    "Broken slab": Kind("BlockReference", "blockname|Slab;explode|1", "1,2\n", "LWPOLYLINE", polyline,
                        [True, 0, 0, (1, 2, 0), (2, 2, 0), (2, 3, 0), (1, 3, 0)]),
}


def moved(answers, x, y):
    """The typed points elsewhere."""
    return re.sub(r"(-?[\d.]+),(-?[\d.]+)", lambda found: f"{float(found[1]) + x:g},{float(found[2]) + y:g}", answers)


def corners():
    return {name: (100.0 * (number % 8), 300.0 * (number // 8)) for number, name in enumerate(KINDS)}


def script():
    text = ""
    for name, (x, y) in corners().items():
        kind = KINDS[name]
        text += "".join(moved(kind.scene, x, y + up) for up in PASSES)
        start = f"KELMARO_DRAW {name}\n"
        again = "" if kind.passes else start
        text += start + again.join(moved(kind.answers, x, y + up) for up in PASSES)
        if kind.passes:
            text += moved(kind.begun, x, y + CANCELLED) + "^C\n"
    return text


def description(objects):
    """Objects: name to type and properties."""
    text = "".join(f"{kind}|stock.dwt\n" for kind in RESOURCES) + "class|All|1\n"
    for name, (types, properties) in objects.items():
        lines = properties.split(";") if properties else []
        text += f"obj_name|{name}|1|1\nobj_type|{types}\n{LOOK}" + "".join(f"obj_prop|{line}\n" for line in lines) + RECORD
    return text + "/class\n"


def record_of(entity):
    if not entity.has_extension_dict:
        return None
    record = entity.get_extension_dict().dictionary.get("things")
    return record and [tag.value for tag in record.tags]


class Draw(AcceptanceTest):
    def setUp(self):
        super().setUp()
        doc = ezdxf.new("R2018", setup=False)
        doc.header["$INSUNITS"] = 6
        doc.layers.add("Drawn", color=5)
        doc.linetypes.add("Dashed", [1.5, 1.0, -0.5])
        doc.styles.add("Slim", font="txt")
        doc.dimstyles.new("Narrow", dxfattribs={"dimtxt": 0.5, "dimasz": 0.5})
        fence = doc.mline_styles.new("fence")
        fence.elements.append(0.5)
        fence.elements.append(-0.5)
        doc.mleader_styles.new("note")
        for name, units in (("Slab", 0), ("Post", 6)):
            block = doc.blocks.new(name)
            block.block_record.dxf.units = units
            block.add_lwpolyline([(0, 0), (1, 0), (1, 1), (0, 1)], close=True)
        for tag, text in (("A", "a"), ("B", "b")):
            block.add_attdef(tag, (0, 2), text, dxfattribs={"height": 0.5})
        doc.saveas(self.folder / "stock.dwt", fmt="asc")

    def given(self, version):
        """Arguments that begin in a drawing of this version, or in a new one."""
        if not version:
            return []
        doc = ezdxf.new(version, setup=False)
        doc.modelspace().add_line((-50, -50), (-40, -50))
        doc.saveas(self.folder / "given.dxf")
        return ["given.dxf"]

    def typed(self, text, *arguments):
        """What the program prints under objects.txt while a script types this."""
        self.write("typed.scr", text)
        return self.run_program(*arguments, "-d", "objects.txt", "-s", "typed.scr", "-o", "done.dxf")

    def drawn(self):
        self.assert_sound("done.dxf")
        return ezdxf.readfile(self.folder / "done.dxf").modelspace()

    def assert_values(self, got, wanted, corner):
        self.assertEqual(len(got), len(wanted), got)
        for value, expected in zip(got, wanted):
            if isinstance(expected, list) and expected and isinstance(expected[0], tuple):
                self.assert_values(value, expected, corner)
            elif isinstance(expected, tuple):
                self.assertTrue(Vec3(value).isclose(Vec3(expected) + corner, abs_tol=1e-6), f"{Vec3(value) - corner}, not {expected}")
            elif isinstance(expected, (int, float)) and not isinstance(expected, bool):
                self.assertAlmostEqual(value, expected, 6)
            elif expected is not None:
                self.assertEqual(value, expected)

    def check_kind(self, name, entities):
        kind = KINDS[name]
        x, y = corners()[name]
        ups = [up for up in PASSES for _ in range(kind.count)] + [CANCELLED] * kind.kept
        self.assertEqual([entity.dxftype() for entity in entities], [kind.made] * len(ups))
        for entity, up in zip(entities, ups):
            self.assertEqual({key: entity.dxf.get(key) for key in COMMON}, COMMON)
            self.assertEqual(record_of(entity), [name, 2026])
            if kind.made.endswith("DIMENSION"):
                self.assertEqual(entity.dxf.dimstyle.lower(), "narrow")
            if up != CANCELLED:
                self.assert_values(kind.read(entity), kind.wanted, Vec3(x, y + up))

    def test_every_kind_is_drawn_until_cancelled(self):
        self.describe(description({name: (kind.type, kind.properties) for name, kind in KINDS.items()}))
        for version in (None, "R12", "R2000", "R2010"):
            told = self.typed(script(), *self.given(version))
            self.assertNotRegex(told, "rror|arning|nknown|stopped")
            by_name = {}
            for entity in self.drawn():
                record = record_of(entity)
                by_name.setdefault(record[0] if record else None, []).append(entity)
            for name in KINDS:
                with self.subTest(version=version, name=name):
                    self.check_kind(name, by_name.get(name, []))

    def test_one_undo_takes_a_script_back(self):
        self.describe(description({name: (kind.type, kind.properties) for name, kind in KINDS.items()}))
        for version in (None, "R12", "R2000"):
            with self.subTest(version=version):
                given = self.given(version)
                self.run_program(*given, "-d", "objects.txt", "-c", "", "-o", "before.dxf")
                self.write("draw.scr", script())
                self.run_program(*given, "-d", "objects.txt", "-s", "draw.scr", "-c", "U", "-o", "done.dxf")
                before, after = (ezdxf.readfile(self.folder / name) for name in ("before.dxf", "done.dxf"))
                self.assertEqual(len(after.modelspace()), len(before.modelspace()))
                self.assertEqual({block.name for block in after.blocks}, {block.name for block in before.blocks})
                self.assertEqual(set(after.entitydb), set(before.entitydb))
                self.assert_sound("done.dxf")

    def looks(self):
        """Of each entity of the drawing: type, layer, the object of its record."""
        return [(e.dxftype(), e.dxf.layer, (record_of(e) or [None])[0]) for e in self.drawn()]

    def test_a_boundary_stays_as_it_was_drawn(self):
        self.describe(description({"Lawn": ("Hatch", KINDS["Lawn"].properties)}))
        told = self.typed("KELMARO_DRAW Lawn\n0,0\n9,0\n9,9\n\n0,20\n9,20\n\n0,30\n9,30\n9,39\n\n0,0\n9,0\n^C\n")
        self.assertNotRegex(told, "rror")
        line, area = ("LWPOLYLINE", "0", None), ("HATCH", "Drawn", "Lawn")
        self.assertEqual(self.looks(), [line, area, line, area])
        for entity in self.drawn():
            if entity.dxftype() == "HATCH":
                self.assertTrue(entity.dxf.associative)
                sources = [entity.doc.entitydb[handle] for path in entity.paths for handle in path.source_boundary_objects]
                self.assertEqual([(source.dxftype(), source.closed) for source in sources], [("LWPOLYLINE", True)])
                self.assertIn(entity.dxf.handle, sources[0].reactors)

    def test_arches_wait_for_a_face(self):
        self.describe(description({"Arch": ("Arc", ""), "Wall": ("Line", "")}))
        arch = "KELMARO_DRAW Arch\n0,0\n5,5\n10,0\n"
        face = "3DFACE\n0,0\n9,0\n9,9\n\n\n"
        plain, done = ("ARC", "0", None), ("ARC", "Drawn", "Arch")
        for text, wanted in (
            (arch, [plain]),
            (arch + "ARC 0,20 5,25 10,20\n" + face + "0,40\n5,45\n10,40\n^C\n", [done, done, ("3DFACE", "0", None), plain]),
            (arch + "KELMARO_DRAW Wall\n0,0\n9,0\n\n^C\n" + face, [plain, ("LINE", "Drawn", "Wall"), ("3DFACE", "0", None)]),
        ):
            with self.subTest(text=text):
                self.assertNotRegex(self.typed(text), "rror|nknown")
                self.assertEqual(self.looks(), wanted)
        self.typed(arch)
        self.assertEqual([tuple(e.dxf.center.round(6)) + (e.dxf.radius, e.dxf.start_angle, e.dxf.end_angle) for e in self.drawn()],
                         [(5, 0, 0, 5, 0, 180)])

    def test_an_open_colour_is_asked_for_each_time(self):
        self.describe(description({"Wall": ("Line", "")}).replace("color|3", "color|*"))
        start, rest = "KELMARO_DRAW Wall\n", "0,0\n9,0\n^C\n"
        for answer, color in (("5", 5), ("ByLayer", 256), ("(1 2 3)", (1, 2, 3)), ("", 256), ("red", None), ("^C", None)):
            with self.subTest(answer=answer):
                told = self.typed(start + answer + "\n" + (rest if color else "") + start + "1\n" + rest)
                self.assertEqual(told.count("color: "), 2)
                self.assertEqual(told.count("error: invalid value\n"), 0 if color else 1)
                self.assertEqual([entity.rgb or entity.dxf.color for entity in self.drawn()], [color, 1] if color else [1])

    def test_variables_are_set_while_an_object_is_drawn(self):
        wall = description({"Wall": ("Line", ""), "Arch": ("Arc", ""), "Block of wood": ("3DSolid", "")})
        own = "variable|LUPREC|6\nvariable|TEXTSIZE|7.5\nvariable|NOSUCH|1\nod_name"
        self.describe("variable|AUPREC|3\n" + wall.replace("od_name", own))
        shown = "LUPREC\n\nTEXTSIZE\n\nAUPREC\n\n"
        before, during = ["4", "2.5000", "3"], ["6", "7.500000", "3"]
        for text, wanted in (
            ("KELMARO_DRAW Wall\n'LUPREC\n\n'TEXTSIZE\n\n'AUPREC\n\n0,0\n9,0\n^C\n" + shown, during + before),
            ("AUPREC\n5\nKELMARO_DRAW Wall\n^C\n" + shown, ["3"] + before),  # what the file sets comes with every draw
            ("KELMARO_DRAW Block of wood\n" + shown, during),  # nothing is drawn, nothing put back
            ("KELMARO_DRAW Arch\n0,0\n5,5\n10,0\nKELMARO_DRAW Wall\n^C\n" + shown, during),  # the old values were those of Arch
        ):
            with self.subTest(text=text):
                told = self.typed(text)
                self.assertIn("warning: invalid variable 'NOSUCH'", told)
                self.assertEqual(re.findall(r"Enter new value for \w+ <(.*?)>", told), wanted)

    def test_what_is_not_drawn_is_told(self):
        moor = "obj_name|Moor|1|1\nobj_type|Line\nobj_prop|layer|"
        self.describe(description({"Wood": ("3DSolid", ""), "Hill": ("Surface,Line", ""), "Bush": ("BlockReference", ""),
                                   "Elm": ("BlockReference", "blockname|elm"), "Moor": ("Line", "")})
                      .replace(moor + "Drawn", moor + "gone"))
        unsupported = "KELMARO message\nDrawing not supported.\nCommand: "
        for typed, wanted in (
            ("Wood", unsupported), ("Hill", unsupported), ("Bush", unsupported),
            ("No Body", "Object: No Body\nerror: 'no body' undefined\nCommand: "),
            ("Elm", "error: unable to load dependecies for object 'Elm'\nCommand: "),
            ("Moor", "error: unable to load dependecies for object 'Moor'\nCommand: "),
            ("", "Object: \nCommand: "), ("^C", "Object: *Cancel*\nCommand: "),
        ):
            with self.subTest(typed=typed):
                told = self.typed(f"KELMARO_DRAW\n{typed}\nLINE 0,0 9,0\n\n")
                self.assertIn(wanted + "LINE", told)
                self.assertEqual(self.looks(), [("LINE", "0", None)])
        told = self.run_program("-c", "KELMARO_DRAW")
        self.assertEqual(told, "Command: KELMARO_DRAW\nError: no file loaded.\nCommand: \n")

    def test_a_table_of_other_fields_is_refused(self):
        self.describe(description({"Wall": ("Line", "")}))
        doc = ezdxf.new("R2018")
        doc.layers.add("Drawn")
        doc.rootdict.add_new_dict("ODEMUDATA").add_xrecord("things").reset([(1, "object"), (1, ""), (1, "year"), (1, "")])
        doc.saveas(self.folder / "other.dxf")
        told = self.typed("OPEN\nother.dxf\nKELMARO_DRAW Wall\nLINE 0,0 9,0\n\n")
        self.assertIn("Error\nError: table 'things' does not match existing definition.\nCommand: LINE", told)
        self.assertEqual(self.looks(), [("LINE", "0", None)])

    def test_a_draw_that_never_asks_is_stopped(self):
        self.describe(description({"Post": ("BlockReference", "blockname|post")}))
        told = self.typed("NEW\nSAVEAS\nstock.dwt\nY\nKELMARO_DRAW Post\n")  # the file that had the block
        self.assertIn("Queued commands ran 1,000 times without asking; stopped.\nCommand: ", told)
        self.assertEqual(self.looks(), [])

    def test_what_is_taken_back_while_drawing_is_forgotten(self):
        self.describe(description({"Wall": ("Line", "")}))
        self.typed("KELMARO_DRAW Wall\n0,0\n9,0\n9,9\nU\n\n0,5\nU\n9,5\nU\nU\n^C\nLINE 0,8 9,8\n\n")
        self.assertEqual(self.looks(), [("LINE", "Drawn", "Wall"), ("LINE", "0", None)])

    def test_everything_may_go_while_an_object_is_drawn(self):
        self.describe(description({"Arch": ("Arc", ""), "Wall": ("Line", "")}))
        self.describe(description({"Fence": ("Line", "")}), "other.txt")
        arch, face = "KELMARO_DRAW Arch\n0,0\n5,5\n10,0\n", "3DFACE\n0,0\n9,0\n9,9\n\n\n^C\n"
        arched, plain = [("ARC", "Drawn", "Arch")], [("3DFACE", "0", None)]
        for text, wanted in (
            ("KELMARO_LOAD\nother.txt\n", arched + plain),
            ("KELMARO_LOAD\nnowhere.txt\n", arched + plain),
            ("KELMARO_RELOAD\n", arched + plain),
            ("CLOSE\nY\nNEW\n", plain),
            ("NEW\n", plain),
            ("U\n", plain),
            ("ERASE\nALL\n\n", plain),
        ):
            with self.subTest(text=text):
                self.assertNotRegex(self.typed(arch + text + face), "nknown")
                self.assertEqual(self.looks(), wanted)
        for text, lines in (("QUIT\nY\n", 0), ("KELMARO_DRAW Wall\n", 0), ("KELMARO_DRAW Wall\n0,20\n9,20\n", 1)):
            with self.subTest(text=text):  # the end of the input comes inside the command
                self.typed(arch + text)
                self.assertEqual(self.looks(), [("ARC", "0", None)] + [("LINE", "Drawn", "Wall")] * lines)


if __name__ == "__main__":
    acceptance.main()
