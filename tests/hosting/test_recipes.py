"""Each recipe of docs/hosting.md, word for word, with a site behind it."""

import hashlib
import http.client
import os
import random
import signal
import socket
import ssl
import time
import unittest

from serving import PATIENCE, wait_until

from hosting.proxies import Caddy, HAProxy, Nginx, ProxiedServer
from hosting.recipes import OF_INSTANCES, recipes

WHO = """<%= Request.ServerVariables("REMOTE_ADDR") & " " & Server.ClientIP & " " & _
Request.ServerVariables("HTTPS") & " " & Request.ServerVariables("SERVER_NAME") %>"""

FLUSHING = """<%
Response.Write "first": Response.Flush
started = Timer
Do While Timer - started < 1.5: Loop
Response.Write "second": Response.Flush
Do While Timer - started < 2: Loop
Response.Write "third"
%>"""

COUNTING = """<%= Len(Request.Form("a")) & " " & Request.Form("b") %>"""

MANY = bytes(random.Random(7).randrange(256) for _ in range(1 << 16)) * 64  # 4 MiB
UPLOAD = 100 << 20
LONG_AGO = 1_600_000_000
CLIENT = "127.0.0.5"  # no trusted proxy, and of this machine

PAGES = {"who.qvs": WHO, "flush.qvs": FLUSHING, "count.qvs": COUNTING, "many.png": MANY,
         "a.txt": b"plain text", "secret.txt": b"secret", "name with blank.txt": b"blank"}


class Client:
    """Speaks through the proxy, by TLS where the recipe does."""

    def __init__(self, proxy):
        self.socket = socket.create_connection(("127.0.0.1", proxy.port), timeout=PATIENCE,
                                               source_address=(CLIENT, 0))
        if proxy.is_secure:
            trust = ssl.create_default_context(cafile=str(proxy.folder / "cert"))
            trust.set_alpn_protocols(["http/1.1"])
            self.socket = trust.wrap_socket(self.socket, server_hostname="site.example")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.socket.close()

    def send(self, data):
        self.socket.sendall(data if isinstance(data, bytes) else data.encode("latin-1"))

    def answer(self, method="GET"):
        """One answer, its body decoded from whatever framing the proxy gives it."""
        reply = http.client.HTTPResponse(self.socket, method=method)
        reply.begin()
        return reply, reply.read()

    def all(self):
        """What comes until the proxy closes or says nothing more for a while."""
        self.socket.settimeout(0.5)
        received = b""
        try:
            while data := self.socket.recv(1 << 16):
                received += data
        except (TimeoutError, ConnectionResetError, ssl.SSLError):
            pass
        return received


