#!/usr/bin/python3
"""The look of an entity of every type that has settable properties put right in both modes: restore_test.py KELMARO

Of each type there are two: one that looks wrong throughout, one whose every value is allowed but not the first choice. With mode 0
the first gets the first choice and the second stays; with mode 1 both get it. Where a property keeps another rule, the table says so.
"""

import re

import ezdxf
from ezdxf.math import Vec2

import acceptance
from acceptance import AcceptanceTest, tag_values

# Keyword: the first choice, what else is allowed, and the values as the drawing has them: first choice, allowed, wrong.
COMMON = {
    "layer": ("right", "right,also", ("right", "also", "wrong")),
    "color": ("1", "2", (1, 2, 3)),
    "linetype": ("dashed", "dashed,dot", ("dashed", "dot", "center")),
    "linetypescale": ("2", "1:3", (2, 1.5, 9)),
    "lineweight": ("25", "25,35", (25, 35, 50)),
}
CLOSED = {"closed": ("1", "", (True, True, False))}
PATTERN = {
    "pattern": ("ansi31", "ansi31,ansi37", ("ansi31", "ansi37", "ansi32")),
    "patternangle": ("30", "20:40", (30, 40, 70)),
    "patternscale": ("2", "1:3", (2, 3, 5)),
}
LETTERS = {"textheight": ("2.5", "2:3", (2.5, 3, 7)), "textstyle": ("slim", "slim,plain", ("slim", "plain", "wide"))}
TYPES = {
    "3DPolyline": CLOSED,
    "Arc": {},
    "BlockReference": {"blockname": ("post", "post,pole", ("post", "pole", "stake")), "blockscale": ("2", "1:3", (2, 3, 5))},
    "Circle": {"circleradius": ("4", "3:5", (4, 5, 9))},
    "Dimension": {"dimensionstyle": ("narrow", "narrow,broad", ("narrow", "broad", "Standard"))},
    "Hatch": {**PATTERN, "backgroundcolor": ("5", "6", (5, 6, 4))},
    "MLeader": {"mleaderstyle": ("note", "note,remark", ("note", "remark", "Standard"))},
    "Mline": {**CLOSED, "mlinejustification": ("bottom", "bottom,zero", (2, 1, 0)), "mlinescale": ("2", "1:3", (2, 3, 5)),
              "mlinestyle": ("fence", "fence,rail", ("fence", "rail", "Standard"))},
    "MPolygon": {**PATTERN, "patterncolor": ("5", "6", (5, 6, 4))},
    "MText": {"mtextattachmentpoint": ("middlecenter", "middlecenter,topleft", (5, 1, 9)), **LETTERS},
    "Polyline": {**CLOSED, "constantwidth": ("0.5", "0:1", (0.5, 1, 3)), "elevation": ("10", "9:11", (10, 11, 50))},
    "Spline": CLOSED,
    "Text": {"textjustification": ("topright", "topright,middle", ("TOP_RIGHT", "MIDDLE", "LEFT")), **LETTERS},
}

# Where the rule is another: by mode, what becomes of the allowed and of the wrong value.
KEPT_BY_FORCE = {0: ("allowed", "first"), 1: ("allowed", "wrong")}
OTHER_RULES = {
    ("Text", "textstyle"): KEPT_BY_FORCE,
    ("MText", "textstyle"): KEPT_BY_FORCE,
    ("Polyline", "elevation"): {0: ("first", "wrong"), 1: ("first", "first")},
}


def description():
    text = "class|All|1\n"
    for kind, own in TYPES.items():
        text += f"obj_name|A {kind}|1|1\nobj_type|{kind}\n"
        for keyword, (first, allowed, _) in {**COMMON, **own}.items():
            text += f"obj_prop|{keyword}|{first}" + (f"|{allowed}\n" if allowed else "\n")
        text += "od_name|things\nod_key|object\n"
    return text + "/class\n"


def new_drawing():
    doc = ezdxf.new("R2018", setup=True)
    doc.appids.add("HATCHBACKGROUNDCOLOR")
    for layer in COMMON["layer"][2]:
        doc.layers.add(layer)
    for style in LETTERS["textstyle"][2]:
        doc.styles.add(style, font="txt")
    for style in TYPES["Dimension"]["dimensionstyle"][2][:2]:
        doc.dimstyles.new(style)
    for style in TYPES["Mline"]["mlinestyle"][2][:2]:
        doc.mline_styles.new(style).elements.append(0.5)
        doc.mline_styles.get(style).elements.append(-0.5)
    for style in TYPES["MLeader"]["mleaderstyle"][2][:2]:
        doc.mleader_styles.new(style)
    for name in TYPES["BlockReference"]["blockname"][2]:
        block = doc.blocks.new(name)
        block.add_line((0, 0), (0, 1))
        block.add_attdef("OWNER", (1, 0), "the city", dxfattribs={"height": 0.5})
    return doc


def fill(area):
    area.paths.add_polyline_path([(0, 0), (9, 0), (9, 9), (0, 9)], is_closed=True)
    return area


