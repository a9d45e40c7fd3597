"""The site that the soak is about, and what is right of it."""

import random
import struct
import zlib

from serving import REPOSITORY

LARGE = random.Random(7).randbytes(6 << 20)
TEXT = b"".join(b"line %d of a text that packs well\r\n" % i for i in range(4000))
PICTURE = (REPOSITORY / "site/pictures/lake.png").read_bytes()

PAGES = {
    "sum.qvs": "<% Session.Timeout = 1: t = 0: For i = 1 To CLng(Request(\"n\")): t = t + i: Next %>"
               "sum <%= t %>",
    "visits.qvs": "<% Session.Timeout = 1: Session(\"v\") = CLng(\"0\" & Session(\"v\")) + 1 %>"
                  "visit <%= Session(\"v\") %>",
    "echo.qvs": "<% Session.Timeout = 1 %><%= Server.HTMLEncode(Request.Form(\"text\")) %>",
    "table.qvs": "<% Session.Timeout = 1: For i = 1 To 2000 %><tr><td><%= i %></td></tr>\n<% Next %>",
    "flush.qvs": "<% Session.Timeout = 1: For i = 1 To 50: Response.Write String(2000, \"f\"): "
                 "Response.Flush: Next %>",
    "debug.qvs": "<% Session.Timeout = 1: For i = 1 To 200: Server.DebugOut String(3000, \"d\"): "
                 "Next %>done",
    "wrong.qvs": "<% Session.Timeout = 1: x = 1 / 0 %>",
    "memory.qvs": "<% Session.Timeout = 1: ReDim a(20000): For i = 0 To 20000: a(i) = \"x\" & i: Next "
                  "%><%= UBound(a) %>",
    "large.mp3": LARGE,
    "text.txt": TEXT,
    "lake.png": PICTURE,
}
TABLE = "".join("<tr><td>%d</td></tr>\r\n" % i for i in range(1, 2001)).encode()
FLUSHED = b"f" * 100_000
SETTINGS = {"EncodeStatic": "1", "EncodeDynamic": "1", "LogFileLimit": "16"}


def unpacked(response):
    """A body in plain; a client that doesn't say what it accepts gets what the one before it did."""
    if (response.header("Content-Encoding") or "").lower() == "gzip":
        return zlib.decompress(response.body, 31)
    return response.body


def png_size(data):
    """Width and height, or nothing for what is no whole PNG file."""
    if not data.startswith(b"\x89PNG\r\n\x1a\n") or not data.endswith(b"IEND\xaeB`\x82"):
        return None
    return struct.unpack(">II", data[16:24])
