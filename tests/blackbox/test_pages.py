"""Script pages: what they write, what they are asked, how they fail."""

import re
import time

from serving import Server, ServerTest


class Pages(ServerTest):
    PAGES = {
        "target.qvs": "<% Response.AddHeader \"X-Page\", \"target\" %>target <%= Request(\"a\") %>",
        "sub/deep.qvs": "deep",
        "head.inc": "[<%= title %>]",
        "sub/inner.inc": "inner",
        "loop.inc": "x<!--#include file=\"loop.inc\"-->\n",
    }

    def test_whole_response(self):
        response = self.page("<p><%= 1 + 1 %></p>")
        self.assertEqual(response.body, b"<p>2</p>")
        names = [line.partition(":")[0] for line in response.lines[1:]]
        self.assertEqual(names, ["Content-Length", "Server", "Accept-Ranges", "Content-Type",
                                 "Connection", "Cache-Control", "Set-Cookie", "Date"])
        self.assertEqual(response.header("Content-Type"), "text/html")
        self.assertEqual(response.header("Cache-Control"), "private")

    def test_text_and_code(self):
        self.assertEqual(self.page("a\n\nb <b>\"q\"</b>\n<% For i = 1 To 3 %>\n- <%= i %>;\n"
                                   "<% Next %>\nend").text,
                         "a\r\nb <b>\"q\"</b>\r\n\r\n- 1;\r\n\r\n- 2;\r\n\r\n- 3;\r\n\r\nend")

    def test_blocks_joined_by_a_line_break_are_one(self):
        response = self.page("<% a = 1 %>\n<%= a %>")
        self.assertIn("Error #1024", response.text)
        self.assertIn("blocks with only a line break between are one", response.text)
        self.assertEqual(self.page("<% a = 1 %> \n<%= a %>").text, " \r\n1")

    def test_pages_with_unix_line_ends(self):
        self.assertEqual(self.page(b"a\n<%\nIf True Then\n%>b<%\nEnd If\n%>\nc").text,
                         "a\r\nb\r\nc")

    def test_a_page_squeezed_into_one_line(self):
        source = "<a href=\"x\">" * 20_000
        self.assertEqual(self.page(source).text, source)

    def test_bytes_pass_through(self):
        source = bytes(c for c in range(1, 256) if c not in b"\r\n%<")
        self.assertEqual(self.page(source).body, source)

    def test_end_stops_the_page(self):
        self.assertEqual(self.page("a<% Response.End %>b").text, "a")
        self.assertEqual(self.page("a<% If True Then Response.End() %>b").text, "a")

    def test_directives_change_nothing(self):
        self.assertEqual(self.page("<%@ Language=VBScript CodePage=65001 %>\n"
                                   "<% Option Explicit : Dim a : a = 1 %><%= a %>").text, "1")

    def test_error_page(self):
        response = self.page("<% x = 1 / 0 %>")
        self.assertEqual(response.status, "HTTP/1.1 200 OK")
        self.assertEqual(
            response.text,
            "<html><head><title>QVServer Script Error</title></head><body>"
            "<font face='Arial' size='4' color='#990000'><b>QVScript Error</b></font><hr>"
            "<p><font face='Verdana' size='2'><b>Error #11</b><br>"
            "<font color='#990000'>Division by zero</font><br><br>"
            "<i>/page.qvs, line 0</i></font></p></body></html>")

    def test_error_lines(self):
        self.assertIn("<i>/page.qvs, line 4</i>", self.page("one\ntwo\n<% a = 1\nb = CInt(\"x\") %>").text)
        self.assertIn("line 1</i>", self.page("<% a = 1\nIf Then %>").text)

    def test_clear_by_its_full_name_is_an_error(self):
        self.assertIn("Error #438", self.page("a<% Response.Clear %>").text)
        self.assertEqual(self.page("a<% Clear %>b").text, "b")

    def test_includes(self):
        self.assertEqual(self.page("<% title = \"T\" %>\n<!--#include file=\"HEAD.inc\"-->\nrest").text,
                         "\r\n[T]rest")
        self.assertEqual(self.page("<!--#include file=\"sub/inner.inc\"-->\n!").text, "inner!")
        self.assertEqual(self.page("<!--#include file=\"sub\\inner.inc\"-->\n!").text, "inner!")
        self.assertEqual(self.page("<!-- c -->\n<!--#include file=\"head.inc\"-->\n").text,
                         "<!-- c -->\r\n<!--#include file=\"head.inc\"-->\r\n")

    def test_missing_and_endless_includes(self):
        self.assertEqual(self.page("a\n<!--#include file=\"Gone.inc\"-->\nb").text,
                         "Include file not found 'gone.inc'")
        self.assertIn("loop.inc", self.page("<!--#include file=\"loop.inc\"-->\n").text)

    def test_includes_never_leave_the_document_root(self):
        (self.server.folder / "main/Server/outside.inc").write_bytes(b"outside!")
        for name in ("../outside.inc", "sub/../../outside.inc", "..\\outside.inc",
                     str(self.server.folder / "main/Server/outside.inc").lower()):
            self.assertTrue(self.page("<!--#include file=\"%s\"-->\n" % name).text.startswith(
                "Include file not found"))

    def test_headers_and_content_type(self):
        response = self.page("<% Response.AddHeader \"X-A\", \"1\": Response.ContentType = \"text/plain\" %>x")
        self.assertEqual(response.header("X-A"), "1")
        self.assertEqual(response.header("Content-Type"), "text/plain")
        response = self.page("<% Response.Expires = 0 : Response.CacheControl = \"no-cache\" %>x")
        self.assertTrue(response.header("Expires").endswith(" GMT"))
        self.assertEqual(response.header("Cache-Control"), "no-cache")

    def test_redirects_serve_the_other_page(self):
        response = self.page("gone<% Response.Redirect \"/target.qvs\"\nResponse.Write \"never\" %>")
        self.assertEqual(response.text, "target ")
        self.assertEqual(response.header("X-Page"), "target")
        self.assertEqual(self.page("<% Response.Redirect \"sub/deep.qvs\" %>").text, "deep")
        path = self.server.root / "sub/deep.qvs"
        self.assertEqual(self.page("<% Response.RedirectTo \"{}\" %>".format(path)).text, "deep")

    def test_redirect_loops_end(self):
        self.server.put("ring.qvs", "<% Response.Redirect \"/ring.qvs\" %>")
        self.assertEqual(self.server.get("/ring.qvs").status, "HTTP/1.1 404 No Found")

    def test_head_and_post(self):
        self.server.put("echo.qvs", "<%= Request.Form(\"A\") %>-<%= Request(\"b\") %>")
        self.assertEqual(self.server.post("/echo.qvs?b=2", b"a=x+y%21").text, "x y!-2")
        head = self.server.get("/echo.qvs?b=2", method="HEAD")
        self.assertEqual(head.header("Content-Length"), "2")

    def test_objects_without_their_names(self):
        self.assertEqual(self.output("XWrite \"x\": Write2 = 1: XWrite URLEncode(\"a b\")\n"
                                     "Application(\"hits\") = 5: XWrite Application(\"hits\")"),
                         "xa%20b5")

    def test_undeclared_names_that_other_servers_objects_have(self):
        self.assertEqual(self.output("status = 3: buffer = 4: Response.Write status + buffer"), "7")

    def test_server_object(self):
        self.assertEqual(self.output("Response.Write Server.HTMLEncode(\"<a b>\")"), "&lt;a&nbsp;b&gt;")
        self.assertRegex(self.output("Response.Write Server.Version"), r"^\d+\.\d+\.\d+ \(Beta\)$")
        self.assertEqual(self.output("Response.Write TypeName(Server.CreateObject(\"No.Such\"))"), "Nothing")
        self.assertEqual(self.output("Set d = Server.CreateObject(\"Scripting.Dictionary\")\n"
                                     "d(\"k\") = \"v\"\nResponse.Write d(\"K\") & d(\"k\")"), "v")
        self.assertEqual(self.output("Response.Write Server.MapPath(\"sub\")"), self.server.path("sub"))
        self.assertEqual(self.server.get("/target.qvs").text, "target ")

    def test_execute_and_transfer(self):
        self.server.put("part.qvs", "<% Response.Write \"part\" : part = 1 %>")
        self.assertEqual(self.page("a<% Server.Execute \"part.qvs\" %>b<%= IsEmpty(part) %>").text,
                         "apartbTrue")
        self.assertEqual(self.page("a<% Server.Transfer \"/part.qvs\" %>b").text, "apart")
        self.assertIn("Error #53", self.page("<% Server.Execute \"../x.qvs\" %>").text)
        self.server.put("again.qvs", "<% Server.Execute \"again.qvs\" %>")
        self.assertIn("Error #28", self.server.get("/again.qvs").text)

    def test_flush_reaches_the_client_while_the_page_runs(self):
        self.server.put("slow.qvs",
                        "first<% Response.AddHeader \"X-F\", \"1\": Response.Flush\n"
                        "t = Timer: Do While Timer < t + 1: Loop %>second<% Response.Flush %>third")
        with self.server.connect() as connection:
            connection.send("GET /slow.qvs HTTP/1.1\r\nHost: x\r\n\r\n")
            began = time.monotonic()
            data = connection.receive_until(b"first")
            self.assertLess(time.monotonic() - began, 0.9)
            head, _, body = data.partition(b"\r\n\r\n")
            body += connection.receive_all()
        self.assertEqual(body, b"firstsecondthird")
        lines = head.decode().split("\r\n")
        self.assertEqual([line.partition(":")[0] for line in lines],
                         ["HTTP/1.1 200 OK", "Server", "Date", "Cache-Control", "Connection",
                          "Content-Type", "X-F"])

    def test_a_page_that_fails_after_a_flush_ends_its_connection(self):
        self.server.put("late.qvs", "a<% Response.Flush: x = 1 / 0 %>")
        data = self.server.raw(b"GET /late.qvs HTTP/1.1\r\nHost: x\r\n\r\n")
        self.assertEqual(data.count(b"HTTP/1.1 200 OK"), 1)
        self.assertIn(b"Division by zero", data)

    def test_shared_values_outlive_their_page(self):
        self.output("Set Application(\"d\") = CreateObject(\"Scripting.Dictionary\")\n"
                    "Application(\"d\")(\"k\") = Array(1, \"two\")")
        self.assertEqual(self.output("Response.Write Application(\"d\")(\"k\")(1)"), "two")

    def test_page_objects_kept_past_their_run(self):
        self.output("Set Application(\"r\") = Response: Set Application(\"q\") = Request\n"
                    "Set Application(\"s\") = Server: Set Application(\"c\") = Response.Cookies(\"x\")")
        self.assertEqual(
            self.output("Application(\"r\").Write \"x\": Application(\"r\").Flush\n"
                        "Response.Write \"[\" & Application(\"q\")(\"a\") & \"]\"\n"
                        "On Error Resume Next\nApplication(\"s\").DebugOut \"x\"\n"
                        "Response.Write Err.Number"), "[]91")

    def test_instances_of_a_pages_classes_kept_past_their_run(self):
        self.output("Class C\nPublic V\nSub Class_Terminate\nV = 2\nEnd Sub\nEnd Class\n"
                    "Set c1 = New C: c1.V = 5\nSet Application(\"i\") = c1")
        text = self.output("On Error Resume Next\nx = Application(\"i\").V\n"
                           "Set Application(\"i\") = Nothing\nResponse.Write \"alive\"")
        self.assertEqual(text, "alive")

    def test_offered_files(self):
        (self.server.folder / "download.txt").write_bytes(b"offered")
        key = self.output("Response.Write QvS.Files.Add(\"%s\", 5)" % (self.server.folder / "download.txt"))
        response = self.server.get("/filebin$" + key)
        self.assertEqual(response.body, b"offered")
        self.assertEqual(response.header("Cache-Control"), "no-cache")
        self.output("QvS.Files.Remove \"%s\"" % key)
        self.assertEqual(self.server.get("/filebin$" + key).status, "HTTP/1.1 404 No Found")


