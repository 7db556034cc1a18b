#!/usr/bin/python3
"""ATTSYNC and EXPLODE on drawings that another program made and then reads: blocks_test.py KELMARO"""

import logging
import re
import subprocess
import sys
import tempfile
from pathlib import Path

import ezdxf
import ezdxf.bbox
from ezdxf.math import Vec3

VERSIONS = ["R12", "R2000", "R2010", "R2018"]


def findings(path):
    audit = ezdxf.readfile(path).audit()
    return {re.sub(r"#\w+", "#", entry.message) for entry in audit.errors + audit.fixes}


def run(kelmaro, doc, folder, typed):
    """What the drawing is after the typed commands, and what the other program's audit finds that was fine before."""
    before, after = folder / "before.dxf", folder / "after.dxf"
    doc.saveas(before)
    done = subprocess.run(
        [kelmaro, before, "-o", after], input=typed, capture_output=True, text=True, timeout=60
    )
    if done.returncode != 0:
        return None, [f"exit status {done.returncode}: {done.stdout[-500:]}{done.stderr}"]
    return ezdxf.readfile(after), sorted(findings(after) - findings(before))


def doors(version):
    """References of a block in three places, with attributes of older definitions."""
    doc = ezdxf.new(version, setup=True)
    door = doc.blocks.new("Door", base_point=(1, 1))
    door.add_line((0, 0), (4, 0))
    door.add_attdef("KEPT", (1, 2), "?", dxfattribs={"height": 0.5, "color": 3})
    door.add_attdef("NEW", (3, 2), "fresh", dxfattribs={"height": 0.25, "rotation": 30})
    door.add_attdef("FIXED", (5, 2), "oak", dxfattribs={"flags": 2})
    room = doc.blocks.new("Room")
    layouts = [doc.modelspace(), doc.layout("Layout1"), room]
    for number, layout in enumerate(layouts):
        insert = layout.add_blockref("Door", (10 * number, 5), {"rotation": 20, "xscale": 2, "yscale": 2, "zscale": 2})
        insert.add_attrib("GONE", "old", (99, 99))
        insert.add_attrib("kept", f"value {number}", (77, 77), {"height": 9})
    doc.modelspace().add_blockref("Door", (50, 50), {"xscale": -1})
    doc.modelspace().add_blockref("Room", (70, 70))
    return doc, layouts


def check_attributes(kelmaro, version, folder):
    doc, _ = doors(version)
    doc, faults = run(kelmaro, doc, folder, "ATTSYNC N Door\n")
    if not doc:
        return faults
    inserts = [
        insert
        for layout in (doc.modelspace(), doc.layout("Layout1"), doc.blocks.get("Room"))
        for insert in layout.query("INSERT[name=='Door']")
    ]
    if len(inserts) != 4:
        faults.append(f"{len(inserts)} references")
    models = {attdef.dxf.tag: attdef for attdef in doc.blocks.get("Door").query("ATTDEF")}
    for number, insert in enumerate(sorted(inserts, key=lambda insert: insert.dxf.insert.x)):
        wanted = {"KEPT": "?" if number == 3 else f"value {number}", "NEW": "fresh"}
        got = {attrib.dxf.tag: attrib.dxf.text for attrib in insert.attribs}
        if got != wanted:
            faults.append(f"{got} instead of {wanted}")
            continue
        for attrib in insert.attribs:
            model = models[attrib.dxf.tag]
            place = insert.matrix44().transform(model.dxf.insert)
            found = attrib.ocs().to_wcs(Vec3(attrib.dxf.insert))
            if not found.isclose(place, abs_tol=1e-6):
                faults.append(f"{attrib.dxf.tag} at {found} instead of {place}")
            if attrib.dxf.color != model.dxf.color:
                faults.append(f"colour {attrib.dxf.color}")
    return faults


def parts(version):
    """One of nearly everything that falls apart."""
    doc = ezdxf.new(version, setup=True)
    inner = doc.blocks.new("Inner")
    inner.add_circle((1, 1), 1)
    tree = doc.blocks.new("Tree", base_point=(1, 0))
    tree.add_line((0, 0), (4, 1))
    tree.add_arc((2, 2), 1, 30, 200)
    tree.add_polyline2d([(0, 0), (2, 1), (3, 4)])
    tree.add_polyline3d([(0, 0, 0), (2, 1, 3)])
    tree.add_attdef("NO", (1, 2), "7")
    tree.add_blockref("Inner", (2, 2), {"rotation": 30}).add_attrib("NO", "mine", (3, 3))
    space = doc.modelspace()
    space.add_blockref("Tree", (10, 0), {"rotation": 45, "xscale": 2, "yscale": 2, "zscale": 2})
    space.add_blockref("Tree", (30, 0), {"rotation": 45, "xscale": 2, "yscale": 3})
    space.add_polyline2d([(0, 20), (4, 21), (5, 26)], close=True)
    space.add_polyline3d([(0, 30, 0), (2, 31, 3), (4, 30, 1)])
    space.add_polymesh((3, 4)).translate(0, 40, 0)
    mesh = space.add_polyface()
    mesh.append_face([(50, 50, 0), (54, 50, 1), (54, 55, 0), (50, 55, 2)])
    if version != "R12":
        path = space.add_lwpolyline([(0, 60, 0, 0, 0.5), (4, 60, 0, 0, 0), (5, 66, 0, 0, -1)], format="xyseb", close=True)
        path.dxf.thickness = 2
        hatch = space.add_hatch(color=1)
        hatch.set_pattern_fill("ANSI31", scale=2)
        hatch.paths.add_polyline_path([(60, 0), (80, 0), (80, 15), (60, 15)])
        space.add_mtext("one\\Ptwo", {"char_height": 2, "insert": (60, 30)})
        space.add_mline([(60, 40), (70, 40), (70, 50)])
        with space.add_mesh().edit_data() as data:
            data.vertices = [(60, 60, 0), (64, 60, 0), (64, 64, 1), (60, 64, 2), (62, 66, 1)]
            data.faces = [(0, 1, 2, 4, 3)]
    space.add_linear_dim(base=(0, 83), p1=(0, 80), p2=(7, 80)).render()
    return doc



def check_parts(kelmaro, version, folder):
    doc = parts(version)
    before = ezdxf.bbox.extents(doc.modelspace())
    wholes = {entity.dxf.handle for entity in doc.modelspace()}
    doc, faults = run(kelmaro, doc, folder, "EXPLODE ALL\n\n")
    if not doc:
        return faults
    left = [str(entity) for entity in doc.modelspace() if entity.dxf.handle in wholes]
    if left:
        faults.append(f"not exploded: {left}")
    after = ezdxf.bbox.extents(doc.modelspace())
    for was, now in ((before.extmin, after.extmin), (before.extmax, after.extmax)):
        if not was.isclose(now, abs_tol=0.05):
            faults.append(f"extents {was} became {now}")
    for insert in doc.modelspace().query("INSERT[name=='Inner']"):
        if [attrib.dxf.text for attrib in insert.attribs] != ["mine"]:
            faults.append("the inner reference lost its attribute")
    return faults


def main():
    logging.disable(logging.CRITICAL)
    failed = 0
    for check in (check_attributes, check_parts):
        for version in VERSIONS:
            with tempfile.TemporaryDirectory() as folder:
                for fault in check(sys.argv[1], version, Path(folder)):
                    print(f"{check.__name__} {version}: {fault}")
                    failed = 1
    return failed


sys.exit(main())
