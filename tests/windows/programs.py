"""Programs of Windows, as tests start them, ask them and use their windows."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import time

from programs import path_text
from serving import app_folder, free_port, is_listened_on, wait_until

HERE = pathlib.Path(__file__).resolve().parent
PATIENCE = 60
SETTINGS_KEY = r"HKLM\Software\Ardenfell\Quorvane"


def wine(*arguments, **environment):
    """Runs a program to its end; its exit status and what it printed, in lines."""
    with tempfile.TemporaryFile() as out:
        code = subprocess.run(["wine", *map(str, arguments)], stdin=subprocess.DEVNULL, stdout=out,
                              stderr=subprocess.DEVNULL, timeout=PATIENCE,
                              env={**os.environ, **environment}, check=False).returncode
        out.seek(0)
        return code, out.read().decode("cp1252").replace("\r\n", "\n")


def server(*arguments, **environment):
    """Runs the server's program, which is to end by itself."""
    return wine(app_folder() / "quorvane-server.exe", *arguments, **environment)


def registry_value(key, name):
    """A value's text, None without it."""
    code, text = wine("reg", "query", key, "/v", name)
    if code != 0:
        return None
    line = next(line for line in text.split("\n") if line.strip().startswith(name))
    return line.strip()[len(name):].split(None, 1)[1].rstrip()


def set_registry_value(key, name, text):
    assert wine("reg", "add", key, "/v", name, "/t", "REG_SZ", "/d", text, "/f")[0] == 0


def delete_registry_key(key):
    wine("reg", "delete", key, "/f")


class WindowUser:
    """The program window_user.exe, which says what it takes."""

    def __init__(self):
        self.program = app_folder().parent / "window_user.exe"
        source = HERE / "window_user.cpp"
        if not self.program.exists() or self.program.stat().st_mtime < source.stat().st_mtime:
            subprocess.run(["x86_64-w64-mingw32-g++-posix", "-std=c++20", "-O1", "-static", "-DUNICODE",
                            source, "-o", self.program], check=True)
        self.process = subprocess.Popen(["wine", self.program], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def close(self):
        self.process.stdin.close()
        self.process.wait(PATIENCE)
        self.process.stdout.close()

    def __call__(self, *command):
        """The lines of the answer."""
        self.process.stdin.write((" ".join(map(str, command)) + "\n").encode())
        self.process.stdin.flush()
        lines = []
        while True:
            line = self.process.stdout.readline()
            if not line:
                raise AssertionError("the program that uses windows has ended")
            text = line.decode().rstrip("\r\n")
            if text == ".":
                return lines
            lines.append(text)

    def one(self, *command):
        lines = self(*command)
        if len(lines) != 1:
            raise AssertionError("%r was answered with %r" % (command, lines))
        return lines[0]


class Site:
    """A server's folder with the settings, in a tree of text files, that lead to it."""

    def __init__(self, settings=None):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quorvane-"))
        self.main = self.folder / "main"
        self.root = self.main / "Server/Scripts"
        self.root.mkdir(parents=True)
        (self.root / "hello.txt").write_text("Hello")
        self.port = free_port()
        key = self.folder / "registry/HKEY_LOCAL_MACHINE/Software/Ardenfell"
        (key / "Quorvane").mkdir(parents=True)
        (key / "Quorvane.ini").write_text("MainPath=%s\n" % path_text(self.main))
        self.settings = key / "Quorvane/Server.ini"
        self.write({"Port": self.port, "ControlPort": free_port(), "LogServer": 1,
                    **(settings or {})})
        self.environment = {"QUORVANE_REGISTRY": path_text(self.folder / "registry")}

    def write(self, settings):
        self.settings.write_text("".join("%s=%s\n" % item for item in settings.items()))

    def add_languages(self, *numbers):
        """As the tool of the tree encodes them."""
        (self.main / "Lang").mkdir()
        for number in numbers:
            source = HERE.parent.parent / "lang" / ("%d.txt" % number)
            target = self.main / "Lang" / ("%d.lng" % number)
            code, said = wine(app_folder() / "qvlang.exe", "encode", path_text(source),
                              path_text(target))
            assert code == 0, said

    def log_text(self):
        logs = sorted((self.main / "Server/Logs").glob("*.LOG"))
        return "".join(path.read_bytes().decode("cp1252") for path in logs)

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)


class RunningServer:
    """The server as a program with a window. What it prints goes to a file."""

    def __init__(self, site, *arguments, listens=True):
        self.printed = open(site.folder / "printed.txt", "wb+")  # noqa: SIM115
        self.process = subprocess.Popen(
            ["wine", app_folder() / "quorvane-server.exe", "/devmode", *arguments],
            stdin=subprocess.DEVNULL, stdout=self.printed, stderr=subprocess.STDOUT,
            env={**os.environ, **site.environment})
        if listens:
            wait_until(lambda: is_listened_on(site.port), "the server to listen")

    def ended(self, within=15):
        """Its exit status, None if it goes on for so long."""
        end = time.monotonic() + within
        while self.process.poll() is None and time.monotonic() < end:
            time.sleep(0.05)
        return self.process.poll()

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.printed.close()
