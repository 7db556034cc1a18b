"""The program at a terminal: editing, history, completion, cancel, the end."""

import os
import pty
import select
import sys
import time

import console_program
from console_program import ConsoleTest, drawing, line, without_remark

PATIENCE = 20  # seconds
SKIPPED = 77  # on a machine without pseudo-terminals; CTest tells


class Terminal(ConsoleTest):
    def start(self, *arguments):
        child, self.terminal = pty.fork()
        if child == 0:
            os.chdir(self.folder)
            os.execve(console_program.PROGRAM, [console_program.PROGRAM, *arguments], self.environment)
        self.child = child
        self.addCleanup(os.close, self.terminal)
        self.shown = ""

    def wait_for(self, text):
        """What was shown up to this text, since the last call."""
        until = time.monotonic() + PATIENCE
        while text not in self.shown and time.monotonic() < until:
            if not select.select([self.terminal], [], [], 0.2)[0]:
                continue
            try:
                self.shown += os.read(self.terminal, 4096).decode()
            except OSError:  # the program has ended
                break
        self.shown = without_remark(self.shown)
        self.assertIn(text, self.shown)
        end = self.shown.index(text) + len(text)
        shown, self.shown = self.shown[:end], self.shown[end:]
        return shown

    def type(self, text):
        os.write(self.terminal, text.encode())

    def end(self):
        until = time.monotonic() + PATIENCE
        while time.monotonic() < until:
            child, status = os.waitpid(self.child, os.WNOHANG)
            if child:
                return os.waitstatus_to_exitcode(status)
            time.sleep(0.05)
        self.fail("the program has not ended")

    def test_answers_are_shown_once(self):
        self.start()
        self.wait_for("Command: ")
        self.type("LUPREC\r")
        self.assertEqual(self.wait_for("<4>: "), "LUPREC\r\nEnter new value for LUPREC <4>: ")
        self.type("6\r")
        self.assertEqual(self.wait_for("Command: "), "6\r\nCommand: ")
        self.type("\x04")
        self.assertEqual(self.end(), 0)

    def test_answers_behind_the_first_of_a_line_stand_at_their_prompts(self):
        self.start()
        self.wait_for("Command: ")
        self.type("LINE 0,0 4,0  LUPREC\r")
        self.assertEqual(
            self.wait_for("<4>: "),
            "LINE 0,0 4,0  LUPREC\r\nSpecify first point: 0,0\r\nSpecify next point or [Undo]: 4,0\r\n"
            "Specify next point or [Undo]: \r\nCommand: LUPREC\r\nEnter new value for LUPREC <4>: ")
        self.type("\r")
        self.assertEqual(self.wait_for("Command: "), "\r\nCommand: ")
        self.type("\x04")
        self.assertEqual(self.end(), 0)

    def test_an_object_is_drawn_by_hand(self):
        self.write("objects.txt", "obj_name\tWall\t1\t1\nobj_type\tLine\nod_name\twalls\nod_key\tname\n")
        self.write("a.dxf", drawing())
        self.start("a.dxf", "-d", "objects.txt", "-o", "b.dxf")
        self.wait_for("objects.txt\"\r\n")
        self.wait_for("Command: ")
        self.type("kelmaro_d\t")
        self.assertRegex(self.wait_for("\r\nCommand: KELMARO_D"), "KELMARO_DEL_DUPLICATES +KELMARO_DRAW *\r\n")
        self.type("r\t\r")
        self.wait_for("Object: ")
        self.type("Wall\r")
        self.wait_for("Specify first point: ")
        self.type("0,0\r4,0\r\r")
        for _ in range(2):
            self.wait_for("Specify next point or [Undo]: ")
        self.wait_for("Specify first point: ")
        self.type("9,9\x1b")
        self.wait_for("*Cancel*\r\nCommand: ")
        self.type("LIST L\r\r")
        self.wait_for("Record \"walls\"\r\n    name: \"Wall\"")
        self.wait_for("Command: ")
        self.type("\x04")
        self.assertEqual(self.end(), 0)

    def test_interrupt_cancels_the_command_and_the_line(self):
        self.write("a.dxf", drawing(line()))
        self.start("a.dxf")
        self.wait_for("Command: ")
        self.type("ERASE\rALL\r")
        self.wait_for("1 found\r\nSelect objects: ")
        self.type("half\x03")
        self.wait_for("*Cancel*\r\nCommand: ")
        self.type("SELECT\rALL\r\r")
        self.wait_for("1 found\r\n")
        self.wait_for("Command: ")
        self.type("QUIT\r")
        self.assertEqual(self.end(), 0)

    def test_escape_cancels_the_command_and_the_line(self):
        self.start()
        self.wait_for("Command: ")
        self.type("LUPREC\r")
        self.wait_for("<4>: ")
        self.type("6\x1b")
        self.wait_for("*Cancel*\r\nCommand: ")
        self.type("LUPREC\r")
        self.wait_for("<4>: ")
        self.type("\x1b[A\x0b\x157\r")  # the key Up begins with the code of Escape
        self.wait_for("Command: ")
        self.type("LUPREC\r")
        self.wait_for("<7>: ")
        self.type("\r\x04")
        self.assertEqual(self.end(), 0)

    def test_enter_alone_repeats_the_last_command(self):
        self.start()
        self.wait_for("Command: ")
        self.type("REGEN\r")
        self.wait_for("Regenerating model.\r\nCommand: ")
        self.type("\r")
        self.wait_for("\r\nREGEN\r\nRegenerating model.\r\nCommand: ")
        self.type("\x04")
        self.assertEqual(self.end(), 0)

    def test_tab_completes_commands_variables_and_keywords(self):
        self.start()
        self.wait_for("Command: ")
        self.type("rege\t\r")
        self.wait_for("Regenerating model.\r\nCommand: ")
        self.type("lupr\t\r")
        self.wait_for("Enter new value for LUPREC <4>: ")
        self.type("\r")
        self.wait_for("Command: ")
        self.type("dimr\t")
        self.assertIn("DIMRADIUS  DIMRND", self.wait_for("\r\nCommand: DIMR"))
        self.type("\x15-LAYER\r")
        self.wait_for("Unlock]: ")
        self.type("ma\t\r")
        self.wait_for("(becomes the current layer)")
        self.type("\x03\x04")
        self.assertEqual(self.end(), 0)

    def test_lines_come_back_also_in_the_next_session(self):
        self.start()
        self.wait_for("Command: ")
        self.type("REGEN\r")
        self.wait_for("Regenerating model.\r\nCommand: ")
        self.type("\x1b[A\r")
        self.wait_for("Regenerating model.\r\nCommand: ")
        self.type("\x04")
        self.assertEqual(self.end(), 0)
        self.start()
        self.wait_for("Command: ")
        self.type("\x10\r")
        self.wait_for("Regenerating model.\r\nCommand: ")
        self.type("\x04")
        self.assertEqual(self.end(), 0)


def has_terminals():
    try:
        for end in pty.openpty():
            os.close(end)
        return True
    except OSError:
        return False


if __name__ == "__main__":
    if not has_terminals():
        sys.exit(SKIPPED)
    console_program.main()
