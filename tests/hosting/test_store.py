"""Sessions, keys and the application in a Redis server that several instances share."""

import concurrent.futures
import os
import shutil
import signal
import socket
import time
import unittest

from serving import Server, wait_until

from hosting.store import COUNT, Redis

# Each sets x, and says in y what must be true of it afterwards.
VALUES = {
    "empty": ("Empty", "IsEmpty(x)"),
    "null": ("Null", "IsNull(x)"),
    "integer": ("-7", "VarType(x) = 2 And x = -7"),
    "long": ("70000", "VarType(x) = 3 And x = 70000"),
    "byte": ("CByte(200)", "VarType(x) = 17 And x = 200"),
    "single": ("CSng(1.5)", "VarType(x) = 4 And x = 1.5"),
    "double": ("0.1", "VarType(x) = 5 And x = 0.1"),
    "currency": ("CCur(\"12345678901.2345\")", "VarType(x) = 6 And x = CCur(\"12345678901.2345\")"),
    "date": ("#2024-02-29 13:14:15#", "VarType(x) = 7 And x = #2024-02-29 13:14:15#"),
    "boolean": ("True", "VarType(x) = 11 And x"),
    "text": ("\"caf\" & Chr(233) & Chr(0) & \"x\"", "x = \"caf\" & Chr(233) & Chr(0) & \"x\""),
    "wide": ("ChrW(20013) & ChrW(-10179) & ChrW(-8704)",
             "Len(x) = 3 And AscW(x) = 20013 And AscW(Mid(x, 3)) = -8704"),
    "bytes": ("ChrB(1) & ChrB(2) & ChrB(3)", "LenB(x) = 3 And AscB(MidB(x, 3)) = 3"),
    "array": ("Array(1, \"two\", Array(3, Null))",
              "UBound(x) = 2 And x(1) = \"two\" And IsNull(x(2)(1)) And x(2)(0) = 3"),
    "none": ("Array()", "UBound(x) = -1"),
}


class StoreTest(unittest.TestCase):
    """Two instances beside a store. Pages of both have the same files."""

    SETTINGS = {}
    PAGES = {}

    def setUp(self):
        self.redis = Redis()
        self.addCleanup(self.redis.close)
        self.redis.start()
        self.one, self.two = (self.start() for _ in range(2))

    def start(self):
        server = Server(self.PAGES, {"SessionStore": self.redis.address, **self.SETTINGS})
        server.__enter__()
        self.addCleanup(server.__exit__)
        return server

    def put(self, name, text):
        for server in (self.one, self.two):
            server.put(name, text)

    def tearDown(self):
        for server in (self.one, self.two):
            if server.process.poll() not in (None, -signal.SIGKILL):
                self.fail("a server died: %r" % server.process.stdout.read())

    def visit(self, server, code, cookie=""):
        """What a page of this code writes, and the cookie that the visitor has then."""
        self.put("visit" + self.SUFFIX, "<%\n" + code + "\n%>")
        response = server.get("/visit" + self.SUFFIX, cookie and "Cookie: %s\r\n" % cookie)
        for line in response.lines:
            if line.startswith("Set-Cookie: "):
                cookie = line.partition(": ")[2].partition(";")[0]
        return response.text, cookie


