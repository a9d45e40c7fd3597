#!/usr/bin/env python3
"""Requests per second beside nginx with one worker: python3 bench/http/run.py [app folder].

The server has one core to itself and the load (wrk) the other. Every line is measured in rounds
that alternate between the servers; the best round counts. nginx gets what costs it least: the
compressed text and the thumbnail lie ready beside its files.
"""

import base64
import collections
import gzip
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))

import measuring  # noqa: E402

SMALL_PAGE = """<html><body>
<% For i = 1 To 10 %>
<p>Line <%= i %> of a small page.</p>
<% Next %>
</body></html>
"""

# About ten milliseconds of work, so that the load takes next to nothing of its core.
COMPUTING_PAGE = "<% For i = 1 To 2000000: x = x + i Mod 7: Next %><%= x %>"

MIB = 1 << 20
LARGE = 64 * MIB

# `target` is what both are asked for, or `reference` if nginx is asked for something else; None
# when it has nothing of the kind. Of large answers the bytes are counted: few end within a round.
# Plain texts are asked for by name: without the header our server packs them for a client when
# the one before took packed answers.
PLAIN = ("Accept-Encoding: identity",)
Line = collections.namedtuple("Line", "name target reference headers unit")
LINES = [
    Line("1 KiB file", "/1k.txt", "/1k.txt", PLAIN, "requests"),
    Line("64 KiB file", "/64k.txt", "/64k.txt", PLAIN, "requests"),
    Line("64 MiB file, MiB/s", "/64m.mpg", "/64m.mpg", (), "MiB"),
    Line("64 KiB range", "/64m.mpg", "/64m.mpg", ("Range: bytes=1000000-1065535",), "requests"),
    Line("cached gzip copy", "/prose.txt", "/prose.txt", ("Accept-Encoding: gzip",), "requests"),
    Line("cached thumbnail", "/photo.jpg?rx=200", "/thumbnail.jpg", (), "requests"),
    Line("small script page", "/small.qvs", None, (), "requests"),
    Line("page of 200 lines", "/mixed.qvs", None, (), "requests"),
]


def rate(port, target, line):
    """Requests or MiB per second over one round."""
    if line.unit == "requests":
        return measuring.requests_per_second(port, target, line.headers)
    answer = measuring.load(port, target, line.headers)
    amount, prefix = re.search(r"Transfer/sec:\s*([\d.]+)([KMGT]?)B", answer).groups()
    return float(amount) * 1024 ** (" KMGT".index(prefix or " ")) / MIB


def prose():
    """About 100 KiB that pack to about a third, like written text does."""
    chance = random.Random(1)
    words = ["".join(chance.choices("etaoinshrdlucmfwypvbgk", k=chance.randint(2, 9)))
             for _ in range(4000)]
    return " ".join(chance.choices(words, weights=range(4000, 0, -1), k=16000)).encode()


def photo():
    """A JPEG of 4000 by 3000 pixels with shapes, gradients and moderate noise, or nothing: the
    browser draws it."""
    if not shutil.which("chromium"):
        return None
    with tempfile.TemporaryDirectory() as folder:
        shown = subprocess.run(
            ["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
             "--user-data-dir=" + folder, "--dump-dom", (HERE / "photo.html").as_uri()],
            capture_output=True, text=True).stdout
    data = re.search(r"data:image/jpeg;base64,([\w+/=]+)", shown)
    return base64.b64decode(data[1]) if data else None


def pages():
    mixed = (HERE / "mixed.qvs").read_text()
    text = prose()
    files = {"1k.txt": b"x" * 1024, "64k.txt": b"y" * 65536, "small.qvs": SMALL_PAGE,
             "mixed.qvs": mixed, "64m.mpg": random.Random(2).randbytes(LARGE), "prose.txt": text,
             "prose.txt.gz": gzip.compress(text, 6)}
    picture = photo()
    if picture:
        files["photo.jpg"] = picture
    return files


def main():
    if len(sys.argv) > 1:
        os.environ["QUORVANE_APP"] = sys.argv[1]
    measuring.need("wrk", "taskset")
    print_instances()
    with measuring.our_server(pages(), {"EncodeStatic": "1"}) as server:
        nginx = None
        if shutil.which("nginx"):
            nginx = measuring.Nginx(server.root, "location = /prose.txt { gzip_static on; }")
        try:
            measure(server, nginx)
        finally:
            if nginx:
                nginx.stop()


