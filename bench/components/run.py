#!/usr/bin/env python3
"""Pages that work with components beside the same pages in PHP:
python3 bench/components/run.py [app folder].

PHP's FastCGI server stands behind nginx, both on the core that ours has to itself in its turn; the
load has the other. PHP keeps its compiled pages and its connections to the database. Every line is
measured in rounds that alternate between the two; the best round counts. Beside the rates stands the
time of the core that a request took, which other programs on the machine disturb less.
"""

import os
import pathlib
import random
import re
import shutil
import sqlite3
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))

import measuring  # noqa: E402

PHP = shutil.which("php-fpm8.2") or "/usr/sbin/php-fpm8.2"
LINES = {"rows": "50 rows into a table", "write": "a row in a transaction",
         "xml": "100 KiB of XML, walked", "text": "a text file of 64 KiB",
         "mixed": "customary page, 200 lines"}

# The page of 200 lines that bench/http measures, in the customary dialect.
CUSTOMARY = {"Server.ClientIP": 'Request.ServerVariables("REMOTE_ADDR")',
             "Server.HostAddr": 'Request.ServerVariables("SERVER_NAME")',
             "Server.HeaderVarCount": "Request.ServerVariables.Count",
             'Not Server.HeaderVar("Accept") Is Nothing': 'Request.ServerVariables("HTTP_ACCEPT") <> ""',
             'Server.HeaderVar("Accept").Value': 'Request.ServerVariables("HTTP_ACCEPT")',
             "Server.Version": 'Request.ServerVariables("SERVER_SOFTWARE")'}

FPM = """
[global]
error_log = {folder}/php.log
daemonize = no
[www]
listen = {folder}/php.sock
listen.mode = 0666
pm = static
pm.max_children = {children}
"""

FASTCGI = """
    location ~ [.]php$ {{
      fastcgi_pass php;
      fastcgi_keep_conn on;
      fastcgi_param SCRIPT_FILENAME {root}$fastcgi_script_name;
      fastcgi_param REQUEST_METHOD $request_method;
      fastcgi_param QUERY_STRING $query_string;
      fastcgi_param REMOTE_ADDR $remote_addr;
      fastcgi_param SERVER_ADDR $server_addr;
    }}
"""


