"""The server's window: found by its title, read by messages, used by mouse and keys."""

import unittest
import urllib.request

from serving import is_listened_on, wait_until
from windows.programs import RunningServer, Site, WindowUser, wine

TITLE = "Quorvane Server"
LOG, SOCKETS, SESSIONS = 100, 101, 102
LABEL_OF_LOG, LABEL_OF_SOCKETS, LABEL_OF_SESSIONS = 110, 111, 112
START_STOP, CLEAR_LOG, TEXT = 120, 121, 130


class WindowTest(unittest.TestCase):
    ARGUMENTS = ("/debug",)
    SETTINGS = {}
    LANGUAGES = ()

    def setUp(self):
        self.site = Site(self.SETTINGS)
        self.addCleanup(self.site.remove)
        if self.LANGUAGES:
            self.site.add_languages(*self.LANGUAGES)
        self.server = RunningServer(self.site, *self.ARGUMENTS, listens="/idle" not in self.ARGUMENTS)
        self.addCleanup(self.server.close)
        self.user = WindowUser()
        self.addCleanup(self.user.close)
        self.assertEqual(self.user("find", 20, TITLE), ["found"])

    def get(self, target="/hello.txt"):
        return urllib.request.urlopen("http://127.0.0.1:%d%s" % (self.site.port, target)).read()

    def lines(self, which=LOG):
        return [line[1:] for line in self.user("lines", which)]

    def chosen(self):
        return [line[1:] for line in self.user("lines", LOG) if line[0] == "*"]

    def wait_for_line(self, end):
        wait_until(lambda: any(line.endswith(end) for line in self.lines()), "the line %r" % end)

    def place_of(self, end):
        return next(i for i, line in enumerate(self.lines()) if line.endswith(end))

    def areas(self):
        """By identifier: left, top, width, height, whether shown."""
        rows = [list(map(int, line.split())) for line in self.user("areas")]
        return {row[0]: row[1:] for row in rows}


class Window(WindowTest):
    def test_it_has_the_controls_with_their_captions(self):
        self.assertEqual(self.user.one("shown"), "yes")
        self.assertEqual(self.user.one("text", START_STOP), "Start/Stop")
        self.assertEqual(self.user.one("text", CLEAR_LOG), "Clear Log")
        self.assertEqual(self.user.one("text", LABEL_OF_LOG), "Log")
        self.assertEqual(self.user.one("text", LABEL_OF_SESSIONS), "Sessions")
        wait_until(lambda: self.user.one("text", LABEL_OF_SOCKETS) == "10 Talkers, 10 cached.",
                   "the sockets to be counted")
        self.assertEqual(self.lines(SOCKETS)[0], "Localhost:%d = 2" % self.site.port)
        self.assertEqual(self.user.one("text", TEXT), "")

    def test_it_shows_the_status_lines_and_follows_the_newest(self):
        self.wait_for_line("LCID: 0")
        self.assertRegex(self.lines()[0], "^[0-9]{2}:[0-9]{2}:[0-9]{2} #{73}$")
        for _ in range(60):
            self.get()
        self.wait_for_line("GET /hello.txt")
        wait_until(lambda: self.chosen() == [self.lines()[-1]], "the newest line to be chosen")

    def test_a_click_on_a_line_shows_it_and_stays_there(self):
        self.wait_for_line("LCID: 0")
        line = self.place_of("Server Start")
        self.user("pick", LOG, line)
        wait_until(lambda: self.user.one("text", TEXT).endswith("Server Start"), "the line's text")
        self.get()
        self.wait_for_line("GET /hello.txt")
        self.assertTrue(self.chosen()[0].endswith("Server Start"))
        self.user("type", LOG, "end")
        wait_until(lambda: self.user.one("text", TEXT).endswith("GET /hello.txt"), "the last line")

    def test_the_buttons_stop_start_and_clear(self):
        self.user("press", START_STOP)
        self.wait_for_line("Server Stop")
        wait_until(lambda: not is_listened_on(self.site.port), "the server to stop")
        self.user("press", CLEAR_LOG)
        wait_until(lambda: self.lines() == [], "the list to be cleared")
        self.assertEqual(self.user.one("text", TEXT), "")
        self.user("press", START_STOP)
        self.wait_for_line("Server Start")
        self.assertEqual(self.get(), b"Hello")

    def test_lines_are_copied_by_key_and_by_menu(self):
        self.wait_for_line("Connection request from IP 127.0.0.1")  # the last for now
        start, home = self.place_of("Server Start"), self.place_of("Scripts")
        lines = self.lines()
        self.user("forget")
        self.user("pick", LOG, home)
        self.user("pick", LOG, start, "add")
        self.assertEqual(self.chosen(), [lines[home], lines[start]])
        self.user("type", 0, "ctrl+c")
        self.assertEqual(self.user("clipboard"), [lines[home] + "\\n" + lines[start] + "\\n"])
        self.user("menu", LOG, start - 1, 1)
        self.assertEqual(self.user("clipboard"), [lines[start - 1] + "\\n"])
        self.user("menu", LOG, start - 1, 2)
        self.assertEqual(self.user("clipboard"), ["\\n".join(lines) + "\\n"])
        self.user("forget")
        self.user("type", 0, "ctrl+a")
        self.user("type", 0, "ctrl+insert")
        self.assertEqual(self.user("clipboard"), ["\\n".join(lines) + "\\n"])

    def test_keys_go_from_control_to_control(self):
        self.user("type", SOCKETS, "tab")
        visited = [int(self.user.one("focus"))]
        for _ in range(5):
            self.user("type", 0, "tab")
            visited.append(int(self.user.one("focus")))
        self.assertEqual(visited, [SESSIONS, LOG, TEXT, START_STOP, CLEAR_LOG, SOCKETS])
        self.user("type", CLEAR_LOG, "enter")
        wait_until(lambda: self.lines() == [], "the list to be cleared")

    def test_the_controls_take_the_room_that_there_is(self):
        def check():
            areas = self.areas()
            width, height = areas.pop(0)[2:4]
            for control, (left, top, wide, high, shown) in areas.items():
                with self.subTest(control=control, width=width):
                    self.assertTrue(shown)
                    self.assertGreater(min(wide, high), 0)
                    self.assertTrue(0 <= left and left + wide <= width, "within the window")
                    self.assertTrue(0 <= top and top + high <= height, "within the window")
            names = sorted(areas)
            for i, first in enumerate(names):
                for second in names[i + 1:]:
                    self.assertFalse(overlap(areas[first], areas[second]), (first, second))
            return areas

        usual = check()
        self.user("resize", 1300, 900)
        large = check()
        self.assertGreater(large[LOG][2], usual[LOG][2] + 400)
        self.assertGreater(large[LOG][3], usual[LOG][3] + 100)
        self.assertEqual(large[START_STOP][2:], usual[START_STOP][2:])
        self.user("resize", 50, 50)
        check()

    def test_closing_it_ends_the_server_in_order(self):
        self.user("close")
        self.assertEqual(self.server.ended(), 0)
        last = [line.partition("] ")[2] for line in self.site.log_text().split("\r\n") if line][-2:]
        self.assertEqual(last, ["Server Stop", "Server Closing"])
        self.assertEqual(self.user("find", 0, TITLE), ["none"])

    def test_it_answers_while_a_page_keeps_the_server_busy(self):
        (self.site.root / "long.qvs").write_text(
            "<% Dim t : t = Timer : Do While Timer - t < 4 : Loop %>done")
        request = urllib.request.Request("http://127.0.0.1:%d/long.qvs" % self.site.port)
        import threading
        asked = threading.Thread(target=lambda: urllib.request.urlopen(request).read())
        asked.start()
        try:
            import time
            time.sleep(1)
            before = time.monotonic()
            self.user("resize", 900, 700)
            self.areas()
            self.assertLess(time.monotonic() - before, 2)
            self.assertTrue(asked.is_alive())
        finally:
            asked.join()


