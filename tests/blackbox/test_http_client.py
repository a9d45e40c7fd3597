"""Requests that scripts make of other servers, and documents that they load from there."""

import base64
import http.server
import pathlib
import tempfile
import threading
import time
import unittest
import urllib.parse

import programs
from serving import PATIENCE, Server

SLOW = 3  # seconds
XML = b'<?xml version="1.0" encoding="windows-1252"?><r><i>\xe4</i></r>'


class Handler(http.server.BaseHTTPRequestHandler):
    """What a path asks for."""

    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def answer(self, body, kind="text/plain", status=200, extra=()):
        self.send_response(status)
        for name, value in extra:
            self.send_header(name, value)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        if self.command != "HEAD":
            self.wfile.write(body)

    def do_any(self):
        path = urllib.parse.urlsplit(self.path).path
        length = int(self.headers.get("Content-Length") or 0)
        body = self.rfile.read(length)
        if path == "/echo":
            heads = "".join("%s: %s\n" % item for item in self.headers.items())
            self.answer(("%s %s\n%s\n" % (self.command, self.path, heads)).encode() + body)
        elif path == "/utf8":
            self.answer("ä€".encode(), "text/html; charset=utf-8")
        elif path == "/unsaid":
            self.answer(b"\xe4 plain")
        elif path == "/latin2":
            self.answer(b"\xe8", 'text/plain; charset="ISO-8859-2"')
        elif path == "/gbk":
            self.answer("中文".encode("gbk"), "text/html;charset=GB2312")
        elif path == "/wide":
            self.answer("ä中".encode("utf-16"))
        elif path == "/bytes":
            self.answer(bytes(range(256)), "application/octet-stream")
        elif path == "/xml":
            self.answer(XML, "text/xml", extra=[("X-One", "1"), ("X-One", "2")])
        elif path == "/missing":
            self.answer(b"gone", status=404)
        elif path == "/redirect":
            self.answer(b"", status=302, extra=[("Location", "/utf8")])
        elif path == "/loop":
            self.answer(b"", status=302, extra=[("Location", "/loop")])
        elif path == "/file":
            self.answer(b"", status=302, extra=[("Location", "file:///etc/passwd")])
        elif path == "/own":
            self.answer(b"", status=302, extra=[("Location", self.server.target)])
        elif path == "/slow":
            time.sleep(SLOW)
            self.answer(b"late")
        elif path == "/close":
            self.close_connection = True
        elif path == "/endless":
            self.send_response(200)
            self.end_headers()
            self.close_connection = True
            try:
                while True:
                    self.wfile.write(b"x" * 65536)
            except OSError:
                pass
        elif path == "/private":
            wanted = "Basic " + base64.b64encode(b"me:secret").decode()
            if self.headers.get("Authorization") == wanted:
                self.answer(b"welcome")
            else:
                self.answer(b"who?", status=401, extra=[("WWW-Authenticate", 'Basic realm="r"')])
        else:
            self.answer(b"hello")

    do_GET = do_POST = do_PUT = do_HEAD = do_DELETE = do_any


class Peer(http.server.ThreadingHTTPServer):
    """The other server."""

    daemon_threads = True
    target = "/utf8"

    def __init__(self):
        super().__init__(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, *_):
        """Clients that have gone are part of the game."""

    @property
    def url(self):
        return "http://127.0.0.1:%d" % self.server_address[1]


