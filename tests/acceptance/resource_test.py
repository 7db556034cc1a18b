#!/usr/bin/python3
"""Where what a description names comes from: resource drawings of three versions, whole files as blocks, linetype, multiline and
pattern files; all that a drawing of another program has, into an empty one; and what is said of that which nobody supplies:
resource_test.py KELMARO DRAWINGS...
"""

import re

import ezdxf
from ezdxf.math import Vec2

import acceptance
from acceptance import AcceptanceTest, drawings, findings, read_elsewhere

DESCRIPTION = """\
blockreference|stock.dwt
dimension|stock.dwt
layer|stock.dwt
layout|stock.dwt
linetype|stock.dwt
mleader|stock.dwt
mline|stock.dwt
textstyle|stock.dwt
blockreferencefile|gate.dwt
linetype|lines.lin
mline|rails.mln
pattern|fields.pat
class|All|1
obj_name|Post|1|9
obj_type|BlockReference
obj_prop|blockname|post
obj_prop|layer|posts
obj_prop|linetype|post line
od_name|posts
od_key|object
obj_name|Gate|1|8
obj_type|BlockReference
obj_prop|blockname|gate
obj_prop|linetype|wave
obj_name|Measure|1|7
obj_type|Dimension
obj_prop|dimensionstyle|narrow
obj_name|Note|1|6
obj_type|MLeader
obj_prop|mleaderstyle|note
obj_name|Fence|1|5
obj_type|Mline
obj_prop|mlinestyle|fence
od_name|fences
od_key|object
obj_name|Rail|1|4
obj_type|Mline
obj_prop|mlinestyle|rail
od_name|rails
od_key|object
obj_name|Field|1|3
obj_type|Hatch
obj_prop|pattern|furrow
obj_prop|patternscale|2
obj_prop|patternangle|0
od_name|fields
od_key|object
obj_name|Label|1|2
obj_type|Text
obj_prop|textstyle|slim
od_name|labels
od_key|object
/class
"""
LINES = "; lines of ours\n*WAVE,A wave ~~~\nA,2,-1,.5,-1\n*OTHER,Nobody asks for it\nA,1,-1\n"
RAILS = "MLSTYLE\n  2\nRAIL\n 70\n0\n  3\nA pair\n 62\n256\n 51\n90.0\n 52\n90.0\n 71\n2\n" + "".join(
    f" 49\n{offset}\n 62\n256\n  6\nBYLAYER\n" for offset in (0.7, -0.7)) + "  0\n"
FIELDS = """\
; patterns of ours
*FURROW,Lines in pairs
30, 0,0, 0,1.5
30, 0.25,0, 1,1.5, 2,-0.5
*OTHER,Nobody asks for it
0,0,0,0,1
"""

MISSING = {
    "blockname": "block", "dimensionstyle": "dimension", "layer": "layer", "linetype": "linetype", "mleaderstyle": "mleader",
    "mlinestyle": "mline", "pattern": "pattern", "textstyle": "textstyle",
}


# Directive: the property that names the records, and where the other program keeps them.
KINDS = {
    "blockreference": ("blockname", "blocks"), "dimension": ("dimensionstyle", "dimstyles"), "layer": ("layer", "layers"),
    "linetype": ("linetype", "linetypes"), "mleader": ("mleaderstyle", "mleader_styles"), "mline": ("mlinestyle", "mline_styles"),
    "textstyle": ("textstyle", "styles"),
}


def names_of(doc):
    """By the properties that name them, the records that a description can name: lower-cased, no anonymous ones."""
    found = {}
    for keyword, table in KINDS.values():
        records = (record[0] if isinstance(record, tuple) else getattr(record, "dxf", record).name for record in getattr(doc, table))
        found[keyword] = {name.lower() for name in records if name and not name.startswith("*") and not set(name) & set("#,:|\t")}
    return found


