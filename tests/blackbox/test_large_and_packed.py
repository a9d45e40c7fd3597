"""Large files, copies in the cache folder, resized pictures, resource modules."""

import gzip
import os
import resource
import struct
import tempfile
import pathlib

import programs
import serving
from serving import Server, ServerTest

GIB = 1 << 30


class LargeFiles(ServerTest):
    SIZE = 5 * GIB
    TAIL = b"the end of a large file"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        with open(cls.server.root / "large.mpg", "wb") as file:  # sparse: takes no room
            file.truncate(cls.SIZE)
            file.seek(cls.SIZE - len(cls.TAIL))
            file.write(cls.TAIL)

    def test_ranges_behind_four_gibibytes(self):
        first = self.SIZE - len(self.TAIL)
        for wanted in ("%d-" % first, "-%d" % len(self.TAIL)):
            answer = self.server.get("/large.mpg", "Range: bytes=%s\r\n" % wanted)
            self.assertEqual(answer.status, "HTTP/1.1 206 Partial Content")
            self.assertEqual(answer.header("Content-Range"),
                             "bytes %d-%d/%d" % (first, self.SIZE - 1, self.SIZE))
            self.assertEqual(answer.body, self.TAIL)

    def test_several_ranges_behind_four_gibibytes(self):
        answer = self.server.get("/large.mpg", "Range: bytes=4294967290-4294967299,-3,0-1\r\n")
        self.assertEqual(answer.status, "HTTP/1.1 206 Partial Content")
        boundary = answer.header("Content-Type").partition("boundary=")[2]
        self.assertRegex(boundary, r"^<[0-9a-f]{38}>$")
        parts = [(4294967290, 4294967299, bytes(10)), (self.SIZE - 3, self.SIZE - 1, b"ile"),
                 (0, 1, bytes(2))]
        self.assertEqual(answer.body, b"\r\n".join(
            b"--%s\r\nContent-Type: video/mpeg\r\nContent-Range: bytes %d-%d/%d\r\n\r\n%s"
            % (boundary.encode(), first, last, self.SIZE, content)
            for first, last, content in parts) + b"\r\n--%s--\r\n\r\n" % boundary.encode())

    def test_length_of_a_large_file(self):
        answer = self.server.get("/large.mpg", method="HEAD")
        self.assertEqual(answer.header("Content-Length"), str(self.SIZE))

    def test_many_readers_of_a_large_file_cost_little_memory(self):
        before = self.server.resident_bytes()
        readers = [self.server.connect() for _ in range(200)]
        try:
            for reader in readers:
                reader.send("GET /large.mpg HTTP/1.1\r\nHost: x\r\n\r\n")
            for reader in readers:
                self.assertTrue(reader.socket.recv(1 << 20).startswith(b"HTTP/1.1 200 OK"))
            for _ in range(20):
                for reader in readers:
                    self.assertTrue(reader.socket.recv(1 << 20))
            self.assertLess(self.server.resident_bytes() - before, 64 << 20)
        finally:
            for reader in readers:
                reader.close()

    def test_a_file_that_shrinks_while_it_is_sent(self):
        path = self.server.root / "shrinking.mpg"
        with open(path, "wb") as file:
            file.truncate(GIB)
        with self.server.connect() as reader:
            reader.send("GET /shrinking.mpg HTTP/1.1\r\nHost: x\r\n\r\n")
            received = len(reader.socket.recv(1 << 16))
            os.truncate(path, 1000)
            while chunk := reader.socket.recv(1 << 20):
                received += len(chunk)
        self.assertLess(received, GIB)
        self.assertEqual(self.server.get("/shrinking.mpg").header("Content-Length"), "1000")


    def test_a_file_that_is_replaced_while_it_is_sent(self):
        path = self.server.root / "replaced.mpg"
        old = os.urandom(20_000_000)
        path.write_bytes(old)
        with self.server.connect() as reader:
            reader.send("GET /replaced.mpg HTTP/1.1\r\nHost: x\r\n\r\n")
            reader.pending = reader.socket.recv(1000)
            newer = path.with_name("newer")
            newer.write_bytes(b"new")
            newer.rename(path)
            self.assertEqual(self.server.get("/replaced.mpg").body, b"new")
            self.assertTrue(reader.receive().body == old)

    def test_readers_who_take_nothing_hold_nobody_up(self):
        sleepers = [self.server.connect() for _ in range(50)]
        try:
            for sleeper in sleepers:
                sleeper.send("GET /large.mpg HTTP/1.1\r\nHost: x\r\n\r\n")
            for _ in range(20):
                self.assertEqual(self.server.get("/large.mpg", "Range: bytes=-3\r\n").body, b"ile")
        finally:
            for sleeper in sleepers:
                sleeper.close()


