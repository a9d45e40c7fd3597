"""The tests that are programs: the platform's, and the language's, for which another compiler made the
engine."""

import pathlib
import subprocess
import tempfile
import unittest

import programs

TESTS = programs.app_folder().parent / "release/tests"
PATIENCE = 600


class Units(unittest.TestCase):
    def run_program(self, name):
        program = next(TESTS.rglob(name + ".exe"))
        with tempfile.TemporaryDirectory() as folder:
            told = pathlib.Path(folder) / "told"
            # A pipe would be held open by what the program's system starts beside it.
            with told.open("wb") as out:
                done = subprocess.run(["wine", str(program), "--gtest_brief=1"], stdout=out,
                                      stderr=out, stdin=subprocess.DEVNULL, timeout=PATIENCE,
                                      cwd=folder)
            said = told.read_bytes().decode("latin-1")
        self.assertEqual(done.returncode, 0, said[-8000:])
        self.assertIn("[  PASSED  ]", said)

    def test_support(self):
        self.run_program("support_test")

    def test_platform(self):
        self.run_program("platform_test")

    def test_language(self):
        self.run_program("language_test")
