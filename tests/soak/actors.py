"""Those who use, abuse and disturb the server, each a thread that does one thing again and again."""

import os
import random
import signal
import socket
import struct
import threading
import time
import traceback

from faults.watched import window_size
from soak.site import FLUSHED, LARGE, PICTURE, TABLE, TEXT, png_size, unpacked


class Actor(threading.Thread):
    PAUSE = 0.05  # seconds between two acts

    def __init__(self, server, number=0):
        super().__init__(name=type(self).__name__, daemon=True)
        self.server = server
        self.random = random.Random("%s %d" % (self.name, number))
        self.works, self.ends = threading.Event(), threading.Event()
        self.rests = threading.Event()
        self.acts, self.errors = 0, []

    def run(self):
        while not self.ends.is_set():
            if not self.works.is_set():
                self.leave()
                self.rests.set()
                self.works.wait(0.2)
                continue
            self.rests.clear()
            try:
                self.act()
                self.acts += 1
            except Exception:  # pylint: disable=broad-except
                self.errors.append(time.strftime("%H:%M:%S ") + traceback.format_exc(limit=-3))
            self.ends.wait(self.PAUSE)
        self.leave()

    def act(self):
        raise NotImplementedError

    def leave(self):
        """Leaves everything as it was, for a time of quiet."""

    def expect(self, condition, what):
        if not condition:
            raise AssertionError(str(what)[:300])

    def get(self, target, expected, headers=""):
        response = self.server.get(target, headers)
        self.expect(response.status == "HTTP/1.1 200 OK", (target, response.status))
        body = unpacked(response)
        self.expect(body == expected, (target, len(body), body[:80]))


