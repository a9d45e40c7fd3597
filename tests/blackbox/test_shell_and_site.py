"""Programs that scripts start, and what pages learn of their client."""

import pathlib
import tempfile
import time
import unittest

import programs
from serving import PATIENCE, ServerTest


def qvscript(source, *options):
    with tempfile.NamedTemporaryFile(suffix=".vbs") as file:
        file.write(source.encode("latin-1"))
        file.flush()
        return programs.run("qvscript", *options, file.name, capture_output=True,
                            timeout=PATIENCE)


class Programs(unittest.TestCase):
    """Those that scripts start are runs of this one."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def running(self, source, arguments=""):
        """An expression: the command line that runs a script."""
        path = self.folder / ("%d.vbs" % len(list(self.folder.iterdir())))
        path.write_text(source)
        return ('"""" & WScript.FullName & """ --components=own ""%s"" %s"'
                % (programs.path_text(path), arguments))

    def check(self, source, expected):
        result = qvscript("Set sh = CreateObject(\"WScript.Shell\")\n" + source)
        self.assertEqual((result.stdout, result.stderr), (expected, b""))

    def test_run(self):
        self.check("WScript.Echo sh.Run(%s, 0, True), sh.Run(%s)"
                   % (self.running("WScript.Quit 7"), self.running("")), b"7 0\n")

    def test_a_program_that_is_not_there(self):
        self.check("On Error Resume Next\nsh.Run \"/none/such\"\nWScript.Echo Err.Number",
                   b"-2147024894\n")

    def test_variables_are_expanded_in_run_alone(self):
        is_folder = ("Set fso = CreateObject(\"Scripting.FileSystemObject\")\n"
                     "If fso.FolderExists(WScript.Arguments(0)) Then WScript.Quit 3")
        echo = "WScript.Echo WScript.Arguments(0)"
        self.check("WScript.Echo sh.Run(%s, 0, True), sh.Exec(%s).StdOut.ReadLine"
                   % (self.running(is_folder, "%TEMP%"), self.running(echo, "%TEMP%")),
                   b"3 %TEMP%\n")

    def test_streams_of_a_program(self):
        copy = ("WScript.StdOut.Write WScript.StdIn.ReadAll\nWScript.StdErr.WriteLine \"bad\"\n"
                "WScript.Quit 4")
        self.check("Set p = sh.Exec(" + self.running(copy) + ")\n"
                   "p.StdIn.WriteLine \"one\": p.StdIn.Write \"two\": p.StdIn.Close\n"
                   "WScript.Echo p.StdOut.ReadLine & \"|\" & p.StdOut.ReadAll & \"|\" & "
                   "p.StdErr.ReadLine\n"
                   "Do While p.Status = 0: WScript.Sleep 5: Loop\n"
                   "WScript.Echo p.ExitCode, p.ProcessID > 0, p.StdOut.AtEndOfStream",
                   b"one|two|bad\n4 True True\n")

    def test_much_output(self):
        much = "WScript.StdOut.Write String(3000000, \"x\")"
        self.check("WScript.Echo Len(sh.Exec(" + self.running(much) + ").StdOut.ReadAll)",
                   b"3000000\n")

    def test_the_scripts_time_ends_a_program(self):
        endless = self.running("Do: WScript.Sleep 1000: Loop")
        for call in ["sh.Run %s, 0, True", "sh.Exec(%s).StdOut.ReadAll"]:
            start = time.monotonic()
            result = qvscript("Set sh = CreateObject(\"WScript.Shell\")\n" + call % endless,
                              "--time-limit=1")
            self.assertEqual(result.returncode, 1)
            self.assertGreater(time.monotonic() - start, 1)
            self.assertLess(time.monotonic() - start, 5)


class Site(ServerTest):
    def test_pages_start_no_programs(self):
        self.assertEqual(self.output("On Error Resume Next\n"
                                     "CreateObject(\"WScript.Shell\").Run \"true\"\n"
                                     "Response.Write Err.Number"), "70")

    def test_browsers(self):
        source = ("<% Set b = CreateObject(\"MSWC.BrowserType\") %>"
                  "<%= b.Browser & \" \" & b.Version & \" \" & b.MajorVer & \" \" & b.Platform & "
                  "\" \" & b.Frames & \" \" & b.Crawler %>")
        for agent, expected in [
                ("Mozilla/5.0 (Windows NT 10.0; Win64; x64) AppleWebKit/537.36 (KHTML, like Gecko) "
                 "Chrome/120.0.6099.5 Safari/537.36 Edg/119.0.1.2", "Edge 119.0 119 WinNT True False"),
                ("Mozilla/5.0 (X11; Linux x86_64; rv:115.0) Gecko/20100101 Firefox/115.0",
                 "Firefox 115.0 115 Linux True False"),
                ("Mozilla/4.0 (compatible; MSIE 6.0; Windows NT 5.1)", "IE 6.0 6 WinNT True False"),
                ("Somebot/1.0", "Default 0.0 0 unknown False True")]:
            self.assertEqual(self.page(source, "User-Agent: %s\r\n" % agent).text, expected)

    def test_the_site_s_files(self):
        self.server.put("sub/tips.txt", "%%\none")
        self.server.put("sub/page.qvs", "<% Set r = CreateObject(\"MSWC.ContentRotator\") %>"
                                        "<%= r.ChooseContent(\"tips.txt\") %>|<% "
                                        "r.GetAllContent \"/sub/tips.txt\" %>")
        self.assertEqual(self.server.get("/sub/page.qvs").text, "one\n|<hr>one\n<hr>")