class RunawayPages(ServerTest):
    """Pages that would never end or eat everything; the server goes on after each."""

    def failing(self, script, number):
        text = self.output(script)
        self.assertIn("Error #%d<" % number, text)
        self.assertEqual(self.output("Response.Write \"on\""), "on")
        return text

    def test_endless_recursion(self):
        self.failing("Function F(n)\nF = F(n + 1) + 1\nEnd Function\nx = F(1)", 28)

    def test_memory(self):
        self.failing("s = String(1000000, \"x\")\nDo\ns = s & s\nLoop", 7)
        self.failing("Dim a()\nn = 1000\nDo\nReDim Preserve a(n)\nn = n * 2\nLoop", 7)
        self.failing("s = String(100000, \"x\")\nDo\nResponse.Write s\nLoop", 7)
        self.failing("Set d = CreateObject(\"Scripting.Dictionary\")\nDo\ni = i + 1\nd(i) = \"x\" & i\nLoop", 7)

    def test_endless_loop(self):
        began = time.monotonic()
        self.assertIn("QVScript Error", self.output("On Error Resume Next\nDo\nx = x + 1\nLoop"))
        self.assertLess(time.monotonic() - began, 15)
        self.assertEqual(self.output("Response.Write \"on\""), "on")


class SessionsAndCookies(ServerTest):
    PAGES = {
        "count.qvs": "<% Session(\"n\") = CLng(\"0\" & Session(\"n\")) + 1 %><%= Session(\"N\") %>",
        "end.qvs": "<% Session.Abandon %>[<%= Session(\"n\") %>]",
        "set.qvs": "<% Response.Cookies(\"Name\") = \"a b\"\n"
                   "Response.Cookies(\"name\").Expires = DateSerial(2030, 1, 2) + TimeSerial(3, 4, 5)\n"
                   "Response.Cookies(\"plain\").Value = 5 %>",
        "get.qvs": "<%= Request.Cookies(\"NAME\") %>,<%= Request.Cookies(\"none\") %>",
        "setkeys.qvs": "<% Response.Cookies(\"prefs\")(\"colour\") = \"dark red\"\n"
                       "Response.Cookies(\"prefs\")(\"size\") = 12 %>",
        "getkeys.qvs": "<% For Each name In Request.Cookies : Response.Write name & \":\"\n"
                       "For Each key In Request.Cookies(name)\n"
                       "Response.Write key & \"=\" & Request.Cookies(name)(key) & \";\"\n"
                       "Next : Next %>",
    }

    def session_cookie(self, response):
        match = re.fullmatch(r"QVS_SESSIONID=(\d+); path=/", response.header("Set-Cookie") or "")
        self.assertTrue(match, response.head)
        return match[1]

    def test_a_session_is_kept(self):
        response, number = self.server.get_with_session("/count.qvs")
        self.assertEqual(response.text, "1")
        for expected in ("2", "3"):
            response = self.server.get("/count.qvs", "Cookie: QVS_SESSIONID=%s\r\n" % number)
            self.assertEqual(response.text, expected)
            self.assertEqual(self.session_cookie(response), number)

    def test_abandoning(self):
        _, number = self.server.get_with_session("/count.qvs")
        cookie = "Cookie: QVS_SESSIONID=%s\r\n" % number
        self.assertEqual(self.server.get("/end.qvs", cookie).text, "[]")
        self.assertEqual(self.server.get("/count.qvs", cookie).text, "1")

    def test_unknown_and_broken_numbers(self):
        for value in ("99999", "-1", "abc", "", "1e9", "0", "99999999999999999999"):
            response = self.server.get("/count.qvs", "Cookie: QVS_SESSIONID=%s\r\n" % value)
            self.assertEqual(response.text, "1", value)

    def test_cookies(self):
        response = self.server.get("/set.qvs")
        cookies = [line for line in response.lines if line.startswith("Set-Cookie: ")
                   and "QVS_SESSIONID" not in line]
        self.assertEqual(cookies, [
            "Set-Cookie: Name=a%20b; path=/; expires=Wed, 02 Jan 2030 03:04:05 GMT",
            "Set-Cookie: plain=5; path=/"])
        self.assertEqual(self.server.get("/get.qvs", "Cookie: a=1; name=a%20b\r\n").text, "a b,")

    def test_cookies_with_keys(self):
        response = self.server.get("/setkeys.qvs")
        cookie = next(line for line in response.lines if "prefs" in line)
        value = cookie.partition(": ")[2].partition(";")[0]
        self.assertEqual(self.server.get("/getkeys.qvs", "Cookie: %s\r\n" % value).text,
                         "PREFS:colour=dark red;size=12;")

    def test_more_sessions_than_numbers(self):
        with Server({"s.qvs": "<%= Session.SessionID %>"}) as server, server.connect() as client:
            numbers = set()
            # Number 0 is given back by the next answer, so that it comes again and again when few
            # are left: every number takes more requests than there are numbers.
            requests = 10_600
            for _ in range(requests):
                client.send("GET /s.qvs HTTP/1.1\r\nHost: x\r\n\r\n")
                numbers.add(int(client.receive().text))
            self.assertEqual(numbers, set(range(10_001)))
            server.stop()
            log = server.log_text()
            self.assertEqual(log.count(" created\r\n"), requests)
            self.assertIn(" destroyed\r\n", log)


class Compression(ServerTest):
    SETTINGS = {"EncodeDynamic": "1"}

    def test_output_is_compressed_for_clients_that_take_it(self):
        import gzip
        source = "<% For i = 1 To 1000 %>line <% Next %>"
        packed = self.page(source, "Accept-Encoding: gzip, br\r\n")
        self.assertEqual(packed.header("Content-encoding"), "gzip")
        self.assertEqual(gzip.decompress(packed.body), b"line " * 1000)
        self.assertEqual(self.page(source, "Accept-Encoding: none\r\n").body, b"line " * 1000)
