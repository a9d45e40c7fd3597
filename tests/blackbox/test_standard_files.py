"""Standard HTTP: validators, conditions, ranges and codings, as clients and caches see them."""

import ctypes
import gzip
import os
import re
import shutil
import subprocess
import tempfile
import time
import pathlib
import unittest

from serving import Server, ServerTest

TEXT = b"".join(b"line %06d of the text\n" % number for number in range(4000))
PICTURE = bytes(range(256)) * 400
LONG_AGO = 1_700_000_000


def unbrotli(data, most=1 << 22):
    library = ctypes.CDLL("libbrotlidec.so.1")
    room = ctypes.create_string_buffer(most)
    size = ctypes.c_size_t(most)
    done = library.BrotliDecoderDecompress(ctypes.c_size_t(len(data)), data, ctypes.byref(size), room)
    if done != 1:
        raise ValueError("not brotli")
    return room.raw[: size.value]


def unzstd(data, most=1 << 22):
    library = ctypes.CDLL("libzstd.so.1")
    library.ZSTD_decompress.restype = ctypes.c_size_t
    room = ctypes.create_string_buffer(most)
    size = library.ZSTD_decompress(room, ctypes.c_size_t(most), data, ctypes.c_size_t(len(data)))
    if library.ZSTD_isError(ctypes.c_size_t(size)):
        raise ValueError("not zstd")
    return room.raw[:size]


DECODERS = {"gzip": gzip.decompress, "br": unbrotli, "zstd": unzstd, None: bytes}


