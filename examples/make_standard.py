#!/usr/bin/python3
"""Writes the resource drawing standard.dwt, from which city.txt takes layers, a block, styles and a sheet.

usage: make_standard.py [FILE]
"""

import sys
from pathlib import Path

import ezdxf

ezdxf.options.write_fixed_meta_data_for_testing = True

LAYERS = [("lighting", 40), ("lettering", 7), ("measures", 1)]


def add_block(doc):
    """A broad-leaved tree with the year of its survey."""
    block = doc.blocks.new("broadleaf")
    block.block_record.dxf.units = 6
    block.add_circle((0, 0), 1.5)
    for corner in range(6):
        block.add_arc((0, 0), 1.0 + corner % 2 * 0.3, corner * 60, corner * 60 + 45)
    block.add_attdef("SURVEYED", (1.7, 0), "2026", dxfattribs={"height": 0.8, "style": "street", "prompt": "Year of survey"})


def main():
    doc = ezdxf.new("R2018", setup=False)
    doc.header["$INSUNITS"] = 6
    for name, color in LAYERS:
        doc.layers.add(name, color=color)
    doc.styles.add("street", font="txt").dxf.width = 0.85
    add_block(doc)
    doc.dimstyles.new("town", dxfattribs={"dimtxt": 1.0, "dimasz": 0.8, "dimexe": 0.5, "dimexo": 0.5, "dimtxsty": "street"})
    sheet = doc.layouts.new("A3 sheet")
    sheet.add_lwpolyline([(0, 0), (420, 0), (420, 297), (0, 297)], close=True)
    doc.saveas(Path(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).with_name("standard.dwt")), fmt="asc")


main()
