"""The gallery's pictures in several sizes, and the melody that is jumped about in."""

from browser.site import SiteTest
from serving import wait_until

WHOLE = (1200, 800)


class Gallery(SiteTest):
    def sizes(self, selector):
        """Source and natural size of each picture, once all are there."""
        self.browser.wait_for("return [...document.images].every(i => i.complete)", "pictures")
        return self.browser.run(
            "return [...document.querySelectorAll(arguments[0])].map(i => "
            "[i.getAttribute('src'), i.naturalWidth, i.naturalHeight])", selector)

    def test_thumbnails_have_the_size_that_was_asked_for(self):
        self.open("/gallery.qvs")
        thumbnails = self.sizes(".picture img")
        self.assertEqual(len(thumbnails), 9)
        for source, width, height in thumbnails:
            self.assertRegex(source, r"^/pictures/[a-z-]+\.png\?rx=480&ry=320$")
            self.assertEqual((width, height), (480, 320), source)
        self.assertEqual(len(list(self.server.cache.glob("^R480x320*.png"))), 9)
        self.assertEqual(self.browser.console_errors(), [])

    def test_a_click_shows_the_picture_and_its_renderings(self):
        self.open("/gallery.qvs")
        self.browser.click("a.picture[href$='=dunes']")
        self.assertEqual(self.browser.text(".trail"), "Gallery / Dunes")
        self.assertEqual(self.sizes("#large"), [["/pictures/dunes.png", *WHOLE]])
        self.assertEqual(self.sizes(".renderings img"),
                         [["/pictures/dunes.png?rx=240", 240, 160],
                          ["/pictures/dunes.png?rx=150&ry=150", 150, 100],
                          ["/pictures/dunes.png?rx=140&ry=160&ar=0", 140, 160],
                          ["/pictures/dunes.png?rx=239&gr=1", 239, 159]])
        self.assertEqual(self.browser.console_errors(), [])

    def test_one_rendering_is_grey_and_the_others_are_not(self):
        self.open("/gallery.qvs?show=dunes")
        self.sizes("img")
        colourful = self.browser.run("""
            return [...document.querySelectorAll(".renderings img")].map(picture => {
              const canvas = document.createElement("canvas");
              const context = canvas.getContext("2d");
              context.drawImage(picture, 0, 0);
              const [red, green, blue] = context.getImageData(70, 60, 1, 1).data;
              return red !== green || green !== blue;
            })""")
        self.assertEqual(colourful, [True, True, True, False])

    def test_neighbours_lead_through_all_pictures(self):
        self.open("/gallery.qvs?show=first-light")
        seen = [self.browser.text(".trail")]
        while self.browser.run("return !!document.querySelector('.neighbours span + span a')"):
            self.browser.click(".neighbours span + span a")
            seen.append(self.browser.text(".trail"))
            self.assertEqual(len(set(seen)), len(seen), "it goes round")
        self.assertEqual(len(seen), 9)
        self.assertEqual(seen[-1], "Gallery / Contours")

    def test_an_unknown_picture_leads_to_the_overview(self):
        self.open("/gallery.qvs?show=%3Cscript%3E")
        self.assertEqual(self.browser.text("h1"), "Gallery")


class Sound(SiteTest):
    LENGTH = 38.4
    START_OF_PART = {1: 0, 2: 9.6, 3: 19.2, 4: 28.8}

    def when_ready(self):
        self.browser.wait_for("return document.querySelector('audio').readyState > 0", "the sound")

    def position(self):
        return self.browser.run("return document.querySelector('audio').currentTime")

    def seek(self, seconds):
        """Sets the position and waits until the browser has got there."""
        self.browser.run("window.arrived = false; const sound = document.querySelector('audio');"
                         "sound.addEventListener('seeked', () => window.arrived = true);"
                         "sound.currentTime = arguments[0]", seconds)
        self.browser.wait_for("return window.arrived", "the end of the jump")

    def wait_for_position(self, seconds):
        wait_until(lambda: abs(self.position() - seconds) < 0.05, "second %g" % seconds)
        self.browser.wait_for("return !document.querySelector('audio').seeking", "the jump")

    def test_it_seeks_near_the_end_and_plays_from_there(self):
        self.open("/media.qvs")
        self.when_ready()
        duration = self.browser.run("return document.querySelector('audio').duration")
        self.assertAlmostEqual(duration, self.LENGTH, places=1)
        self.browser.click(".parts button")  # browsers play nothing that nobody has touched
        self.seek(37.0)
        self.assertAlmostEqual(self.position(), 37.0, places=1)
        self.browser.run("const sound = document.querySelector('audio');"
                         "sound.muted = true; return sound.play()")
        self.browser.wait_for("return document.querySelector('audio').ended", "the end")
        self.assertEqual(self.browser.console_errors(), [])

    def test_the_browser_gets_the_sound_in_ranges(self):
        self.browser.answers()
        self.open("/media.qvs")
        self.when_ready()
        self.seek(30.0)
        sent = [(status, headers.get("content-range")) for target, status, headers
                in self.browser.answers() if target == "sound/four-parts.wav"]
        self.assertTrue(sent)
        for status, stretch in sent:
            self.assertEqual(status, 206)
            self.assertRegex(stretch, r"^bytes \d+-\d+/423404$")

    def test_buttons_and_picture_jump(self):
        self.open("/media.qvs")
        self.when_ready()
        for part in (3, 1, 4, 2):
            self.browser.click(".parts button:nth-child(%d)" % part)
            self.wait_for_position(self.START_OF_PART[part])
            self.assertEqual(
                self.browser.run("return [...document.querySelectorAll('.parts button')]"
                                 ".findIndex(b => b.getAttribute('aria-pressed') === 'true')"),
                part - 1)
        self.browser.click(".waves")  # in its middle
        self.wait_for_position(self.LENGTH / 2)
        self.assertIn("0:19 of 0:38, byte ", self.browser.text(".place"))

    def test_a_range_is_shown_byte_for_byte(self):
        self.open("/media.qvs")
        self.browser.click("#ask")
        shown = self.browser.wait_for_text("#answer", lambda text: "206" in text)
        whole = (self.server.root / "sound/four-parts.wav").read_bytes()
        self.assertIn("Content-Range: bytes 211724-211739/%d" % len(whole), shown)
        self.assertTrue(shown.endswith(whole[211724:211740].hex(" ")), shown)

    def test_a_sound_with_a_number_is_played_by_the_page_in_its_folder(self):
        for wanted, part in (("3", 3), ("4", 4), ("9", 1), ("x", 1), ("1.5", 1)):
            self.open("/sound/four-parts.wav?id=" + wanted)
            self.assertEqual(self.browser.text("h1"), "Played from part %d" % part)
            self.when_ready()
            self.wait_for_position(self.START_OF_PART[part])
        self.assertEqual(self.browser.console_errors(), [])