def measure(server, nginx):
    if nginx:
        measuring.wait_for(nginx.port, "/1k.txt", "nginx")
    lines = LINES
    if (server.root / "photo.jpg").exists():
        server.put("thumbnail.jpg", server.get("/photo.jpg?rx=200").body)
    else:
        lines = [line for line in LINES if not line.target.startswith("/photo")]
        print("no browser to draw a photo: no lines of pictures")
    for line in lines:
        body = measuring.answer_to(server.port, line.target, line.headers)
        if b"QVScript Error" in body:
            raise SystemExit("%s fails" % line.target)
        if nginx and line.reference:
            theirs = measuring.answer_to(nginx.port, line.reference, line.headers)
            if abs(len(body) - len(theirs)) > len(body) / 50:
                raise SystemExit("%s: %d bytes beside %d" % (line.name, len(body), len(theirs)))
    best = {}
    for _ in range(measuring.ROUNDS):
        for line in lines:
            ours = rate(server.port, line.target, line)
            best[line.name, 0] = max(best.get((line.name, 0), 0), ours)
            if nginx and line.reference:
                theirs = rate(nginx.port, line.reference, line)
                best[line.name, 1] = max(best.get((line.name, 1), 0), theirs)
            measuring.pause()
    print("%-20s %12s %12s %7s" % ("requests/s", "quorvane", "nginx", "ratio"))
    for line in lines:
        ours = best[line.name, 0]
        theirs = best.get((line.name, 1))
        print("%-20s %12.0f %12s %7s" % (line.name, ours, "%.0f" % theirs if theirs else "-",
                                         "%.2f" % (ours / theirs) if theirs else ""))
    print("page of 200 lines against the 1 KiB file: %.2f"
          % (best["page of 200 lines", 0] / best["1 KiB file", 0]))
    if shutil.which("php"):
        print_page_in_php(server, best["page of 200 lines", 0])
    if lines is LINES:
        print_rendering_time(server)


def print_instances():
    """Pages that only compute, by one instance and by two on one port with a core each."""
    pages_of = {"computing.qvs": COMPUTING_PAGE}
    with measuring.our_server(pages_of, {"SharePort": "1"}) as server:
        def best():
            rates = []
            for _ in range(measuring.ROUNDS):
                rates.append(measuring.requests_per_second(server.port, "/computing.qvs"))
                measuring.pause()
            return max(rates)

        one = best()
        server.environment = {"QUORVANE_INSTANCE": "2"}
        server.preexec = lambda: os.sched_setaffinity(0, {int(measuring.LOAD_CORE)})
        second = server.spawn()
        try:
            time.sleep(1)
            two = best()
        finally:
            second.terminate()
            second.wait(10)
            second.stdout.close()
    print("computing pages/s: one instance %.0f, two on two cores %.0f, %.2f times as many"
          % (one, two, two / one))


def print_page_in_php(server, page_rate):
    """What the work of the page alone costs there: compiled once, no request around it."""
    php = subprocess.run(
        ["taskset", "-c", measuring.SERVER_CORE, "php", "-n", "-d", "opcache.jit=off", HERE / "mixed.php"],
        capture_output=True, text=True, check=True)
    ours, theirs = (len("".join(text.split()))
                    for text in (server.get("/mixed.qvs").text, php.stdout))
    if abs(ours - theirs) > ours / 50:
        raise SystemExit("the page in PHP writes %d characters beside %d" % (theirs, ours))
    print("page of 200 lines: %.1f us a request; in PHP, run again and again without one, %.1f us"
          % (1e6 / page_rate, float(php.stderr)))


def print_rendering_time(server):
    """How long one client waits for a thumbnail that is made for it."""
    times = []
    for _ in range(15):
        start = time.perf_counter()
        server.get("/photo.jpg?rx=200&nc=1")
        times.append((time.perf_counter() - start) * 1000)
    print("photo of 12 megapixels to a thumbnail: %.0f ms at best, %.0f ms in the middle"
          % (min(times), sorted(times)[len(times) // 2]))


main()
