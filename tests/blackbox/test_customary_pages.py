"""Pages of the customary dialect over raw sockets: heads to the byte, errors, character sets."""

import email.utils
import json
import re
import time
import unittest
import xml.etree.ElementTree

from moved import Visitor, mail_folder, moved_site, upload
from serving import Server, ServerTest

OK = "HTTP/1.1 200 OK"
FOUND = "HTTP/1.1 302 Object moved"
FAILED = "HTTP/1.1 500 Internal Server Error"
NOT_FOUND = "HTTP/1.1 404 Not Found"
SESSION = "QVSITEID"
PICTURE = b"\x89PNG\r\n\x1a\n" + bytes(range(256)) * 3 + b"\r\n--"


def head_of(response):
    """The lines of a head without what differs from run to run."""
    replaced = [(r"^Date: .*GMT$", "Date: D"), (r"^Content-Length: \d+$", "Content-Length: N"),
                (r"^Server: .*$", "Server: S"), (r"QVSITEID=[0-9a-f]{32};", "QVSITEID=ID;")]
    lines = list(response.lines)
    for pattern, text in replaced:
        lines = [re.sub(pattern, text, line) for line in lines]
    return lines


def head(status, *lines):
    return [status, "Content-Length: N", "Server: S", *lines, "Connection: Close", "Date: D"]


def seconds(http_date):
    return email.utils.parsedate_to_datetime(http_date).timestamp()


