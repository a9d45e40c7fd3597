"""The server as a service: installed, started, served by, stopped and removed."""

import os
import subprocess
import time
import unittest
import urllib.request

from serving import app_folder, free_port, is_listened_on, wait_until
from windows.programs import (SETTINGS_KEY, Site, delete_registry_key, registry_value, server,
                          set_registry_value, wine)

SERVICES = r"HKLM\SYSTEM\CurrentControlSet\Services"
NAME = "Quorvane Server"
RECORD = SERVICES + r"\EventLog\Application" + "\\" + NAME


class Service(unittest.TestCase):
    """With its settings in the registry, as a service has them."""

    def setUp(self):
        self.site = Site()
        self.addCleanup(self.site.remove)
        self.port = free_port()
        self.addCleanup(delete_registry_key, SETTINGS_KEY)
        self.addCleanup(server, "/uninstall")
        for name, text in {"Port": self.port, "ControlPort": free_port(), "LogServer": 1}.items():
            set_registry_value(SETTINGS_KEY + r"\Server", name, text)
        self.root = app_folder() / "Server/Scripts"

    def log_text(self):
        newest = max((app_folder() / "Server/Logs").glob("*.LOG"))
        return newest.read_bytes().decode("cp1252")

    def get(self):
        return urllib.request.urlopen("http://127.0.0.1:%d/" % self.port).status

    def test_its_life(self):
        self.assertEqual(server("/install"), (0, ""))
        self.assertEqual(registry_value(SETTINGS_KEY + r"\Server", "RunAsService"), "1")
        key = SERVICES + "\\" + NAME
        self.assertEqual(registry_value(key, "DisplayName"), NAME)
        self.assertEqual(registry_value(key, "Start"), "0x2", "it starts by itself")
        self.assertRegex(registry_value(key, "ImagePath"), r'^"Z:\\.*\\quorvane-server.exe"$')
        self.assertIn("quorvane-server.exe", registry_value(RECORD, "EventMessageFile"))

        self.assertEqual(server("/START"), (0, ""))
        wait_until(lambda: is_listened_on(self.port), "the service to listen")
        self.assertEqual(self.get(), 200)
        self.assertIn("RUNNING", wine("sc", "query", NAME)[1])
        self.assertEqual(server("/start"), (0, ""), "it runs already")
        self.assertEqual(server("/noqvm")[0], 75, "the service holds the settings")

        self.assertEqual(server("/stop"), (0, ""))
        self.assertFalse(is_listened_on(self.port))
        log = self.log_text()
        self.assertEqual([log.count(line) for line in
                          ("Starting service", "Stopping service", "Server Closing")], [1, 1, 1])
        self.assertIn("STOPPED", wine("sc", "query", NAME)[1])

        self.assertEqual(server("/uninstall"), (0, ""))
        self.assertIsNone(registry_value(key, "ImagePath"))
        self.assertIsNone(registry_value(RECORD, "EventMessageFile"))
        self.assertEqual(registry_value(SETTINGS_KEY + r"\Server", "RunAsService"), "0")

    def test_what_is_not_installed_can_be_neither_started_nor_removed(self):
        self.assertEqual(server("/start"), (0, ""))
        self.assertEqual(server("/stop"), (0, ""))
        self.assertFalse(is_listened_on(self.port))
        self.assertEqual(server("/uninstall")[0], 69)

    def test_removing_it_stops_it(self):
        server("/install")
        server("/install")
        server("/start")
        wait_until(lambda: is_listened_on(self.port), "the service to listen")
        self.assertEqual(server("/uninstall"), (0, ""))
        self.assertFalse(is_listened_on(self.port))

    def test_a_page_that_runs_on_does_not_keep_it_from_stopping(self):
        page = self.root / "endless.qvs"
        page.write_text("<% Do : Loop %>")
        self.addCleanup(page.unlink)
        server("/install")
        server("/start")
        wait_until(lambda: is_listened_on(self.port), "the service to listen")
        self.addCleanup(server, "/stop")
        with subprocess.Popen(["curl", "-s", "http://127.0.0.1:%d/endless.qvs" % self.port],
                              stdout=subprocess.DEVNULL) as asking:
            time.sleep(1)  # while it runs the server answers nobody and writes no log
            self.assertEqual(server("/stop"), (0, ""))
            asking.wait(10)
        self.assertIn("STOPPED", wine("sc", "query", NAME)[1])

    def test_without_a_manager_it_serves_as_a_program(self):
        set_registry_value(SETTINGS_KEY + r"\Server", "RunAsService", "1")
        with open(os.devnull, "wb") as nowhere, subprocess.Popen(
                ["wine", app_folder() / "quorvane-server.exe"], stdin=subprocess.DEVNULL,
                stdout=nowhere, stderr=nowhere) as program:
            wait_until(lambda: is_listened_on(self.port), "the server to listen")
            self.assertEqual(self.get(), 200)
            wine("taskkill", "/im", "quorvane-server.exe")
            self.assertEqual(program.wait(15), 0)

    def test_a_numbered_instance_is_a_service_of_its_own(self):
        self.assertEqual(server("/install", "/instances")[0], 69, "it needs a number")
        self.assertEqual(server("/install", "/instances", QUORVANE_INSTANCE="3"), (0, ""))
        key = SERVICES + "\\" + NAME + " 3"
        self.assertEqual(registry_value(key, "DisplayName"), NAME + " 3")
        self.assertIn("QUORVANE_INSTANCE=3", registry_value(key, "Environment"))
        self.assertEqual(server("/install", "/instances", QUORVANE_INSTANCE="12"), (0, ""))
        self.assertEqual(server("/uninstall", "/instances", QUORVANE_INSTANCE="3"), (0, ""))
        self.assertIsNone(registry_value(key, "DisplayName"))
        self.assertEqual(server("/uninstall", "/instances"), (0, ""))
        self.assertIsNone(registry_value(SERVICES + "\\" + NAME + " 12", "DisplayName"))


class CommandLine(unittest.TestCase):
    def test_what_it_prints_arrives(self):
        code, text = server("--version")
        self.assertEqual(code, 0)
        self.assertRegex(text, r"^Quorvane Server [0-9.]+ \(Beta\)\n$")
        self.assertIn("/install", server("/?")[1])


if __name__ == "__main__":
    unittest.main()
