"""Clients that give the server long work, many times over, and others who wait meanwhile."""

import socket
import struct
import threading
import time
import unittest
import zlib

from serving import PATIENCE, Server, ServerTest, wait_until

SLOW = "<% Application(\"runs\") = Application(\"runs\") + 1\n" \
       "t = Timer : Do While Timer - t < 1 And Timer >= t : Loop %>done"
SIZE = struct.Struct(">II")


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def picture(width, height):
    """A small PNG file of so many pixels."""
    rows = b"".join(b"\0" + bytes((x * 7 + y) % 256 for x in range(width)) for y in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def size_of(png):
    return SIZE.unpack(png[16:24])


def ask(server, target, address="127.0.0.1"):
    client = socket.create_connection(("127.0.0.1", server.port), PATIENCE, (address, 0))
    client.sendall(("GET %s HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n" % target).encode())
    return client


def answer_of(client):
    data = b""
    with client:
        while True:
            more = client.recv(1 << 16)
            if not more:
                return data.partition(b"\r\n\r\n")[2]
            data += more


class Pages(unittest.TestCase):
    def setUp(self):
        self.server = Server({"slow.qvs": SLOW, "quick.qvs": "<%= Application(\"runs\") %>",
                              "a.txt": b"a"})
        self.server.__enter__()
        self.addCleanup(self.server.__exit__)

    def test_for_clients_that_have_reset_no_page_is_begun(self):
        first = ask(self.server, "/slow.qvs")
        time.sleep(0.3)  # it runs
        for _ in range(10):
            client = ask(self.server, "/slow.qvs")
            client.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            client.close()
        begun = time.monotonic()
        self.assertEqual(answer_of(ask(self.server, "/quick.qvs")), b"1")
        self.assertLess(time.monotonic() - begun, 3)
        self.assertEqual(answer_of(first), b"done")

    def test_a_client_that_only_half_closes_gets_its_answer(self):
        first = ask(self.server, "/slow.qvs")
        time.sleep(0.3)
        second = ask(self.server, "/slow.qvs")
        second.shutdown(socket.SHUT_WR)
        self.assertEqual((answer_of(first), answer_of(second)), (b"done", b"done"))

    def test_addresses_take_turns(self):
        first = ask(self.server, "/slow.qvs")
        time.sleep(0.3)
        many = [ask(self.server, "/slow.qvs") for _ in range(6)]
        begun = time.monotonic()
        self.assertEqual(answer_of(ask(self.server, "/slow.qvs", "127.0.0.2")), b"done")
        self.assertLess(time.monotonic() - begun, 4.5)
        for client in [first, *many]:
            self.assertEqual(answer_of(client), b"done")

    def test_requests_of_one_connection_stay_in_order(self):
        ask(self.server, "/slow.qvs")
        time.sleep(0.3)
        with self.server.connect() as client:
            for target in ("/slow.qvs", "/a.txt"):
                client.send("GET %s HTTP/1.1\r\nHost: x\r\n\r\n" % target)
                time.sleep(1.2)  # the first waits, then runs
            self.assertEqual(client.receive().body, b"done")
            self.assertEqual(client.receive().body, b"a")

    def test_what_is_posted_waits_whole(self):
        self.server.put("form.qvs", "<%= Request.Form(\"a\") & Request.TotalBytes %>")
        ask(self.server, "/slow.qvs")
        time.sleep(0.3)
        done = []
        def post():
            done.append(self.server.post("/form.qvs", "a=" + "x" * 200_000).text)
        posts = [threading.Thread(target=post) for _ in range(3)]
        for thread in posts:
            thread.start()
        for thread in posts:
            thread.join()
        self.assertEqual(done, ["x" * 200_000 + "200002"] * 3)


class Pictures(ServerTest):
    PAGES = {"a.txt": b"a", "small.png": picture(60, 50), "large.png": picture(2500, 2000)}

    def test_a_small_picture_is_not_made_large_work(self):
        begun = time.monotonic()
        response = self.server.get("/small.png?rx=5792&ry=5792&ar=0&nc=1")
        self.assertEqual(response.body, self.PAGES["small.png"])
        self.assertLess(time.monotonic() - begun, 1)
        self.assertEqual(size_of(self.server.get("/small.png?rx=600").body), (600, 500))

    def test_a_large_one_may_keep_its_size(self):
        self.assertEqual(size_of(self.server.get("/large.png?rx=2400&ry=2050&ar=0").body), (2400, 2050))
        response = self.server.get("/large.png?rx=2600&ry=2000&ar=0")
        self.assertEqual(size_of(response.body), (2500, 2000))

    def test_others_are_answered_while_pictures_are_rendered(self):
        clients = [ask(self.server, "/large.png?rx=%d&ry=1999&ar=0&nc=1" % (2400 + n)) for n in range(8)]
        slowest = 0
        for _ in range(20):
            begun = time.monotonic()
            self.assertEqual(self.server.get("/a.txt").body, b"a")
            slowest = max(slowest, time.monotonic() - begun)
        self.assertLess(slowest, 0.3)
        for number, client in enumerate(clients):
            self.assertEqual(size_of(answer_of(client)), (2400 + number, 1999))

    def test_answers_of_a_connection_stay_in_order(self):
        with self.server.connect() as client:
            for target in ("/large.png?rx=2000&nc=1", "/a.txt"):
                client.send("GET %s HTTP/1.1\r\nHost: x\r\n\r\n" % target)
                time.sleep(0.1)
            self.assertEqual(size_of(client.receive().body), (2000, 1600))
            self.assertEqual(client.receive().body, b"a")

    def test_what_else_is_asked_of_the_picture_holds(self):
        response = self.server.get("/large.png?rx=1000&nc=1", "Range: bytes=0-7\r\n")
        self.assertEqual((response.status, response.body),
                         ("HTTP/1.1 206 Partial Content", b"\x89PNG\r\n\x1a\n"))
        head = self.server.get("/large.png?rx=900", method="HEAD")
        self.assertEqual(head.header("Content-Length"), str(len(self.server.get("/large.png?rx=900").body)))
        wait_until(lambda: not list(self.server.cache.glob("^N*")), "temporary copies to go")

    def test_a_stop_ends_although_pictures_are_waited_for(self):
        with Server({"large.png": picture(2500, 2000)}) as server:
            clients = [ask(server, "/large.png?rx=%d&nc=1" % (2400 + n)) for n in range(20)]
            time.sleep(0.2)
            begun = time.monotonic()
            self.assertEqual(server.stop(), 0)
            self.assertLess(time.monotonic() - begun, 5)
            for client in clients:
                client.close()


class Flushes(unittest.TestCase):
    PAGE = "<% For i = 1 To 100 : Response.Write Space(1000000) : Response.Flush : Next\n" \
           "Application(\"ended\") = 1 %>"

    def test_a_client_that_takes_nothing_holds_others_for_seconds_only(self):
        with Server({"flood.qvs": self.PAGE, "a.txt": b"a",
                     "ended.qvs": "<%= Application(\"ended\") %>"}) as server:
            client = ask(server, "/flood.qvs")
            self.addCleanup(client.close)
            time.sleep(1)
            begun = time.monotonic()
            self.assertEqual(server.get("/a.txt").body, b"a")
            self.assertLess(time.monotonic() - begun, 6)
            self.assertEqual(server.get("/ended.qvs").text, "", "the page has ended before")
            with self.assertRaises(ConnectionResetError):
                while client.recv(1 << 20):
                    pass