class MovedSite(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.server = cls.enterClassContext(moved_site())

    def setUp(self):
        self.visitor = Visitor(self.server)

    def log_in(self, **more):
        return self.visitor.post("/account/login.asp",
                                 {"name": "ann", "password": "leaves", **more})

    def test_the_first_page_of_a_visit(self):
        response = self.visitor.get("/")
        expires = response.header("Expires")
        self.assertEqual(seconds(response.header("Date")) - seconds(expires), 60)
        self.assertEqual(head_of(response), head(
            OK, "Content-Type: text/html", "Cache-Control: private", "Expires: " + expires,
            "Pragma: no-cache", "Set-Cookie: QVSITEID=ID; path=/; HttpOnly"))
        self.assertIn(b"<title>Welcome - The Tea Cupboard</title>", response.body)
        again = self.visitor.get("/")
        self.assertIsNone(again.header("Set-Cookie"))
        self.assertIn(b"Page 2 of your visit", again.body)

    def test_logging_in_and_out(self):
        response = self.visitor.get("/account/Members.asp")
        self.assertEqual(head_of(response), head(
            FOUND, "Content-Type: text/html", "Cache-Control: private",
            "Location: login.asp?back=%2Faccount%2FMembers%2Easp",
            "Set-Cookie: QVSITEID=ID; path=/; HttpOnly"))
        self.assertIn(b"wrong", self.visitor.post("/account/login.asp", {"name": "ann"}).body)
        year = time.localtime().tm_year + 1
        response = self.log_in(remember="1", back="/shop/?a=1")
        lines = head_of(response)
        expiry = re.search(r"expires=\w{3}, \d\d \w{3} %d \d\d:\d\d:\d\d GMT" % year, "\n".join(lines))
        self.assertIsNotNone(expiry, lines)
        self.assertEqual(lines, head(
            FOUND, "Content-Type: text/html", "Cache-Control: no-cache", "Location: /shop/?a=1",
            "Set-Cookie: Visitor=Name=ann&Since=2004; " + expiry[0] + "; path=/",
            "Set-Cookie: LastPage=log+in; path=/account; SameSite=Lax"))
        self.assertNotIn(b"never", response.body)
        self.assertIn(b"You may read and write.", self.visitor.get("/account/members.asp").body)

        used = self.visitor.cookies[SESSION]
        response = self.visitor.get("/ACCOUNT/LOGOUT.ASP")
        self.assertEqual(head_of(response), head(
            FOUND, "Content-Type: text/html", "Cache-Control: private", "Location: ../",
            "Set-Cookie: Visitor=; expires=Sat, 01 Jan 2000 00:00:00 GMT; path=/"))
        self.assertIn("Location: login.asp", self.visitor.get("/account/members.asp").head.decode())
        self.assertNotEqual(self.visitor.cookies[SESSION], used)

    def test_the_number_of_a_stranger_is_not_taken(self):
        for number in ("0" * 32, "f" * 32, "", "1", "5000", "x" * 4000):
            response = self.server.get("/", "Cookie: QVSITEID=%s\r\n" % number)
            given = re.search(r"Set-Cookie: QVSITEID=([0-9a-f]{32}); path=/; HttpOnly",
                              response.head.decode())
            self.assertIsNotNone(given, response.head)
            self.assertNotEqual(given[1], number)
            self.assertIn(b"Page 1 of your visit", response.body)

    def test_accented_names_are_those_of_the_code_page(self):
        response = self.visitor.post("/account/login.asp", {"name": "Ren\xe9", "password": "caf\xe9"})
        self.assertEqual(response.status, FOUND)
        self.assertIn("Set-Cookie: Visitor=Name=Ren%E9&Since=2004; path=/", response.lines)
        self.assertIn(b"Hello, Ren&#233;", self.visitor.get("/").body)
        self.visitor.cookies.pop(SESSION)
        self.assertIn(b"Welcome back, Ren&#233;", self.visitor.get("/").body)

    def test_sessions_begin_and_end(self):
        self.visitor.get("/")
        online = int(re.search(rb'"online">(\d+)<', self.visitor.get("/").body)[1])
        other = Visitor(self.server)
        self.assertIn(b'"online">%d<' % (online + 1), other.get("/").body)
        other.get("/account/logout.asp")
        self.assertIn(b'"online">%d<' % online, self.visitor.get("/").body)

    def test_the_basket(self):
        response = self.visitor.post("/shop/basket.asp", {"n_T100": "2", "n_K010": "1", "n_T300": ""})
        self.assertEqual(response.header("Location"), "?")
        self.visitor.post("/shop/basket.asp", {"n_T100": "1"})
        text = self.visitor.get("/Shop/BASKET.asp").text
        self.assertIn("<td>3</td><td>Assam, 250 g</td><td align=right>GBP&nbsp;13.50</td>", text)
        self.assertIn("<td>1</td><td>Kettle &amp; lid</td><td align=right>GBP&nbsp;29.00</td>", text)
        self.assertIn('id="total">GBP&nbsp;42.50</td>', text)
        self.visitor.get("/shop/basket.asp?drop=K010")
        self.assertIn('id="total">GBP&nbsp;13.50</td>', self.visitor.get("/shop/basket.asp").text)
        self.assertIn("nothing in it", Visitor(self.server).get("/shop/basket.asp").text)

    def test_json(self):
        response = self.visitor.get("/API/stock.asp?part=a%22%C3%A9%0A&part=2")
        self.assertEqual(head_of(response), head(
            OK, "Content-Type: application/json; charset=utf-8", "Cache-Control: private",
            "Access-Control-Allow-Origin: *"))
        answer = json.loads(response.body.decode("utf-8"))
        self.assertEqual(answer["goods"][1],
                         {"code": "T200", "name": "Darjeeling, 100 g", "price": 6.25})
        self.assertEqual(answer["note"],
                         "fresh \u2013 \u201c\u4eca\u65e5\u201d f\u00fcr Ren\u00e9")
        self.assertEqual(answer["part"], 'a"\u00e9\n, 2')

    def test_the_feed(self):
        response = self.visitor.get("/news/feed.asp")
        self.assertEqual(head_of(response)[3:6], [
            "Content-Type: text/xml; charset=utf-8", "Cache-Control: private",
            "Expires: " + response.header("Expires")])
        self.assertEqual(response.header("Expires")[5:16], "24 Dec 2030")
        feed = xml.etree.ElementTree.fromstring(response.body.decode("utf-8"))
        self.assertEqual(feed.findtext("channel/title"),
                         "Tea news \u2013 Neuigkeiten f\u00fcr Teetrinker")
        self.assertEqual(feed.findtext("channel/description"), "\u8336")
        self.assertEqual([item.findtext("pubDate") for item in feed.iter("item")],
                         ["Mon, 02 Mar 2009 10:30:00 +0000", "Sat, 14 Feb 2009 09:00:00 +0000"])
        self.assertEqual(feed.findtext("channel/item/description"), "Gr\u00fcn & wei\u00df")

    def test_russian(self):
        response = self.visitor.get("/cyrillic.asp?q=%F7%E0%E9")
        self.assertEqual(response.header("Content-Type"), "text/html; charset=windows-1251")
        text = response.body.decode("cp1251")
        self.assertIn('<p id="tea">\u0427\u0430\u0439 \u0438 \u0441\u0430\u043c\u043e\u0432\u0430\u04403</p>', text)
        self.assertIn("02.03.2009 \u041c\u0430\u0440\u0442 1,5".lower(), text.lower())

    def test_the_calendar(self):
        text = self.visitor.get("/calendar.asp?y=2008&m=2").text
        self.assertIn("<h1>February 2008</h1>", text)
        self.assertIn("<tr><td></td><td></td><td></td><td></td><td>1</td><td>2</td><td>3</td></tr>",
                      text)
        self.assertIn("<td>28</td><td>29</td><td></td><td></td></tr>", text)
        self.assertIn("?y=2007&amp;m=12", self.visitor.get("/calendar.asp?y=2008&m=1").text)

    def test_guests(self):
        self.assertIn("No guests yet", self.visitor.get("/guests.asp").text)
        for name, town in (("Ren\xe9", ""), ("<Bob>", "York"), ("O'Neil", "Cork"), ("Zo\xeb", "Ulm")):
            response = self.visitor.post("/guests.asp", {"name": name, "town": town})
            self.assertEqual(response.header("Location"), "/guests.asp")
        text = self.visitor.get("/Guests.asp").text
        self.assertIn("<tr><td>4</td><td>Zo&#235;</td><td>Ulm</td>\n<td>3</td></tr>", text)
        self.assertIn("&lt;Bob&gt;", text)
        self.assertNotIn("Ren", text)
        last = self.visitor.get("/guests.asp?page=9").text
        self.assertIn("<td>Ren&#233;</td><td></td>\n<td>nowhere</td>", last)
        self.assertIn("<b>2</b>  (4)", last)
        self.assertEqual(self.visitor.get("/data/guests.mdb").status, NOT_FOUND)

    def test_a_mail_form(self):
        form = {"from": "no address", "subject": "Tea", "text": "short", "send": "Send"}
        text = self.visitor.post("/contact.asp", form).text
        self.assertIn("<li>The address is none</li><li>Please write a little more</li>", text)
        self.assertIn('value="no address"', text)
        self.assertEqual(list(mail_folder(self.server).iterdir()), [])
        form.update({"from": "ann@x.example", "text": "How strong is Assam?"})
        text = self.visitor.post("/contact.asp", [*form.items(), ("topic", "black"),
                                                  ("topic", "green")]).text
        self.assertIn("Thank you, ann@x.example, about 2 topics.", text)
        mails = list(mail_folder(self.server).iterdir())
        self.assertEqual(len(mails), 1)
        self.assertIn(b"Subject: Tea: Tea", mails[0].read_bytes())
        self.assertIn(b"black/green", mails[0].read_bytes())

    def test_a_survey(self):
        response = self.visitor.post("/survey.asp", [("tea", "Green"), ("tea", "Black")])
        self.assertEqual(response.header("Location"), "survey.asp?done=Green%2C+Black")
        self.assertNotIn(b"never", response.body)
        text = self.visitor.get("/survey.asp?done=Green%2C+Black").text
        self.assertIn("Counted: Green, Black", text)
        self.assertIn("1 green, 1 black", text)

    def test_an_upload(self):
        body, kind = upload({"title": "A pot"}, "C:\\My pictures\\Pot.png", PICTURE)
        text = self.visitor.post_bytes("/upload.asp", body, kind).text
        self.assertIn("A pot: %d bytes, first 137" % len(PICTURE), text)
        self.assertIn('<img src="Uploads/picture.png" alt="%d">' % len(PICTURE), text)
        sent = self.visitor.get("/uploads/Picture.png")
        self.assertEqual((sent.header("Content-Type"), sent.body), ("image/png", PICTURE))
        body, kind = upload({"title": "x"}, "page.asp", b"<% bad %>")
        self.assertIn("No picture: page.asp", self.visitor.post_bytes("/upload.asp", body, kind).text)
        self.assertFalse((self.server.root / "Uploads/picture.asp").exists())

    def test_a_download(self):
        response = self.visitor.get("/download.asp")
        self.assertEqual(head_of(response)[3:6], [
            "Content-Type: application/octet-stream", "Cache-Control: private",
            'Content-Disposition: attachment; filename="prices.csv"'])
        self.assertEqual(sum(line.startswith("Content-Length") for line in response.lines), 1)
        self.assertEqual(response.body, b"Caf\xe9;1\r\nTee;2\r\n!")

    def test_what_goes_out_as_it_is_written(self):
        response = self.visitor.get("/slow.asp")
        self.assertEqual(head_of(response), [
            OK, "Server: S", "Content-Type: text/html", "Cache-Control: private",
            "Set-Cookie: QVSITEID=ID; path=/; HttpOnly", "Connection: Close", "Date: D"])
        self.assertTrue(response.body.endswith(b'<p id="end">done</p></body></html>\n'))

    def test_rewritten_addresses(self):
        text = self.visitor.get("/products/t200/darjeeling?x=1").text
        self.assertIn("T200: GBP&nbsp;6.25", text)
        self.assertIn("Prices of Monday, March 2, 2009, for T200", text)
        self.assertEqual(self.visitor.get("/Products/none").status, NOT_FOUND)
        response = self.visitor.get("/tea/T100")
        self.assertEqual(head_of(response), head(
            "HTTP/1.1 301 Moved Permanently", "Content-Type: text/html", "Cache-Control: private",
            "Location: /products/T100"))
        response = self.visitor.get("/gone/<b>.htm")
        self.assertEqual(response.status, NOT_FOUND)
        self.assertIn("There is no <i>/gone/&lt;b&gt;.htm</i> here.", response.text)

    def test_what_is_never_served(self):
        for target in ("/global.asa", "/Global.ASA", "/includes/top.inc", "/account/GUARD.inc",
                       "/global%2easa", "/shop/..%2fglobal.asa", "/includes/lib/settings.inc."):
            response = self.visitor.get(target)
            self.assertEqual(response.status, NOT_FOUND, target)
            self.assertNotIn(b"Application_OnStart", response.body)
            self.assertNotIn(b"Function", response.body)

    def test_a_page_that_fails(self):
        response = self.visitor.get("/errors/break.asp")
        self.assertEqual(head_of(response), head(
            FAILED, "Content-Type: text/html", "Cache-Control: private",
            "Set-Cookie: QVSITEID=ID; path=/; HttpOnly"))
        self.assertNotIn(b"not seen", response.body)
        self.assertIn(b"Division by zero", response.body)
        self.assertIn(b">second.inc, line 3<", response.body)
        self.assertIn(b">11 Microsoft VBScript runtime error<", response.body)
        self.assertIn(b"<p>1</p>", self.visitor.get("/errors/break.asp?n=1").body)

    def test_one_connection_for_many_pages(self):
        with self.server.connect() as client:
            for target in ("/calendar.asp", "/errors/break.asp", "/account/members.asp", "/about/",
                           "/products/t100", "/api/stock.asp"):
                client.send("HEAD %s HTTP/1.1\r\nHost: x\r\n\r\n" % target)
                length = client.receive(with_body=False).header("Content-Length")
                client.send("GET %s HTTP/1.1\r\nHost: x\r\n\r\n" % target)
                response = client.receive()
                self.assertEqual(response.header("Content-Length"), length, target)
                self.assertEqual(len(response.body), int(length))


ERRORS = {
    "outer.asp": "<html>\n<!--#include virtual=\"/parts/Functions.inc\"-->\n<% DoIt %>\n",
    "parts/functions.inc": b"\xef\xbb\xbf<!-- first -->\r\n<!--#include file=\"deep/inner.inc\" -->",
    "parts/deep/inner.inc": b"\xef\xbb\xbf<%\n' comment\nSub DoIt\n  x = 1 / 0 ' caf\xc3\xa9 <b>\nEnd Sub\n%>",
    "syntax.asp": "one\n<!--#include file=\"parts/bad.inc\"-->",
    "parts/bad.inc": "<p>\n</p>\n  <% If x Then y = = 2 %>",
    "missing.asp": "<% a = 1 %>\n\n  <!--#include file=\"parts/none.inc\"-->",
    "circle.asp": "<!--#include file=\"parts/circle.inc\"-->",
    "parts/circle.inc": "\n<!--#include virtual=\"/Circle.asp\"-->",
    "raise.asp": "<%\nErr.Raise vbObjectError + 7, \"Shop\", \"<i>none</i>\"\n%>",
    "calls.asp": "written<% Server.Execute \"/syntax.asp\" %>",
    "other.asp": "<%@ Language=\"PerlScript\" %>\n<% var x = 1; %>",
    "block.asp": "text\n<script language=\"PerlScript\" runat=\"server\">var x = 1;</script>",
    "open.asp": "one\n<% x = 1\n",
    "late.asp": "<% Response.Write \"early\" : Response.Flush : x = 1 / 0 %>",
    "name.asp": "<% Option Explicit %>\n<%= unheard %>",
    "create.asp": "<% Set x = Server.CreateObject(\"No.Such\") %>",
    "caught.asp": "<% On Error Resume Next : x = 1 / 0 : Response.Write Err.Number %>",
}


class ErrorsInDetail(ServerTest):
    SETTINGS = {"Customary": "2", "ErrorDetail": "1"}
    PAGES = ERRORS

    def failure(self, target):
        response = self.server.get(target)
        self.assertEqual(response.status, FAILED, target)
        return response.text

    def test_an_error_in_an_include_of_an_include(self):
        self.assertEqual(self.failure("/outer.asp"), (
            "<html><head><title>Error</title></head><body><h1>An error occurred</h1>"
            "<p>Microsoft VBScript runtime error '800a000b' (11)</p><p><b>Division by zero</b></p>"
            "<p>/parts/deep/inner.inc, line 4, column 3</p>"
            "<pre>  x = 1 / 0 ' caf&#233; &lt;b&gt;</pre></body></html>"))

    def test_a_fault_of_syntax(self):
        page = self.failure("/syntax.asp")
        self.assertRegex(page, r"<p>/parts/bad\.inc, line 3, column 20</p>")
        self.assertIn("y = = 2", page)

    def test_includes_that_fail(self):
        page = self.failure("/missing.asp")
        self.assertIn("Include file not found 'parts/none.inc'", page)
        self.assertIn("<p>/missing.asp, line 3, column 3</p>", page)
        page = self.failure("/circle.asp")
        self.assertIn("'/Circle.asp' includes itself", page)
        self.assertIn("<p>/parts/circle.inc, line 2, column 1</p>", page)

    def test_errors_of_pages_and_components(self):
        page = self.failure("/raise.asp")
        self.assertIn("Shop '80040007' (-2147221497)", page)
        self.assertIn("&lt;i&gt;none&lt;/i&gt;", page)
        self.assertIn("(429)", self.failure("/create.asp"))
        self.assertIn("(500)", self.failure("/name.asp"))
        self.assertIn("/name.asp, line 2", self.failure("/name.asp"))
        self.assertEqual(self.server.get("/caught.asp").text, "11")

    def test_an_error_of_an_executed_page(self):
        page = self.failure("/calls.asp")
        self.assertIn("<p>/parts/bad.inc, line 3", page)
        self.assertNotIn("written", page)

    def test_other_languages_say_so(self):
        self.assertIn("Pages in 'PerlScript' do not run here", self.failure("/other.asp"))
        page = self.failure("/block.asp")
        self.assertIn("Scripts in 'PerlScript' do not run here", page)
        self.assertIn("/block.asp, line 2", page)

    def test_a_block_without_an_end(self):
        self.assertIn("/open.asp, line 2, column 1", self.failure("/open.asp"))

    def test_an_error_behind_a_flush_ends_what_was_sent(self):
        response = self.server.get("/late.asp")
        self.assertEqual(response.status, OK)
        self.assertTrue(response.text.startswith("early"))
        self.assertIn("(11)", response.text)


class ErrorsInBrief(ServerTest):
    SETTINGS = {"Customary": "2"}
    PAGES = ERRORS
    BODY = b"<html><head><title>Error</title></head><body><h1>An error occurred</h1></body></html>"

    def test_clients_see_nothing(self):
        for target in ("/outer.asp", "/syntax.asp", "/missing.asp", "/circle.asp", "/raise.asp",
                       "/calls.asp", "/other.asp", "/open.asp"):
            response = self.server.get(target)
            self.assertEqual((response.status, response.body), (FAILED, self.BODY), target)
        self.assertEqual(self.server.get("/late.asp").body, b"early" + self.BODY)

    def test_the_log_has_it_all(self):
        with Server(ERRORS, self.SETTINGS) as server:
            for target in ("/outer.asp", "/missing.asp", "/late.asp"):
                server.get(target)
            server.stop()
            log = server.log_text()
        self.assertRegex(log, "Page error: Microsoft VBScript runtime error '800a000b': Division by"
                         r" zero \(/parts/deep/inner\.inc, line 4, column 3\):   x = 1 / 0")
        self.assertRegex(log, r"Include file not found 'parts/none\.inc' \(/missing\.asp, line 3")
        self.assertIn("(/late.asp, line 1", log)


class ErrorPages(unittest.TestCase):
    def test_an_error_page_that_fails_itself(self):
        pages = {**ERRORS, "failed.asp": "<html>mine<% x = 1 / 0 %>",
                 "errors/missing.asp": "<% x = CInt(\"y\") %>"}
        settings = {"Customary": "2", "ErrorPage": "/failed.asp", "NotFoundPage": "/errors/missing.asp"}
        with Server(pages, settings) as server:
            for target in ("/raise.asp", "/failed.asp", "/none"):
                response = server.get(target)
                self.assertEqual((response.status, response.body), (FAILED, ErrorsInBrief.BODY), target)

    def test_all_that_an_error_page_learns(self):
        page = ("<% Set e = Server.GetLastError : Response.ContentType = \"text/plain\"\n"
                "Response.Write Join(Array(e.Number, e.Category, e.Description, e.Line, e.Column,"
                " e.Source, e.ASPCode, e.ASPDescription, Mid(e.File, InStrRev(Replace(e.File, \"\\\", \"/\"), \"/\"))), \"|\")\n"
                "Response.Write \"|\" & Request.QueryString(\"a\") & \"|\" & Session(\"b\") %>")
        pages = {"failed.asp": page, "x.asp": "<% Session(\"b\") = 5\n a = b(1) %>"}
        with Server(pages, {"Customary": "2", "ErrorPage": "/failed.asp"}) as server:
            response = server.get("/x.asp?a=7")
            self.assertEqual(response.header("Content-Type"), "text/plain")
            self.assertEqual(response.status, FAILED)
            self.assertRegex(response.text, r"^13\|Microsoft VBScript runtime error\|Type mismatch[^|]*"
                             r"\|2\|-?\d+\| a = b\(1\) %>\|[^|]*\|[^|]*\|[/\\]x\.asp\|7\|5$")


class CharacterSets(ServerTest):
    SETTINGS = {"Customary": "2", "PageCodePage": "936", "ErrorDetail": "1"}
    PAGES = {
        "plain.asp": "\u8336<%= Len(\"\u8336\u9986\") & \"\u58f6\" & AscW(\"\u8336\") %>".encode("gbk"),
        "form.asp": b"<%= Len(Request.Form(\"n\")) & Request.Form(\"n\") & Request(\"q\") %>",
        "mark.asp": b"\xef\xbb\xbf" + "\u8336<%= \"\u20ac\u3042\" %>".encode(),
        "mixed.asp": b"<!--#include file=\"mark.inc\"-->" + "<%= Tea & \"\u9986\" %>\u8336".encode("gbk"),
        "mark.inc": b"\xef\xbb\xbf" + "<% Const Tea = \"\u8336\" %>\u4e0a".encode(),
        "wide.asp": "\ufeff<%= \"\u8336\" & Len(\"\u8336\") %>\u9986".encode("utf-16-le"),
        "switch.asp": "<% Response.CodePage = 65001 : Response.Charset = \"utf-8\" %>\u8336<%= \"\u9986\" %>"
                      .encode("gbk"),
        "russian.asp": "<%@ CodePage = \"1251\" %>\u0427<%= UCase(\"\u0430\u0439\") & \"\u8336\" %>"
                       .encode("cp1251", "replace"),
        "unknown.asp": b"<%@ CodePage=4711 %>x",
        "hebrew.asp": "<%@ CodePage=1255 %>\u05ea\u05d4<%= \"\u05e9\u05dc\" & Len(\"\u05e9\u05dc\") %>"
                      .encode("cp1255"),
        "jis.asp": ("<%@ CodePage=50220 %>\u30bf\u30be<%= \"\u30be\u4e00\" & Len(\"\u30be\u4e00\") "
                    "& Request.Form(\"n\") & Len(Request.Form(\"n\")) %>\n\u4e0a").encode("iso-2022-jp"),
        "sites.asp": "<%@ CodePage=0 %><%= Len(\"\u8336\") & Response.CodePage %>".encode("gbk"),
        "latin.asp": b"<%@CodePage=1252%>\x80<%= AscW(\"\x80\") %>",
        "session.asp": b"<% If Request(\"cp\") <> \"\" Then Session.CodePage = Request(\"cp\")\n"
                       b"Response.Write ChrW(1095) & Response.CodePage %>",
    }

    def body(self, target, charset):
        return self.server.get(target).body.decode(charset)

    def test_the_site_has_a_code_page(self):
        self.assertEqual(self.body("/plain.asp", "gbk"), "\u83362\u58f6" + str(0x8336 - 0x10000))
        response = self.server.get("/plain.asp")
        self.assertEqual(response.header("Content-Type"), "text/html")

    def test_what_comes_with_a_request(self):
        visitor = Visitor(self.server)
        response = visitor.post("/form.asp?q=%B9%DD", {"n": "\u8336\u9986"}, "gbk")
        self.assertEqual(response.body.decode("gbk"), "2\u8336\u9986\u9986")

    def test_escapes_choose_the_letters(self):
        response = Visitor(self.server).post("/jis.asp", {"n": "\u8336\u3042 %"}, "iso-2022-jp")
        self.assertEqual(response.body.decode("iso-2022-jp"),
                         "\u30bf\u30be\u30be\u4e002\u8336\u3042 %4\n\u4e0a")

    def test_marks(self):
        self.assertEqual(self.body("/mark.asp", "utf-8"), "\u8336\u20ac\u3042")
        self.assertEqual(self.server.get("/mark.asp").header("Content-Type"),
                         "text/html; charset=utf-8")
        self.assertEqual(self.body("/mixed.asp", "gbk"), "\u4e0a\u8336\u9986\u8336")
        self.assertEqual(self.body("/wide.asp", "gbk"), "\u83361\u9986")

    def test_the_page_chooses(self):
        self.assertEqual(self.body("/switch.asp", "utf-8"), "\u8336\u9986")
        self.assertEqual(self.body("/russian.asp", "cp1251"), "\u0427\u0410\u0419?")
        self.assertEqual(self.server.get("/latin.asp").body, b"\x808364")
        self.assertEqual(self.body("/hebrew.asp", "cp1255"), "\u05ea\u05d4\u05e9\u05dc2")
        self.assertEqual(self.body("/sites.asp", "gbk"), "1936")
        self.assertIn("Code page 4711 is not known", self.server.get("/unknown.asp").text)

    def test_the_session_chooses(self):
        visitor = Visitor(self.server)
        self.assertEqual(visitor.get("/session.asp").body, "\u0447936".encode("gbk"))
        self.assertEqual(visitor.get("/session.asp?cp=1251").body, "\u04471251".encode("cp1251"))
        self.assertEqual(visitor.get("/session.asp").body, "\u04471251".encode("cp1251"))


class BothDialects(ServerTest):
    SETTINGS = {"Customary": "1", "ErrorDetail": "1"}
    COUNT = ("<% Application(\"n\") = Application(\"n\") + 1\n"
             "Session(\"x\") = Session(\"x\") & \"own\" %>")
    SHOW = "<%= Application(\"n\") & Session(\"x\") & TypeName(Session(\"none\")) %>"
    PAGES = {
        "index.qvs": COUNT + SHOW,
        "theirs.qvs": "<%@ Language=VBScript %>" + COUNT.replace("own", "theirs") + SHOW,
        "marked.qvs": b"\xef\xbb\xbf<%\r\n @ CodePage=65001 %>\xc3\xa9<%= Len(\"\xc3\xa9\") %>",
        "later.qvs": " <%@ Language=VBScript %><%= 1 %>",
        "away.qvs": "<%@ Language=VBScript %><% Response.Redirect \"theirs.qvs\" %>",
        "stay.qvs": "<% Response.Redirect \"theirs.qvs\" %>",
        "runs.qvs": "<%@ Language=VBScript %><% Server.Execute \"part.qvs\" %>",
        "part.qvs": "<script runat=server language=vbscript>Response.Write 5</script>",
        "theirs.asp": "<%@ Language=VBScript %>x",
        "global.asa": "<script language=vbscript runat=server>\nSub Session_OnStart\n"
                      "Session(\"x\") = \"begun \"\nEnd Sub\n</script>",
        "parts/x.inc": "<% secret %>",
    }

    def test_one_root_two_dialects(self):
        visitor = Visitor(self.server)
        own = self.server.get_with_session("/")
        visitor.cookies["QVS_SESSIONID"] = own[1]
        self.assertEqual(own[0].text, "1ownString")
        theirs = visitor.get("/theirs.qvs")
        self.assertEqual(theirs.text, "2begun theirsEmpty")
        self.assertEqual([line.split("=")[0] for line in theirs.lines if "Cookie" in line],
                         ["Set-Cookie: QVSITEID"])
        self.assertEqual(visitor.get("/").text, "3ownownString")
        self.assertEqual(visitor.get("/theirs.qvs").text, "4begun theirstheirsEmpty")

    def test_a_directive_at_the_beginning_decides(self):
        self.assertEqual(self.server.get("/marked.qvs").body, b"\xc3\xa91")
        self.assertNotIn("QVSITEID", self.server.get("/later.qvs").head.decode())
        self.assertEqual(self.server.get("/runs.qvs").text, "5")

    def test_redirects_are_each_dialects_own(self):
        away = self.server.get("/away.qvs")
        self.assertEqual((away.status, away.header("Location")), (FOUND, "theirs.qvs"))
        stay = self.server.get("/stay.qvs")
        self.assertEqual(stay.status, OK)
        self.assertIn("begun theirs", stay.text)

    def test_addresses_are_the_servers_own(self):
        for target in ("/theirs.asp", "/global.asa", "/parts/x.inc"):
            response = self.server.get(target)
            self.assertEqual(response.status, "HTTP/1.1 404 No Found", target)
            self.assertNotIn(b"secret", response.body)

    def test_without_the_setting(self):
        with Server({"theirs.qvs": "<%@ Language=VBScript %>x<%= 1 %>"}) as server:
            self.assertNotIn("QVSITEID", server.get("/theirs.qvs").head.decode())
