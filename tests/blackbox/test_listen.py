"""Where the server listens, and clients that proxies speak for."""

import os
import socket
import stat
import struct
import unittest

import programs
from serving import PATIENCE, Connection, Server, free_port, is_listened_on, wait_until

WHO = """<%= Server.ClientIP & " " & Request.ServerVariables("HTTPS") & " " & _
Request.ServerVariables("SERVER_NAME") & ":" & Request.ServerVariables("SERVER_PORT") %>"""


class Peer(Connection):
    """A connection over a socket that is connected already."""

    def __init__(self, connected):
        connected.settimeout(PATIENCE)
        self.socket = connected
        self.pending = b""

    def ask(self, before=b"", headers=""):
        self.send(before)
        self.send("GET /who.qvs HTTP/1.1\r\nHost: a.example\r\n%s\r\n" % headers)
        return self.receive()


class Listening(unittest.TestCase):
    def setUp(self):
        self.ports = [free_port(), free_port()]

    def serve(self, places, **settings):
        server = Server({"who.qvs": WHO}, {"Listen": places, **settings})
        self.file = str(server.folder / "site.sock")
        server.ini.write_text(server.ini.read_text().replace("FILE", self.file))
        server.port = self.ports[0]
        server.__enter__()
        self.addCleanup(server.__exit__)
        if "FILE" in places:
            self.wait_for_file()
        return server

    def wait_for_file(self):
        wait_until(lambda: is_listened_on(self.file), "the server to listen by its file")

    def at(self, host, port):
        peer = Peer(socket.create_connection((host, port), timeout=PATIENCE))
        self.addCleanup(peer.close)
        return peer

    def at_file(self):
        local = socket.socket(socket.AF_UNIX)
        local.connect(self.file)
        self.addCleanup(local.close)
        return Peer(local)

    def test_in_several_places_at_once(self):
        first, second = self.ports
        self.serve("127.0.0.1:%d, [::1]:%d unix:FILE" % (first, second), LocalhostOnly="1")
        self.assertEqual(self.at("127.0.0.1", first).ask().text, "127.0.0.1 off a.example:%d" % first)
        self.assertEqual(self.at("::1", second).ask().text, "::1 off a.example:%d" % second)
        self.assertTrue(self.at_file().ask().text.startswith("unix off a.example:"))
        with self.assertRaises(OSError):
            socket.create_connection(("127.0.0.1", second), timeout=1)

    def test_a_port_is_in_both_families_and_shows_addresses_of_ipv4_as_such(self):
        port = self.ports[0]
        server = self.serve(str(port), LocalhostOnly="1")
        self.assertEqual(self.at("127.0.0.1", port).ask().text, "127.0.0.1 off a.example:%d" % port)
        self.assertEqual(self.at("::1", port).ask().text, "::1 off a.example:%d" % port)
        server.stop()
        log = server.log_text()
        for line in ("Connection request from IP 127.0.0.1\r\n", "::1 > GET /who.qvs\r\n",
                     "Port:\t%d\r\n" % port):
            self.assertIn(line, log)
        self.assertNotIn("ffff", log)

    def test_a_file_goes_with_the_server_and_what_a_dead_one_left_is_replaced(self):
        places = "127.0.0.1:%d unix:FILE" % self.ports[0]
        server = self.serve(places)
        self.assertEqual(stat.S_IMODE(os.lstat(self.file).st_mode), 0o660)
        server.process.kill()
        server.process.wait()
        self.assertTrue(os.path.exists(self.file))
        server.process.stdout.close()
        server.process = server.spawn()
        self.wait_for_file()
        self.assertTrue(self.at_file().ask().text.startswith("unix "))
        server.stop()
        self.assertFalse(os.path.exists(self.file))

    def test_what_is_no_socket_stays_and_is_told(self):
        server = Server({}, {"Port": str(self.ports[0])})
        server.port = self.ports[0]
        precious = server.folder / "precious"
        precious.write_text("precious")
        server.set({"Listen": "127.0.0.1:%d, unix:%s rubbish" % (self.ports[0], precious)})
        with server:
            server.stop()
            log = server.log_text()
            self.assertIn("PORT ERROR: Unable to listen on unix:%s: what stands there is no socket\r\n"
                          % precious, log)
            self.assertIn("PORT ERROR: Unable to listen on rubbish: it is no place to listen at", log)
            self.assertIn("Settings line 1 not taken: Listen is ", log)
            self.assertEqual(precious.read_text(), "precious")
            self.assertNotIn("TrustedProxies", server.ini.read_text())

    def test_a_page_can_not_ask_its_own_server_at_any_of_its_ports(self):
        first, second = self.ports
        server = self.serve("127.0.0.1:%d 127.0.0.1:%d" % (first, second))
        server.put("ask.qvs", """<%% On Error Resume Next
Set http = CreateObject("MSXML2.ServerXMLHTTP")
http.Open "GET", "http://127.0.0.1:%d/who.qvs", False: http.Send
Response.Write Err.Number <> 0 %%>""" % second)
        self.assertEqual(server.get("/ask.qvs").text, "True")