class Copies(ServerTest):
    PAGES = {"css/site.css": b"a { color: red }" * 100}
    SETTINGS = {"EncodeStatic": "1"}

    def test_a_copy_is_made_once_and_kept(self):
        self.server.cache.mkdir(exist_ok=True)
        accepts = "Accept-Encoding: gzip\r\n"
        first = self.server.get("/css/site.css", accepts)
        self.assertEqual(first.header("Content-encoding"), "gzip")
        self.assertEqual(gzip.decompress(first.body), self.PAGES["css/site.css"])
        self.assertEqual((self.server.cache / "^CSS^SITE.CSS").read_bytes(), first.body)
        self.server.put("css/site.css", b"b {}")
        self.assertEqual(self.server.get("/css/site.css", accepts).body, first.body)
        self.assertEqual(self.server.get("/css/site.css", "Accept-Encoding: none\r\n").body, b"b {}")


    def test_a_full_disk_leaves_no_half_copy(self):
        def let_files_grow_little():
            resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000))
        text = os.urandom(300_000)
        settings = {**self.SETTINGS, "LogServer": "0"}
        with Server({"large.txt": text, "small.txt": b"text"}, settings,
                    preexec=let_files_grow_little) as server:
            for _ in range(2):
                answer = server.get("/large.txt", "Accept-Encoding: gzip\r\n")
                self.assertTrue(gzip.decompress(answer.body) == text)
            server.get("/small.txt", "Accept-Encoding: gzip\r\n")
            self.assertEqual([path.name for path in server.cache.iterdir()], ["^SMALL.TXT"])


class Pictures(ServerTest):
    PAGES = {"logo.png": (serving.REPOSITORY / "site/logo.png").read_bytes(),
             "broken.png": b"\x89PNG\r\n\x1a\nno picture"}

    @staticmethod
    def size(png):
        return struct.unpack(">II", png[16:24])

    def test_resized(self):
        self.server.cache.mkdir(exist_ok=True)
        width, height = self.size(self.PAGES["logo.png"])
        self.assertEqual(self.size(self.server.get("/logo.png").body), (width, height))
        self.assertEqual(self.size(self.server.get("/logo.png?rx=20&ry=10&ar=0").body), (20, 10))
        self.assertTrue((self.server.cache / "^R20x10logo.png").exists())

    def test_copies_are_bounded(self):
        with Server(self.PAGES) as server:
            server.cache.mkdir(exist_ok=True)
            for number in range(1, 1100):  # what an earlier run left, the highest numbers last
                copy = server.cache / ("^R%dx0logo.png" % number)
                copy.write_bytes(b"old")
                os.utime(copy, (number, number))
            (server.cache / "^OTHER.TXT").write_bytes(b"packed")
            self.assertEqual(self.size(server.get("/logo.png?rx=7&ry=9&ar=0").body), (7, 9))
            names = {path.name for path in server.cache.iterdir()}
        self.assertEqual(len(names), 1024 + 1)
        self.assertLessEqual({"^OTHER.TXT", "^R7x9logo.png", "^R1099x0logo.png"}, names)
        self.assertNotIn("^R76x0logo.png", names)
        self.assertIn("^R77x0logo.png", names)

    def test_a_broken_picture_is_served_as_it_is(self):
        self.assertEqual(self.server.get("/broken.png?rx=20").body, self.PAGES["broken.png"])


class Modules(ServerTest):
    def test_a_packed_site_in_the_servers_language(self):
        with tempfile.TemporaryDirectory() as folder:
            site = pathlib.Path(folder, "site")
            (site / "img").mkdir(parents=True)
            (site / "index.qvs").write_text("<%= 6 * 7 %> pages")
            (site / "1031$index.qvs").write_text("<%= 6 * 7 %> Seiten")
            (site / "img/note.txt").write_text("a note")
            module = pathlib.Path(folder, "site.qvm")
            programs.run("qvmpack", "pack", site, module, check=True, capture_output=True)
            packed = module.read_bytes()
        for language, text in (("1031", "42 Seiten"), ("1036", "42 pages")):
            with Server({"site.qvm": packed}, {"DefaultLCID": language}) as server:
                self.assertEqual(server.get("/").text, text)
                self.assertEqual(server.get("/IMG/Note.TXT").text, "a note")

    def test_nothing_is_unpacked_through_links(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            site, target, elsewhere = folder / "site", folder / "target", folder / "elsewhere"
            for one in (site / "out", target, elsewhere):
                one.mkdir(parents=True)
            for packed in ("out/a.txt", "b.txt", "c.txt"):
                (site / packed).write_text("packed")
            kept = folder / "kept.txt"
            kept.write_text("kept")
            module = folder / "site.qvm"
            programs.run("qvmpack", "pack", site, module, check=True, capture_output=True)
            (target / "out").symlink_to(elsewhere)
            (target / "b.txt").symlink_to(kept)
            unpacked = programs.run("qvmpack", "unpack", module, target, capture_output=True)
            self.assertEqual(unpacked.returncode, 1, unpacked.stderr)
            self.assertEqual(list(elsewhere.iterdir()), [])
            self.assertEqual(kept.read_text(), "kept")
            self.assertEqual((target / "c.txt").read_text(), "packed")


class Waiting(ServerTest):
    PAGES = {"echo.qvs": "<%= Request.Form(\"a\") %>"}

    def test_a_client_that_waits_for_a_word_before_its_body(self):
        with self.server.connect() as client:
            client.send("POST /echo.qvs HTTP/1.1\r\nHost: x\r\nExpect: 100-continue\r\n"
                        "Content-Length: 7\r\n\r\n")
            self.assertEqual(client.receive(with_body=False).status, "HTTP/1.1 100 Continue")
            client.send("a=hello")
            self.assertEqual(client.receive().text, "hello")
