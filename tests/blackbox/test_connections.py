"""Requests as they arrive: kept connections, packets cut anywhere, many and hostile clients."""

import random
import resource
import socket
import time
import unittest

from serving import PATIENCE, Server, ServerTest, wait_until

GET = b"GET /a.txt HTTP/1.1\r\nHost: x\r\nAccept-Encoding: none\r\nCookie: a=b\r\n\r\n"
POST = (b"POST /form.qvs?q=1 HTTP/1.1\r\nHost: x\r\nContent-Type: text/plain\r\n"
        b"Content-Length: 13\r\n\r\nname=v%20w&b=2")[:-1]
FORM = "<%= Request.Form(\"name\") %>|<%= Request.QueryString(\"q\") %>"


class Connections(ServerTest):
    PAGES = {"a.txt": b"aaa", "b.txt": b"bbbb", "form.qvs": FORM, "big.txt": b"x" * 3_000_000}

    def test_keeps_connections(self):
        with self.server.connect() as connection:
            for _ in range(50):
                connection.send(GET)
                response = connection.receive()
                self.assertEqual(response.body, b"aaa")
                self.assertEqual(response.header("Connection"), "Keep-Alive")
                connection.send(POST)
                self.assertEqual(connection.receive().body, b"v w|1")

    def test_asks_silent_clients_whether_they_are_there(self):
        with self.server.connect() as connection:
            connection.send(GET)
            connection.receive()
            ours = "%04X" % self.server.port
            rows = [line.split() for line in open("/proc/net/tcp").read().splitlines()[1:]]
            established, keepalive_timer = "01", "02"
            timers = [row[5].split(":")[0] for row in rows
                      if row[1].endswith(":" + ours) and row[3] == established]
            self.assertEqual(timers, [keepalive_timer])

    def test_closes_when_asked(self):
        with self.server.connect() as connection:
            connection.send(b"GET /a.txt HTTP/1.1\r\nHost: x\r\nConnection: CLOSE\r\n\r\n")
            response = connection.receive()
            self.assertEqual(response.header("Connection"), "Close")
            self.assertTrue(connection.is_closed())

    def test_requests_cut_at_every_byte(self):
        for request, answer in ((GET, b"aaa"), (POST, b"v w|1")):
            for cut in range(4, len(request)):
                with self.server.connect() as connection:
                    connection.send(request[:cut])
                    time.sleep(0.002)
                    connection.send(request[cut:])
                    self.assertEqual(connection.receive().body, answer, "cut at %d" % cut)

    def test_a_request_byte_by_byte(self):
        with self.server.connect() as connection:
            connection.send(POST[:4])
            time.sleep(0.05)
            for byte in POST[4:]:
                connection.send(bytes([byte]))
                time.sleep(0.001)
            self.assertEqual(connection.receive().body, b"v w|1")

    def test_a_new_request_discards_an_unfinished_one(self):
        with self.server.connect() as connection:
            connection.send(b"GET /b.txt HTTP/1.1\r\nHost: ")
            time.sleep(0.1)
            connection.send(GET)
            self.assertEqual(connection.receive().body, b"aaa")

    def test_an_answer_survives_unread_bytes(self):
        with self.server.connect() as connection:
            connection.send(b"GET /big.txt HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n")
            time.sleep(0.1)
            connection.send(b"x" * 100_000)
            self.assertEqual(len(connection.receive().body), 3_000_000)

    def test_a_reader_who_takes_his_time(self):
        with self.server.connect() as slow:
            slow.send(b"GET /big.txt HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n")
            for _ in range(10):
                self.assertEqual(self.server.get("/a.txt").body, b"aaa")
            self.assertEqual(len(slow.receive().body), 3_000_000)

    def test_a_large_form(self):
        value = b"%41b+c" * (20 * 1024 * 1024 // 6)
        self.server.put("size.qvs", "<%= Len(Request.Form(\"big\")) %> <%= Request.Form(\"e\") %>")
        response = self.server.post("/size.qvs", b"big=" + value + b"&e=end")
        self.assertEqual(response.body, b"%d end" % (len(value) // 6 * 4))

    def test_broken_percent_forms_never_kill_a_connection(self):
        with self.server.connect() as connection:
            connection.send(b"GET /form.qvs?q=%zz HTTP/1.1\r\nHost: x\r\n\r\n")
            self.assertEqual(connection.receive().body, b"|")
            connection.send(b"POST /form.qvs HTTP/1.1\r\nHost: x\r\nContent-Length: 10\r\n\r\n"
                            b"name=%q&q=")
            self.assertTrue(connection.receive().status.startswith("HTTP/1.1 200"))

    def test_bounds_of_head_and_body(self):
        with self.server.connect() as connection:
            try:
                connection.send(b"GET / HTTP/1.1\r\nX: " + b"y" * (1 << 20) + b"\r\n\r\n")
            except OSError:
                pass
            self.assertEqual(connection.receive().status, "HTTP/1.1 400 Bad Request")
        with self.server.connect() as connection:
            connection.send(b"POST /form.qvs HTTP/1.1\r\nHost: x\r\n"
                            b"Content-Length: 999999999999\r\n\r\n")
            self.assertEqual(connection.receive().status, "HTTP/1.1 400 Bad Request")
        with self.server.connect() as connection:
            connection.send(b"POST /form.qvs HTTP/1.1\r\nHost: x\r\nContent-Length: -5\r\n\r\n")
            connection.receive()

    def test_random_bytes(self):
        noise = random.Random(7)
        for _ in range(200):
            data = bytes(noise.choices(b"GET POST/HTTP1.\r\n: =&%;\0\xff.qvstx", k=300))
            with self.server.connect() as connection:
                connection.send(noise.choice((b"", b"GET ", b"POST ", b"HEAD ")) + data)
                connection.socket.shutdown(socket.SHUT_WR)
                try:
                    connection.receive_all()
                except OSError:
                    pass
        self.assertEqual(self.server.get("/a.txt").body, b"aaa")

    def test_clients_that_vanish(self):
        for _ in range(100):
            connection = self.server.connect()
            connection.send(b"GET /big.txt HTTP/1.1\r\nHost: x\r\n\r\n")
            connection.close()
        self.assertEqual(self.server.get("/a.txt").body, b"aaa")


class ManyClients(unittest.TestCase):
    COUNT = 10_000

    def test_idle_connections_cost_little_memory(self):
        soft, hard = resource.getrlimit(resource.RLIMIT_NOFILE)
        needed = self.COUNT + 200
        if hard != resource.RLIM_INFINITY and hard < needed:
            self.skipTest("the hard limit of open files is %d" % hard)
        resource.setrlimit(resource.RLIMIT_NOFILE, (max(soft, needed), hard))
        self.addCleanup(resource.setrlimit, resource.RLIMIT_NOFILE, (soft, hard))
        with Server({"a.txt": b"aaa"}, {"LogServer": "0"}) as server:
            server.get("/a.txt")
            before = server.resident_bytes()
            clients = []
            for _ in range(self.COUNT):
                client = server.connect()
                client.send(GET)
                clients.append(client)
                if client.receive().body != b"aaa":
                    self.fail("a client was not served")
            each = (server.resident_bytes() - before) / self.COUNT
            self.assertLess(each, 4096)
            clients[5000].send(GET)
            self.assertEqual(clients[5000].receive().body, b"aaa")
            for client in clients:
                client.close()
            self.assertEqual(server.get("/a.txt").body, b"aaa")

    def test_running_out_of_descriptors_never_stops_the_server(self):
        def few_files():
            resource.setrlimit(resource.RLIMIT_NOFILE, (40, 40))

        with Server({"a.txt": b"aaa"}, preexec=few_files) as server:
            clients = []
            for _ in range(80):
                client = socket.socket()
                client.settimeout(PATIENCE)
                client.connect(("127.0.0.1", server.port))
                clients.append(client)
            time.sleep(0.3)
            busy = cpu_seconds(server.process.pid)
            time.sleep(1)
            self.assertLess(cpu_seconds(server.process.pid) - busy, 0.5, "it spins")
            for client in clients:
                client.close()
            wait_until(lambda: answers(server), "an answer after the shortage")


def answers(server):
    try:
        return server.get("/a.txt").body == b"aaa"
    except (OSError, AssertionError):
        return False


def cpu_seconds(pid):
    with open("/proc/%d/stat" % pid) as stat:
        fields = stat.read().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / 100
