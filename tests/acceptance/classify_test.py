#!/usr/bin/python3
"""What is classified by its look, saved and opened again passes every check: classify_test.py KELMARO DRAWINGS...

Another program finds the table in the drawing and the records on the entities, in their layout.
"""

import re

import acceptance
from acceptance import AcceptanceTest, drawings, findings, has_handles, read_elsewhere, tag_values

# Two kinds of line told apart by their layer, two of text by their height, the special ones with the higher priority; no object
# for arcs.
DESCRIPTION = """\
class|Lines|1
obj_name|Wall line|1|20
obj_type|Line
obj_prop|layer|walls
od_name|first_data
od_key|object
od_fld|count|How many|integer|7|1:9
od_fld|size|How large|real|2.5|1:3
od_fld|note|A note|notempty character|as built|as built,planned
obj_name|Line|1|10
obj_type|Line
od_name|second_data
od_key|object
od_fld|by|Who drew it|required character|nobody
/class
class|Others|1
obj_name|Area|1|1
obj_type|Hatch,MPolygon
od_name|second_data
od_key|object
od_fld|by|Who drew it|required character|somebody
obj_name|Shape|1|1
obj_type|Polyline,3DPolyline,PolyFaceMesh,Circle,Ellipse,Spline,Mline,3DFace,Ray,Xline,Point,Wipeout,Mesh,Dimension
od_name|second_data
od_key|object
od_fld|by|Who drew it|required character|nobody
od_name|first_data
od_key|object
od_fld|count|How many|integer|3|1:9
od_fld|size|How large|real|2|1:3
od_fld|note|A note|notempty character|planned|as built,planned
obj_name|Text|1|3
obj_type|Text,MText
od_name|second_data
od_key|object
od_fld|by|Who drew it|required character|nobody
obj_name|Sign|1|4
obj_type|Text
obj_prop|textheight|2|1:3
od_name|second_data
od_key|object
od_fld|by|Who drew it|required character|signwriter
obj_name|Part|1|3
obj_type|BlockReference
obj_prop|blockname|part
od_name|second_data
od_key|object
od_fld|by|Who drew it|required character|nobody
/class
"""

FIELDS = {
    "first_data": [(1, "object"), (1, ""), (1, "count"), (90, 0), (1, "size"), (40, 0.0), (1, "note"), (1, "")],
    "second_data": [(1, "object"), (1, ""), (1, "by"), (1, "")],
}


def second(name, by="nobody"):
    return {"second_data": [(1, name), (1, by)]}


# A real loses its fraction when a record is made.
RECORDS = {
    "Wall line": {"first_data": [(1, "Wall line"), (90, 7), (40, 2.0), (1, "as built")]},
    "Line": second("Line"),
    "Area": second("Area", "somebody"),
    "Shape": {**second("Shape"), "first_data": [(1, "Shape"), (90, 3), (40, 2.0), (1, "planned")]},
    "Text": second("Text"),
    "Sign": second("Sign", "signwriter"),
    "Part": second("Part"),
}
PRIORITIES = {"Wall line": 20, "Line": 10, "Area": 1, "Shape": 1, "Text": 3, "Sign": 4, "Part": 3}
OBJECTS = {"HATCH": "Area", "MPOLYGON": "Area", "MTEXT": "Text", "INSERT": "Part"}
SHAPES = (
    "LWPOLYLINE CIRCLE ELLIPSE SPLINE MLINE 3DFACE RAY XLINE POINT WIPEOUT MESH DIMENSION ARC_DIMENSION LARGE_RADIAL_DIMENSION"
).split()


def object_of(entity):
    """The name of what this entity must become, or None."""
    kind = entity.dxftype()
    if kind == "LINE":
        return "Wall line" if entity.dxf.layer == "walls" else "Line"
    if kind == "TEXT":
        return "Sign" if 1 <= entity.dxf.height <= 3 else "Text"
    if kind == "POLYLINE":
        return "Shape" if entity.is_3d_polyline or entity.is_poly_face_mesh else None
    if kind == "INSERT" and entity.dxf.name != "part":
        return None
    return "Shape" if kind in SHAPES else OBJECTS.get(kind)


def layer_of(entity):
    """Also of an entity that the other program keeps as it is."""
    if entity.is_supported_dxf_attrib("layer"):
        return entity.dxf.layer
    return next((tag.value for tags in entity.xtags.subclasses for tag in tags if tag.code == 8), "0")


def is_shown(doc, entity):
    """Not on a layer that keeps it from every command."""
    name = layer_of(entity)
    layer = doc.layers.get(name) if name in doc.layers else None
    return layer is None or not (layer.is_off() or layer.is_frozen() or layer.is_locked())