class PhpServer:
    def __init__(self, folder, children):
        self.socket = folder / "php.sock"
        config = folder / "php-fpm.conf"
        config.write_text(FPM.format(folder=folder, children=children))
        as_root = ["-R"] if os.getuid() == 0 else []
        user = "" if not as_root else "user = root\ngroup = root\n"
        config.write_text(config.read_text() + user)
        self.process = subprocess.Popen(
            ["taskset", "-c", measuring.SERVER_CORE, PHP, *as_root, "-y", str(config),
             "-d", "opcache.enable=1", "-d", "opcache.validate_timestamps=1"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def stop(self):
        self.process.terminate()
        self.process.wait(10)


def goods():
    chance = random.Random(3)
    word = lambda: "".join(chance.choices("etaoinshrdlu", k=chance.randint(3, 9))).capitalize()
    return [(number, word() + "&" + word(), word(), chance.randint(100, 99999) / 100)
            for number in range(1, 501)]


def make_database(path, rows):
    with sqlite3.connect(path) as db:
        db.execute("CREATE TABLE goods (id INTEGER PRIMARY KEY, name VARCHAR(60) COLLATE NOCASE, "
                   "town VARCHAR(40), price DOUBLE)")
        db.execute("CREATE TABLE visits (id INTEGER PRIMARY KEY, page VARCHAR(60), "
                   "visitor VARCHAR(40), minutes INTEGER)")
        db.execute("CREATE INDEX goods_by_name ON goods (name)")
        db.executemany("INSERT INTO goods VALUES (?, ?, ?, ?)", rows)


def xml_of(rows, size=100 << 10):
    parts = ['<?xml version="1.0" encoding="UTF-8"?>\n<goods>\n']
    length = 0
    while length < size:
        for number, name, town, price in rows:
            parts.append('  <item id="%d" price="%.2f">\n    <name>%s</name>\n    <town>%s</town>\n'
                         '    <note>Kept in stock</note>\n  </item>\n'
                         % (number, price, name.replace("&", "&amp;"), town))
            length += len(parts[-1])
            if length >= size:
                break
    return ("".join(parts) + "</goods>\n").encode()


def prose(size=64 << 10):
    chance = random.Random(4)
    text = ""
    while len(text) < size:
        text += " ".join("".join(chance.choices("etaoinshrdlu", k=chance.randint(2, 9)))
                         for _ in range(12)) + "\n"
    return text[:size - 1].encode() + b"\n"


def pages():
    files = {page.name: page.read_text() for page in [*HERE.glob("*.qvs"), *HERE.glob("*.php")]}
    mixed = (HERE.parent / "http/mixed.qvs").read_text()
    for own, customary in CUSTOMARY.items():
        mixed = mixed.replace(own, customary)
    files["mixed.qvs"] = "<%@ Language=VBScript %>\n" + mixed
    files["mixed.php"] = (HERE.parent / "http/mixed.php").read_text()
    return {**files, "data/goods.xml": xml_of(goods()), "data/prose.txt": prose()}


def main():
    if len(sys.argv) > 1:
        os.environ["QUORVANE_APP"] = sys.argv[1]
    measuring.need("wrk", "taskset")
    with measuring.our_server(pages(), {"Customary": "1"}) as server:
        make_database(server.root / "data/bench.db", goods())
        if not shutil.which("nginx") or not os.path.exists(PHP):
            print("nginx or php8.2-fpm is not installed: nothing to compare with")
            measure(server, None)
            return
        php = PhpServer(server.folder, int(os.environ.get("BENCH_PHP_CHILDREN", "4")))
        nginx = measuring.Nginx(
            server.root, FASTCGI.format(root=server.root),
            "  upstream php { server unix:%s; keepalive 16; }" % php.socket)
        try:
            measuring.wait_for(nginx.port, "/text.php", "PHP")
            pids = processes_below(nginx.process.pid) + processes_below(php.process.pid)
            measure(server, nginx.port, pids)
        finally:
            nginx.stop()
            php.stop()


def processes_below(pid):
    """The process and what it has started."""
    found = [pid]
    for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
        try:
            parent = int(stat.read_text().rpartition(")")[2].split()[1])
        except OSError:
            continue  # it has ended meanwhile
        if parent == pid:
            found += processes_below(int(stat.parent.name))
    return found


def core_seconds(pids):
    total = 0
    for pid in pids:
        fields = pathlib.Path("/proc/%d/stat" % pid).read_text().rpartition(")")[2].split()
        total += int(fields[11]) + int(fields[12])
    return total / os.sysconf("SC_CLK_TCK")


def round_of(port, target, pids):
    """Requests per second, and microseconds of the core for one."""
    before = core_seconds(pids)
    rate = measuring.requests_per_second(port, target)
    return rate, (core_seconds(pids) - before) / (rate * float(measuring.SECONDS)) * 1e6


def same_work(name, ours, theirs):
    """Both pages say the same, up to the spelling of numbers and line ends."""
    def words(body):
        return re.sub(rb"\s+", b"", body)
    if name == "mixed":  # names and versions of the servers stand in it
        if abs(len(words(ours)) - len(words(theirs))) > len(ours) / 20:
            raise SystemExit("the pages of 200 lines differ:\n%r\n%r" % (ours, theirs))
    elif words(ours) != words(theirs):
        raise SystemExit("%s: the pages differ:\n%r\n%r" % (name, ours[:400], theirs[:400]))


def measure(server, reference, pids=()):
    for name in LINES:
        ours = measuring.answer_to(server.port, "/%s.qvs" % name)
        if b"QVScript Error" in ours or b"An error occurred" in ours:
            raise SystemExit("%s.qvs fails: %r" % (name, ours))
        if reference:
            same_work(name, ours, measuring.answer_to(reference, "/%s.php" % name))
    sides = [("qvs", server.port, [server.process.pid])]
    if reference:
        sides.append(("php", reference, pids))
    rounds = {}
    for _ in range(measuring.ROUNDS):
        for name in LINES:
            for ending, port, measured in sides:
                rounds.setdefault((name, ending), []).append(
                    round_of(port, "/%s.%s" % (name, ending), measured))
                measuring.pause()
    print("%-24s %10s %10s %6s   %9s %9s %6s"
          % ("requests/s", "quorvane", "PHP", "ratio", "us of it", "PHP", "ratio"))
    for name, title in LINES.items():
        rate, cost = (pick(column) for pick, column in
                      zip((max, min), zip(*rounds[name, "qvs"])))
        line = "%-24s %10.0f" % (title, rate)
        if reference:
            their_rate, their_cost = (pick(column) for pick, column in
                                      zip((max, min), zip(*rounds[name, "php"])))
            line += " %10.0f %6.2f   %9.0f %9.0f %6.2f" % (
                their_rate, rate / their_rate, cost, their_cost, their_cost / cost)
        print(line)


main()
