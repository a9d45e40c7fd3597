"""What tests of the sample site share: its server and a browser."""

import unittest

from browser.webdriver import Browser, missing_programs
from serving import Server, app_folder


@unittest.skipIf(missing_programs(), "not installed: " + ", ".join(missing_programs()))
class SiteTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.server = cls.enterClassContext(Server(site=app_folder() / "Server/Scripts"))
        cls.browser = cls.enterClassContext(Browser())

    def open(self, target):
        self.browser.open("http://127.0.0.1:%d%s" % (self.server.port, target))
