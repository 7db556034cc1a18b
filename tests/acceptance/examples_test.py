#!/usr/bin/python3
"""The example town under both descriptions gives what its scripts tell: examples_test.py KELMARO EXAMPLES"""

import re
import shutil
import subprocess
import sys

import ezdxf

import acceptance
from acceptance import AcceptanceTest


class Examples(AcceptanceTest):
    def setUp(self):
        super().setUp()
        shutil.copytree(acceptance.FOLDERS[0], self.folder, dirs_exist_ok=True)
        for maker in ("make_town.py", "make_standard.py"):
            subprocess.run([sys.executable, maker], cwd=self.folder, check=True)

    def run_script(self, name):
        told = self.run_program("town.dxf", "-d", f"{name}.txt", "-s", f"{name}.scr", "-o", "done.dxf")
        self.assertNotRegex(told, "rror|arning")
        return told

    def test_the_check_finds_what_is_wrong_and_touches_nothing(self):
        told = self.run_script("town")
        self.assertEqual(re.findall(r"Selected: (\d+)", told), ["48", "10", "3", "4"])
        self.assertEqual(self.read("done.dxf"), self.read("town.dxf"))

    def test_the_town_under_the_standard_of_the_city(self):
        told = self.run_script("city")
        self.assertEqual(re.findall(r"Objects: (\d+) \((\d+) unclassified\)", told), [("58", "7"), ("65", "0")])
        self.assertEqual(re.findall(r"KELMARO_SEL_ALL\n(?:.*\n)*?Selected: (\d+)", told), ["3", "65"])
        self.assert_sound("done.dxf")
        msp = ezdxf.readfile(self.folder / "done.dxf").modelspace()
        self.assertEqual({e.dxf.name for e in msp.query("INSERT[layer=='trees']")}, {"broadleaf"})
        self.assertEqual({e.dxf.layer for e in msp.query("CIRCLE")}, {"lighting"})
        self.assertEqual([e.dxf.pattern_name.lower() for e in msp.query("HATCH")], ["grass"])
        self.assertEqual([e.dxf.style_name.lower() for e in msp.query("MLINE")], ["fence"])
        self.assertEqual({(e.dxf.layer, e.dxf.style) for e in msp.query("TEXT")}, {("lettering", "street")})
        self.assertEqual({e.dxf.dimstyle for e in msp.query("DIMENSION")}, {"town"})
        self.assertEqual([e.dxftype() for e in msp.entities_in_redraw_order()][::64], ["HATCH", "TEXT"])
        street = [e.dxftype() for e in msp][58:]
        self.assertEqual(street, ["LWPOLYLINE"] + ["CIRCLE"] * 3 + ["INSERT"] * 2 + ["TEXT"])

    def test_the_template_of_the_town_loads(self):
        self.run_program("town.dxf", "-c", "KELMARO_TEMPLATE ALL\n\n%t_%i_%L\ntemplate.txt")
        told = self.run_program("town.dxf", "-d", "template.txt", "-c", "KELMARO_CLASSIFY_AUTO 0 0 ALL\n\n")
        self.assertNotRegex(told, "rror|arning")
        self.assertIn("Completed: 58/58\n", told)


if __name__ == "__main__":
    acceptance.main(with_drawings=True)
