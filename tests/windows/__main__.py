"""xvfb-run -a python3 tests/windows [app folder [file pattern]]: the tests of programs, under Wine.

Those of tests/blackbox run as they are. Where this system differs, DIFFERENCES names the test and
what is different: it must fail, and is told when it does not any more."""

import fnmatch
import os
import pathlib
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent), str(HERE.parent / "blackbox")]

os.environ["QUORVANE_APP"] = sys.argv[1] if len(sys.argv) > 1 else "build/windows/app"

import serving  # noqa: E402
from windows.differences import DIFFERENCES  # noqa: E402
from windows.wine import Wine  # noqa: E402


def cases(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from cases(test)
        else:
            yield test


def name_of(test):
    return ".".join(test.id().split(".")[-3:])


class Result(serving.CountingResult):
    """A failure that is expected counts as passed, its absence as a failure."""

    def addExpectedFailure(self, test, err):
        super().addExpectedFailure(test, err)
        self.passed += 1


def found(folder, pattern):
    loader = unittest.TestLoader()
    for test in cases(loader.discover(str(folder), pattern, str(HERE.parent))):
        for names in DIFFERENCES:
            if fnmatch.fnmatchcase(name_of(test), names):
                method = getattr(test, test._testMethodName)
                method.__func__.__unittest_expecting_failure__ = True
        yield test


def main():
    pattern = sys.argv[2] if len(sys.argv) > 2 else "test*.py"
    tests = unittest.TestSuite()
    for folder in (HERE.parent / "blackbox", HERE):
        tests.addTests(found(folder, pattern))
    with tempfile.TemporaryDirectory(prefix="quorvane-wine-", ignore_cleanup_errors=True) as folder:
        with Wine(os.environ.get("WINEPREFIX", folder)):
            result = unittest.TextTestRunner(resultclass=Result, verbosity=1).run(tests)
    failed = len(result.failures) + len(result.errors) + len(result.unexpectedSuccesses)
    for test in result.unexpectedSuccesses:
        print("No difference any more:", name_of(test))
    print("%d passed, %d failed, %d skipped" % (result.passed, failed, len(result.skipped)))
    sys.exit(1 if failed or not result.passed else 0)


main()