def contents(entity):
    """What hangs in an entity's extension dictionary: the values of records, of anything else its type."""
    items = entity.get_extension_dict().dictionary.items() if entity.has_extension_dict else ()
    return {key: tag_values(item.tags) if item.dxftype() == "XRECORD" else item.dxftype() for key, item in items}


class Classification(AcceptanceTest):
    def test_every_drawing(self):
        tried = 0
        for drawing in drawings():
            with self.subTest(drawing.name):
                tried += self.try_drawing(drawing)
        print(f"{tried} drawings")
        self.assertGreater(tried, 0)

    def try_drawing(self, drawing):
        """False for a drawing whose entities cannot be told elsewhere by their handles."""
        copy, description = self.take(drawing), self.describe(DESCRIPTION)
        doc = read_elsewhere(copy)
        if doc is None or not has_handles(doc):
            return False
        before = {entity.dxf.handle: (object_of(entity), entity) for entity in doc.modelspace() if is_shown(doc, entity)}
        becoming = sum(name is not None for name, _ in before.values())
        result = f"classified{copy.suffix}"
        told = self.run_program(copy, "-d", description, "-o", result, "-c", "KELMARO_CLASSIFY_AUTO 0 0 ALL\n\n",
                                "-c", "KELMARO_CLASSIFY_AUTO 0 0 ALL\n\n")
        if re.search(r"records? with(out a| the) handle", told):
            return False  # entities that got new handles are others elsewhere
        self.assertRegex(told, rf"Completed: {becoming}/\d+\n(?s:.*)Completed: 0/\d+\n")

        self.check_reopened(result, description, becoming, len(before))
        doc = read_elsewhere(self.folder / result)
        self.check_tables(doc)
        for handle, (name, old) in before.items():
            self.check_records(doc.entitydb[handle], name, old)
        self.assert_sound(result, findings(copy))
        self.check_sorted_and_removed(result, description, before)
        return True

    def check_reopened(self, result, description, becoming, whole):
        """Nothing illegal, nothing empty; what became an object is right, all the rest is not."""
        commands = {"KELMARO_ASSERT 1": 0, "KELMARO_SEL_NULL 1": 0, "KELMARO_SEL_ALL 1 1 1": becoming,
                    "KELMARO_SEL_ALL 1 1 0": whole - becoming, "KELMARO_SEL_CLASSIFIED 1": becoming}
        typed = "".join(f"{command} ALL\n\nPSELECT\n\n" for command in commands)
        told = self.run_program(result, "-d", description, "-c", typed, "-o", "again.dxf")
        self.assertEqual(re.findall(r"Selected: (\d+)", told), [str(count) for count in commands.values()])
        self.assertEqual(self.read("again.dxf"), self.read(result))

    def check_sorted_and_removed(self, result, description, before):
        """The order by priority shows elsewhere; with the records off, the entities carry what they did at first."""
        removed = f"removed{result[len('classified'):]}"
        told = self.run_program(result, "-d", description, "-o", removed, "-c", "KELMARO_SORT ALL\n\n", "-c", "KELMARO_REMOVE_ALL ALL\n\n")
        records = sum(len(RECORDS.get(name, ())) for name, _ in before.values())
        self.assertIn(f"Completed: {records}\n", told)
        doc = read_elsewhere(self.folder / removed)
        for handle, (_, old) in before.items():
            self.assertEqual(contents(doc.entitydb[handle]), contents(old), str(old))
        self.assert_sound(removed, findings(self.folder / result))
        if doc.loaded_dxfversion in ("AC1012", "AC1014"):
            return  # the other program makes model space anew, without its order
        order = [e.dxf.handle for e in doc.modelspace().entities_in_redraw_order() if e.dxf.handle in before]
        priorities = [PRIORITIES.get(before[handle][0], -1) for handle in order]
        self.assertEqual(priorities, sorted(priorities))

    def check_tables(self, doc):
        store = doc.rootdict.get("ODEMUDATA")
        self.assertEqual({name: tag_values(record.tags) for name, record in store.items() if name in FIELDS}, FIELDS)

    def check_records(self, entity, name, old):
        """The records in the extension dictionary, owned by it; where nothing was known before, nothing is now."""
        expected = contents(old) | RECORDS.get(name, {})
        self.assertEqual(contents(entity), expected, str(entity))
        if expected:
            dictionary = entity.get_extension_dict().dictionary
            self.assertEqual(dictionary.dxf.owner, entity.dxf.handle)
            self.assertTrue(dictionary.is_hard_owner or old.has_extension_dict)
            for key in RECORDS.get(name, {}):
                self.assertEqual(dictionary[key].dxf.owner, dictionary.dxf.handle)


if __name__ == "__main__":
    acceptance.main(with_drawings=True)