class CustomaryPages(StoreTest):
    SETTINGS = {"Customary": "2", "ErrorDetail": "1"}
    SUFFIX = ".asp"

    def test_values_are_the_same_in_every_instance(self):
        put = "".join("Session(\"%s\") = %s\nApplication(\"%s\") = %s\n" % (name, value, name, value)
                      for name, (value, _) in VALUES.items())
        written, cookie = self.visit(self.one, put + "Response.Write \"put\"")
        self.assertEqual(written, "put")
        for place in ("Session", "Application"):
            ask = "".join("x = %s(\"%s\")\nIf Not (%s) Then Response.Write \"%s \"\n"
                          % (place, name.upper(), true, name)
                          for name, (_, true) in VALUES.items())
            order = "For Each k In %s.Contents: Response.Write k & \" \": Next\n" % place
            for server in (self.two, self.one):
                self.assertEqual(self.visit(server, ask, cookie)[0], "")
                self.assertEqual(self.visit(server, order, cookie)[0].split(), list(VALUES))

    def test_a_session_is_one_in_every_instance(self):
        first, cookie = self.visit(self.one, "Session(\"a\") = 1: Session.Timeout = 3: "
                                   "Response.Write Session.SessionID")
        second, same = self.visit(self.two, "Session(\"b\") = 2: Session.Contents.Remove \"a\": "
                                  "Response.Write Session.SessionID & Session.Timeout", cookie)
        self.assertEqual((second, same), (first + "3", cookie))
        self.assertEqual(self.visit(self.one, "Response.Write TypeName(Session(\"a\")) & "
                                    "Session(\"b\")", cookie)[0], "Empty2")
        other, _ = self.visit(self.two, "Response.Write Session.SessionID")
        self.assertNotEqual(other, first)

    def test_an_abandoned_session_is_gone_everywhere(self):
        self.put("global.asa", "<script language=vbscript runat=server>\n"
                 "Sub Session_OnEnd\nApplication(\"ended\") = Application(\"ended\") & "
                 "Session(\"who\") & \";\"\nEnd Sub\n</script>")
        time.sleep(1.1)
        _, cookie = self.visit(self.one, "Session(\"who\") = \"me\"")
        self.visit(self.two, "Session.Abandon", cookie)
        written, new = self.visit(self.one, "Response.Write TypeName(Session(\"who\")) & \" \" & "
                                  "Application(\"ended\")", cookie)
        self.assertEqual(written, "Empty me;")
        self.assertNotEqual(new, cookie)

    def test_a_session_that_was_idle_too_long_has_its_last_words_once(self):
        self.put("global.asa", "<script language=vbscript runat=server>\n"
                 "Sub Session_OnEnd\nApplication.Lock\nApplication(\"ended\") = "
                 "Application(\"ended\") & Session(\"who\") & \";\"\nApplication.Unlock\nEnd Sub\n"
                 "</script>")
        time.sleep(1.1)
        _, cookie = self.visit(self.one, "Session(\"who\") = \"me\"")
        session = cookie.partition("=")[2]
        self.redis.command("HSET", "quorvane:visitor:" + session, ".ends", "1")
        self.redis.command("ZADD", "quorvane:visitors:ends", "1", session)
        wait_until(lambda: self.visit(self.two, "Response.Write Application(\"ended\")")[0] == "me;",
                   "a sweep", 40)
        self.assertNotEqual(self.visit(self.one, "Session(\"who\") = 1", cookie)[1], cookie)

    def test_the_application_begins_once(self):
        text = ("<script language=vbscript runat=server>\n"
                 "Sub Application_OnStart\nApplication(\"starts\") = Application(\"starts\") + 1\n"
                 "Application(\"n\") = 0\nEnd Sub\n</script>")
        self.put("global.asa", text)
        time.sleep(1.1)
        self.put("count.asp", COUNT)
        for server in (self.one, self.two):
            server.get("/count.asp")
        late = self.start()
        late.put("global.asa", text)
        late.put("visit.asp", "<%= Application(\"starts\") & \" \" & Application(\"n\") %>")
        self.assertEqual(late.get("/visit.asp").text, "1 2")

    def test_objects_are_an_error(self):
        for place in ("Session", "Application"):
            written, _ = self.visit(self.one, "On Error Resume Next\nSet %s(\"x\") = "
                                    "Server.CreateObject(\"Scripting.Dictionary\")\n"
                                    "Response.Write Err.Description" % place)
            self.assertEqual(written,
                             "The shared session store keeps values and arrays, no objects")

    def test_a_session_has_a_mebibyte_at_most(self):
        _, cookie = self.visit(self.one, "Session(\"a\") = String(900000, \"x\")")
        written, _ = self.visit(self.one, "Session(\"b\") = String(200000, \"x\")", cookie)
        self.assertIn("A session in the shared store keeps 1 MiB at most", written)
        self.assertEqual(self.visit(self.two, "Response.Write Len(Session(\"a\")) & "
                                    "TypeName(Session(\"b\"))", cookie)[0], "900000Empty")

    def test_counting_under_lock_loses_nothing(self):
        self.put("count.asp", COUNT)

        def count(server):
            for _ in range(50):
                self.assertEqual(server.get("/count.asp").status, "HTTP/1.1 200 OK")

        with concurrent.futures.ThreadPoolExecutor(8) as pool:
            list(pool.map(count, [self.one, self.two] * 4))
        self.assertEqual(self.visit(self.one, "Response.Write Application(\"n\")")[0], "400")

    def test_a_lock_of_a_dead_instance_ends(self):
        self.put("hold.asp", "<% Application.Lock: Application(\"x\") = 1: Response.Flush: "
                 "Do: Loop %>")
        connection = self.one.connect()
        connection.send("GET /hold.asp HTTP/1.1\r\nHost: x\r\n\r\n")
        connection.receive(with_body=False)
        self.one.process.kill()
        begun = time.monotonic()
        self.assertEqual(self.visit(self.two, "Application.Lock: Response.Write Application(\"x\")"
                                    )[0], "1")
        self.assertLess(time.monotonic() - begun, 6)

    def test_a_page_that_held_a_lock_too_long_overwrites_nothing(self):
        self.put("hold.asp", "<% Application.Lock: x = Application(\"n\"): Response.Flush: "
                 "t = Timer: Do While Timer - t < 4: Loop: Application(\"n\") = x + 1 %>")
        with self.one.connect() as connection:
            connection.send("GET /hold.asp HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n")
            connection.receive_until(b"\r\n\r\n")
            self.assertEqual(self.visit(self.two, "Application(\"n\") = 100")[0], "")
            self.assertIn(b"the lock of Application has ended", connection.receive_all())
        self.assertEqual(self.visit(self.two, "Response.Write Application(\"n\")")[0], "100")

    def test_a_store_that_is_gone_is_an_error_and_comes_back(self):
        _, cookie = self.visit(self.one, "Session(\"a\") = 1")
        self.redis.stop()
        begun = time.monotonic()
        self.assertIn("The session store can't be reached: Connection refused",
                      self.visit(self.one, "Response.Write Session(\"a\")", cookie)[0])
        self.assertIn("The session store can't be reached",
                      self.visit(self.one, "Application(\"a\") = 1")[0])
        self.assertEqual(self.visit(self.one, "Response.Write \"plain\"")[0], "plain")
        self.assertLess(time.monotonic() - begun, 1.5)
        self.redis.start()
        wait_until(lambda: self.visit(self.one, "Session(\"a\") = 2: Response.Write \"back\"")[0]
                   == "back", "the store", 10)

    def test_a_store_that_is_silent_takes_a_second_at_most(self):
        self.visit(self.one, "Session(\"a\") = 1")
        self.redis.process.send_signal(signal.SIGSTOP)
        self.addCleanup(self.redis.process.send_signal, signal.SIGCONT)
        begun = time.monotonic()
        self.assertIn("no answer in time", self.visit(self.one, "Session(\"a\") = 1")[0])
        self.assertLess(time.monotonic() - begun, 1.2)
        begun = time.monotonic()
        for _ in range(3):
            self.visit(self.one, "Session(\"a\") = 1")
        self.assertLess(time.monotonic() - begun, 1.2)
        self.redis.process.send_signal(signal.SIGCONT)
        wait_until(lambda: self.visit(self.one, "Session(\"a\") = 2: Response.Write \"back\"")[0]
                   == "back", "the store", 10)

    def test_a_store_that_was_started_again_is_not_noticed(self):
        self.redis.command("SAVE")
        _, cookie = self.visit(self.one, "Session(\"a\") = 1")
        self.redis.command("SAVE")
        self.redis.stop()
        self.redis.start()
        self.assertEqual(self.visit(self.one, "Response.Write Session(\"a\")", cookie)[0], "1")

    def test_nothing_in_the_store_harms(self):
        _, cookie = self.visit(self.one, "Session(\"a\") = 1: Application(\"a\") = 1")
        key = "quorvane:visitor:" + cookie.partition("=")[2]
        read = "Response.Write Session(\"a\") & Application(\"a\")"
        for bytes_ in (b"", b"x", b"\0" * 7, b"\xff" * 100, b"\0" * 8 + b"\x0c" * 100000,
                       b"\0" * 8 + b"\x08\xff\xff\xff\xff", bytes(range(256)) * 16):
            self.redis.command("HSET", key, "=a", bytes_)
            self.redis.command("HSET", "quorvane:application", "a", bytes_)
            self.redis.command("INCR", "quorvane:application:version")
            self.assertEqual(self.visit(self.one, read, cookie)[0], "")
        self.redis.command("HSET", key, "=a", b"x" * (8 << 20))
        self.assertIn("too large", self.visit(self.one, read, cookie)[0])
        for name in (key, "quorvane:application", "quorvane:application:version",
                     "quorvane:visitors:idle"):
            self.redis.command("DEL", name)
            self.redis.command("RPUSH", name, "x")
            for page in (read, "Session(\"b\") = 1", "Application.Lock: Application(\"b\") = 1"):
                self.visit(self.one, page, cookie)
                self.visit(self.one, page)
        self.redis.command("FLUSHALL")
        self.assertEqual(self.visit(self.one, "Session(\"a\") = 1: Application(\"a\") = 2: " + read,
                                    cookie)[0], "12")


