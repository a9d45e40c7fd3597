"""Starts the built program in a temporary folder and speaks raw bytes to it."""

import os
import pathlib
import random
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import unittest

import programs
from programs import REPOSITORY, app_folder  # noqa: F401

# Seconds until something that should have happened is given up.
PATIENCE = 60 if programs.is_windows() else 20


def is_free(port):
    try:
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", port))
        return True
    except OSError:
        return False


def free_port():
    """One that nobody has. It is none of those that the system gives to connections: one of them
    could take it before a server does."""
    return next(port for port in iter(lambda: random.randrange(11_000, 32_768), None)
                if is_free(port))


def is_listened_on(place):
    """A port, or the path of a file."""
    is_file = isinstance(place, str)
    try:
        with socket.socket(socket.AF_UNIX if is_file else socket.AF_INET) as probe:
            probe.settimeout(1)
            probe.connect(place if is_file else ("127.0.0.1", place))
        return True
    except OSError:
        return False


def wait_until(condition, what, seconds=PATIENCE):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        result = condition()
        if result:
            return result
        time.sleep(0.01)
    raise AssertionError("gave up waiting for " + what)


def end(process):
    """Has a process end, if it has to be with force."""
    if process.poll() is None:
        process.send_signal(programs.ENDING)
    try:
        process.wait(PATIENCE)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


class Response:
    """A response's head and body, as they came."""

    def __init__(self, head, body):
        self.head = head
        self.body = body
        self.lines = head.decode("latin-1").split("\r\n")
        self.status = self.lines[0]

    def header(self, name):
        """The first header of that name, or None."""
        for line in self.lines[1:]:
            key, colon, value = line.partition(":")
            if colon and key.lower() == name.lower():
                return value.strip()
        return None

    @property
    def text(self):
        return self.body.decode("latin-1")


class Connection:
    def __init__(self, port):
        self.socket = socket.create_connection(("127.0.0.1", port), timeout=PATIENCE)
        self.socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self.pending = b""

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self.socket.close()

    def send(self, data):
        self.socket.sendall(data if isinstance(data, bytes) else data.encode("latin-1"))

    def _more(self):
        data = self.socket.recv(1 << 16)
        self.pending += data
        return bool(data)

    def receive(self, with_body=True):
        """One response. Without a length its body lasts until the connection closes."""
        while b"\r\n\r\n" not in self.pending:
            if not self._more():
                raise AssertionError("closed within a head: %r" % self.pending)
        head, _, self.pending = self.pending.partition(b"\r\n\r\n")
        response = Response(head, b"")
        length = response.header("Content-Length")
        if not with_body:
            return response
        if length is None:
            response.body = self.receive_all()
            return response
        while len(self.pending) < int(length):
            if not self._more():
                raise AssertionError("closed within a body")
        response.body = self.pending[: int(length)]
        self.pending = self.pending[int(length):]
        return response

    def receive_all(self):
        """What comes until the connection closes."""
        while self._more():
            pass
        data, self.pending = self.pending, b""
        return data

    def receive_until(self, text):
        """What comes up to a text and with it; what comes behind it in the same bytes too."""
        while text not in self.pending:
            if not self._more():
                raise AssertionError("closed before %r: %r" % (text, self.pending))
        data, self.pending = self.pending, b""
        return data

    def is_closed(self):
        """Waits for the server to close; False when bytes come instead."""
        return not self.pending and not self._more()


