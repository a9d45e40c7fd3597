"""What customary pages can tell of the connection that they answer."""

import socket
import struct
import time
import unittest

from serving import Server, wait_until

PAGES = {
    "where.asp": '<%= Request.ServerVariables("LOCAL_ADDR") %> <% For Each n In '
                 'Request.ServerVariables : If n = "LOCAL_ADDR" Then Response.Write "named"\nNext %>',
    "waits.asp": """<%
        Server.ScriptTimeout = 30 : ends = Timer + 15
        Do While Response.IsClientConnected And Timer < ends : Loop
        Application("gone") = Not Response.IsClientConnected %>""",
    "gone.asp": '<%= Application("gone") %>',
}


class Connection(unittest.TestCase):
    def test_address_that_the_client_has_come_to(self):
        with Server(PAGES, {"Customary": "2"}) as server:
            self.assertEqual(server.get("/where.asp").text, "127.0.0.1 named")

    def test_page_sees_that_its_client_is_gone(self):
        with Server(PAGES, {"Customary": "2"}) as server:
            client = server.connect()
            client.send("GET /waits.asp HTTP/1.1\r\nHost: localhost\r\n\r\n")
            time.sleep(0.3)
            client.socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
            client.close()  # at once, so that the connection is reset
            wait_until(lambda: server.get("/gone.asp").text == "True", "the page to end")
