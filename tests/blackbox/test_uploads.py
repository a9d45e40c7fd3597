"""Files that clients send to pages."""

from serving import ServerTest

BOUNDARY = "----boundary7"


def form(*parts):
    """A body of (name, content) and (name, content, file name, type)."""
    body = b""
    for name, content, *file in parts:
        body += b"--%s\r\nContent-Disposition: form-data; name=\"%s\"" % (BOUNDARY.encode(), name.encode())
        if file:
            body += b"; filename=\"%s\"\r\nContent-Type: %s" % (file[0].encode(), file[1].encode())
        body += b"\r\n\r\n" + content + b"\r\n"
    return body + b"--%s--\r\n" % BOUNDARY.encode()


LARGE = bytes(range(256)) * 20_000  # 5 MB
PARTS = [("title", b"A b\xe4"), ("tag", b"1"), ("tag", b"2"),
         ("photo", b"GIF89a" + bytes(range(256)), "C:\\My Pictures\\pic.GIF", "image/gif"),
         ("big", LARGE, "big.bin", "application/octet-stream"),
         ("none", b"", "", "application/octet-stream")]


class Uploads(ServerTest):
    def setUp(self):
        for name in ("up", "other"):
            (self.server.root / name).mkdir(exist_ok=True)

    def send(self, script, *parts):
        self.server.put("page.qvs", "<%\n" + script + "\n%>")
        return self.server.post("/page.qvs", form(*(parts or PARTS)),
                                "Content-Type: multipart/form-data; boundary=%s\r\n" % BOUNDARY).text

    def saved(self, name):
        return (self.server.root / "up" / name).read_bytes()

    def no_temporary_files(self):
        import glob
        import tempfile
        self.assertEqual(glob.glob(tempfile.gettempdir() + "/quorvane-" + "[0-9a-f]" * 32), [])

    def test_save_into_a_folder(self):
        answer = self.send(
            "Set u = Server.CreateObject(\"Persits.Upload.1\")\n"
            "u.OverwriteFiles = False\n"
            "n = u.Save(Server.MapPath(\"up\"))\n"
            "Response.Write n & \" \" & u.Files.Count & \" \" & u.Form(\"title\") & \" \" & u.Form.Count & vbLf\n"
            "For Each f In u.Files\n"
            "Response.Write f.Name & \" \" & f.FileName & \" \" & f.Ext & \" \" & f.Size & \" \" & f.ContentType & \" \" & f.OriginalPath & vbLf\n"
            "Next\n"
            "For Each i In u.Form: Response.Write i.Name & \"=\" & i.Value & \";\": Next\n"
            "Response.Write vbLf & (u.Files(\"none\") Is Nothing) & \" \" & u.Files(1).FileName & \" \" & (u.TotalBytes > 5000000)\n")
        self.assertEqual(answer.split("\n"), [
            "2 2 A b\xe4 3",
            "photo pic.GIF .GIF 262 image/gif C:\\My Pictures\\pic.GIF",
            "big big.bin .bin 5120000 application/octet-stream big.bin",
            "title=A b\xe4;tag=1;tag=2;",
            "True pic.GIF True"])
        self.assertEqual(self.saved("pic.GIF"), PARTS[3][1])
        self.assertEqual(self.saved("big.bin"), LARGE)
        self.no_temporary_files()
        self.assertEqual(self.send(
            "Set u = Server.CreateObject(\"Persits.Upload\"): u.OverwriteFiles = False\n"
            "u.SaveVirtual \"/up\": Response.Write u.Files(\"photo\").FileName"), "pic(1).GIF")

    def test_copies_and_contents(self):
        answer = self.send(
            "Set u = Server.CreateObject(\"Persits.Upload\"): u.Save\n"
            "Set f = u.Files(\"photo\"): f.SaveAs Server.MapPath(\"up\") & \"/copy.gif\": f.MoveVirtual \"/other/moved.gif\"\n"
            "Response.Write LenB(f.Binary) & \" \" & AscB(MidB(f.Binary, 7)) & \" \" & LenB(u.Files(\"big\").Binary)\n")
        self.assertEqual(answer, "262 0 5120000")
        self.assertFalse((self.server.root / "up/copy.gif").exists())
        self.assertEqual((self.server.root / "other/moved.gif").read_bytes(), PARTS[3][1])
        self.no_temporary_files()

    def test_no_path_of_a_client_s_is_used(self):
        for name in ["../../evil.txt", "..\\..\\evil.txt", "/etc/evil.txt", "C:evil.txt", "..",
                     "a\x01b", "con", "x:y"]:
            answer = self.send(
                "Set u = Server.CreateObject(\"Persits.Upload\"): u.Save Server.MapPath(\"up\")\n"
                "Response.Write u.Files(1).Path", ("f", b"evil", name, "text/plain"))
            self.assertTrue(answer.startswith(self.server.path("up")), answer)
            self.assertNotIn("..", answer)
        self.assertEqual(list(self.server.folder.rglob("evil.txt")),
                         [self.server.root / "up/evil.txt"])

    def test_scripts_write_only_where_they_may(self):
        self.assertEqual(self.send(
            "Set u = Server.CreateObject(\"Persits.Upload\"): On Error Resume Next\n"
            "u.Save \"/etc\": Response.Write Err.Number"), "70")

    def test_limits(self):
        self.assertEqual(self.send(
            "Set u = Server.CreateObject(\"Persits.Upload\"): On Error Resume Next\n"
            "u.SetMaxSize 1000, True: u.Save: Response.Write Err.Number"), "8")
        self.assertEqual(self.send(
            "Set u = Server.CreateObject(\"aspSmartUpload.SmartUpload\"): On Error Resume Next\n"
            "u.AllowedFilesList = \"jpg, gif\": u.Upload: Response.Write Err.Number - vbObjectError\n"
            "Err.Clear: u.AllowedFilesList = \"\": u.DeniedFilesList = \"exe,bin\": u.Upload: Response.Write Err.Number - vbObjectError\n"
            "Err.Clear: u.DeniedFilesList = \"\": u.MaxFileSize = 300: u.Upload: Response.Write Err.Number - vbObjectError\n"
            "Err.Clear: u.MaxFileSize = 0: u.TotalMaxFileSize = 400: u.Upload: Response.Write Err.Number - vbObjectError\n"),
            "1010101511051110")
        self.assertEqual(self.send(
            "Set u = Server.CreateObject(\"SoftArtisans.FileUp\"): On Error Resume Next\n"
            "u.Path = Server.MapPath(\"up\"): u.MaxBytes = 1000: u.Save: Response.Write Err.Number"),
            "-2147220991")

    def test_by_field(self):
        answer = self.send(
            "Set u = Server.CreateObject(\"SoftArtisans.FileUp\")\n"
            "u.Path = Server.MapPath(\"up\")\n"
            "Response.Write u.Form(\"title\") & \"|\" & u.Form(\"tag\") & \"|\" & u.ShortFilename & \"|\"\n"
            "If Not u.Form(\"photo\").IsEmpty Then u.Form(\"photo\").SaveAs Server.MapPath(\"up\") & \"/one.gif\"\n"
            "u.SaveAs \"two.gif\": Response.Write IsObject(u.Form(\"photo\")) & IsObject(u.Form(\"title\")) & \"|\"\n"
            "For Each n In u.Form: Response.Write n & \",\": Next")
        self.assertEqual(answer, "A b\xe4|1, 2|pic.GIF|TrueFalse|title,tag,photo,big,")
        self.assertEqual(self.saved("one.gif"), PARTS[3][1])
        self.assertEqual(self.saved("two.gif"), PARTS[3][1])

    def test_smart_forms(self):
        answer = self.send(
            "Set u = Server.CreateObject(\"aspSmartUpload.SmartUpload\")\n"
            "u.Upload\n"
            "For Each f In u.Files\n"
            "If Not f.IsMissing Then f.SaveAs \"/up/s_\" & f.FileName\n"
            "Response.Write f.Name & \" \" & f.FileExt & \" \" & f.Size & \";\"\n"
            "Next\n"
            "Response.Write u.Form(\"title\") & u.Files.Item(1).FilePathName & u.Save(\"/up\")")
        self.assertEqual(answer, "photo gif 262;big bin 5120000;A b\xe4C:\\My Pictures\\pic.GIF2")
        self.assertEqual(self.saved("s_big.bin"), LARGE)

    def test_what_is_no_form(self):
        self.assertEqual(self.output(
            "Set u = Server.CreateObject(\"Persits.Upload\"): On Error Resume Next\n"
            "u.Save: Response.Write Err.Number & u.Files.Count\n"
            "Err.Clear: u.IgnoreNoPost = True: u.Save: Response.Write Err.Number"), "500")

    def test_a_body_that_is_cut_off(self):
        self.server.put("page.qvs", "<% Set u = Server.CreateObject(\"Persits.Upload\"): u.Save %>"
                                    "<%= u.Files.Count & u.Form.Count %>")
        body = form(*PARTS)
        for length in [10, 60, 200, 500, 2_000_000]:
            answer = self.server.post("/page.qvs", body[:length],
                                      "Content-Type: multipart/form-data; boundary=%s\r\n" % BOUNDARY)
            self.assertRegex(answer.text, "^[01][0-3]$")
        self.no_temporary_files()
