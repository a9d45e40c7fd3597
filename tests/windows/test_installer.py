"""The installer: a server that was installed serves, is replaced with its pages and settings kept, and
goes with nothing left but what is the user's."""

import contextlib
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest
import urllib.request

from programs import path_text
from serving import app_folder, free_port, wait_until
from windows.programs import (SETTINGS_KEY, delete_registry_key, registry_value,
                              set_registry_value, wine)

SETUP = app_folder().parent / "quorvane-server-setup.exe"
ENTRY = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvane Server"
SERVICE = r"HKLM\System\CurrentControlSet\Services\Quorvane Server"
PATIENCE = 120


def has_key(key):
    return wine("reg", "query", key)[0] == 0


def start_menu():
    menu = pathlib.Path(os.environ["WINEPREFIX"], "drive_c/ProgramData/Microsoft/Windows/Start Menu")
    return menu / "Programs/Quorvane Server"


class Installer(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="quorvane-"))
        self.folder = self.home / "installed"
        self.scripts = self.folder / "Server/Scripts"
        self.port = free_port()
        self.control_port = free_port()
        self.set("Port", self.port)
        self.set("ControlPort", self.control_port)
        self.addCleanup(self.clean)

    def clean(self):
        if (self.folder / "uninstall.exe").exists():
            self.uninstall("/PURGE")
        delete_registry_key(SETTINGS_KEY)
        shutil.rmtree(self.home, ignore_errors=True)

    def set(self, name, value):
        set_registry_value(SETTINGS_KEY + r"\Server", name, str(value))

    def install(self, *options):
        return wine(SETUP, "/S", *options, "/D=" + path_text(self.folder))[0]

    def uninstall(self, *options):
        """In its own place, so that its end is awaited; it can't remove itself then."""
        code = wine(self.folder / "uninstall.exe", "/S", *options, "_?=" + path_text(self.folder))[0]
        (self.folder / "uninstall.exe").unlink(missing_ok=True)
        with contextlib.suppress(OSError):
            self.folder.rmdir()
        return code

    def files(self):
        return {str(path.relative_to(self.folder)) for path in self.folder.rglob("*")
                if not path.is_dir()}

    @contextlib.contextmanager
    def server(self):
        program = subprocess.Popen(["wine", self.folder / "quorvane-server.exe"],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        try:
            wait_until(self.answers, "the server to answer", PATIENCE)
            yield program
        finally:
            if program.poll() is None:
                wine(self.folder / "qvsctl.exe", "quit", "--port", self.control_port)
            program.wait(PATIENCE)

    def answers(self, page=""):
        try:
            return urllib.request.urlopen(f"http://127.0.0.1:{self.port}/{page}", timeout=10).read()
        except OSError:
            return None

    def test_what_is_installed_serves(self):
        self.assertEqual(self.install(), 0)
        for name in ("quorvane-server.exe", "qvsctl.exe", "qvscript.exe", "Lang/1031.lng",
                     "LICENSE.txt", "uninstall.exe", "Server/Scripts/index.qvs"):
            self.assertTrue((self.folder / name).exists(), name)
        self.assertEqual(registry_value(ENTRY, "DisplayName"), "Quorvane Server")
        self.assertEqual(registry_value(ENTRY, "DisplayVersion"), "1.0.0")
        self.assertGreater(int(registry_value(ENTRY, "EstimatedSize"), 16), 1000)
        self.assertEqual(registry_value(ENTRY, "QuietUninstallString"),
                         '"%s\\uninstall.exe" /S' % path_text(self.folder))
        self.assertEqual({path.name for path in start_menu().iterdir()},
                         {"Quorvane Server.lnk", "Pages.lnk", "Remove Quorvane Server.lnk"})
        self.assertFalse(has_key(SERVICE), "a service is made when it is asked for")
        self.assertIsNone(registry_value(ENTRY, "Firewall"))
        with self.server():
            self.assertIn(b"<html", self.answers().lower())

    def test_a_service_is_made_kept_and_removed(self):
        self.assertEqual(self.install("/SERVICE"), 0)
        wait_until(self.answers, "the service to answer", PATIENCE)
        self.assertIn("quorvane-server.exe", registry_value(SERVICE, "ImagePath"))
        self.assertEqual(registry_value(SETTINGS_KEY + r"\Server", "RunAsService"), "1")
        self.assertEqual(self.install(), 0)
        wait_until(self.answers, "the service to answer again", PATIENCE)
        wine(self.folder / "quorvane-server.exe", "/stop")
        self.assertEqual(self.install(), 0)
        self.assertIsNone(self.answers(), "a service that was stopped stays so")
        self.assertTrue(has_key(SERVICE))
        self.assertEqual(self.uninstall(), 0)
        self.assertFalse(has_key(SERVICE))
        self.assertEqual(registry_value(SETTINGS_KEY + r"\Server", "RunAsService"), "0")

    def test_the_firewall_is_told_when_that_is_wanted(self):
        self.assertEqual(self.install("/FIREWALL"), 0)
        self.assertEqual(registry_value(ENTRY, "Firewall"), "0x1")

    def test_another_installation_keeps_pages_and_settings(self):
        self.install("/NOMENU")
        self.assertFalse(start_menu().exists())
        (self.scripts / "index.qvs").write_text("mine: <%= 6 * 7 %>")
        gone = next(path for path in self.scripts.rglob("*.qvs") if path.name != "index.qvs")
        gone.unlink()
        (self.folder / "Lang/1031.lng").write_bytes(b"old")
        self.set("DefaultLCID", "1031")
        with self.server() as program:
            self.assertEqual(self.install("/NOMENU"), 0)
            self.assertIsNotNone(program.poll(), "the server was ended to be replaced")
        self.assertNotEqual((self.folder / "Lang/1031.lng").read_bytes(), b"old")
        self.assertFalse(gone.exists(), "a page that was removed stays so")
        self.assertEqual(registry_value(SETTINGS_KEY + r"\Server", "DefaultLCID"), "1031")
        self.assertEqual(registry_value(SETTINGS_KEY + r"\Server", "Port"), str(self.port))
        with self.server():
            self.assertEqual(self.answers(), b"mine: 42")

    def test_removal_leaves_what_is_the_users(self):
        self.install()
        (self.scripts / "own").mkdir()
        (self.scripts / "own/page.qvs").write_text("mine")
        (self.scripts / "index.qvs").write_text("changed")
        with self.server():
            self.answers()
            self.assertEqual(self.uninstall(), 0)
        left = {name for name in self.files() if not name.startswith("Server/Logs/")}
        self.assertEqual(left, {"Server/Scripts/own/page.qvs", "Server/Scripts/index.qvs"})
        self.assertFalse(has_key(ENTRY))
        self.assertFalse(start_menu().exists())
        self.assertEqual(registry_value(SETTINGS_KEY + r"\Server", "Port"), str(self.port))

    def test_removal_of_an_untouched_installation_leaves_nothing(self):
        self.install()
        self.assertEqual(self.uninstall(), 0)
        self.assertFalse(self.folder.exists())
        self.assertTrue(has_key(SETTINGS_KEY))

    def test_purging_takes_pages_and_settings_too(self):
        self.install()
        (self.scripts / "own.qvs").write_text("mine")
        self.assertEqual(self.uninstall("/PURGE"), 0)
        self.assertFalse(self.folder.exists())
        self.assertFalse(has_key(SETTINGS_KEY))
