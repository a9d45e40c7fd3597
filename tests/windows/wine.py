"""The system that the programs of Windows run on here: Wine, with a folder of its own, for as long as
the tests last."""

import os
import subprocess
import time

# Nothing of these is for programs without a browser; asking for them takes a window and a download.
ENVIRONMENT = {"WINEDEBUG": "-all", "WINEDLLOVERRIDES": "mscoree,mshtml="}

# A system for one user, which Wine is by itself, sends two files at a time; so the programs have only
# the others send files.
FOR_ONE_USER = "WinNT"
FOR_SERVERS = "ServerNT"


def become(edition):
    """For programs that start from now on."""
    _run("wine", "reg", "add", r"HKLM\System\CurrentControlSet\Control\ProductOptions",
         "/v", "ProductType", "/d", edition, "/f")


def _run(*words):
    subprocess.run(words, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, timeout=300)


class Wine:
    def __init__(self, folder):
        self.environment = {**ENVIRONMENT, "WINEPREFIX": str(folder)}
        self.keeper = None

    def __enter__(self):
        os.environ.update(self.environment)
        if not os.path.exists(os.path.join(self.environment["WINEPREFIX"], "system.reg")):
            _run("wineboot", "--init")
            # What is about to end would stand beside what comes next, its services twice.
            _run("wineserver", "--wait")
        # What the first program starts would hold that program's pipes for as long as it lives.
        _run("wineserver", "--persistent")
        self.keeper = subprocess.Popen(["wine", "explorer.exe", "/desktop=tests,1280x1024"],
                                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
        time.sleep(2)
        return self

    def __exit__(self, *_):
        self.keeper.terminate()
        _run("wineserver", "--kill")
        self.keeper.wait()
