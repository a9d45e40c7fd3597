"""The tests that are programs."""

import re
import subprocess
import tempfile
import unittest

import programs
from windows import wine
from windows.differences import UNITS

TESTS = programs.app_folder().parent / "release/tests"
PATIENCE = 120


def said_by(program, option):
    """Goes to a file: a pipe would be held open by what Wine starts beside the program."""
    with tempfile.TemporaryFile() as out:
        try:
            subprocess.run(["wine", str(program), option], stdin=subprocess.DEVNULL, stdout=out,
                           stderr=out, timeout=PATIENCE, check=False)
        except subprocess.TimeoutExpired:
            pass  # what has not passed has failed
        out.seek(0)
        return out.read().decode("latin-1").replace("\r\n", "\n")


def tests_of(program):
    suite = ""
    for line in said_by(program, "--gtest_list_tests").split("\n"):
        name = line.partition("  # ")[0]
        if name.startswith("  "):
            yield suite + name.strip()
        elif name.endswith("."):
            suite = name


class Units(unittest.TestCase):
    maxDiff = None

    def check(self, name):
        program = next(TESTS.rglob(name + "_test.exe"))
        asked = set(tests_of(program))
        self.assertTrue(asked)
        passed = re.findall(r"\[       OK \] (\S+)", said_by(program, "--gtest_filter=*"))
        self.assertEqual(asked - set(passed), set(UNITS[name]))

    def test_platform_for_servers(self):
        wine.become(wine.FOR_SERVERS)
        self.addCleanup(wine.become, wine.FOR_ONE_USER)
        self.check("platform")

    def test_no_program_is_left_out(self):
        built = {program.stem.removesuffix("_test") for program in TESTS.rglob("*_test.exe")}
        self.assertEqual(built, set(UNITS))


for unit in UNITS:
    setattr(Units, "test_" + unit, lambda self, unit=unit: self.check(unit))
