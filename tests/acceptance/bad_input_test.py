#!/usr/bin/python3
"""Resource files that are of no use, tables that differ, layers that must not be touched, cancel everywhere: bad_input_test.py KELMARO

Each gives a clear message or changes nothing, and the drawing is whole: saved, it has the same bytes.
"""

import re

import ezdxf

import acceptance
from acceptance import AcceptanceTest

TABLE = "od_name|site\nod_key|object\nod_fld|size|How large|real|1.5|0:9\n"
WALLS = f"""\
class|All|1
obj_name|Wall|1|2
obj_type|Line
obj_prop|layer|walls|walls,locked,frozen,hidden
obj_prop|color|1
{TABLE}obj_name|Pole|1|1
obj_type|Circle
obj_prop|circleradius|2|1:3
{TABLE}/class
"""


# What changes entities, each up to the selection.
CHANGING = [
    "KELMARO_CLASSIFY_AUTO 0 1 ", "KELMARO_CLASSIFY_AUTO 1 1 ", "KELMARO_CLASSIFY Wall\n1 1 0\n", "KELMARO_RESTORE\n\n1 ",
    "KELMARO_RESTORE Wall\n0 ", "KELMARO_REMOVE Wall\n", "KELMARO_REMOVE_ALL ", "KELMARO_ROUND ", "KELMARO_SORT ",
]


def wanting(keyword, name, kind="Line"):
    return f"class|All|1\nobj_name|Thing|1|1\nobj_type|{kind}\nobj_prop|{keyword}|{name}\n/class\n"


def stock(version="R2018"):
    doc = ezdxf.new(version)
    doc.layers.add("stocked", color=3)
    return doc


def make_site(path, spread_over=("walls",)):
    """Walls and poles on each of the layers, with values to round and records that occur twice."""
    doc = ezdxf.new("R2010")
    for name in ("walls", "locked", "frozen", "hidden"):
        doc.layers.add(name)
    doc.layers.get("locked").lock()
    doc.layers.get("frozen").freeze()
    doc.layers.get("hidden").off()
    doc.rootdict.add_new_dict("ODEMUDATA").add_xrecord("site").reset([(1, "object"), (1, ""), (1, "size"), (40, 0.0)])
    msp = doc.modelspace()
    for layer in spread_over:
        for entity, name in ((msp.add_line((0, 0), (1, 0)), "Wall"), (msp.add_circle((0, 0), 7), "Pole")):
            entity.dxf.layer = layer
            entity.new_extension_dict().add_xrecord("site").reset([(1, name), (40, 1.2345)] * 2)
        msp.add_line((0, 1), (1, 1), {"layer": layer, "color": 1})
    doc.saveas(path)


class BadInput(AcceptanceTest):
    def setUp(self):
        super().setUp()
        make_site(self.folder / "site.dxf")

    def unchanged(self, *arguments, drawing="site.dxf", status=0):
        """What was told by a run that leaves the drawing as it was."""
        told = self.run_program(drawing, *arguments, "-o", "out.dxf", status=status)
        self.assertEqual(self.read("out.dxf"), self.read(drawing))
        self.assertEqual(self.trouble, "")
        return told

    def loaded(self, text, *expected, status):
        """The errors and warnings of loading; "FILE" stands for the folder of the test."""
        self.describe(text)
        told = self.unchanged("-d", "objects.txt", "-c", "", status=status)
        found = [line.replace(f"{self.folder}/", "FILE ") for line in re.findall(".*(?:rror|arning).*", told)]
        self.assertEqual(found, list(expected))