class StandardFiles(ServerTest):
    PAGES = {
        "a.txt": TEXT,
        "a.png": PICTURE,
        "empty.txt": b"",
        "page.qvs": "<% For i = 1 To 500 %>line <%= i %> of a page\n<% Next %>",
        "chosen.qvs": '<% Response.Redirect "/a.txt" %>',
    }
    SETTINGS = {"StandardHTTP": "1", "EncodeStatic": "1", "EncodeDynamic": "1"}

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for name in cls.PAGES:
            os.utime(cls.server.root / name, (LONG_AGO, LONG_AGO + 0.25))

    def ask(self, target, method="GET", **fields):
        lines = "".join("%s: %s\r\n" % (name.replace("_", "-"), value)
                        for name, value in fields.items())
        return self.server.get(target, lines, method)

    def status(self, *words, **fields):
        return int(self.ask(*words, **fields).status.split()[1])

    def decoded(self, answer):
        return DECODERS[answer.header("Content-Encoding")](answer.body)

    # Codings

    def test_codings(self):
        rows = [
            (None, None), ("", None), ("identity", None), ("deflate, compress", None),
            ("gzip", "gzip"), ("x-gzip", "gzip"), ("GZip", "gzip"), ("br", "br"), ("zstd", "zstd"),
            ("gzip, deflate", "gzip"), ("gzip, deflate, br, zstd", "br"), ("*", "br"),
            ("gzip;q=0", None), ("gzip;q=0, br", "br"), ("br;q=0, *", "zstd"),
            ("br;q=0.1, gzip;q=0.2", "gzip"), ("gzip;q=0.5, identity;q=0.6", None),
            ("identity;q=0, gzip", "gzip"), ("identity;q=1, *;q=0", None),
            ("notgzip", None), ("gzip;q=nan", None),
        ]
        for accepts, coding in rows:
            with self.subTest(accepts):
                fields = {} if accepts is None else {"Accept_Encoding": accepts}
                answer = self.ask("/a.txt", **fields)
                self.assertEqual(answer.status, "HTTP/1.1 200 OK")
                self.assertEqual(answer.header("Content-Encoding"), coding)
                self.assertEqual(answer.header("Vary"), "Accept-Encoding")
                self.assertEqual(answer.header("Content-Type"), "text/plain")
                self.assertEqual(answer.header("Accept-Ranges"), "none" if coding else "bytes")
                self.assertEqual(self.decoded(answer), TEXT)
                head = self.ask("/a.txt", "HEAD", **fields)
                self.assertEqual([line for line in head.lines if not line.startswith("Date")],
                                 [line for line in answer.lines if not line.startswith("Date")])

    def test_who_takes_nothing_that_there_is(self):
        for target, accepts in [("/a.txt", "*;q=0"), ("/a.txt", "identity;q=0"),
                                ("/a.png", "identity;q=0, gzip")]:
            answer = self.ask(target, Accept_Encoding=accepts)
            self.assertEqual(answer.status, "HTTP/1.1 406 Not Acceptable")
            self.assertEqual(answer.header("Vary"), "Accept-Encoding")

    def test_pictures_are_left_alone(self):
        answer = self.ask("/a.png", Accept_Encoding="gzip, br, zstd")
        self.assertEqual(answer.body, PICTURE)
        self.assertEqual(answer.header("Content-Encoding"), None)
        self.assertEqual(answer.header("Vary"), None)

    def test_pages(self):
        plain = self.ask("/page.qvs")
        self.assertEqual(plain.header("Vary"), "Accept-Encoding")
        self.assertEqual(plain.header("Accept-Ranges"), None)
        for accepts, coding in [("gzip", "gzip"), ("br", "br"), ("zstd", "zstd"),
                                ("gzip, br;q=0, zstd;q=0", "gzip"), ("gzip;q=0", None)]:
            answer = self.ask("/page.qvs", Accept_Encoding=accepts)
            self.assertEqual(answer.header("Content-Encoding"), coding)
            self.assertEqual(self.decoded(answer), plain.body)
            self.assertEqual(answer.header("Content-Length"), str(len(answer.body)))

    def test_codings_do_not_pass_from_one_request_to_the_next(self):
        with self.server.connect() as connection:
            for lines, coding in [("Accept-Encoding: br\r\n", "br"), ("", None)] * 3:
                connection.send("GET /a.txt HTTP/1.1\r\nHost: h\r\n%s\r\n" % lines)
                self.assertEqual(connection.receive().header("Content-Encoding"), coding)

    def test_many_ask_for_a_copy_that_is_not_there(self):
        self.server.put("many.txt", TEXT * 3)
        os.utime(self.server.root / "many.txt", (LONG_AGO, LONG_AGO))
        connections = [self.server.connect() for _ in range(40)]
        for connection in connections:
            connection.send("GET /many.txt HTTP/1.1\r\nHost: h\r\nAccept-Encoding: br\r\n\r\n")
        bodies = {connection.receive().body for connection in connections}
        for connection in connections:
            connection.close()
        self.assertEqual([unbrotli(body) for body in bodies], [TEXT * 3])

    # Versions

    def test_no_two_versions_share_a_tag(self):
        tags = {}
        for number in range(300):
            content = b"version %04d" % number
            self.server.put("version.txt", content)
            for accepts in ("identity", "br"):
                answer = self.ask("/version.txt", Accept_Encoding=accepts)
                self.assertEqual(self.decoded(answer), content)
                tag = answer.header("ETag")
                self.assertRegex(tag, r'^"[0-9a-z-]+"$')
                self.assertEqual(tags.setdefault(tag, (content, accepts)), (content, accepts))

    def test_versions_replaced_by_others_with_their_times(self):
        path = self.server.root / "kept.txt"
        for content in (b"first", b"second"):
            path.write_bytes(content)
            os.utime(path, (LONG_AGO, LONG_AGO))
            for accepts in ("br", "zstd", "gzip", "identity"):
                self.assertEqual(self.decoded(self.ask("/kept.txt", Accept_Encoding=accepts)), content)

    def test_a_tag_for_each_coding(self):
        tags = {accepts: self.ask("/a.txt", Accept_Encoding=accepts).header("ETag")
                for accepts in ("identity", "gzip", "br", "zstd")}
        self.assertEqual(len(set(tags.values())), 4)
        for accepts, tag in tags.items():
            for asked in tags:
                self.assertEqual(self.status("/a.txt", Accept_Encoding=asked, If_None_Match=tag),
                                 304 if asked == accepts else 200)

    def test_dates_are_in_utc_and_name_every_day(self):
        path = self.server.root / "day.txt"
        path.write_bytes(b"x")
        for day, text in [(0, "Sun, 12 Nov 2023 22:13:20 GMT"), (1, "Mon, 13 Nov 2023 22:13:20 GMT")]:
            os.utime(path, (LONG_AGO + (day - 2) * 86400,) * 2)
            self.assertEqual(self.ask("/day.txt").header("Last-Modified"), text)

    # Conditions

    def test_conditions(self):
        answer = self.ask("/a.txt")
        tag, modified = answer.header("ETag"), answer.header("Last-Modified")
        before, later = "Mon, 01 Jan 2001 00:00:00 GMT", "Fri, 01 Jan 2044 00:00:00 GMT"
        rows = [
            ({"If_None_Match": tag}, 304), ({"If_None_Match": "W/" + tag}, 304),
            ({"If_None_Match": "*"}, 304), ({"If_None_Match": '"a", %s , "b"' % tag}, 304),
            ({"If_None_Match": '"a"'}, 200), ({"If_None_Match": tag[:-1] + '-br"'}, 200),
            ({"If_None_Match": '"a"', "If_Modified_Since": later}, 200),
            ({"If_None_Match": tag, "If_Modified_Since": before}, 304),
            ({"If_Modified_Since": modified}, 304), ({"If_Modified_Since": later}, 304),
            ({"If_Modified_Since": before}, 200), ({"If_Modified_Since": "soon"}, 200),
            ({"If_Match": tag}, 200), ({"If_Match": "*"}, 200), ({"If_Match": '"a", ' + tag}, 200),
            ({"If_Match": '"a"'}, 412), ({"If_Match": "W/" + tag}, 412),
            ({"If_Match": tag, "If_Unmodified_Since": before}, 200),
            ({"If_Unmodified_Since": before}, 412), ({"If_Unmodified_Since": modified}, 200),
            ({"If_Unmodified_Since": "soon"}, 200),
            ({"If_Match": '"a"', "If_None_Match": tag}, 412),
            ({"If_Match": tag, "If_None_Match": tag}, 304),
            ({"If_Match": '"a"', "Range": "bytes=0-1"}, 412),
            ({"If_None_Match": tag, "Range": "bytes=0-1"}, 304),
        ]
        for fields, status in rows:
            for method in ("GET", "HEAD"):
                with self.subTest(fields, method=method):
                    answer = self.ask("/a.txt", method, **fields)
                    wanted = 200 if method == "HEAD" and status == 206 else status
                    self.assertEqual(int(answer.status.split()[1]), wanted)

    def test_what_stands_in_a_304(self):
        for accepts in ("identity", "br"):
            answer = self.ask("/a.txt", Accept_Encoding=accepts)
            with self.server.connect() as connection:
                for _ in range(2):
                    connection.send("GET /a.txt HTTP/1.1\r\nHost: h\r\nAccept-Encoding: %s\r\n"
                                    "If-None-Match: %s\r\n\r\n" % (accepts, answer.header("ETag")))
                    again = connection.receive(with_body=False)
                    self.assertEqual(again.status, "HTTP/1.1 304 Not Modified")
                    self.assertEqual(again.header("ETag"), answer.header("ETag"))
                    self.assertEqual(again.header("Vary"), "Accept-Encoding")
                    self.assertTrue(again.header("Date"))
                    for name in ("Content-Type", "Content-Length", "Content-Encoding", "Last-Modified"):
                        self.assertEqual(again.header(name), None)
                connection.send("GET /a.png HTTP/1.1\r\nHost: h\r\n\r\n")
                self.assertEqual(connection.receive().body, PICTURE)

    def test_what_a_page_chose_is_its_clients_alone(self):
        answer = self.ask("/a.txt")
        self.assertEqual(answer.header("Cache-Control"), None)
        self.assertEqual(self.ask("/a.txt", Cookie="QVS_SESSIONID=12").header("Set-Cookie"), None)

    # Ranges

    def test_ranges(self):
        size = len(TEXT)
        rows = [
            ("bytes=0-0", 0, 0), ("bytes=10-19", 10, 19), ("bytes=-7", size - 7, size - 1),
            ("bytes=%d-" % (size - 3), size - 3, size - 1), ("bytes=5-99999999999", 5, size - 1),
            ("bytes=-99999999999", 0, size - 1), ("bytes=0-9,5-14", 0, 14),
            ("bytes=99999999999-,3-4", 3, 4), ("bytes=0-,0-,0-", 0, size - 1),
        ]
        for field, first, last in rows:
            with self.subTest(field):
                answer = self.ask("/a.txt", Range=field, Accept_Encoding="gzip, br")
                self.assertEqual(answer.status, "HTTP/1.1 206 Partial Content")
                self.assertEqual(answer.header("Content-Range"), "bytes %d-%d/%d" % (first, last, size))
                self.assertEqual(answer.body, TEXT[first:last + 1])
                self.assertEqual(answer.header("Content-Encoding"), None)
                self.assertEqual(answer.header("ETag"), self.ask("/a.txt").header("ETag"))
        for field in ("bytes=%d-" % size, "bytes=-0", "bytes=99999999999999999999999-"):
            answer = self.ask("/a.txt", Range=field)
            self.assertEqual(answer.status, "HTTP/1.1 416 Range Not Satisfiable")
            self.assertEqual(answer.header("Content-Range"), "bytes */%d" % size)
        for field in ("bytes=5-4", "bytes=a-b", "bytes=", "lines=1-2", "bytes=1-2,x", "-5", "bytes 1-2"):
            self.assertEqual(self.ask("/a.txt", Range=field).body, TEXT)
        self.assertEqual(self.status("/a.txt", "HEAD", Range="bytes=0-1"), 200)
        self.assertEqual(self.status("/empty.txt", Range="bytes=0-"), 416)
        self.assertEqual(self.status("/empty.txt", Range="bytes=-5"), 200)

    def test_several_ranges(self):
        answer = self.ask("/a.png", Range="bytes=5000-5009, 0-9, -10")
        kind, _, boundary = answer.header("Content-Type").partition("; boundary=")
        self.assertEqual(kind, "multipart/byteranges")
        self.assertRegex(boundary, r"^[0-9a-f]+$")
        self.assertEqual(answer.header("Content-Range"), None)
        pieces = answer.body.split(b"--" + boundary.encode())
        self.assertEqual(pieces[0], b"")
        self.assertEqual(pieces[-1].strip(), b"--")
        places = [(5000, 5009), (0, 9), (len(PICTURE) - 10, len(PICTURE) - 1)]
        self.assertEqual(len(pieces), len(places) + 2)
        for piece, (first, last) in zip(pieces[1:-1], places):
            self.assertEqual(piece, b"\r\nContent-Type: image/png\r\nContent-Range: bytes %d-%d/%d"
                             b"\r\n\r\n%s\r\n" % (first, last, len(PICTURE), PICTURE[first:last + 1]))

    def test_sets_that_ask_for_too_much(self):
        many = ",".join("%d-%d" % (place, place) for place in range(0, 80_000, 200))
        self.assertEqual(self.ask("/a.txt", Range="bytes=" + many).body, TEXT)
        answer = self.ask("/a.txt", Range="bytes=" + ",".join(["0-"] * 5000))
        self.assertEqual(answer.body, TEXT)

    def test_if_range(self):
        answer = self.ask("/a.txt")
        tag, modified = answer.header("ETag"), answer.header("Last-Modified")
        coded = self.ask("/a.txt", Accept_Encoding="br").header("ETag")
        for validator, status in [(tag, 206), (modified, 206), ("W/" + tag, 200), ('"a"', 200), ("*", 200),
                                  (coded, 200), ("Fri, 01 Jan 2044 00:00:00 GMT", 200), ("x", 200)]:
            with self.subTest(validator):
                answer = self.ask("/a.txt", Range="bytes=5-", If_Range=validator, Accept_Encoding="br")
                self.assertEqual(int(answer.status.split()[1]), status)
                self.assertEqual(self.decoded(answer), TEXT[5:] if status == 206 else TEXT)
        self.assertEqual(self.status("/a.txt", Range="bytes=9999999-", If_Range='"a"'), 200)

    def test_a_resumed_download_never_mixes_versions(self):
        path = self.server.root / "download.txt"
        for number in range(50):
            path.write_bytes(b"%d" % (number % 10) * 100_000)
            first = self.ask("/download.txt")
            path.write_bytes(b"%d" % ((number + 1) % 10) * 100_000)
            rest = self.ask("/download.txt", Range="bytes=50000-", If_Range=first.header("ETag"))
            self.assertEqual(rest.status, "HTTP/1.1 200 OK")

    # Resized pictures

    def test_resized_pictures(self):
        source = pathlib.Path(__file__).resolve().parents[2] / "site/pictures/fog.png"
        shutil.copy(source, self.server.root / "fog.png")
        os.utime(self.server.root / "fog.png", (LONG_AGO, LONG_AGO))
        whole, small = self.ask("/fog.png"), self.ask("/fog.png?rx=40&ry=30")
        self.assertLess(len(small.body), len(whole.body))
        self.assertNotEqual(small.header("ETag"), whole.header("ETag"))
        self.assertEqual(small.header("Vary"), None)
        time.sleep(0.1)  # until the copy's time can't stay the same if it changes
        tag = self.ask("/fog.png?rx=40&ry=30").header("ETag")
        self.assertEqual(self.status("/fog.png?rx=40&ry=30", If_None_Match=tag), 304)
        part = self.ask("/fog.png?rx=40&ry=30", Range="bytes=-20", If_Range=tag)
        self.assertEqual(part.body, small.body[-20:])
        self.assertEqual(part.status, "HTTP/1.1 206 Partial Content")


