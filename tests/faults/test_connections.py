"""Clients that keep connections and do nothing with them."""

import resource
import socket
import time
import unittest

from serving import PATIENCE, Server, ServerTest, wait_until

REQUEST = "GET /a.txt HTTP/1.1\r\nHost: x\r\n\r\n"


class Idlers(ServerTest):
    PAGES = {"a.txt": b"a", "form.qvs": "<%= Len(Request.Form(\"a\")) %>", "big.txt": b"x" * (32 << 20)}
    SETTINGS = {"HeadSeconds": "2", "BodySeconds": "3", "IdleSeconds": "4", "SendSeconds": "3"}

    def seconds_until_closed(self, client):
        begun = time.monotonic()
        self.assertTrue(client.is_closed())
        return time.monotonic() - begun

    def test_one_that_says_nothing(self):
        with self.server.connect() as client:
            self.assertTrue(1.5 < self.seconds_until_closed(client) < 6)

    def test_one_whose_head_never_comes_whole(self):
        with self.server.connect() as client:
            client.send("GET /a.txt HTTP/1.1\r\n")
            begun = time.monotonic()
            with self.assertRaises(OSError):
                while time.monotonic() - begun < 10:
                    client.send("X: 1\r\n")
                    time.sleep(0.2)
            self.assertTrue(1.5 < time.monotonic() - begun < 6)

    def test_one_whose_body_stops(self):
        with self.server.connect() as client:
            client.send("POST /form.qvs HTTP/1.1\r\nContent-Length: 100\r\n\r\na=")
            self.assertTrue(2.5 < self.seconds_until_closed(client) < 8)

    def test_a_slow_body_is_waited_for(self):
        with self.server.connect() as client:
            client.send("POST /form.qvs HTTP/1.1\r\nContent-Length: 8\r\n\r\na=")
            for _ in range(6):
                time.sleep(1)
                client.send("x")
            self.assertEqual(client.receive().text, "6")

    def test_one_that_asks_no_more(self):
        with self.server.connect() as client:
            client.send(REQUEST)
            self.assertEqual(client.receive().body, b"a")
            time.sleep(2.5)
            client.send(REQUEST)
            self.assertEqual(client.receive().body, b"a", "idle for less than it may be")
            self.assertTrue(3.5 < self.seconds_until_closed(client) < 9)

    def test_one_that_takes_nothing_of_its_answer(self):
        with self.server.connect() as client:
            client.send("GET /big.txt HTTP/1.1\r\nHost: x\r\n\r\n")
            client.receive_until(b"\r\n\r\n")
            time.sleep(8)
            with self.assertRaises(ConnectionResetError):
                while client.socket.recv(1 << 20):
                    pass

    def test_one_that_takes_little_by_little_gets_everything(self):
        with socket.socket() as client:
            client.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 1 << 16)
            client.settimeout(PATIENCE)
            client.connect(("127.0.0.1", self.server.port))
            client.sendall(b"GET /big.txt HTTP/1.1\r\nHost: x\r\n\r\n")
            got = 0
            for _ in range(8):  # for longer than it may take nothing
                got += len(client.recv(1 << 16, socket.MSG_WAITALL))
                time.sleep(1)
            while got < 32 << 20:
                more = client.recv(1 << 20)
                self.assertTrue(more)
                got += len(more)


class Never(unittest.TestCase):
    def test_nobody_is_closed_where_the_settings_say_so(self):
        never = {name: "0" for name in ("HeadSeconds", "BodySeconds", "IdleSeconds", "SendSeconds")}
        with Server({"a.txt": b"a"}, never) as server, server.connect() as silent, \
                server.connect() as idle:
            idle.send(REQUEST)
            idle.receive()
            time.sleep(3)
            for client in (silent, idle):
                client.send(REQUEST)
                self.assertEqual(client.receive().body, b"a")


class FewDescriptors(unittest.TestCase):
    LIMIT = 64

    def test_the_longest_idle_goes_and_new_clients_are_answered(self):
        def few():
            resource.setrlimit(resource.RLIMIT_NOFILE, (self.LIMIT, self.LIMIT))

        with Server({"a.txt": b"a"}, preexec=few) as server:
            clients = []
            for number in range(3 * self.LIMIT):
                client = server.connect()
                self.addCleanup(client.close)
                clients.append(client)
                if number % 2:
                    client.send(REQUEST)
                    self.assertEqual(client.receive().body, b"a", number)
            self.assertTrue(clients[0].is_closed() and clients[1].is_closed())
            clients[-1].send(REQUEST)
            self.assertEqual(clients[-1].receive().body, b"a")
            wait_until(lambda: server.get("/a.txt").body == b"a", "an answer")
