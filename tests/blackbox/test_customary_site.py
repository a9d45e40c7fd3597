"""Session, Application, Server and global.asa of the customary dialect, from outside."""

import re
import time

import programs
from serving import Server, ServerTest, wait_until

COOKIE = "QVSITEID"
GLOBAL = """<object runat="server" scope="application" id="Shared" progid="Scripting.Dictionary"></object>
<object runat="server" scope="session" id="Basket" progid="Scripting.Dictionary"></object>
<script language="vbscript" runat="server">
Sub Application_OnStart
  Application("visitors") = 0
  Shared("since") = Now
End Sub
Sub Session_OnStart
  Application.Lock
  Application("visitors") = Application("visitors") + 1
  Application.Unlock
  Session("landed") = Request.ServerVariables("URL")
End Sub
Sub Session_OnEnd
  Application("visitors") = Application("visitors") - 1
  Application("left") = Application("left") & Session("name") & ";"
End Sub
Sub Application_OnEnd
  Dim file
  Set file = Server.CreateObject("Scripting.FileSystemObject").CreateTextFile(Server.MapPath("/ended.txt"), True)
  file.Write Application("visitors") & " " & Application("left")
  file.Close
End Sub
</script>
"""


class Browser:
    """Keeps the site's cookie."""

    def __init__(self, server):
        self.server = server
        self.cookie = None

    def get(self, target):
        sent = "Cookie: %s=%s\r\n" % (COOKIE, self.cookie) if self.cookie else ""
        response = self.server.get(target, sent)
        self.new = [line for line in response.lines if line.startswith("Set-Cookie: " + COOKIE)]
        for line in self.new:
            self.cookie = line.partition("=")[2].partition(";")[0]
        return response.text