class HttpClient(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.peer = Peer()
        cls.addClassCleanup(cls.peer.server_close)
        cls.addClassCleanup(cls.peer.shutdown)
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)

    def run_script(self, source):
        path = pathlib.Path(self.folder.name) / "test.vbs"
        prelude = ('url = "%s"\nFunction Made(name)\nSet Made = CreateObject(name)\nEnd Function\n'
                   'Sub Failed\nWScript.Echo Err.Number, Err.Source, Err.Description\nErr.Clear\n'
                   "End Sub\n" % self.peer.url)
        path.write_bytes((prelude + source).encode("latin-1"))
        return programs.run("qvscript", path, capture_output=True, timeout=PATIENCE * 3)

    def check(self, source, *lines):
        result = self.run_script(source)
        self.assertEqual(result.stderr, b"")
        self.assertEqual(result.stdout.decode("latin-1").splitlines(), list(lines))

    def test_all_names(self):
        names = ["MSXML2.XMLHTTP", "Microsoft.XMLHTTP", "MSXML2.XMLHTTP.3.0", "MSXML2.XMLHTTP.6.0",
                 "MSXML2.ServerXMLHTTP", "MSXML2.ServerXMLHTTP.3.0", "MSXML2.ServerXMLHTTP.6.0",
                 "WinHttp.WinHttpRequest.5.1", "WinHttp.WinHttpRequest.5"]
        self.check("For Each name In Array(\"%s\")\n" % '","'.join(names) +
                   'Set h = Made(name)\nh.Open "GET", url & "/", False\nh.Send\n'
                   "WScript.Echo h.Status, h.StatusText, h.ResponseText, TypeName(h)\nNext",
                   *["200 OK hello IXMLHTTPRequest"] * 4,
                   *["200 OK hello IServerXMLHTTPRequest2"] * 3,
                   *["200 OK hello IWinHttpRequest"] * 2)

    def test_post(self):
        result = self.run_script(
            'Set h = Made("MSXML2.ServerXMLHTTP")\nh.open "POST", url & "/echo?q=a b", False\n'
            'h.setRequestHeader "Content-Type", "application/x-www-form-urlencoded"\n'
            'h.setRequestHeader "X-Twice", "1"\nh.setRequestHeader "x-twice", "2"\n'
            'h.setRequestHeader "Content-Length", 99\nh.setRequestHeader "Empty", ""\n'
            'h.send "a=1&b=" & ChrW(228)\nWScript.Echo h.responseText')
        lines = result.stdout.decode("latin-1").splitlines()
        self.assertEqual(lines[0], "POST /echo?q=a%20b")
        self.assertEqual(lines[-1], "a=1&b=\xe4")
        for wanted in ["Content-Type: application/x-www-form-urlencoded", "X-Twice: 2",
                       "Content-Length: 8", "Empty: "]:
            self.assertIn(wanted, lines)
        self.assertFalse([line for line in lines if line.startswith("Expect")])

    def test_bodies_of_all_kinds(self):
        self.check('Set d = Made("MSXML2.DOMDocument")\nd.loadXML "<a><b/></a>"\n'
                   "Sub Post(body)\n"
                   'Set h = Made("MSXML2.XMLHTTP")\nh.open "POST", url & "/echo", False\nh.send body\n'
                   'text = Replace(h.responseText, vbCrLf, "|")\n'
                   'WScript.Echo InStr(text, "Content-Type: text/xml") > 0, '
                   'Split(text, vbLf & vbLf)(1)\nEnd Sub\n'
                   "Post d\nPost Null\nPost Empty\n"
                   'Set e = d.createElement("x")\ne.dataType = "bin.hex"\ne.text = "4142"\n'
                   "Post e.nodeTypedValue\nPost 5\n"
                   'Set h = Made("MSXML2.XMLHTTP")\nh.open "PUT", url & "/echo", False\nh.send "x"\n'
                   "WScript.Echo Split(h.responseText, vbLf)(0)\n"
                   'h.open "DELETE", url & "/echo", False\nh.send\n'
                   "WScript.Echo Split(h.responseText, vbLf)(0)\n"
                   'h.open "head", url & "/utf8", False\nh.send\n'
                   'WScript.Echo h.status, h.getResponseHeader("Content-Length"), '
                   'Len(h.responseText)\n',
                   "True <a><b/></a>|", "False ", "False ", "False AB", "False 5",
                   "PUT /echo", "DELETE /echo", "200 5 0")

    def test_texts_in_their_encodings(self):
        self.check('Set h = Made("MSXML2.ServerXMLHTTP")\n'
                   'For Each path In Array("utf8", "unsaid", "latin2", "gbk", "wide")\n'
                   'h.open "GET", url & "/" & path, False\nh.send\nline = path\n'
                   "For i = 1 To Len(h.responseText)\n"
                   'line = line & " " & AscW(Mid(h.responseText, i))\nNext\nWScript.Echo line\nNext',
                   "utf8 228 8364", "unsaid 228 32 112 108 97 105 110", "latin2 269",
                   "gbk 20013 25991", "wide 228 20013")

    def test_bytes(self):
        self.check('Set h = Made("MSXML2.ServerXMLHTTP")\nh.open "GET", url & "/bytes", False\n'
                   "h.send\nb = h.responseBody\nWScript.Echo TypeName(b), UBound(b), b(200)",
                   "Byte() 255 200")

    def test_documents(self):
        self.check('Set h = Made("MSXML2.XMLHTTP")\nh.open "GET", url & "/xml", False\nh.send\n'
                   "WScript.Echo h.responseXML.documentElement.text, "
                   "h.responseXML Is h.responseXML, h.responseXML.parseError\n"
                   'h.open "GET", url & "/utf8", False\nh.send\n'
                   "WScript.Echo h.responseXML.documentElement Is Nothing, "
                   "h.responseXML.parseError.errorCode <> 0\n"
                   'Set d = Made("Microsoft.XMLDOM")\nd.async = False\n'
                   'WScript.Echo d.load(url & "/xml"), d.documentElement.text, d.url = url & "/xml"\n'
                   'WScript.Echo d.load(url & "/missing"), d.parseError.errorCode\n'
                   'WScript.Echo d.load("http://127.0.0.1:1/"), d.parseError.errorCode\n',
                   "\xe4 True 0", "True True", "True \xe4 True", "False -2146697210",
                   "False -2146697211")

    def test_headers_of_the_answer(self):
        self.check('Set h = Made("MSXML2.ServerXMLHTTP")\nh.open "GET", url & "/xml", False\n'
                   'h.send\nWScript.Echo h.getResponseHeader("content-TYPE"), '
                   'h.getResponseHeader("X-One"), "[" & h.getResponseHeader("None") & "]"\n'
                   'all = h.getAllResponseHeaders\n'
                   'WScript.Echo InStr(all, "Content-Type: text/xml" & vbCrLf) > 0, '
                   'Right(all, 4) = vbCrLf & vbCrLf, InStr(all, "HTTP/1")\n'
                   'Set w = Made("WinHttp.WinHttpRequest.5.1")\nw.Open "GET", url & "/"\nw.Send\n'
                   'On Error Resume Next\nw.GetResponseHeader "None"\nFailed',
                   "text/xml 1, 2 []", "True True 0",
                   "-2147012746 WinHttp.WinHttpRequest The requested header was not found")

    def test_status_and_redirections(self):
        self.check('Set h = Made("WinHttp.WinHttpRequest.5.1")\n'
                   'h.Open "GET", url & "/missing"\nh.Send\n'
                   "WScript.Echo h.Status, h.StatusText, h.ResponseText\n"
                   'h.Open "GET", url & "/redirect"\nh.Send\n'
                   'WScript.Echo h.Status, h.Option(1) = url & "/utf8"\n'
                   'h.Option(6) = False\nh.Open "GET", url & "/redirect"\nh.Send\n'
                   'WScript.Echo h.Status, h.GetResponseHeader("Location")\n'
                   'h.Option(6) = True\nOn Error Resume Next\n'
                   'h.Open "GET", url & "/loop"\nh.Send\nFailed\n'
                   'h.Open "GET", url & "/file"\nh.Send\nFailed\n',
                   "404 Not Found gone", "200 True", "302 /utf8",
                   "-2147012740 WinHttp.WinHttpRequest The HTTP redirect request failed",
                   "-2147012890 WinHttp.WinHttpRequest The URL does not use a recognized protocol")

    def test_logins_and_agents(self):
        self.check('Set h = Made("MSXML2.ServerXMLHTTP")\n'
                   'h.open "GET", url & "/private", False, "me", "secret"\nh.send\n'
                   "WScript.Echo h.status, h.responseText\n"
                   'h.open "GET", url & "/private", False\nh.send\nWScript.Echo h.status\n'
                   'Set w = Made("WinHttp.WinHttpRequest.5.1")\nw.Open "GET", url & "/private"\n'
                   'w.SetCredentials "me", "secret", 0\nw.Send\nWScript.Echo w.ResponseText\n'
                   'w.Option(0) = "agent"\nw.Open "GET", url & "/echo"\nw.Send\n'
                   'WScript.Echo InStr(w.ResponseText, "User-Agent: agent" & vbLf) > 0\n',
                   "200 welcome", "401", "welcome", "True")

    def test_a_proxy(self):
        self.check('Set h = Made("MSXML2.ServerXMLHTTP")\n'
                   'h.setProxy 2, Mid(url, 8), "127.0.0.1;other"\n'
                   'h.open "GET", "http://elsewhere.invalid/echo", False\nh.send\n'
                   'WScript.Echo Split(h.responseText, vbLf)(0)\n'
                   'h.open "GET", url & "/echo", False\nh.send\n'
                   'WScript.Echo Split(h.responseText, vbLf)(0)\n',
                   "GET http://elsewhere.invalid/echo", "GET /echo")

    def test_faults(self):
        self.check('On Error Resume Next\nSet h = Made("MSXML2.ServerXMLHTTP")\n'
                   "Sub Try(address)\nOn Error Resume Next\n"
                   'h.open "GET", address, False\n'
                   'If Err.Number = 0 Then h.send\nFailed\nEnd Sub\n'
                   'Try "http://127.0.0.1:1/"\nTry "http://none.invalid/"\nTry "ftp://127.0.0.1/"\n'
                   'Try "file:///etc/passwd"\nTry "page.asp"\nTry "http://[/"\nTry url & "/close"\n'
                   'h.setTimeouts 1000, 1000, 300, 300\nTry url & "/slow"\n'
                   'Set x = Made("Microsoft.XMLHTTP")\nx.open "GET", "http://127.0.0.1:1/", False\n'
                   "x.send\nFailed\n",
                   "-2147012867 msxml3.dll A connection with the server could not be established",
                   "-2147012889 msxml3.dll The server name or address could not be resolved",
                   "-2147012890 msxml3.dll The URL does not use a recognized protocol",
                   "-2147012890 msxml3.dll The URL does not use a recognized protocol",
                   "-2147012890 msxml3.dll The URL does not use a recognized protocol",
                   "-2147012891 msxml3.dll The URL is invalid",
                   "-2147012866 msxml3.dll The connection with the server was terminated abnormally",
                   "-2147012894 msxml3.dll The operation timed out",
                   "-2146697211 msxml3.dll The system cannot locate the resource specified.")

    def test_calls_in_a_wrong_order(self):
        self.check('On Error Resume Next\nSet h = Made("MSXML2.ServerXMLHTTP")\nh.send\nFailed\n'
                   'h.setRequestHeader "A", "b"\nFailed\nWScript.Echo h.readyState\n'
                   "x = h.status\nFailed\n"
                   'h.open "GET", url, False\nWScript.Echo h.readyState\nx = h.responseText\nFailed\n'
                   'h.open "GE T", url, False\nFailed\n'
                   'h.setRequestHeader "A B", "b"\nFailed\n'
                   'h.setRequestHeader "A", "b" & vbCrLf & "C: d"\nFailed\n'
                   'Set x = Made("MSXML2.XMLHTTP")\nx.setOption 2, 13056\nWScript.Echo Err.Number\n',
                   "-2147467259 msxml3.dll Unspecified error",
                   "-2147467259 msxml3.dll Unspecified error", "0",
                   "-2147483638 msxml3.dll The data necessary to complete this operation is not yet "
                   "available.", "1",
                   "-2147483638 msxml3.dll The data necessary to complete this operation is not yet "
                   "available.",
                   *["-2147024809 msxml3.dll The parameter is incorrect."] * 3, "438")

    def test_at_the_same_time(self):
        started = time.monotonic()
        self.check('Set a = Made("MSXML2.ServerXMLHTTP")\nSet b = Made("WinHttp.WinHttpRequest.5.1")\n'
                   'a.open "GET", url & "/slow", True\na.send\n'
                   'b.Open "GET", url & "/slow", True\nb.Send\n'
                   "WScript.Echo a.readyState, b.WaitForResponse(0.1), a.waitForResponse(0)\n"
                   "Do Until a.readyState = 4\na.waitForResponse 1\nLoop\n"
                   "WScript.Echo b.WaitForResponse\nWScript.Echo a.responseText, b.ResponseText\n"
                   'a.open "GET", url & "/slow", True\na.send\na.abort\nWScript.Echo a.readyState',
                   "1 False False", "True", "late late", "0")
        self.assertLess(time.monotonic() - started, 2 * SLOW)

    def test_a_handler_is_called(self):
        self.check("Sub Changed\nWScript.Echo h.readyState\nEnd Sub\n"
                   'Set h = Made("MSXML2.XMLHTTP")\nh.onreadystatechange = GetRef("Changed")\n'
                   'h.open "GET", url, False\nh.send\nWScript.Echo "done"',
                   "1", "4", "done")