class Server:
    """The program with a document root, settings and a port of its own."""

    def __init__(self, pages=None, settings=None, arguments=(), site=None, preexec=None,
                 environment=None):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quorvane-test-"))
        self.root = self.folder / "main/Server/Scripts"
        self.logs = self.folder / "main/Server/Logs"
        self.cache = self.folder / "main/Server/Cache"
        self.registry = self.folder / "registry"
        if site:
            shutil.copytree(site, self.root)
        else:
            self.root.mkdir(parents=True)
        for name, content in (pages or {}).items():
            self.put(name, content)
        self.port = free_port()
        key = self.registry / "HKEY_LOCAL_MACHINE/Software/Ardenfell"
        (key / "Quorvane").mkdir(parents=True)
        (key / "Quorvane.ini").write_text(
            "MainPath=%s\n" % programs.path_text(self.folder / "main"))
        self.ini = key / "Quorvane/Server.ini"
        self.set({"Port": str(self.port), **programs.OWN_COMPONENTS, **(settings or {})})
        self.arguments = arguments
        self.preexec = preexec
        self.environment = environment or {}
        self.process = None

    def put(self, name, content):
        """Writes a file of the document root. Text is written with CR LF line ends."""
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        if isinstance(content, str):
            content = content.replace("\n", "\r\n").encode("latin-1")
        path.write_bytes(content)

    def path(self, name=""):
        """A path of the document root as the program spells it."""
        return programs.path_text(self.root / name)

    def set(self, settings):
        """Has these settings and no others."""
        self.ini.write_text("".join("%s=%s\n" % item for item in settings.items()))

    def command(self):
        return [*programs.command("quorvane-server"), "/devmode", *self.arguments]

    def spawn(self):
        return subprocess.Popen(
            self.command(),
            cwd=self.folder,
            env={**os.environ, "QUORVANE_REGISTRY": programs.path_text(self.registry),
                 **self.environment},
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            preexec_fn=self.preexec)

    def __enter__(self):
        self.process = self.spawn()
        try:
            wait_until(self.answers, "the server to listen")
        except AssertionError as failed:
            said = self.log_text() if self.logs.exists() else ""
            self.__exit__()
            raise AssertionError("%s; its log: %s" % (failed, said)) from None
        return self

    def __exit__(self, *_):
        if self.process:
            end(self.process)
            self.process.stdout.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def answers(self):
        if self.process.poll() is not None:
            raise AssertionError("the server ended: %r" % self.process.stdout.read())
        return is_listened_on(self.place())

    def place(self):
        """Where it is listening when it is there."""
        return self.port

    def stop(self):
        """Asks for an orderly end; the exit code."""
        self.process.send_signal(programs.ENDING)
        return self.process.wait(PATIENCE)

    def connect(self):
        return Connection(self.port)

    def get(self, target, headers="", method="GET"):
        """One request on a connection of its own."""
        with self.connect() as connection:
            connection.send("%s %s HTTP/1.1\r\nHost: localhost\r\n%sConnection: close\r\n\r\n"
                            % (method, target, headers))
            return connection.receive(with_body=method != "HEAD")

    def get_with_session(self, target):
        """The answer of a page and the number of the new session that its cookie carries. One
        number of 10,001 is 0, which has no cookie."""
        for _ in range(5):
            response = self.get(target)
            for line in response.lines:
                if line.startswith("Set-Cookie: QVS_SESSIONID="):
                    return response, line.partition("=")[2].partition(";")[0]
        raise AssertionError("no session cookie: %r" % response.head)

    def post(self, target, body, headers=""):
        with self.connect() as connection:
            connection.send("POST %s HTTP/1.1\r\nHost: localhost\r\n%sConnection: close\r\n"
                            "Content-Length: %d\r\n\r\n" % (target, headers, len(body)))
            connection.send(body)
            return connection.receive()

    def raw(self, data):
        """Everything that comes back for these bytes until the server closes."""
        with self.connect() as connection:
            connection.send(data)
            return connection.receive_all()

    def log_text(self):
        return "".join(path.read_bytes().decode("latin-1") for path in sorted(self.logs.glob("*.LOG")))

    def resident_bytes(self):
        with open("/proc/%d/status" % self.process.pid) as status:
            for line in status:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1]) * 1024
        raise AssertionError("no VmRSS")


class ServerTest(unittest.TestCase):
    """A test class whose tests share one server, made from these."""

    PAGES = {}
    SETTINGS = {}
    ARGUMENTS = ()

    @classmethod
    def setUpClass(cls):
        cls.server = Server(cls.PAGES, cls.SETTINGS, cls.ARGUMENTS)
        cls.server.__enter__()
        cls.addClassCleanup(cls.server.__exit__)

    @classmethod
    def tearDownClass(cls):
        if cls.server.process.poll() is not None:
            raise AssertionError("the server died: %r" % cls.server.process.stdout.read())

    def page(self, source, headers=""):
        """The response to a page with this source."""
        self.server.put("page.qvs", source)
        return self.server.get("/page.qvs", headers)

    def output(self, script):
        """What a script writes."""
        return self.page("<%\n" + script + "\n%>").text


class CountingResult(unittest.TextTestResult):
    passed = 0

    def addSuccess(self, test):
        super().addSuccess(test)
        self.passed += 1


def main(folder):
    """Runs the tests of `folder` on the tree named on the command line; ends with their count."""
    if len(sys.argv) > 1:
        os.environ["QUORVANE_APP"] = sys.argv[1]
    pattern = sys.argv[2] if len(sys.argv) > 2 else "test*.py"
    tests = unittest.defaultTestLoader.discover(folder, pattern, str(REPOSITORY / "tests"))
    result = unittest.TextTestRunner(resultclass=CountingResult).run(tests)
    failed = len(result.failures) + len(result.errors)
    print("%d passed, %d failed, %d skipped" % (result.passed, failed, len(result.skipped)))
    sys.exit(1 if failed or not result.passed else 0)