class CustomarySite(ServerTest):
    SETTINGS = {"Customary": "2"}

    def page(self, source):
        self.server.put("page.asp", source)
        return Browser(self.server).get("/page.asp")

    def test_sessions_begin_when_they_are_used(self):
        self.server.put("plain.asp", "plain")
        self.server.put("set.asp", "<% Session(\"n\") = Session(\"n\") + 1 %><%= Session(\"n\") %>"
                                   "<%= TypeName(Session(\"n\")) %>")
        browser = Browser(self.server)
        self.assertEqual(browser.get("/plain.asp"), "plain")
        self.assertEqual(browser.new, [])
        self.assertEqual(browser.get("/set.asp"), "1Integer")
        self.assertEqual(len(browser.new), 1)
        self.assertRegex(browser.new[0], COOKIE + r"=[0-9a-f]{32}; path=/; HttpOnly$")
        self.assertEqual(browser.get("/set.asp"), "2Integer")
        self.assertEqual(browser.new, [])
        self.assertEqual(Browser(self.server).get("/set.asp"), "1Integer")

    def test_nobody_chooses_a_session(self):
        self.server.put("id.asp", "<%= Session.SessionID %>")
        browser = Browser(self.server)
        browser.cookie = "a" * 32
        browser.get("/id.asp")
        self.assertEqual(len(browser.new), 1)
        self.assertNotEqual(browser.cookie, "a" * 32)

    def test_abandoned_at_the_end_of_the_page(self):
        self.server.put("in.asp", "<% Session(\"user\") = \"ann\" %>")
        self.server.put("out.asp", "<% Session.Abandon %>[<%= Session(\"user\") %>]")
        browser = Browser(self.server)
        browser.get("/in.asp")
        self.assertEqual(browser.get("/out.asp"), "[ann]")
        self.assertEqual(browser.get("/out.asp"), "[]")

    def test_a_head_sent_early_has_the_cookie(self):
        self.server.put("early.asp", "<% Response.Write 1 : Response.Flush : Session(\"n\") = 2 %>")
        self.server.put("late.asp", "<%= Session(\"n\") %>")
        browser = Browser(self.server)
        browser.get("/early.asp")
        self.assertEqual(len(browser.new), 1)
        self.assertEqual(browser.get("/late.asp"), "2")

    def test_a_redirecting_page_has_the_cookie(self):
        self.server.put("login.asp", "<% Session(\"user\") = \"ann\" : Response.Redirect \"who.asp\" %>")
        self.server.put("who.asp", "<%= Session(\"user\") %>")
        browser = Browser(self.server)
        browser.get("/login.asp")
        self.assertEqual(len(browser.new), 1)
        self.assertEqual(browser.get("/who.asp"), "ann")

    def test_a_page_without_a_session(self):
        self.server.put("off.asp", "<%@ EnableSessionState=False %><% On Error Resume Next\n"
                                   "x = Session(\"a\") %><%= Err.Number %>")
        browser = Browser(self.server)
        self.assertEqual(browser.get("/off.asp"), "17")
        self.assertEqual(browser.new, [])

    def test_objects_and_arrays(self):
        self.server.put("fill.asp", "<% Set d = Server.CreateObject(\"Scripting.Dictionary\")\n"
                                    "d(\"pen\") = 3 : Set Session(\"basket\") = d\n"
                                    "Session(\"list\") = Array(1, \"two\", Array(3)) %>")
        self.server.put("show.asp", "<% Set d = Session(\"basket\") : a = Session(\"list\") %>"
                                    "<%= d(\"pen\") %> <%= a(1) %> <%= Session(\"list\")(2)(0) %> "
                                    "<% For Each k In Session.Contents %><%= k %>,<% Next %>"
                                    "<%= Session.Contents.Count %>")
        browser = Browser(self.server)
        browser.get("/fill.asp")
        self.assertEqual(browser.get("/show.asp"), "3 two 3 basket,list,2")

    def test_pages_run_by_others_share_the_session(self):
        self.server.put("inner/part.asp", "[<%= Session(\"x\") %>"
                                          "<% Session(\"x\") = 2 %><%= Server.MapPath(\".\") %>]")
        self.server.put("outer.asp", "<% Session(\"x\") = 1 : Server.Execute \"inner/part.asp\" %>"
                                     "<%= Session(\"x\") %>"
                                     "<% Server.Transfer \"/inner/part.asp\" %>never")
        text = Browser(self.server).get("/outer.asp")
        folder = re.escape(self.server.path("inner"))
        self.assertRegex(text, r"^\[1%s\]2\[2%s\]$" % (folder, folder))

    def test_paths(self):
        self.server.put("data/Stock.txt", b"x")
        root = self.server.path()
        for path, mapped in (("/", root), ("\\", root), (".", root), ("data/stock.TXT", self.server.path("data/Stock.txt")),
                             ("/data/../new.txt", self.server.path("new.txt")), ("DATA\\", self.server.path("data") + programs.SEPARATOR)):
            self.assertEqual(self.page("<%%= Server.MapPath(\"%s\") %%>" % path), mapped, path)
        for path in ("..", "/../x", "../../../../etc/passwd", "a*b"):
            self.assertEqual(self.page("<%% On Error Resume Next : x = Server.MapPath(\"%s\") %%>"
                                       "<%%= Hex(Err.Number) & x %%>" % path), "80004005", path)

    def test_encoders(self):
        self.assertEqual(self.page("<%= Server.HTMLEncode(\"<a> & \"\"b\"\"\" & Chr(233)) %>"),
                         "&lt;a&gt; &amp; &quot;b&quot;&#233;")
        self.assertEqual(self.page("<%= Server.URLEncode(\"a b/\" & Chr(233)) %>"), "a+b%2F%E9")
        self.assertEqual(self.page("<%@ CodePage=65001 %><%= Server.URLEncode(ChrW(233)) %>"
                                   "<%= Server.HTMLEncode(ChrW(233)) %>"), "%C3%A9\u00c3\u00a9")

    def test_unknown_objects(self):
        self.assertEqual(self.page("<% On Error Resume Next : Set o = Server.CreateObject(\"No.Such\") %>"
                                   "<%= Err.Number %> <%= Err.Description %>"),
                         "429 ActiveX component can't create object")


