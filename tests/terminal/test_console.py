"""The console as a person at a terminal meets it: the built program under tmux."""

import contextlib
import os
import pathlib
import re
import shutil
import signal
import socket
import time
import unittest

from serving import Server, app_folder, wait_until

from terminal.tmux import Terminal

CONTROL_PORT = 7008

AFTER_A_RESTART = """\
 Quorvane Server                                                     ● HH:MM:SS
┌─ 10 Talkers, 10 cached. ─────────────┐┌─ Sessions ───────────────────────────┐
│Localhost:PPPPP = 2                   ┃│                                      │
│0 [] = 0                              ││                                      │
│1 [] = 0                              ││                                      │
│2 [] = 0                              ││                                      │
└──────────────────────────────── ▼ 7 ─┘└──────────────────────────────────────┘
┌─ Log ────────────────────────────────────────────────────────────────────────┐
│HH:MM:SS Server Stop                                                          │
│HH:MM:SS Server Start                                                         │
│HH:MM:SS LCID: 0                                                              │
│                                                                              │
│                                                                              │
│                                                                              │
│                                                                              │
│                                                                              │
│                                                                              │
│                                                                              │
└──────────────────────────────────────────────────────────────────────────────┘
┌──────────────────────────────────────────────────────────────────────────────┐
│                                                                              │
│                                                                              │
└──────────────────────────────────────────────────────────────────────────────┘
 [ Start/Stop ]  [ Clear Log ]                          Tab ⇄  ↑↓  Enter ↵  q ✕"""


def is_running(process):
    """A process that has ended may wait a while until somebody takes note."""
    try:
        return pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()[0] != "Z"
    except FileNotFoundError:
        return False


