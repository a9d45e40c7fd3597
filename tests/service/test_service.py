"""The installed service under a real systemd."""

import unittest

from serving import app_folder, wait_until

from hosting.recipes import recipes
from service.private_systemd import UNIT_FOLDER, PrivateSystemd, missing

UNIT = "quorvane-server.service"
# A folder whose name a unit file has to quote.
FOLDER = "/opt/Quorvane 100% Server"
SETTINGS = "/opt/settings"
STORE = f"{SETTINGS}/HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane/Server.ini"
PORT = 7007


class ServiceSteps:
    """What both kinds of system have to do; WITH_BUS tells them apart."""

    def setUp(self):
        self.systemd = PrivateSystemd(self.WITH_BUS)
        self.addCleanup(self.systemd.close)
        bus = self.systemd.path("/run/dbus/system_bus_socket")
        self.assertEqual(bus.exists(), self.WITH_BUS)
        for name in ("quorvane-server", "qvsctl"):
            self.systemd.write(f"{FOLDER}/{name}", (app_folder() / name).read_bytes(), 0o755)
        self.systemd.write(f"{FOLDER}/Server/Scripts/hello.txt", b"hello")

    def command(self, switch):
        done = self.systemd.run(f"{FOLDER}/quorvane-server", switch, check=False,
                                environment={"QUORVANE_REGISTRY": SETTINGS})
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def state(self):
        return self.systemd.properties(UNIT, "ActiveState")["ActiveState"]

    def main_process(self):
        return int(self.systemd.properties(UNIT, "MainPID")["MainPID"])

    def setting(self, name):
        for line in self.systemd.path(STORE).read_text().splitlines():
            if line.startswith(name + "="):
                return line.partition("=")[2]
        return None

    def get(self):
        """What the server answers, or nothing."""
        return self.systemd.run("curl", "-s", "--max-time", "10",
                                f"http://127.0.0.1:{PORT}/hello.txt", check=False).stdout

    def expect_serving(self):
        wait_until(lambda: self.get() == "hello", "an answer:\n" + self.journal())

    def journal(self):
        return self.systemd.run("systemctl", "status", UNIT, "--no-pager", check=False).stdout + (
            self.systemd.folder / "log").read_text(errors="replace")

    def test_life_of_a_service(self):
        self.command("/install")
        self.assertEqual(self.setting("RunAsService"), "1")
        shown = self.systemd.properties(UNIT, "Description", "UnitFileState", "LoadState")
        self.assertEqual(shown, {"Description": "Quorvane Server", "UnitFileState": "enabled",
                                 "LoadState": "loaded"})
        self.assertEqual(self.state(), "inactive")

        self.command("/start")
        self.assertEqual(self.state(), "active", self.journal())
        self.expect_serving()
        first = self.main_process()

        self.command("/START")  # runs already
        self.assertEqual(self.main_process(), first)

        self.systemd.run("kill", "-9", str(first))
        wait_until(lambda: self.state() == "active" and self.main_process() != first,
                   "the service to come back")
        self.expect_serving()

        self.command("/STOP")
        self.assertEqual(self.state(), "inactive")
        self.assertEqual(self.get(), "")
        ended = self.systemd.properties(UNIT, "Result", "ExecMainStatus")
        self.assertEqual(ended, {"Result": "success", "ExecMainStatus": "0"})

        self.command("/uninstall")
        self.assertEqual(self.setting("RunAsService"), "0")
        self.assertFalse(self.systemd.path(f"{UNIT_FOLDER}/{UNIT}").exists())
        self.assertEqual(self.systemd.properties(UNIT, "LoadState"), {"LoadState": "not-found"})

    def test_writes_its_log_and_nothing_elsewhere(self):
        self.command("/install")
        self.command("/start")
        self.expect_serving()
        process = self.main_process()
        for place, code in ((f"{FOLDER}/Server/here", 0), ("/usr/here", 1)):
            touched = self.systemd.run("nsenter", "-t", str(process), "-m", "--", "touch", place,
                                       check=False)
            self.assertEqual(touched.returncode, code, touched.stderr)
        self.assertIn("NoNewPrivs:\t1",
                      self.systemd.path(f"/proc/{process}/status").read_text())
        self.command("/stop")
        logs = self.systemd.path(f"{FOLDER}/Server/Logs").iterdir()
        text = "".join(log.read_text() for log in logs)
        for line in ("Starting service", "> GET /hello.txt", "Stopping service", "Server Stop",
                     "Server Closing"):
            self.assertIn(line, text)

    def test_obeys_the_control_program(self):
        self.command("/install")
        self.command("/start")
        self.expect_serving()
        self.systemd.run(f"{FOLDER}/qvsctl", "stop")
        self.assertEqual(self.get(), "")
        self.assertEqual(self.state(), "active")
        self.systemd.run(f"{FOLDER}/qvsctl", "start")
        self.expect_serving()
        self.systemd.run(f"{FOLDER}/qvsctl", "quit")
        # An orderly end is none that the service comes back from.
        wait_until(lambda: self.state() == "inactive", "the service to end")

    def test_uninstalls_while_it_runs(self):
        self.command("/install")
        self.command("/start")
        self.expect_serving()
        self.command("/uninstall")
        self.assertEqual(self.get(), "")
        self.assertEqual(self.systemd.properties(UNIT, "LoadState"), {"LoadState": "not-found"})

    def status(self):
        return self.systemd.properties(UNIT, "ActiveState", "StatusText")

    def test_tells_what_it_does(self):
        self.command("/install")
        self.command("/start")
        self.expect_serving()
        self.assertEqual(self.status(),
                         {"ActiveState": "active", "StatusText": f"Serving on port {PORT}"})
        self.systemd.run(f"{FOLDER}/qvsctl", "stop")
        self.assertEqual(self.status(), {"ActiveState": "active", "StatusText": "Stopped"})

    def test_tells_why_it_serves_nobody(self):
        self.command("/install")
        self.systemd.run("sh", "-c", f"'{FOLDER}/quorvane-server' >/dev/null 2>&1 &",
                         environment={"QUORVANE_REGISTRY": "/opt/others"})
        self.expect_serving()
        self.command("/start")
        self.assertEqual(self.status(), {
            "ActiveState": "active",
            "StatusText": f"port {PORT} is taken or not for this user; nothing is served"})

    def test_reports_where_the_settings_make_it_no_service(self):
        self.command("/install")
        store = self.systemd.path(STORE)
        store.write_text(store.read_text().replace("RunAsService=1", "RunAsService=0"))
        self.command("/start")
        self.assertEqual(self.status(),
                         {"ActiveState": "active", "StatusText": f"Serving on port {PORT}"})
        self.systemd.run("systemctl", "stop", UNIT)
        ended = self.systemd.properties(UNIT, "Result", "ExecMainStatus")
        self.assertEqual(ended, {"Result": "success", "ExecMainStatus": "0"})

    def get_as(self, user, group, file):
        return self.systemd.run("setpriv", f"--reuid={user}", f"--regid={group}", "--clear-groups",
                                "curl", "-s", "--unix-socket", file, "http://localhost/hello.txt",
                                check=False).stdout

    def test_listens_by_a_file_that_its_group_reaches(self):
        file = "/run/quorvane/site.sock"
        self.command("/install")
        self.systemd.write(f"{UNIT_FOLDER}/{UNIT}.d/override.conf",
                           recipes()["The file's folder under systemd"]["ini"].encode())
        self.systemd.run("systemctl", "daemon-reload")
        store = self.systemd.path(STORE)
        store.write_text(store.read_text() + f"Listen=unix:{file}\n")
        self.command("/start")
        self.assertEqual(self.status(),
                         {"ActiveState": "active", "StatusText": f"Serving on unix:{file}"})
        self.assertEqual(self.get_as("www-data", "www-data", file), "hello", self.journal())
        self.assertEqual(self.get_as("nobody", "nogroup", file), "")

        self.systemd.run("kill", "-9", str(self.main_process()))
        wait_until(lambda: self.get_as("www-data", "www-data", file) == "hello",
                   "the service to come back")
        self.command("/stop")
        self.assertFalse(self.systemd.path(file).exists())

    def instances(self, switch):
        done = self.systemd.run(f"{FOLDER}/quorvane-server", switch, "/instances", check=False,
                                environment={"QUORVANE_REGISTRY": SETTINGS})
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_runs_numbered_instances(self):
        self.instances("/install")
        store = self.systemd.path(STORE)
        store.write_text(store.read_text() + "SharePort=1\n")
        units = ["quorvane@1.service", "quorvane@2.service"]
        self.systemd.run("systemctl", "enable", "--now", *units)
        for unit in units:
            self.assertEqual(
                self.systemd.properties(unit, "ActiveState", "StatusText"),
                {"ActiveState": "active", "StatusText": f"Serving on port {PORT}"}, self.journal())
        self.expect_serving()
        self.systemd.run(f"{FOLDER}/qvsctl", "--port", "7010", "stop")
        self.assertEqual(self.systemd.properties(units[1], "StatusText"), {"StatusText": "Stopped"})
        self.expect_serving()
        first = self.systemd.properties(units[0], "MainPID")
        self.systemd.run("kill", "-9", first["MainPID"])
        wait_until(lambda: self.systemd.properties(units[0], "MainPID")["MainPID"] not in
                   ("0", first["MainPID"]) and self.get() == "hello", "the instance to come back")
        self.instances("/uninstall")
        for unit in units:
            self.assertEqual(self.systemd.properties(unit, "ActiveState"),
                             {"ActiveState": "inactive"})
        self.assertFalse(self.systemd.path(f"{UNIT_FOLDER}/quorvane@.service").exists())
        for number in (1, 2):
            logs = self.systemd.path(f"{FOLDER}/Server/Logs/{number}").glob("*.LOG")
            self.assertIn("Server Start", "".join(log.read_text() for log in logs))

    def test_serves_as_a_program_when_nobody_started_it_as_a_service(self):
        self.command("/install")
        self.systemd.run("sh", "-c", f"'{FOLDER}/quorvane-server' >/dev/null 2>&1 &",
                         environment={"QUORVANE_REGISTRY": SETTINGS})
        self.expect_serving()


@unittest.skipIf(missing(), missing())
class WithMessageBus(ServiceSteps, unittest.TestCase):
    WITH_BUS = True


@unittest.skipIf(missing(), missing())
class WithoutMessageBus(ServiceSteps, unittest.TestCase):
    """systemd is asked through its own socket."""

    WITH_BUS = False
