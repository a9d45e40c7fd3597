"""The guest book: a visitor writes, changes and deletes, others read, and the owner gets mail."""

import email
import email.policy
import pathlib
import re
import sqlite3
import tempfile
import urllib.parse
import xml.etree.ElementTree

from browser.site import SiteTest
from browser.webdriver import Browser
from serving import Server, app_folder, wait_until

HOSTILE = "<script>document.title='taken'</script> & \"quoted\" 'x'; DROP TABLE entries; --"


class GuestBook(SiteTest):
    """Each test has a book of its own."""

    @classmethod
    def setUpClass(cls):
        cls.browser = cls.enterClassContext(Browser())

    def setUp(self):
        self.mail = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.server = self.enterContext(
            Server(site=app_folder() / "Server/Scripts", settings={"MailFolder": self.mail}))
        self.open("/guestbook/book.qvs")

    def tearDown(self):
        # A browser asks for a page's icon late: that of the page before may find its server gone.
        page_before = re.compile(r"http://127\.0\.0\.1:(?!%d/)" % self.server.port)
        self.assertEqual([error for error in self.browser.console_errors()
                          if not page_before.match(error)], [])

    def note(self):
        return self.browser.wait_for_text("#note", bool)

    def fill(self, selector, text):
        self.browser.run("document.querySelector(arguments[0]).value = ''", selector)
        self.browser.type(selector, text)

    def write(self, name, message, picture=None):
        self.open("/guestbook/book.qvs")
        self.browser.type("#name", name)
        self.browser.type("#message", message)
        if picture:
            self.browser.type("#picture", str(picture))
        self.browser.click(".writing button")
        self.assertIn("Thank you", self.note())

    def fill_book(self, count):
        """Entries that another program has written."""
        with sqlite3.connect(self.server.root / "guestbook/data/guestbook.db") as book:
            book.executemany(
                "INSERT INTO entries (name, message, added, author, ownerkey) "
                "VALUES (?, ?, '2024-02-29 13:45:00', 'x', 'x')",
                [("Guest %d" % i, "Entry number %d" % i) for i in range(1, count + 1)])
        book.close()

    def names(self):
        return self.browser.run(
            "return [...document.querySelectorAll('.entry h2')].map(e => e.textContent)")

    def messages(self):
        return self.browser.run(
            "return [...document.querySelectorAll('.message')].map(e => e.textContent)")

    def mails(self):
        return [email.message_from_bytes(path.read_bytes(), policy=email.policy.default)
                for path in sorted(self.mail.glob("*.eml"))]

    def test_it_is_reached_from_the_start_page_and_begins_empty(self):
        self.open("/")
        self.browser.click("a.door[href='/guestbook/book.qvs']")
        self.assertIn("Be the first", self.browser.wait_for_text("#none", bool))
        self.assertEqual(self.browser.title(), "Guest book")

    def test_an_entry_with_a_picture(self):
        picture = self.server.root / "pictures/lake.png"
        self.write("Ann B\u00e9", "First line\nsecond line", picture)
        self.assertEqual(self.names(), ["Ann B\u00e9"])
        self.assertEqual(self.messages(), ["First linesecond line"])
        self.assertEqual(self.browser.run("return document.querySelectorAll('.message br').length"), 1)
        self.browser.wait_for("return document.querySelector('.enclosed').complete", "the picture")
        self.assertEqual(self.browser.broken_images(), [])
        source = self.browser.run("return document.querySelector('.enclosed').getAttribute('src')")
        self.assertRegex(source, r"^/guestbook/pictures/[0-9a-f]{32}\.png\?rx=480&ry=320$")
        self.assertEqual(self.server.get(source.partition("?")[0]).body, picture.read_bytes())
        self.browser.run("location.reload()")
        self.assertEqual(self.names(), ["Ann B\u00e9"])

    def test_what_is_no_picture_is_not_taken(self):
        with tempfile.NamedTemporaryFile(suffix=".png") as file:
            file.write(b"<html>no picture</html>")
            file.flush()
            self.browser.type("#name", "Ann")
            self.browser.type("#message", "Look <here>")
            self.browser.type("#picture", file.name)
            self.browser.click(".writing button")
            self.assertIn("JPEG, PNG or GIF", self.browser.wait_for_text("#problem", bool))
        self.assertEqual(self.browser.run("return document.querySelector('#message').value"),
                         "Look <here>")
        self.assertEqual(self.names(), [])

    def test_hostile_texts_are_texts(self):
        self.write(HOSTILE[:60], HOSTILE)
        self.assertEqual(self.browser.title(), "Guest book")
        self.assertEqual(self.names(), [HOSTILE[:60]])
        self.assertEqual(self.messages(), [HOSTILE])
        self.fill("#search", "'; DROP TABLE entries; --")
        self.browser.click(".search button")
        wait_until(lambda: self.browser.run("return location.search") != "", "the search")
        self.assertEqual(self.messages(), [HOSTILE])

    def test_pages_and_search(self):
        self.fill_book(12)
        self.open("/guestbook/book.qvs")
        self.assertEqual(self.names(), ["Guest %d" % i for i in (12, 11, 10, 9, 8)])
        self.browser.click("a[rel=next]")
        self.browser.wait_for_text(".pages", lambda text: "Page 2 of 3" in text)
        self.assertEqual(self.names(), ["Guest %d" % i for i in (7, 6, 5, 4, 3)])
        self.browser.click("a[rel=next]")
        self.browser.wait_for_text(".pages", lambda text: "Page 3 of 3" in text)
        self.assertEqual(self.names(), ["Guest 2", "Guest 1"])
        self.fill("#search", "GUEST 1")
        self.browser.click(".search button")
        wait_until(lambda: self.names() == ["Guest 12", "Guest 11", "Guest 10", "Guest 1"],
                   "the search")
        self.fill("#search", "100%")
        self.browser.click(".search button")
        self.browser.wait_for_text("#none", lambda text: "100%" in text)

    def test_an_entry_is_changed_and_deleted_by_its_writer(self):
        self.write("Ann", "With a mistaik", self.server.root / "pictures/fog.png")
        self.browser.click(".mine a")
        self.browser.wait_for_text("h2", lambda text: "Written on" in text)
        self.fill("#message", "Without a mistake")
        self.browser.click("[name=without]")
        self.browser.click("#save")
        self.assertIn("changed", self.note())
        self.assertEqual(self.messages(), ["Without a mistake"])
        self.assertEqual(self.browser.run("return document.querySelectorAll('.enclosed').length"), 0)
        self.assertEqual(list((self.server.root / "guestbook/pictures").glob("*")), [])
        self.browser.click(".mine a")
        self.browser.wait_for_text("h2", lambda text: "Written on" in text)
        self.browser.click("#delete")
        self.assertIn("gone", self.note())
        self.assertEqual(self.names(), [])

    def test_others_cannot_change_it(self):
        self.write("Ann", "Mine")
        address = self.browser.run("return document.querySelector('.mine a').getAttribute('href')")
        self.assertIn("Only who wrote", self.server.get(address).text)
        self.assertNotIn("Change or delete", self.server.get("/guestbook/book.qvs").text)
        form = "\r\n".join("--XX\r\nContent-Disposition: form-data; name=\"%s\"\r\n\r\n%s" % pair
                           for pair in (("id", "1"), ("delete", "1"), ("key", ""))) + "\r\n--XX--\r\n"
        self.server.post("/guestbook/edit.qvs", form.encode(),
                         "Content-Type: multipart/form-data; boundary=XX\r\n")
        # Nor by the writer's own browser, when another site has it send the form.
        cookie = self.browser.run("return document.cookie")
        self.server.post("/guestbook/edit.qvs", form.encode(),
                         "Cookie: %s\r\nContent-Type: multipart/form-data; boundary=XX\r\n" % cookie)
        self.assertIn("Mine", self.server.get("/guestbook/book.qvs").text)

    def test_the_owner_gets_mail_with_a_link_to_change_it(self):
        self.write("Ann", "Bad words")
        message, = self.mails()
        self.assertEqual(message["To"], "owner@localhost")
        self.assertEqual(message["Subject"], "Guest book: an entry by Ann")
        text = message.get_content()
        self.assertIn("Bad words", text)
        link = re.search(r"http://\S+", text)[0]
        self.browser.run("document.cookie = 'guest=; expires=Thu, 01 Jan 1970 00:00:00 GMT; path=/'")
        self.open("/guestbook/book.qvs")
        self.assertEqual(self.browser.run("return document.querySelectorAll('.mine').length"), 0)
        self.browser.open(link)
        self.browser.click("#delete")
        self.assertIn("gone", self.note())
        self.assertEqual(self.names(), [])

    def test_the_feed(self):
        self.write("Ann & Bob", "Less < more, caf\u00e9")
        self.fill_book(11)
        answer = self.server.get("/guestbook/feed.qvs")
        self.assertEqual(answer.header("Content-Type"), "application/rss+xml")
        feed = xml.etree.ElementTree.fromstring(answer.body)
        titles = [title.text for title in feed.iterfind("channel/item/title")]
        self.assertEqual(titles, ["Guest %d" % i for i in range(11, 1, -1)])
        self.browser.click(".mine a")
        self.browser.wait_for_text("h2", lambda text: "Written on" in text)
        with sqlite3.connect(self.server.root / "guestbook/data/guestbook.db") as book:
            book.execute("DELETE FROM entries WHERE name LIKE 'Guest%'")
        book.close()
        feed = xml.etree.ElementTree.fromstring(self.server.get("/guestbook/feed.qvs").body)
        item, = feed.iterfind("channel/item")
        self.assertEqual(item.findtext("title"), "Ann & Bob")
        self.assertEqual(item.findtext("description"), "Less < more, caf\u00e9")
        self.assertEqual(urllib.parse.urlsplit(item.findtext("link")).fragment, "entry1")

    def test_the_book_itself_is_not_served(self):
        self.assertTrue((self.server.root / "guestbook/data/guestbook.db").exists())
        for target in ("/guestbook/data/guestbook.db", "/guestbook/book.inc"):
            self.assertIn("404", self.server.get(target).status)
