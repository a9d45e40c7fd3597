"""The sample site in a real browser."""

import re

from browser.site import SiteTest


class SampleSite(SiteTest):
    def open_with_session(self):
        """Opens the home page with a session that a cookie carries; number 0 has none."""
        for _ in range(5):
            self.open("/")
            if "QVS_SESSIONID" in self.browser.run("return document.cookie"):
                return
        self.fail("no session cookie")

    def test_the_form_is_answered_and_the_counter_rises(self):
        self.open_with_session()
        self.assertEqual(self.browser.title(), "Quorvane Server")
        visits = int(self.browser.text("#visits"))
        self.browser.type("#name", "Ann B\u00e9")
        self.browser.click("form button")
        self.browser.wait_for_text("#greeting", lambda text: "Ann B\u00e9" in text)
        self.assertIn("6 letters", self.browser.text("#greeting"))
        self.assertEqual(int(self.browser.text("#visits")), visits + 1)
        self.open("/")
        self.assertEqual(int(self.browser.text("#visits")), visits + 2)

    def test_style_and_pictures_arrive(self):
        self.open("/")
        self.assertGreater(self.browser.run("return document.images.length"), 0)
        self.assertEqual(self.browser.broken_images(), [])
        self.assertEqual(self.browser.run("return document.styleSheets.length"), 1)
        self.assertEqual(self.browser.run("return getComputedStyle(document.body).margin"), "0px")

    def check_tour(self, page, *patterns):
        self.open("/tour/%s.qvs" % page)
        output = self.browser.text("#output")
        for pattern in patterns:
            self.assertRegex(output, pattern)
        source = (self.server.root / ("tour/examples/%s.inc" % page)).read_text()
        shown = self.browser.run("return document.querySelector('.source').textContent")
        lines = [line.strip() for line in source.splitlines() if line.strip()]
        self.assertEqual([line.strip() for line in shown.splitlines() if line.strip()], lines)
        self.assertEqual(self.browser.broken_images(), [])

    def test_tour_of_response(self):
        self.check_tour("response", r"0\.75", r"5  10  15  20  25", r"X-Tour: response")

    def test_tour_of_request(self):
        self.check_tour("request", r"nothing yet", r"Method: GET", r"/tour/request\.qvs")
        self.browser.type("#word", "two words")
        self.browser.click("form button")
        self.browser.wait_for_text("#output", lambda text: "You sent: two\u00a0words" in text
                                   or "You sent: two words" in text)
        self.assertIn("word, sent 1 time(s)", self.browser.text("#output"))

    def test_tour_of_server(self):
        self.check_tour("server", r"Version \d", r"You are 127\.0\.0\.1", r"a%20b%2Fc",
                        r"UXVvcnZhbmU=", r"Valid: True", r"e3 ")

    def test_tour_of_session(self):
        self.open_with_session()
        self.open("/tour/session.qvs")
        self.check_tour("session", r"(?s)Opened at.*Opened at", r"opened: \d+ letters")

    def test_tour_of_cookies(self):
        self.check_tour("cookies", r"here \d+ times")
        first = int(re.search(r"here (\d+) times", self.browser.text("#output"))[1])
        self.check_tour("cookies", r"here %d times" % (first + 1))

    def test_tour_of_shared_values(self):
        self.check_tour("application", r"127\.0\.0\.1 was here \d+ times", r"/filebin\$\w{32}")
        target = re.search(r"/filebin\$\w+", self.browser.text("#output"))[0]
        self.assertIn(b"--accent", self.server.get(target).body)
