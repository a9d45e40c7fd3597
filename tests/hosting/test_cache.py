"""A shared cache in front of a server that speaks standard HTTP: nginx with its cache and slices."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import unittest

from serving import Server

from hosting.proxies import Nginx

SITE = """
proxy_cache_path cache keys_zone=kept:1m;
proxy_cache kept;
proxy_cache_valid 200 206 1s;
proxy_cache_revalidate on;
add_header X-Cache $upstream_cache_status always;
server {
    listen 127.0.0.1:%(port)d;
    proxy_http_version 1.1;
    proxy_set_header Connection "";
    location / {
        proxy_pass http://127.0.0.1:%(server)d;
    }
    location /sliced/ {
        slice 256k;
        proxy_cache_key $uri$slice_range;
        proxy_set_header Range $slice_range;
        proxy_pass http://127.0.0.1:%(server)d;
    }
}
"""

TEXT = b"".join(b"line %06d of the text\n" % number for number in range(4000))
LARGE = os.urandom(3_000_000)
LONG_AGO = 1_700_000_000


@unittest.skipUnless(os.path.exists("/usr/sbin/nginx") and shutil.which("curl"),
                     "nginx or curl is not installed")
class BehindACache(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        settings = {"StandardHTTP": "1", "EncodeStatic": "1"}
        pages = {"a.txt": TEXT, "sliced/large.png": LARGE}
        cls.server = cls.enterClassContext(Server(pages, settings))
        for name in pages:
            os.utime(cls.server.root / name, (LONG_AGO, LONG_AGO))
        cls.cache = Nginx()
        cls.addClassCleanup(cls.cache.close)
        cls.cache.start_with(SITE % {"port": cls.cache.port, "server": cls.server.port})

    def fetch(self, target, *words):
        """Header lines and body, decoded."""
        with tempfile.NamedTemporaryFile() as head:
            body = subprocess.run(
                ["curl", "-sS", "-D", head.name, *words, "http://127.0.0.1:%d%s" % (self.cache.port, target)],
                capture_output=True, check=True).stdout
            lines = pathlib.Path(head.name).read_bytes().decode("latin-1").split("\r\n")
        fields = dict(line.split(": ", 1) for line in lines[1:] if ": " in line)
        return lines[0].split()[1], fields, body

    def test_it_keeps_a_copy_for_each_coding_and_asks_whether_it_still_holds(self):
        clients = [([], None), (["--compressed", "-H", "Accept-Encoding: gzip"], "gzip")]
        for seen in ("MISS", "REVALIDATED"):
            for words, coding in clients:
                status, fields, body = self.fetch("/a.txt", *words)
                self.assertEqual((status, fields["X-Cache"]), ("200", seen))
                self.assertEqual(fields.get("Content-Encoding"), coding)
                self.assertTrue(body == TEXT)
            time.sleep(2.1)
        self.server.put("a.txt", b"another text")
        for words, _ in clients:
            status, fields, body = self.fetch("/a.txt", *words)
            self.assertEqual((fields["X-Cache"], body), ("EXPIRED", b"another text"))

    def test_it_puts_a_file_together_from_ranges(self):
        for words, wanted in [([], LARGE), (["-r", "1000000-1999999"], LARGE[1_000_000:2_000_000]),
                              (["-r", "-5"], LARGE[-5:])]:
            status, _, body = self.fetch("/sliced/large.png", *words)
            self.assertEqual(status, "206" if words else "200")
            self.assertTrue(body == wanted)