def patterned(area, v):
    area.set_pattern_fill(v["pattern"].upper(), scale=v["patternscale"], angle=v["patternangle"])
    return fill(area)


def hatch(msp, v):
    made = patterned(msp.add_hatch(), v)
    made.set_xdata("HATCHBACKGROUNDCOLOR", [(1071, -1023410176 + v["backgroundcolor"])])  # a colour of the index
    return made


def mpolygon(msp, v):
    made = patterned(msp.add_mpolygon(), v)
    made.dxf.fill_color = v["patterncolor"]
    return made


def mleader(msp, v):
    builder = msp.add_multileader_mtext(v["mleaderstyle"])
    builder.set_content("a note")
    builder.build(insert=Vec2(5, 5))
    return msp[-1]


def insert(msp, v):
    made = msp.add_blockref(v["blockname"], (3, 4), {"rotation": 30}).set_scale(v["blockscale"])
    made.add_attrib("OWNER", "nobody", (4, 4), {"height": 0.5})
    return made


def mline(msp, v):
    made = msp.add_mline([(0, 0), (5, 0), (5, 5)], close=v["closed"], dxfattribs={"style_name": v["mlinestyle"]})
    made.set_justification(v["mlinejustification"])
    made.set_scale_factor(v["mlinescale"])
    return made


def mtext(msp, v):
    made = msp.add_mtext("a text", {"char_height": v["textheight"], "style": v["textstyle"]})
    made.dxf.attachment_point = v["mtextattachmentpoint"]
    return made


def dimension(msp, v):
    return msp.add_linear_dim(base=(0, 2), p1=(0, 0), p2=(3, 0), dimstyle=v["dimensionstyle"]).render().dimension


def polyline(msp, v):
    attributes = {"const_width": v["constantwidth"], "elevation": v["elevation"]}
    return msp.add_lwpolyline([(0, 0), (1, 0), (1, 1)], close=v["closed"], dxfattribs=attributes)


def spline(msp, v):
    made = msp.add_spline()
    (made.set_closed if v["closed"] else made.set_open_uniform)([(0, 0, 0), (1, 2, 0), (3, 1, 0), (4, 4, 0)])
    return made


def text(msp, v):
    made = msp.add_text("a text", height=v["textheight"], dxfattribs={"style": v["textstyle"]})
    return made.set_placement((2, 3), align=ezdxf.enums.TextEntityAlignment[v["textjustification"]])


MAKERS = {
    "3DPolyline": lambda msp, v: msp.add_polyline3d([(0, 0, 0), (1, 0, 1), (1, 1, 2)], close=v["closed"]),
    "Arc": lambda msp, v: msp.add_arc((0, 0), 3, 0, 90),
    "BlockReference": insert,
    "Circle": lambda msp, v: msp.add_circle((0, 0), v["circleradius"]),
    "Dimension": dimension,
    "Hatch": hatch,
    "MLeader": mleader,
    "Mline": mline,
    "MPolygon": mpolygon,
    "MText": mtext,
    "Polyline": polyline,
    "Spline": spline,
    "Text": text,
}


def style_of(entity, styles):
    return next(name for name, style in styles if style.dxf.handle == entity.dxf.style_handle)


READERS = {
    "layer": lambda e: e.dxf.layer,
    "color": lambda e: e.dxf.color,
    "linetype": lambda e: e.dxf.linetype,
    "linetypescale": lambda e: e.dxf.ltscale,
    "lineweight": lambda e: e.dxf.lineweight,
    "closed": lambda e: e.is_closed if e.dxftype() in ("POLYLINE", "MLINE") else e.closed,
    "blockname": lambda e: e.dxf.name,
    "blockscale": lambda e: e.dxf.yscale,
    "circleradius": lambda e: e.dxf.radius,
    "dimensionstyle": lambda e: e.dxf.dimstyle,
    "pattern": lambda e: e.dxf.pattern_name,
    "patternangle": lambda e: e.dxf.pattern_angle,
    "patternscale": lambda e: e.dxf.pattern_scale,
    "backgroundcolor": lambda e: e.get_xdata("HATCHBACKGROUNDCOLOR")[0].value & 0xFF,
    "patterncolor": lambda e: e.dxf.fill_color,
    "mleaderstyle": lambda e: style_of(e, e.doc.mleader_styles),
    "mlinejustification": lambda e: e.dxf.justification,
    "mlinescale": lambda e: e.dxf.scale_factor,
    "mlinestyle": lambda e: e.dxf.style_name,
    "mtextattachmentpoint": lambda e: e.dxf.attachment_point,
    "textheight": lambda e: e.dxf.char_height if e.dxftype() == "MTEXT" else e.dxf.height,
    "textstyle": lambda e: e.dxf.style,
    "textjustification": lambda e: e.get_align_enum().name,
    "constantwidth": lambda e: e.dxf.get("const_width", 0),
    "elevation": lambda e: e.dxf.elevation,
}
VALUES = {"first": 0, "allowed": 1, "wrong": 2}