class BehindAProxy:
    """What holds through every recipe. HEADING and PROXY tell them apart."""

    SETTINGS = {}

    @classmethod
    def setUpClass(cls):
        cls.proxy = cls.PROXY(cls.HEADING)
        cls.addClassCleanup(cls.proxy.close)
        cls.server = ProxiedServer(cls.proxy, PAGES, cls.SETTINGS)
        for name in PAGES:  # files that are only just there have a new tag with each answer
            os.utime(cls.server.root / name, (LONG_AGO, LONG_AGO))
        cls.server.__enter__()
        cls.addClassCleanup(cls.server.__exit__)
        cls.proxy.start()

    def connect(self):
        return Client(self.proxy)

    def ask(self, target, headers="", method="GET", body=b""):
        with self.connect() as client:
            client.send("%s %s HTTP/1.1\r\nHost: site.example\r\n%s\r\n" % (method, target, headers))
            client.send(body)
            return client.answer(method)

    def test_pages_see_the_client_and_its_scheme(self):
        secure = "on" if self.proxy.is_secure else "off"
        reply, body = self.ask("/who.qvs")
        self.assertEqual(reply.status, 200)
        self.assertEqual(body.decode(), "%s %s %s site.example" % (CLIENT, CLIENT, secure))

    def test_a_client_can_not_name_itself(self):
        secure = "on" if self.proxy.is_secure else "off"
        for headers in ("X-Forwarded-For: 6.6.6.6\r\n", "X-Forwarded-For: 127.0.0.1\r\n",
                        "X-Forwarded-For: 6.6.6.6\r\nX-Forwarded-For: 127.0.0.1\r\n",
                        "Forwarded: for=6.6.6.6;proto=https;host=evil\r\n",
                        "Forwarded: for=\"6.6.6.6\r\n", "X-Forwarded-For: garbage\r\n",
                        "X-Forwarded-Proto: https\r\nX-Forwarded-Host: evil.example\r\n",
                        "X-Forwarded-Proto: gopher\r\n"):
            with self.subTest(headers):
                reply, body = self.ask("/who.qvs", headers)
                self.assertEqual((reply.status, body.decode()),
                                 (200, "%s %s %s site.example" % (CLIENT, CLIENT, secure)))

    def test_the_log_names_the_client(self):
        self.ask("/a.txt?log")
        self.assertIn("%s > GET /a.txt" % CLIENT, self.log())

    def log(self):
        """The log up to now, once the server has written it to the disk."""
        mark = "/mark-%d.txt" % time.monotonic_ns()
        self.ask(mark)

        def written():
            self.server.process.send_signal(signal.SIGUSR1)
            text = self.server.log_text()
            return text if mark in text else None
        return wait_until(written, "the log")

    def test_what_is_not_there_is_a_404(self):
        reply, body = self.ask("/nothing.txt")
        self.assertEqual(reply.status, 404)
        self.assertGreater(len(body), 0)

    def test_names_with_blanks_are_found(self):
        reply, body = self.ask("/name%20with%20blank.txt")
        self.assertEqual((reply.status, body), (200, b"blank"))

    def test_several_requests_of_a_connection_are_answered_in_order(self):
        with self.connect() as client:
            for target in ("/a.txt", "/nothing.txt", "/who.qvs", "/a.txt") * 3:
                client.send("GET %s HTTP/1.1\r\nHost: site.example\r\n\r\n" % target)
                reply, body = client.answer()
                self.assertEqual(reply.status, 404 if "nothing" in target else 200)
                if target == "/a.txt":
                    self.assertEqual(body, b"plain text")
                if reply.getheader("Connection", "").lower() == "close":
                    break

    def test_large_uploads_arrive(self):
        block = b"x" * (1 << 16)
        with self.connect() as client:
            client.send("POST /count.qvs HTTP/1.1\r\nHost: site.example\r\nContent-Type: "
                        "application/x-www-form-urlencoded\r\nContent-Length: %d\r\n\r\na="
                        % (UPLOAD + 8))
            for _ in range(UPLOAD // len(block)):
                client.send(block)
            client.send("&b=end")
            self.assertEqual(client.answer()[1].decode(), "%d end" % UPLOAD)

    def test_downloads_by_ranges(self):
        for header, expected in (("bytes=0-9", MANY[:10]), ("bytes=1000000-1999999", MANY[1000000:2000000]),
                                 ("bytes=-7", MANY[-7:]), ("bytes=4194000-", MANY[4194000:])):
            reply, body = self.ask("/many.png", "Range: %s\r\n" % header)
            self.assertEqual((reply.status, hashlib.md5(body).digest()),
                             (206, hashlib.md5(expected).digest()), header)
        reply, body = self.ask("/many.png", "Range: bytes=9999999-\r\n")
        self.assertEqual(reply.status, 416)

    def test_an_interrupted_download_is_resumed_only_where_the_file_is_the_same(self):
        with self.connect() as client:
            client.send("GET /many.png HTTP/1.1\r\nHost: site.example\r\n\r\n")
            reply = http.client.HTTPResponse(client.socket)
            reply.begin()
            first = reply.read(100_000)
        tag = reply.getheader("ETag") or reply.getheader("Last-Modified")
        again, rest = self.ask("/many.png", "Range: bytes=100000-\r\nIf-Range: %s\r\n" % tag)
        self.assertEqual((again.status, first + rest == MANY), (206, True))
        other, whole = self.ask("/many.png", "Range: bytes=100000-\r\nIf-Range: \"another\"\r\n")
        self.assertEqual((other.status, whole == MANY), (200, True))

    def test_what_a_page_flushes_arrives_then(self):
        with self.connect() as client:
            client.send("GET /flush.qvs HTTP/1.1\r\nHost: site.example\r\n\r\n")
            reply = http.client.HTTPResponse(client.socket)
            reply.begin()
            self.assertEqual(reply.read(5), b"first")
            begun = time.monotonic()
            self.assertEqual(reply.read(), b"secondthird")
            # The page takes two seconds for the rest, of which a busy machine may have lost some.
            self.assertGreater(time.monotonic() - begun, 0.5)

    def test_asking_for_another_protocol_is_harmless(self):
        reply, body = self.ask("/a.txt", "Connection: Upgrade\r\nUpgrade: websocket\r\n"
                               "Sec-WebSocket-Version: 13\r\nSec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n")
        self.assertEqual((reply.status, body), (200, b"plain text"))
        self.assertEqual(self.ask("/a.txt")[1], b"plain text")

    def test_nothing_is_smuggled_in(self):
        hidden = "GET /secret.txt HTTP/1.1\r\nHost: site.example\r\n\r\n"
        many = hidden * 50
        chunked = "%x\r\n%s\r\n0\r\n\r\n" % (len(many), many)
        ends = "0\r\n\r\n" + many
        length = "Content-Length: %d\r\n"
        tries = [(method, "/%s" % name, length % len(many), many)
                 for method in ("POST", "PUT", "GET", "HEAD", "DELETE", "PATCH", "OPTIONS")
                 for name in ("a.txt", "who.qvs", "nothing.txt", "count.qvs")]
        for coding in ("chunked", "CHUNKED", " chunked", "\tchunked", "chunked ", "xchunked", "chunked, chunked",
                       "identity, chunked", "chunked, identity", "\x0bchunked", "\"chunked\"", "gzip"):
            for body in (chunked, ends):
                tries.append(("POST", "/who.qvs", "Transfer-Encoding:%s\r\n" % coding, body))
                tries.append(("POST", "/who.qvs", length % len(body)
                              + "Transfer-Encoding:%s\r\n" % coding, body))
                tries.append(("POST", "/who.qvs", length % 4
                              + "Transfer-Encoding:%s\r\n" % coding, body))
        for lines in ("Content-Length: 0\r\nContent-Length: %d\r\n", "Content-Length: %d, 0\r\n",
                      "Content-Length: +%d\r\n", "Content-Length : %d\r\n", "Content-Length:\r\n %d\r\n",
                      "A: b\r\nContent-Length: 0%d\r\n", "A: b\r Content-Length: %d\r\n",
                      "A: b\nContent-Length: %d\r\n", "Transfer-Encoding : chunked\r\nContent-Length: %d\r\n",
                      "Transfer-Encoding:\r\n chunked\r\nContent-Length: %d\r\n",
                      "Transfer-Encoding: chunked\r\nTransfer-Encoding: x\r\nContent-Length: %d\r\n",
                      "Expect: 100-continue\r\nContent-Length: %d\r\n", "Content-Length: %dx\r\n"):
            tries.append(("POST", "/who.qvs", lines % len(many), many))
            tries.append(("GET", "/a.txt", lines % len(many), many))
        for method, target, lines, body in tries:
            with self.connect() as client:
                try:
                    client.send("%s %s HTTP/1.1\r\nHost: site.example\r\n%sConnection: close\r\n\r\n%s"
                                % (method, target, lines, body))
                except OSError:
                    pass
                received = client.all()
            self.assertNotIn(b"\nsecret", received, (method, target, lines))
            self.assertLessEqual(received.count(b"HTTP/1.1 2"), 1 + received.count(b"100 Continue"),
                                 (method, target, lines))
        for _ in range(20):  # whose answers come from connections that the tries have used
            self.assertEqual(self.ask("/a.txt")[1], b"plain text")
        self.assertNotIn("> GET /secret.txt", self.log())


class NginxByTcp(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = Nginx, "nginx, by TCP"


class NginxByAFile(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = Nginx, "nginx, by a file"


class NginxWithTls(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = Nginx, "nginx, with TLS"


class HAProxyByTcp(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = HAProxy, "HAProxy, by TCP"


class HAProxyByAFile(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = HAProxy, "HAProxy, by a file"


class HAProxyWithTheProtocol(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = HAProxy, "HAProxy, with the PROXY protocol"


class HAProxyWithTls(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = HAProxy, "HAProxy, with TLS and the PROXY protocol"


class CaddyByTcp(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = Caddy, "Caddy, by TCP"


class CaddyByAFile(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = Caddy, "Caddy, by a file"


class CaddyWithTls(BehindAProxy, unittest.TestCase):
    PROXY, HEADING = Caddy, "Caddy, with TLS"


class AccessRulesBehindAProxy(unittest.TestCase):
    """They decide about the client, not about the proxy."""

    def test_a_client_that_they_keep_out_gets_403(self):
        for proxy_type, heading in ((Nginx, "nginx, by TCP"), (HAProxy, "HAProxy, by a file"),
                                    (HAProxy, "HAProxy, with the PROXY protocol"),
                                    (Caddy, "Caddy, by TCP")):
            with self.subTest(heading):
                proxy = proxy_type(heading)
                self.addCleanup(proxy.close)
                with ProxiedServer(proxy, PAGES, {"LocalhostOnly": "1"}):
                    proxy.start()
                    with Client(proxy) as client:
                        client.send("GET /a.txt HTTP/1.1\r\nHost: site.example\r\n\r\n")
                        self.assertEqual(client.answer()[0].status, 403)
                    with socket.create_connection(("127.0.0.1", proxy.port)) as local:
                        local.sendall(b"GET /a.txt HTTP/1.1\r\nHost: site.example\r\n\r\n")
                        reply = http.client.HTTPResponse(local)
                        reply.begin()
                        self.assertEqual((reply.status, reply.read()), (200, b"plain text"))


class TheRecipes(unittest.TestCase):
    def test_each_is_tested(self):
        tested = {each.HEADING for each in BehindAProxy.__subclasses__()} | OF_INSTANCES
        printed = {heading for heading, blocks in recipes().items()
                   if blocks.keys() & {"nginx", "haproxy", "caddy"}}
        self.assertEqual(printed, tested)
