"""Standard HTTP in a real browser: what it accepts, keeps and asks for again."""

import unittest

from browser.webdriver import Browser, missing_programs
from serving import Server, app_folder

FETCH = """
    return (async () => {
        performance.clearResourceTimings();
        const answer = await fetch('/style.css', {cache: arguments[0]});
        const text = await answer.text();
        await new Promise(done => setTimeout(done, 100));
        const entry = performance.getEntriesByType('resource').at(-1);
        return [answer.status, text.length, entry.transferSize, entry.encodedBodySize];
    })();"""


@unittest.skipIf(missing_programs(), "not installed: " + ", ".join(missing_programs()))
class StandardHttp(unittest.TestCase):
    def test_the_sample_site_comes_coded_and_is_kept(self):
        settings = {"StandardHTTP": "1", "EncodeStatic": "1", "EncodeDynamic": "1"}
        with Server(site=app_folder() / "Server/Scripts", settings=settings) as server, \
                Browser() as browser:
            # A browser takes brotli of its own machine and of secure servers alone.
            browser.open("http://localhost:%d/" % server.port)
            self.assertEqual(browser.title(), "Quorvane Server")
            self.assertEqual(browser.broken_images(), [])
            self.assertEqual(browser.run("return document.styleSheets.length"), 1)
            self.assertEqual(browser.console_errors(), [])
            answers = {target: (status, headers) for target, status, headers in browser.answers()}
            for target, coding in [("", ("zstd", "br")), ("style.css", ("br",))]:
                status, headers = answers[target]
                self.assertEqual(status, 200)
                self.assertIn(headers["content-encoding"], coding)
                self.assertEqual(headers["vary"], "Accept-Encoding")
            self.assertIn("etag", answers["style.css"][1])
            size = (server.root / "style.css").stat().st_size
            status, length, sent, coded = browser.run(FETCH, "reload")
            self.assertEqual((status, length), (200, size))
            self.assertLess(coded, size / 2)
            self.assertGreater(sent, coded)
            status, length, sent, coded = browser.run(FETCH, "no-cache")
            self.assertEqual((status, length), (200, size))
            self.assertLess(sent, coded)  # only a head came: the rest was kept