class ProxyProtocol(unittest.TestCase):
    SETTINGS = {"TrustedProxies": "127.0.0.1", "ProxyProtocol": "1", "HeadSeconds": "1"}

    def test_names_the_client_in_both_versions(self):
        binary = (b"\r\n\r\n\0\r\nQUIT\n\x21\x11" + struct.pack(">H", 12) + bytes([192, 0, 2, 1])
                  + bytes([198, 51, 100, 1]) + struct.pack(">HH", 4711, 8443))
        text = b"PROXY TCP6 2001:db8::1 2001:db8::2 4711 8443\r\n"
        with Server({"who.qvs": WHO}, self.SETTINGS) as server:
            for preface, who in ((binary, "192.0.2.1"), (text, "2001:db8::1")):
                with server.connect() as connection:
                    peer = Peer(connection.socket)
                    self.assertEqual(peer.ask(preface).text, who + " off a.example:8443")
                    again = peer.ask(headers="X-Forwarded-For: 6.6.6.6\r\n")
                    self.assertEqual(again.text, who + " off a.example:8443")

    def test_a_connection_without_it_gets_no_answer(self):
        with Server({"who.qvs": WHO}, self.SETTINGS) as server:
            self.assertEqual(server.raw("GET /who.qvs HTTP/1.1\r\nHost: a\r\n\r\n"), b"")
            self.assertEqual(server.raw("PRO"), b"", "whoever takes too long is not waited for")


class Headers(unittest.TestCase):
    def test_name_the_client_in_customary_pages_too(self):
        page = WHO.replace("Server.ClientIP", 'Request.ServerVariables("REMOTE_HOST")')
        for standard in "01":
            settings = {"TrustedProxies": "127.0.0.0/8", "Customary": "2", "LocalAddrControl": "1",
                        "StandardHTTP": standard}
            with Server({"who.asp": page}, settings) as server:
                named = server.get("/who.asp", "X-Forwarded-For: 8.8.8.8, 10.1.2.3, 127.0.0.9\r\n"
                                   "X-Forwarded-Proto: https\r\nX-Forwarded-Host: b.example\r\n")
                self.assertEqual(named.text, "10.1.2.3 on b.example:443")
                kept_out = server.get("/who.asp", "Forwarded: for=8.8.8.8\r\n")
                self.assertEqual(kept_out.status, "HTTP/1.1 403 Forbidden")
                self.assertIsNotNone(kept_out.header("Date"))
                unclear = server.get("/who.asp", "Forwarded: for=10.1.2.3\r\nX-Forwarded-For: 10.1.2.4\r\n")
                self.assertEqual(unclear.status, "HTTP/1.1 400 Bad Request")
                server.stop()
                self.assertIn("10.1.2.3 > GET /who.asp", server.log_text())

    def test_check_tells_what_is_no_proxy(self):
        server = Server({}, {"TrustedProxies": "10.0.0.0/8 localhost"})
        self.addCleanup(server.__exit__)
        done = programs.run("qvsctl", "check", capture_output=True, text=True,
                            env={**os.environ,
                                 "QUORVANE_REGISTRY": programs.path_text(server.registry)})
        self.assertIn("TrustedProxies is \"10.0.0.0/8 localhost\"", done.stdout + done.stderr)