class DefaultPages(StoreTest):
    SUFFIX = ".qvs"

    def number(self, cookie):
        return int(cookie.partition("=")[2])

    def visit_with_number(self, server, code):
        while True:
            written, cookie = self.visit(server, code)
            if cookie:
                return written, cookie

    def test_texts_and_arrays_are_the_same_in_every_instance(self):
        _, cookie = self.visit_with_number(
            self.one, "Session.Contents(\"b\") = \"caf\" & Chr(233)\n"
            "Session.Contents(\"A\") = ChrW(20013)\nSession.Objects(\"list\") = Array(1, #2024-01-01#)")
        written, same = self.visit(
            self.two, "Response.Write Session.Contents(\"B\") & AscW(Session.Contents(\"a\")) & "
            "TypeName(Session.Objects(\"LIST\")(1))\n"
            "For Each k In Session.Contents: Response.Write \" \" & k: Next", cookie)
        self.assertEqual((written, self.number(same)), ("caf\xe920013Date b A", self.number(cookie)))
        written, _ = self.visit(self.one, "Set Session.Objects(\"x\") = "
                                "Server.CreateObject(\"Scripting.Dictionary\")", cookie)
        self.assertIn("The shared session store keeps values and arrays, no objects", written)

    def test_numbers_are_given_once(self):
        seen = set()
        for _ in range(30):
            for server in (self.one, self.two):
                cookie = self.visit(server, "")[1]
                self.assertNotIn(cookie, seen - {""})
                seen.add(cookie)

    def test_a_session_ends(self):
        for end in ("Session.Abandon", "Session.Timeout = 0"):
            _, cookie = self.visit_with_number(self.one, "Session.Contents(\"a\") = \"x\"")
            self.visit(self.two, end, cookie)
            time.sleep(0.01)
            self.assertEqual(self.visit(self.one, "Response.Write Session.Contents(\"a\")",
                                        cookie)[0], "")

    def test_a_full_store_drops_strangers_first(self):
        _, cookie = self.visit_with_number(self.one, "Session.Contents(\"a\") = \"x\"")
        self.visit(self.two, "Session.Contents(\"b\") = \"y\"", cookie)
        own = self.number(cookie)
        others = [number for number in range(10001) if number != own]
        for begin in range(0, len(others), 1000):
            part = others[begin:begin + 1000]
            self.redis.command("ZADD", "quorvane:sessions:idle",
                               *[word for number in part for word in (-1, number)])
            self.redis.command("EVAL", "for i = 1, #ARGV do redis.call('hset', "
                               "'quorvane:session:' .. ARGV[i], '.timeout', '20') end", 0, *part)
        for _ in range(5):
            self.visit(self.two, "")
        self.assertEqual(self.redis.command("ZCARD", "quorvane:sessions:idle"), 10001)
        self.assertEqual(self.visit(self.one, "Response.Write Session.Contents(\"b\")", cookie)[0],
                         "y")

    def test_keys_count_everywhere(self):
        key, _ = self.visit(self.one, "Response.Write Server.IssueAuthKey(1)")
        self.assertRegex(key, "^[0-9A-F]{32}$")
        check = "Response.Write Server.ValidateAuthKey(\"%s\")"
        self.assertEqual(self.visit(self.two, check % key.lower())[0], "True")
        self.assertEqual(self.visit(self.two, check % ("0" * 32))[0], "False")
        self.assertIn(self.redis.command("TTL", "quorvane:key:" + key), range(80, 91))

    def test_application_is_one(self):
        self.visit(self.one, "QvS.Application(\"a\") = 1: QvS.Application.Lock")
        self.assertEqual(self.visit(self.two, "Response.Write QvS.Application(\"A\") & "
                                    "QvS.Application.Count")[0], "11")
        self.visit(self.two, "QvS.Application.RemoveAll")
        self.assertEqual(self.visit(self.one, "Response.Write QvS.Application.Count")[0], "0")

    def test_a_store_that_is_gone_stops_only_those_who_need_it(self):
        written, cookie = self.visit_with_number(self.one, "Session.Contents(\"a\") = \"x\"")
        self.redis.stop()
        self.assertIn("The session store can't be reached",
                      self.visit(self.one, "Response.Write Session.Contents(\"a\")", cookie)[0])
        self.assertEqual(self.visit(self.one, "Response.Write \"plain\"", cookie),
                         ("plain", cookie))