def overlap(a, b):
    return (a[0] < b[0] + b[2] and b[0] < a[0] + a[2] and
            a[1] < b[1] + b[3] and b[1] < a[1] + a[3])


class Languages(WindowTest):
    SETTINGS = {"DefaultLCID": "1031"}
    LANGUAGES = (1031, 1033)

    def test_the_texts_are_those_of_the_language(self):
        self.wait_for_line("LCID: 1031")
        wait_until(lambda: self.user.one("text", START_STOP) == "Start/Stopp", "German")
        self.assertEqual(self.user.one("text", CLEAR_LOG), "Protokoll leeren")
        self.assertEqual(self.user.one("text", LABEL_OF_LOG), "Protokoll")
        narrow = self.areas()[CLEAR_LOG][2]
        settings = self.site.settings.read_text()
        self.site.settings.write_text(settings.replace("DefaultLCID=1031", "DefaultLCID=1033"))
        self.user("press", START_STOP)
        self.wait_for_line("Server Stop")
        self.user("press", START_STOP)
        wait_until(lambda: self.user.one("text", CLEAR_LOG) == "Clear Log", "English")
        self.assertEqual(self.user.one("text", LABEL_OF_LOG), "Log")
        self.assertLess(self.areas()[CLEAR_LOG][2], narrow)


class Hidden(WindowTest):
    ARGUMENTS = ("/noqvm",)

    def test_without_debug_the_window_is_hidden_and_empty(self):
        self.get()
        self.assertEqual(self.user.one("shown"), "no")
        self.assertEqual(self.lines(), [])

    def test_the_system_ends_the_program_through_it(self):
        wine("taskkill", "/im", "quorvane-server.exe")
        self.assertEqual(self.server.ended(), 0)
        self.assertIn("Server Closing", self.site.log_text())


class Idle(WindowTest):
    ARGUMENTS = ("/debug", "/idle")

    def test_the_server_is_started_from_the_window(self):
        self.assertFalse(is_listened_on(self.site.port))
        self.user("press", START_STOP)
        wait_until(lambda: is_listened_on(self.site.port), "the server to listen")


if __name__ == "__main__":
    unittest.main()
