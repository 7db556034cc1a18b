#!/usr/bin/python3
"""Ten random commands, ten U, ten REDO: after each the drawing saves as it did at the same point before.
What was saved in between is read and audited by another program: undo_test.py KELMARO DRAWINGS
"""

import logging
import random
import re
import subprocess
import sys
import tempfile
from pathlib import Path

import ezdxf

STEPS = 10
UNKNOWN_COMMAND = 4
DESCRIPTION = "obj_name\tThing\t1\t1\nobj_type\tLine\nod_name\tthings{0}\nod_key\tid\nod_fld\tsize\tSize\treal\t1.5\n"


def readable(path):
    """The drawing as the other program reads it, or None where it refuses: binary ones, and what is broken already."""
    try:
        return ezdxf.readfile(path) if path.suffix == ".dxf" else None
    except (ezdxf.DXFError, ValueError, AttributeError, KeyError):
        return None


def handles(path):
    doc = readable(path)
    return [entity.dxf.handle for entity in doc.modelspace()] if doc else []


def audit(path):
    found = ezdxf.readfile(path).audit()
    return {re.sub(r"#\w+", "#", entry.message) for entry in found.errors + found.fixes}


def random_command(draw, known, folder, number):
    description = folder / f"load{number}.txt"
    description.write_text(DESCRIPTION.format(number), encoding="utf-8")
    choices = [
        "ERASE L\n\n",
        f"-LAYER New layer{number} Color {draw.randint(1, 255)} layer{number}\n\n",
        "-LAYER Freeze walls\n\n",
        "-LAYER LOck walls\n\n",
        f"-LAYER Make made{number}\n\n",
        f"SETVAR LUPREC {draw.randint(0, 3)}\n",
        f"LTSCALE {draw.randint(2, 9)}.5\n",
        f'KELMARO_LOAD "{description}"\n',
    ]
    if known:
        one = f'(handent "{draw.choice(known)}")\n\n'
        choices += [f"ERASE {one}"] * 3
        choices += [
            f"MOVE {one}0,0\n{draw.randint(1, 9)},{draw.randint(1, 9)}\n",
            f"MOVE ALL\n\n0,0\n{draw.randint(1, 9)},0\n",
            f"COPY {one}0,0\n5,0\n7,7\n\n",
            f"COPY ALL\n\n0,0\n{draw.randint(1, 9)},0\n\n",
            f"ROTATE {one}0,0\n{draw.randint(1, 90)}\n",
            f"ROTATE {one}0,0\nC\n{draw.randint(1, 90)}\n",
            f"SCALE {one}0,0\n2.5\n",
            f"MIRROR ALL\n\n0,0\n{draw.randint(1, 9)},1\nN\n",
            f"MIRROR {one}0,0\n0,1\nY\n",
        ]
    return draw.choice(choices)


def try_drawing(kelmaro, drawing, folder, seed):
    """Faults, each as a text."""
    draw, known, typed = random.Random(seed), handles(drawing), ""
    saves = []

    def save(name):
        saves.append(folder / f"{name}{drawing.suffix}")
        return f'SAVEAS "{saves[-1]}"\n'

    typed += save("begin")
    commands = [random_command(draw, known, folder, i) for i in range(STEPS)]
    for i, command in enumerate(commands):
        typed += command + save(f"done{i}")
    for i in reversed(range(STEPS)):
        typed += "U\n" + save(f"undone{i}")
    for i in range(STEPS):
        typed += "REDO\n" + save(f"redone{i}")
    run = subprocess.run([kelmaro, drawing], input=typed, capture_output=True, text=True, timeout=120)
    missing = [path.name for path in saves if not path.exists()]
    # A command that found everything locked leaves its answers to the command prompt.
    if run.returncode not in (0, UNKNOWN_COMMAND) or missing:
        return [f"exit status {run.returncode}, not saved: {missing}\n{run.stdout[-2000:]}{run.stderr}"]

    # A command that changed nothing is no step: U goes to the last state that differs.
    states = [saves[0].read_bytes()]
    for path in saves[1 : STEPS + 1]:
        if path.read_bytes() != states[-1]:
            states.append(path.read_bytes())
    expected = [states[max(0, len(states) - 2 - i)] for i in range(STEPS)]
    expected += [states[min(len(states) - 1, 1 + i)] for i in range(STEPS)]
    faults = []
    if states[0] != drawing.read_bytes():
        faults.append("unchanged, but saved otherwise")
    for path, bytes_ in zip(saves[STEPS + 1 :], expected):
        if path.read_bytes() != bytes_:
            faults.append(f"{path.name} differs")
    if readable(drawing):
        worse = audit(saves[STEPS]) - audit(drawing)
        if worse:
            faults.append(f"audit: {sorted(worse)[:3]}")
    return [f"{fault} ({commands})" for fault in faults]


def main():
    logging.disable(logging.CRITICAL)
    kelmaro, failures, passed = sys.argv[1], 0, 0
    for drawing in sorted(Path(sys.argv[2]).iterdir()):
        if drawing.suffix not in (".dxf", ".dxfb"):
            continue
        for seed in range(2):
            with tempfile.TemporaryDirectory() as name:
                faults = try_drawing(kelmaro, drawing, Path(name), f"{drawing.name} {seed}")
            passed += not faults
            failures += bool(faults)
            for fault in faults:
                print(f"{drawing.name} seed {seed}: {fault}")
    print(f"{passed} passed, {failures} failed")
    return 1 if failures or not passed else 0


sys.exit(main())