def make_stock(path, version):
    """A drawing that holds something of every kind; the block needs a layer, a linetype, a text style and a block of its own."""
    doc = ezdxf.new(version, setup=True)
    doc.layers.add("posts", color=3, linetype="DASHED")
    doc.layers.add("inside", color=5)
    doc.linetypes.add("post line", [3.0, 2.0, -1.0], description="__ __")
    doc.styles.add("slim", font="txt").dxf.width = 0.75
    doc.styles.add("tiny", font="txt")
    doc.dimstyles.new("narrow", dxfattribs={"dimtxt": 0.5, "dimtxsty": "slim"})
    doc.mline_styles.new("fence").elements.append(0.4, 3)
    doc.mleader_styles.new("note")
    cap = doc.blocks.new("cap")
    cap.add_circle((0, 0), 0.1, {"layer": "inside", "linetype": "DOT"})
    post = doc.blocks.new("post")
    post.add_blockref("cap", (0, 1))
    square = post.add_lwpolyline([(0, 0), (1, 0), (1, 1), (0, 1)], close=True)
    hatch = post.add_hatch(color=2)
    hatch.paths.add_polyline_path([(0, 0), (1, 0), (1, 1), (0, 1)], is_closed=True)
    hatch.associate(hatch.paths[0], [square])
    post.add_linear_dim(base=(0, 2), p1=(0, 0), p2=(1, 0), dimstyle="narrow").render()
    post.add_attdef("OWNER", (2, 0), "the city", dxfattribs={"height": 0.5, "style": "tiny"})
    post.add_attdef("YEAR", (2, 1), "1999", dxfattribs={"height": 0.5, "layer": "inside"})
    doc.blocks.new("unwanted").add_point((0, 0))
    doc.layouts.new("Sheet").add_line((0, 0), (1, 1), {"layer": "posts"})
    doc.saveas(path, fmt="asc")


def make_gate(path):
    """A drawing that becomes a block as a whole."""
    doc = ezdxf.new("R2010")
    doc.layers.add("bars", color=6)
    for x in range(3):
        doc.modelspace().add_line((x, 0), (x, 2), {"layer": "bars"})
    doc.saveas(path, fmt="asc")


def make_site(path, version):
    """A drawing with an entity for each object, nothing of which is in the right style."""
    doc = ezdxf.new(version)
    msp = doc.modelspace()
    doc.blocks.new("stake").add_point((0, 0))
    msp.add_blockref("stake", (5, 5), {"rotation": 30})
    msp.add_mline([(0, 0), (4, 0), (4, 4)])
    msp.add_mline([(0, 9), (4, 9)])
    hatch = msp.add_hatch()
    hatch.paths.add_polyline_path([(0, 0), (9, 0), (9, 9)], is_closed=True)
    msp.add_text("label")
    msp.add_blockref("stake", (7, 5))
    doc.saveas(path)


