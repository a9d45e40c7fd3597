#!/usr/bin/env python3
"""Requests per second beside nginx with one worker: python3 bench/http/run.py [app folder].

The server has one core to itself and the load (wrk) the other. Every line is measured in rounds
that alternate between the servers; the best round counts.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import urllib.request

HERE = pathlib.Path(__file__).resolve().parent
REPOSITORY = HERE.parent.parent
sys.path.insert(0, str(REPOSITORY / "tests"))

import serving  # noqa: E402

ROUNDS = int(os.environ.get("BENCH_ROUNDS", "3"))
SECONDS = os.environ.get("BENCH_SECONDS", "3")
CONNECTIONS = "64"
CORES = sorted(os.sched_getaffinity(0))
SERVER_CORE, LOAD_CORE = str(CORES[0]), str(CORES[-1])

SMALL_PAGE = """<html><body>
<% For i = 1 To 10 %>
<p>Line <%= i %> of a small page.</p>
<% Next %>
</body></html>
"""

NGINX = """
worker_processes 1;
daemon off;
pid {folder}/pid;
error_log {folder}/error.log crit;
events {{ worker_connections 1024; }}
http {{
  access_log off;
  sendfile on;
  tcp_nodelay on;
  keepalive_requests 1000000000;
  default_type text/plain;
  open_file_cache max=100;
  client_body_temp_path {folder}/body;
  proxy_temp_path {folder}/proxy;
  fastcgi_temp_path {folder}/fastcgi;
  uwsgi_temp_path {folder}/uwsgi;
  scgi_temp_path {folder}/scgi;
  server {{ listen 127.0.0.1:{port}; root {root}; }}
}}
"""


class Nginx:
    def __init__(self, root):
        self.folder = tempfile.mkdtemp(prefix="quorvane-bench-")
        self.port = serving.free_port()
        config = pathlib.Path(self.folder) / "nginx.conf"
        config.write_text(NGINX.format(folder=self.folder, port=self.port, root=root))
        os.chmod(self.folder, 0o755)
        self.process = subprocess.Popen(
            ["taskset", "-c", SERVER_CORE, "nginx", "-p", self.folder, "-c", str(config)],
            stderr=subprocess.DEVNULL)

    def stop(self):
        self.process.terminate()
        self.process.wait(10)
        shutil.rmtree(self.folder, ignore_errors=True)


def rate(port, target):
    """Requests per second over one round."""
    answer = subprocess.run(
        ["taskset", "-c", LOAD_CORE, "wrk", "-t1", "-c" + CONNECTIONS, "-d" + SECONDS + "s",
         "http://127.0.0.1:%d%s" % (port, target)],
        capture_output=True, text=True, check=True).stdout
    if "Non-2xx" in answer:
        raise SystemExit("error answers for %s:\n%s" % (target, answer))
    return float(re.search(r"Requests/sec:\s*([\d.]+)", answer)[1])


def pages():
    mixed = (HERE / "mixed.qvs").read_text()
    return {"1k.txt": b"x" * 1024, "64k.txt": b"y" * 65536, "small.qvs": SMALL_PAGE,
            "mixed.qvs": mixed}


def main():
    if len(sys.argv) > 1:
        os.environ["QUORVANE_APP"] = sys.argv[1]
    missing = [name for name in ("wrk", "taskset") if not shutil.which(name)]
    if missing:
        raise SystemExit("not installed: " + ", ".join(missing))
    server = serving.Server(pages(), {"LogServer": "0"},
                            preexec=lambda: os.sched_setaffinity(0, {int(SERVER_CORE)}))
    with server:
        os.chmod(server.folder, 0o755)
        nginx = Nginx(server.root) if shutil.which("nginx") else None
        try:
            measure(server, nginx)
        finally:
            if nginx:
                nginx.stop()


def measure(server, nginx):
    if nginx:
        serving.wait_until(lambda: reachable(nginx.port), "nginx")
    lines = [("1 KiB file", "/1k.txt", True), ("64 KiB file", "/64k.txt", True),
             ("small script page", "/small.qvs", False), ("page of 200 lines", "/mixed.qvs", False)]
    for _, target, _ in lines:
        if b"QVScript Error" in server.get(target).body:
            raise SystemExit("%s fails" % target)
    best = {}
    for _ in range(ROUNDS):
        for name, target, both in lines:
            best[name, 0] = max(best.get((name, 0), 0), rate(server.port, target))
            if nginx and both:
                best[name, 1] = max(best.get((name, 1), 0), rate(nginx.port, target))
            time.sleep(0.2)
    print("%-20s %12s %12s %7s" % ("requests/s", "quorvane", "nginx", "ratio"))
    for name, _, both in lines:
        ours = best[name, 0]
        theirs = best.get((name, 1))
        print("%-20s %12.0f %12s %7s" % (name, ours, "%.0f" % theirs if theirs else "-",
                                         "%.2f" % (ours / theirs) if theirs else ""))
    print("page of 200 lines against the 1 KiB file: %.2f"
          % (best["page of 200 lines", 0] / best["1 KiB file", 0]))


def reachable(port):
    try:
        urllib.request.urlopen("http://127.0.0.1:%d/1k.txt" % port, timeout=1).close()
        return True
    except OSError:
        return False


main()
