"""A server whose console the test sits at."""

import fcntl
import os
import struct
import subprocess
import termios

from serving import Server, app_folder


def window_size(terminal, rows, columns):
    fcntl.ioctl(terminal, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))


class Watched(Server):
    """A server under /debug whose standard output, and terminal where there is one, are the test's."""

    def __init__(self, output, terminal=None, **options):
        super().__init__(**options)
        self.output, self.terminal = output, terminal

    def spawn(self):
        def take_terminal():
            if self.terminal is not None:
                os.setsid()
                fcntl.ioctl(self.terminal, termios.TIOCSCTTY, 0)

        return subprocess.Popen(
            [str(app_folder() / "quorvane-server"), "/devmode", "/debug", *self.arguments],
            cwd=self.folder,
            env={**os.environ, "QUORVANE_REGISTRY": str(self.registry), "TERM": "xterm-256color",
                 "LC_ALL": "C.UTF-8"},
            stdin=subprocess.DEVNULL if self.terminal is None else self.terminal,
            stdout=self.output, stderr=subprocess.PIPE, preexec_fn=take_terminal)

    def __exit__(self, *_):
        if self.process:
            self.process.stdout = self.process.stderr  # what the end of a test closes
        super().__exit__()
