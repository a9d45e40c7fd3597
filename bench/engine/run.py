#!/usr/bin/env python3
"""Times the script engine beside Lua and PHP on the same work.

Usage: run.py [--runs N] path/to/qvscript-or-its-folder [program ...]

Each program runs as a whole process, the languages taking turns; the least time counts. The
outputs of all languages must be equal. PHP runs without its just-in-time compiler.
"""

import argparse
import math
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

FOLDER = Path(__file__).resolve().parent


def languages(qvscript):
    found = {"vbs": [qvscript]}
    lua = shutil.which("lua5.4") or shutil.which("lua")
    php = shutil.which("php")
    if lua:
        found["lua"] = [lua]
    if php:
        found["php"] = [php, "-n", "-d", "opcache.jit=off", "-d", "memory_limit=2G"]
    return found


def run_once(command):
    start = time.perf_counter()
    done = subprocess.run(command, stdout=subprocess.PIPE, check=True)
    return time.perf_counter() - start, done.stdout


def measure(commands, runs):
    least = {name: math.inf for name in commands}
    outputs = {}
    for _ in range(runs):
        for name, command in commands.items():
            seconds, output = run_once(command)
            least[name] = min(least[name], seconds)
            outputs[name] = output.replace(b"\r\n", b"\n")
    return least, outputs


def ratio_text(least, name):
    return f"{least['vbs'] / least[name]:8.2f}" if name in least else "       -"


def geometric_mean(numbers):
    return math.exp(sum(map(math.log, numbers)) / len(numbers))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("qvscript")
    parser.add_argument("programs", nargs="*")
    options = parser.parse_args()

    if Path(options.qvscript).is_dir():
        options.qvscript = str(Path(options.qvscript) / "qvscript")
    tools = languages(options.qvscript)
    programs = options.programs or sorted(p.stem for p in FOLDER.glob("*.vbs"))
    ratios = {"lua": [], "php": []}
    wrong = []
    print(f"{'program':12} {'engine s':>9} {'lua s':>9} {'php s':>9} {'/ lua':>8} {'/ php':>8}")
    for program in programs:
        commands = {n: c + [str(FOLDER / f"{program}.{n}")] for n, c in tools.items()}
        least, outputs = measure(commands, options.runs)
        if len(set(outputs.values())) != 1:
            wrong.append(program)
        for name, values in ratios.items():
            if name in least:
                values.append(least["vbs"] / least[name])
        times = " ".join(f"{least.get(n, math.nan):9.3f}" for n in ("vbs", "lua", "php"))
        print(f"{program:12} {times} {ratio_text(least, 'lua')} {ratio_text(least, 'php')}",
              flush=True)
    for name, values in ratios.items():
        if values:
            print(f"geometric mean against {name}: {geometric_mean(values):.2f},"
                  f" highest {max(values):.2f}")

    with tempfile.NamedTemporaryFile(suffix=".vbs") as empty:
        least, _ = measure({"vbs": [options.qvscript, empty.name]}, max(options.runs, 20))
    print(f"start-up with an empty file: {least['vbs'] * 1000:.1f} ms")
    for program in wrong:
        print(f"{program}: outputs differ", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
