"""Answers that a client's or a page's text tries to break up."""

import time

from serving import ServerTest


class HeaderLines(ServerTest):
    ATTACK = "\" & vbCrLf & \"X-Evil: 1\" & Chr(0) & \"z"

    def lines(self, script):
        response = self.page("<% " + script + " %>body")
        self.assertEqual(response.text, "body")
        self.assertIsNone(response.header("X-Evil"))
        return response.lines

    def test_no_value_of_a_page_holds_a_line_break(self):
        for script, line in (
                ("Response.AddHeader \"X-A\", \"a{}\"", "X-A: a  X-Evil: 1 z"),
                ("Response.AddHeader \"X-B{}\", \"b\"", "X-B  X-Evil 1 z: b"),
                ("Response.ContentType = \"text/html{}\"", "Content-Type: text/html  X-Evil: 1 z"),
                ("Response.Charset = \"utf-8{}\"", "Content-Type: text/html; charset=utf-8  X-Evil: 1 z"),
                ("Response.PICS \"p{}\"", "PICS-Label: p  X-Evil: 1 z"),
                ("Response.CacheControl = \"public{}\"", "Cache-Control: public  X-Evil: 1 z"),
                ("Response.Cookies(\"n{}\") = \"v\"", "Set-Cookie: n  X-Evil: 1 z=v; path=/")):
            self.assertIn(line, self.lines(script.format(self.ATTACK)))

    def test_nor_does_what_a_page_flushes(self):
        response = self.page("<% Response.AddHeader \"X-A\", \"a{}\" : Response.Flush %>body"
                             .format(self.ATTACK))
        self.assertIn("X-A: a  X-Evil: 1 z", response.lines)
        self.assertEqual(response.text, "body")

    def test_nor_a_cookie_that_is_sent_back(self):
        self.server.put("keep.qvs", "<% Response.Cookies(\"c\").Expires = Now + 1 %>body")
        response = self.server.get("/keep.qvs", "Cookie: c=1%0d%0aX-Evil: 1%00z\r\n")
        self.assertIsNone(response.header("X-Evil"))
        self.assertRegex(response.head.decode("latin-1"),
                         r"\r\nSet-Cookie: C=1  X-Evil: 1 z; path=/; expires=")

    def test_everything_else_of_a_value_stays(self):
        self.assertIn("X-A: a\tb\x7f\xe4\x1f;=", self.lines(
            "Response.AddHeader \"X-A\", \"a\" & Chr(9) & \"b\" & Chr(127) & Chr(228) & Chr(31) & \";=\""))


class LargeAsks(ServerTest):
    PAGES = {"big.txt": b"x" * (3 << 20), "form.qvs": "<%= Request.Form(\"a\") & Request.Form(\"z\") %>"}

    def test_a_set_of_ranges_asks_for_no_multiple_of_a_file(self):
        for count, status in ((21, "HTTP/1.1 206 Partial Content"), (22, "HTTP/1.1 400 Bad Request")):
            ranges = ",".join(["0-"] * count)
            with self.server.connect() as client:
                client.send("GET /big.txt HTTP/1.1\r\nRange: bytes=%s\r\n\r\n" % ranges)
                self.assertEqual(client.receive(with_body=False).status, status)

    def test_a_form_of_tiny_fields_takes_little_time(self):
        plain = self.seconds_for(b"a=1&b=" + b"x" * (48 << 20))
        for field in (b"b=2&", b"&&&&"):
            self.assertLess(self.seconds_for(b"a=1&" + field * (12 << 20) + b"z=3"), plain + 0.4)

    def seconds_for(self, body):
        begun = time.monotonic()
        self.assertEqual(self.server.post("/form.qvs", body.decode()).text, "1")
        return time.monotonic() - begun
