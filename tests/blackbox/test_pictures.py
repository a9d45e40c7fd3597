"""Pictures that pages make and change."""

import pathlib
import shutil
import struct
import subprocess
import tempfile
import unittest
import unittest.mock

from serving import PATIENCE, Server, ServerTest, app_folder


def size_of_png(data):
    assert data.startswith(b"\x89PNG"), data[:20]
    return struct.unpack(">II", data[16:24])


class Pictures(ServerTest):
    def test_a_page_sends_one(self):
        response = self.page("<% Set j = Server.CreateObject(\"Persits.Jpeg\")\n"
                             "j.New 60, 40, &HFF0000\nj.Canvas.Print 5, 5, \"text\"\n"
                             "Response.ContentType = \"image/jpeg\"\nj.SendBinary %>")
        self.assertEqual(response.header("Content-Type"), "image/jpeg")
        self.assertTrue(response.body.startswith(b"\xff\xd8\xff"))
        self.assertTrue(response.body.endswith(b"\xff\xd9"))

    def test_a_page_makes_a_thumbnail(self):
        self.assertEqual(self.output(
            "Set j = Server.CreateObject(\"Persits.Jpeg\")\nj.New 300, 200, &H00FF00\n"
            "j.Save \"%s/large.jpg\"\n"
            "j.Open \"%s/large.jpg\"\nj.PreserveAspectRatio = True\nj.Width = 75\n"
            "j.PNGOutput = True\nj.Save \"%s/small.png\"\n"
            "Response.Write j.OriginalWidth & \" \" & j.Height" % ((self.server.root,) * 3)),
            "300 50")
        self.assertEqual(size_of_png(self.server.get("/small.png").body), (75, 50))

    def test_other_folders_are_denied(self):
        for call in ["j.Open \"/etc/hostname\"", "j.New 1, 1: j.Save \"/etc/x.jpg\"",
                     "j.New 1, 1: j.SaveUnique \"/etc/x.jpg\""]:
            self.assertEqual(self.output(
                "Set j = Server.CreateObject(\"Persits.Jpeg\")\nOn Error Resume Next\n%s\n"
                "Response.Write Err.Number" % call), "70")


class WithoutTheModule(unittest.TestCase):
    """A program that was copied without what works on pictures."""

    PAGE = ("<% Set j = CreateObject(\"Persits.Jpeg\")\nOn Error Resume Next\nj.New 5, 5\n"
            "j.Save \"no.jpg\"\nResponse.Write Err.Description %>")

    def copy_programs(self):
        folder = tempfile.TemporaryDirectory(prefix="quorvane-test-")
        self.addCleanup(folder.cleanup)
        self.app = pathlib.Path(folder.name)
        for name in ("quorvane-server", "qvscript"):
            shutil.copy(app_folder() / name, self.app)

    def test_says_so(self):
        self.copy_programs()
        picture = b"BM" + bytes(60)
        with unittest.mock.patch.dict("os.environ", {"QUORVANE_APP": str(self.app)}):
            with Server({"page.qvs": self.PAGE, "picture.bmp": picture}) as server:
                self.assertIn("Pictures can't be worked on here: ", server.get("/page.qvs").text)
                for width in ("10", "20"):
                    self.assertEqual(server.get("/picture.bmp?rx=" + width).body, picture)
                server.stop()
                log = server.log_text()
        self.assertEqual(log.count("Pictures can't be resized: "), 1)
        self.assertIn("quorvane-pictures.so: cannot open shared object file", log)

    def test_scripts_that_need_none_run(self):
        self.copy_programs()
        script = self.app / "script.vbs"
        script.write_text("WScript.Echo 1\nSet j = CreateObject(\"Persits.Jpeg\")\nj.Open \"x\"")
        result = subprocess.run([self.app / "qvscript", script], capture_output=True,
                                timeout=PATIENCE)
        self.assertEqual(result.stdout, b"1\n")