class CustomaryGlobal(ServerTest):
    SETTINGS = {"Customary": "2"}
    PAGES = {
        "global.asa": GLOBAL,
        "count.asp": "<%= Application(\"visitors\") %> <%= Session(\"landed\") %> <%= Basket.Count %> "
                     "<%= IsDate(Shared(\"since\")) %>",
        "add.asp": "<% Basket.Add Basket.Count, 1 : Session(\"name\") = \"ann\" %>",
        "leave.asp": "<% Session.Abandon %><%= Application(\"visitors\") %>",
        "left.asp": "<%= Application(\"left\") %>",
    }

    def test_events_in_their_order(self):
        with Server(self.PAGES, self.SETTINGS) as server:
            ann, bob = Browser(server), Browser(server)
            self.assertEqual(ann.get("/count.asp"), "1 /count.asp 0 True")
            self.assertEqual(bob.get("/left.asp"), "")
            ann.get("/add.asp")
            self.assertEqual(ann.get("/count.asp"), "2 /count.asp 1 True")
            self.assertEqual(bob.get("/count.asp"), "2 /left.asp 0 True")
            self.assertEqual(ann.get("/leave.asp"), "2")
            self.assertEqual(bob.get("/left.asp"), "ann;")
            self.assertEqual(bob.get("/count.asp"), "1 /left.asp 0 True")
            server.stop()
            self.assertEqual((server.root / "ended.txt").read_text(), "0 ann;;")

    def test_a_changed_text_is_taken_up(self):
        with Server(self.PAGES, self.SETTINGS) as server:
            browser = Browser(server)
            self.assertEqual(browser.get("/count.asp"), "1 /count.asp 0 True")
            server.put("global.asa", GLOBAL.replace("visitors\") = 0", "visitors\") = 50"))
            wait_until(lambda: browser.get("/count.asp") == "50 /count.asp 0 True", "the new text")

    def test_what_the_start_of_a_session_chooses(self):
        pages = {"global.asa": "<script language=vbscript runat=server>\nSub Session_OnStart\n"
                               "Session.LCID = 1031 : Session(\"path\") = Server.MapPath(\"data\")\n"
                               "Response.Write \"(\"\nEnd Sub\n</script>",
                 "deep/p.asp": "<%= 1.5 %> <%= Session(\"path\") %>",
                 "gone.asp": "never"}
        with Server(pages, self.SETTINGS) as server:
            browser = Browser(server)
            path = server.path("data")
            self.assertEqual(browser.get("/deep/p.asp"), "(1,5 " + path)
            self.assertEqual(browser.get("/deep/p.asp"), "1,5 " + path)
            server.put("global.asa", pages["global.asa"].replace("Response.Write \"(\"",
                                                                 "Response.Redirect \"deep/p.asp\""))
            time.sleep(1.1)
            response = server.get("/gone.asp")
            self.assertTrue(response.status.startswith("HTTP/1.1 302 "), response.status)
            self.assertEqual(response.header("Location"), "deep/p.asp")
            self.assertNotIn(b"never", response.body)
            server.put("global.asa", "<script language=vbscript runat=server>\n"
                                     "Sub Session_OnStart\nServer.Execute \"deep/q.asp\"\n"
                                     "Server.Transfer \"/deep/q.asp\"\nEnd Sub\n</script>")
            server.put("deep/q.asp", "[<%= Server.MapPath(\".\") %>]")
            time.sleep(1.1)
            self.assertEqual(server.get("/gone.asp").text, 2 * ("[%s]" % server.path("deep")))

    def test_it_can_not_be_had(self):
        self.assertEqual(self.server.get("/global.asa").status, "HTTP/1.1 404 No Found")

    def test_what_fails_is_for_the_log(self):
        pages = {"global.asa": "<script language=vbscript runat=server>\nSub Session_OnStart\n"
                               "x = 1 / 0\nEnd Sub\n</script>",
                 "p.asp": "fine"}
        with Server(pages, self.SETTINGS) as server:
            self.assertEqual(Browser(server).get("/p.asp"), "fine")
            server.stop()
            self.assertRegex(server.log_text(), "global.asa, Session_OnStart: error 11, "
                                                "Division by zero .*global.asa, line 3")


class BothDialects(ServerTest):
    SETTINGS = {"Customary": "1"}
    PAGES = {
        "new.qvs": "<%@ Language=VBScript %><% Application(\"x\") = Application(\"x\") + 1 "
                   ": Session(\"x\") = \"new\" %><%= Application(\"x\") %>",
        "old.qvs": "<% QvS.Application(\"x\") = QvS.Application(\"x\") + 1 %>"
                   "<%= QvS.Application(\"X\") %> <%= Session(\"x\") %>",
    }

    def test_the_application_is_one_and_sessions_are_two(self):
        browser = Browser(self.server)
        self.assertEqual(browser.get("/new.qvs"), "1")
        self.assertEqual(browser.get("/old.qvs"), "2 ")
        self.assertEqual(browser.get("/new.qvs"), "3")
