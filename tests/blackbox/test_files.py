"""Files, errors and the bytes of whole responses."""

import re

from serving import ServerTest

DATE = rb"(Mon|Tue|Wed|Thu|Fri|Sat|Sun), \d\d [A-Z][a-z][a-z] \d{4} \d\d:\d\d:\d\d GMT"


class Files(ServerTest):
    PAGES = {
        "hello.txt": b"hello, file",
        "empty.txt": b"",
        "big.txt": bytes(range(256)) * 4096,
        "Mixed/Case.TXT": b"case",
        "index.qvs": "home",
        "style.css": b"a{}",
        "setup.exe": b"MZ",
        "secret.inc": b"secret",
    }

    def test_whole_response(self):
        data = self.server.raw(b"GET /hello.txt HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n")
        self.assertRegex(data, re.compile(
            rb"\AHTTP/1\.1 200 OK\r\n"
            rb"Content-Length: 11\r\n"
            rb"Server: Quorvane-Server/\d+\.\d+\.\d+\r\n"
            rb"Accept-Ranges: bytes\r\n"
            rb"Content-Type: text/plain\r\n"
            rb"Last-Modified: [^\r]*GMT\r\n"
            rb"Connection: Close\r\n"
            rb"Date: " + DATE + rb"\r\n"
            rb"\r\n"
            rb"hello, file\Z"))

    def test_not_found(self):
        data = self.server.raw(b"GET /dir/missing.txt HTTP/1.1\r\nHost: x\r\n\r\n")
        self.assertRegex(data, re.compile(
            rb"\AHTTP/1\.1 404 No Found\r\n" + DATE + rb"\r\n"
            rb"Server: Quorvane-Server/\d+\.\d+\.\d+\r\n"
            rb"Connection: Close\r\n"
            rb"Content-Type: text/html\r\n"
            rb"Content-Length: 305\r\n"
            rb"\r\n"
            rb"<html><head><title>The page cannot be found</title></head><body>"
            rb"<font face='Arial' size='4' color='#990000'><b>HTTP/1\.1 404 Not found</b></font><hr>"
            rb"<p><font face='Verdana' size='2'><b>Error 404</b><br>"
            rb"<font color='#990000'>The page cannot be found</font><br><br>"
            rb"<i>missing\.txt</i></font></p></body></html>\Z"))

    def test_bad_request(self):
        for request in (b"GET /a b HTTP/1.1\r\n\r\n", b"GET  / HTTP/1.1\r\n\r\n",
                        b"GET /\r\n\r\n", b"GET / HTTP/1.1\r\nHost: a/b\r\n\r\n",
                        b"GET / HTTP/1.1\r\nHost:\r\n\r\n"):
            data = self.server.raw(request)
            self.assertRegex(data, re.compile(
                rb"\AHTTP/1\.1 400 Bad Request\r\n" + DATE + rb"\r\n"
                rb"Server: [^\r]*\r\nConnection: Close\r\nContent-Type: text/html\r\n"
                rb"Content-Length: 268\r\n\r\n"))
            self.assertEqual(len(data.partition(b"\r\n\r\n")[2]), 268)

    def test_extension_not_allowed(self):
        self.assertEqual(self.server.get("/setup.exe").status, "HTTP/1.1 404 No Found")
        self.assertEqual(self.server.get("/secret.inc").status, "HTTP/1.1 404 No Found")

    def test_large_and_empty_files(self):
        self.assertEqual(self.server.get("/big.txt").body, bytes(range(256)) * 4096)
        self.assertEqual(self.server.get("/empty.txt").header("Content-Length"), "0")

    def test_letter_case_of_names(self):
        self.assertEqual(self.server.get("/mixed/CASE.txt").body, b"case")

    def test_head(self):
        whole = self.server.get("/hello.txt")
        data = self.server.raw(b"HEAD /hello.txt HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n")
        self.assertTrue(data.endswith(b"\r\n\r\n"))
        self.assertIn(b"Content-Length: 11\r\n", data)
        self.assertEqual(len(data.split(b"\r\n")) - 1, len(whole.lines) + 1)

    def test_any_directory_gives_the_roots_default_document(self):
        for target in ("/", "/mixed/", "/no/such/folder/", "/?a=1"):
            self.assertEqual(self.server.get(target).body, b"home")

    def test_ranges(self):
        part = self.server.get("/big.txt", "Range: bytes=10-19\r\n")
        self.assertEqual(part.status, "HTTP/1.1 206 Partial Content")
        self.assertEqual(part.body, bytes(range(10, 20)))
        self.assertEqual(part.header("Content-Range"), "bytes 10-19/1048576")
        self.assertEqual(self.server.get("/big.txt", "Range: bytes=5\r\n").status,
                         "HTTP/1.1 400 Bad Request")

    def test_targets_never_leave_the_document_root(self):
        outside = self.server.folder / "main/Server/outside.txt"
        outside.write_bytes(b"not to be seen")
        for target in ("/../outside.txt", "/Mixed/../../outside.txt", "/..\\outside.txt",
                       "/%2e%2e/outside.txt", "/....//outside.txt", "//../outside.txt",
                       "/Mixed/..\\..\\outside.txt", "/C:/outside.txt", "/nul.txt", "/con.txt",
                       "/hello.txt::$DATA.txt", str(outside), "/" + str(outside)):
            response = self.server.get(target)
            self.assertEqual(response.status, "HTTP/1.1 404 No Found", target)
            self.assertNotIn(b"not to be seen", response.body, target)
        data = self.server.raw(b"GET /hello.txt\0.txt HTTP/1.1\r\nHost: x\r\n\r\n")
        self.assertNotIn(b"hello, file", data)

    def test_log_lines(self):
        with self.server.__class__({"a.txt": b"a"}, {"LogServer": "1"}) as server:
            server.get("/a.txt")
            server.get("/gone.txt")
            server.get("/no.exe")
            server.raw(b"GET x\r\n\r\n")
            self.assertEqual(server.stop(), 0)
            log = server.log_text()
        self.assertRegex(log, r"\[\d\d:\d\d:\d\d\] Connection request from IP 127\.0\.0\.1\r\n")
        self.assertIn("] 127.0.0.1 > GET /a.txt\r\n", log)
        self.assertIn("] 127.0.0.1 > NOT FOUND: /gone.txt\r\n", log)
        self.assertIn("] 127.0.0.1 > NOT ALLOWED: /no.exe\r\n", log)
        self.assertIn("] 127.0.0.1 > INVALID HEADER: ||GET x||||\r\n", log)
        self.assertIn("] Server Stop\r\n", log)
        self.assertTrue(log.rstrip().endswith("] Server Closing"))
