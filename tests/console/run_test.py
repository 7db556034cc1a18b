"""The program from the outside: what it opens, types, tells and saves, and how it ends."""

import os
import resource
import subprocess
import unittest

import console_program
from console_program import ConsoleTest, drawing, line, without_remark


class Input(ConsoleTest):
    def test_scripts_and_texts_run_in_the_order_given(self):
        self.write("a.scr", "; comment\nLUPREC 6\n")
        self.write("b.scr", "LUPREC 2")  # no line end
        told = self.run_program("-c", "LUPREC 1", "-s", "a.scr", "-c", "LUPREC 3", "-c", "", "-s", "b.scr", "-c",
                                "LUPREC")
        self.assertEqual(
            [text for text in told.split("\n") if "new value" in text],
            ["Enter new value for LUPREC <4>: 1",
             "Enter new value for LUPREC <1>: 6",
             "Enter new value for LUPREC <6>: 3",
             "Enter new value for LUPREC <3>: 2",
             "Enter new value for LUPREC <2>: *Cancel*"])

    def test_a_text_may_begin_with_a_hyphen_or_a_bracket(self):
        told = self.run_program("-c", "-LAYER N x ", "-c", "[nothing]", "-c", "%%", status=4)
        self.assertIn("Enter name list for new layer(s): x\n", told)
        self.assertIn('Unknown command "[NOTHING]".', told)
        self.assertIn('Unknown command "%%".', told)

    def test_standard_input_is_echoed_like_a_session_at_the_keyboard(self):
        told = self.run_program(typed="LUPREC\n7\nSETVAR LUPREC 3\n\nREGEN\n")
        self.assertEqual(
            told, "Command: LUPREC\n"
            "Enter new value for LUPREC <4>: 7\n"
            "Command: SETVAR\n"
            "Enter variable name or [?]: LUPREC\n"
            "Enter new value for LUPREC <7>: 3\n"
            "Command: \n"
            "Command: REGEN\n"
            "Regenerating model.\n"
            "Command: \n")

    def test_standard_input_is_left_alone_when_something_else_was_given(self):
        told = self.run_program("-c", "REGEN", typed="NONSENSE\n")
        self.assertNotIn("NONSENSE", told)

    def test_the_last_line_needs_no_end(self):
        self.assertIn("Regenerating model.\n", self.run_program(typed="REGEN"))

    def test_a_script_that_ends_inside_a_prompt_is_gone_on_with_then_cancelled(self):
        self.write("half.scr", "LUPREC\n")
        self.assertIn("Enter new value for LUPREC <4>: 5\n", self.run_program("-s", "half.scr", "-c", "5"))
        told = self.run_program("-s", "half.scr")
        self.assertIn("Enter new value for LUPREC <4>: *Cancel*\n", told)

    def test_an_unknown_command_is_named_and_its_line_dropped(self):
        self.write("bad.scr", "NOSUCH LUPREC 9\nREGEN\n")
        told = self.run_program("-s", "bad.scr", status=4)
        self.assertIn('Unknown command "NOSUCH".', told)
        self.assertNotIn("new value", told)
        self.assertIn("Regenerating model.\n", told)

    def test_quit_ends_the_program_before_what_follows(self):
        self.write("a.scr", "QUIT\nNONSENSE\n")
        told = self.run_program("-s", "a.scr", "-c", "NONSENSE")
        self.assertNotIn("NONSENSE", told)

    def test_each_text_is_one_step_of_undo(self):
        self.write("a.dxf", drawing(line("A1"), line("A2"), line("A3")))
        erase = 'ERASE (handent "A1") \nERASE (handent "A2") '
        told = self.run_program("a.dxf", "-c", erase, "-c", "ERASE L ", "-c", "U", "-c", "U", "-c", "SELECT ALL ")
        self.assertIn("3 found\n", told)


