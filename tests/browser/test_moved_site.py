"""A site in the customary dialect, page by page, as its visitors use it."""

import pathlib
import tempfile
import time
import unittest

from browser.webdriver import Browser, missing_programs
from moved import mail_folder, moved_site

# The smallest picture that browsers show: one dot.
PICTURE = bytes.fromhex("89504e470d0a1a0a0000000d4948445200000001000000010802000000907753de"
                        "0000000c4944415408d763f8cfc000000301010018dd8db00000000049454e44ae426082")


@unittest.skipIf(missing_programs(), "not installed: " + ", ".join(missing_programs()))
class MovedSite(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.server = cls.enterClassContext(moved_site())
        cls.browser = cls.enterClassContext(Browser())

    def setUp(self):
        """Ends the visit of the test before; the next begins with the home page."""
        self.open("/account/logout.asp")
        self.browser.console_errors()

    def open(self, target):
        self.browser.open("http://127.0.0.1:%d%s" % (self.server.port, target))

    def address(self):
        return self.browser.run("return location.pathname + location.search")

    def wait_for_address(self, address):
        self.browser.wait_for("return location.pathname + location.search === %r && "
                              "document.readyState === 'complete'" % address, address)

    def texts(self, selector):
        return self.browser.run("return [...document.querySelectorAll(arguments[0])]"
                                ".map(e => e.textContent.trim())", selector)

    def log_in(self, back=""):
        self.open("/account/login.asp" + back)
        self.browser.type("#name", "ann")
        self.browser.type("#password", "leaves")
        self.browser.click("#remember")
        self.browser.click("#go")

    def test_the_home_page(self):
        self.open("/")
        self.assertEqual(self.browser.title(), "Welcome - The Tea Cupboard")
        self.assertEqual(self.texts("#notices li"),
                         ["New spring teas have come in", "Pots are back on the shelf"])
        self.assertEqual(self.texts("#hours tr:nth-child(2) td"), ["Monday", "9-12"])
        self.browser.wait_for_text("#stock", lambda text: text == "4 goods, fresh \u2013 "
                                   "\u201c\u4eca\u65e5\u201d f\u00fcr Ren\u00e9")
        self.assertEqual(self.browser.broken_images(), [])
        self.assertEqual(self.browser.run("return getComputedStyle(document.body).margin"), "12px")
        self.assertEqual(self.browser.console_errors(), [])
        self.assertNotIn("QVSITEID", self.browser.run("return document.cookie"))

    def test_visits_are_counted(self):
        self.assertEqual(self.address(), "/")
        self.assertIn("Page 1 of your visit", self.browser.text("#bottom"))
        self.open("/Default.ASP")
        self.assertIn("Page 2 of your visit", self.browser.text("#bottom"))
        self.assertEqual(self.browser.text("#first"), "/default.asp")

    def test_members(self):
        self.open("/account/members.asp")
        self.assertEqual(self.address(), "/account/login.asp?back=%2Faccount%2Fmembers%2Easp")
        self.browser.type("#name", "ann")
        self.browser.type("#password", "wrong")
        self.browser.click("#go")
        self.browser.wait_for_text("#message", lambda text: text == "Name or password is wrong")
        self.browser.type("#password", "leaves")
        self.browser.click("#go")
        self.wait_for_address("/account/members.asp")
        self.assertIn("You may read and write.", self.browser.text("#rights"))
        values = dict(zip(self.texts("#values td:first-child"), self.texts("#values td:last-child")))
        self.assertEqual((values["LoggedIn"], values["UserName"], values["Rights"]),
                         ("True", "ann", "(array of 2)"))
        self.assertEqual(self.browser.text("#trail"),
                         "/default.asp /account/login.asp /account/members.asp")

    def test_who_comes_back_is_known(self):
        self.log_in("?back=/")
        self.wait_for_address("/")
        self.assertEqual(self.browser.text("#greeting"), "Good to see you, ann")
        self.assertIn("Visitor=Name=ann&Since=2004", self.browser.run("return document.cookie"))
        self.browser.click("#who a")
        self.wait_for_address("/")
        self.assertEqual(self.browser.text("#greeting"), "Welcome, stranger")
        self.assertNotIn("Visitor=", self.browser.run("return document.cookie"))

    def test_a_purchase(self):
        self.open("/shop")
        self.assertEqual(self.address(), "/shop/")
        self.assertEqual(self.texts("#goods tr:nth-child(4) td")[:3],
                         ["K010", "Kettle & lid", "GBP\u00a029.00"])
        self.browser.type("[name=n_T100]", "2")
        self.browser.type("[name=n_K010]", "1")
        self.browser.click("#put")
        self.wait_for_address("/shop/Basket.asp")
        self.assertEqual(self.browser.run("return document.querySelector('#total').textContent"),
                         "GBP\u00a038.00")
        self.browser.click("#drop_K010")
        self.browser.wait_for_text("#total", lambda text: text.endswith("9.00")
                                   and "38" not in text)
        self.browser.click("#drop_T100")
        self.browser.wait_for_text("#empty", lambda text: "nothing in it" in text)

    def test_the_calendar(self):
        self.open("/calendar.asp?y=2009&m=1")
        self.browser.click("#before")
        self.browser.wait_for_text("h1", lambda text: text == "December 2008")
        self.assertEqual(self.texts("#month tr:nth-child(2) td"),
                         ["1", "2", "3", "4", "5", "6", "7"])
        self.open("/calendar.asp")
        self.assertEqual(self.browser.text("#month b"), str(time.localtime().tm_mday))

    def test_guests(self):
        self.open("/Guests.asp")
        self.assertEqual(self.browser.text("#none"), "No guests yet.")
        for name, town in (("Ren\u00e9", "Lyon"), ("<Bob>", ""), ("O'Neil", "Cork"), ("Zo\u00eb", "Ulm")):
            self.browser.type("#name", name)
            self.browser.type("#town", town)
            self.browser.click("#go")
            self.browser.wait_for("return document.querySelector('#guests td:nth-child(2)')"
                                  "?.textContent === %r" % name, "the guest's line")
        self.assertEqual(self.texts("#guests td:nth-child(2)"), ["Zo\u00eb", "O'Neil", "<Bob>"])
        self.assertEqual(self.texts("#guests td:nth-child(4)"), ["3", "4", "nowhere"])
        self.browser.click("#page2")
        self.wait_for_address("/Guests.asp?page=2")
        self.assertEqual(self.texts("#guests td:nth-child(2)"), ["Ren\u00e9"])

    def test_a_letter_to_the_shop(self):
        self.open("/contact.asp")
        self.browser.type("#from", "ann at home")
        self.browser.type("#subject", "Caf\u00e9")
        self.browser.type("#text", "short")
        self.browser.click("#send")
        self.browser.wait_for("return document.querySelectorAll('#wrong li').length === 2", "the list")
        self.assertEqual(self.browser.run("return document.querySelector('#subject').value"),
                         "Caf\u00e9")
        self.browser.run("document.querySelector('#from').value = 'ann@x.example'")
        self.browser.type("#text", " and then more")
        self.browser.click("#black")
        self.browser.click("#send")
        self.browser.wait_for_text("#sent", lambda text: "ann@x.example, about 1 topics" in text)
        mails = [mail.read_bytes() for mail in mail_folder(self.server).iterdir()]
        self.assertEqual(len(mails), 1)
        self.assertIn(b"short and then more", mails[0])

    def test_a_survey(self):
        self.open("/survey.asp")
        before = self.browser.text("#votes")
        self.assertEqual(before, "0 green, 0 black")
        self.browser.click("#green")
        self.browser.click("#black")
        self.browser.click("#go")
        self.browser.wait_for_text("#done", lambda text: text == "Counted: Green, Black")
        self.assertEqual(self.browser.text("#votes"), "1 green, 1 black")
        self.assertEqual(self.texts("#go"), [])

    def test_a_picture_is_sent(self):
        self.open("/upload.asp")
        with tempfile.TemporaryDirectory(prefix="quorvane-test-") as folder:
            picture = pathlib.Path(folder) / "My pot.png"
            picture.write_bytes(PICTURE)
            self.browser.type("#title", "A pot & more")
            self.browser.type("#picture", str(picture))
            self.browser.click("#go")
            self.browser.wait_for_text("#message", lambda text: text
                                       == "A pot & more: %d bytes, first 137" % len(PICTURE))
        self.assertEqual(self.browser.broken_images(), [])
        self.assertEqual(len(self.texts("#pictures img")), 1)
        self.assertEqual((self.server.root / "Uploads/picture.png").read_bytes(), PICTURE)

    def test_addresses_that_are_no_files(self):
        self.open("/products/t200/darjeeling")
        self.assertEqual(self.browser.title(), "Darjeeling, 100 g - The Tea Cupboard")
        self.assertEqual(self.browser.text("#product"), "T200: GBP 6.25")
        self.assertIn("March 2, 2009", self.browser.text("#price"))
        self.assertEqual(self.browser.broken_images(), [])
        self.open("/tea/t100")
        self.assertEqual(self.address(), "/products/t100")
        self.assertEqual(self.browser.text("h1"), "Assam, 250 g")
        self.open("/gone/away.htm")
        self.assertEqual(self.browser.text("#asked i"), "/gone/away.htm")

    def test_what_fails(self):
        self.open("/errors/break.asp")
        self.assertEqual(self.browser.text("h1"), "Something broke")
        self.assertEqual(self.browser.text("#place"), "second.inc, line 3")
        self.assertEqual(self.browser.text("#description"), "Division by zero")

    def test_other_alphabets(self):
        self.open("/cyrillic.asp?q=%F7%E0%E9")
        self.assertEqual(self.browser.title(), "\u0427\u0430\u0439")
        self.assertEqual(self.browser.text("#asked"), "\u0447\u0430\u0439")
        self.assertEqual(self.browser.text("#tea"),
                         "\u0427\u0430\u0439 \u0438 \u0441\u0430\u043c\u043e\u0432\u0430\u04403")
        self.assertRegex(self.browser.text("#date"), "^02.03.2009 .* 1,5$")

    def test_the_feed_and_the_download(self):
        self.open("/about/")
        self.assertEqual(self.browser.text("h1"), "About us")
        title = self.browser.run(
            "const x = new XMLHttpRequest(); x.open('GET', '/news/feed.asp', false); x.send();"
            "return x.responseXML.querySelector('item > description').textContent")
        self.assertEqual(title, "Gr\u00fcn & wei\u00df")
        answer = self.browser.run(
            "const x = new XMLHttpRequest(); x.open('GET', '/download.asp', false); x.send();"
            "return [x.status, x.getResponseHeader('Content-Disposition')]")
        self.assertEqual(answer, [200, 'attachment; filename="prices.csv"'])

    def test_a_page_that_comes_in_pieces(self):
        self.open("/slow.asp")
        self.assertEqual(self.texts("li"), ["1", "2", "3"])
        self.assertEqual(self.browser.text("#end"), "done")
