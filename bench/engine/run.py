#!/usr/bin/env python3
"""Times the script engine beside LuaJIT, Lua and PHP on the same work.

Usage: run.py [--runs N] [--windows FOLDER] path/to/qvscript-or-its-folder [program ...]

Each program runs as a whole process, the languages taking turns; the least time counts, less that
of an empty file. The outputs of all languages must be equal. LuaJIT and PHP run without their
just-in-time compilers. References that are not installed are left out. With --windows the engine is
that of the programs for Windows, under Wine, and the only reference is this system's own.
"""

import argparse
import math
import os
import resource
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
sys.path.insert(0, str(FOLDER.parent.parent / "tests"))

from windows.wine import Wine  # noqa: E402


# The geometric mean and the highest ratio that we allow ourselves against a reference.
REFERENCES = {"luajit": (1.0, 1.15), "lua": (None, None), "php": (0.5, None), "linux": (1.1, None)}


def windows_tools(folder, qvscript):
    """What Wine has of the objects that scripts ask for is not ours to time."""
    own = "--components=own"
    return {"engine": ("vbs", ["wine", str(Path(folder) / "qvscript.exe"), own]),
            "linux": ("vbs", [qvscript, own])}


def tools_of(qvscript):
    lua = shutil.which("lua5.4") or shutil.which("lua")
    found = {
        "engine": ("vbs", [qvscript]),
        "luajit": ("lua", [shutil.which("luajit"), "-joff"]),
        "lua": ("lua", [lua]),
        "php": ("php", [shutil.which("php"), "-n", "-d", "opcache.jit=off", "-d",
                        "memory_limit=2G"]),
    }
    return {name: c for name, c in found.items() if c[1][0]}


def processor_time():
    """A program under Wine waits for Wine's server, the longer the busier the machine is."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def run_once(command, clock):
    start = clock()
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, check=True)
    return clock() - start, done.stdout


def measure(commands, runs, clock):
    least = {name: math.inf for name in commands}
    outputs = {}
    for _ in range(runs):
        for name, command in commands.items():
            seconds, output = run_once(command, clock)
            least[name] = min(least[name], seconds)
            outputs[name] = output.replace(b"\r\n", b"\n").rstrip()
    return least, outputs


def start_up_times(tools, runs, clock):
    with tempfile.NamedTemporaryFile() as empty:
        return measure({n: c + [empty.name] for n, (_, c) in tools.items()},
                       runs, clock)[0]


def geometric_mean(numbers):
    return math.exp(sum(map(math.log, numbers)) / len(numbers))


def verdict(name, ratios):
    mean_limit, highest_limit = REFERENCES[name]
    mean = geometric_mean(ratios.values())
    highest = max(ratios, key=ratios.get)
    text = f"geometric mean against {name}: {mean:.2f}"
    if mean_limit:
        text += f" (goal {mean_limit:.2f}{'' if mean <= mean_limit else ', missed'})"
    text += f", highest {ratios[highest]:.2f} with {highest}"
    if highest_limit:
        missed = sum(1 for r in ratios.values() if r > highest_limit)
        text += f" (goal {highest_limit:.2f}{f', missed by {missed}' if missed else ''})"
    return text


def compare(tools, programs, runs, clock):
    """The programs whose outputs differ."""
    start_up = start_up_times(tools, max(runs, 20), clock)
    references = [name for name in REFERENCES if name in tools]
    ratios = {name: {} for name in references}
    wrong = []
    print("program     " + "".join(f"{n + ' s':>10}" for n in tools)
          + "".join(f"{'/ ' + n:>9}" for n in references))
    for program in programs:
        commands = {n: c + [str(FOLDER / f"{program}.{suffix}")]
                    for n, (suffix, c) in tools.items()}
        least, outputs = measure(commands, runs, clock)
        if len(set(outputs.values())) != 1:
            wrong.append(program)
        net = {n: max(seconds - start_up[n], 1e-6) for n, seconds in least.items()}
        for name in references:
            ratios[name][program] = net["engine"] / net[name]
        print(f"{program:12}" + "".join(f"{seconds:10.3f}" for seconds in net.values())
              + "".join(f"{ratios[n][program]:9.2f}" for n in references), flush=True)
    for name in references:
        print(verdict(name, ratios[name]))
    print("start-up with an empty file: "
          + ", ".join(f"{name} {seconds * 1000:.1f} ms" for name, seconds in start_up.items()))
    return wrong


def under_wine(tools, programs, runs):
    with tempfile.TemporaryDirectory(prefix="quorvane-wine-", ignore_cleanup_errors=True) as folder:
        with Wine(os.environ.get("WINEPREFIX", folder)):
            return compare(tools, programs, runs, processor_time)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--windows", metavar="FOLDER")
    parser.add_argument("qvscript")
    parser.add_argument("programs", nargs="*")
    options = parser.parse_args()

    if Path(options.qvscript).is_dir():
        options.qvscript = str(Path(options.qvscript) / "qvscript")
    programs = options.programs or sorted(p.stem for p in FOLDER.glob("*.vbs"))
    if options.windows:
        wrong = under_wine(windows_tools(options.windows, options.qvscript), programs,
                           options.runs)
    else:
        wrong = compare(tools_of(options.qvscript), programs, options.runs, time.perf_counter)
    for program in wrong:
        print(f"{program}: outputs differ", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