class Visitor(Actor):
    """Pages, within a session and without, and forms."""

    def __init__(self, server, number=0):
        super().__init__(server, number)
        self.cookie, self.visits, self.renewed = None, 0, 0

    def act(self):
        packed = self.random.choice(("", "Accept-Encoding: gzip\r\n"))
        choice = self.random.randrange(8)
        n = self.random.randrange(3000)
        if choice < 3:
            self.get("/sum.qvs?n=%d" % n, b"sum %d" % (n * (n + 1) // 2), packed)
        elif choice == 3:
            self.visit()
        elif choice == 4:
            self.get("/table.qvs", TABLE, packed)
        elif choice == 5:
            text = "".join(self.random.choice("abc<&>") for _ in range(n))
            body = "text=" + "".join("%%%02X" % ord(c) for c in text)
            answer = self.server.post("/echo.qvs", body, packed)
            wanted = text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")
            self.expect(unpacked(answer) == wanted.encode(), unpacked(answer)[:80])
        elif choice == 6:
            self.get("/memory.qvs", b"20000", packed)
        else:
            body = unpacked(self.server.get("/wrong.qvs"))
            self.expect(b"Division by zero" in body, body[:200])

    def visit(self):
        if self.cookie is None or time.monotonic() - self.renewed > 30:
            answer, number = self.server.get_with_session("/visits.qvs")
            self.cookie, self.visits = number, 0
        else:
            answer = self.server.get("/visits.qvs", "Cookie: QVS_SESSIONID=%s\r\n" % self.cookie)
        self.visits, self.renewed = self.visits + 1, time.monotonic()
        body = unpacked(answer)
        self.expect(body == b"visit %d" % self.visits, (body, self.visits))


class Keeper(Actor):
    """Many requests on one connection."""

    def act(self):
        with self.server.connect() as connection:
            for _ in range(self.random.randrange(1, 30)):
                connection.send("GET /text.txt HTTP/1.1\r\nHost: x\r\n\r\n")
                self.expect(unpacked(connection.receive()) == TEXT, "the text")


class Downloader(Actor):
    """Whole files, parts of files, pictures in other sizes."""

    PAUSE = 0.2

    def act(self):
        choice = self.random.randrange(5)
        if choice == 0:
            self.get("/large.mp3", LARGE)
        elif choice == 1:
            first = self.random.randrange(len(LARGE))
            last = min(first + self.random.randrange(500_000), len(LARGE) - 1)
            answer = self.server.get("/large.mp3", "Range: bytes=%d-%d\r\n" % (first, last))
            self.expect(answer.status.endswith("206 Partial Content"), answer.status)
            self.expect(answer.body == LARGE[first:last + 1], (first, last, len(answer.body)))
        elif choice == 2:
            self.get("/text.txt", TEXT, "Accept-Encoding: gzip\r\n")
        else:
            size = self.random.choice((20, 40, 60, 80))
            answer = self.server.get("/lake.png?rx=%d&ry=%d&ar=0" % (size, size))
            right = png_size(answer.body) == (size, size) or answer.body == PICTURE
            self.expect(right, (answer.status, len(answer.body)))


class SlowReader(Actor):
    """Takes a little of an answer at a time, and not always all of it."""

    def act(self):
        target, expected = self.random.choice((("/large.mp3", LARGE), ("/flush.qvs", FLUSHED)))
        with self.server.connect() as connection:
            connection.socket.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)
            connection.send("GET %s HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n" % target)
            data = b""
            for _ in range(self.random.randrange(100)):
                piece = connection.socket.recv(self.random.randrange(1, 8000))
                data += piece
                if not piece or not self.works.is_set():
                    break
                time.sleep(0.02)
            head, _, body = data.partition(b"\r\n\r\n")
            self.expect(b"200 OK" in head[:100] or not data, head[:100])
            self.expect(expected.startswith(body), (target, len(body)))


class Resetter(Actor):
    """Goes in the middle of everything, with a reset."""

    REQUESTS = (b"GET /large.mp3 HTTP/1.1\r\nHost: x\r\n\r\n", b"GET /flush.qvs HTTP/1.1\r\n\r\n",
                b"POST /echo.qvs HTTP/1.1\r\nContent-Length: 1000000\r\n\r\ntext=",
                b"GET /table.qvs HTTP/1.1\r\nHo", b"", b"GET /lake.png?rx=70&ry=70 HTTP/1.1\r\n\r\n")

    def act(self):
        connection = self.server.connect()
        connection.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        connection.send(self.random.choice(self.REQUESTS))
        if self.random.random() < 0.5:
            time.sleep(self.random.random() / 20)
        connection.close()


class Flooder(Actor):
    """Long and broken requests, crowds of idle connections, datagrams that mean nothing."""

    PAUSE = 0.3

    def __init__(self, server, number=0):
        super().__init__(server, number)
        self.crowd = []

    def act(self):
        choice = self.random.randrange(5)
        if choice == 0:
            answer = self.server.raw(b"GET /" + b"x" * 300_000 + b" HTTP/1.1\r\nHost: x\r\n\r\n")
            self.expect(answer.startswith(b"HTTP/1.1 404 "), answer[:80])
        elif choice == 1:
            answer = self.server.raw(self.random.randbytes(2000).replace(b"\r\n", b"") +
                                     b"\r\n\x1b[2J\r\n\r\n")
            self.expect(answer.startswith((b"HTTP/1.1 400 ", b"HTTP/1.1 404 ")), answer[:80])
        elif choice == 2:
            with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as sender:
                for _ in range(500):
                    sender.sendto(self.random.randbytes(20), ("127.0.0.1", self.server.control_port))
        elif choice == 3:
            self.get("/debug.qvs", b"done")
        else:
            self.leave()
            self.crowd = [self.server.connect() for _ in range(40)]

    def leave(self):
        for connection in self.crowd:
            connection.close()
        self.crowd = []


class Operator(Actor):
    """Asks for the state, takes the log away, resizes the terminal, reads it or freezes it."""

    PAUSE = 0.1

    def __init__(self, server, number=0):
        super().__init__(server, number)
        os.set_blocking(server.master, False)
        self.frozen_until = 0.0

    def act(self):
        choice = self.random.randrange(40)
        if choice == 0:
            window_size(self.server.master, self.random.randrange(1, 70), self.random.randrange(1, 250))
            self.server.process.send_signal(signal.SIGWINCH)
        elif choice == 1:
            self.ask()
        elif choice == 2:
            self.server.process.send_signal(self.random.choice((signal.SIGUSR1, signal.SIGUSR2)))
        elif choice == 3:
            os.write(self.server.master, self.random.choice((b"\t", b"\x1b[A", b"\x1b[6~", b"qx")))
        elif choice == 4:
            self.frozen_until = time.monotonic() + self.random.randrange(10)
        if time.monotonic() > self.frozen_until:
            self.read()

    def ask(self):
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as client:
            client.settimeout(10)
            client.connect(("127.0.0.1", self.server.control_port))
            for _ in range(5):  # among the floods a datagram may be lost
                client.send(b"[?state]")
                try:
                    self.expect(client.recv(100) == b"[?state]:1", "the state")
                    return
                except TimeoutError:
                    continue
        raise AssertionError("no answer on the control channel")

    def read(self):
        try:
            while os.read(self.server.master, 1 << 16):
                pass
        except BlockingIOError:
            pass

    def leave(self):
        self.read()


class Spoiler(Actor):
    """Makes the folders of copies and of logs unwritable, even for root, and writable again."""

    PAUSE = 3

    def act(self):
        folder = self.random.choice((self.server.cache, self.server.logs))
        away = folder.with_name(folder.name + ".away")
        if away.exists():
            self.give_back(folder, away)
        elif folder.exists():
            folder.rename(away)
            folder.write_text("a file where a folder should be")

    def give_back(self, folder, away):
        folder.unlink()
        away.rename(folder)

    def leave(self):
        for folder in (self.server.cache, self.server.logs):
            away = folder.with_name(folder.name + ".away")
            if away.exists():
                self.give_back(folder, away)


def cast(server):
    """All of them."""
    return [Visitor(server, 1), Visitor(server, 2), Visitor(server, 3), Keeper(server),
            Downloader(server, 1), Downloader(server, 2), SlowReader(server, 1),
            SlowReader(server, 2), SlowReader(server, 3), Resetter(server), Flooder(server),
            Operator(server), Spoiler(server)]