class ResourceFiles(BadInput):
    def test_a_drawing_that_is_missing_or_of_no_use(self):
        stock().saveas(self.folder / "whole.dxf")
        whole = self.read("whole.dxf")
        contents = {
            "empty.dwt": b"",
            "text.dwt": b"no drawing at all\n",
            "cut.dwt": whole[: len(whole) // 2],
            "cuttag.dwt": whole[: len(whole) * 2 // 3] + b"\n",
            "real.dwg": b"AC1032" + bytes(500),
            "old.dwg": b"AC1015" + bytes(500),
            "picture.dwg": b"\x89PNG\r\n\x1a\n" + bytes(range(256)),
        }
        for name, data in contents.items():
            with self.subTest(name):
                self.write(name, data)
                self.loaded(f"layer|{name}\n" + wanting("layer", "stocked"), f"error: unable to load 'FILE {name}'", status=3)
        (self.folder / "folder.dwt").mkdir()
        for name in ("missing.dwt", "nowhere/any.dwt", "*.nothing", "folder.dwt"):
            with self.subTest(name):
                self.loaded(f"layer|{name}\n" + wanting("layer", "stocked"), f"error: invalid path: 'FILE {name}'", status=3)

    def test_a_file_of_another_kind_supplies_nothing(self):
        stock().saveas(self.folder / "stock.dxf")
        for name in ("stock.txt", "stock.DWT", "stock.dwt.bak"):
            self.write(name, self.read("stock.dxf"))
            self.loaded(f"layer|{name}\n" + wanting("layer", "stocked"), "warning: layer 'stocked' not found", status=0)
        for keyword, name in (("pattern", "stock.dxf"), ("mline", "stock.dxf"), ("linetype", "stock.dxf")):
            word = "mlinestyle" if keyword == "mline" else keyword
            self.loaded(f"{keyword}|{name}\n" + wanting(word, "stocked"), f"warning: {keyword} 'stocked' not found", status=0)

    def test_definitions_that_are_broken(self):
        """Each file defines "bad" wrongly in one way. Others of the same file can be used."""
        files = {
            "linetype": ("lines.lin", "*GOOD,Good\nA,1,-1\n", ["*BAD,Bad\nA,1,x\n", "*BAD,Bad\n", "*BAD,Bad\nB,1,-1\n", "*BAD\n\nA,,\n"]),
            "mlinestyle": ("rails.mln", "MLSTYLE\n2\nGOOD\n70\n0\n3\n\n71\n1\n49\n0.5\n62\n256\n6\nBYLAYER\n0\n",
                           [f"MLSTYLE\n2\nBAD\n{rest}" for rest in ("70\nx\n71\n1\n49\n0.5\n0\n", "70\n0\n71\n0\n0\n", "49\n")]),
        }
        for word, (name, good, bad) in files.items():
            keyword = word.replace("mlinestyle", "mline")
            for broken in bad:
                with self.subTest(f"{keyword} {broken!r}"):
                    self.write(name, good + broken)
                    self.loaded(f"{keyword}|{name}\n" + wanting(word, "bad"), f"warning: {keyword} 'bad' not found", status=0)
                    self.describe(f"{keyword}|{name}\n" + wanting(word, "good"))
                    told = self.run_program("site.dxf", "-d", "objects.txt", "-c", "", "-o", "out.dxf")
                    self.assertNotRegex(told, "rror|arning")
                    self.assert_sound("out.dxf")
            for data in (b"", bytes(range(256)), b"\xff\xfe\x00"):
                self.write(name, data)
                self.loaded(f"{keyword}|{name}\n" + wanting(word, "good2"), f"warning: {keyword} 'good2' not found", status=0)

    def test_pattern_lines_that_are_broken(self):
        """They reach the pattern files of the profile, but no hatch; what stands behind them can be used."""
        doc = ezdxf.readfile(self.folder / "site.dxf")
        hatch = doc.modelspace().add_hatch()
        hatch.paths.add_polyline_path([(0, 0), (9, 0), (9, 9)], is_closed=True)
        doc.saveas(self.folder / "site.dxf")
        for number, line in enumerate(("45,0,0,x,1\n", "", "45,0,0\n", "45,0,0,0,1,2,\n,,,\n", "\x01\x02\n", "1e999,0,0,0,1\n")):
            with self.subTest(line):
                bad, good = f"bad{number}", f"good{number}"
                self.write("fields.pat", f"*{bad},Bad\n{line}*{good},Good\n30,0,0,0,1\n")
                other = f"obj_name|Other|1|1\nobj_type|Hatch\nobj_prop|pattern|{good}\n"
                self.describe("pattern|fields.pat\n" + wanting("pattern", bad, "Hatch").replace("/class", other + "/class"))
                self.unchanged("-d", "objects.txt", "-c", "KELMARO_CLASSIFY Thing\n1 0\nALL\n\n")
                self.run_program("site.dxf", "-d", "objects.txt", "-c", "KELMARO_CLASSIFY Other\n1 0\nALL\n\n", "-o", "out.dxf")
                found = ezdxf.readfile(self.folder / "out.dxf").entitydb[hatch.dxf.handle]
                self.assertEqual(found.dxf.pattern_name.lower(), good)
                self.assertEqual([round(line.angle, 9) for line in found.pattern.lines], [30])

    def test_a_block_that_holds_itself(self):
        doc = stock()
        for name, inside in (("loop", "loop"), ("there", "back"), ("back", "there")):
            doc.blocks.new(name).add_blockref(inside, (0, 0))
        doc.saveas(self.folder / "loops.dwt", fmt="asc")
        for name in ("loop", "there", "back"):
            with self.subTest(name):
                self.describe("blockreference|loops.dwt\n" + wanting("blockname", name, "BlockReference"))
                told = self.unchanged("-d", "objects.txt", "-c", "")
                self.assertIn(f"warning: block '{name}' not found\n", told)
        whole = ezdxf.new("R2010")
        whole.blocks.new("whole").add_line((0, 0), (1, 0))
        whole.modelspace().add_blockref("whole", (0, 0))
        whole.saveas(self.folder / "whole.dwt", fmt="asc")
        self.describe("blockreferencefile|whole.dwt\n" + wanting("blockname", "whole", "BlockReference"))
        self.run_program("site.dxf", "-d", "objects.txt", "-c", "KELMARO_CLASSIFY Thing\n1 1 0\nALL\n\n", "-o", "out.dxf")
        self.assert_sound("out.dxf")

    def test_a_drawing_with_a_block_that_holds_itself(self):
        doc = ezdxf.readfile(self.folder / "site.dxf")
        doc.blocks.new("loop").add_blockref("loop", (0, 0))
        doc.blocks.new("good").add_point((0, 0))
        doc.modelspace().add_blockref("loop", (0, 0))
        doc.saveas(self.folder / "loop.dxf")
        self.describe(WALLS + wanting("blockname", "good", "BlockReference").replace("All", "More"))
        for command in ("KELMARO_TYPE ALL\n", "KELMARO_STAT ALL\n\n", "KELMARO_SEL_ALL 1 1 0 ALL\n", "LIST ALL\n", "REGEN\n",
                        "KELMARO_TEMPLATE ALL\n\n%t_%i\nloop.txt\n"):
            self.unchanged("-d", "objects.txt", "-c", command + "\n", drawing="loop.dxf", status=0)
        self.assertIn("blockName\tloop\n", self.read("loop.txt").decode())


class Drawings(BadInput):
    def test_a_table_that_differs(self):
        for fields in ("", "od_fld|size|a|integer|1\n", "od_fld|length|a|real|1\n", "od_fld|size|a|real|1\nod_fld|b|b|real|1\n"):
            text = f"class|All|1\nobj_name|Wall|1|2\nobj_type|Line\nod_name|site\nod_key|object\n{fields}/class\n"
            self.loaded(text, f"{text.count(chr(10))}: error: table 'site' does not match existing definition", status=3)

    def test_entities_on_locked_frozen_and_hidden_layers_stay(self):
        """Also where the whole drawing is taken, and where they are named one by one."""
        make_site(self.folder / "site.dxf", ("locked", "frozen", "hidden"))
        self.describe(WALLS)
        handles = [entity.dxf.handle for entity in ezdxf.readfile(self.folder / "site.dxf").modelspace()]
        named = "".join(f'(handent "{handle}")\n' for handle in handles)
        for chosen in ("ALL\n\n", "\n", named + "\n"):
            for command in CHANGING:
                with self.subTest(command=command, chosen=chosen):
                    told = self.unchanged("-d", "objects.txt", "-c", command + chosen)
                    self.assertNotRegex(told, r"Completed: [1-9]")
            told = self.unchanged("-d", "objects.txt", "-c", "KELMARO_SEL_ALL 1 1 0 " + chosen)
            self.assertIn("Selected: 0\n", told)
            told = self.unchanged("-d", "objects.txt", "-c", "KELMARO_DEL_DUPLICATES " + chosen + "First\n", status=4)
            self.assertIn("Completed: 0\n", told)

    def test_cancel_at_every_prompt_and_in_every_dialog(self):
        self.describe(WALLS)
        sessions = [
            ["KELMARO_TEMPLATE", "ALL", "", "%t_%i", "template.txt"],
            ["KELMARO_CLASSIFY", "Wall", "1", "1", "1", "ALL", "", "All"],
            ["KELMARO_CLASSIFY_AUTO", "0", "0", "ALL", ""],
            ["KELMARO_CLASSIFY_AUTO", "1", "0", "ALL", ""],
            ["KELMARO_RESTORE", "", "1", "ALL", ""],
            ["KELMARO_RESTORE", "Wall", "1", "ALL", ""],
            ["KELMARO_REMOVE", "Wall", "ALL", ""],
            ["KELMARO_REMOVE_ALL", "ALL", ""],
            ["KELMARO_DEL_DUPLICATES", "ALL", "", "First"],
            ["KELMARO_ROUND", "ALL", ""],
            ["KELMARO_SORT", "ALL", ""],
            ["KELMARO_LOAD", "objects.txt"],
        ]
        for answers in sessions:
            for given in range(1, len(answers)):
                with self.subTest(answers[:given]):
                    typed = "\n".join(answers[:given]) + "\n^C\n"
                    told = self.unchanged("-d", "objects.txt", "-c", typed)
                    self.assertNotIn("Completed", told)
                    self.assertFalse((self.folder / "template.txt").exists())
            with self.subTest(answers):  # to the end it does something, so the answers are the right ones
                told = self.run_program("site.dxf", "-d", "objects.txt", "-c", "\n".join(answers) + "\n", "-o", "done.dxf")
                self.assertEqual(self.read("done.dxf") == self.read("site.dxf"), answers[0] in ("KELMARO_TEMPLATE", "KELMARO_LOAD"))
            if answers[0] == "KELMARO_TEMPLATE":
                (self.folder / "template.txt").unlink()

    def test_a_template_that_cannot_be_written(self):
        (self.folder / "folder.txt").mkdir()
        for path, answer, message in (("nowhere/template.txt", "^C", f"{self.folder}/nowhere: there is no such folder.\n"),
                                      ("folder.txt", "Y", "Error\nError: unable to open '%s'.\n")):
            with self.subTest(path):
                told = self.unchanged("-c", f"KELMARO_TEMPLATE ALL\n\n%t_%i\n{path}\n{answer}\n")
                self.assertIn(message, told)
                self.assertNotIn("Completed", told)

    def test_a_template_replaces_a_file_only_when_told_to(self):
        for answer, replaced in (("N", False), ("", False), ("Y", True)):
            self.write("own.txt", "my own words\n")
            told = self.unchanged("-c", f"KELMARO_TEMPLATE ALL\n\n%t_%i\nown.txt\n{answer}\n^C\n")
            self.assertIn("own.txt exists. Replace? [Yes/No]<N>: ", told)
            self.assertEqual(self.read("own.txt") != b"my own words\n", replaced)


if __name__ == "__main__":
    acceptance.main()
