"""Standard HTTP: what RFC 9112 and RFC 9110 ask of an origin server, a row a rule.

Every row is sent over a connection of its own. Each answer is read as a client of the standard reads
it, and looked at as a whole. Where the connection stays, another request has to be answered on it
afterwards, so that nothing of a row is ever taken for a request.
"""

import re
import socket
import time
import unittest
from dataclasses import dataclass, field

from serving import PATIENCE, Server, ServerTest

MOST_LINE = 32 << 10
DATE = re.compile(r"(Mon|Tue|Wed|Thu|Fri|Sat|Sun), \d\d "
                  r"(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) \d{4} \d\d:\d\d:\d\d GMT")
FIELD = re.compile(r"[!#$%&'*+\-.^_`|~0-9A-Za-z]+:[\t -~\x80-\xff]*")
STATUS_LINE = re.compile(r"HTTP/1\.1 [1-5]\d\d [\t -~\x80-\xff]*")

PAGES = {
    "a.txt": b"aaa",
    "b.txt": b"bbbb",
    "a b.txt": b"blank",
    "\u00e9\u20ac.txt": b"accents",
    "sub/c.txt": b"c",
    "large.txt": b"x" * 3_000_000,
    "probe.txt": b"probe",
    "setup.exe": b"never",
    "echo.qvs": '<%= Request.ServerVariables("REQUEST_METHOD") %>|<%= Request.Form("a") %>|'
                '<%= Request.QueryString("q") %>|<%= Request.ServerVariables("CONTENT_LENGTH") %>|'
                '<%= Request.ServerVariables("HTTP_TRANSFER_ENCODING") %>|'
                '<%= Request.ServerVariables("SERVER_NAME") %>|'
                '<%= Request.ServerVariables("HTTP_X") %>',
    "flush.qvs": "one<% Response.Flush %>two<% Response.Flush: Response.Flush %>three",
    "bad.qvs": "<% x = 1 / 0 %>",
    "lines.qvs": '<% Response.AddHeader "Content-Length", "1"\n'
                 'Response.AddHeader "Transfer-Encoding", "chunked"\n'
                 'Response.AddHeader "Connection", "keep"\n'
                 'Response.AddHeader "X Bad", "y"\n'
                 'Response.AddHeader "X-Good", "a" & vbCrLf & "X-Split: b" %>lines',
}


@dataclass
class Row:
    section: str      # of RFC 9112 unless it says otherwise
    rule: str
    request: object   # bytes, or several pieces that arrive one after another
    answers: list     # a status, or a status and a body, for every answer
    closes: bool = False
    head: bool = False        # the requests are HEAD
    lines: dict = field(default_factory=dict)  # of the last answer; None: not there
    quiet: bool = False       # the client ends its side behind the request


def get(target="/a.txt", lines="", version="1.1", method="GET", host="Host: h\r\n"):
    return ("%s %s HTTP/%s\r\n%s%s\r\n" % (method, target, version, host, lines)).encode("latin-1")


def post(body, lines="", target="/echo.qvs", method="POST"):
    form = "Content-Type: application/x-www-form-urlencoded\r\n"
    return get(target, form + lines, method=method) + body


def chunked(body, lines="", target="/echo.qvs", method="POST"):
    return post(body, "Transfer-Encoding: chunked\r\n" + lines, target, method)


def sized(body, lines="", **rest):
    return post(body, "Content-Length: %d\r\n%s" % (len(body), lines), **rest)


SMUGGLED = get("/b.txt")