class PagesAsClients(unittest.TestCase):
    PAGE = ('<%% On Error Resume Next\nSet h = CreateObject("%s")\n'
            'h.setTimeouts 5000, 5000, 5000, 5000\n'
            'h.open "GET", "%s", False\nh.send\n'
            'Response.Write Err.Number & " " & Err.Description\n'
            "If Err.Number = 0 Then Response.Write h.responseText %%>")
    OWN = "A page can't request its own server, which runs one page at a time"

    def setUp(self):
        self.peer = Peer()
        self.addCleanup(self.peer.server_close)
        self.addCleanup(self.peer.shutdown)

    def test_other_servers_answer_and_the_own_one_is_refused_at_once(self):
        with Server({"other.qvs": "hello"}) as server:
            own = "http://localhost:%d/other.qvs" % server.port
            self.peer.target = own
            for name in ("MSXML2.ServerXMLHTTP", "WinHttp.WinHttpRequest.5.1"):
                server.put("page.qvs", self.PAGE % (name, self.peer.url + "/"))
                self.assertEqual(server.get("/page.qvs").text, "0 hello")
                for url in (own, own.replace("localhost", "127.0.0.1"), self.peer.url + "/own"):
                    server.put("page.qvs", self.PAGE % (name, url))
                    started = time.monotonic()
                    self.assertEqual(server.get("/page.qvs").text, "-2147467259 " + self.OWN)
                    self.assertLess(time.monotonic() - started, 2)
            server.put("page.qvs", '<%% On Error Resume Next\n'
                       'CreateObject("MSXML2.DOMDocument").load "%s"\n'
                       "Response.Write Err.Description %%>" % own)
            self.assertEqual(server.get("/page.qvs").text, self.OWN)
            self.assertEqual(server.get("/other.qvs").text, "hello")

    def test_a_body_without_end_meets_the_limit_of_memory(self):
        with Server() as server:
            server.put("page.qvs", self.PAGE % ("MSXML2.ServerXMLHTTP", self.peer.url + "/endless"))
            self.assertEqual(server.get("/page.qvs").text, "7 Out of memory")

    def test_a_page_ends_with_its_time(self):
        with Server() as server:
            for url in (self.peer.url + "/slow", self.peer.url + "/endless"):
                server.put("page.qvs", "<% Server.ScriptTimeout = 1 %>" +
                           '<%% Set h = CreateObject("Microsoft.XMLHTTP")\n'
                           'h.open "GET", "%s", False\nh.send\n'
                           'Response.Write "not reached" %%>' % url)
                started = time.monotonic()
                self.assertNotIn("not reached", server.get("/page.qvs").text)
                self.assertLess(time.monotonic() - started, SLOW)
            self.assertIn("404", server.get("/none").status)
