#!/usr/bin/python3
"""Every selection command with every answer, on a drawing that another program wrote: selection_test.py KELMARO

The drawing holds two tables and records of three objects: right ones, empty, illegal and repeated ones. What each command must
select is written by hand.
"""

import itertools
import re
import subprocess
import sys
import tempfile
from pathlib import Path

import ezdxf

DESCRIPTION = """\
class\tWalls\t1
obj_name\tWall\t1\t1
obj_type\tLine
obj_prop\tlayer\twalls
od_name\tbuild
od_key\tid
od_fld\tnote\tA note\trequired notempty character\tx
od_fld\theight\tHeight\treal\t2.5\t1:5
/class
class\tOpenings\t1
obj_name\tDoor\t1\t2
obj_type\tLine
obj_prop\tlayer\tdoors
od_name\tbuild
od_key\tid
od_fld\tnote\tA note\tcharacter
od_fld\theight\tHeight\treal\t2\t1:5
od_name\tdoor
od_key\tid
od_fld\tkind\tKind\trequired character\tsingle\tsingle,double
od_fld\tcount\tHow many\tinteger\t1\t0:9
obj_name\tPole\t1\t3
obj_type\tCircle
obj_prop\tlayer\tpoles
od_name\tdoor
od_key\tid
od_fld\tkind\tKind\tcharacter
od_fld\tcount\tHow many\tinteger
/class
"""

TABLES = {
    "build": [(1, "id"), (1, ""), (1, "note"), (1, ""), (1, "height"), (40, 0.0)],
    "door": [(1, "id"), (1, ""), (1, "kind"), (1, ""), (1, "count"), (90, 0)],
}


def build(key, note, height):
    return "build", [(1, key), (1, note), (40, height)]


def door(key, kind, count):
    return "door", [(1, key), (1, kind), (90, count)]


# Number: type, layer, records. Number 14 lies on a locked layer: no command ever selects it.
ENTITIES = {
    1: ("LINE", "walls", [build("Wall", "n", 2.5)]),
    2: ("LINE", "doors", [build("Wall", "n", 2.5)]),  # looks wrong
    3: ("LINE", "walls", [build("Wall", "", 2.5)]),  # empty and required
    4: ("LINE", "walls", [build("Wall", "n", 9.0)]),  # out of its range
    5: ("LINE", "doors", [build("Door", "", 2.0), door("Door", "single", 1)]),
    6: ("LINE", "doors", [build("Door", "", 2.0)]),  # lacks its second table
    7: ("LINE", "doors", [build("Door", "", 2.0), door("Door", "triple", 1)]),  # not in its list
    8: ("CIRCLE", "poles", [door("Pole", "x", 3)]),
    9: ("CIRCLE", "poles", [door("Pole", "", 3)]),  # empty, not required
    10: ("LINE", "walls", []),
    11: ("LINE", "walls", [build("Nobody", "n", 2.5)]),  # no object of that name
    12: ("LINE", "walls", [build("Wall", "n", 2.5), build("Wall", "n", 2.5)]),  # the same twice
    13: ("LINE", "walls", [build("wall", "n", 2.5)]),  # the key differs in case
    14: ("LINE", "locked", [build("Wall", "n", 2.5)]),
    15: ("LINE", "walls", [build("Wall", "", 9.0), build("Wall", "n", 2.0)]),  # the second row is right
}

