"""PostgreSQL and MariaDB servers of the tests' own: on free ports, with their data below the build
folder, ended with the tests."""

import atexit
import glob
import os
import pathlib
import pwd
import shutil
import signal
import subprocess
import tempfile

import serving
from serving import REPOSITORY, free_port, wait_until

START_PATIENCE = 60  # seconds; machines of tests may be busy
PASSWORD = "s;e'c}r=et"  # one that wants its marks in a connection text


def tool(name, *patterns):
    """The path of a server's program, some of which stand outside of PATH."""
    found = shutil.which(name, path=os.environ.get("PATH", "") + ":/usr/sbin:/usr/local/sbin")
    for pattern in patterns:
        found = found or next(iter(sorted(glob.glob(pattern + "/" + name), reverse=True)), None)
    if not found:
        raise AssertionError(f"{name} is not installed; tools/deps test sees to it")
    return found


class DatabaseServer:
    """A server process with a folder. Servers refuse to be root's, so that they are nobody's then."""

    def __init__(self):
        self.port = free_port()
        self.account = pwd.getpwnam("nobody") if os.geteuid() == 0 else None
        self.folder = self.make_folder(type(self).__name__.lower())
        self.data = self.folder / "data"
        self.log = open(self.folder / "log", "w+b")
        self.set_up()
        self.start()
        atexit.register(self.stop)

    def start(self):
        self.process = subprocess.Popen(self.command(), **self.as_user(), start_new_session=True)

    def make_folder(self, name):
        build = pathlib.Path(os.environ.get("QUORVANE_DATABASES", REPOSITORY / "build/databases"))
        build.mkdir(parents=True, exist_ok=True)
        folder = pathlib.Path(tempfile.mkdtemp(prefix=name + "-", dir=build))
        if self.account:
            os.chown(folder, self.account.pw_uid, self.account.pw_gid)
            if self.quietly("test", "-x", folder).returncode != 0:  # a build below root's own home
                shutil.rmtree(folder)
                folder = pathlib.Path(tempfile.mkdtemp(prefix=name + "-"))
                os.chown(folder, self.account.pw_uid, self.account.pw_gid)
        return folder

    def as_user(self):
        words = dict(stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log, cwd="/")
        if self.account:
            words.update(user=self.account.pw_uid, group=self.account.pw_gid, extra_groups=[])
        return words

    def quietly(self, *words):
        who = dict(user=self.account.pw_uid, group=self.account.pw_gid) if self.account else {}
        return subprocess.run([str(word) for word in words], capture_output=True, cwd="/", **who)

    def run(self, *words, **more):
        result = subprocess.run([str(word) for word in words], **{**self.as_user(), **more})
        if result.returncode != 0:
            self.complain(f"{words[0]} failed")

    def complain(self, text):
        self.log.flush()
        raise AssertionError(text + ":\n" + (self.folder / "log").read_text(errors="replace"))

    def answers(self):
        if self.process.poll() is not None:
            self.complain("a database server has ended")
        return self.quietly(*self.ping()).returncode == 0

    def wait_until_ready(self):
        wait_until(self.answers, type(self).__name__, START_PATIENCE)
        self.prepare()

    def prepare(self):
        pass

    def freeze(self):
        """All that belongs to the server stands still, as a machine that has gone does."""
        self.signal_all(signal.SIGSTOP)

    def thaw(self):
        self.signal_all(signal.SIGCONT)

    def signal_all(self, number):
        """PostgreSQL's processes lead sessions of their own, but all are this one's children."""
        children = pathlib.Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children")
        for process in [self.process.pid, *map(int, children.read_text().split())]:
            try:
                os.kill(process, number)
            except ProcessLookupError:
                pass

    def restart(self):
        self.end()
        self.start()
        wait_until(self.answers, type(self).__name__, START_PATIENCE)

    def end(self):
        if self.process.poll() is not None:
            return
        self.thaw()
        self.process.send_signal(self.end_signal)
        try:
            self.process.wait(serving.PATIENCE)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    def stop(self):
        atexit.unregister(self.stop)
        self.end()
        self.log.close()
        shutil.rmtree(self.folder, ignore_errors=True)


class PostgreSql(DatabaseServer):
    end_signal = signal.SIGINT  # at once, whoever is connected
    patterns = ("/usr/lib/postgresql/*/bin",)
    user = "tester"

    def set_up(self):
        secret = self.folder / "secret"
        secret.write_text(PASSWORD + "\n")
        secret.chmod(0o644)
        self.run(tool("initdb", *self.patterns), "-D", self.data, "-U", self.user, "-A",
                 "scram-sha-256", "--pwfile", secret, "-E", "UTF8", "--locale=C.UTF-8", "--no-sync")

    def command(self):
        return [tool("postgres", *self.patterns), "-D", str(self.data), "-p", str(self.port),
                "-c", "listen_addresses=127.0.0.1", "-c", f"unix_socket_directories={self.folder}",
                "-c", "fsync=off"]

    def ping(self):
        return [tool("pg_isready", *self.patterns), "-h", self.folder, "-p", self.port]

    def text(self, **parts):
        return connection_text({
            "Driver": "{PostgreSQL Unicode}", "Server": "127.0.0.1", "Port": self.port,
            "Database": "postgres", "Uid": self.user, "Pwd": marked(PASSWORD), **parts})


class MariaDb(DatabaseServer):
    end_signal = signal.SIGTERM
    user = "tester"

    def set_up(self):
        self.run(tool("mariadb-install-db"), "--no-defaults", f"--datadir={self.data}",
                 "--auth-root-authentication-method=normal", "--skip-test-db",
                 "--skip-name-resolve", "--innodb-flush-log-at-trx-commit=0")

    def command(self):
        return [tool("mariadbd"), "--no-defaults", f"--datadir={self.data}",
                f"--socket={self.folder}/socket", f"--port={self.port}",
                "--bind-address=127.0.0.1", "--skip-name-resolve", "--skip-log-bin",
                "--innodb-flush-log-at-trx-commit=0", "--character-set-server=utf8mb4",
                f"--pid-file={self.folder}/pid"]

    def client(self):
        return [tool("mariadb"), "--no-defaults", f"--socket={self.folder}/socket", "-u", "root"]

    def ping(self):
        return [*self.client(), "-e", "SELECT 1"]

    def prepare(self):
        secret = PASSWORD.replace("'", "''")
        statements = (f"CREATE DATABASE tests; CREATE USER {self.user} IDENTIFIED BY '{secret}'; "
                      f"GRANT ALL ON *.* TO {self.user}")
        self.run(*self.client(), "-e", statements)

    def text(self, **parts):
        return connection_text({
            "Driver": "{MariaDB Unicode}", "Server": "127.0.0.1", "Port": self.port,
            "Database": "tests", "Uid": self.user, "Pwd": marked(PASSWORD), **parts})


def marked(value):
    return "{" + value.replace("}", "}}") + "}"


def connection_text(parts):
    return ";".join(f"{name}={value}" for name, value in parts.items())


_running = {}


def server(kind):
    """The running server of a class, begun by the first test that asks. Both begin together, for
    most of their beginning is waiting."""
    if not _running:
        for each in (PostgreSql, MariaDb):
            _running[each] = each()
        for each in _running.values():
            each.wait_until_ready()
    return _running[kind]
