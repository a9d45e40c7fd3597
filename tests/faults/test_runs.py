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

    FAILING = {
        "page.qvs": '<p>\n<!--#include file="Parts/Head.inc"-->\n<% Divide 2 %>',
        "parts/head.inc": "<%\nSub Divide(x)\n  Response.Write 1: y = x / 0\nEnd Sub\n%>\n",
        "outer.qvs": '<p>\n<% Server.Execute "/inner.qvs" %>',
        "inner.qvs": "<b>\n\n\n<i><%= 1 \\ 0 %>",
        "syntax.qvs": "one\ntwo\n<%\nIf Then\n%>",
        "fine.qvs": "<% Response.Write 1 : Response.End %>",
    }
    PLACES = (
        ("/page.qvs", 4, "Microsoft VBScript runtime error '800a000b': Division by zero "
                         "(/parts/head.inc, line 3, column 21):   Response.Write 1: y = x / 0"),
        ("/outer.qvs", 2, "Microsoft VBScript runtime error '800a000b': Division by zero "
                          "(/inner.qvs, line 4, column 6): <i><%= 1 \\ 0 %>"),
        ("/syntax.qvs", 4, "Microsoft VBScript compilation error '800a03ea': Syntax error "
                           "(/syntax.qvs, line 4, column 4): If Then"),
    )

    def test_the_log_has_the_place_in_the_file_when_the_setting_says_so(self):
        with Server(self.FAILING, {"LogPageErrors": "1"}) as server:
            for target, line, _ in self.PLACES:
                self.assertIn(f"<i>{target}, line {line}</i>", server.get(target).text)
            server.get("/fine.qvs")
            server.stop()
            logged = [line.partition("Page error: ")[2] for line in server.log_text().splitlines()
                      if "Page error" in line]
        self.assertEqual(logged, [text for _, _, text in self.PLACES])

    def test_else_the_log_has_nothing_and_the_page_is_the_same(self):
        with Server(self.FAILING) as server, \
                Server(self.FAILING, {"LogPageErrors": "1"}) as other:
            for target, _, _ in self.PLACES:
                self.assertEqual(server.get(target).body, other.get(target).body)
            server.stop()
            self.assertNotIn("error", server.log_text())