ROWS = [
    # Messages and lines
    Row("2.2", "an empty line in front of a request is passed over", b"\r\n" + get(), [(200, b"aaa")]),
    Row("2.2", "and so are several", get() + b"\r\n\r\n" + get("/b.txt"),
        [(200, b"aaa"), (200, b"bbbb")]),
    Row("2.2", "a line feed alone ends no line", b"GET /a.txt HTTP/1.1\nHost: h\n\n", [400], True),
    Row("2.2", "not even one line of many", b"GET /a.txt HTTP/1.1\r\nHost: h\nX: y\r\n\r\n", [400], True),
    Row("2.2", "a bare CR in a value is refused", get(lines="X: a\rb\r\n"), [400], True),
    Row("2.2", "a bare CR in the request line is refused", b"GET /a.txt\r HTTP/1.1\r\nHost: h\r\n\r\n",
        [400], True),
    Row("2.2", "a bare CR ends no line", b"GET /a.txt HTTP/1.1\rHost: h\r\r", [], True, quiet=True),
    Row("2.2", "whitespace in front of the first field is refused",
        b"GET /a.txt HTTP/1.1\r\n Host: h\r\n\r\n", [400], True),
    Row("2.2", "messages are bytes: those beyond ASCII are part of a value",
        get("/echo.qvs", "X: \xe9\xff\r\n"), [(200, b"GET|||||h|\xe9\xff")]),
    Row("2.2", "NUL in a value is refused", get(lines="X: a\0b\r\n"), [400], True),
    # Versions
    Row("2.3", "the answer to HTTP/1.0 is of version 1.1", get(version="1.0"), [(200, b"aaa")], True),
    Row("2.3", "a higher minor version counts as 1.1", get(version="1.9"), [(200, b"aaa")]),
    Row("2.3", "other major versions: 505", get(version="2.0"), [505], True),
    Row("2.3", "versions are two digits", get(version="1.10"), [400], True),
    Row("2.3", "and letter case counts", b"GET /a.txt http/1.1\r\nHost: h\r\n\r\n", [400], True),
    Row("2.3", "none at all is refused", b"GET /a.txt\r\nHost: h\r\n\r\n", [400], True),
    # Request lines
    Row("3", "one blank between the words", b"GET  /a.txt HTTP/1.1\r\nHost: h\r\n\r\n", [400], True),
    Row("3", "and no tab", b"GET\t/a.txt HTTP/1.1\r\nHost: h\r\n\r\n", [400], True),
    Row("3", "nothing behind the version", b"GET /a.txt HTTP/1.1 \r\nHost: h\r\n\r\n", [400], True),
    Row("3", "targets of 8000 bytes are read", get("/a.txt?" + "q" * 8000), [(200, b"aaa")]),
    Row("3", "longer ones than the server reads: 414", get("/" + "a" * MOST_LINE), [414], True),
    Row("3", "longer ones without an end, too", b"GET /" + b"a" * MOST_LINE, [414], True),
    Row("3.1", "letter case of methods counts", get(method="get"), [405]),
    Row("3.1", "methods are tokens", get(method="G@T"), [400], True),
    Row("3.1", "methods longer than any: 501", get(method="G" * 100), [501], True),
    Row("3.2", "HTTP/1.1 without Host: 400", get(host=""), [400], True),
    Row("3.2", "two Host fields: 400", get(lines="Host: h\r\n"), [400], True),
    Row("3.2", "two Host fields of HTTP/1.0: 400", get(lines="hOST: g\r\n", version="1.0"), [400], True),
    Row("3.2", "a Host that is none: 400", get(host="Host: a/b\r\n"), [400], True),
    Row("3.2", "an empty one: 400", get(host="Host:\r\n"), [400], True),
    Row("3.2", "Host by any letters", get("/echo.qvs", host="hoST:Me:80 \r\n"),
        [(200, b"GET|||||me|")]),
    Row("3.2", "HTTP/1.0 needs none", get(host="", version="1.0"), [(200, b"aaa")], True),
    Row("3.2", "characters of no URI are refused", get("/a<b>.txt"), [400], True),
    Row("3.2", "bytes beyond ASCII, too", get("/\xe9.txt"), [400], True),
    Row("3.2", "a fragment is none of the target", get("/a.txt#x"), [400], True),
    Row("3.2.1", "origin form with a query", get("/echo.qvs?q=%41"), [(200, b"GET||A|||h|")]),
    Row("3.2.1", "a path begins with a slash", get("a.txt"), [400], True),
    Row("3.2.2", "absolute form is taken", get("http://h/a.txt"), [(200, b"aaa")]),
    Row("3.2.2", "its host counts, not that of the field",
        get("http://Other:81/echo.qvs?q=1"), [(200, b"GET||1|||other|")]),
    Row("3.2.2", "it needs the field nevertheless", get("http://h/a.txt", host=""), [400], True),
    Row("3.2.2", "without a path it is the root's", get("http://h?q"), [404]),
    Row("3.2.2", "of another scheme it is refused", get("ftp://h/a.txt"), [400], True),
    Row("3.2.2", "with a user it is refused", get("http://u@h/a.txt"), [400], True),
    Row("3.2.3", "authority form is for CONNECT alone", get("h:80"), [400], True),
    Row("3.2.4", "asterisk form is OPTIONS alone", get("*"), [400], True),
    Row("3.2.4", "and asks about the server", get("*", method="OPTIONS"), [(200, b"")],
        lines={"Content-Length": "0", "Allow": "GET, HEAD, POST, PUT, PATCH, DELETE, OPTIONS"}),
    Row("3.2.4", "as an absolute one without a path does", get("http://h", method="OPTIONS"),
        [(200, b"")], lines={"Content-Length": "0"}),
    # Field lines
    Row("5", "names are taken without regard to letter case",
        sized(b"a=1").replace(b"Content-Length", b"cONTENT-lENGTH"), [(200, b"POST|1||3||h|")]),
    Row("5", "names are matched whole", get(lines="XContent-Length: 5\r\nContent-Length-X: 5\r\n"),
        [(200, b"aaa")]),
    Row("5", "values have blanks and tabs around them or none",
        post(b"a=1", "Content-Length:\t 3 \t\r\nX:y\r\n"), [(200, b"POST|1||3||h|y")]),
    Row("5", "a line without a colon is refused", get(lines="nothing\r\n"), [400], True),
    Row("5", "a line without a name is refused", get(lines=": x\r\n"), [400], True),
    Row("5", "names are tokens", get(lines="A(b): x\r\n"), [400], True),
    Row("5.1", "a blank in front of the colon: 400", get(lines="X : y\r\n"), [400], True),
    Row("5.1", "a tab there: 400", sized(b"a=1").replace(b"Length:", b"Length\t:"), [400], True),
    Row("5.2", "folded lines: 400", get(lines="X: y\r\n z\r\n"), [400], True),
    Row("5.2", "folded by a tab: 400", get(lines="X: y\r\n\tTransfer-Encoding: chunked\r\n"), [400], True),
    Row("9110 5.4", "a field longer than the server reads: 431",
        get(lines="X: " + "x" * MOST_LINE + "\r\n"), [431], True),
    Row("9110 5.4", "all together longer: 431", get(lines=("X: " + "x" * 8000 + "\r\n") * 17),
        [431], True),
    # Bodies
    Row("6", "a body is there by its length, whatever the method",
        get(lines="Content-Length: %d\r\n" % len(SMUGGLED)) + SMUGGLED, [(200, b"aaa")]),
    Row("6", "of HEAD as well",
        get(lines="Content-Length: %d\r\n" % len(SMUGGLED), method="HEAD") + SMUGGLED,
        [(200, b"")], head=True, lines={"Content-Length": "3"}),
    Row("6", "and by chunks", chunked(b"%x\r\n%s\r\n0\r\n\r\n" % (len(SMUGGLED), SMUGGLED),
                                      target="/a.txt", method="GET"), [(200, b"aaa")]),
    Row("6.1", "Transfer-Encoding beside Content-Length: 400 and close",
        sized(b"0\r\n\r\n" + SMUGGLED, "Transfer-Encoding: chunked\r\n"), [400], True),
    Row("6.1", "in either order",
        chunked(b"0\r\n\r\n" + SMUGGLED, "Content-Length: 5\r\n"), [400], True),
    Row("6.1", "Transfer-Encoding of HTTP/1.0: 400 and close",
        chunked(b"3\r\na=1\r\n0\r\n\r\n").replace(b"HTTP/1.1", b"HTTP/1.0"), [400], True),
    Row("6.1", "a coding that is not known: 501", post(b"", "Transfer-Encoding: new, chunked\r\n"),
        [501], True),
    Row("6.1", "chunked once: 400 for more", post(b"", "Transfer-Encoding: chunked, chunked\r\n"),
        [400], True),
    Row("6.1", "names of codings by any letters",
        post(b"3\r\na=1\r\n0\r\n\r\n", "TRANSFER-encoding: CHUNKED\r\n"), [(200, b"POST|1||3||h|")]),
    Row("6.1", "no Transfer-Encoding in an answer to HTTP/1.0", get("/flush.qvs", version="1.0"),
        [(200, b"onetwothree")], True, lines={"Transfer-Encoding": None, "Content-Length": None}),
    Row("6.1", "a body of unknown length goes out in chunks", get("/flush.qvs"),
        [(200, b"onetwothree")], lines={"Transfer-Encoding": "chunked", "Content-Length": None}),
    Row("6.2", "lengths are digits", post(b"a=1", "Content-Length: +3\r\n"), [400], True),
    Row("6.2", "in no other notation", post(b"a=1", "Content-Length: 0x3\r\n"), [400], True),
    Row("6.2", "a length beyond all numbers: 413",
        post(b"", "Content-Length: 99999999999999999999999\r\n"), [413], True),
    Row("6.2", "longer than the server takes: 413", post(b"", "Content-Length: 300000000\r\n"), [413],
        True),
    Row("6.3", "an answer to HEAD ends with its head", get(method="HEAD") * 2, [(200, b"")] * 2,
        head=True, lines={"Content-Length": "3"}),
    Row("6.3", "of pages that flush as well", get("/flush.qvs", method="HEAD") * 2, [(200, b"")] * 2,
        head=True),
    Row("6.3", "a last coding other than chunked: 400 and close",
        post(SMUGGLED, "Transfer-Encoding: chunked, gzip\r\n"), [400], True),
    Row("6.3", "no chunked at all: 400 and close", post(SMUGGLED, "Transfer-Encoding: gzip\r\n"), [400],
        True),
    Row("6.3", "an empty list of codings: 400 and close", post(SMUGGLED, "Transfer-Encoding:\r\n"),
        [400], True),
    Row("6.3", "two lengths: 400 and close",
        post(b"a=1", "Content-Length: 3\r\nContent-Length: 4\r\n"), [400], True),
    Row("6.3", "the same twice, too", post(b"a=1", "Content-Length: 3\r\nContent-Length: 3\r\n"), [400],
        True),
    Row("6.3", "a list of lengths, too", post(b"a=1", "Content-Length: 3, 3\r\n"), [400], True),
    Row("6.3", "a request that announces nothing has no body",
        get("/echo.qvs", method="POST") + get(), [(200, b"POST|||||h|"), (200, b"aaa")]),
    Row("6.3", "one that describes a body of no length: 411", post(b""), [411], True),
    Row("6.3", "a body that ends early is no request", [sized(b"a=12345")[:-3]], [], True, quiet=True),
    # Chunks
    Row("7.1", "chunks are put together",
        chunked(b"2\r\na=\r\n00A\r\n0123456789\r\n0\r\n\r\n"), [(200, b"POST|0123456789||12||h|")]),
    Row("7.1", "however they arrive",
        [chunked(b"2"), b"\r", b"\na=\r\n", b"1\r\n", b"x", b"\r\n0", b"\r\n\r", b"\n"],
        [(200, b"POST|x||3||h|")]),
    Row("7.1", "sizes have no bound of digits, numbers have", chunked(b"fffffffffffffffffff\r\n"),
        [413], True),
    Row("7.1", "sizes of minus something: 400", chunked(b"-1\r\n"), [400], True),
    Row("7.1", "sizes of 0x something: 400", chunked(b"0x1\r\na\r\n0\r\n\r\n"), [400], True),
    Row("7.1", "no size: 400", chunked(b"\r\na=1\r\n0\r\n\r\n"), [400], True),
    Row("7.1", "a blank in front of a size: 400", chunked(b" 1\r\na\r\n0\r\n\r\n"), [400], True),
    Row("7.1", "a line feed alone behind a size: 400", chunked(b"1\na\r\n0\r\n\r\n"), [400], True),
    Row("7.1", "more data than announced: 400", chunked(b"1\r\nab\r\n0\r\n\r\n"), [400], True),
    Row("7.1", "a chunk longer than the server takes: 413", chunked(b"20000000\r\n"), [413], True),
    Row("7.1", "no last chunk: no request", chunked(b"3\r\na=1\r\n"), [], True, quiet=True),
    Row("7.1.1", "unknown extensions are passed over",
        chunked(b'3;a;b=c ; d = "e;\\"\r\na=1\r\n0;z\r\n\r\n'.replace(b'\\"', b'\\""')),
        [(200, b"POST|1||3||h|")]),
    Row("7.1.1", "what are none are refused", chunked(b"3;=\r\na=1\r\n0\r\n\r\n"), [400], True),
    Row("7.1.1", "and bounded", chunked(b"3;" + b"a" * (70 << 10)), [431], True),
    Row("7.1.2", "trailers are read and dropped",
        chunked(b"3\r\na=1\r\n0\r\nX: y\r\nContent-Length: 9\r\nHost: evil\r\n\r\n"),
        [(200, b"POST|1||3||h|")]),
    Row("7.1.2", "those that are none are refused", chunked(b"0\r\nX : y\r\n\r\n"), [400], True),
    Row("7.1.3", "a page sees the decoded body and its length",
        chunked(b"3\r\na=1\r\n0\r\n\r\n", "Trailer: X\r\n"), [(200, b"POST|1||3||h|")]),
    Row("7.4", "no coding but chunked, whatever the client takes",
        get("/flush.qvs", "TE: gzip, trailers\r\nConnection: TE\r\n"), [(200, b"onetwothree")],
        lines={"Transfer-Encoding": "chunked"}),
    # Connections
    Row("9.2", "answers come in the order of their requests",
        get("/large.txt") + get() + get("/echo.qvs") + get("/b.txt"),
        [(200, b"x" * 3_000_000), (200, b"aaa"), (200, b"GET|||||h|"), (200, b"bbbb")]),
    Row("9.2", "behind a refused request there is none", get(host="") + get(), [400], True),
    Row("9.3", "HTTP/1.1 stays", get(), [(200, b"aaa")]),
    Row("9.3", "HTTP/1.0 closes", get(version="1.0") + get(), [(200, b"aaa")], True),
    Row("9.3", "unless it asks to stay", get(version="1.0", lines="Connection: Keep-Alive\r\n"),
        [(200, b"aaa")], lines={"Connection": "Keep-Alive"}),
    Row("9.3", "errors of files stay, too", get("/none.txt") + get(), [404, (200, b"aaa")]),
    Row("9.3", "a body that nobody wants is read before the next request",
        sized(SMUGGLED, target="/a.txt"), [405]),
    Row("9.6", "close is done and said, and nothing follows",
        get(lines="Connection: close\r\n") + get("/b.txt"), [(200, b"aaa")], True),
    Row("9.6", "among other options", get(lines="Connection: x, Close\r\n") + get(), [(200, b"aaa")],
        True),
    Row("9.6", "in a second field", get(lines="Connection: keep-alive\r\nConnection: close\r\n"),
        [(200, b"aaa")], True),
    Row("9.6", "of pages that flush, too", get("/flush.qvs", "Connection: close\r\n") + get(),
        [(200, b"onetwothree")], True),
    Row("11.1", "a page splits no answer", get("/lines.qvs"), [(200, b"lines")],
        lines={"Content-Length": "5", "X-Split": None, "X Bad": None, "X-Good": "a  X-Split: b"}),
    Row("11.2", "a request within a body is none", sized(b"a=1&x=" + SMUGGLED),
        [(200, b"POST|1||%d||h|" % (len(SMUGGLED) + 6))]),
    Row("11.2", "nor is one within a chunk",
        chunked(b"%x\r\na=1&%s\r\n0\r\n\r\n" % (len(SMUGGLED) + 4, SMUGGLED)),
        [(200, b"POST|1||%d||h|" % (len(SMUGGLED) + 4))]),
    # What RFC 9110 asks for
    Row("9110 7.8", "an upgrade that is not known is not done",
        get(lines="Connection: Upgrade, HTTP2-Settings\r\nUpgrade: h2c\r\nHTTP2-Settings: AA\r\n"),
        [(200, b"aaa")], lines={"Upgrade": None}),
    Row("9110 7.8", "nor is another protocol spoken", b"PRI * HTTP/2.0\r\n\r\nSM\r\n\r\n", [505], True),
    Row("9110 4.2.3", "dot segments are followed", get("/sub/./x/..//../a.txt"), [(200, b"aaa")]),
    Row("9110 4.2.3", "but not out of the root", get("/sub/../../a.txt"), [400], True),
    Row("9110 4.2.3", "in no spelling", get("/%2e%2e/main.ini"), [400], True),
    Row("9110 4.2.3", "names are decoded once", get("/a%20b.txt"), [(200, b"blank")]),
    Row("9110 4.2.3", "and once only", get("/a%2520b.txt"), [404]),
    Row("9110 4.2.3", "names are UTF-8", get("/%C3%A9%e2%82%ac.txt"), [(200, b"accents")]),
    Row("9110 4.2.3", "encoded slashes are refused", get("/sub%2fc.txt"), [400], True),
    Row("9110 4.2.3", "and backslashes", get("/sub%5cc.txt"), [400], True),
    Row("9110 4.2.3", "and plain ones", get("/sub\\c.txt"), [400], True),
    Row("9110 4.2.3", "and NUL", get("/a.txt%00.txt"), [400], True),
    Row("9110 4.2.3", "and half a number", get("/a.txt%4"), [400], True),
    Row("9110 9.3.1", "a file that is not there: 404", get("/none.txt"), [404]),
    Row("9110 9.3.1", "a kind that is not served: 403", get("/setup.exe"), [403]),
    Row("9110 9.3.2", "HEAD says what GET says", get("/none.txt", method="HEAD"), [(404, b"")],
        head=True, lines={"Content-Length": "15"}),
    Row("9110 9.3.2", "of refused requests as well", get("/%", method="HEAD"), [(400, b"")], True,
        head=True),
    Row("9110 9.3.2", "of pages as well", get("/echo.qvs?q=1", method="HEAD"), [(200, b"")],
        head=True, lines={"Content-Length": "12"}),
    Row("9110 9.3.4", "other methods reach pages", sized(b"a=1", method="PUT"),
        [(200, b"PUT|||3||h|")]),
    Row("9110 9.3.5", "all of them", get("/echo.qvs?q=1", method="DELETE"), [(200, b"DELETE||1|||h|")]),
    Row("9110 9.3.6", "CONNECT: 501", b"CONNECT h:80 HTTP/1.1\r\nHost: h\r\n\r\n", [501], True),
    Row("9110 9.3.7", "OPTIONS of a file", get(method="OPTIONS"), [(200, b"")],
        lines={"Allow": "GET, HEAD, OPTIONS", "Content-Length": "0"}),
    Row("9110 9.3.7", "OPTIONS of a page", get("/echo.qvs", method="OPTIONS"), [(200, b"")],
        lines={"Allow": "GET, HEAD, POST, PUT, PATCH, DELETE, OPTIONS"}),
    Row("9110 9.3.8", "TRACE: 405", get("/echo.qvs", method="TRACE"), [405],
        lines={"Allow": "GET, HEAD, POST, PUT, PATCH, DELETE, OPTIONS"}),
    Row("9110 10.1.1", "who waits for a word gets one",
        [sized(b"a=1", "Expect: 100-continue\r\n")[:-3], b"a=1"], [100, (200, b"POST|1||3||h|")]),
    Row("9110 10.1.1", "but not with the body already there",
        sized(b"a=1", "Expect: 100-continue\r\n"), [(200, b"POST|1||3||h|")]),
    Row("9110 10.1.1", "nor without a body", get(lines="Expect: 100-continue\r\n"), [(200, b"aaa")]),
    Row("9110 10.1.1", "nor under HTTP/1.0",
        [sized(b"a=1", "Expect: 100-continue\r\n")[:-3].replace(b"HTTP/1.1", b"HTTP/1.0"), b"a=1"],
        [(200, b"POST|1||3||h|")], True),
    Row("9110 10.1.1", "nor before a refusal",
        post(b"", "Content-Length: 300000000\r\nExpect: 100-continue\r\n"), [413], True),
    Row("9110 10.1.1", "other expectations: 417", get(lines="Expect: more\r\n"), [417], True),
    Row("9110 14.2", "a range of another method than GET is none",
        get(lines="Range: bytes=0-1\r\n", method="HEAD"), [(200, b"")], head=True,
        lines={"Content-Length": "3"}),
    Row("9110 14.4", "a range beyond the file: 416",
        get(lines="Range: bytes=10-\r\n"), [416], lines={"Content-Range": "bytes */3"}),
    Row("9110 15.5.6", "a method that files don't have: 405 and those they have",
        sized(b"a=1", target="/a.txt", method="PUT"), [405], lines={"Allow": "GET, HEAD, OPTIONS"}),
    Row("9110 15.6.1", "a page that fails: 500", get("/bad.qvs"), [500]),
]

