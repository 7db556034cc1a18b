#!/usr/bin/python3
"""Writes the example drawing town.dxf: a small town with attribute records, some of them wrong on purpose.

usage: make_town.py [FILE]
"""

import sys
from pathlib import Path

import ezdxf

ezdxf.options.write_fixed_meta_data_for_testing = True

LAYERS = [("buildings", 30), ("roads", 8), ("trees", 3), ("sewer", 5), ("lamps", 2), ("parks", 92), ("names", 7)]

# A table is a list of fields with a default; the default's type is the field's: 1 text, 40 real, 90 integer.
TABLES = {
    "building": [("object", 1, ""), ("address", 1, ""), ("storeys", 90, 0), ("roof", 1, "")],
    "road": [("object", 1, ""), ("name", 1, ""), ("width", 40, 0.0)],
    "plant": [("object", 1, ""), ("species", 1, ""), ("planted", 90, 0)],
    "lamp": [("object", 1, ""), ("watts", 90, 0)],
    "shaft": [("object", 1, ""), ("number", 90, 0), ("depth", 40, 0.0), ("cover", 1, "")],
}


def add_tables(doc):
    store = doc.rootdict.add_new_dict("ODEMUDATA")
    for name, fields in TABLES.items():
        chain = []
        for field, code, default in fields:
            chain += [(1, field), (code, default)]
        store.add_xrecord(name).reset(chain)


def add_record(entity, table, *values):
    extension = entity.get_extension_dict() if entity.has_extension_dict else entity.new_extension_dict()
    record = extension.dictionary.get(table)
    chain = [(code, value) for (_, code, _), value in zip(TABLES[table], values)]
    if record is None:
        extension.add_xrecord(table).reset(chain)
    else:
        record.reset([(tag.code, tag.value) for tag in record.tags] + chain)


def add_blocks(doc):
    tree = doc.blocks.new("tree")
    tree.add_circle((0, 0), 1.5)
    tree.add_line((-1.5, 0), (1.5, 0))
    tree.add_line((0, -1.5), (0, 1.5))
    shaft = doc.blocks.new("shaft")
    shaft.add_circle((0, 0), 0.4)
    shaft.add_attdef("NUMBER", (0.6, 0), dxfattribs={"height": 0.5})


def rectangle(x, y, width, depth):
    return [(x, y), (x + width, y), (x + width, y + depth), (x, y + depth)]


def add_houses(msp):
    for side, street in ((12, "Mill Lane"), (-22, "Mill Lane"), (52, "Church Street")):
        for i in range(8):
            house = msp.add_lwpolyline(rectangle(i * 18, side, 12, 9), close=True, dxfattribs={"layer": "buildings"})
            number = i * 2 + (1 if side > 0 else 2)
            address, storeys, roof = f"{street} {number}", 1 + i % 3, ("gable", "hip", "flat")[i % 3]
            if side == -22 and i == 5:
                address = ""  # empty though it must not be
            if side == 52 and i == 2:
                storeys = 70  # out of its range
            if side == 52 and i == 6:
                roof = "thatch"  # not in the list
            if side == 12 and i == 4:
                house.dxf.layer = "roads"  # looks like no house
            if side == 12 and i == 7:
                continue  # no record: an unclassified building
            add_record(house, "building", "House", address, storeys, roof)


def add_roads(msp):
    for name, y, width in (("Mill Lane", 0, 6.0), ("Church Street", 40, 8.0)):
        road = msp.add_lwpolyline([(-10, y), (160, y)], dxfattribs={"layer": "roads", "const_width": width})
        add_record(road, "road", "Road", name, width)
    path = msp.add_lwpolyline([(75, 0), (75, 40)], dxfattribs={"layer": "roads", "const_width": 2.0})
    add_record(path, "road", "Road", "", 2.0)  # a road without a name is allowed


def add_trees(msp):
    for i in range(12):
        tree = msp.add_blockref("tree", (i * 13, 7), dxfattribs={"layer": "trees", "rotation": 0})
        species = ("oak", "lime", "maple")[i % 3]
        add_record(tree, "plant", "Tree", species, 1980 + i)
        if i == 3:
            tree.dxf.xscale = tree.dxf.yscale = tree.dxf.zscale = 3.0  # larger than allowed
        if i == 8:
            add_record(tree, "plant", "Tree", species, 1980 + i)  # the same record twice


def add_shafts(msp):
    for i in range(6):
        shaft = msp.add_blockref("shaft", (i * 30, 0), dxfattribs={"layer": "sewer"})
        shaft.add_attrib("NUMBER", str(100 + i), (i * 30 + 0.6, 0), dxfattribs={"layer": "sewer", "height": 0.5})
        add_record(shaft, "shaft", "Shaft", 100 + i, 2.5 + i / 8, "" if i == 2 else "round")


def add_rest(msp):
    for i in range(7):
        lamp = msp.add_circle((i * 25, 34), 0.5 if i != 6 else 0.8, dxfattribs={"layer": "lamps"})  # the last is too large
        add_record(lamp, "lamp", "Lamp", 40)
    park = msp.add_hatch(dxfattribs={"layer": "parks", "color": 92})
    park.paths.add_polyline_path(rectangle(110, 10, 40, 20), is_closed=True)
    msp.add_mline(rectangle(109, 9, 42, 22), close=True, dxfattribs={"layer": "parks"})
    for text, y in (("Mill Lane", 1), ("Church Street", 41)):
        msp.add_text(text, height=2.5, dxfattribs={"layer": "names"}).set_placement((60, y))
    for corner in (0, 18):
        house = (corner, 12), (corner + 12, 12)
        msp.add_aligned_dim(*house, distance=11, dxfattribs={"layer": "names"}).render()


def main():
    doc = ezdxf.new("R2018", setup=False)
    doc.header["$LUPREC"] = 4
    doc.header["$INSUNITS"] = 6
    for name, color in LAYERS:
        doc.layers.add(name, color=color)
    add_tables(doc)
    add_blocks(doc)
    msp = doc.modelspace()
    for block in ("tree", "shaft"):
        doc.blocks.get(block).block_record.dxf.units = 6
    add_houses(msp)
    add_roads(msp)
    add_trees(msp)
    add_shafts(msp)
    add_rest(msp)
    target = Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).with_name("town.dxf"))
    doc.saveas(target)


main()