def make(doc, kind, which):
    """An entity with the values that are first choice, allowed or wrong."""
    own = {keyword: values[VALUES[which]] for keyword, (_, _, values) in TYPES[kind].items()}
    entity = MAKERS[kind](doc.modelspace(), own)
    common = {keyword: values[VALUES[which]] for keyword, (_, _, values) in COMMON.items()}
    entity.dxf.update({"layer": common["layer"], "color": common["color"], "linetype": common["linetype"],
                       "ltscale": common["linetypescale"], "lineweight": common["lineweight"]})
    return entity


class Restoring(AcceptanceTest):
    def setUp(self):
        """Each entity has the record of its object and one of a table that no description knows."""
        super().setUp()
        self.describe(description())
        doc = new_drawing()
        store = doc.rootdict.add_new_dict("ODEMUDATA")
        store.add_xrecord("things").reset([(1, "object"), (1, "")])
        store.add_xrecord("marks").reset([(1, "mark"), (1, "")])
        for kind in TYPES:
            for which in ("wrong", "allowed"):
                extension = make(doc, kind, which).new_extension_dict()
                extension.add_xrecord("things").reset([(1, f"A {kind}")])
                extension.add_xrecord("marks").reset([(1, f"{kind} {which}")])
        doc.saveas(self.folder / "drawing.dxf")

    def restored(self, *commands):
        """By their marks, the entities as they are after the commands; they have kept their records."""
        typed = "".join(f"{command} ALL\n\n" for command in commands)
        told = self.run_program("drawing.dxf", "-d", "objects.txt", "-c", typed, "-o", "restored.dxf")
        self.assertNotRegex(told, "rror|arning")
        self.assertEqual(re.findall(r"Completed: (\d+)/", told), [str(2 * len(TYPES) // len(commands))] * len(commands))
        self.assert_sound("restored.dxf")
        self.doc = ezdxf.readfile(self.folder / "restored.dxf")  # its entities live no longer than it does
        found = {}
        for entity in self.doc.modelspace():
            records = entity.get_extension_dict().dictionary
            mark = records["marks"].tags[0].value
            self.assertEqual(tag_values(records["things"].tags), [(1, f"A {mark.split()[0]}")])
            found[mark] = entity
        self.assertEqual(set(found), {f"{kind} {which}" for kind in TYPES for which in ("wrong", "allowed")})
        return found

    def test_every_type_in_both_modes(self):
        for mode in (0, 1):
            for name, commands in (("any object", [f"KELMARO_RESTORE\n\n{mode}"]),
                                   ("by name", [f"KELMARO_RESTORE A {kind}\n{mode}" for kind in TYPES])):
                found = self.restored(*commands)
                for kind, own in TYPES.items():
                    with self.subTest(f"{kind}, mode {mode}, {name}"):
                        for keyword, (_, _, values) in {**COMMON, **own}.items():
                            self.check_property(found, kind, mode, keyword, values)

    def check_property(self, found, kind, mode, keyword, values):
        usual = {0: ("allowed", "first"), 1: ("first", "first")}
        allowed, wrong = OTHER_RULES.get((kind, keyword), usual)[mode]
        for which, becomes in (("allowed", allowed), ("wrong", wrong)):
            value, expected = READERS[keyword](found[f"{kind} {which}"]), values[VALUES[becomes]]
            if isinstance(expected, str):
                self.assertEqual(value.lower(), expected.lower(), (keyword, which))
            else:
                self.assertAlmostEqual(value, expected, 9, (keyword, which))

    def test_the_check_agrees_after_both(self):
        typed = "KELMARO_RESTORE\n\n0 ALL\n\nKELMARO_RESTORE\n\n1 ALL\n\nKELMARO_SEL_ALL 1 1 0 ALL\n\n"
        told = self.run_program("drawing.dxf", "-d", "objects.txt", "-c", typed)
        self.assertIn("Selected: 0\n", told)

    def test_what_is_replaced_stays_where_it_was(self):
        for which in ("wrong", "allowed"):
            reference = self.restored("KELMARO_RESTORE\n\n1")[f"BlockReference {which}"]
            self.assertEqual(reference.dxf.insert, (3, 4, 0))
            self.assertAlmostEqual(reference.dxf.rotation, 30, 9)
            self.assertEqual([(a.dxf.tag, a.dxf.text) for a in reference.attribs], [("OWNER", "the city")])

    def test_a_text_that_is_justified_stays_at_its_point(self):
        self.assertEqual(self.restored("KELMARO_RESTORE\n\n0")["Text wrong"].get_placement()[1], (2, 3, 0))

    def test_lines_of_a_pattern_follow_angle_and_scale(self):
        found = self.restored("KELMARO_RESTORE\n\n1")
        for mark in ("Hatch wrong", "Hatch allowed"):
            line, = found[mark].pattern.lines  # one line at 45 degrees, in metric drawings 3.175 apart
            self.assertAlmostEqual(line.angle, 75, 6)
            self.assertAlmostEqual(Vec2(line.offset).magnitude, 6.35, 6)


if __name__ == "__main__":
    acceptance.main()
