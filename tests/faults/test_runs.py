"""What pages ask for that they must get, and what they must not."""

import os
import signal
import time
import unittest

from serving import PATIENCE, Server, ServerTest


class Names(ServerTest):
    PAGES = {
        "sub/outer.qvs": "<% Server.Execute \"inner.qvs\" %>",
        "sub/inner.qvs": "inner",
    }

    def test_folders_are_mapped_in_any_letter_case(self):
        data = self.server.root.parent / "Data"
        data.mkdir()
        for name in ("../data", "..\\\\DATA", "../Scripts/../dAta"):
            self.assertEqual(self.output("Response.Write Server.MapPath(\"%s\")" % name), str(data))
        self.assertEqual(
            self.output("Response.Write Server.MapPath(\"%s\")" % str(data).replace("Data", "DATA")),
            os.path.realpath(data))

    def test_a_page_within_a_page_is_found_from_there(self):
        self.assertEqual(self.output("Server.Execute \"sub/outer.qvs\""), "inner")

    def test_names_of_read_only_members_are_free(self):
        self.assertEqual(self.output("text = 1 : version = \"2\" : files = Array(3)\n"
                                     "Response.Write text & version & files(0)"), "123")


ENDLESS = "<% Server.ScriptTimeout = 60 : Do : Loop %>"
ENDLESS_INSIDE = "<% Server.ScriptTimeout = 60 : s = Space(1000000)\n" \
                 "Do : t = Replace(s, \" \", \"xx\") : Loop %>"


class Stops(unittest.TestCase):
    def test_a_stop_is_heard_while_a_page_runs(self):
        for source in (ENDLESS, ENDLESS_INSIDE):
            for number in (signal.SIGTERM, signal.SIGINT):
                with Server({"endless.qvs": source}) as server, server.connect() as client:
                    client.send("GET /endless.qvs HTTP/1.1\r\n\r\n")
                    time.sleep(0.3)
                    began = time.monotonic()
                    server.process.send_signal(number)
                    self.assertIn("Error #113", client.receive().text)
                    self.assertEqual(server.process.wait(PATIENCE), 0)
                    self.assertLess(time.monotonic() - began, 5)

    def test_transfers_under_way_may_finish(self):
        size = 64 << 20
        with Server({"large.txt": b"x" * size}, {"DrainSeconds": "15"}) as server:
            with server.connect() as client, server.connect() as idle:
                client.send("GET /large.txt HTTP/1.1\r\n\r\n")
                time.sleep(0.3)
                server.process.send_signal(signal.SIGTERM)
                self.assertTrue(idle.is_closed())
                self.assertEqual(client.receive(False).header("Content-Length"), str(size))
                left = size - len(client.pending)
                while left > 0:
                    left -= len(client.socket.recv(1 << 20))
                self.assertEqual(left, 0)
                self.assertTrue(client.socket.recv(1) == b"")
            self.assertEqual(server.process.wait(PATIENCE), 0)

    def test_without_the_setting_a_stop_does_not_wait(self):
        with Server({"large.txt": b"x" * (64 << 20)}) as server, server.connect() as client:
            client.send("GET /large.txt HTTP/1.1\r\n\r\n")
            client.receive(False)
            began = time.monotonic()
            self.assertEqual(server.stop(), 0)
            self.assertLess(time.monotonic() - began, 5)


class Errors(unittest.TestCase):
    PAGE = "<% Err.Raise 1000, \"page\", Request(\"text\") %>"
    TARGET = "/page.qvs?text=%3Cscript%3E%26"

    def test_descriptions_are_shown_as_they_stand(self):
        with Server({"page.qvs": self.PAGE}) as server:
            self.assertIn("<font color='#990000'><script>&</font>", server.get(self.TARGET).text)

    def test_descriptions_are_encoded_when_the_setting_says_so(self):
        with Server({"page.qvs": self.PAGE}, {"EncodeErrors": "1"}) as server:
            page = server.get(self.TARGET).text
            self.assertIn("<font color='#990000'>&lt;script&gt;&amp;</font>", page)
            self.assertIn("<i>/page.qvs, line 0</i>", page)
