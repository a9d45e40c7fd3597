"""How the programs of the tree under test are started: as they are, or those of Windows under Wine."""

import os
import pathlib
import signal
import subprocess

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent


def app_folder():
    """The runnable tree under test."""
    return pathlib.Path(os.environ.get("QUORVANE_APP", REPOSITORY / "build/app")).resolve()


def is_windows():
    return (app_folder() / "quorvane-server.exe").exists()


def command(name):
    """The words that start a program."""
    program = app_folder() / name
    if not is_windows():
        return [str(program)]
    options = ["--components=own"] if name == "qvscript" else []
    return ["wine", str(program) + ".exe", *options]


# Asks a program to end. Of Windows' ways Wine has the one for this signal.
ENDING = signal.SIGINT if is_windows() else signal.SIGTERM
SEPARATOR = "\\" if is_windows() else "/"


# What Windows has of its own is tested with Windows.
OWN_COMPONENTS = {"Components": "own"} if is_windows() else {}


def path_text(path):
    """A path as the programs spell it."""
    return "Z:" + str(path).replace("/", "\\") if is_windows() else str(path)


def run(name, *words, **options):
    """A program's run, until it ends. Line ends of its text are LF, whatever the system's are."""
    done = subprocess.run([*command(name), *map(str, words)], **options)
    for stream in ("stdout", "stderr"):
        text = getattr(done, stream)
        if is_windows() and text:
            pair, single = ("\r\n", "\n") if isinstance(text, str) else (b"\r\n", b"\n")
            setattr(done, stream, text.replace(pair, single))
    return done
