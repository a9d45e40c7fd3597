"""What an operator may do wrong, and how the program tells."""

import os
import pathlib
import pwd
import shutil
import signal
import subprocess
import tempfile
import unittest

from serving import PATIENCE, Server, app_folder, wait_until

TEMPORARY_FAILURE = 75
NO_PERMISSION = 77


def run(*words, **options):
    return subprocess.run([str(app_folder() / words[0]), *words[1:]], stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=PATIENCE, **options)


class Questions(unittest.TestCase):
    def ask(self, *words):
        with tempfile.TemporaryDirectory() as folder:
            store = os.path.join(folder, "store")
            done = run("quorvane-server", *words, env={**os.environ, "QUORVANE_REGISTRY": store})
            self.assertFalse(os.path.exists(store), "it has begun to start")
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return done.stdout.decode()

    def test_the_version(self):
        self.assertRegex(self.ask("--version"), r"\AQuorvane Server \d+\.\d+\.\d+ \(Beta\)\n\Z")

    def test_help(self):
        for question in ("--help", "/?"):
            answer = self.ask(question)
            for switch in ("/debug", "/idle", "/noqvm", "/logheaders", "/devmode", "/install",
                           "/uninstall", "/start", "/stop"):
                self.assertIn(switch, answer)


class Refusals(unittest.TestCase):
    def test_a_taken_port_is_told_in_one_line(self):
        with Server() as server:
            other = Server(settings={"Port": str(server.port)})
            other.process = other.spawn()
            try:
                wait_until(lambda: "PORT ERROR" in other.log_text(), "the port error")
                other.stop()
                self.assertEqual(other.process.stdout.read(),
                                 b"quorvane-server: port %d is taken or not for this user; "
                                 b"nothing is served\n" % server.port)
            finally:
                other.__exit__()

    def test_a_second_instance_is_silent_but_its_status_tells(self):
        with Server({"a.txt": b"a"}) as server:
            second = server.spawn()
            self.assertEqual(second.communicate(timeout=PATIENCE), (b"", None))
            self.assertEqual(second.returncode, TEMPORARY_FAILURE)
            self.assertEqual(server.get("/a.txt").body, b"a")

    @unittest.skipIf(os.geteuid() != 0, "only the administrator can become somebody else")
    def test_installing_without_rights_is_silent_but_its_status_tells(self):
        nobody = pwd.getpwnam("nobody")
        with tempfile.TemporaryDirectory() as folder:
            program = shutil.copy(app_folder() / "quorvane-server", folder)
            os.chmod(folder, 0o755)
            for switch in ("/install", "/uninstall"):
                done = subprocess.run([program, switch], capture_output=True, timeout=PATIENCE,
                                      user=nobody.pw_uid, group=nobody.pw_gid, cwd="/",
                                      env={**os.environ, "QUORVANE_REGISTRY": folder + "/store"})
                self.assertEqual((done.returncode, done.stdout, done.stderr),
                                 (NO_PERMISSION, b"", b""))


FAULTY = (b"\xef\xbb\xbfPort=%d\r\n"
          b"EncodeStatic = 1\r\n"
          b"EncodeStatics=1\r\n"
          b"LogServer=1 ; yes\r\n"
          b"nothing\r\n")
FINDINGS = ["line 2 not taken: EncodeStatic is \" 1\"; it is neither \"0\" nor \"1\" and counts as \"0\"",
            "line 3 not taken: there is no setting \"EncodeStatics\"",
            "line 4 not taken: LogServer is \"1 ; yes\"; it is neither \"0\" nor \"1\" and counts as \"1\"",
            "line 5 not taken: it has no \"=\""]


