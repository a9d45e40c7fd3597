"""Log files and status lists that clients and pages try to fill or to forge."""

import os
import pty
import time
import unittest

from serving import Server, wait_until

from faults.watched import Watched, window_size

FLOOD = b"GET /" + b"x" * 500_000 + b" HTTP/1.1\r\nHost: localhost\r\n\r\n"


class Lines(unittest.TestCase):
    SETTINGS = {}

    def lines_of(self, requests, settings=None, pages=None):
        """The log's lines about these raw requests, without their times."""
        with Server(pages, {**self.SETTINGS, **(settings or {})}) as server:
            for request in requests:
                server.raw(request)
            server.stop()
            lines = server.log_text().split("\r\n")
        return [line.partition("] ")[2] for line in lines if " > " in line]

    def test_a_long_target_is_cut(self):
        for begin, end, word in ((b"/", b".htm", "NOT FOUND"), (b"/a.", b"", "NOT ALLOWED")):
            target = begin + b"x" * 5000 + end
            lines = self.lines_of([b"GET " + target + b" HTTP/1.1\r\nHost: localhost\r\n\r\n"])
            self.assertEqual(lines, ["127.0.0.1 > %s: %s..." % (word, target[:2048].decode())])

    def test_control_characters_are_shown(self):
        targets = (b"/a\x1b[2J.htm", b"/b\n[00:00:00]forged.htm", b"/c\x7f\t\r.htm", b"/\xe4.htm")
        shown = ("/a\\x1b[2J.htm", "/b\\x0a[00:00:00]forged.htm", "/c\\x7f\\x09\\x0d.htm", "/\xe4.htm")
        lines = self.lines_of([b"GET " + target + b" HTTP/1.1\r\nHost: localhost\r\n\r\n"
                               for target in targets])
        self.assertEqual(lines, ["127.0.0.1 > NOT FOUND: " + target for target in shown])

    def test_a_refused_request_is_cut_and_shown(self):
        lines = self.lines_of([b"GET /\x1b[2J\nforged\r\nHost:\tx\r\n\r\n",
                               b"GET " + b"y" * 100_000 + b"\r\n\r\n"])
        self.assertEqual(len(lines), 2, lines)
        self.assertIn("GET /\\x1b[2J\\x0aforged||Host:\tx", lines[0])
        self.assertRegex(lines[1], r"||GET y{2044}\.\.\.\Z")
        self.assertLess(len(lines[1]), 5000)

    def test_the_bound_is_a_setting(self):
        request = b"GET /" + b"x" * 5000 + b".htm HTTP/1.1\r\nHost: localhost\r\n\r\n"
        self.assertEqual(self.lines_of([request], {"LogTextLimit": "3"}),
                         ["127.0.0.1 > NOT FOUND: /xx..."])
        self.assertEqual(self.lines_of([request], {"LogTextLimit": "0"}),
                         ["127.0.0.1 > NOT FOUND: /" + "x" * 5000 + ".htm"])

    def test_a_flood_of_long_targets_leaves_little(self):
        with Server() as server:
            for _ in range(100):
                server.raw(FLOOD)
            server.stop()
            self.assertLess(len(server.log_text()), 400_000)

    def test_whole_requests_stay_whole(self):
        target = b"/" + b"x" * 5000
        with Server(arguments=["/logheaders"]) as server:
            server.raw(b"GET " + target + b" HTTP/1.1\r\nHost: localhost\r\n\r\n")
            server.stop()
            self.assertIn("bytes): GET %s HTTP/1.1||Host: localhost||||\r\n" % target.decode(),
                          server.log_text())

    def test_debug_lines_of_a_run_have_a_bound(self):
        pages = {"a.qvs": "<% For i = 1 To 300000: Server.DebugOut i: Next %>done"}
        with Server(pages) as server:
            for _ in range(2):
                self.assertEqual(server.get("/a.qvs").text, "done")
            server.stop()
            lines = [line.partition("[SERVER.DEBUGOUT] ")[2]
                     for line in server.log_text().split("\r\n") if "DEBUGOUT" in line]
        one = [str(i) for i in range(1, 10_001)]
        self.assertEqual(lines, 2 * (one + ["(the rest of more than 10000 lines is left out)"]))


class Files(unittest.TestCase):
    PAGES = {"a.qvs": "<% For i = 1 To 9000: Server.DebugOut String(90, \"x\"): Next %>done"}

    def sizes(self, settings):
        with Server(self.PAGES, settings) as server:
            end = time.monotonic() + 6
            runs = 0
            while time.monotonic() < end and runs < 12:
                self.assertEqual(server.get("/a.qvs").text, "done")
                runs += 1
                time.sleep(0.3)
            server.stop()
            sizes = [path.stat().st_size for path in sorted(server.logs.glob("*.LOG"))]
            lines = server.log_text().count("[SERVER.DEBUGOUT] " + "x" * 90 + "\r\n")
        self.assertEqual(lines, 9000 * runs)
        return sizes

    def test_a_new_file_begins_at_the_bound(self):
        sizes = self.sizes({"LogFileLimit": "3"})
        self.assertGreater(len(sizes), 1)
        for size in sizes:  # a second has one name
            self.assertLess(size, (3 << 20) + 4 * 9000 * 120)

    def test_there_is_none_by_default(self):
        self.assertEqual(len(self.sizes({})), 1)


class StatusList(unittest.TestCase):
    def test_long_lines_take_little_memory(self):
        master, slave = pty.openpty()
        self.addCleanup(os.close, master)
        window_size(slave, 40, 120)
        page = "<% s = String(2000000, \"x\"): For i = 1 To 20: Server.DebugOut s: Next %>done"
        with Watched(slave, slave, pages={"a.qvs": page}) as server:
            os.close(slave)
            self.assertEqual(server.get("/a.qvs").text, "done")
            before = server.resident_bytes()
            for _ in range(10):
                self.assertEqual(server.get("/a.qvs").text, "done")
            wait_until(lambda: server.get("/none").status, "an answer")
            self.assertLess(server.resident_bytes() - before, 64 << 20)
