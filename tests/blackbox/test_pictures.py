"""Pictures that pages make and change."""

import struct

from serving import ServerTest


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
