"""python3 tests/hosting [app folder [file pattern]]"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

import serving  # noqa: E402

serving.main(str(pathlib.Path(__file__).resolve().parent))
