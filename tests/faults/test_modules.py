"""What symbolic links and modules bring into a site."""

import pathlib
import subprocess
import unittest

from serving import PATIENCE, Server, app_folder, wait_until


class Links(unittest.TestCase):
    TARGETS = ("/secret.txt", "/out/secret.txt", "/run.qvs")

    def server(self, follow):
        server = Server({"index.qvs": "<!--#include file=\"part.inc\"-->\nend",
                         "execute.qvs": "<% Server.Execute \"run.qvs\" %>",
                         "own/a.txt": b"own"}, {} if follow else {"FollowLinks": "0"})
        outside = server.folder / "outside"
        outside.mkdir()
        (outside / "secret.txt").write_bytes(b"secret")
        (outside / "run.qvs").write_bytes(b"secret page")
        (outside / "part.inc").write_bytes(b"secret part")
        (outside / "site").mkdir()
        (outside / "site/packed.txt").write_bytes(b"secret module")
        subprocess.run([app_folder() / "qvmpack", "pack", outside / "site", outside / "site.qvm"],
                       check=True, capture_output=True, timeout=PATIENCE)
        for name in ("secret.txt", "run.qvs", "part.inc", "site.qvm"):
            (server.root / name).symlink_to(outside / name)
        (server.root / "out").symlink_to(outside)
        (server.root / "inner").symlink_to(server.root / "own")
        # The root itself is reached through a link.
        moved = pathlib.Path(str(server.root) + "-real")
        server.root.rename(moved)
        server.root.symlink_to(moved)
        (moved / "inner").unlink()
        (moved / "inner").symlink_to(moved / "own")
        return server

    def test_links_are_followed_as_ever(self):
        with self.server(True) as server:
            for target in self.TARGETS:
                self.assertIn("secret", server.get(target).text, target)
            self.assertEqual(server.get("/").text, "secret partend")
            self.assertEqual(server.get("/execute.qvs").text, "secret page")
            self.assertEqual(server.get("/packed.txt").text, "secret module")

    def test_links_that_leave_the_root_lead_nowhere_when_the_setting_says_so(self):
        with self.server(False) as server:
            for target in (*self.TARGETS, "/SECRET.txt", "/packed.txt"):
                self.assertIn("404", server.get(target).status, target)
            self.assertEqual(server.get("/").text, "Include file not found 'part.inc'")
            self.assertIn("Error #53", server.get("/execute.qvs").text)
            self.assertEqual(server.get("/own/a.txt").text, "own")
            self.assertEqual(server.get("/inner/A.txt").text, "own", "it stays inside")


class Packing(unittest.TestCase):
    def test_a_packed_page_has_its_includes(self):
        with Server() as server:
            site = server.folder / "site"
            site.mkdir()
            (site / "index.qvs").write_bytes(b"<!--#include file=\"head.inc\"-->\r\nrest")
            (site / "head.inc").write_bytes(b"<% title = \"head\" %><%= title %> ")
            subprocess.run([app_folder() / "qvmpack", "pack", site, server.root / "site.qvm"],
                           check=True, capture_output=True, timeout=PATIENCE)
            server.stop()
            server.process = server.spawn()
            wait_until(server.answers, "the server to listen")
            self.assertEqual(server.get("/").text, "head rest")
