"""What a service manager is told, and ports that somebody else has."""

import os
import socket
import subprocess
import tempfile
import time
import unittest

from serving import PATIENCE, Server, app_folder, free_port, wait_until

TAKEN = "port %d is taken or not for this user; nothing is served"
RETRIES = 30  # seconds between two tries of a port


class Manager:
    """Hears what a service manager would."""

    def __init__(self, test):
        folder = tempfile.TemporaryDirectory()
        test.addCleanup(folder.cleanup)
        path = os.path.join(folder.name, "notify")
        self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
        test.addCleanup(self.socket.close)
        self.socket.bind(path)
        self.socket.settimeout(0.2)
        self.environment = {"NOTIFY_SOCKET": path}
        os.environ.pop("SYSTEMD_EXEC_PID", None)  # of whoever runs the tests
        self.heard = []

    def hears(self, message, seconds=PATIENCE):
        def heard():
            try:
                self.heard.append(self.socket.recv(4096).decode())
            except TimeoutError:
                pass
            return message in self.heard

        try:
            wait_until(heard, message, seconds)
        except AssertionError:
            raise AssertionError("%r not among %r" % (message, self.heard)) from None


class Reports(unittest.TestCase):
    def start(self, settings=None, arguments=()):
        manager = Manager(self)
        return manager, Server({"a.txt": b"a"}, settings, arguments,
                               environment=manager.environment)

    def test_every_way_of_running(self):
        for settings, arguments in (({"RunAsService": "1"}, ()), ({}, ()), ({}, ("/debug",)),
                                    ({"RunAsService": "1"}, ("/debug",))):
            with self.subTest(settings=settings, arguments=arguments):
                manager, server = self.start(settings, arguments)
                with server:
                    manager.hears("READY=1")
                    self.assertIn("STATUS=Serving on port %d" % server.port, manager.heard)
                    server.stop()
                    manager.hears("STOPPING=1")

    def test_idle(self):
        manager, server = self.start(arguments=("/idle",))
        server.process = server.spawn()
        self.addCleanup(server.__exit__)
        manager.hears("READY=1")
        self.assertIn("STATUS=Waiting to be started", manager.heard)

    def test_a_taken_port(self):
        for settings in ({"RunAsService": "1"}, {}):
            with Server() as holder, self.subTest(settings=settings):
                manager, server = self.start({**settings, "Port": str(holder.port)})
                server.process = server.spawn()
                try:
                    manager.hears("READY=1")
                    self.assertIn("STATUS=" + TAKEN % holder.port, manager.heard)
                finally:
                    server.__exit__()


class Retries(unittest.TestCase):
    """One wait for both kinds of ports."""

    def test_ports_that_become_free(self):
        control = free_port()
        other = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        other.bind(("", control))
        holder = Server()
        holder.__enter__()
        manager = Manager(self)
        server = Server({"a.txt": b"a"}, {"Port": str(holder.port), "RetryPort": "1",
                                          "ControlPort": str(control)},
                        environment=manager.environment)
        server.process = server.spawn()
        try:
            manager.hears("STATUS=" + TAKEN % holder.port + "; tried again every 30 s")
            wait_until(lambda: "PORT ERROR" in server.log_text(), "the error")
            holder.__exit__()
            other.close()
            server.port = holder.port
            begun = time.monotonic()
            wait_until(server.answers, "the server to listen", RETRIES + 10)
            self.assertEqual(server.get("/a.txt").body, b"a")
            manager.hears("STATUS=Serving on port %d" % holder.port)
            wait_until(lambda: control_answer(control) == b"[?state]:1", "the channel",
                       RETRIES + 10 - (time.monotonic() - begun))
            server.stop()
            log = server.log_text()
            self.assertEqual(log.count("PORT ERROR"), 1)
            self.assertEqual(log.count("Control channel: unable to bind to port %d; "
                                       "tried again every 30 s" % control), 1)
            self.assertIn("Control channel open on port %d\r\n" % control, log)
        finally:
            server.__exit__()


def control_answer(port):
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as client:
        client.settimeout(0.5)
        try:
            client.connect(("127.0.0.1", port))
            client.send(b"[?state]")
            return client.recv(100)
        except OSError:
            return None


class TwoServers(unittest.TestCase):
    def control(self, port, command):
        done = subprocess.run([str(app_folder() / "qvsctl"), "--port", str(port), command],
                              capture_output=True, timeout=PATIENCE)
        return done.stdout.decode().strip()

    def test_each_has_a_channel_of_its_own(self):
        ports = [free_port(), free_port()]
        with Server({"a.txt": b"one"}, {"ControlPort": str(ports[0])}) as one, \
                Server({"a.txt": b"two"}, {"ControlPort": str(ports[1])}) as two:
            self.assertEqual([self.control(port, "state") for port in ports], ["running"] * 2)
            self.control(ports[0], "stop")
            self.assertEqual([self.control(port, "state") for port in ports],
                             ["stopped", "running"])
            self.assertEqual(two.get("/a.txt").body, b"two")
            self.assertEqual(self.control(ports[0], "start"), "running")
            self.assertEqual(one.get("/a.txt").body, b"one")
            self.control(ports[1], "quit")
            self.assertEqual(two.process.wait(PATIENCE), 0)
            self.assertEqual(one.get("/a.txt").body, b"one")