WALLS = {1, 2, 3, 4, 12, 15}
OPENINGS = {5, 7, 8, 9}
CASES = [
    ("kelmaro_sel Wall\n", WALLS),
    ("kelmaro_sel DOOR\n", {5, 7}),
    ("kelmaro_sel pole\n", {8, 9}),
    ("kelmaro_sel Nobody\n", set()),
    ("kelmaro_sel Openings\n", OPENINGS),
    ("kelmaro_sel_class openings\n", OPENINGS),
    ("kelmaro_sel_class Walls\n", WALLS),
    ("kelmaro_sel_class Wall\n", set()),
    ("kelmaro_sel_ext Wall\n1 0 1\n\n", {1, 3, 4, 10, 11, 12, 13, 15}),
    ("kelmaro_sel_ext Wall\n1 0 0\n\n", {2, 5, 6, 7, 8, 9}),
    ("kelmaro_sel_ext Wall\n0 1 1\n\n", WALLS),
    ("kelmaro_sel_ext Wall\n0 1 0\n\n", {5, 6, 7, 8, 9, 10, 11, 13}),
    ("kelmaro_sel_ext Wall\n1 1 1\n\n", {1, 3, 4, 12, 15}),
    ("kelmaro_sel_ext Wall\n1 1 0\n\n", {2, 5, 6, 7, 8, 9, 10, 11, 13}),
    ("kelmaro_sel_ext Wall\n0 0\n", None),
    ("kelmaro_sel_all 1 0 1\n\n", {1, 3, 4, 5, 6, 7, 8, 9, 12, 13, 15}),
    ("kelmaro_sel_all 1 0 0\n\n", {2, 10, 11}),
    ("kelmaro_sel_all 0 1 1\n\n", {1, 2, 3, 4, 5, 7, 8, 9, 12, 15}),
    ("kelmaro_sel_all 0 1 0\n\n", {6, 10, 11, 13}),
    ("kelmaro_sel_all 1 1 1\n\n", {1, 3, 4, 5, 7, 8, 9, 12, 15}),
    ("kelmaro_sel_all 1 1 0\n\n", {2, 6, 10, 11, 13}),
    ("kelmaro_sel_all 0 0\n", None),
    ("kelmaro_sel_null 1\n\n", {3, 5, 6, 7, 9, 15}),
    ("kelmaro_sel_null 0\n\n", {3, 15}),
    ("kelmaro_assert 1\n\n", {3, 4, 6, 7, 13}),
    ("kelmaro_assert 0\n\n", {3, 6, 7, 13}),
    ("kelmaro_sel_classified 1\n\n", {1, 2, 3, 4, 5, 7, 8, 9, 12, 15}),
    ("kelmaro_sel_classified 0\n\n", {6, 10, 11, 13}),
]


def make_drawing(path, version, form):
    doc = ezdxf.new(version)
    for layer in ("walls", "doors", "poles", "locked"):
        doc.layers.add(layer)
    doc.layers.get("locked").lock()
    store = doc.rootdict.add_new_dict("ODEMUDATA")
    for name, chain in TABLES.items():
        store.add_xrecord(name).reset(chain)
    msp, handles = doc.modelspace(), {}
    for number, (kind, layer, records) in ENTITIES.items():
        attribs = {"layer": layer}
        entity = msp.add_line((number, 0), (number, 5), attribs) if kind == "LINE" else msp.add_circle((number, 0), 1, attribs)
        handles[entity.dxf.handle] = number
        for table, rows in itertools.groupby(records, key=lambda record: record[0]):
            extension = entity.get_extension_dict() if entity.has_extension_dict else entity.new_extension_dict()
            extension.add_xrecord(table).reset([item for _, row in rows for item in row])
    doc.saveas(path, fmt=form)
    return handles


def selected(kelmaro, drawing, description, typed, handles):
    """Numbers that LIST shows after the command, or None when the command did not tell of a selection."""
    run = subprocess.run([kelmaro, drawing, "-d", description], input=typed + "LIST\n\n", capture_output=True, text=True, timeout=60)
    if run.returncode != 0:
        raise AssertionError(f"exit status {run.returncode}:\n{run.stdout}{run.stderr}")
    told = re.search(r"Selected: (\d+)", run.stdout)
    if not told:
        return None
    shown = {handles[handle] for handle in re.findall(r"Handle = (\w+)", run.stdout)}
    if len(shown) != int(told.group(1)):
        raise AssertionError(f"tells {told.group(1)}, selects {sorted(shown)}")
    return shown


def main():
    kelmaro, failures = sys.argv[1], 0
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        description = folder / "objects.txt"
        description.write_text(DESCRIPTION, encoding="utf-8")
        for version, form in (("R2000", "asc"), ("R2018", "asc"), ("R2010", "bin")):
            drawing = folder / f"{version}.dxf"
            handles = make_drawing(drawing, version, form)
            for typed, expected in CASES:
                try:
                    found = selected(kelmaro, drawing, description, typed, handles)
                    wrong = None if found == expected else f"selects {found and sorted(found)}, not {expected and sorted(expected)}"
                except AssertionError as error:
                    wrong = str(error)
                if wrong:
                    failures += 1
                    print(f"{version} {form} {typed!r}: {wrong}")
    print(f"{len(CASES) * 3 - failures} passed, {failures} failed")
    return 1 if failures else 0


sys.exit(main())
