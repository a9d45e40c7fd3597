"""What the benchmarks of the server share: cores, load, and a reference server."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import urllib.error
import urllib.request

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(REPOSITORY / "tests"))

import serving  # noqa: E402

ROUNDS = int(os.environ.get("BENCH_ROUNDS", "3"))
SECONDS = os.environ.get("BENCH_SECONDS", "3")
CONNECTIONS = "64"
CORES = sorted(os.sched_getaffinity(0))
SERVER_CORE, LOAD_CORE = str(CORES[0]), str(CORES[-1])

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
{http}
  server {{
    listen 127.0.0.1:{port};
    root {root};
{server}
  }}
}}
"""


class Nginx:
    """With one worker on the server's core. `http` and `server` are lines of its configuration."""

    def __init__(self, root, server="", http=""):
        self.folder = tempfile.mkdtemp(prefix="quorvane-bench-")
        self.port = serving.free_port()
        config = pathlib.Path(self.folder) / "nginx.conf"
        config.write_text(NGINX.format(folder=self.folder, port=self.port, root=root,
                                       server=server, http=http))
        os.chmod(self.folder, 0o755)
        self.process = subprocess.Popen(
            ["taskset", "-c", SERVER_CORE, "nginx", "-p", self.folder, "-c", str(config)],
            stderr=subprocess.DEVNULL)

    def stop(self):
        self.process.terminate()
        self.process.wait(10)
        shutil.rmtree(self.folder, ignore_errors=True)


def load(port, target, headers=()):
    """What wrk says after one round."""
    words = [part for header in headers for part in ("-H", header)]
    answer = subprocess.run(
        ["taskset", "-c", LOAD_CORE, "wrk", "-t1", "-c" + CONNECTIONS, "-d" + SECONDS + "s",
         *words, "http://127.0.0.1:%d%s" % (port, target)],
        capture_output=True, text=True, check=True).stdout
    if "Non-2xx" in answer:
        raise SystemExit("error answers for %s:\n%s" % (target, answer))
    return answer


def requests_per_second(port, target, headers=()):
    return float(re.search(r"Requests/sec:\s*([\d.]+)", load(port, target, headers))[1])


def answer_to(port, target, headers=()):
    """The body of one answer, to see that both servers send as much."""
    request = urllib.request.Request("http://127.0.0.1:%d%s" % (port, target),
                                     headers=dict(header.split(": ") for header in headers))
    with urllib.request.urlopen(request) as answer:
        return answer.read()


def wait_for(port, target, what):
    def answers():
        try:
            urllib.request.urlopen("http://127.0.0.1:%d%s" % (port, target), timeout=1).close()
            return True
        except OSError:
            return False
    serving.wait_until(answers, what)


def need(*programs):
    missing = [name for name in programs if not shutil.which(name)]
    if missing:
        raise SystemExit("not installed: " + ", ".join(missing))


def our_server(files, settings=None):
    """Our server on its core, with files that the other one can read too."""
    server = serving.Server(files, {"LogServer": "0", **(settings or {})},
                            preexec=lambda: os.sched_setaffinity(0, {int(SERVER_CORE)}))
    os.chmod(server.folder, 0o755)
    return server


def pause():
    time.sleep(0.2)