# The same holds for pages of the other dialect; these answer differently in it.
CUSTOMARY_PAGES = {
    "echo.asp": '<%= Request.TotalBytes %>|<%= Request.Form("a") %>|'
                '<%= Request.ServerVariables("CONTENT_LENGTH") %>|'
                '<%= Request.ServerVariables("HTTP_TRANSFER_ENCODING") %>|'
                '<%= Request.ServerVariables("SERVER_NAME") %>',
    "raw.asp": '<% b = Request.BinaryRead(100): Response.BinaryWrite b %>',
    "flush.asp": "one<% Response.Flush %>two<% Response.Flush: Response.Flush %>three",
    "open.asp": "<% Response.Buffer = False %>one<% Response.Write \"two\" %>",
    "none.asp": "<% Response.Status = \"204 No Content\": Response.Write \"x\" %>",
    "noneflushed.asp": "<% Response.Status = \"204 No Content\": Response.Write \"x\": Response.Flush %>y",
    "same.asp": "<% Response.Status = \"304 Not Modified\" %>",
    "short.asp": "<% Response.Status = \"299\" %>short",
    "bad.asp": "<% x = 1 / 0 %>",
    "sub/default.asp": "folder",
    "a b.txt": b"blank",
    "a%41.txt": b"percent",
    "App_Data/secret.txt": b"secret",
    "a.txt": b"aaa",
    "probe.txt": b"probe",
}
CUSTOMARY_ROWS = [
    Row("7.1.3", "the decoded body and its length", chunked(b"2\r\na=\r\n1\r\nx\r\n0\r\nT: u\r\n\r\n",
                                                          target="/echo.asp"), [(200, b"3|x|3||h")]),
    Row("7.1.3", "its bytes", chunked(b"2\r\n\0\r\r\n1\r\n\n\r\n0\r\n\r\n", target="/raw.asp",
                                      method="PUT"), [(200, b"\0\r\n")]),
    Row("7.1", "a page that flushes", get("/flush.asp"), [(200, b"onetwothree")],
        lines={"Transfer-Encoding": "chunked"}),
    Row("7.1", "a page that holds nothing back", get("/open.asp"), [(200, b"onetwo")],
        lines={"Transfer-Encoding": "chunked"}),
    Row("6.1", "to HTTP/1.0", get("/flush.asp", version="1.0"), [(200, b"onetwothree")], True,
        lines={"Transfer-Encoding": None}),
    Row("6.3", "HEAD of such a page", get("/flush.asp", method="HEAD"), [(200, b"")], head=True,
        lines={"Content-Length": "11"}),
    Row("6.3", "204 has no body and no length", get("/none.asp") * 2, [(204, b"")] * 2,
        lines={"Content-Length": None, "Transfer-Encoding": None}),
    Row("6.3", "not even in parts", get("/noneflushed.asp") * 2, [(204, b"")] * 2,
        lines={"Content-Length": None, "Transfer-Encoding": None}),
    Row("6.3", "304 neither", get("/same.asp") * 2, [(304, b"")] * 2, lines={"Content-Length": None}),
    Row("4", "a blank behind the number even without a reason", get("/short.asp"), [(299, b"short")]),
    Row("9110 15.6.1", "a page that fails: 500", get("/bad.asp"), [500]),
    Row("9110 4.2.3", "names are decoded once", get("/a%20b.txt"), [(200, b"blank")]),
    Row("9110 4.2.3", "and once only", get("/a%2541.txt"), [(200, b"percent")]),
    Row("9110 4.2.3", "encoded slashes are refused", get("/sub%2fdefault.asp"), [400], True),
    Row("9110 4.2.3", "escapes from the root as well", get("/..%2f..%2fa.txt"), [400], True),
    Row("9110 15.4.2", "a folder has its slash behind it", get("//x/..//sub?a"), [301],
        lines={"Location": "/sub/?a"}),
    Row("9110 9.3.1", "what sites keep to themselves", get("/app_data/secret.txt"), [403]),
    Row("9110 9.3.4", "other methods reach pages", get("/sub/", method="DELETE"), [(200, b"folder")]),
    Row("9110 9.3.3", "but not files", get(method="POST"), [405]),
]


