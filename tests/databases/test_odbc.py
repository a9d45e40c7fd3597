"""Scripts at real servers."""

import pathlib
import socket
import subprocess
import tempfile
import threading
import time
import unittest

from serving import PATIENCE, app_folder
from servers import MariaDb, PostgreSql, connection_text, server

OPEN = """
Dim c, rs, cmd, n, i, f
Set c = CreateObject("ADODB.Connection")
c.Open WScript.Arguments(0)
Sub Failed()
  WScript.Echo Err.Number
  Err.Clear
End Sub
"""


def run(source, *arguments, limit=PATIENCE):
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "test.vbs"
        path.write_text(source, encoding="cp1252")
        result = subprocess.run(
            [str(app_folder() / "qvscript"), f"--time-limit={limit}", str(path), *arguments],
            capture_output=True, timeout=3 * PATIENCE)
    return result.stdout.decode("cp1252") + result.stderr.decode("cp1252")


class Scripts:
    """What holds for every server. `kind` is its class; `table` makes the table that is used."""

    @classmethod
    def setUpClass(cls):
        cls.text = server(cls.kind).text(**cls.parts)

    def setUp(self):
        self.check(f'On Error Resume Next\nc.Execute "DROP TABLE guests"\nOn Error Goto 0\n'
                   f'c.Execute "{self.table}"', "")

    def check(self, source, expected):
        self.assertEqual(run(OPEN + source, self.text), expected)

    def test_values_come_back_as_they_went(self):
        self.check("""
Set cmd = CreateObject("ADODB.Command")
Set cmd.ActiveConnection = c
cmd.CommandText = "INSERT INTO guests (name, note, price, seen, shown, big, pic, ratio) " & _
  "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"
Set s = CreateObject("ADODB.Stream")
s.Open: s.Type = 2: s.Charset = "utf-8": s.WriteText "a" & ChrW(1046): s.Position = 0: s.Type = 1
s.Position = 3
With cmd.Parameters
  .Append cmd.CreateParameter("a", 202, 1, 50, "O'Neil; -- " & ChrW(8364) & ChrW(1046))
  .Append cmd.CreateParameter("b", 203, 1, 100000, String(70000, ChrW(20013)))
  .Append cmd.CreateParameter("c", 6, 1, , CCur("-1234567890.1234"))
  .Append cmd.CreateParameter("d", 135, 1, , #1/31/2024 10:20:30#)
  .Append cmd.CreateParameter("e", 11, 1, , True)
  .Append cmd.CreateParameter("f", 20, 1, , 5000000000)
  .Append cmd.CreateParameter("g", 205, 1, 100, s.Read)
  .Append cmd.CreateParameter("h", 5, 1, , 0.1)
End With
cmd.Execute n, , 128
WScript.Echo "affected", n
Set rs = c.Execute("SELECT * FROM guests")
WScript.Echo rs("name") = "O'Neil; -- " & ChrW(8364) & ChrW(1046), Len(rs("note"))
WScript.Echo rs("note") = String(70000, ChrW(20013)), rs("price"), rs("price").Type
WScript.Echo TypeName(rs("seen").Value), rs("seen") = #1/31/2024 10:20:30#, rs("big")
WScript.Echo TypeName(rs("shown").Value), rs("shown"), rs("ratio")
WScript.Echo LenB(rs("pic")), AscB(MidB(rs("pic"), 1, 1)), AscB(MidB(rs("pic"), 2, 1))
cmd.Execute n, Array("none", Null, Null, Null, Null, Null, Null, Null)
Set rs = c.Execute("SELECT * FROM guests WHERE name = 'none'")
For Each f In rs.Fields
  If IsNull(f.Value) Then i = i & f.Name & " "
Next
WScript.Echo i
""", "affected 1\nTrue 70000\nTrue -1234567890.1234 131\nDate True 5000000000\n"
            "Boolean True 0.1\n3 97 208\nnote price seen shown pic big ratio \n")

    def test_a_text_in_a_parameter_is_never_sql(self):
        self.check("""
Set cmd = CreateObject("ADODB.Command")
cmd.ActiveConnection = c
cmd.CommandText = "INSERT INTO guests (name) VALUES (?)"
cmd.Execute , Array("x'); DROP TABLE guests; --")
WScript.Echo c.Execute("SELECT name FROM guests")(0)
cmd.CommandText = "SELECT count(*) FROM guests WHERE name = ? OR name = '?'"
WScript.Echo cmd.Execute(, Array("' OR '1'='1"))(0)
""", "x'); DROP TABLE guests; --\n0\n")

    def test_records_affected_and_the_new_number(self):
        self.check("""
c.Execute "INSERT INTO guests (name) VALUES ('a')", n
WScript.Echo n, c.Execute("SELECT @@IDENTITY")(0), c.Execute("SELECT SCOPE_IDENTITY() AS id")("id")
c.Execute "INSERT INTO guests (name) VALUES ('b'), ('@@identity')", n
WScript.Echo n
c.Execute "UPDATE guests SET price = 1 WHERE id > 1", n
WScript.Echo n, c.Execute("SELECT name FROM guests WHERE name = '@@identity'")(0)
c.Execute "DELETE FROM guests", n, 129
WScript.Echo n
""", "1 1 1\n2\n2 @@identity\n3\n")

    def test_several_results(self):
        self.check("""
Set rs = c.Execute("SELECT 1 AS a; INSERT INTO guests (name) VALUES ('x'); SELECT 2 AS b")
WScript.Echo rs("a")
Set rs = rs.NextRecordset(n)
WScript.Echo rs.State, n
Set rs = rs.NextRecordset
WScript.Echo rs("b").Value, rs.NextRecordset Is Nothing
""", "1\n0 1\n2 True\n")

    def test_rows_are_changed_by_their_keys(self):
        self.check("""
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM guests WHERE 1 = 0", c, 1, 3
For i = 1 To 3
  rs.AddNew
  rs("name") = "guest " & i
  rs("shown") = (i = 2)
  rs("seen") = DateSerial(2024, i, 1)
  rs("price") = "1.5"
  rs.Update
  WScript.Echo rs("id"), rs("ratio")
Next
rs.Move -1
rs.Update "name", "Second"
rs("note") = "new"
rs.MoveNext
rs.Delete
rs.Close
rs.Open "SELECT id, name, note, shown, price FROM guests ORDER BY id", c, 3, 3
WScript.Echo rs.RecordCount, rs.Supports(&H1008000), rs("id").Properties("KEYCOLUMN")
b = rs.Bookmark
rs.MoveLast
WScript.Echo rs("name"), rs("note"), rs("shown"), rs("price"), rs.AbsolutePosition
rs.Bookmark = b
WScript.Echo rs("name")
rs("name") = rs("name").Value
rs.Update
c.Execute "DELETE FROM guests"
rs("name") = "gone"
On Error Resume Next
rs.Update
Failed
""", "1 0.5\n2 0.5\n3 0.5\n2 True True\nSecond new True 1.5 2\nguest 1\n-2147217864\n")

    def test_rows_without_a_key_are_not_changed(self):
        self.check("""
Set rs = CreateObject("ADODB.Recordset")
c.Execute "INSERT INTO guests (name) VALUES ('a')"
rs.Open "SELECT name FROM guests", c, 1, 3
WScript.Echo rs.Supports(&H1008000)
On Error Resume Next
rs("name") = "b"
Failed
""", "False\n3251\n")

    def test_keys_of_several_columns(self):
        self.check("""
On Error Resume Next
c.Execute "DROP TABLE pairs"
On Error Goto 0
c.Execute "CREATE TABLE pairs (a int, b varchar(10), v int, PRIMARY KEY (a, b))"
Set rs = CreateObject("ADODB.Recordset")
rs.Open "pairs", c, 1, 3, 2
rs.AddNew Array("a", "b", "v"), Array(1, "x", 10)
rs.AddNew Array("a", "b", "v"), Array(1, "y", 20)
rs("v") = 21
rs.Update
rs("b") = "z"
rs.Update
rs("a") = 2
rs("v") = 22
rs.Update
rs.MoveFirst
rs.Delete
WScript.Echo c.Execute("SELECT v FROM pairs")(0), c.Execute("SELECT count(*) FROM pairs")(0)
c.Execute "DROP TABLE pairs"
""", "22 1\n")

    def test_a_batch_waits(self):
        self.check("""
Set rs = CreateObject("ADODB.Recordset")
rs.CursorLocation = 3
rs.Open "SELECT * FROM guests", c, 3, 4
rs.AddNew "name", "one"
rs.AddNew "name", "two"
WScript.Echo c.Execute("SELECT count(*) FROM guests")(0)
rs.UpdateBatch
WScript.Echo c.Execute("SELECT count(*) FROM guests")(0)
""", "0\n2\n")

    def test_transactions(self):
        self.check("""
c.BeginTrans
c.Execute "INSERT INTO guests (name) VALUES ('a')"
c.RollbackTrans
WScript.Echo c.Execute("SELECT count(*) FROM guests")(0)
c.BeginTrans
c.Execute "INSERT INTO guests (name) VALUES ('a')"
c.CommitTrans
c.Execute "INSERT INTO guests (name) VALUES ('b')"
Set other = CreateObject("ADODB.Connection")
other.Open WScript.Arguments(0)
WScript.Echo other.Execute("SELECT count(*) FROM guests")(0)
other.BeginTrans
other.Execute "DELETE FROM guests"
Set other = Nothing
WScript.Echo c.Execute("SELECT count(*) FROM guests")(0)
""", "0\n2\n2\n")

    def test_a_failure_undoes_its_own_statement_alone(self):
        self.check("""
c.BeginTrans
c.Execute "INSERT INTO guests (name) VALUES ('a')"
On Error Resume Next
c.Execute "INSERT INTO guests (name) VALUES (NULL)"
Failed
On Error Goto 0
c.Execute "INSERT INTO guests (name) VALUES ('b')"
c.CommitTrans
WScript.Echo c.Execute("SELECT count(*) FROM guests")(0)
""", "-2147217873\n2\n")

    def test_errors_have_the_customary_numbers(self):
        self.check("""
c.Execute "INSERT INTO guests (id, name) VALUES (1, 'a')"
On Error Resume Next
c.Execute "SELECT * FROM missing"
WScript.Echo c.Errors.Count > 0, c.Errors(0).Number, Len(c.Errors(0).SQLState), Err.Source
Failed
c.Execute "SELEC 1": Failed
c.Execute "SELECT missing FROM guests": Failed
c.Execute "INSERT INTO guests (id, name) VALUES (1, 'b')": Failed
c.Execute "INSERT INTO guests (name) VALUES (NULL)": Failed
c.Execute "INSERT INTO guests (name) VALUES ('" & String(60, "x") & "')": Failed
c.Execute "INSERT INTO guests (name, seen) VALUES ('c', 'never')": Failed
Set cmd = CreateObject("ADODB.Command")
cmd.ActiveConnection = c
cmd.CommandText = "SELECT ? + ?"
cmd.Execute , Array(1): Failed
WScript.Echo c.Execute("SELECT count(*) FROM guests")(0)
""", "True -2147217865 5 Microsoft OLE DB Provider for ODBC Drivers\n-2147217865\n-2147217900\n"
            "-2147217900\n-2147217873\n-2147217873\n-2147217833\n-2147217913\n-2147217904\n1\n")

    def test_a_login_that_is_refused(self):
        text = server(self.kind).text(Pwd="wrong")
        self.assertEqual(run("""
Set c = CreateObject("ADODB.Connection")
On Error Resume Next
c.Open WScript.Arguments(0)
WScript.Echo Err.Number, c.State, c.Errors.Count > 0
""", text), "-2147217843 0 True\n")

    def test_a_login_beside_the_text(self):
        self.check("""
Set other = CreateObject("ADODB.Connection")
other.Open WScript.Arguments(0) & ";Uid=nobody;Pwd=nothing", "tester", "s;e'c}r=et"
WScript.Echo other.State, InStr(other.ConnectionString, "nothing")
""", "1 0\n")

    def test_a_connection_is_used_again_as_a_new_one(self):
        self.check(f"""
c.Execute "DELETE FROM guests"
Set rs = c.Execute("{self.kill[1]}")
first = rs(0)
c.BeginTrans
c.Execute "INSERT INTO guests (name) VALUES ('a')"
Set rs = Nothing
Set c = Nothing
Set c = CreateObject("ADODB.Connection")
c.Open WScript.Arguments(0)
WScript.Echo c.Execute("{self.kill[1]}")(0) = first, c.Execute("SELECT count(*) FROM guests")(0)
c.Execute "CREATE TEMPORARY TABLE mine (a int)"
c.Close
c.Open WScript.Arguments(0)
On Error Resume Next
c.Execute "SELECT * FROM mine"
Failed
""", "True 0\n-2147217865\n")

    def test_schemas(self):
        self.check("""
c.Execute "CREATE INDEX by_name ON guests (name)"
Set rs = c.OpenSchema(20, Array(Empty, Empty, "guests"))
WScript.Echo rs("TABLE_NAME"), rs("TABLE_TYPE"), rs.RecordCount
Set rs = c.OpenSchema(4, Array(Empty, Empty, "guests"))
Do Until rs.EOF
  n = n & rs("ORDINAL_POSITION") & rs("COLUMN_NAME") & ":" & rs("DATA_TYPE") & " "
  rs.MoveNext
Loop
WScript.Echo n
Set rs = c.OpenSchema(28, Array(Empty, Empty, "guests"))
WScript.Echo rs("COLUMN_NAME"), rs("ORDINAL")
Set rs = c.OpenSchema(12, Array(Empty, Empty, "guests"))
rs.Filter = "INDEX_NAME = 'by_name'"
WScript.Echo rs("COLUMN_NAME"), rs("UNIQUE"), rs("PRIMARY_KEY")
rs.Filter = "PRIMARY_KEY = True"
WScript.Echo rs("COLUMN_NAME"), rs("UNIQUE")
""", f"guests TABLE 1\n{self.columns}\nid 1\nname False False\nid True\n")

    def test_a_procedure(self):
        self.check(f"""
On Error Resume Next
c.Execute "DROP {self.procedure[0]} twice"
On Error Goto 0
c.Execute "CREATE {self.procedure[1]}"
Set cmd = CreateObject("ADODB.Command")
cmd.ActiveConnection = c
cmd.CommandText = "twice"
cmd.CommandType = 4
cmd.Parameters.Append cmd.CreateParameter("n", 3, 1, , 21)
WScript.Echo cmd.Execute()(0)
Set rs = c.OpenSchema(16)
rs.Filter = "PROCEDURE_NAME = 'twice'"
WScript.Echo rs.EOF
""", "42\nFalse\n")

    def test_many_rows_and_other_statements_between(self):
        self.check("""
c.Execute "INSERT INTO guests (name) VALUES ('a')"
For i = 1 To 12
  c.Execute "INSERT INTO guests (name) SELECT name FROM guests"
Next
Set rs = c.Execute("SELECT id, name FROM guests")
n = 0
Do Until rs.EOF
  n = n + 1
  If n Mod 1000 = 0 Then i = c.Execute("SELECT count(*) FROM guests")(0)
  rs.MoveNext
Loop
WScript.Echo n, i
rs.Close
rs.CursorLocation = 3
rs.PageSize = 100
rs.Open "SELECT id FROM guests", c
rs.AbsolutePage = 3
WScript.Echo rs.RecordCount, rs.PageCount, rs.AbsolutePosition
""", "4096 4096\n4096 41 201\n")

    def test_commands_end_at_their_time(self):
        begin = time.monotonic()
        self.check(f"""
c.CommandTimeout = 1
On Error Resume Next
c.Execute "{self.sleep}"
Failed
WScript.Echo c.Execute("SELECT 1")(0)
Set cmd = CreateObject("ADODB.Command")
cmd.ActiveConnection = c
cmd.CommandTimeout = 1
cmd.CommandText = "{self.sleep}"
cmd.Execute
Failed
""", "-2147217871\n1\n-2147217871\n")
        self.assertLess(time.monotonic() - begin, 8)

    def test_commands_end_at_the_scripts_time(self):
        begin = time.monotonic()
        result = run(OPEN + f'c.Execute "{self.sleep}"', self.text, limit=1)
        self.assertIn("time", result)
        self.assertLess(time.monotonic() - begin, 8)

    def test_a_server_that_stands_still(self):
        begin = time.monotonic()
        database = server(self.kind)
        source = OPEN + "WScript.StdOut.WriteLine 1\nWScript.StdIn.ReadLine\n"
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "test.vbs"
            path.write_text(source + 'c.Execute "SELECT 1"')
            script = subprocess.Popen(
                [str(app_folder() / "qvscript"), "--time-limit=2", str(path), self.text],
                stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            try:
                self.assertEqual(script.stdout.readline(), b"1\n")
                database.freeze()
                output, errors = script.communicate(b"go\n", timeout=PATIENCE)
            finally:
                database.thaw()
                script.kill()
                script.communicate()
        self.assertIn(b"time", errors)
        self.assertLess(time.monotonic() - begin, 10)
        self.check('WScript.Echo c.Execute("SELECT 1")(0)', "1\n")

    def test_a_server_that_ends(self):
        self.check(f"""
Set other = CreateObject("ADODB.Connection")
other.Open WScript.Arguments(0)
c.Execute "{self.kill[0]}" & other.Execute("{self.kill[1]}")(0) & "{self.kill[2]}"
On Error Resume Next
other.Execute "SELECT 1"
Failed
other.Close
other.Open
WScript.Echo other.State
""".replace("other.Open\n", "other.Open WScript.Arguments(0)\n"), "-2147467259\n1\n")


class AtPostgreSql(Scripts, unittest.TestCase):
    kind = PostgreSql
    parts = {}
    table = ("CREATE TABLE guests (id serial PRIMARY KEY, name varchar(50) NOT NULL, note text, "
             "price numeric(18,4), seen timestamp, shown boolean, pic bytea, big bigint, "
             "ratio double precision DEFAULT 0.5)")
    columns = "1id:3 2name:202 3note:203 4price:131 5seen:135 6shown:11 7pic:205 8big:20 9ratio:5 "
    procedure = ("FUNCTION", "FUNCTION twice(n int) RETURNS int AS 'SELECT n * 2' LANGUAGE SQL")
    sleep = "SELECT pg_sleep(20)"
    kill = ("SELECT pg_terminate_backend(", "SELECT pg_backend_pid()", ")")

    def test_special_types(self):
        self.check("""
Set rs = c.Execute("SELECT 12.5::money AS m, '12:34:56'::time AS t, '2024-05-06'::date AS d, " & _
  "'a0eebc99-9c0b-4ef8-bb6d-6bb9bd380a11'::uuid AS g, true AS b, 7::smallint AS s, " & _
  "'{""a"": 1}'::jsonb AS j, '-0.05'::money AS n, 3000000000 AS big")
For Each f In rs.Fields
  WScript.Echo f.Name, f.Type, TypeName(f.Value), f.Value
Next
""", "m 6 Currency 12.5\nt 134 Date 12:34:56 PM\nd 133 Date 5/6/2024\n"
            "g 72 String {A0EEBC99-9C0B-4EF8-BB6D-6BB9BD380A11}\nb 11 Boolean True\n"
            's 2 Integer 7\nj 202 String {"a": 1}\nn 6 Currency -0.05\nbig 20 Double 3000000000\n')

    def test_names_keep_their_case(self):
        self.check("""
c.Execute "CREATE TEMP TABLE ""My Guests"" (""Id"" serial PRIMARY KEY, ""Full Name"" text)"
Set rs = CreateObject("ADODB.Recordset")
rs.Open "[My Guests]", c, 1, 3, 2
rs.AddNew "Full Name", "A"
rs("Full Name") = "B"
rs.Update
WScript.Echo rs("Id"), c.Execute("SELECT ""Full Name"" FROM ""My Guests"" ")(0)
""", "1 B\n")


class AtMariaDb(Scripts, unittest.TestCase):
    kind = MariaDb
    parts = {"Option": 67108864}  # several statements in a text
    table = ("CREATE TABLE guests (id int AUTO_INCREMENT PRIMARY KEY, name varchar(50) NOT NULL, "
             "note longtext, price decimal(18,4), seen datetime, shown bit(1), pic longblob, "
             "big bigint, ratio double DEFAULT 0.5)")
    columns = "1id:3 2name:202 3note:203 4price:131 5seen:135 6shown:11 7pic:205 8big:20 9ratio:5 "
    procedure = ("PROCEDURE", "PROCEDURE twice(n int) SELECT n * 2")
    sleep = "SELECT sleep(20)"
    kill = ("KILL ", "SELECT connection_id()", "")

    def test_special_types(self):
        self.check("""
c.Execute "CREATE TEMPORARY TABLE t (s tinyint, u tinyint unsigned, i int unsigned, t time, " & _
  "d date, y year, e enum('a','b'), z datetime, big bigint unsigned)"
c.Execute "SET sql_mode = ''"
c.Execute "INSERT INTO t VALUES (-5, 200, 4000000000, '12:34:56', '2024-05-06', 2024, 'b', " & _
  "'0000-00-00', 18446744073709551615)"
For Each f In c.Execute("SELECT * FROM t").Fields
  WScript.Echo f.Name, f.Type, TypeName(f.Value), f.Value & ""
Next
""", "s 16 Integer -5\nu 17 Byte 200\ni 20 Double 4000000000\nt 134 Date 12:34:56 PM\n"
            "d 133 Date 5/6/2024\ny 3 Long 2024\ne 130 String b\nz 135 Null \n"
            "big 20 Double 1.84467440737096E+19\n")


def opened(text, *login):
    words = "".join(f', "{word}"' for word in login)
    return run(f"""
Set c = CreateObject("ADODB.Connection")
c.ConnectionTimeout = 1
On Error Resume Next
c.Open WScript.Arguments(0){words}
WScript.Echo Err.Number, c.State
If c.Errors.Count > 0 Then WScript.Echo c.Errors(0).SQLState
""", text)


class Texts(unittest.TestCase):
    def test_no_such_source_or_driver(self):
        for text in ("DSN=missing", "missing", "Driver={No Such Driver};Server=x", "Provider=MSDASQL",
                     "FileDSN=/etc/passwd", "Driver=/usr/lib/x86_64-linux-gnu/libc.so.6",
                     "Provider=MSDASQL;Extended Properties='Driver={None};Server=a'"):
            with self.subTest(text=text):
                self.assertEqual(opened(text), "-2147467259 0\nIM002\n")

    def test_customary_names_of_drivers_and_providers(self):
        base = server(PostgreSql)
        login = {"User Id": base.user, "Password": '"s;e\'c}r=et"'}
        place = {"Data Source": "127.0.0.1", "Port": base.port, "Initial Catalog": "postgres"}
        self.assertEqual(opened(connection_text({"Provider": "PGOLEDB", **place, **login})), "0 1\n")
        text = base.text(Driver="{PostgreSQL ODBC Driver(UNICODE)}")
        self.assertEqual(opened(text), "0 1\n")
        self.assertEqual(opened(f'Provider=MSDASQL;Extended Properties="{text}"'), "0 1\n")
        other = server(MariaDb)
        self.assertEqual(opened(other.text(Driver="{MySQL ODBC 3.51 Driver}", Option=3)), "0 1\n")

    def test_sql_server_texts_reach_the_named_place(self):
        """There is no such server here; what a client says first shows that it was found."""
        for text in ("Provider=SQLOLEDB;Data Source=127.0.0.1,{};Initial Catalog=x;User ID=a;"
                     "Password=b",
                     "Driver={{SQL Server}};Server=tcp:127.0.0.1,{};Database=x;UID=a;PWD=b",
                     "Provider=SQLNCLI11;Server=(local),{};Database=x;Uid=a;Pwd=b",
                     "Driver={{FreeTDS}};Server=127.0.0.1;Port={};UID=a;PWD=b"):
            with self.subTest(text=text), socket.create_server(("127.0.0.1", 0)) as listener:
                heard = []
                port = listener.getsockname()[1]

                def listen():
                    client = listener.accept()[0]
                    listener.close()  # clients would try again
                    client.settimeout(PATIENCE)
                    with client:
                        heard.append(client.recv(100))

                thread = threading.Thread(target=listen)
                thread.start()
                result = opened(text.format(port))
                thread.join(PATIENCE)
                self.assertTrue(heard and heard[0], "nobody came")
                self.assertRegex(result, r"^-2147\d{6} 0\n(08|HYT)")

    def test_a_server_that_answers_nobody(self):
        with socket.create_server(("127.0.0.1", 0)) as listener:
            port = listener.getsockname()[1]
            for driver in ("PostgreSQL Unicode", "MariaDB Unicode", "FreeTDS"):
                with self.subTest(driver=driver):
                    begin = time.monotonic()
                    text = f"Driver={{{driver}}};Server=127.0.0.1;Port={port};UID=a;PWD=b;Database=x"
                    self.assertRegex(opened(text), r"^-2147\d{6} 0\n")
                    self.assertLess(time.monotonic() - begin, 10)
