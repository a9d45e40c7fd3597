"""As many clients as a server is to carry."""

import resource
import time

from serving import ServerTest


class ManyClients(ServerTest):
    PAGES = {"a.qvs": "<% Response.Write 1 + 1 %>"}
    SETTINGS = {"HeadSeconds": "0", "IdleSeconds": "0"}
    COUNT = 10_000
    MOST_BYTES = 4096

    def setUp(self):
        usual = resource.getrlimit(resource.RLIMIT_NOFILE)
        self.addCleanup(resource.setrlimit, resource.RLIMIT_NOFILE, usual)
        resource.setrlimit(resource.RLIMIT_NOFILE, (usual[1], usual[1]))

    def seconds_of_a_page(self):
        begun = time.monotonic()
        self.assertEqual(self.server.get("/a.qvs").body, b"2")
        return time.monotonic() - begun

    def test_idle_ones_cost_little_and_keep_nobody_waiting(self):
        self.seconds_of_a_page()
        before = self.server.resident_bytes()
        clients = []
        try:
            for _ in range(self.COUNT):
                clients.append(self.server.connect())
            self.assertLess(min(self.seconds_of_a_page() for _ in range(10)), 0.5)
            self.assertLess(self.server.resident_bytes() - before, self.COUNT * self.MOST_BYTES)
            for client in clients[::1000]:
                client.send("GET /a.qvs HTTP/1.1\r\nHost: x\r\n\r\n")
                self.assertEqual(client.receive().body, b"2")
        finally:
            for client in clients:
                client.close()
        self.assertLess(self.seconds_of_a_page(), 5)
