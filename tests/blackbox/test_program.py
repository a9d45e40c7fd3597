"""The program as a whole: start, stop, its one instance, its settings and control channel."""

import signal
import socket
import unittest

import programs
from serving import PATIENCE, Server, wait_until

CONTROL_PORT = 7008


class Program(unittest.TestCase):
    def test_orderly_end(self):
        for ending in {programs.ENDING, signal.SIGINT}:
            with Server({"a.txt": b"a"}) as server:
                with server.connect() as idle:
                    server.process.send_signal(ending)
                    self.assertEqual(server.process.wait(PATIENCE), 0)
                    self.assertEqual(idle.receive_all(), b"")
                self.assertEqual(server.process.stdout.read(), b"")
                log = server.log_text()
            self.assertIn("Quorvane Server ", log)
            self.assertIn("] Server Start\r\n", log)
            self.assertTrue(log.endswith("] Server Closing\r\n"))

    def test_instances_with_other_settings_serve_side_by_side(self):
        with Server({"a.txt": b"one"}) as one, Server({"a.txt": b"two"}) as two:
            self.assertEqual(one.get("/a.txt").body, b"one")
            self.assertEqual(two.get("/a.txt").body, b"two")

    def test_a_log_that_is_switched_off(self):
        with Server({"a.txt": b"a"}, {"LogServer": "0"}) as server:
            server.get("/a.txt")
            server.stop()
            self.assertEqual(server.log_text(), "")

    def test_status_lines_on_the_output(self):
        with Server({"a.txt": b"a"}, arguments=("/debug",)) as server:
            server.get("/a.txt")
            server.stop()
            lines = server.process.stdout.read().decode("latin-1")
        self.assertRegex(lines, r"(?m)^\d\d:\d\d:\d\d Server Start\r?$")
        self.assertRegex(lines, r"(?m)^\d\d:\d\d:\d\d 127\.0\.0\.1 > GET /a\.txt\r?$")
        self.assertIn("Running Arguments: /devmode /debug", lines)

    def test_raw_headers_in_the_log(self):
        with Server({"a.txt": b"a"}, arguments=("/logheaders",)) as server:
            server.raw(b"GET /a.txt HTTP/1.1\r\nConnection: close\r\n\r\n")
            server.stop()
            self.assertIn("] Header (42 bytes): GET /a.txt HTTP/1.1||Connection: close||||\r\n",
                          server.log_text())

    def test_missing_settings_are_written(self):
        with Server() as server:
            text = server.ini.read_text()
        self.assertIn("LogServer=1", text)
        self.assertIn("EncodeStatic=0", text)

    def test_a_port_that_is_taken(self):
        with Server() as server:
            other = Server(settings={"Port": str(server.port)})
            other.process = other.spawn()
            try:
                wait_until(lambda: "PORT ERROR" in other.log_text(), "the port error")
                self.assertIn("******* PORT ERROR: Unable to bind to port %d\r\n" % server.port,
                              other.log_text())
                self.assertIsNone(other.process.poll())
            finally:
                other.__exit__()


class Control(unittest.TestCase):
    def setUp(self):
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as probe:
            try:
                probe.bind(("0.0.0.0", CONTROL_PORT))
            except OSError:
                self.skipTest("another program holds the control port")

    def ask(self, command, patience=PATIENCE):
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as channel:
            channel.settimeout(patience)
            channel.connect(("127.0.0.1", CONTROL_PORT))
            channel.send(command)
            try:
                return channel.recv(4096)
            except socket.timeout:
                return None

    def test_commands(self):
        with Server({"a.txt": b"a"}) as server:
            self.assertEqual(self.ask(b"[?state]"), b"[?state]:1")
            self.assertRegex(self.ask(b"[?version]"), rb"^\[\?version\]:\d+\.\d+\.\d+ \(Beta\)$")
            self.assertRegex(self.ask(b"[?uptime]"), rb"^\[\?uptime\]:.*\d\d:\d\d:\d\d$")
            for silent in (b"[>START]", b"[?state] ", b"", b"x" * 60000):
                self.assertIsNone(self.ask(silent, 0.3))
            self.assertEqual(self.ask(b"[>stop]"), b"[>stop]:OK")
            self.assertEqual(self.ask(b"[?state]"), b"[?state]:0")
            self.assertIsNone(self.ask(b"[?uptime]", 0.3))
            with self.assertRaises(OSError):
                server.get("/a.txt")
            self.assertEqual(self.ask(b"[>start]"), b"[>start]:OK")
            self.assertEqual(server.get("/a.txt").body, b"a")
            self.assertEqual(self.ask(b"[>restart]"), b"[>restart]:OK")
            self.assertEqual(server.get("/a.txt").body, b"a")
            self.assertEqual(self.ask(b"[>quit]"), b"[>quit]:OK")
            self.assertEqual(server.process.wait(PATIENCE), 0)

    def test_stopping_ends_all_sessions(self):
        with Server({"n.qvs": "<% Session(\"n\") = CLng(\"0\" & Session(\"n\")) + 1 %><%= Session(\"n\") %>"}) as server:
            _, number = server.get_with_session("/n.qvs")
            header = "Cookie: QVS_SESSIONID=%s\r\n" % number
            self.assertEqual(server.get("/n.qvs", header).text, "2")
            self.assertEqual(self.ask(b"[>restart]"), b"[>restart]:OK")
            self.assertEqual(server.get("/n.qvs", header).text, "1")