class Drawings(ConsoleTest):
    def test_the_last_drawing_is_the_current_one(self):
        self.write("one.dxf", drawing(line("A1")))
        self.write("two.dxf", drawing(line("B1"), line("B2")))
        self.assertIn("2 found\n", self.run_program("one.dxf", "two.dxf", "-c", "SELECT ALL "))
        self.assertIn("1 found\n", self.run_program("two.dxf", "one.dxf", "-c", "SELECT ALL "))
        self.assertIn("0 found\n", self.run_program("one.dxf", "--new", "-c", "SELECT ALL "))
        self.assertIn("0 found\n", self.run_program("-c", "SELECT ALL "))

    def test_an_unchanged_drawing_saves_byte_for_byte(self):
        for end in ("\r\n", "\n"):
            before = drawing(line(), end=end) + b"trailing\0bytes"
            self.write("a.dxf", before)
            self.run_program("a.dxf", "-c", "LIST ALL ", "-o", "b.dxf")
            self.assertEqual(self.read("b.dxf"), before)
            self.run_program("a.dxf", "-c", "", "--save")
            self.assertEqual(self.read("a.dxf"), before)

    def test_an_existing_output_is_replaced_and_kept(self):
        self.write("a.dxf", drawing(line("A1"), line("A2")))
        self.write("b.dxf", "old")
        self.run_program("a.dxf", "-c", "ERASE L ", "-o", "b.dxf")
        self.assertEqual(self.read("b.dxf"), drawing(line("A1")))
        self.assertEqual(self.read("b.dxf.bak"), b"old")
        self.assertEqual(self.read("a.dxf"), drawing(line("A1"), line("A2")))

    def test_save_writes_every_drawing_that_was_changed(self):
        self.write("a.dxf", drawing(line("A1"), line("A2")))
        self.write("b.dxf", drawing(line("B1")))
        self.write("c.dxf", drawing(line("C1")))
        self.run_program("a.dxf", "c.dxf", "-c", "OPEN b.dxf\nERASE ALL \nOPEN a.dxf\nERASE L ", "--save")
        self.assertEqual(self.read("a.dxf"), drawing(line("A1")))
        self.assertEqual(self.read("b.dxf"), drawing())
        self.assertFalse((self.folder / "c.dxf.bak").exists())

    def test_a_new_drawing_is_saved_as_r2018(self):
        self.run_program("-c", "", "-o", "new.dxf")
        self.assertRegex(self.read("new.dxf").decode(), r"\$ACADVER\r?\n *1\r?\nAC1032")
        self.run_program("new.dxf", "-c", "AUDIT")

    def test_warnings_of_opening_stand_in_the_transcript(self):
        self.write("a.dxf", drawing(line("A1"), line("A1")))
        told = self.run_program("a.dxf", "-c", "AUDIT")
        opening = told[:told.index("Command: ")]
        self.assertEqual(opening, "a.dxf: 1 record with the handle of another; it was given a new one\n")
        self.assertIn("Total warnings found 1\n", told)
        self.assertEqual(self.trouble, "")

    def test_a_real_dwg_is_refused_with_its_version(self):
        self.write("real.dwg", b"AC1032" + bytes(200))
        self.run_program("real.dwg", "-c", "REGEN", status=2)
        self.assertRegex(self.trouble, r"^kelmaro: .*real\.dwg.*2018")

    def test_nothing_is_typed_when_a_drawing_cannot_be_read(self):
        self.write("good.dxf", drawing(line()))
        self.write("cut.dxf", drawing(line())[:-10])
        for wrong in ("missing.dxf", "cut.dxf", "."):
            told = self.run_program("good.dxf", wrong, "-c", "REGEN", "-o", "out.dxf", status=2)
            self.assertNotIn("REGEN", told)
            self.assertRegex(self.trouble, r"^kelmaro: ")
            self.assertFalse((self.folder / "out.dxf").exists())
        self.assertEqual(self.run_program("missing.dxf", "-c", "", status=2), "")
        self.assertIn("missing.dxf", self.trouble)

    def test_an_output_that_cannot_be_written_is_told(self):
        before = drawing(line())
        self.write("a.dxf", before)
        self.run_program("a.dxf", "-c", "", "-o", "nowhere/b.dxf", status=2)
        self.assertRegex(self.trouble, r"^kelmaro: .*nowhere")
        (self.folder / "b.dxf").mkdir()
        self.run_program("a.dxf", "-c", "", "-o", "b.dxf", status=2)
        self.assertRegex(self.trouble, r"^kelmaro: .*b\.dxf")
        self.assertEqual(self.read("a.dxf"), before)

    def test_a_full_disk_leaves_the_old_file(self):
        if not os.path.exists("/dev/full"):
            self.skipTest("no /dev/full")
        self.write("a.dxf", drawing(line("A1"), line("A2")))
        os.symlink("/dev/full", self.folder / "full.dxf")
        self.run_program("a.dxf", "-c", "ERASE L ", "-o", "full.dxf", status=2)
        self.assertTrue(self.trouble.startswith("kelmaro: "))

    def test_a_file_that_may_not_grow_is_told_like_a_full_disk(self):
        before = drawing(line("A1"), line("A2"))
        self.write("a.dxf", before)
        told = self.run_program("a.dxf", "-c", "ERASE L ", "-c", "QSAVE", "-c", "REGEN", "--save", status=2,
                                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (300, 300)))
        self.assertIn("Regenerating model.", told)
        self.assertTrue(self.trouble.startswith("kelmaro: cannot write '"), self.trouble)
        self.assertEqual([name for name in os.listdir(self.folder) if name != "config"], ["a.dxf"])
        self.assertEqual(self.read("a.dxf"), before)

    def test_readonly_keeps_the_file_but_gives_copies(self):
        before = drawing(line("A1"), line("A2"))
        self.write("a.dxf", before)
        self.run_program("a.dxf", "--readonly", "-c", "ERASE L \nQSAVE", "-o", "copy.dxf")
        self.assertEqual(self.read("a.dxf"), before)
        self.assertEqual(self.read("copy.dxf"), drawing(line("A1")))
        self.run_program("a.dxf", "--readonly", "-c", "ERASE L ", "-o", "a.dxf", status=2)
        self.assertEqual(self.read("a.dxf"), before)
        self.run_program("a.dxf", "--readonly", "--save", "-c", "", status=1)

    def test_commands_that_cannot_read_or_write_count(self):
        self.write("a.dxf", drawing(line()))
        self.assertIn("missing.dxf", self.run_program("-c", "OPEN missing.dxf", status=2))
        self.assertIn("nowhere", self.run_program("a.dxf", "-c", "SAVEAS nowhere/b.dxf", status=2))

    def test_a_drawing_without_a_name_cannot_be_saved_in_place(self):
        self.run_program("--save", "-c", "", status=2)
        self.assertIn("Drawing1.dxf", self.trouble)


