"""Objects of the system and of com_probe.dll in scripts and pages.

The scripts stand in com/cases: a line '=== name begins a case; '> text is a line of output to come;
'! text is told of the error that ends the script; '--- option is one of qvscript's."""

import pathlib
import re
import subprocess
import tempfile
import time
import unittest

import programs
from moved import Visitor
from serving import PATIENCE, ServerTest

HERE = pathlib.Path(__file__).resolve().parent
PROBE = HERE.parent.parent / "build/windows/release/tests/com_probe.dll"


def register_probe():
    subprocess.run(["wine", "regsvr32", "/s", str(PROBE)], stdin=subprocess.DEVNULL,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE, check=True)


class Case:
    def __init__(self, name):
        self.name = name
        self.source = []
        self.options = []
        self.output = ""
        self.error = None  # part of what is told of the error that ends it


def cases(file):
    found = []
    for line in file.read_text().split("\n"):
        if line.startswith("'=== "):
            found.append(Case(file.stem + ": " + line[5:]))
        elif line.startswith("'--- "):
            found[-1].options.append(line[5:])
        elif line.startswith("'> "):
            found[-1].output += line[3:] + "\n"
        elif line.startswith("'! "):
            found[-1].error = line[3:]
        elif found:
            found[-1].source.append(line)
    return found


class ComScripts(unittest.TestCase):
    """A test for each case of each file, added below."""

    maxDiff = None

    @classmethod
    def setUpClass(cls):
        register_probe()

    def check(self, case):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "case.vbs"
            path.write_bytes("\r\n".join(case.source).encode("cp1252"))
            done = programs.run("qvscript", "--components=system", *case.options,
                                programs.path_text(path),
                                stdin=subprocess.DEVNULL, capture_output=True, timeout=PATIENCE)
        told = done.stderr.decode("cp1252")
        self.assertEqual(done.stdout.decode("cp1252"), case.output, (done.returncode, told))
        if case.error:
            self.assertIn(case.error, told)
        else:
            self.assertEqual(done.returncode, 0, told)


def add_tests():
    for file in sorted(HERE.glob("com/cases/*.vbs")):
        for case in cases(file):
            name = "test_" + re.sub(r"\W+", "_", case.name)
            setattr(ComScripts, name, lambda self, case=case: self.check(case))


add_tests()

DIALECT = '<%@ language="VBScript" %>'
FIRST = DIALECT + """<%
Set p = CreateObject("Quorvane.Probe")
p("key") = "kept"
Set Session("p") = p
Set d = CreateObject("Scripting.Dictionary")
Set Session("d") = d
Sub Late(text)
  Response.Write "never"
End Sub
p.CallFromThread d
p.CallFromThread GetRef("Late")
p.Use Response, "Write", "call", "first "
Response.Write d.Count
%>"""
SECOND = DIALECT + """<%
Set d = Session("d")
Response.Write "second " & Session("p")("key") & " " & d.Count & " " & d.Exists("from afar")
%>"""
ENDING = DIALECT + """<%
Sub Finish
  Response.Write "until here"
  Response.End
End Sub
Set p = CreateObject("Quorvane.Probe")
p.CallBack GetRef("Finish")
Response.Write "never"
%>"""
FAILING = DIALECT + """<%
On Error Resume Next
Set p = Server.CreateObject("Quorvane.Probe")
p.Fail 1004, "Probe", "told"
Response.Write Err.Number & " " & Err.Description
%>"""


class ComPages(ServerTest):
    """Under the customary dialect, whose sessions keep objects."""

    SETTINGS = {"Customary": "1", "Components": "own"}
    PAGES = {"first.qvs": FIRST, "second.qvs": SECOND, "ending.qvs": ENDING,
             "failing.qvs": FAILING}

    @classmethod
    def setUpClass(cls):
        register_probe()
        super().setUpClass()

    def test_objects_outlast_their_page_and_are_called_between_pages(self):
        """By a thread of others: an object that the session holds, and a procedure of a page that is
        over."""
        visitor = Visitor(self.server)
        self.assertEqual(visitor.get("/first.qvs").text.strip(), "first 0")
        time.sleep(1)
        self.assertEqual(visitor.get("/second.qvs").text.strip(), "second kept 1 True")

    def test_a_page_ends_in_a_procedure_that_others_call(self):
        self.assertEqual(self.server.get("/ending.qvs").text.strip(), "until here")

    def test_errors_tell_number_and_text(self):
        self.assertEqual(self.server.get("/failing.qvs").text.strip(), "1004 told")

    def test_components_of_pages_are_ours(self):
        self.assertIn("IBrowserType", self.output(
            'Response.Write TypeName(CreateObject("MSWC.BrowserType"))'))


if __name__ == "__main__":
    unittest.main()