@unittest.skipUnless(shutil.which("tmux"), "needs tmux")
class ConsoleTest(unittest.TestCase):
    def setUp(self):
        self.server = Server({"hello.txt": b"hello"})
        while self.server.port < 10000:  # the expected screens leave room for five digits
            self.server.__exit__()
            self.server = Server({"hello.txt": b"hello"})
        self.addCleanup(self.server.__exit__)

    def start(self, switches="", wait_for="LCID", **terminal):
        environment = {"QUORVANE_REGISTRY": str(self.server.registry)}
        command = f"'{app_folder() / 'quorvane-server'}' /debug /devmode {switches}"
        self.terminal = Terminal(command, environment=environment, **terminal)
        self.addCleanup(self.end, self.terminal)
        if wait_for:
            self.terminal.wait_for(wait_for)
        return self.terminal

    def end(self, terminal):
        """Closes the terminal and waits for the server to follow, since it writes a last time."""
        servers = terminal.children() if terminal.is_open else []
        terminal.close()
        for process in servers:
            wait_until(lambda: not is_running(process), "the server to end")

    def check_outlives_its_terminal(self):
        """Nothing is drawn, so a hang-up asks for a new log only."""
        process = self.process()
        self.terminal.close()
        time.sleep(0.3)
        self.assertTrue(self.is_serving())
        os.kill(process, signal.SIGTERM)
        wait_until(lambda: not is_running(process), "the server to end")

    def is_serving(self):
        with socket.socket() as s:
            return s.connect_ex(("127.0.0.1", self.server.port)) == 0

    def process(self):
        """The number of the server's process under the terminal's shell."""
        program = str(app_folder() / "quorvane-server")
        for process in self.terminal.children():
            if os.readlink(f"/proc/{process}/exe") == program:
                return process
        raise AssertionError("the server does not run")

    def expect_restored(self, ended):
        """The program has ended in the way told and the terminal is as it was."""
        t = self.terminal
        t.wait_for(f"^ended with {ended}$")
        t.wait_for("iexten")
        shown = t.text()
        self.assertNotIn("Start/Stop", shown)
        after = shown[shown.index("\n", shown.index("ended with")) + 1:]
        self.assertEqual(after.split(), t.modes_before().split())
        self.assertEqual(t.flag("alternate_on"), "0")
        self.assertEqual(t.flag("mouse_any_flag"), "0")
        self.assertEqual(t.flag("cursor_flag"), "1")

    def normal(self, screen):
        text = re.sub(r"\d\d:\d\d:\d\d", "HH:MM:SS", "\n".join(screen))
        return text.replace(str(self.server.port), "PPPPP")

    def test_shows_the_banner_and_the_lists(self):
        t = self.start()
        t.wait_for(rf"Localhost:{self.server.port} = 2")
        t.wait_for(r"10 Talkers, 10 cached\.")
        t.wait_for("Resource Mode: QVM")
        t.wait_for("^ Quorvane Server .*● 00:00:0")

    def test_stops_clears_and_starts_by_mouse(self):
        t = self.start()
        t.click_on("Clear Log")
        t.wait_until_gone("LCID")
        t.click_on("Start/Stop")
        t.wait_for("Server Stop")
        self.assertFalse(self.is_serving())
        t.click_on("Start/Stop")
        t.wait_for("LCID")
        self.assertTrue(self.is_serving())

    def test_screen_after_a_restart(self):
        t = self.start()
        t.click_on("Clear Log", "Start/Stop")
        t.wait_for("Server Stop")
        t.click_on("Start/Stop")
        t.wait_for("LCID")
        t.wait_for("Localhost")
        t.click(12, 5)  # the focus goes to the log; there is no line
        with contextlib.suppress(AssertionError):  # the comparison below shows what differs
            wait_until(lambda: self.normal(t.screen()) == AFTER_A_RESTART, "the screen", seconds=5)
        self.assertEqual(self.normal(t.screen()).split("\n"), AFTER_A_RESTART.split("\n"))

    def test_starts_and_clears_by_keyboard(self):
        t = self.start("/idle", wait_for="Resource Mode")
        self.assertFalse(self.is_serving())
        t.wait_for("^ Quorvane Server .*○")
        t.keys("Tab", "Tab", "Enter")
        t.wait_for("LCID")
        self.assertTrue(self.is_serving())
        t.keys("Right", "Space")
        t.wait_until_gone("LCID")

    def test_follows_requests_until_scrolled_away(self):
        t = self.start()
        for number in range(30):
            self.server.get(f"/hello.txt?n={number}")
        t.wait_for("hello.txt.*n=29|> GET /hello.txt")
        t.wheel_up(12, 10)
        t.wait_for("▼ 3 ")
        before = t.screen()[8:18]
        self.server.get("/hello.txt?last")
        t.wait_for(r"▼ [5-9] ")
        self.assertEqual([line[:60] for line in t.screen()[8:18]], [line[:60] for line in before])
        t.keys("End")
        t.wait_until_gone("▼ [5-9] ─┘$")

    def test_shows_a_clicked_line_in_full(self):
        t = self.start(columns=40, rows=24)
        self.server.get("/hello.txt?" + "x" * 60)
        t.wait_for("> GET /hello")
        t.click_on("> GET /hello")
        row = t.row_of("Start/Stop")
        wait_until(lambda: "> GET" in "\n".join(t.screen()[row - 4:row]), "the line in the text box")

    def test_understands_the_mouse_of_other_terminals(self):
        t = self.start(term="xterm-256color")
        self.assertEqual(t.flag("mouse_sgr_flag"), "1")
        t.click_on("Start/Stop")
        t.wait_for("Server Stop")

    def test_speaks_german(self):
        languages = app_folder() / "Lang"
        if not languages.exists():
            self.skipTest("needs the built language files")
        shutil.copytree(languages, self.server.root.parent.parent / "Lang")
        with open(self.server.ini, "a", encoding="latin-1") as settings:
            settings.write("DefaultLCID=1031\n")
        t = self.start(wait_for="LCID: 1031")
        for text in ("Protokoll ─", "Sitzungen", "[ Start/Stopp ]  [ Protokoll leeren ]",
                     "Was der Server getan hat"):
            t.wait_for(re.escape(text))
        t.click_on("Protokoll leeren")
        t.wait_until_gone("LCID")

    def test_fits_small_windows(self):
        t = self.start()
        t.wait_for("Localhost")
        t.resize(30, 10)
        t.wait_until_gone("Localhost")
        t.wait_for("LCID")
        for line in t.screen():
            self.assertLessEqual(len(line), 30)
        t.keys("Tab", "Tab", "Tab", "Tab")
        t.wait_for("Localhost")
        t.resize(8, 2)
        t.wait_until_gone("Quorvane")
        t.resize(120, 40)
        t.wait_for("Quorvane Server .*●")
        t.wait_for("LCID")

    def test_runs_without_colours(self):
        t = self.start(term="vt100")
        t.wait_for("Start/Stop")
        self.assertNotRegex(t.coloured(), "\x1b\\[[0-9;]*3[0-7]")

    def test_prints_lines_where_nothing_can_be_drawn(self):
        self.start(term="dumb")
        self.terminal.wait_for(r"^\d\d:\d\d:\d\d Server Start$")
        self.assertNotIn("┌", self.terminal.text())
        self.check_outlives_its_terminal()

    def test_prints_lines_where_there_is_no_terminal(self):
        self.start("| cat")
        self.terminal.wait_for(r"^\d\d:\d\d:\d\d Server Start$")
        self.check_outlives_its_terminal()

    def test_prints_lines_in_the_background(self):
        t = self.start(wait_for=None, background=True)
        t.wait_for(r"^\d\d:\d\d:\d\d Server Start$")
        os.kill(self.process(), signal.SIGTERM)
        t.wait_for("^ended with 0$")

    def test_closes_by_key(self):
        t = self.start()
        t.keys("q")
        t.wait_for("^ Press q again to end the server")
        time.sleep(0.5)  # an answer at once could be pasted text
        t.keys("q")
        self.expect_restored(0)
        self.assertFalse(self.is_serving())
        self.assertIn("Server Closing", self.server.log_text())

    def test_pasted_text_does_not_close(self):
        t = self.start()
        t.send(b"quit\rqqqq \rquick brown foxes")
        t.wait_for("LCID")
        time.sleep(0.5)
        t.keys("q")
        t.wait_for("Press q again")
        t.keys("Down")
        t.wait_until_gone("Press q again")
        self.assertTrue(self.is_serving())

    def test_closes_by_control_c(self):
        self.start().keys("C-c")
        self.expect_restored(0)

    def test_closes_by_signal(self):
        self.start()
        os.kill(self.process(), signal.SIGTERM)
        self.expect_restored(0)

    def test_restores_the_terminal_after_a_crash(self):
        for number in (signal.SIGSEGV, signal.SIGABRT, signal.SIGFPE, signal.SIGBUS):
            with self.subTest(number.name):
                self.start()
                os.kill(self.process(), number)
                self.expect_restored(128 + number)

    def test_ends_when_the_terminal_goes_away(self):
        self.start()
        process = self.process()
        self.terminal.close()
        wait_until(lambda: not is_running(process), "the server to end")

    def test_closes_by_the_control_channel(self):
        self.start()
        if not self.owns_control_port(self.process()):
            self.skipTest("another program has the control port")
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as s:
            s.settimeout(10)
            s.sendto(b"[>quit]", ("127.0.0.1", CONTROL_PORT))
            self.assertEqual(s.recv(100), b"[>quit]:OK")
        self.expect_restored(0)

    @staticmethod
    def owns_control_port(process):
        own = set()
        for entry in pathlib.Path(f"/proc/{process}/fd").iterdir():
            own.update(re.findall(r"socket:\[(\d+)\]", os.readlink(entry)))
        for name in ("udp", "udp6"):
            for line in pathlib.Path(f"/proc/net/{name}").read_text().splitlines()[1:]:
                fields = line.split()
                if int(fields[1].split(":")[1], 16) == CONTROL_PORT and fields[9] in own:
                    return True
        return False