class NamelessServer(Server):
    """Its look-ups of names end with nothing, and late: the name server that it knows is silent."""

    NAME_SERVER = "127.0.0.99"

    def command(self):
        (self.folder / "resolv.conf").write_text("nameserver %s\n" % self.NAME_SERVER)
        mount = "mount --bind resolv.conf /etc/resolv.conf && exec \"$@\""
        return ["unshare", "--mount", "sh", "-c", mount, "sh", *super().command()]


class OtherWaysIn(unittest.TestCase):
    def test_a_name(self):
        with Redis() as redis, Server({"p.qvs": "<% Session.Contents(\"a\") = \"x\" %>y"},
                                      {"SessionStore": "redis://localhost:%d" % redis.port}) as server:
            server.get("/p.qvs")
            self.assertTrue(redis.command("KEYS", "quorvane:session:*"))

    def test_a_name_that_leads_nowhere(self):
        with Server({"p.qvs": "<% Session.Contents(\"a\") = \"x\" %>"},
                    {"SessionStore": "redis://no-such-host.invalid"}) as server:
            self.assertIn("The session store can't be reached: Host not found",
                          server.get("/p.qvs").text)

    @unittest.skipUnless(os.geteuid() == 0 and shutil.which("unshare"),
                         "needs a file system of its own")
    def test_a_name_that_is_not_found_in_time(self):
        silent = self.enterContext(socket.socket(socket.AF_INET, socket.SOCK_DGRAM))
        silent.bind((NamelessServer.NAME_SERVER, 53))
        with NamelessServer({"p.qvs": "<% Session.Contents(\"a\") = \"x\" %>"},
                            {"SessionStore": "redis://store.example"}) as server:
            begun = time.monotonic()
            for _ in range(3):
                self.assertIn("The session store can't be reached: the host's address is not found "
                              "in time", server.get("/p.qvs").text)
            self.assertLess(time.monotonic() - begun, 1)
            silent.settimeout(1)
            self.assertTrue(silent.recv(512))
            self.assertEqual(server.stop(), 0)

    def test_password_and_file(self):
        with Redis("requirepass secret\n") as redis:
            page = {"p.qvs": "<% Session.Contents(\"a\") = \"x\": Response.Write "
                    "Session.Contents(\"a\") %>"}
            address = redis.address.replace("//", "//:secret@")
            with Server(page, {"SessionStore": address}) as server:
                self.assertEqual(server.get("/p.qvs").text, "x")
            for wrong in (redis.address, redis.address.replace("//", "//:wrong@")):
                with Server(page, {"SessionStore": wrong}) as server:
                    self.assertIn("The session store", server.get("/p.qvs").text)

    def test_file(self):
        with Redis() as redis, Server({"p.qvs": "<% Session.Contents(\"a\") = \"x\" %>y"},
                                      {"SessionStore": "unix:%s" % redis.file}) as server:
            server.get("/p.qvs")
            self.assertTrue(redis.command("KEYS", "quorvane:session:*"))


del StoreTest
