"""Several instances behind HAProxy, as docs/hosting.md has them: killed and restarted under load."""

import re
import signal
import threading
import time
import unittest

from serving import PATIENCE, Connection, Server, end, free_port, is_free, wait_until

from hosting.proxies import HAProxy
from hosting.recipes import IN_MEMORY, IN_REDIS, recipes, settings_of, with_own
from hosting.store import COUNT, Redis

VISITORS = 8


def free_base():
    """A number whose digits with 1 to 3 behind are free ports."""
    return next(base for base in iter(lambda: free_port() // 10, None)
                if all(is_free(base * 10 + number) for number in (1, 2, 3)))


class Instances:
    """Processes with the same files and settings, each with a number."""

    def __init__(self, pages, settings):
        self.server = Server(pages, {"ControlPort": str(free_port()), **settings})
        self.processes = {}

    def start(self, number, listens=None):
        self.server.environment = {"QUORVANE_INSTANCE": str(number)}
        self.processes[number] = self.server.process = self.server.spawn()
        if listens:
            self.server.port = listens
            wait_until(self.server.answers, "an instance to listen")

    def kill(self, number):
        self.processes[number].kill()
        self.processes[number].wait(PATIENCE)

    def stop(self, number):
        self.processes[number].send_signal(signal.SIGTERM)
        return self.processes[number].wait(PATIENCE)

    def log(self, number):
        logs = sorted((self.server.logs / str(number)).glob("*.LOG"))
        return "".join(path.read_bytes().decode("latin-1") for path in logs)

    def close(self):
        for process in self.processes.values():
            end(process)
            process.stdout.close()
        self.server.process = None
        self.server.__exit__()


class Visitor(threading.Thread):
    """Asks for a page again and again with one cookie; what it got stands in `counts`."""

    def __init__(self, port, until):
        super().__init__()
        self.port, self.until = port, until
        self.counts = []
        self.faults = []
        self.jar = {}

    def run(self):
        while time.monotonic() < self.until:
            try:
                self.visit()
            except (OSError, AssertionError) as error:
                self.faults.append(repr(error))

    def visit(self):
        cookie = "; ".join("%s=%s" % pair for pair in self.jar.items())
        with Connection(self.port) as connection:
            connection.send("GET /count.asp HTTP/1.1\r\nHost: site.example\r\n%sConnection: close"
                            "\r\n\r\n" % (cookie and "Cookie: %s\r\n" % cookie))
            response = connection.receive()
        if response.status != "HTTP/1.1 200 OK":
            raise AssertionError(response.head + response.body)
        for line in response.lines:
            if line.lower().startswith("set-cookie: "):
                name, value = line.partition(": ")[2].partition(";")[0].split("=", 1)
                if name in self.jar:
                    self.faults.append("a new %s" % name)
                self.jar[name] = value
        self.counts.append(int(response.text.split()[0]))


class BehindHAProxy(unittest.TestCase):
    def start(self, heading, settings=None):
        base = free_base()
        self.proxy = HAProxy(heading)
        self.proxy.changes = {"127.0.0.1:710": "127.0.0.1:%d" % base}
        self.addCleanup(self.proxy.close)
        text = with_own(self.proxy.recipe["ini"], self.proxy.changes)
        own = {**settings_of(text), "Customary": "2", **(settings or {})}
        self.instances = Instances({"count.asp": COUNT, "health.txt": "well"}, own)
        self.addCleanup(self.instances.close)
        self.ports = {number: base * 10 + number for number in (1, 2, 3)}
        for number, port in self.ports.items():
            self.instances.start(number, port)
        self.proxy.start()

    def visitors(self, seconds):
        until = time.monotonic() + seconds
        all_ = [Visitor(self.proxy.port, until) for _ in range(VISITORS)]
        for visitor in all_:
            visitor.start()
        return all_

    def test_one_is_killed_and_one_restarted_under_load(self):
        redis = self.enterContext(Redis(recipes()[IN_REDIS]["redis"]))
        self.start(IN_REDIS, {"SessionStore": redis.address})
        visitors = self.visitors(14)
        time.sleep(3)
        self.instances.kill(1)
        time.sleep(3)
        self.instances.start(1, self.ports[1])
        time.sleep(2)
        self.assertEqual(self.instances.stop(2), 0)
        self.instances.start(2, self.ports[2])
        for visitor in visitors:
            visitor.join()
        troubles = [line for number in self.ports for line in self.instances.log(number).splitlines()
                    if "rror" in line or "store" in line]
        self.assertEqual([visitor.faults for visitor in visitors], [[]] * VISITORS, troubles)
        for visitor in visitors:
            self.assertGreater(len(visitor.counts), 20)
            self.assertEqual(visitor.counts, sorted(set(visitor.counts)))
        answered = sum(len(visitor.counts) for visitor in visitors)
        # What an instance counted and could not tell any more was asked again of another.
        twice = sum(visitor.counts[-1] - len(visitor.counts) for visitor in visitors)
        self.assertLessEqual(twice, 2 * VISITORS)
        with Connection(self.proxy.port) as connection:
            connection.send("GET /count.asp HTTP/1.1\r\nHost: site.example\r\nConnection: close"
                            "\r\n\r\n")
            total = int(connection.receive().text.split()[1])
        self.assertGreater(total, answered)
        self.assertLessEqual(total, answered + 1 + 2 * VISITORS)
        for number in (1, 2, 3):
            self.instances.stop(number)
            self.assertIn("> GET /count.asp", self.instances.log(number))

    def test_visitors_stay_where_their_sessions_are(self):
        self.start(IN_MEMORY)
        visitors = self.visitors(2)
        for visitor in visitors:
            visitor.join()
            self.assertEqual(visitor.faults, [])
            self.assertEqual(visitor.counts, list(range(1, len(visitor.counts) + 1)))
        self.assertGreater(len({visitor.jar["INSTANCE"] for visitor in visitors}), 1)


class OnOnePort(unittest.TestCase):
    def serve(self, settings):
        port = free_port()
        instances = Instances({"p.qvs": "hello"}, {"Port": str(port), **settings})
        self.addCleanup(instances.close)
        instances.start(1, port)
        instances.start(2)
        wait_until(lambda: re.search("PORT ERROR|LCID", instances.log(2)), "the second")
        time.sleep(0.5)
        for _ in range(40):
            self.assertEqual(instances.server.get("/p.qvs").text, "hello")
        for number in (1, 2):
            instances.stop(number)
        return [instances.log(number).count("> GET /p.qvs") for number in (1, 2)], instances

    def test_the_system_shares_out_connections(self):
        (one, two), _ = self.serve({"SharePort": "1"})
        self.assertEqual(one + two, 40)
        self.assertTrue(one and two, (one, two))

    def test_without_the_setting_the_port_has_one_owner(self):
        shares, instances = self.serve({})
        self.assertEqual(shares, [40, 0])
        self.assertIn("PORT ERROR", instances.log(2))

    def test_a_number_is_given_once(self):
        port = free_port()
        instances = Instances({"p.qvs": "hello"}, {"Port": str(port), "SharePort": "1"})
        self.addCleanup(instances.close)
        instances.start(7, port)
        first = instances.processes[7]
        instances.start(7)
        self.assertEqual(instances.processes[7].wait(PATIENCE), 75)
        instances.processes[7].stdout.close()
        instances.processes[7] = first
