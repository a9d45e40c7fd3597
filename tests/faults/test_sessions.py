"""Sessions under a flood of strangers, and what they hold."""

from serving import ServerTest

STRANGERS = 10_500  # more than there are numbers


def cookie(number):
    return "Cookie: QVS_SESSIONID=%s\r\n" % number


class Strangers(ServerTest):
    PAGES = {
        "stranger.qvs": "hello",
        "buy.qvs": "<% Session(\"what\") = \"tea\" %>bought",
        "basket.qvs": "[<%= Session(\"what\") %>]",
    }

    def test_strangers_do_not_drive_out_a_visitor(self):
        _, number = self.server.get_with_session("/buy.qvs")
        self.assertEqual(self.server.get("/basket.qvs", cookie(number)).text, "[tea]")
        request = b"GET /stranger.qvs HTTP/1.1\r\nHost: localhost\r\n\r\n"
        with self.server.connect() as connection:
            for _ in range(STRANGERS):
                connection.send(request)
                self.assertEqual(connection.receive().text, "hello")
        self.assertEqual(self.server.get("/basket.qvs", cookie(number)).text, "[tea]")


class Objects(ServerTest):
    PAGES = {
        "put.qvs": "<% Set cart = Server.CreateObject(\"Scripting.Dictionary\")\n"
                   "cart.Add \"tea\", 2\n"
                   "Set Session.Objects(\"cart\") = cart\n"
                   "Session.Objects(\"sizes\") = Array(3, 4) %>put",
        "show.qvs": "<%= TypeName(Session.Objects(\"cart\")) %>",
        "count.qvs": "<% Session.Objects(\"CART\")(\"tea\") = Session.Objects(\"cart\")(\"tea\") + 1 %>"
                     "<%= Session.Objects(\"cart\")(\"tea\") %> <%= Session.Objects(\"sizes\")(1) %>"
                     "<% For Each key In Session.Objects %> <%= key %><% Next %>",
        "leave.qvs": "<% Session.Abandon %>left",
    }

    def test_objects_and_arrays_live_with_the_session(self):
        _, number = self.server.get_with_session("/put.qvs")
        self.assertEqual(self.server.get("/count.qvs", cookie(number)).text, "3 4 cart sizes")
        self.assertEqual(self.server.get("/count.qvs", cookie(number)).text, "4 4 cart sizes")
        self.assertEqual(self.server.get("/show.qvs").text, "Empty", "a stranger has none of it")
        self.server.get("/leave.qvs", cookie(number))
        self.assertEqual(self.server.get("/show.qvs", cookie(number)).text, "Empty")

    def test_the_name_alone_stays_a_variable(self):
        self.assertEqual(self.output("objects = 5 : Response.Write objects"), "5")
