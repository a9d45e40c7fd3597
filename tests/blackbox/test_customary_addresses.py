"""Addresses under Customary: default documents, names, served types, a page for what is not found."""

from serving import Server, ServerTest

NOT_FOUND = "HTTP/1.1 404 No Found"
MOVED = "HTTP/1.1 301 Moved Permanently"
QUERY = "<%= Request.ServerVariables(\"QUERY_STRING\") %>"


class CustomaryAddresses(ServerTest):
    SETTINGS = {"Customary": "2", "EncodeStatic": "1"}
    PAGES = {
        "index.asp": "home",
        "shop/default.asp": "shop <%= 1 + 1 %>",
        "shop/list.ASP": "list",
        "both/index.qvs": "own",
        "both/default.asp": "other",
        "plain/index.html": b"plain",
        "empty/page.asp": "page",
        "a b/caf\u00e9.txt": b"accented",
        "picture.svg": b"<svg/>",
        "data.json": b"{}",
        "font.woff2": b"w",
        "archive.7z": b"7",
        "style.css": b"a{}" * 100,
        "name": b"secret",
        "global.asa": b"secret",
        "parts/top.inc": b"secret",
        "web.config": b"secret",
        "data/shop.mdb": b"secret",
        "data/shop.db-wal": b"secret",
        ".git/config.txt": b"secret",
        "App_Data/users.txt": b"secret",
        "bin/readme.txt": b"secret",
    }

    def status(self, target):
        return self.server.get(target).status

    def test_pages_and_default_documents(self):
        for target, body in (("/", b"home"), ("/index.asp", b"home"), ("/shop/", b"shop 2"),
                             ("/SHOP/List.asp", b"list"), ("/both/", b"own"),
                             ("/plain/", b"plain"), ("/shop/?a=1", b"shop 2")):
            response = self.server.get(target)
            self.assertEqual((response.status, response.body), ("HTTP/1.1 200 OK", body), target)
        self.assertEqual(self.status("/empty/"), NOT_FOUND)
        self.assertEqual(self.status("/none/"), NOT_FOUND)

    def test_path_behind_a_page(self):
        names = ("PATH_INFO", "PATH_TRANSLATED", "SCRIPT_NAME", "URL", "HTTP_URL", "QUERY_STRING",
                 "UNENCODED_URL", "HTTP_METHOD", "HTTP_VERSION")
        page = "".join(f"<%= Request.ServerVariables(\"{name}\") %>;" for name in names)
        path = self.server.path
        self.server.put("shop/vars.asp", page + "<%= Server.MapPath(\"x\") %>")
        for rest, decoded in (("/17/red%20shoes", "/17/red shoes"), ("", "")):
            target = "/shop/vars.asp" + rest
            self.assertEqual(self.server.get(target + "?x=1").text.split(";"), [
                f"/shop/vars.asp{decoded}", path("shop/vars.asp" + decoded), "/shop/vars.asp",
                "/shop/vars.asp", target + "?x=1", "x=1", target + "?x=1", "GET", "HTTP/1.1",
                path("shop/x")])
        self.assertEqual(self.status("/picture.svg/more"), NOT_FOUND)

    def test_folders_have_their_slash(self):
        for target, location in (("/shop", "/shop/"), ("/shop?a=1&b=/", "/shop/?a=1&b=/"),
                                 ("/a%20b", "/a%20b/"), ("//shop", "/shop/"),
                                 ("/empty", "/empty/")):
            response = self.server.get(target)
            self.assertEqual(response.status, MOVED, target)
            self.assertEqual(response.header("Location"), location)
        self.assertEqual(self.server.get("/shop/").header("Location"), None)

    def test_a_redirected_connection_goes_on(self):
        with self.server.connect() as client:
            client.send("GET /shop HTTP/1.1\r\nHost: x\r\n\r\n")
            self.assertEqual(client.receive().status, MOVED)
            client.send("HEAD /shop HTTP/1.1\r\nHost: x\r\n\r\n")
            self.assertEqual(client.receive(with_body=False).status, MOVED)
            client.send("GET /shop/ HTTP/1.1\r\nHost: x\r\n\r\n")
            self.assertEqual(client.receive().body, b"shop 2")

    def test_names_are_decoded(self):
        for target in ("/a%20b/caf%C3%A9.txt", "/a%20b/caf%E9.txt", "/shop/../a%20b/caf%c3%a9%2Etxt"):
            self.assertEqual(self.server.get(target).body, b"accented", target)

    def test_todays_types(self):
        for name, kind in (("picture.svg", "image/svg+xml"), ("data.json", "application/json"),
                           ("font.woff2", "font/woff2"),
                           ("archive.7z", "application/x-7z-compressed")):
            response = self.server.get("/" + name)
            self.assertEqual(response.status, "HTTP/1.1 200 OK")
            self.assertEqual(response.header("Content-Type"), kind)
        packed = self.server.get("/%73tyle.css", "Accept-Encoding: gzip\r\n")
        self.assertEqual(packed.header("Content-encoding"), "gzip")
        part = self.server.get("/picture.svg", "Range: bytes=1-3\r\n")
        self.assertEqual((part.body, part.header("Content-Type")), (b"svg", "image/svg+xml"))

    def test_what_a_site_keeps_for_itself(self):
        for target in ("/name", "/global.asa", "/GLOBAL.ASA", "/global%2Easa", "/parts/top.inc",
                       "/web.config", "/data/shop.mdb", "/data/shop.db-wal", "/.git/config.txt",
                       "/%2egit/config.txt", "/App_Data/users.txt", "/app_data/users.txt",
                       "/app_data%5Cusers.txt", "/shop/../App%5fData/users.txt",
                       "/Bin/readme.txt", "/bin", "/.git", "/App_Data/"):
            response = self.server.get(target)
            self.assertEqual(response.status, NOT_FOUND, target)
            self.assertNotIn(b"secret", response.body)

    def test_nothing_leaves_the_document_root(self):
        outside = self.server.folder / "main/Server/outside.txt"
        outside.write_bytes(b"not to be seen")
        for target in ("/../outside.txt", "/%2e%2e/outside.txt", "/..%2foutside.txt",
                       "/%2e%2e%5coutside.txt", "/shop/%2e%2e/%2e%2e/outside.txt",
                       "/shop/..%5c..%5coutside.txt", "/%252e%252e/outside.txt",
                       "/..%c0%afoutside.txt", "/" + str(outside), "/%2f" + str(outside),
                       "/../Scripts/../outside.txt"):
            response = self.server.get(target)
            self.assertEqual(response.status, NOT_FOUND, target)
            self.assertNotIn(b"not to be seen", response.body)
        for target in ("/index.asp%00", "/picture.svg%00.asp", "/nul.txt", "/picture.svg%3a%3a$DATA"):
            self.assertEqual(self.status(target), NOT_FOUND, target)

    def test_what_is_missing_is_shown_as_it_came(self):
        body = self.server.get("/%3Cscript%3E.txt").body
        self.assertIn(b"<i>%3Cscript%3E.txt</i>", body)
        self.assertNotIn(b"<script>", body)