@unittest.skipUnless(shutil.which("curl"), "curl is not installed")
class RealClient(ServerTest):
    PAGES = {"a.txt": TEXT}
    SETTINGS = {"StandardHTTP": "1", "EncodeStatic": "1"}

    def curl(self, *words):
        return subprocess.run(["curl", "-sS", *words, "http://127.0.0.1:%d/a.txt" % self.server.port],
                              capture_output=True, check=True).stdout

    def test_a_broken_download_is_resumed(self):
        for more in ([], ["--compressed"]):
            with tempfile.TemporaryDirectory() as folder:
                path = pathlib.Path(folder) / "a.txt"
                path.write_bytes(TEXT[:30_000])
                self.curl("-C", "-", "-o", str(path), *more)
                self.assertEqual(path.read_bytes(), TEXT)

    def test_what_curl_asks_for_it_understands(self):
        self.assertEqual(self.curl("--compressed"), TEXT)
        self.assertEqual(self.curl("-r", "5-9"), TEXT[5:10])
        answer = self.curl("-i", "-r", "5-9,1000-1002").decode("latin-1")
        self.assertTrue(re.search("Content-Type: multipart/byteranges", answer))

    def test_curl_keeps_what_has_not_changed(self):
        with tempfile.TemporaryDirectory() as folder:
            tag, path = pathlib.Path(folder) / "tag", pathlib.Path(folder) / "a.txt"
            os.utime(self.server.root / "a.txt", (LONG_AGO, LONG_AGO))
            words = ["-w", "%{http_code}", "-o", str(path), "--etag-save", str(tag),
                     "--etag-compare", str(tag)]
            self.assertEqual([self.curl(*words) for _ in range(2)], [b"200", b"304"])
            self.assertEqual(path.read_bytes(), TEXT)


class DefaultAnswers(unittest.TestCase):
    def test_the_default_says_nothing_of_all_that(self):
        with Server({"a.txt": TEXT}, {"EncodeStatic": "1"}) as server:
            answer = server.get("/a.txt", "Accept-Encoding: br\r\nIf-None-Match: *\r\n")
            self.assertEqual(answer.status, "HTTP/1.1 200 OK")
            self.assertEqual(answer.body, TEXT)
            for name in ("ETag", "Vary", "Content-Encoding"):
                self.assertEqual(answer.header(name), None)
