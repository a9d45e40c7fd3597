"""python3 tests/windows/com [build/windows/app [pattern of case names]]

Scripts that use objects of the system and of com_probe.dll, run by qvscript.exe under Wine. A line
'=== name begins a case; '> text is a line of output to come. WINEPREFIX says which prefix takes the
registration of the probe.
"""

import fnmatch
import os
import pathlib
import subprocess
import sys
import tempfile

FOLDER = pathlib.Path(__file__).resolve().parent
REPOSITORY = FOLDER.parent.parent.parent
PATIENCE = 60  # seconds for a program


def wine(*words):
    """What a program prints. Its output goes to files: the server of Wine, which may outlive it,
    would hold pipes open."""
    quiet = {"WINEDEBUG": "-all", "WINEDLLOVERRIDES": "mscoree,mshtml="}
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
        subprocess.run(["wine", *map(str, words)], stdin=subprocess.DEVNULL, stdout=out, stderr=err,
                       timeout=PATIENCE, env={**os.environ, **quiet}, check=False)
        out.seek(0)
        err.seek(0)
        decode = lambda file: file.read().decode("cp1252", "replace").replace("\r\n", "\n")
        return decode(out), decode(err)


def cases(file):
    """Name, source and expected output of each."""
    found = []
    for line in file.read_text().split("\n"):
        if line.startswith("'=== "):
            found.append((f"{file.stem}: {line[5:]}", [], []))
        elif line.startswith("'> "):
            found[-1][2].append(line[3:])
        elif found:
            found[-1][1].append(line)
    return found


def fails(program, source, expected, folder):
    script = pathlib.Path(folder) / "case.vbs"
    script.write_bytes("\r\n".join(source).encode("cp1252"))
    out, err = wine(program, script)
    if out == "\n".join(expected) + "\n" and "case.vbs(" not in err:
        return None
    return f"expected:\n{chr(10).join(expected)}\nbut was:\n{out}{err}"


def main(app="build/windows/app", pattern="*"):
    program = pathlib.Path(app).resolve() / "qvscript.exe"
    probe = REPOSITORY / "build/windows/release/tests/com_probe.dll"
    wine("regsvr32", "/s", probe)
    count = failed = 0
    with tempfile.TemporaryDirectory() as folder:
        for file in sorted(FOLDER.glob("cases/*.vbs")):
            for name, source, expected in cases(file):
                if not fnmatch.fnmatch(name, pattern):
                    continue
                count += 1
                complaint = fails(program, source, expected, folder)
                if complaint:
                    failed += 1
                    print(f"FAILED {name}\n{complaint}")
    print(f"{count} cases, {failed} failed")
    return 1 if failed or not count else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
