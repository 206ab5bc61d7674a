#!/usr/bin/env python3
"""Calls quillon-script as a user does: with a file of commands, from standard input, and wrongly."""

import os
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv.pop())


class Arguments(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def run_program(self, *arguments, commands=b""):
        return subprocess.run([PROGRAM, *arguments], input=commands, cwd=self.folder.name, capture_output=True, timeout=60)

    def write(self, name, data):
        with open(os.path.join(self.folder.name, name), "wb") as file:
            file.write(data)

    def test_commands_come_from_the_file(self):
        self.write("day.txt", b"tool NONE\r\nquit\r\n")
        run = self.run_program("day.txt", commands=b"not read\n")
        self.assertEqual(run.stdout, b'{"command":"tool NONE"}\n{"refused":"there is no tool NONE"}\n{"command":"quit"}\n{"exit":0}\n')
        self.assertEqual((run.returncode, run.stderr), (0, b""))

    def test_commands_come_from_standard_input(self):
        run = self.run_program(commands=b"quit\n")
        self.assertEqual(run.stdout, b'{"command":"quit"}\n{"exit":0}\n')
        self.assertEqual((run.returncode, run.stderr), (0, b""))

    def test_line_that_is_no_command_is_named(self):
        run = self.run_program(commands=b"# a remark\n\nprint it\nquit\n")
        self.assertEqual(run.stdout, b"")
        self.assertEqual(run.stderr, b"quillon-script: line 3 is no command: print it\n")
        self.assertEqual(run.returncode, 2)

    def test_file_that_is_not_there_is_told(self):
        run = self.run_program("none.txt", commands=b"quit\n")
        self.assertEqual((run.returncode, run.stdout), (2, b""))
        self.assertEqual(run.stderr, b"quillon-script: cannot read none.txt\n")

    def test_folder_is_no_file_of_commands(self):
        run = self.run_program(self.folder.name)
        self.assertEqual((run.returncode, run.stdout), (2, b""))
        self.assertTrue(run.stderr.startswith(b"quillon-script: cannot read"), run.stderr)

    def test_second_argument_is_told(self):
        run = self.run_program("a", "b")
        self.assertEqual((run.returncode, run.stdout, run.stderr), (2, b"", b"usage: quillon-script [FILE]\n"))

    def test_lines_come_out_as_they_happen(self):
        program = subprocess.Popen([PROGRAM], stdin=subprocess.PIPE, stdout=subprocess.PIPE, cwd=self.folder.name)
        try:
            program.stdin.write(b"tool NONE\n")
            program.stdin.flush()
            self.assertEqual(program.stdout.readline(), b'{"command":"tool NONE"}\n')
            self.assertEqual(program.stdout.readline(), b'{"refused":"there is no tool NONE"}\n')
            rest, _ = program.communicate(b"quit\n", timeout=60)
            self.assertEqual(rest, b'{"command":"quit"}\n{"exit":0}\n')
        finally:
            program.kill()


if __name__ == "__main__":
    unittest.main()
