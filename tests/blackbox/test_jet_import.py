"""Access files that scripts open: what of them comes to stand in the SQLite files beside them, and
what becomes of damaged ones."""

import csv
import datetime
import io
import os
import pathlib
import random
import shutil
import sqlite3
import subprocess
import tempfile
import time
import unittest

import jet_file
from jet_file import Column, Index, Query, Relation, Table
from serving import PATIENCE, Server, app_folder

MOMENT = datetime.datetime(2024, 1, 31, 13, 45, 30)


def all_types(wide):
    columns = [
        Column("id", jet_file.LONG, auto=True), Column("title", jet_file.TEXT, 50),
        Column("body", jet_file.MEMO), Column("picture", jet_file.OLE),
        Column("shown", jet_file.BOOL), Column("small", jet_file.BYTE),
        Column("short", jet_file.SHORT), Column("price", jet_file.MONEY, default="1.5"),
        Column("single", jet_file.SINGLE), Column("double", jet_file.DOUBLE),
        Column("added", jet_file.DATE, default="=Now()"), Column("code", jet_file.BINARY, 20),
        Column("key", jet_file.GUID), Column("exact", jet_file.NUMERIC, digits=12, places=3)]
    rows = [
        [3, "Hello w\xf6rld", "short", b"\x01\x02", True, 255, -5, "99999999999.9999", 1.5, -2.25,
         MOMENT, b"a\0b", "12345678-1234-5678-9abc-def012345678", "-1234567.891"],
        [4] + [None] * 3 + [False] + [None] * 9,
        [7, "x", "m" * 3000, bytes(range(256)) * 40, True, 0, 32767, "-0.0001", 0.25, 1e300,
         datetime.datetime(1899, 12, 29, 6), b"x" * 20, None, "0.001"],
        [8, "\u0416\u20ac\U0001F600" if wide else "y", "\u0416\U0001F600." * 3000 if wide else "long " * 2000,
         b"", False, 1, 1, "0.1", 1.0, 1.0, datetime.datetime(1999, 12, 31), None, None, None]]
    return Table("news", columns, rows,
                 [Index("PrimaryKey", ["id"], primary=True),
                  Index("by_title", ["-title", "added"]), Index("code", ["code"], unique=True)],
                 last_number=41, deleted=[[99] + [None] * 13], moved=[[9, "moved"] + [None] * 12])


def comments():
    columns = [Column("id", jet_file.LONG, auto=True), Column("news", jet_file.LONG),
               Column("text", jet_file.TEXT, 255), Column("mail", jet_file.TEXT, 255),
               Column("page", jet_file.TEXT, 255)]
    rows = [[1, 3, "a" * 200, "b" * 100, "c" * 30], [2, 7, "", "y", None]]
    return Table("comments", columns, rows, [Index("PrimaryKey", ["id"], primary=True)], 2)


def shop():
    columns = [Column("country", jet_file.TEXT, 2), Column("number", jet_file.SHORT),
               Column("name", jet_file.TEXT, 30)]
    return Table("Shop list", columns, [["de", 1, "A"], ["de", 2, "B"], ["fr", 1, "C"]],
                 [Index("PrimaryKey", ["country", "number"], primary=True)])


def many_columns():
    columns = [Column("column %d" % i, jet_file.LONG) for i in range(200)]
    return Table("wide", columns, [list(range(200)), list(range(200, 400))])


RELATIONS = [Relation("newscomments", "comments", ["news"], "news", ["id"], 0x1000),
             Relation("loose", "comments", ["id"], "news", ["short"], 2)]


class JetTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quorvane-jet-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.file = self.folder / "site.mdb"
        self.copy = self.folder / "site.sqlite.mdb"

    def script(self, source, *options, program=None):
        """What a script writes; db(text) opens the file with something behind its name."""
        path = self.folder / "script.vbs"
        path.write_text("Function db(more)\nSet db = CreateObject(\"ADODB.Connection\")\n"
                        "db.Open \"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=%s\" & more\n"
                        "End Function\n" % self.file + source)
        result = subprocess.run([str(program or app_folder() / "qvscript"), *options, str(path)],
                                capture_output=True, timeout=5 * PATIENCE)
        self.assertEqual(result.stderr, b"")
        return result.stdout.decode("latin-1")

    def by_hand(self, *arguments, environment=None):
        return subprocess.run([str(app_folder() / "qvsctl"), "import", *map(str, arguments)],
                              capture_output=True, text=True, timeout=5 * PATIENCE,
                              env={**os.environ, **(environment or {})})

    def rows(self, query):
        with sqlite3.connect(self.copy) as connection:
            return connection.execute(query).fetchall()

    def files(self):
        return sorted(path.name for path in self.folder.iterdir())


