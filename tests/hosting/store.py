"""A Redis server with a folder of its own, and a page for the visitors of servers that share it."""

import pathlib
import shutil
import signal
import socket
import subprocess
import tempfile

from serving import PATIENCE, free_port, wait_until


# Says how often its visitor came, and how often all did.
COUNT = """<%
Session("n") = Session("n") + 1
Application.Lock
Application("n") = Application("n") + 1
Application.Unlock
Response.Write Session("n") & " " & Application("n")
%>"""


class Redis:
    def __init__(self, configuration=""):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quorvane-redis-"))
        (self.folder / "redis.conf").write_text(configuration)
        self.file = self.folder / "redis.sock"
        self.port = free_port()
        self.process = None

    @property
    def address(self):
        return "redis://127.0.0.1:%d/0" % self.port

    def start(self):
        with open(self.folder / "log", "ab") as log:
            self.process = subprocess.Popen(
                ["redis-server", "redis.conf", "--bind", "127.0.0.1", "--port", str(self.port),
                 "--dir", str(self.folder), "--unixsocket", str(self.file)],
                cwd=self.folder, stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT)
        wait_until(self.answers, "Redis to answer")

    def answers(self):
        try:
            return self.command("PING") == "PONG"
        except OSError:
            return False
        except AssertionError as refused:
            return "NOAUTH" in str(refused)

    def stop(self, how=signal.SIGTERM):
        self.process.send_signal(how)
        self.process.wait(PATIENCE)

    def close(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_):
        self.close()

    def command(self, *words):
        with socket.create_connection(("127.0.0.1", self.port), timeout=PATIENCE) as connection:
            parts = [word if isinstance(word, bytes) else str(word).encode() for word in words]
            connection.sendall(b"*%d\r\n" % len(parts) + b"".join(
                b"$%d\r\n%s\r\n" % (len(part), part) for part in parts))
            return self._reply(connection.makefile("rb"))

    def _reply(self, stream):
        line = stream.readline()
        kind, rest = line[:1], line[1:].strip()
        if kind == b"$":
            return None if rest == b"-1" else stream.read(int(rest) + 2)[:-2].decode("latin-1")
        if kind == b"*":
            return [self._reply(stream) for _ in range(int(rest))]
        if kind == b"-":
            raise AssertionError(rest)
        return int(rest) if kind == b":" else rest.decode()
