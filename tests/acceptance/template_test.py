#!/usr/bin/python3
"""A description generated from a drawing loads again and knows the drawing: template_test.py KELMARO DRAWINGS...

Every object that was written selects the entities that it was taken from, and they look as it says. Forcing the look of every
object onto its entities changes nothing that a second template would tell.
"""

import re

import acceptance
from acceptance import AcceptanceTest, drawings, findings, has_handles, read_elsewhere

TEMPLATE = "KELMARO_TEMPLATE ALL\n\n%t_%i\n"
PRECISE = "SETVAR LUPREC 8\n"

# How other programs write what a template words.
WEIGHTS = {"ByLayer": -1, "ByBlock": -2, "Default": -3}
COLORS = {"ByLayer": 256, "ByBlock": 0}
TYPES = {
    "3DFace": "3DFACE", "3DPolyline": "POLYLINE", "3DSolid": "3DSOLID", "Arc": "ARC", "BlockReference": "INSERT",
    "Circle": "CIRCLE", "Dimension": "DIMENSION|ARC_DIMENSION|LARGE_RADIAL_DIMENSION", "Ellipse": "ELLIPSE", "Hatch": "HATCH",
    "Line": "LINE", "Mesh": "MESH", "MLeader": "MULTILEADER|MLEADER", "Mline": "MLINE", "MPolygon": "MPOLYGON",
    "MText": "MTEXT", "Point": "POINT", "PolyFaceMesh": "POLYLINE", "Polyline": "LWPOLYLINE", "Ray": "RAY",
    "Spline": "SPLINE", "Text": "TEXT", "Wipeout": "WIPEOUT", "Xline": "XLINE",
}


def objects(path):
    """The objects of a template: the lines of each behind its name."""
    found = {}
    for block in re.split(r"\n(?=obj_name\t)", path.read_text(encoding="utf-8"))[1:]:
        lines = block.split("\n")
        found[lines[0].split("\t")[1]] = [line.strip() for line in lines[1 : lines.index("\tod_name\tOD_NAME")]]
    return found


def properties(lines):
    return {line.split("\t")[1]: line.partition("\t")[2].partition("\t")[2] for line in lines[1:]}


def unturned(lines):
    """What conformity compares of an object: a turned entity looks like one that is not."""
    return [line for line in lines if not line.startswith("obj_prop\trotate\t")]


def listed(told):
    return set(re.findall(r"Handle = (\w+)", told))


def number_of(word, words):
    return words[word] if word in words else int(word)


def entities_elsewhere(path):
    """By their handles, the entities of model space whose look the other program knows; none where it makes up the handles."""
    doc = read_elsewhere(path)
    if doc is None or not has_handles(doc):
        return {}
    return {entity.dxf.handle: entity for entity in doc.modelspace() if entity.is_supported_dxf_attrib("layer")}


class Templates(AcceptanceTest):
    def test_every_drawing(self):
        tried = written = 0
        for drawing in drawings():
            with self.subTest(str(drawing)):
                count = self.try_drawing(drawing)
                tried += count is not None
                written += count or 0
        print(f"{written} objects from {tried} drawings")
        self.assertGreater(written, tried)

    def try_drawing(self, drawing):
        """How many objects were written, or None for a drawing that cannot be opened."""
        copy = self.take(drawing)
        template, again = self.folder / "template.txt", self.folder / "again.txt"
        template.unlink(missing_ok=True)
        told, status = self.run_anyhow(copy, "-c", PRECISE + TEMPLATE + "template.txt")
        if status == 2:
            return None
        if not template.exists():
            self.assertIn("\n0 found", told)  # the answers that follow were then taken for commands
            return 0
        text = template.read_text(encoding="utf-8")
        template.write_text(text.replace("obj_type\t?", "obj_type\tLine"), encoding="utf-8")
        known = objects(template)
        self.assertIn(f"Completed: {len(known)}/", told)
        self.check_selections(copy, template, known)
        self.check_fixed_point(copy, template, again, known)
        return len(known)

    def check_selections(self, copy, template, known):
        """Each object selects what looks like it; together they select all that a template is made of."""
        typed = "".join(f"KELMARO_SEL_EXT {name}\n1 0 1\nALL\n\nLIST\nPSELECT\n\n" for name in known)
        told = self.run_program(copy, "-d", template, "-c", PRECISE + typed)
        loading, *runs = re.split(r"Command: KELMARO_SEL_EXT\nObject: ", told)
        self.assertNotRegex(loading, "rror|arning")
        chosen = {run.split("\n", 1)[0]: listed(run) for run in runs}
        self.assertEqual(list(chosen), list(known))
        entities = entities_elsewhere(copy)
        for name, handles in chosen.items():
            self.assertTrue(handles, f"{name} selects nothing")
            for handle in handles & set(entities):
                self.check_look(entities[handle], known[name])
        for name, handles in chosen.items():
            for other, others in chosen.items():
                if name < other and handles & others:
                    self.assertEqual(unturned(known[name]), unturned(known[other]), (name, other, handles & others))

    def check_look(self, entity, lines):
        """The other program sees the type, layer, colour and so on that the template tells."""
        told, word, attributes, where = properties(lines), lines[0].split("\t")[1], entity.dxf, (lines, entity.dxf.handle)
        if word in TYPES:
            self.assertIn(entity.dxftype(), TYPES[word].split("|"), where)
        self.assertEqual(attributes.layer.lower(), told["layer"].lower(), where)
        self.assertEqual(attributes.get("linetype", "ByLayer").lower(), told["linetype"].lower(), where)
        self.assertAlmostEqual(attributes.get("ltscale", 1.0), float(told["linetypeScale"]), 7, where)
        self.assertEqual(attributes.get("lineweight", -1), number_of(told["lineWeight"], WEIGHTS), where)
        if entity.rgb is not None:
            self.assertEqual("({} {} {})".format(*entity.rgb), told["color"], where)
        else:
            self.assertEqual(attributes.get("color", 256), number_of(told["color"], COLORS), where)

    def check_fixed_point(self, copy, template, again, known):
        """Read back and forced onto the entities, the objects give the same objects."""
        again.unlink(missing_ok=True)
        result = f"forced{copy.suffix}"
        told = self.run_program(copy, "-d", template, "-o", result, "-c", PRECISE + "KELMARO_CLASSIFY_AUTO 0 1 ALL\n\n",
                                "-c", "KELMARO_RESTORE\n\n1 ALL\n\n", "-c", TEMPLATE + "again.txt")
        self.assertNotRegex(told, "rror|arning")
        self.assertEqual(sorted(objects(again).values()), sorted(known.values()))
        before = findings(copy)
        if before is not None:
            self.assert_sound(result, before)


if __name__ == "__main__":
    acceptance.main(with_drawings=True)