def pieces(row):
    return [row.request] if isinstance(row.request, bytes) else row.request


class Reader:
    """Reads answers as RFC 9112 has clients do it, and looks whether they may be sent so."""

    def __init__(self, test, connection):
        self.test = test
        self.connection = connection

    def line(self):
        pending = self.connection.pending
        while b"\r\n" not in self.connection.pending:
            self.test.assertTrue(self.connection._more(), "closed within %r" % pending)
        line, _, self.connection.pending = self.connection.pending.partition(b"\r\n")
        return line.decode("latin-1")

    def bytes(self, count):
        while len(self.connection.pending) < count:
            self.test.assertTrue(self.connection._more(), "closed within a body")
        data = self.connection.pending[:count]
        self.connection.pending = self.connection.pending[count:]
        return data

    def chunks(self):
        body = b""
        while True:
            size = int(self.line(), 16)
            data = self.bytes(size)
            self.test.assertEqual(self.line(), "")
            if size == 0:
                return body
            body += data

    def answer(self, is_head):
        """Status, fields and body."""
        status_line = self.line()
        self.test.assertRegex(status_line, "^%s$" % STATUS_LINE.pattern)
        status = int(status_line[9:12])
        fields = {}
        while line := self.line():
            self.test.assertRegex(line, "^%s$" % FIELD.pattern)
            name, _, value = line.partition(":")
            self.test.assertNotIn(name.lower(), fields, "twice")
            fields[name.lower()] = value.strip()
        if status == 100:
            self.test.assertEqual(fields, {})
            return status, fields, b""
        self.test.assertRegex(fields["date"], "^%s$" % DATE.pattern)
        return status, fields, self.body(status, fields, is_head)

    def body(self, status, fields, is_head):
        coding, length = fields.get("transfer-encoding"), fields.get("content-length")
        self.test.assertFalse(coding and length, "two ways to find the end")
        if is_head or status in (204, 304):
            return b""
        if coding:
            self.test.assertEqual(coding, "chunked")
            return self.chunks()
        if length:
            return self.bytes(int(length))
        self.test.assertEqual(fields["connection"].lower(), "close")
        return self.connection.receive_all()


