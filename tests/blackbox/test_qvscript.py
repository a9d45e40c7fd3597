"""The script engine on the command line."""

import os
import pathlib
import pty
import select
import signal
import subprocess
import tempfile
import unittest

import programs
from serving import PATIENCE


class QvScript(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def file(self, source, name="test.vbs"):
        path = pathlib.Path(self.folder.name) / name
        path.write_bytes(source if isinstance(source, bytes) else source.encode("latin-1"))
        return programs.path_text(path)

    def tool(self, *words, stdin=b""):
        return programs.run("qvscript", *words, input=stdin, capture_output=True, timeout=PATIENCE)

    def run_script(self, source, *arguments, stdin=b""):
        return self.tool(self.file(source), *arguments, stdin=stdin)

    def check(self, source, expected, *arguments, stdin=b""):
        result = self.run_script(source, *arguments, stdin=stdin)
        self.assertEqual(result.stderr, b"")
        self.assertEqual(result.stdout, expected)
        self.assertEqual(result.returncode, 0)

    def test_echo(self):
        self.check('WScript.Echo "a", 1, 2.5, True\nWScript.Echo', b"a 1 2.5 True\n\n")

    def test_bytes_pass_unchanged(self):
        every = bytes(set(range(256)) - {0, 10, 13, 34})
        self.check(b'WScript.StdOut.Write "' + every + b'"', every)

    def test_arguments(self):
        self.check("Dim a\nWScript.Echo WScript.Arguments.Count\n"
                   "For Each a In WScript.Arguments\nWScript.Echo a\nNext\n"
                   "WScript.Echo WScript.Arguments(1), WScript.Arguments.Item(0)",
                   b"2\none\ntwo words\ntwo words one\n", "one", "two words")

    def test_no_arguments(self):
        self.check("WScript.Echo WScript.Arguments.Count, WScript.Arguments.Length", b"0 0\n")

    def test_named_and_unnamed_arguments(self):
        self.check("With WScript.Arguments\n"
                   'WScript.Echo .Named("NAME"), .Named.Exists("name"), .Named.Exists("x")\n'
                   'WScript.Echo .Named("on"), .Named("off"), IsEmpty(.Named("bare"))\n'
                   "WScript.Echo .Named.Count, .Unnamed.Count, .Unnamed(0), .Count\nEnd With",
                   b"text True False\nTrue False True\n4 1 plain 5\n",
                   "/name:text", "/on+", "/off-", "plain", "/bare")

    def test_an_argument_that_is_not_there(self):
        result = self.run_script("WScript.Echo WScript.Arguments(0)")
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"(1, 1) ", result.stderr)
        self.assertIn(b"Subscript out of range", result.stderr)

    def test_standard_input(self):
        self.check("Do Until WScript.StdIn.AtEndOfStream\n"
                   'WScript.Echo WScript.StdIn.Line & ":" & WScript.StdIn.ReadLine\nLoop',
                   b"1:one\n2:two\n3:three\n", stdin=b"one\r\ntwo\nthree")
        self.check("WScript.StdIn.Skip 2\nWScript.Echo WScript.StdIn.Read(3)\n"
                   "WScript.StdIn.SkipLine\nWScript.StdOut.Write WScript.StdIn.ReadAll",
                   b"cde\nrest\n", stdin=b"abcdefg\nrest\n")

    def test_reading_past_the_end(self):
        self.check("On Error Resume Next\nx = WScript.StdIn.ReadLine\nWScript.Echo Err.Number",
                   b"62\n")

    def test_standard_output_and_error(self):
        result = self.run_script('WScript.StdOut.WriteLine "out"\nWScript.StdOut.WriteBlankLines 2\n'
                                 'WScript.StdErr.Write "err"')
        self.assertEqual(result.stdout, b"out\n\n\n")
        self.assertEqual(result.stderr, b"err")

    def test_quit(self):
        result = self.run_script('On Error Resume Next\nWScript.Echo "a"\nWScript.Quit 7\n'
                                 'WScript.Echo "b"')
        self.assertEqual((result.stdout, result.returncode), (b"a\n", 7))
        result = self.run_script("Sub S\nWScript.Quit\nEnd Sub\nS\nWScript.Echo 1")
        self.assertEqual((result.stdout, result.returncode), (b"", 0))

    def test_objects_end_when_the_script_quits(self):
        self.check('Class C\nSub Class_Terminate\nWScript.Echo "gone"\nEnd Sub\nEnd Class\n'
                   "Set o = New C\nWScript.Quit", b"gone\n")

    def test_names(self):
        path = self.file("WScript.Echo WScript.ScriptName\nWScript.Echo WScript.ScriptFullName\n"
                         "WScript.Echo WScript.Name, TypeName(WScript.Version)")
        result = self.tool(path)
        self.assertEqual(result.stdout,
                         b"test.vbs\n" + path.encode() + b"\nqvscript String\n")

    def test_created_objects(self):
        self.check('Set d = WScript.CreateObject("Scripting.Dictionary")\nd("a") = 1\n'
                   'Set e = CreateObject("Scripting.Dictionary")\nWScript.Echo d.Count, e.Count',
                   b"1 0\n")
        result = self.run_script('Set x = CreateObject("No.Such")')
        self.assertIn(b"ActiveX component can't create object", result.stderr)

    def test_sleep(self):
        self.check("t = Timer\nWScript.Sleep 200\ns = Timer - t\n"
                   "If s < 0 Then s = s + 86400\n"
                   "WScript.Echo s >= 0.19", b"True\n")  # Timer's steps grow with the day

    def test_much_that_nobody_reads(self):
        path = self.file('For i = 1 To 600000\nWScript.StdOut.Write "<td>a cell</td>"\nNext\n')
        result = programs.run("qvscript", path, stdout=subprocess.DEVNULL, timeout=PATIENCE)
        self.assertEqual(result.returncode, 0)

    def test_a_terminal_shows_what_is_written_before_an_answer_and_before_a_sudden_end(self):
        self.check_terminal('WScript.StdOut.Write "Which? "\nWScript.StdIn.ReadLine', b"Which?")
        self.check_terminal('WScript.StdOut.WriteLine "That one."\nDo\nLoop', b"That one.")

    def check_terminal(self, source, text):
        words = [*programs.command("qvscript"), self.file(source)]
        process, terminal = pty.fork()
        if process == 0:
            os.execvp(words[0], words)
        self.addCleanup(os.close, terminal)
        try:
            self.wait_for_text(terminal, text)
        finally:
            os.kill(process, signal.SIGKILL)
            os.waitpid(process, 0)

    def wait_for_text(self, terminal, text):
        shown = b""
        while text not in shown:
            self.assertTrue(select.select([terminal], [], [], PATIENCE)[0], shown)
            shown += os.read(terminal, 4000)

    def test_a_run_time_error(self):
        path = self.file('WScript.Echo "before"\n  x = 1 / 0\nWScript.Echo "after"')
        result = self.tool(path)
        self.assertEqual(result.stdout, b"before\n")
        self.assertEqual(result.stderr, path.encode() +
                         b"(2, 3) Microsoft VBScript runtime error: Division by zero\n")
        self.assertEqual(result.returncode, 1)

    def test_a_compile_error(self):
        path = self.file('WScript.Echo "before"\nx = 1 y')
        for words in ([path], ["--check", path]):
            result = self.tool(*words)
            self.assertEqual(result.stdout, b"")
            self.assertEqual(result.stderr, path.encode() + b"(2, 7) Microsoft VBScript compilation"
                             b" error: Expected end of statement\n")
            self.assertEqual(result.returncode, 1)

    def test_an_error_of_the_scripts_own(self):
        path = self.file('Err.Raise 1000, "mine", "own text"')
        self.assertEqual(self.tool(path).stderr, path.encode() + b"(1, 1) mine: own text\n")

    def test_check_runs_nothing(self):
        result = self.tool("--check", self.file('WScript.Echo "ran"'))
        self.assertEqual((result.stdout, result.stderr, result.returncode), (b"", b"", 0))

    def test_check_of_many_files(self):
        good = self.file("x = 1", "good.vbs")
        bad = self.file("x = 1\nIf x", "bad.vbs")
        part = self.file("<% If x %>", "part.inc")
        page = self.file('<!--#include file="part.inc"-->\n<%= 1 %>', "PAGE.QVS")
        whole = self.file("<% x = 1 %>text", "whole.qvs")
        result = self.tool("--check", good, bad, page, whole)
        self.assertEqual(result.stdout, b"2 of 4 files have no fault\n")
        self.assertEqual(result.stderr.decode(), bad + "(2, 5) Microsoft VBScript compilation error:"
                         " Expected 'Then'\n" + part + "(1, 9) Microsoft VBScript compilation error:"
                         " Expected 'Then'\n")
        self.assertEqual(result.returncode, 1)
        result = self.tool("--check", good, whole)
        self.assertEqual((result.stdout, result.stderr, result.returncode),
                         (b"2 of 2 files have no fault\n", b"", 0))
        result = self.tool("--check", good, "/no/such.vbs", bad)
        self.assertEqual(result.stdout, b"1 of 3 files have no fault\n")
        self.assertIn(b"qvscript: there is no file /no/such.vbs\n", result.stderr)
        self.assertIn(b"Expected 'Then'", result.stderr)
        self.assertEqual(result.returncode, 2)

    def test_check_of_a_long_list_on_a_terminal(self):
        files = [self.file("x = 1", f"{i}.vbs") for i in range(40)]
        outer, inner = pty.openpty()
        self.addCleanup(os.close, outer)
        result = programs.run("qvscript", "--check", *files, stderr=inner, stdout=subprocess.PIPE,
                              timeout=PATIENCE)
        shown = os.read(outer, 4000)
        os.close(inner)
        self.assertIn(b"\r39 of 40", shown)
        self.assertTrue(shown.endswith(b"\r\x1b[K"))
        self.assertEqual(result.stdout, b"40 of 40 files have no fault\n")

    def test_dumps(self):
        path = self.file("x = 1")
        self.assertEqual(self.tool("--dump-tokens", path).stdout,
                         b"1:1 name x\n1:3 symbol =\n1:5 number 1\n1:6 end\n")
        self.assertEqual(self.tool("--dump-tree", path).stdout, b"let x = 1\n")
        self.assertIn(b"Halt", self.tool("--dump-bytecode", path).stdout)

    def test_what_a_page_becomes(self):
        self.file("<% x = 1\n%>\n", "Head.inc")
        path = self.file('<!--#include file="HEAD.inc"-->\n<b>"<%= x %>', "page.qvs")
        self.assertEqual(self.tool("--dump-page", path).stdout,
                         b"0\tHead.inc:1\t x = 1\n1\tHead.inc:2\t\n"
                         b'2\tHead.inc:2\tresponse.xwrite "" & vbCrLf\n'
                         b'3\tpage.qvs:2\tresponse.xwrite "<b>" & chr(34)\n'
                         b"4\tpage.qvs:2\tresponse.xwrite  x \n")

    def test_what_a_customary_page_becomes(self):
        self.file("<% x = 1\n%>", "Head.inc")
        path = self.file('<!--#include file="HEAD.inc"-->\n<b><%= x %>', "page.asp")
        self.assertEqual(self.tool("--dump-page", path).stdout,
                         b"Head.inc:1\t x = 1\nHead.inc:2\t\npage.asp:1\t[%text] 0\n"
                         b"page.asp:2\t[%out]  x \n")

    def test_check_of_a_site(self):
        self.file('<% x = Session("a") %>', "plain.qvs")
        whole = self.tool("--check-site", self.folder.name)
        self.assertIn(b"/plain.qvs\t0: ok\t2: ok\n", whole.stdout)
        self.assertIn(b"Customary can stay 0.\n", whole.stdout)
        self.assertEqual(whole.returncode, 0)

        self.file("Sub F\nEnd Sub %>", "bad.inc")
        self.file('<%@ Language=VBScript %>\n<!-- x --><!--#include virtual="/good.inc"-->\n'
                  '<% Session("n") = 1 : Response.Redirect "a.asp" %>', "default.asp")
        self.file("caf\xc3\xa9".encode("latin-1").decode("latin-1"), "good.inc")
        self.file('<script runat="server">\nSub G\nEnd Sub\n</script><% G %>', "block.qvs")
        self.file('<% Set o = Server.CreateObject("No.Such.Thing.2")\n'
                  'Set d = CreateObject("Scripting.Dictionary") %>\n<%\nIf x Then\n%>', "parts.asp")
        report = self.tool("--check-site", self.folder.name)
        lines = report.stdout.decode("latin-1").splitlines()
        row = next(line for line in lines if line.startswith("/default.asp"))
        for words in (".asp files are pages", "Response.Redirect answers the browser",
                      "default documents in folders", "typed values in the session",
                      "includes behind comments", "2: ok"):
            self.assertIn(words, row)
        row = next(line for line in lines if line.startswith("/parts.asp"))
        self.assertIn("2: fails: Expected 'End' (/parts.asp, line 5)", row)
        self.assertIn("  1\tscripts in runat=server blocks", lines)
        self.assertIn("  1\tNo.Such.Thing.2", lines)
        self.assertIn("  2\t.asp files are pages", lines)
        self.assertIn("4 pages; 1 fail under 0, 1 under 2", lines)
        self.assertIn("Customary 2 fits.", lines)
        self.assertEqual(report.returncode, 1)
        self.assertEqual(self.tool("--check-site", self.folder.name + "/none").returncode, 2)

    def test_check_site_looks_into_jscript(self):
        self.file('<%@ Language="JScript" %>\n<ul>\n<% var a = new ActiveXObject("No.Such.One");\n'
                  'Server.CreateObject("Scripting.Dictionary") %>\n<%= a; %>', "good.asp")
        self.file('x\n<script language="jscript" runat="server">\nfunction f() {\n  var = 1;\n}\n'
                  '</script>\n<% f %>', "bad.asp")
        self.file("function g() {\n  return 'open;\n}\n", "lib.js")
        self.file('<script language="jscript" runat="server" src="lib.js"></script>', "lib.asp")
        self.file('<script language="jscript" runat="server">\nfunction Application_OnStart() {\n'
                  '  Server.CreateObject("No.Such.Two");\n}\n</script>', "global.asa")
        report = self.tool("--check-site", self.folder.name)
        lines = report.stdout.decode("latin-1").splitlines()
        for name, end in (("/good.asp", "2: ok"), ("/global.asa", "2: ok"),
                          ("/bad.asp", "(/bad.asp, line 4)"), ("/lib.asp", "(/lib.js, line 2)")):
            row = next(line for line in lines if line.startswith(name))
            self.assertTrue(row.endswith(end), row)
        for name in ("One", "Two"):
            self.assertIn("  1\tNo.Such." + name, lines)
        self.assertIn("  3\tJScript", lines)
        self.assertIn("  1\tglobal.asa", lines)
        self.assertEqual(report.returncode, 1)
        self.file('<script language="jscript" runat="server">var = 1</script>', "global.asa")
        self.assertRegex(self.tool("--check-site", self.folder.name).stdout,
                         rb"/global.asa\t0: differs: global.asa\t2: fails: .*\(/global.asa, line 1\)")

    def test_dump_page_shows_jscript(self):
        path = self.file('<script language="jscript" runat="server">\nfunction f() { return 1; }\n'
                         '</script>\n<%= f() %>', "page.asp")
        listing = self.tool("--dump-page", path).stdout
        self.assertIn(b"page.asp:4\t[%out]  f() ", listing)
        self.assertIn(b"page.asp:2\tfunction f() { return 1; }\n", listing)

    def test_help(self):
        result = self.tool("--help")
        self.assertEqual(result.returncode, 0)
        for word in (b"usage: qvscript", b"--check", b"--dump-tokens", b"--dump-tree",
                     b"--dump-bytecode", b"--dump-page", b"--check-site", b"--time-limit",
                     b"--components"):
            self.assertIn(word, result.stdout)

    def test_faults_of_the_command_line(self):
        for words, complaint in ((["/no/such.vbs"], b"there is no file /no/such.vbs"),
                                 ([self.folder.name], b"is a folder"),
                                 ([], b"no script file given"),
                                 (["--no-such", "x.vbs"], b"unknown option --no-such")):
            result = self.tool(*words)
            self.assertEqual(result.returncode, 2)
            self.assertIn(complaint, result.stderr)
            self.assertEqual(result.stdout, b"")

    def test_components(self):
        path = self.file('WScript.Echo TypeName(CreateObject("Scripting.Dictionary"))')
        for whose in ("system", "own"):
            self.assertEqual(self.tool(f"--components={whose}", path).stdout, b"Dictionary\n")
        self.assertIn(b"can't create object", self.tool("--components=none", path).stderr)
        result = self.tool("--components=mine", path)
        self.assertEqual((result.returncode, result.stdout), (2, b""))
        self.assertIn(b"unknown option --components=mine", result.stderr)

    def test_time_limit(self):
        result = self.tool("--time-limit=1", self.file("Do\nLoop"))
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"Script timed out", result.stderr)


if __name__ == "__main__":
    unittest.main()