class Content(JetTest):
    def make(self, version):
        self.file.write_bytes(jet_file.make(
            [all_types(version != jet_file.JET3), comments(), shop(), many_columns()], version,
            relations=RELATIONS))

    def test_the_files_are_ones(self):
        """By the tools of the library that reads them."""
        for version, name in [(jet_file.JET3, "JET3"), (jet_file.JET4, "JET4"),
                              (jet_file.ACE, "ACE12")]:
            self.make(version)
            self.assertEqual(subprocess.check_output(["mdb-ver", self.file], text=True).strip(), name)
            text = subprocess.check_output(["mdb-export", self.file, "comments"], text=True)
            self.assertEqual(list(csv.reader(io.StringIO(text)))[1][2], "a" * 200)
            schema = subprocess.check_output(["mdb-schema", self.file, "postgres"], text=True)
            self.assertIn('FOREIGN KEY ("news") REFERENCES "news"("id") ON DELETE CASCADE', schema)
            self.assertIn('PRIMARY KEY ("country", "number")', schema)

    def test_values(self):
        for version in [jet_file.JET3, jet_file.JET4, jet_file.ACE]:
            with self.subTest(version=version):
                self.make(version)
                self.copy.unlink(missing_ok=True)
                self.assertEqual(self.script("WScript.Echo db(\"\").State"), "1\n")
                first, empty, long, wide, moved = self.rows("SELECT * FROM news ORDER BY id")
                self.assertEqual(first, (
                    3, "Hello w\xf6rld", "short", b"\x01\x02", -1, 255, -5, 99999999999.9999, 1.5,
                    -2.25, "2024-01-31 13:45:30", b"a\0b", "{12345678-1234-5678-9ABC-DEF012345678}",
                    -1234567.891))
                self.assertEqual(empty, (4, *[None] * 3, 0, *[None] * 9))
                self.assertEqual(long[2:4], ("m" * 3000, bytes(range(256)) * 40))
                self.assertEqual(long[6:12],
                                 (32767, -0.0001, 0.25, 1e300, "1899-12-29 06:00:00", b"x" * 20))
                self.assertEqual(wide[1:3], ("y", "long " * 2000) if version == jet_file.JET3 else
                                 ("\u0416\u20ac\U0001F600", "\u0416\U0001F600." * 3000))
                self.assertEqual((wide[10], moved[:2]), ("1999-12-31", (9, "moved")))
                self.assertEqual(self.rows("SELECT * FROM comments"),
                                 [(1, 3, "a" * 200, "b" * 100, "c" * 30), (2, 7, None, "y", None)])
                self.assertEqual(self.rows("SELECT * FROM wide")[1], tuple(range(200, 400)))

    def test_scripts_see_declared_types(self):
        self.make(jet_file.JET4)
        expected = ("id:3:Long title:202:String body:203:String picture:205:Byte() shown:11:Boolean "
                    "small:17:Byte short:2:Integer price:6:Currency single:4:Single "
                    "double:5:Double added:7:Date code:204:Byte() key:72:String exact:131:Double \n")
        self.assertEqual(self.script(
            "For Each f In db(\"\").Execute(\"SELECT * FROM news WHERE id = 3\").Fields\n"
            "s = s & f.Name & \":\" & f.Type & \":\" & TypeName(f.Value) & \" \"\nNext\n"
            "WScript.Echo s"), expected)
        self.assertEqual(self.script("WScript.Echo db(\"\").Execute(\"SELECT title FROM news\")"
                                     "(0).DefinedSize"), "50\n")

    def test_keys_go_on(self):
        self.make(jet_file.JET4)
        self.assertEqual(self.script(
            "Set c = db(\"\")\nSet r = CreateObject(\"ADODB.Recordset\")\n"
            "r.Open \"news\", c, 1, 3\nr.AddNew\nr(\"title\") = \"new\"\nr.Update\n"
            "WScript.Echo r(\"id\"), r(\"price\"), r(\"shown\"), DateDiff(\"h\", r(\"added\"), Now)\n"
            "c.Execute \"INSERT INTO comments (news, text) VALUES (42, 'mine')\"\n"
            "WScript.Echo c.Execute(\"SELECT @@IDENTITY\")(0)\n"
            "On Error Resume Next\n"
            "c.Execute \"INSERT INTO comments (news, text) VALUES (1000, 'nobody''s')\"\n"
            "WScript.Echo Err.Number\nErr.Clear\n"
            "c.Execute \"INSERT INTO [Shop list] VALUES ('DE', 2, 'again')\"\n"
            "WScript.Echo Err.Number\nErr.Clear\n"
            "c.Execute \"DELETE FROM news WHERE id IN (3, 42)\"\n"
            "WScript.Echo Err.Number, c.Execute(\"SELECT COUNT(*) FROM comments\")(0)"),
            "42 1.5 False 0\n3\n-2147467259\n-2147467259\n0 1\n")

    def test_indexes(self):
        self.make(jet_file.JET4)
        self.assertEqual(self.by_hand(self.file).returncode, 0)
        indexes = dict(self.rows("SELECT name, sql FROM sqlite_master WHERE type = 'index' AND sql "
                                 "IS NOT NULL"))
        self.assertEqual(indexes, {
            "by_title": "CREATE INDEX by_title ON news (title DESC, added)",
            "code": "CREATE UNIQUE INDEX code ON news (code)",
            "newscomments": "CREATE INDEX newscomments ON comments (news)"})

    def test_values_that_are_equal_here(self):
        """A file with rows that a key can't tell apart keeps its first."""
        columns = [Column("id", jet_file.LONG, auto=True), Column("name", jet_file.TEXT, 9)]
        self.file.write_bytes(jet_file.make([Table(
            "t", columns, [[1, "a"], [1, "b"], [2, "A"]], [Index("name", ["name"], unique=True)])]))
        result = self.by_hand(self.file)
        self.assertEqual(result.returncode, 0)
        self.assertIn(": 1 row of the table t have a key that is there already", result.stdout)
        self.assertIn(": the index name of the table t has equal values and is not unique",
                      result.stdout)
        self.assertEqual(self.rows("SELECT * FROM t"), [(1, "a"), (2, "A")])

    def test_a_table_of_many_pages(self):
        columns = [Column("id", jet_file.LONG, auto=True), Column("text", jet_file.TEXT, 255)]
        for version in [jet_file.JET3, jet_file.JET4]:
            count = 14000
            self.file.write_bytes(jet_file.make(
                [Table("t", columns, [[i, "%0200d" % i] for i in range(1, count + 1)])], version))
            self.assertEqual(self.by_hand(self.file).returncode, 0)
            self.assertEqual(self.rows("SELECT COUNT(*), SUM(id), MAX(text) FROM t"),
                             [(count, count * (count + 1) // 2, "%0200d" % count)])

    def test_saved_queries(self):
        kind, select = (0, None, None, None, None), (1, 1, None, None, None)
        end = (255, None, None, None, None)
        queries = [
            Query("latest", [kind, select, (3, 16, None, "2", None), (5, None, None, "news", None),
                             (6, 0, "news.id", None, None), (6, 0, "[title] & '!'", "heading", None),
                             (8, None, "news.short Is Not Null", None, None),
                             (11, None, "news.id", "D", None), end]),
            Query("of latest", [kind, select, (3, 1, None, None, None),
                                (5, None, None, "latest", "l"), (8, None, "l.id > 3", None, None)]),
            Query("spoken of", [kind, select, (3, 2, None, None, None),
                                (5, None, None, "comments", "c"), (5, None, None, "news", None),
                                (6, 0, "news.title", None, None), (6, 0, "Count(c.id)", "n", None),
                                (7, 3, "c.news = news.id", "c", "news"),
                                (9, None, "news.title", None, None),
                                (10, None, "Count(c.id) > 0", None, None)]),
            Query("asks", [kind, select, (2, 4, None, "which", None), (5, None, None, "news", None)]),
            Query("deletes", [kind, (1, 5, None, None, None), (5, None, None, "news", None)]),
            Query("of nothing", [kind, select, (5, None, None, "asks", None)]),
            Query("calls", [kind, select, (5, None, None, "news", None),
                            (6, 0, "MyFunction([title])", "x", None)])]
        for version in [jet_file.JET3, jet_file.JET4]:
            self.file.write_bytes(jet_file.make([all_types(False), comments()], version,
                                                queries=queries))
            by_tool = subprocess.check_output(["mdb-queries", self.file, "latest"], text=True)
            self.assertIn("SELECT TOP 2 news.id,[title] & '!' FROM [news]", by_tool)
            said = self.by_hand(self.file).stdout
            for name in ["asks", "deletes", "of nothing", "calls"]:
                self.assertIn(": the query %s is left out\n" % name, said)
            self.assertEqual(self.script(
                "Set c = db(\"\")\n"
                "WScript.Echo c.Execute(\"latest\").GetString(, , \",\", \";\")\n"
                "WScript.Echo c.Execute(\"SELECT * FROM [of latest]\").GetString(, , \",\", \";\")\n"
                "WScript.Echo c.Execute(\"[spoken of]\").GetString(, , \",\", \";\")\n"),
                "8,y!;7,x!;\n8,y!;7,x!;\nHello w\xf6rld,1;x,1;\n")

    def test_linked_tables_are_told(self):
        linked = Table("elsewhere", [Column("a", jet_file.LONG)], [], kind=6)
        self.file.write_bytes(jet_file.make([shop(), linked]))
        self.assertIn(": the table elsewhere is linked to another file", self.by_hand(self.file).stdout)

    def test_code_pages(self):
        """The file's own is taken, and the one of the settings instead of it."""
        table = Table("t", [Column("name", jet_file.TEXT, 50), Column("more", jet_file.MEMO)],
                      [["\u041f\u0440\u0438\u0432\u0435\u0442", "\u0434\u0430" * 2000]])
        settings = self.folder / "HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane"
        settings.mkdir(parents=True)
        (settings / "Server.ini").write_text("JetCodePage=1251\n")
        self.file.write_bytes(jet_file.make([table], jet_file.JET3, "cp1251"))
        self.by_hand(self.file)
        self.assertEqual(self.rows("SELECT * FROM t"), [tuple(table.rows[0])])
        self.file.write_bytes(jet_file.make([table], jet_file.JET3, "windows-1251"))  # says 1252
        self.by_hand(self.file)
        self.assertEqual(self.rows("SELECT name FROM t"), [("\xcf\xf0\xe8\xe2\xe5\xf2",)])
        self.by_hand(self.file, environment={"QUORVANE_REGISTRY": str(self.folder)})
        self.assertEqual(self.rows("SELECT * FROM t"), [tuple(table.rows[0])])


class Copies(JetTest):
    def make(self, text, version=jet_file.JET4, **options):
        table = Table("t", [Column("a", jet_file.TEXT, 20)], [[text]])
        self.file.write_bytes(jet_file.make([table], version, **options))

    def read(self, more=""):
        return self.script("WScript.Echo db(\"%s\").Execute(\"SELECT a FROM t\")(0)" % more)

    def test_once_and_again_when_the_file_is_newer(self):
        self.make("one")
        before = self.file.read_bytes()
        self.assertEqual(self.read(), "one\n")
        self.script("db(\"\").Execute \"UPDATE t SET a = 'changed'\"")
        self.assertEqual(self.read(), "changed\n")
        self.assertEqual(self.file.read_bytes(), before)
        self.assertEqual(self.files(), ["script.vbs", "site.mdb", "site.sqlite.mdb"])
        self.make("two")
        later = time.time() + 5
        os.utime(self.file, (later, later))
        self.assertEqual(self.read(), "two\n")
        with sqlite3.connect(self.folder / "site.sqlite-before.mdb") as kept:
            self.assertEqual(kept.execute("SELECT a FROM t").fetchall(), [("changed",)])

    def test_a_copy_in_use_stays(self):
        self.make("one")
        self.assertEqual(self.read(), "one\n")
        self.make("two")
        with sqlite3.connect(self.copy) as writer:
            writer.execute("UPDATE t SET a = 'half'")
            importing = subprocess.Popen([str(app_folder() / "qvsctl"), "import", self.file],
                                         stdout=subprocess.PIPE)
            time.sleep(1)
            self.assertIsNone(importing.poll())
            writer.commit()
        importing.communicate(timeout=PATIENCE)
        with sqlite3.connect(self.folder / "site.sqlite-before.mdb") as kept:
            self.assertEqual(kept.execute("SELECT a FROM t").fetchall(), [("half",)])
        self.assertEqual(self.rows("SELECT a FROM t"), [("two",)])

    def test_passwords(self):
        wrong = ("On Error Resume Next\nSet c = db(\"%s\")\n"
                 "WScript.Echo Err.Number & \" \" & Err.Description")
        for version in [jet_file.JET3, jet_file.JET4]:
            self.make("in", version, password="S3cret")
            self.copy.unlink(missing_ok=True)
            for given in ["", ";Jet OLEDB:Database Password=s3cret"]:
                self.assertEqual(self.script(wrong % given), "-2147217843 Not a valid password.\n")
                self.assertFalse(self.copy.exists())
            for _ in range(2):
                self.assertEqual(self.read(";Jet OLEDB:Database Password=S3cret"), "in\n")
            self.assertEqual(self.script(wrong % ""), "-2147217843 Not a valid password.\n")

    def test_encrypted(self):
        self.make("in", jet_file.ACE)
        content = bytearray(self.file.read_bytes())
        content[0x3E] ^= 1
        self.file.write_bytes(content)
        self.assertIn("Unrecognized database format '%s': it is encrypted." % self.file, self.script(
            "On Error Resume Next\nSet c = db(\"\")\nWScript.Echo Err.Description"))

    def test_missing(self):
        self.assertEqual(self.script("On Error Resume Next\nSet c = db(\"\")\n"
                                     "WScript.Echo Err.Number & Err.Description"),
                         "-2147467259Could not find file '%s'.\n" % self.file)
        result = self.by_hand(self.file)
        self.assertEqual((result.returncode, result.stdout),
                         (1, "Import of %s: failed, it can't be read\n" % self.file))
        (self.folder / "x.txt").write_text("text")
        self.assertIn("failed, it is no Access file", self.by_hand(self.folder / "x.txt").stdout)

    def test_a_place_for_the_copy(self):
        """A name that is too long with what comes to stand behind it has none."""
        self.file = self.folder / ("x" * 240 + ".mdb")
        self.make("one")
        said = self.by_hand(self.file)
        self.assertEqual(said.returncode, 1)
        self.assertIn(": failed, no copy can be made beside it", said.stdout)
        self.file = self.folder / "a\x1b[7mb.mdb"
        self.make("one")
        self.assertIn("/a\\x1b[7mb.mdb: begins", self.by_hand(self.file).stdout)

    def test_compacting(self):
        self.make("one")
        self.script("Set j = CreateObject(\"JRO.JetEngine\")\n"
                    "p = \"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=%s\"\n"
                    "j.CompactDatabase p & \"site.mdb\", p & \"new.mdb\"" % (str(self.folder) + "/"))
        with sqlite3.connect(self.folder / "new.mdb") as new:
            self.assertEqual(new.execute("SELECT a FROM t").fetchall(), [("one",)])


class Damage(JetTest):
    """Ends in a result or in an error, soon, and leaves nothing lying about."""

    def check(self, content):
        self.file.write_bytes(content)
        start = time.monotonic()
        result = self.by_hand(self.file)
        self.assertLess(time.monotonic() - start, PATIENCE)
        last = result.stdout.strip().splitlines()[-1]
        if result.returncode == 0:
            self.assertIn(": done, ", last)
        else:
            self.assertEqual(result.returncode, 1)
            self.assertRegex(last, ": failed, it (is|can't) ")
        self.assertLessEqual(set(self.files()),
                             {"site.mdb", "site.sqlite.mdb", "site.sqlite-before.mdb"})
        return result.returncode == 0

    def contents(self):
        for version in [jet_file.JET3, jet_file.JET4]:
            yield jet_file.make([all_types(False), comments()], version, relations=RELATIONS)

    def test_cut(self):
        for content in self.contents():
            for end in [0, 10, 152, 1000, *range(2048, len(content), len(content) // 12)]:
                self.check(content[:end])
            self.assertFalse(self.check(content[:2048]))

    def test_random(self):
        choices = random.Random(20240229)
        for content in self.contents():
            places = [i for i in range(0x98, len(content)) if content[i]]
            for _ in range(60):
                damaged = bytearray(content)
                for _ in range(choices.randrange(1, 6)):
                    at = choices.choice(places)
                    damaged[at:at + 4] = choices.choice([
                        bytes([choices.randrange(256)]), b"\xff\xff",
                        choices.randrange(len(content) // 2048).to_bytes(4, "little")])
                self.check(bytes(damaged))

    def test_chains_that_lead_round(self):
        for content in self.contents():
            size = 2048 if content[0x14] == 0 else 4096
            for page in range(len(content) // size):
                at = page * size
                damaged = bytearray(content)
                if content[at] == 2:  # a definition goes on on its own page
                    damaged[at + 4:at + 8] = page.to_bytes(4, "little")
                elif content[at + 4:at + 8] == b"LVAL":  # a long value goes on where it begins
                    row = at + size - (size - 20 + 4)
                    damaged[row:row + 4] = (page << 8).to_bytes(4, "little")
                else:
                    continue
                self.check(bytes(damaged))

    def test_noise(self):
        choices = random.Random(1)
        for content in self.contents():
            for _ in range(5):
                noise = bytes(choices.randrange(256) for _ in range(30000))
                self.check(content[:0x98] + noise)

    def test_a_reader_that_hangs_ends_with_the_script(self):
        """In a tree of its own, where something else stands for the reading program."""
        self.file.write_bytes(next(self.contents()))
        tree = self.folder / "app"
        tree.mkdir()
        shutil.copy(app_folder() / "qvscript", tree)
        reader = tree / "qvimport"
        reader.write_text("#!/bin/sh\nexec sleep 1000\n")
        reader.chmod(0o755)
        start = time.monotonic()
        result = subprocess.run([str(tree / "qvscript"), "--time-limit=1", self.opening()],
                                capture_output=True, timeout=PATIENCE)
        self.assertEqual(result.returncode, 1)
        self.assertLess(time.monotonic() - start, PATIENCE / 2)
        for text, reason in [("exit 3", "it can't be read to its end"),
                             ("printf F", "it can't be read to its end"),
                             ("printf F123Z", "it is damaged"),
                             ("printf F123E; exit 1", "it can't be read"),
                             ("printf F123E; sleep 1000", "it can't be read")]:
            reader.write_text("#!/bin/sh\n" + text)
            self.assertIn(reason, subprocess.run([str(tree / "qvscript"), self.opening()],
                                                 capture_output=True, text=True).stderr)
        reader.unlink()
        self.assertIn("the program qvimport can't be started", subprocess.run(
            [str(tree / "qvscript"), self.opening()], capture_output=True, text=True).stderr)
        self.assertFalse(self.copy.exists())

    def opening(self):
        path = self.folder / "open.vbs"
        path.write_text("CreateObject(\"ADODB.Connection\").Open \"Provider=Microsoft.Jet.OLEDB.4.0;"
                        "Data Source=%s\"" % self.file)
        return str(path)


class Pages(unittest.TestCase):
    def test_a_page_imports(self):
        with Server() as server:
            server.put("data/site.mdb", jet_file.make([comments()]))
            server.put("page.qvs",
                       "<%% Set c = Server.CreateObject(\"ADODB.Connection\")\n"
                       "c.Open \"DRIVER={Microsoft Access Driver (*.mdb)};DBQ=%s/data/site.mdb\"\n"
                       "Response.Write c.Execute(\"SELECT COUNT(*) FROM comments\")(0) %%>"
                       % server.root)
            self.assertEqual(server.get("/page.qvs").text, "2")
            self.assertEqual(server.get("/page.qvs").text, "2")
            server.stop()
            lines = [line.partition("data/site.mdb: ")[2]
                     for line in server.log_text().splitlines() if "Import of " in line]
            self.assertEqual(lines[:2], ["begins", "table comments, 2 rows"])
            self.assertRegex(lines[2], r"^done, 1 table with 2 rows in [0-9.]+ seconds$")
            self.assertEqual(len(lines), 3)