class Rows:
    def check(self, row):
        with self.server.connect() as connection:
            reader = Reader(self, connection)
            for i, piece in enumerate(pieces(row)):
                if i > 0:
                    time.sleep(0.02)
                connection.send(piece)
            if row.quiet:
                connection.socket.shutdown(socket.SHUT_WR)
            fields = {}
            for wanted in row.answers:
                status, fields, body = reader.answer(row.head)
                if isinstance(wanted, tuple):
                    self.assertEqual((status, body), wanted)
                else:
                    self.assertEqual(status, wanted)
                if status >= 400 and not row.head:
                    self.assertTrue(body, "an error says what it is")
            for name, value in row.lines.items():
                self.assertEqual(fields.get(name.lower()), value, name)
            if row.answers:
                self.assertEqual(fields.get("connection", "").lower() == "close", row.closes)
            if row.closes:
                self.assertTrue(connection.is_closed())
            else:
                connection.send(get("/probe.txt"))
                self.assertEqual(reader.answer(False)[::2], (200, b"probe"))

    def check_all(self, rows):
        for row in rows:
            with self.subTest(section=row.section, rule=row.rule):
                self.check(row)


class StandardHttp(Rows, ServerTest):
    PAGES = PAGES
    SETTINGS = {"StandardHTTP": "1"}

    def test_rows(self):
        self.check_all(ROWS)

    def test_rows_byte_by_byte(self):
        for row in ROWS:
            if isinstance(row.request, bytes) and len(row.request) < 400:
                with self.subTest(section=row.section, rule=row.rule):
                    self.check(Row(**{**row.__dict__,
                                      "request": [row.request[:3], row.request[3:-1],
                                                  row.request[-1:]]}))

    def test_many_pipelined_requests_of_a_client_that_reads_late(self):
        count = 2000
        with self.server.connect() as connection:
            reader = Reader(self, connection)
            connection.send((get() + sized(b"a=1") + get("/flush.qvs")) * (count // 10))
            time.sleep(0.3)
            for _ in range(count // 10):
                for wanted in (b"aaa", b"POST|1||3||h|", b"onetwothree"):
                    self.assertEqual(reader.answer(False)[2], wanted)

    def test_a_client_that_has_said_all_gets_every_answer(self):
        with self.server.connect() as connection:
            reader = Reader(self, connection)
            connection.send(get() * 20)
            connection.socket.shutdown(socket.SHUT_WR)
            for _ in range(20):
                self.assertEqual(reader.answer(False)[2], b"aaa")
            self.assertTrue(connection.is_closed())

    def test_page_of_a_slow_neighbour_does_not_mix_up_the_order(self):
        self.server.put("slow.qvs", "<% t = Timer: Do While Timer - t < 0.15: Loop %>slow")
        with self.server.connect() as one, self.server.connect() as two:
            for connection in (one, two):
                connection.send(get("/slow.qvs") + get() + get("/slow.qvs") + get("/b.txt"))
            for connection in (one, two):
                reader = Reader(self, connection)
                bodies = [reader.answer(False)[2] for _ in range(4)]
                self.assertEqual(bodies, [b"slow", b"aaa", b"slow", b"bbbb"])


class StandardHttpOfCustomarySites(Rows, ServerTest):
    PAGES = CUSTOMARY_PAGES
    SETTINGS = {"StandardHTTP": "1", "Customary": "2"}

    def test_rows(self):
        self.check_all(CUSTOMARY_ROWS)
        self.check_all(row for row in ROWS if row.closes and b".qvs" not in b"".join(pieces(row)))


class SlowClients(Rows, unittest.TestCase):
    def test_those_who_say_no_more_of_a_request_are_told(self):
        settings = {"StandardHTTP": "1", "HeadSeconds": "1", "BodySeconds": "1", "IdleSeconds": "1"}
        with Server(PAGES, settings) as self.server:
            for begun in (b"GET /a.txt HTTP/1.1\r\nHost", sized(b"a=1")[:-1], chunked(b"3\r\na=")):
                self.check(Row("8", "an incomplete request", begun, [408], True))
            for silent in (b"", get()):
                with self.server.connect() as connection:
                    connection.send(silent)
                    if silent:
                        Reader(self, connection).answer(False)
                    self.assertTrue(connection.is_closed(), "without a word")


class OffByDefault(ServerTest):
    PAGES = {"a.txt": b"aaa"}

    def test_the_servers_own_ways_are_as_ever(self):
        with self.server.connect() as connection:
            connection.send(b"GET /none.txt HTTP/9\r\n\r\n")
            self.assertEqual(connection.receive().status, "HTTP/1.1 404 No Found")