class NotFoundPage(ServerTest):
    SETTINGS = {"Customary": "2", "NotFoundPage": "/errors/404.asp"}
    PAGES = {
        "index.asp": "home",
        "errors/404.asp": "[" + QUERY + "]",
        "docs/page.asp": "page",
        "there.txt": b"there",
    }

    def test_a_page_answers_for_rewritten_addresses(self):
        for target in ("/products/17/red%20shoes?size=5&x", "/gone.asp", "/global.asa", "/docs/"):
            response = self.server.get(target)
            self.assertEqual(response.status, "HTTP/1.1 200 OK")
            self.assertEqual(response.text, "[404;http://localhost" + target + "]")
        self.assertEqual(self.server.get("/there.txt").body, b"there")
        self.assertEqual(self.server.get("/errors/404.asp").text, "[]")

    def test_the_host_is_the_one_asked(self):
        data = self.server.raw(b"GET /x HTTP/1.1\r\nHost: www.example.org:81\r\n"
                               b"Connection: close\r\n\r\n")
        self.assertTrue(data.endswith(b"\r\n\r\n[404;http://www.example.org:81/x]"), data)

    def test_a_page_that_is_missing_too(self):
        settings = {"Customary": "2", "NotFoundPage": "/none.asp"}
        with Server(dict(self.PAGES), settings) as server:
            self.assertEqual(server.get("/x").status, NOT_FOUND)
            self.assertEqual(server.get("/none.asp").status, NOT_FOUND)
            self.assertEqual(server.get("/").body, b"home")


class WithoutTheSetting(ServerTest):
    SETTINGS = {"Customary": "1", "NotFoundPage": "/index.qvs"}
    PAGES = {"index.qvs": "own", "index.asp": "x", "shop/default.asp": "x", "a b.txt": b"x",
             "picture.svg": b"x"}

    def test_addresses_are_the_servers_own(self):
        for target in ("/index.asp", "/shop", "/a%20b.txt", "/picture.svg", "/gone.htm",
                       "/shop/../index.qvs"):
            self.assertEqual(self.server.get(target).status, NOT_FOUND, target)
        self.assertEqual(self.server.get("/shop/").body, b"own")
