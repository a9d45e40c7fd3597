'=== parameters are never part of the text
Set cmd = CreateObject("ADODB.Command")
Set cmd.ActiveConnection = Db
cmd.CommandText = "SELECT title FROM news WHERE title = ? AND id < ?"
cmd.CommandType = 1
cmd.Parameters.Append cmd.CreateParameter("title", 200, 1, 50, "x' OR '1'='1")
cmd.Parameters.Append cmd.CreateParameter("id", 3, 1, , 10)
Echo cmd.Execute.EOF  '> True
cmd(0) = "second"
Echo cmd.Execute()(0)  '> Second
cmd.Parameters("title").Value = "third"
Echo cmd.Execute()(0), cmd.Parameters.Count, cmd("id"), cmd.Parameters(1).Name, cmd.Parameters(1).Type
'> Third 2 10 id 3
For Each p In cmd.Parameters
  Echo p.Name, p.Direction, p.Size
Next
'> title 1 50
'> id 1 0
cmd.Parameters.Delete 1
Echo cmd.Parameters.Count  '> 1
On Error Resume Next
cmd.Execute
FailedText  '> -2147217904 No value given for one or more required parameters.
x = cmd.Parameters("none")
Failed  '> 3265

'=== values may come with the call
Set cmd = CreateObject("ADODB.Command")
cmd.ActiveConnection = Db
cmd.CommandText = "UPDATE news SET hits = hits + ? WHERE id <= ?"
cmd.Execute n, Array(10, 2), 129
Echo n, Db.Execute("SELECT SUM(hits) FROM news")(0)  '> 2 34

'=== parameters with names
Set cmd = CreateObject("ADODB.Command")
Set cmd.ActiveConnection = Db
cmd.CommandText = "SELECT COUNT(*) FROM news WHERE id >= @low AND id <= @high AND id >= @low"
cmd.NamedParameters = True
cmd.Parameters.Append cmd.CreateParameter("@high", 3, 1, , 3)
cmd.Parameters.Append cmd.CreateParameter("@low", 3, 1, , 2)
Echo cmd.Execute()(0)  '> 2

'=== dates and truths as parameters
Set cmd = CreateObject("ADODB.Command")
Set cmd.ActiveConnection = Db
cmd.CommandText = "SELECT id FROM news WHERE added = ? AND shown = ?"
cmd.Parameters.Append cmd.CreateParameter("d", 135, 1, , "1/31/2024 10:20:30 PM")
cmd.Parameters.Append cmd.CreateParameter("s", 11, 1, , True)
Echo cmd.Execute()(0)  '> 1
cmd.Parameters(0).Value = #1/31/2024 22:20:30#
Echo cmd.Execute()(0)  '> 1

'=== a recordset over a command
Set cmd = CreateObject("ADODB.Command")
Set cmd.ActiveConnection = Db
cmd.CommandText = "SELECT * FROM news WHERE id > ?"
cmd.Parameters.Append cmd.CreateParameter("", 3, 1, , 1)
Set rs = CreateObject("ADODB.Recordset")
rs.Open cmd, , 1, 3
Echo rs.RecordCount  '> 2
rs("title") = "By command"
rs.Update
Echo Db.Execute("SELECT title FROM news WHERE id = 2")(0)  '> By command

'=== rows affected
Db.Execute "UPDATE news SET hits = 0", n
Echo n  '> 3
Db.Execute "DELETE FROM news WHERE id = 77", n, 129
Echo n  '> 0
Db.Execute "INSERT INTO news (title) SELECT title FROM news", n
Echo n  '> 3
Echo Db.Execute("SELECT @@IDENTITY")(0), Db.Execute("SELECT @@IDENTITY AS id")("id")  '> 6 6

'=== transactions
Echo Db.BeginTrans  '> 1
Db.Execute "DELETE FROM news"
Db.RollbackTrans
Echo Db.Execute("SELECT COUNT(*) FROM news")(0)  '> 3
Db.BeginTrans
Db.Execute "DELETE FROM news WHERE id = 1"
On Error Resume Next
Db.Close
FailedText  '> 3246 Connection object cannot be explicitly closed while in a transaction.
Db.CommitTrans
Echo Db.Execute("SELECT COUNT(*) FROM news")(0)  '> 2
Db.CommitTrans
Failed  '> -2147168242

'=== failures of the database
On Error Resume Next
Db.Execute "SELECT * FROM nothing"
Failed  '> -2147217865
Echo Db.Errors.Count, Db.Errors(0).Number, Db.Errors(0).Source
'> 1 -2147217865 Microsoft JET Database Engine
For Each e In Db.Errors
  Echo e.SQLState
