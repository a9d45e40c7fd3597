"""Pages that take memory beside their values. Their limit is 256 MiB; the tests leave room for what
the server itself holds and for copies on the way."""

import re
import time
import unittest

from serving import PATIENCE, Server

MIB = 1 << 20
ROOM = 450 * MIB


def peak_bytes(server):
    with open("/proc/%d/status" % server.process.pid) as status:
        return int(re.search(r"VmHWM:\s+(\d+)", status.read())[1]) * 1024


def drop_answer(server, target):
    """Reads an answer without keeping it; its first bytes and its length."""
    with server.connect() as client:
        client.send("GET %s HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n" % target)
        begin, length = b"", 0
        client.socket.settimeout(3 * PATIENCE)
        while data := client.socket.recv(1 << 20):
            if length < 4096:
                begin += data
            length += len(data)
        return begin, length


class Memory(unittest.TestCase):
    def run_page(self, script):
        with Server({"page.qvs": "<%\n" + script + "\n%>"}, {"LogServer": "0"}) as server:
            begin, length = drop_answer(server, "/page.qvs")
            self.assertLess(peak_bytes(server), ROOM, script)
            self.assertIn("404", server.get("/").status, "the server must live on")
            return begin.decode("latin-1"), length

    def assert_runs_out(self, script):
        self.assertIn("Error #7<", self.run_page("Server.ScriptTimeout = 60\n" + script)[0])

    def test_binary_output(self):
        begin, length = self.run_page("s = String(100000000, \"a\") : Response.BinaryWrite s")
        self.assertIn("Error #7<", begin)
        begin, length = self.run_page("s = String(40000000, \"a\") : Response.BinaryWrite s")
        self.assertGreater(length, 80_000_000)

    def test_gigabytes_in_flushes(self):
        _, length = self.run_page("s = Space(100000000)\n"
                                  "For i = 1 To 10 : Response.Write s : Response.Flush : Next")
        self.assertGreater(length, 1_000_000_000)

    def test_header_lines(self):
        self.assert_runs_out("Do : i = i + 1 : Response.AddHeader \"X\" & i, \"y\" : Loop")
        self.assert_runs_out("v = String(10000000, \"x\")\n"
                             "Do : i = i + 1 : Response.AddHeader \"X\" & i, v : Loop")
        self.assert_runs_out("s = String(100000000, \"d\")\n"
                             "Response.ContentType = s : Response.Charset = s")

    def test_texts_that_become_longer(self):
        for member in ("HTMLEncode", "URLEncode", "B64Encode"):
            self.assert_runs_out("s = Server.%s(String(100000000, \"\"\"\"))" % member)

    def test_targets_of_redirects(self):
        self.assert_runs_out("Response.Redirect String(100000000, \"d\")")

    def test_keys_of_sessions(self):
        self.assert_runs_out("Do : i = i + 1 : Session(\"k\" & i) = \"\" : Loop")

    def test_keys_of_shared_values(self):
        self.assert_runs_out("Do : i = i + 1 : Application(\"k\" & i) = \"\" : Loop")

    def test_many_objects_with_texts_of_their_own(self):
        self.assert_runs_out("ReDim a(3000000)\nFor i = 0 To 3000000\n"
                             "Set a(i) = Response.Cookies(Space(500)) : Next")

    def test_patterns(self):
        begin, _ = self.run_page("ReDim a(1000000)\nFor i = 0 To 1000000\nSet a(i) = New RegExp\n"
                                 "a(i).Pattern = Space(50) & i : a(i).Test \"\" : Next")
        self.assertRegex(begin, "Error #(7|113)<")

    def test_keys_that_are_issued_are_bounded(self):
        page = "<% For i = 1 To 200000 : k = Server.IssueAuthKey(30000) : Next\n" \
               "Response.Write Server.ValidateAuthKey(k) %>"
        with Server({"page.qvs": page}, {"LogServer": "0"}) as server:
            for _ in range(3):
                self.assertEqual(server.get("/page.qvs").text, "True")
            self.assertLess(server.resident_bytes(), 100 * MIB)


class Time(unittest.TestCase):
    def test_decoding_is_bounded(self):
        with Server({"page.qvs": "<%= Len(Server.HTMLDecode(String(40000000, \"&\"))) %>"}) as server:
            began = time.monotonic()
            self.assertEqual(server.get("/page.qvs").text, "40000000")
            self.assertLess(time.monotonic() - began, 10)
