"""A terminal for tests: a detached tmux session of the test's own, with a screen to read."""

import os
import re
import shlex
import subprocess
import time


class Terminal:
    def __init__(self, command, columns=80, rows=24, environment=None, term=None,
                 background=False):
        self.socket = f"quorvane-test-{os.getpid()}-{id(self)}"
        variables = dict(environment or {})
        if term:
            variables["TERM"] = term
        settings = " ".join(f"{k}={shlex.quote(v)}" for k, v in variables.items())
        # The shell outlives the program and shows what state it has left the terminal in.
        if background:
            settings, command = f"set -m; {settings}", f"{command} & wait"
        shell = f"stty -a > \"$0\"; {settings} {command}; echo \"ended with $?\"; stty -a; exec cat"
        self.is_open = True
        self.modes_file = f"/tmp/{self.socket}.stty"
        self._tmux("new-session", "-d", "-s", "t", "-x", str(columns), "-y", str(rows),
                   "sh", "-c", shell, self.modes_file)
        self._tmux("set-option", "-g", "history-limit", "0")

    def _tmux(self, *arguments):
        return subprocess.run(["tmux", "-f", "/dev/null", "-L", self.socket, *arguments],
                              check=True, capture_output=True, timeout=20).stdout.decode()

    def close(self):
        self.is_open = False
        subprocess.run(["tmux", "-L", self.socket, "kill-server"], capture_output=True, timeout=20)
        if os.path.exists(self.modes_file):
            os.unlink(self.modes_file)

    def screen(self):
        return self._tmux("capture-pane", "-p", "-t", "t").rstrip("\n").split("\n")

    def text(self):
        return "\n".join(self.screen())

    def coloured(self):
        return self._tmux("capture-pane", "-p", "-e", "-N", "-t", "t")

    def flag(self, name):
        """A state that the terminal is in, as tmux calls it."""
        return self._tmux("display-message", "-p", "-t", "t", "#{" + name + "}").strip()

    def children(self):
        """The numbers of the processes that the shell has started and that still run."""
        shell = self.flag("pane_pid")
        with open(f"/proc/{shell}/task/{shell}/children", encoding="ascii") as children:
            return [int(number) for number in children.read().split()]

    def keys(self, *names):
        self._tmux("send-keys", "-t", "t", *names)

    def send(self, data):
        self._tmux("send-keys", "-t", "t", "-H", *[f"{byte:02x}" for byte in data])

    def click(self, row, column):
        self.send(self._click(row, column))

    def wheel_up(self, row, column):
        self.send(self._mouse(64, row, column))

    def wheel_down(self, row, column):
        self.send(self._mouse(65, row, column))

    def _click(self, row, column):
        return self._mouse(0, row, column) + self._mouse(0, row, column, released=True)

    def _mouse(self, button, row, column, released=False):
        if self.flag("mouse_sgr_flag") == "1":
            end = "m" if released else "M"
            return f"\x1b[<{button};{column + 1};{row + 1}{end}".encode()
        code = 3 if released else button
        return b"\x1b[M" + bytes([code + 32, column + 33, row + 33])

    def resize(self, columns, rows):
        self._tmux("resize-window", "-t", "t", "-x", str(columns), "-y", str(rows))

    def wait_for(self, pattern, timeout=10):
        """Waits until the screen matches; returns the match. A failure shows the screen."""
        return self._wait(pattern, timeout, True)

    def wait_until_gone(self, pattern, timeout=10):
        self._wait(pattern, timeout, False)

    def _wait(self, pattern, timeout, wanted):
        end = time.monotonic() + timeout
        while True:
            text = self.text()
            found = re.search(pattern, text, re.MULTILINE)
            if bool(found) == wanted:
                return found
            if time.monotonic() > end:
                raise AssertionError(f"{pattern!r} {'not' if wanted else 'still'} on screen:\n{text}")
            time.sleep(0.03)

    def row_of(self, text):
        for number, line in enumerate(self.screen()):
            if text in line:
                return number
        raise AssertionError(f"{text!r} not on screen:\n{self.text()}")

    def click_on(self, *texts):
        """Clicks on each; the terminal sends all of it at once."""
        places = [(row, self.screen()[row].index(text) + len(text) // 2)
                  for text, row in ((text, self.row_of(text)) for text in texts)]
        self.send(b"".join(self._click(*place) for place in places))

    def modes_before(self):
        with open(self.modes_file, encoding="ascii") as file:
            return file.read()
