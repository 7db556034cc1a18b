"""What the tests of the console share: a folder of their own, drawings to open, and the program run in it."""

import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = None

LINE = "0\nLINE\n5\n{handle}\n8\n{layer}\n10\n0.0\n20\n0.0\n30\n0.0\n11\n{length}\n21\n0.0\n31\n0.0\n"


def drawing(*entities, end="\r\n"):
    """A drawing of R12 with these entities."""
    text = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n9\n$HANDSEED\n5\nFFF\n0\nENDSEC\n"
    text += "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n3\n"
    for layer in ("0", "walls", "roofs"):
        text += f"0\nLAYER\n2\n{layer}\n70\n0\n62\n7\n6\nCONTINUOUS\n"
    text += "0\nENDTAB\n0\nENDSEC\n"
    text += "0\nSECTION\n2\nENTITIES\n" + "".join(entities) + "0\nENDSEC\n0\nEOF\n"
    return text.replace("\n", end).encode()


def line(handle="A1", layer="0", length="5.0"):
    return LINE.format(handle=handle, layer=layer, length=length)


def without_remark(text):
    """Without what the address sanitizer says of every program that switches stacks."""
    return re.sub(r"==\d+==WARNING: ASan doesn't fully support makecontext/swapcontext [^\n]*\n", "", text)


class ConsoleTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="console-test-")).resolve()
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.environment = dict(os.environ, XDG_CONFIG_HOME=str(self.folder / "config"), TERM="dumb")

    def write(self, name, contents):
        path = self.folder / name
        path.write_bytes(contents if isinstance(contents, bytes) else contents.encode())
        return path

    def read(self, name):
        return (self.folder / name).read_bytes()

    def run_program(self, *arguments, typed="", status=0, **options):
        """Standard output, once the exit status is the expected one. Standard error is kept in self.trouble."""
        done = subprocess.run(
            [PROGRAM, *map(str, arguments)], input=typed.encode(), capture_output=True, cwd=self.folder,
            env=self.environment, timeout=60, **options)
        self.trouble = without_remark(done.stderr.decode())
        told = done.stdout.decode()
        self.assertEqual(done.returncode, status, told + self.trouble)
        return told


def main():
    global PROGRAM
    PROGRAM = str(Path(sys.argv.pop(1)).resolve())
    unittest.main()
