"""What the acceptance tests share: descriptions, the drawings they run on, and what another program finds in a drawing."""

import logging
import re
import shutil
import subprocess
import sys
from pathlib import Path

import ezdxf

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "console"))

import console_program  # noqa: E402

FOLDERS = []  # given on the command line, of drawings for most tests


def drawings():
    """Every drawing below the folders."""
    found = [path for folder in FOLDERS for path in Path(folder).resolve().rglob("*") if path.suffix in (".dxf", ".dxfb")]
    assert found, "no drawings"
    return sorted(found)


def read_elsewhere(path):
    """The drawing as the other program reads it, or None where it refuses what is broken already."""
    try:
        return ezdxf.readfile(path)
    except (ezdxf.DXFError, ValueError, AttributeError, KeyError, TypeError):
        return None


def has_handles(doc):
    """Whether the drawing's own handles are known, and not such as the other program makes up for those without."""
    return doc.dxfversion > "AC1009" or bool(doc.header.get("$HANDLING", 0))


def findings(path):
    """What the other program's audit finds, or None where it cannot; handles left out, as repaired ones differ from run to run."""
    doc = read_elsewhere(path)
    if doc is None:
        return None
    try:
        found = doc.audit()
    except ezdxf.DXFError:
        return None
    return {re.sub(r"#\w+", "#", entry.message) for entry in found.errors + found.fixes}


def tag_values(tags):
    return [(tag.code, tag.value) for tag in tags]


class AcceptanceTest(console_program.ConsoleTest):
    def describe(self, text, name="objects.txt"):
        """Writes a description, its tabs written as "|"."""
        return self.write(name, text.replace("|", "\t"))

    def take(self, drawing):
        """A copy in the folder of the test."""
        return Path(shutil.copy(drawing, self.folder / f"drawing{drawing.suffix}"))

    def run_anyhow(self, *arguments):
        """Standard output and exit status, whatever it is."""
        done = subprocess.run([console_program.PROGRAM, *map(str, arguments)], capture_output=True, cwd=self.folder,
                              env=self.environment, timeout=60)
        self.trouble = console_program.without_remark(done.stderr.decode())
        return done.stdout.decode(), done.returncode

    def assert_sound(self, path, before=frozenset()):
        """The other program reads it and finds no more than it found before, as far as it gets over what was broken then."""
        self.assertIsNotNone(read_elsewhere(self.folder / path), f"{path} cannot be read elsewhere")
        found = findings(self.folder / path)
        if found is not None or not before:
            self.assertEqual(found - before, set())


def main(with_drawings=False):
    """Runs the tests: TEST KELMARO, and the folders of drawings where they take these."""
    logging.disable(logging.CRITICAL)
    if with_drawings:
        FOLDERS.extend(sys.argv[2:])
        del sys.argv[2:]
    console_program.main()
