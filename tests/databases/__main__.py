"""python3 tests/databases [app folder [file pattern]]"""

import pathlib
import signal
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

import serving  # noqa: E402

signal.signal(signal.SIGTERM, signal.default_int_handler)  # servers end with the tests
serving.main(str(pathlib.Path(__file__).resolve().parent))
