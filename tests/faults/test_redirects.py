"""Redirections that lead where no client may go, or to the same work once more."""

import os
import signal
import urllib.parse

from serving import ServerTest, wait_until

NUL = "\x00"


class Redirects(ServerTest):
    PAGES = {"echo.qvs": "<%= Request(\"a\") %>",
             "sub/deep.qvs": "deep",
             "sub/plain.txt": "plain",
             "count.qvs": "<%= Application(\"saved\") %>"}

    def setUp(self):
        self.outside = self.server.folder / "outside"
        self.outside.mkdir(exist_ok=True)
        (self.outside / "secret.txt").write_text("secret")
        (self.outside / "run.qvs").write_text("<%= 6 * 7 %>")

    def echo(self, text):
        return self.server.get("/echo.qvs?a=" + urllib.parse.quote(text, encoding="latin-1"))

    def marked(self, path):
        return self.echo(NUL + "[$REDIRTO$]" + NUL + str(path))

    def test_a_mark_that_a_client_sends_leads_to_nothing_outside(self):
        root = self.server.root
        for path in (self.outside / "secret.txt", self.outside / "run.qvs",
                     "  %s/../../../outside/secret.txt" % root, os.path.relpath(self.outside, root)
                     + "/secret.txt", "/etc/hostname.txt", str(root) + "/../Scripts/../Logs/x.txt"):
            response = self.marked(path)
            self.assertEqual(response.status, "HTTP/1.1 404 No Found", path)
            self.assertIn("The page cannot be found", response.text)
        self.server.process.send_signal(signal.SIGUSR1)  # which writes the log
        line = " > NOT FOUND: %s/secret.txt" % self.outside
        wait_until(lambda: line in self.server.log_text(), "the status line")

    def test_marks_lead_on_within_the_root(self):
        for name, body in (("deep.qvs", "deep"), ("plain.txt", "plain")):
            self.assertEqual(self.echo(NUL + "[$REDIR$]" + NUL + "sub/" + name).text, body)
            self.assertEqual(self.marked(self.server.root / "sub" / name).text, body)
            self.assertEqual(self.marked("%s/x/../sub/%s" % (self.server.root, name)).text, body)

    def test_what_a_page_itself_names_may_lie_outside(self):
        for name, body in (("secret.txt", "secret"), ("run.qvs", "42")):
            page = "<% Response.RedirectTo \"{}\" %>".format(self.outside / name)
            self.assertEqual(self.page(page).text, body)

    def test_a_page_that_saves_and_leads_to_itself_saves_once(self):
        self.server.put("save.qvs", "<%\n"
                        "If Request.ServerVariables(\"REQUEST_METHOD\") = \"POST\" Then\n"
                        "  Application(\"saved\") = Application(\"saved\") + 1\n"
                        "  Response.Redirect \"save.qvs\"\n"
                        "End If\n"
                        "%><%= Request.ServerVariables(\"REQUEST_METHOD\") & \"|\" & "
                        "Request.ServerVariables(\"CONTENT_LENGTH\") & \"|\" & Request.TotalBytes & "
                        "\"|\" & UBound(Request.BinaryRead(9)) & \"|\" & Request.Form(\"a\") %>")
        response = self.server.post("/save.qvs", "a=1")
        self.assertEqual((response.status, response.text), ("HTTP/1.1 200 OK", "GET||0|-1|"))
        self.assertEqual(self.server.get("/count.qvs").text, "1")


class KeptCopies(ServerTest):
    SETTINGS = {"EncodeStatic": "1"}

    def test_of_a_file_outside_the_root_no_copy_is_kept(self):
        outside = self.server.folder / "private"
        outside.mkdir()
        for text in ("for Anna", "for Berta"):
            (outside / "letter.txt").write_text(text)
            self.page("<% Response.RedirectTo \"{}\" %>".format(outside / "letter.txt"),
                      "Accept-Encoding: gzip\r\n")
            self.assertEqual(list(self.server.cache.iterdir()), [])
        self.server.put("in.txt", "inside")
        self.server.get("/in.txt", "Accept-Encoding: gzip\r\n")
        self.assertEqual([path.name for path in self.server.cache.iterdir()], ["^IN.TXT"])