class Descriptions(ConsoleTest):
    def setUp(self):
        super().setUp()
        self.write("a.dxf", drawing(line("A1", "walls"), line("A2", "roofs")))
        self.write("good one.txt", "class\tAll\t1\nobj_name\tWall\t1\t1\nobj_type\tLine\n"
                   "obj_prop\tlayer\twalls\n/class\n")
        self.write("wrong.txt", "nonsense\tx\n")

    def test_a_description_is_loaded_and_used(self):
        told = self.run_program("a.dxf", "-d", "good one.txt", "-c", "KELMARO_SEL Wall")
        self.assertRegex(told, r"Object: Wall\nSelected: \d+\nCommand: \n$")
        self.assertIn("no file loaded", self.run_program("a.dxf", "-c", "KELMARO_SEL "))

    def test_an_error_in_it_is_told_and_the_work_goes_on(self):
        told = self.run_program("a.dxf", "-d", "wrong.txt", "-c", "ERASE L ", "-o", "b.dxf", status=3)
        self.assertIn("1: error: ", told)
        self.assertEqual(self.read("b.dxf"), drawing(line("A1", "walls")))

    def test_a_description_that_cannot_be_opened_is_told_and_the_work_goes_on(self):
        told = self.run_program("a.dxf", "-d", "none.txt", "-c", "REGEN", "-o", "b.dxf", status=3)
        self.assertEqual(self.trouble, "kelmaro: cannot open 'none.txt'\n")
        self.assertIn("Regenerating model.\n", told)
        self.assertTrue((self.folder / "b.dxf").exists())

    def test_the_first_status_that_applies_counts(self):
        self.run_program("a.dxf", "-d", "none.txt", "-c", "NOSUCH", status=3)
        self.run_program("a.dxf", "-d", "none.txt", "-c", "NOSUCH", "-o", "no/b.dxf", status=2)
        self.run_program("a.dxf", "-d", "good one.txt", "-c", "NOSUCH", status=4)


