"""A console that nobody reads, and keys that nobody meant."""

import os
import pty
import signal
import subprocess
import time
import unittest

from serving import PATIENCE, Server, app_folder, wait_until

from faults.watched import Watched, window_size

PAGES = {"hello.txt": b"hello"}


class FrozenOutput(unittest.TestCase):
    def resize(self, server, terminal):
        """Each size is a whole new picture, far more than a terminal holds for a reader."""
        for number in range(120):
            window_size(terminal, 60 + number % 2, 200)
            server.process.send_signal(signal.SIGWINCH)
            self.assertEqual(server.get("/hello.txt").body, b"hello")
            time.sleep(0.02)

    def drain(self, descriptor, seconds=2):
        os.set_blocking(descriptor, False)
        data, end = b"", time.monotonic() + seconds
        while time.monotonic() < end:
            try:
                data += os.read(descriptor, 1 << 16)
            except BlockingIOError:
                time.sleep(0.02)
            except OSError:
                break
        return data

    def drawn(self):
        master, slave = pty.openpty()
        self.addCleanup(os.close, master)
        window_size(slave, 60, 200)
        return master, slave

    def test_a_terminal_that_nobody_reads(self):
        master, slave = self.drawn()
        with Watched(slave, slave, pages=PAGES) as server:
            os.close(slave)
            self.resize(server, master)
            self.assertIn(b"\x1b", self.drain(master), "the screen is drawn")
            server.get("/after-all")
            self.assertIn(b"after-all", self.drain(master), "and goes on once somebody reads")
            self.resize(server, master)
            begun = time.monotonic()
            server.process.send_signal(signal.SIGTERM)
            self.assertEqual(server.process.wait(PATIENCE), 0)
            self.assertLess(time.monotonic() - begun, 5)
            self.assertIn("] Server Closing\r\n", server.log_text())

    def test_a_crash_on_such_a_terminal_ends_the_program(self):
        master, slave = self.drawn()
        with Watched(slave, slave, pages=PAGES) as server:
            os.close(slave)
            self.resize(server, master)
            server.process.send_signal(signal.SIGSEGV)
            self.assertEqual(server.process.wait(5), -signal.SIGSEGV)

    def test_a_pipe_that_nobody_reads(self):
        reader, writer = os.pipe()
        self.addCleanup(os.close, reader)
        self.addCleanup(os.close, writer)
        with Watched(writer, pages=PAGES) as server:
            before = server.resident_bytes()
            for number in range(1000):
                self.assertIn("404", server.get("/none/" + "x" * 300).status)
            self.assertLess(server.resident_bytes() - before, 16 << 20)
            text = self.drain(reader).decode()
            self.assertIn(" Server Start\n", text)
            self.assertRegex(text[-200:], r"\n\(\d+ lines dropped: nobody read\)\n\Z")
            server.get("/hello.txt")
            wait_until(lambda: b"> GET /hello.txt\n" in self.drain(reader, 0.2), "the next line")
            self.assertTrue(os.get_blocking(writer), "others share the pipe's mode")
            for number in range(1000):
                server.get("/none/" + "x" * 300)
            server.process.send_signal(signal.SIGTERM)
            self.assertEqual(server.process.wait(5), 0)

    def test_an_error_stream_that_nobody_reads(self):
        with Server() as holder:
            other = Server(settings={"Port": str(holder.port)})
            reader, writer = os.pipe()
            self.addCleanup(os.close, reader)
            os.set_blocking(writer, False)
            try:
                while True:
                    os.write(writer, b"x" * 4096)
            except BlockingIOError:
                os.set_blocking(writer, True)
            other.process = subprocess.Popen(
                [str(app_folder() / "quorvane-server"), "/devmode"], cwd=other.folder,
                env={**os.environ, "QUORVANE_REGISTRY": str(other.registry)},
                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=writer)
            os.close(writer)
            try:
                wait_until(lambda: "PORT ERROR" in other.log_text(), "the port error")
                other.process.send_signal(signal.SIGTERM)
                self.assertEqual(other.process.wait(5), 0)
            finally:
                other.__exit__()
