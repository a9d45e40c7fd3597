"""Files that the system sends by itself: the tests of files again, on a system that is made for
servers."""

from blackbox import test_files, test_large_and_packed, test_standard_files
from faults import test_connections
from windows import wine


class ForServers:
    @classmethod
    def setUpClass(cls):
        wine.become(wine.FOR_SERVERS)
        cls.addClassCleanup(wine.become, wine.FOR_ONE_USER)
        super().setUpClass()


class Files(ForServers, test_files.Files):
    pass


class LargeFiles(ForServers, test_large_and_packed.LargeFiles):
    pass


class StandardFiles(ForServers, test_standard_files.StandardFiles):
    pass


class Idlers(ForServers, test_connections.Idlers):
    pass
