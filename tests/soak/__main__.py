"""python3 tests/soak [app folder [seconds]]

A server under everything at once, by default for ten minutes. Ends well when every answer was
right, its memory is flat, no descriptor has leaked, and it ends as it should.
"""

import os
import pathlib
import pty
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))

from faults.watched import Watched, window_size  # noqa: E402
from serving import PATIENCE, free_port, wait_until  # noqa: E402
from soak import site  # noqa: E402
from soak.actors import cast  # noqa: E402

WARM_UP = 0.4  # the part of the time after which memory has to be flat
MEMORY_SLACK = 12 << 20  # bytes of heap that one quiet moment may differ from another
SAMPLES = 20


class Soak:
    def __init__(self, server):
        self.server = server
        self.actors = cast(server)
        self.samples = []

    def work(self, seconds):
        for actor in self.actors:
            actor.works.set()
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if self.server.process.poll() is not None:
                raise SystemExit("the server died: %r" % self.server.process.stderr.read())
            self.samples.append(self.server.resident_bytes())
            time.sleep(min(seconds / SAMPLES, max(0.1, end - time.monotonic())))

    def quiet(self):
        """Bytes resident and descriptors open once everybody has left."""
        for actor in self.actors:
            actor.works.clear()
        for actor in self.actors:
            if not actor.rests.wait(PATIENCE * 3):
                actor.errors.append("still at it long after it was asked to rest")
        wait_until(lambda: self.connections() == 0, "the connections to close", PATIENCE * 3)
        time.sleep(2)
        folder = "/proc/%d/fd" % self.server.process.pid
        return self.server.resident_bytes(), len(os.listdir(folder))

    def connections(self):
        """TCP connections that the server holds."""
        port, count = "%04X" % self.server.port, 0
        own = {os.readlink(entry.path) for entry in self.descriptors()}
        for name in ("tcp", "tcp6"):
            for line in pathlib.Path("/proc/net/" + name).read_text().splitlines()[1:]:
                fields = line.split()
                listens = fields[3] == "0A"
                if fields[1].endswith(":" + port) and not listens:
                    count += "socket:[%s]" % fields[9] in own
        return count

    def descriptors(self):
        return list(os.scandir("/proc/%d/fd" % self.server.process.pid))

    def finish(self):
        for actor in self.actors:
            actor.ends.set()
        for actor in self.actors:
            actor.join(PATIENCE)


def mebibytes(count):
    return "%.1f MiB" % (count / (1 << 20))


def verdict(soak, warm, end, exit_status, log):
    """What went wrong, a line each."""
    wrong = []
    for actor in soak.actors:
        for error in actor.errors[:3]:  # the rest is counted
            wrong.append("%s: %s" % (actor.name, error))
        if not actor.acts:
            wrong.append("%s did nothing" % actor.name)
    if end[0] > warm[0] + MEMORY_SLACK:
        wrong.append("memory grew from %s to %s" % (mebibytes(warm[0]), mebibytes(end[0])))
    if end[1] > warm[1]:
        wrong.append("descriptors grew from %d to %d" % (warm[1], end[1]))
    if exit_status != 0:
        wrong.append("the server ended with %d" % exit_status)
    if "] Server Closing\r\n" not in log:
        wrong.append("the log does not end as it should")
    return wrong


def run(seconds):
    master, slave = pty.openpty()
    window_size(slave, 40, 120)
    control = free_port()
    server = Watched(slave, slave, pages=site.PAGES,
                     settings={**site.SETTINGS, "ControlPort": str(control)})
    server.master, server.control_port = master, control
    with server:
        os.close(slave)
        soak = Soak(server)
        for actor in soak.actors:
            actor.start()
        soak.work(seconds * WARM_UP)
        warm = soak.quiet()
        soak.work(seconds * (1 - WARM_UP))
        end = soak.quiet()
        soak.finish()
        exit_status = server.stop()
        wrong = verdict(soak, warm, end, exit_status, server.log_text())
    print("resident: " + ", ".join(mebibytes(sample) for sample in soak.samples))
    print("quiet: %s and %d descriptors after the warm-up, %s and %d at the end"
          % (mebibytes(warm[0]), warm[1], mebibytes(end[0]), end[1]))
    for actor in soak.actors:
        print("%-10s %7d times, %d wrong" % (actor.name, actor.acts, len(actor.errors)))
    for line in wrong:
        print(line)
    print("%d passed, %d failed" % (sum(actor.acts for actor in soak.actors), len(wrong)))
    return not wrong


if __name__ == "__main__":
    if len(sys.argv) > 1:
        os.environ["QUORVANE_APP"] = sys.argv[1]
    sys.exit(0 if run(float(sys.argv[2]) if len(sys.argv) > 2 else 600.0) else 1)