class Usage(ConsoleTest):
    def test_wrong_arguments(self):
        for arguments in (["--nonsense"], ["-c"], ["-o"], ["-d", "a", "-d", "b"], ["--support", "nowhere"]):
            self.assertEqual(self.run_program(*arguments, status=1), "", arguments)
            self.assertTrue(self.trouble.startswith("kelmaro: "), arguments)

    def test_a_script_that_cannot_be_opened_stops_everything(self):
        self.write("a.scr", "REGEN\n")
        self.assertEqual(self.run_program("-s", "a.scr", "-s", "none.scr", status=1), "")
        self.assertRegex(self.trouble, r"^kelmaro: .*none\.scr")

    def test_help_and_version(self):
        told = self.run_program("--help")
        for option in ("-d", "-s", "-c", "-o", "--save", "--new", "--readonly", "--support", "--version"):
            self.assertIn(option + " ", told)
        self.assertRegex(self.run_program("--version"), r"^kelmaro \d+\.\d+\.\d+\n$")

    def test_the_program_runs_from_any_folder_and_by_a_link(self):
        link = self.folder / "link"
        os.symlink(console_program.PROGRAM, link)
        done = subprocess.run([str(link), "-c", "KELMARO_LOAD\n"], cwd="/", env=self.environment, capture_output=True)
        self.assertEqual(done.returncode, 0, done.stderr)


class Streams(ConsoleTest):
    def start(self, **streams):
        return subprocess.Popen([console_program.PROGRAM, "-c", "HELP", "-o", "out.dxf"], cwd=self.folder,
                                env=self.environment, **streams)

    def test_a_reader_that_went_away_does_not_stop_the_work(self):
        reading, writing = os.pipe()
        os.close(reading)
        process = self.start(stdout=writing)
        os.close(writing)
        self.assertEqual(process.wait(60), 0)
        self.assertTrue((self.folder / "out.dxf").exists())

    def test_an_output_stream_that_is_full_is_told_once(self):
        if not os.path.exists("/dev/full"):
            self.skipTest("no /dev/full")
        with open("/dev/full", "w") as full:
            done = subprocess.run([console_program.PROGRAM, "-c", "HELP", "-c", "HELP"], cwd=self.folder,
                                  env=self.environment, stdout=full, stderr=subprocess.PIPE, text=True, timeout=60)
        self.assertEqual(done.returncode, 0)
        self.assertEqual(without_remark(done.stderr),
                         "kelmaro: cannot write standard output: No space left on device\n")

    def test_closed_streams_are_not_taken_for_drawings(self):
        command = f"exec '{console_program.PROGRAM}' -c HELP -o out.dxf <&- >&- 2>&-"
        self.assertEqual(subprocess.run(["sh", "-c", command], cwd=self.folder, env=self.environment).returncode, 0)
        self.assertNotIn(b"QSAVE", self.read("out.dxf"))

    def test_prompts_appear_before_the_answer_is_read(self):
        process = subprocess.Popen([console_program.PROGRAM], cwd=self.folder, env=self.environment,
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.addCleanup(process.stdout.close)
        self.assertEqual(os.read(process.stdout.fileno(), 100), b"Command: ")
        process.stdin.write(b"LUPREC\n")
        process.stdin.flush()
        told = b""
        while not told.endswith(b"<4>: "):
            told += os.read(process.stdout.fileno(), 100)
        self.assertEqual(told, b"LUPREC\nEnter new value for LUPREC <4>: ")
        process.stdin.close()
        self.assertEqual(process.wait(60), 0)


if __name__ == "__main__":
    console_program.main()
