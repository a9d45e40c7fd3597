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

FOLDERS = (HERE.parent / "blackbox", HERE)


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
                test.__unittest_expecting_failure__ = True
        yield test


def run_found(pattern, ids=None):
    """Those with these ids, or all."""
    tests = [test for folder in FOLDERS for test in found(folder, pattern)]
    chosen = unittest.TestSuite(test for test in tests if ids is None or test.id() in ids)
    result = unittest.TextTestRunner(resultclass=Result, verbosity=1).run(chosen)
    return result, {test.id() for test, _ in result.failures + result.errors}


def run(pattern):
    """The result, and what has failed. A few failures run once more by themselves, since a program
    of Wine ends at times before it begins; what passes then is named."""
    few = 5
    result, failed = run_found(pattern)
    if not failed or len(failed) > few:
        return result, failed
    second, failed_again = run_found(pattern, failed)
    if second.testsRun != len(failed):
        return result, failed
    for name in sorted(failed - failed_again):
        print("Passed when it ran again:", name)
    result.passed += second.passed
    return result, failed_again


def main():
    pattern = sys.argv[2] if len(sys.argv) > 2 else "test*.py"
    with tempfile.TemporaryDirectory(prefix="quorvane-wine-", ignore_cleanup_errors=True) as folder:
        with Wine(os.environ.get("WINEPREFIX", folder)):
            result, failed = run(pattern)
    for test in result.unexpectedSuccesses:
        print("No difference any more:", name_of(test))
    failures = len(failed) + len(result.unexpectedSuccesses)
    print("%d passed, %d failed, %d skipped" % (result.passed, failures, len(result.skipped)))
    sys.exit(1 if failures or not result.passed else 0)


main()
