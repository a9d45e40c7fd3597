"""A real systemd with namespaces of its own, in which a test can install services.

Processes, mounts, network, host name and control groups are its own; its units are those written
here and by the test, and whatever it mounts or starts goes with it. Needs root.
"""

import fcntl
import os
import pathlib
import shutil
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import time

SYSTEMD = "/usr/lib/systemd/systemd"
UNIT_FOLDER = "/etc/systemd/system"

UNITS = {
    "default.target": "[Unit]\nDefaultDependencies=no\n",
    "multi-user.target": "[Unit]\nDefaultDependencies=no\n",
    "network.target": "[Unit]\nDefaultDependencies=no\n",
    "sysinit.target": "[Unit]\nDefaultDependencies=no\n",
    "basic.target": "[Unit]\nDefaultDependencies=no\n",
    "shutdown.target": "[Unit]\nDefaultDependencies=no\n",
}
BUS_UNITS = {
    "dbus.socket": "[Unit]\nDefaultDependencies=no\n"
                   "[Socket]\nListenStream=/run/dbus/system_bus_socket\n",
    "dbus.service": "[Unit]\nDefaultDependencies=no\nRequires=dbus.socket\n"
                    "[Service]\nType=notify\nExecStart=/usr/bin/dbus-daemon --system"
                    " --address=systemd: --nofork --nopidfile --systemd-activation\n",
}


def missing():
    """Why this machine can't run one, or an empty text."""
    if os.geteuid() != 0:
        return "needs root"
    for program in (SYSTEMD, "unshare", "nsenter", "dbus-daemon", "mount"):
        if not shutil.which(program):
            return "needs " + program
    return "" if _cgroup_folder() else "needs control groups of version 2"


def _cgroup_folder():
    """This process's folder in the version 2 hierarchy."""
    mounts = pathlib.Path("/proc/mounts").read_text().splitlines()
    top = [line.split()[1] for line in mounts if line.split()[2] == "cgroup2"]
    own = [line[3:] for line in pathlib.Path("/proc/self/cgroup").read_text().splitlines()
           if line.startswith("0::")]
    return pathlib.Path(top[0] + own[0]) if top and own else None


class PrivateSystemd:
    def __init__(self, with_bus=True):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quorvane-systemd-"))
        self.cgroup = _cgroup_folder() / f"quorvane-test-{os.getpid()}-{self.folder.name}"
        self.cgroup.mkdir()
        self.log = open(self.folder / "log", "wb")
        self.process = subprocess.Popen(
            ["unshare", "--mount", "--pid", "--cgroup", "--net", "--uts", "--ipc", "--fork",
             "--kill-child=KILL", sys.executable, os.path.abspath(__file__),
             "with-bus" if with_bus else "without-bus"],
            stdin=subprocess.DEVNULL, stdout=self.log, stderr=subprocess.STDOUT,
            preexec_fn=lambda: (self.cgroup / "cgroup.procs").write_text(str(os.getpid())))
        self.pid = self._wait_for_child()
        self._wait_for("systemctl", "is-active", "default.target")
        if with_bus:  # started by the first who asks; the manager joins it a moment later
            self._wait_for("busctl", "call", "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
                           "org.freedesktop.DBus.Peer", "Ping")

    def _wait_for_child(self):
        children = pathlib.Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children")
        for _ in range(500):
            if child := children.read_text().split():
                return int(child[0])
            time.sleep(0.02)
        raise AssertionError("systemd was not started")

    def _wait_for(self, *command):
        """Until the command succeeds."""
        for _ in range(500):
            if self.run(*command, check=False).returncode == 0:
                return
            time.sleep(0.02)
        self.close()
        raise AssertionError("systemd did not come up: " + " ".join(command))

    def run(self, *command, check=True, timeout=60, environment=None):
        """Runs a program beside this systemd."""
        return subprocess.run(
            ["nsenter", "-t", str(self.pid), "-m", "-p", "-n", "-C", "--", *command],
            check=check, timeout=timeout, capture_output=True, text=True,
            env={**os.environ, **(environment or {})})

    def write(self, path, data, mode=0o644):
        """Puts a file into the private file system."""
        target = self.path(path)
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(data)
        target.chmod(mode)

    def path(self, path):
        """The private file as it is reached from outside."""
        return pathlib.Path(f"/proc/{self.pid}/root{path}")

    def properties(self, unit, *names):
        shown = self.run("systemctl", "show", unit, "-p", ",".join(names)).stdout
        return dict(line.split("=", 1) for line in shown.splitlines())

    def close(self):
        try:
            os.kill(self.pid, signal.SIGKILL)
        except (ProcessLookupError, AttributeError):
            pass
        self.process.wait(20)
        self.log.close()
        for folder in sorted(self.cgroup.rglob("*"), reverse=True):
            if folder.is_dir():
                folder.rmdir()
        for _ in range(250):  # the kernel lets go of a dead process's group a moment later
            try:
                self.cgroup.rmdir()
                break
            except OSError:
                time.sleep(0.02)
        shutil.rmtree(self.folder)


def _become_systemd(with_bus):
    def mount(*arguments):
        subprocess.run(["mount", *arguments], check=True)

    mount("--make-rprivate", "/")
    for folder in ("/run", "/opt", UNIT_FOLDER, "/usr/lib/systemd/system-generators"):
        os.makedirs(folder, exist_ok=True)
        mount("-t", "tmpfs", "tmpfs", folder)
    if not os.path.ismount("/sys/fs/cgroup"):
        os.makedirs("/sys/fs/cgroup", exist_ok=True)
    mount("-t", "tmpfs", "tmpfs", "/sys/fs/cgroup")
    mount("-t", "cgroup2", "cgroup2", "/sys/fs/cgroup")
    mount("-t", "proc", "proc", "/proc")
    os.makedirs("/run/systemd/system")
    os.makedirs("/run/dbus")
    for name, text in {**UNITS, **(BUS_UNITS if with_bus else {})}.items():
        pathlib.Path(UNIT_FOLDER, name).write_text(text)
    if with_bus:
        wants = pathlib.Path(UNIT_FOLDER, "default.target.wants")
        wants.mkdir()
        (wants / "dbus.socket").symlink_to("../dbus.socket")
    _bring_loopback_up()
    os.execve(SYSTEMD, [SYSTEMD, "--system", "--unit=default.target", "--log-target=console",
                        "--show-status=no"],
              {"PATH": os.environ["PATH"], "container": "test", "SYSTEMD_UNIT_PATH": UNIT_FOLDER})


def _bring_loopback_up():
    set_flags, up_and_running = 0x8914, 0x41
    with socket.socket() as s:
        fcntl.ioctl(s, set_flags, struct.pack("16sh14x", b"lo", up_and_running))


if __name__ == "__main__":
    _become_systemd(sys.argv[1] == "with-bus")
