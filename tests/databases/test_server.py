"""Databases behind the pages of a server."""

import shutil
import unittest

from serving import Server
from servers import MariaDb, PostgreSql, server

OPEN = '<%\nSet c = CreateObject("ADODB.Connection")\nc.Open "{}"\n{}\n%>'


def page(text, source):
    return OPEN.format(text.replace('"', '""'), source)


class Pages(unittest.TestCase):
    def ask(self, running, target):
        return running.get(target).text.strip()

    def test_requests_share_a_connection_that_is_as_new(self):
        text = server(PostgreSql).text()
        pages = {
            "id.qvs": page(text, 'Response.Write c.Execute("SELECT pg_backend_pid()")(0)'),
            "set.qvs": page(text, 'c.Execute "CREATE TEMP TABLE mine (a int)"\n'
                                  'c.Execute "SET statement_timeout = 12345"\nc.BeginTrans\n'
                                  'c.Execute "SELECT pg_advisory_lock(7)"'),
            "look.qvs": page(text, 'Response.Write c.Execute("SELECT count(*) FROM pg_class WHERE '
                                   'relname = \'mine\'")(0) & " " & '
                                   'c.Execute("SHOW statement_timeout")(0) & " " & '
                                   'c.Execute("SELECT count(*) FROM pg_locks WHERE locktype = '
                                   '\'advisory\'")(0)'),
        }
        with Server(pages) as running:
            first = self.ask(running, "/id.qvs")
            self.assertTrue(first.isdigit(), first)
            self.ask(running, "/set.qvs")
            self.assertEqual(self.ask(running, "/look.qvs"), "0 0 0")
            self.assertEqual(self.ask(running, "/id.qvs"), first)

    def test_a_server_that_was_started_again(self):
        database = MariaDb()
        try:
            database.wait_until_ready()
            with Server({"a.qvs": page(database.text(),
                                       'Response.Write c.Execute("SELECT 1")(0)')}) as running:
                self.assertEqual(self.ask(running, "/a.qvs"), "1")
                database.restart()
                self.assertEqual(self.ask(running, "/a.qvs"), "1")
        finally:
            database.stop()

    def test_settings_say_where_a_database_has_gone(self):
        text = server(PostgreSql).text()
        old = "Provider=SQLOLEDB;Data Source=OLD;Initial Catalog=shop;User ID=sa;Password=x"
        running = Server({"a.qvs": page(old, 'Response.Write c.Properties("DBMS Name") & " " & '
                                             'c.ConnectionString')})
        key = running.registry / "HKEY_LOCAL_MACHINE/Software/Ardenfell/Quorvane/Server"
        key.mkdir()
        (key / "Databases.ini").write_text(f"1=nothing -> DSN=x\n2=*catalog=SHOP;* -> {text}\n")
        with running:
            self.assertEqual(self.ask(running, "/a.qvs"),
                             "PostgreSQL " + old.removesuffix("Password=x"))

    def test_a_file_that_was_replaced(self):
        """What another program has put in a file's place is what pages see."""
        source = 'Response.Write c.Execute("SELECT v FROM t")(0)'
        with Server() as running:
            folder = running.folder / "main"
            one, two = folder / "one.db", folder / "two.db"
            for path in (one, two):
                running.put("make.qvs", page(
                    f"Driver=SQLite3;Database={path}",
                    'c.Execute "CREATE TABLE t (v TEXT)"\n'
                    f'c.Execute "INSERT INTO t VALUES (\'{path.stem}\')"'))
                self.ask(running, "/make.qvs")
            running.put("read.qvs", page(f"Driver=SQLite3;Database={one}", source))
            self.assertEqual(self.ask(running, "/read.qvs"), "one")
            self.assertEqual(self.ask(running, "/read.qvs"), "one")
            shutil.move(two, one)
            self.assertEqual(self.ask(running, "/read.qvs"), "two")