class Resources(AcceptanceTest):
    def setUp(self):
        super().setUp()
        make_gate(self.folder / "gate.dwt")
        self.write("lines.lin", LINES)
        self.write("rails.mln", RAILS)
        self.write("fields.pat", FIELDS)
        self.describe(DESCRIPTION)

    def load(self, version, drawing="site.dxf", *arguments):
        make_stock(self.folder / "stock.dwt", version)
        make_site(self.folder / "site.dxf", version)
        told = self.run_program(drawing, "-d", "objects.txt", *arguments, "-o", "out.dxf")
        self.assertNotRegex(told, "rror|arning")
        self.assert_sound("out.dxf")
        return ezdxf.readfile(self.folder / "out.dxf")

    def test_loading_brings_what_is_named_and_what_that_needs(self):
        for version in ("R2000", "R2007", "R2018"):
            with self.subTest(version):
                doc = self.load(version)
                for table, came in (("layers", {"posts", "inside"}), ("linetypes", {"post line", "dashed", "dot", "wave"}),
                                    ("styles", {"slim", "tiny"}), ("dimstyles", {"narrow"}), ("blocks", {"post", "cap"}),
                                    ("mline_styles", {"fence", "rail"}), ("mleader_styles", {"note"})):
                    for name in came:
                        self.assertTrue(name in getattr(doc, table), (table, name))
                self.assertFalse("unwanted" in doc.blocks or "other" in doc.linetypes)
                self.assertFalse("gate" in doc.blocks)  # a whole file becomes a block when it is needed
                self.check_block(doc)
                self.check_styles(doc)
                sheet = doc.layouts.get("Sheet")
                self.assertEqual([(e.dxftype(), e.dxf.layer) for e in sheet if e.dxftype() == "LINE"], [("LINE", "posts")])

    def check_block(self, doc):
        post = doc.blocks["post"]
        self.assertEqual([e.dxftype() for e in post], ["INSERT", "LWPOLYLINE", "HATCH", "DIMENSION", "ATTDEF", "ATTDEF"])
        self.assertEqual([(e.dxf.tag, e.dxf.text, e.dxf.style) for e in post.query("ATTDEF")],
                         [("OWNER", "the city", "tiny"), ("YEAR", "1999", "Standard")])
        square, hatch, measure = post[1], post[2], post[3]
        self.assertEqual(hatch.paths[0].source_boundary_objects, [square.dxf.handle])
        self.assertEqual(measure.dxf.dimstyle, "narrow")
        self.assertTrue(len(doc.blocks[measure.dxf.geometry]))
        self.assertEqual(doc.blocks["cap"][0].dxf.linetype, "DOT")
        self.assertEqual(doc.layers.get("posts").dxf.linetype, "DASHED")

    def check_styles(self, doc):
        self.assertEqual(doc.styles.get("slim").dxf.width, 0.75)
        self.assertEqual(doc.dimstyles.get("narrow").dxf.dimtxsty, "slim")
        self.assertEqual([round(e.offset, 9) for e in doc.mline_styles.get("rail").elements], [0.7, -0.7])
        wave = doc.linetypes.get("wave").pattern_tags.tags
        self.assertEqual([tag.value for tag in wave if tag.code == 49], [2.0, -1.0, 0.5, -1.0])

    def test_objects_are_given_what_came(self):
        classify = "".join(f'PSELECT (handent "{{}}")\n\nKELMARO_CLASSIFY {name}\n1 1 0\nPSELECT\n\n' for name in
                           ("Post", "Fence", "Rail", "Field", "Label", "Gate"))
        for version in ("R2000", "R2018"):
            with self.subTest(version):
                make_site(self.folder / "site.dxf", version)
                handles = [e.dxf.handle for e in ezdxf.readfile(self.folder / "site.dxf").modelspace()]
                doc = self.load(version, "site.dxf", "-c", classify.format(*handles))
                found = {e.dxf.handle: e for e in doc.modelspace()}
                post, = doc.modelspace().query("INSERT[name=='post']")
                gate, = doc.modelspace().query("INSERT[name=='gate']")
                self.assertEqual((gate.dxf.insert, gate.dxf.linetype.lower()), ((7, 5, 0), "wave"))
                self.assertEqual([e.dxf.layer for e in doc.blocks["gate"]], ["bars"] * 3)
                self.assertEqual((post.dxf.name, post.dxf.layer, post.dxf.linetype.lower()), ("post", "posts", "post line"))
                self.assertEqual((post.dxf.insert, round(post.dxf.rotation, 9)), ((5, 5, 0), 30))
                self.assertEqual([(a.dxf.tag, a.dxf.text) for a in post.attribs], [("OWNER", "the city"), ("YEAR", "1999")])
                self.assertEqual({(len(m), m.dxf.style_name.lower()) for m in doc.modelspace().query("MLINE")}, {(3, "fence"), (2, "rail")})
                self.assertEqual(found[handles[4]].dxf.style.lower(), "slim")
                self.check_pattern(found[handles[3]])

    def check_pattern(self, hatch):
        """The lines of the file, twice as large."""
        self.assertEqual(hatch.dxf.pattern_name.lower(), "furrow")
        first, second = hatch.pattern.lines
        turned = [Vec2(x, y).rotate_deg(30) * 2 for x, y in ((0, 1.5), (1, 1.5))]
        for line, base, offset, dashes in ((first, (0, 0), turned[0], []), (second, (0.5, 0), turned[1], [4, -1])):
            self.assertAlmostEqual(line.angle, 30, 9)
            self.assertTrue(Vec2(line.base_point).isclose(base) and Vec2(line.offset).isclose(offset), line)
            self.assertEqual([round(length, 9) for length in line.dash_length_items], dashes)

    def test_a_pattern_goes_to_the_files_of_the_profile_once(self):
        for _ in range(2):
            self.load("R2018")
        for name in ("acad.pat", "acadiso.pat"):
            found, = (self.folder / "config").rglob(name)
            text = found.read_text(encoding="utf-8")
            self.assertEqual(text.count("*FURROW,"), 1)
            self.assertNotIn("*OTHER,", text)

    def test_what_is_missing_is_told_by_its_kind(self):
        text = "class|All|1\n" + "".join(f"obj_name|Lost {kind}|1|1\nobj_type|Line\nobj_prop|{keyword}|Nowhere\n"
                                         for keyword, kind in MISSING.items()) + "/class\n"
        files = "".join(f"{line}\n" for line in DESCRIPTION.split("\n") if re.match(r"\w+\|\w+\.\w+$", line))
        for name, head in (("bare.txt", ""), ("files.txt", files)):
            self.describe(head + text, name)
            make_stock(self.folder / "stock.dwt", "R2018")
            make_site(self.folder / "site.dxf", "R2018")
            told = self.run_program("site.dxf", "-d", name, "-c", "")
            warnings = [f"warning: {kind} 'nowhere' not found" for kind in MISSING.values()]
            self.assertEqual(re.findall(".*(?:rror|arning).*", told), warnings)

    def test_what_the_drawing_has_stays(self):
        doc = ezdxf.new("R2018")
        doc.layers.add("Posts", color=1)
        doc.blocks.new("POST").add_point((7, 7))
        doc.saveas(self.folder / "own.dxf")
        found = self.load("R2018", "own.dxf")
        self.assertEqual(found.layers.get("posts").dxf.color, 1)
        self.assertEqual([e.dxftype() for e in found.blocks["post"]], ["POINT"])

    def test_all_that_a_drawing_has(self):
        """Named one by one, every record of every kind comes, and the other program finds no fault that was not there before."""
        tried = 0
        for drawing in drawings():
            with self.subTest(str(drawing)):
                tried += self.try_all(drawing)
        print(f"{tried} drawings")
        self.assertGreater(tried, 0)

    def try_all(self, drawing):
        """False for a drawing that another program does not read."""
        source, before, contents = read_elsewhere(drawing), findings(drawing), drawing.read_bytes()
        if source is None or before is None:
            return False
        there = contents.decode(source.encoding, "replace").lower()  # the other program makes up what it misses
        wanted = {keyword: {name for name in names if name in there} for keyword, names in names_of(source).items()}
        (self.folder / "all.dwt").write_bytes(contents)
        numbered = enumerate((keyword, name) for _, (keyword, _) in KINDS.items() for name in wanted[keyword])
        text = "".join(f"{directive}|all.dwt\n" for directive in KINDS) + "layout|all.dwt\n"
        self.describe(text + "".join(f"obj_name|{number}|1|1\nobj_type|Line\nobj_prop|{keyword}|{name}\n" for number, (keyword, name) in numbered))
        told = self.run_program("-d", "objects.txt", "-c", "", "-o", "out.dxf")
        self.assertNotRegex(told, "rror|arning")
        self.assert_sound("out.dxf", before)
        found = names_of(ezdxf.readfile(self.folder / "out.dxf"))
        for keyword, names in wanted.items():
            self.assertEqual(names - found[keyword], set(), keyword)
        return True


if __name__ == "__main__":
    acceptance.main(with_drawings=True)