Next
'> 42S02
Db.Errors.Clear
Echo Db.Errors.Count  '> 0
Db.Execute "SELECT nothing FROM news"
FailedText  '> -2147217904 No value given for one or more required parameters.
Db.Execute "SELEC"
Failed  '> -2147217865
Db.Execute "SELECT * FROM news WHERE id ="
FailedText  '> -2147217900 Syntax error: incomplete query clause.
Db.Execute "INSERT INTO news (id) VALUES (1)"
Failed  '> -2147467259
Db.Execute "INSERT INTO news (nothing) VALUES (1)"
Failed  '> -2147217900
Db.Execute "SELECT Nothing(1)"
FailedText  '> -2147217900 Undefined function 'nothing' in expression.
Db.Execute "DELETE FROM news; DELETE FROM news"
FailedText  '> -2147217900 Characters found after end of SQL statement.
Db.Execute "EXEC nothing"
Failed  '> -2147217900
Db.Execute "ATTACH DATABASE 'x' AS y"
Failed  '> -2147217900
Db.Execute ""
Failed  '> -2147217900

'=== connections
Set c = CreateObject("ADODB.Connection")
Echo c.State, c.Provider, c.Version  '> 0 MSDASQL 6.1
On Error Resume Next
c.Execute "SELECT 1"
FailedText
'> 3709 The connection cannot be used to perform this operation. It is either closed or invalid in this context.
c.Open "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=none.mdb"
Failed  '> -2147467259
Echo c.State  '> 0
c.Open "Provider=Nobody.Knows.1;Data Source=x"
FailedText  '> 3706 Provider cannot be found. It may not be properly installed.
c.Open "DSN=nowhere"
FailedText
'> -2147467259 [Microsoft][ODBC Driver Manager] Data source name not found and no default driver specified
c.Provider = "Microsoft.Jet.OLEDB.4.0"
c.Open ":memory:"
Failed  '> no error
Echo c.State, c.Provider  '> 1 Microsoft.Jet.OLEDB.4.0
c.Open ":memory:"
Failed  '> 3705
c.Close
c.Close
FailedText  '> 3704 Operation is not allowed when the object is closed.
c.Open "Driver={SQLite3 ODBC Driver};Database=:memory:;"
c.Execute "CREATE TABLE t (a INTEGER, b DATETIME)"
c.Execute "INSERT INTO t VALUES (5, '2024-01-02 03:04:05'); INSERT INTO t VALUES (6, NULL)"
Set rs = c.Execute("SELECT a / 2 AS half, b FROM t ORDER BY a")
Echo rs("half"), rs("b"), rs("b").Type, c.Properties("DBMS Name")
'> 2 1/2/2024 3:04:05 AM 135 SQLite

'=== several results
Set c = CreateObject("ADODB.Connection")
c.Open "Driver=SQLite3;Database=:memory:"
Set rs = c.Execute("SELECT 1 AS a; SELECT 2 AS b UNION SELECT 3")
Echo rs("a")  '> 1
Set rs = rs.NextRecordset
Echo rs("b")  '> 2
rs.MoveNext
Echo rs("b")  '> 3
Set rs = rs.NextRecordset
Echo rs Is Nothing  '> True
c.Execute "CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT)"
Set rs = c.Execute("SET NOCOUNT ON; INSERT INTO t (a) VALUES ('x'); SELECT SCOPE_IDENTITY() AS id")
Echo rs("id")  '> 1
Set rs = c.Execute("INSERT INTO t (a) VALUES ('y'); SELECT @@IDENTITY AS id")
Echo rs.State  '> 0
Set rs = rs.NextRecordset
Echo rs("id")  '> 2
c.Execute "INSERT INTO t (a) VALUES ('z'); UPDATE t SET a = 'w'", n
Echo n, c.Execute("SELECT COUNT(*) FROM t WHERE a = 'w'")(0)  '> 4 3

'=== the schema
Set rs = Db.OpenSchema(20)
Echo rs("TABLE_NAME"), rs("TABLE_TYPE")  '> news TABLE
Set rs = Db.OpenSchema(4, Array(Empty, Empty, "news", "price"))
Echo rs("COLUMN_NAME"), rs("DATA_TYPE"), rs("ORDINAL_POSITION"), rs.RecordCount  '> price 6 6 1
Set rs = Db.OpenSchema(28)
Echo rs("TABLE_NAME"), rs("COLUMN_NAME")  '> news id
Db.Execute "CREATE INDEX byTitle ON news (title)"
Set rs = Db.OpenSchema(12)
rs.Filter = "INDEX_NAME = 'byTitle'"
Echo rs("COLUMN_NAME"), rs("UNIQUE")  '> title False
On Error Resume Next
Db.OpenSchema 99
Failed  '> 3251