class Settings(unittest.TestCase):
    def prepared(self):
        server = Server({"a.txt": b"a"})
        self.addCleanup(server.__exit__)
        server.ini.write_bytes(FAULTY % server.port)
        return server

    def test_lines_that_are_not_taken_stand_behind_the_banner(self):
        server = self.prepared()
        with server:
            self.assertEqual(server.get("/a.txt").body, b"a", "the first line counts")
            server.stop()
            lines = [line.partition("] ")[2] for line in server.log_text().split("\r\n")]
        end = lines.index("", lines.index("Resource Mode: QVM"))
        self.assertEqual(lines[end + 1:end + 6],
                         ["Settings " + finding for finding in FINDINGS] + ["Server Start"])

    def test_the_control_program_says_the_same_and_starts_nothing(self):
        server = self.prepared()
        before = server.ini.read_bytes()
        environment = {**os.environ, "QUORVANE_REGISTRY": str(server.registry)}
        done = run("qvsctl", "check", env=environment)
        self.assertEqual(done.stdout.decode().splitlines(),
                         ["Settings " + finding for finding in FINDINGS])
        self.assertEqual((done.returncode, done.stderr), (1, b""))
        self.assertEqual(server.ini.read_bytes(), before)
        server.ini.write_text("Port=80\n")
        self.assertEqual(run("qvsctl", "check", env=environment).returncode, 0)


class RelativeFolders(unittest.TestCase):
    MAP = {"map.qvs": "<%= Server.MapPath() %>", "a.txt": b"a"}

    def test_settings_and_base_folder_may_be_relative(self):
        server = Server(self.MAP)
        self.addCleanup(server.__exit__)
        (server.registry / "HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane.ini").write_text(
            "MainPath=main\n")
        server.registry = pathlib.Path("registry")  # the program's folder is the one above
        with server:
            for _ in range(2):
                self.assertEqual(server.get("/map.qvs").text, str(server.root))
                self.assertEqual(server.get("/a.txt").body, b"a")
            server.stop()
            self.assertIn("] Server Closing\r\n", server.log_text())


class Signals(unittest.TestCase):
    def log_files(self, server):
        return {path.name: path.read_bytes() for path in server.logs.glob("*.LOG")}

    def test_quit_ends_in_the_orderly_way(self):
        with Server() as server:
            server.process.send_signal(signal.SIGQUIT)
            self.assertEqual(server.process.wait(PATIENCE), 0)
            self.assertIn("] Server Closing\r\n", server.log_text())

    def test_a_new_log_begins_and_nothing_is_dropped(self):
        def heed():  # whatever the tests themselves were started under
            signal.signal(signal.SIGHUP, signal.SIG_DFL)

        with Server({"a.txt": b"a"}, preexec=heed) as server, server.connect() as client:
            client.send("GET /a.txt HTTP/1.1\r\nHost: x\r\n\r\n")
            client.receive()
            for number in (signal.SIGHUP, signal.SIGUSR1):
                before = self.log_files(server)
                self.assertEqual(len(before), 1)
                name = next(iter(before))
                os.rename(server.logs / name, server.folder / "taken-away")  # as a log rotation does
                target = "/%s.txt" % number.name
                server.get(target)
                server.process.send_signal(number)
                wait_until(lambda: self.log_files(server), "the new file")
                self.assertIn("NOT FOUND: " + target, server.log_text())
                client.send("GET /a.txt HTTP/1.1\r\nHost: x\r\n\r\n")
                self.assertEqual(client.receive().body, b"a", "connections stay")
            server.stop()

    def test_a_hang_up_that_was_ignored_stays_so(self):
        def ignore():
            signal.signal(signal.SIGHUP, signal.SIG_IGN)

        with Server({"a.txt": b"a"}, preexec=ignore) as server:
            with open("/proc/%d/status" % server.process.pid) as status:
                ignored = next(line for line in status if line.startswith("SigIgn:"))
            self.assertTrue(int(ignored.split()[1], 16) >> (signal.SIGHUP - 1) & 1, ignored)
            server.process.send_signal(signal.SIGHUP)
            self.assertEqual(server.get("/a.txt").body, b"a")
