'=== a catalog makes a file with tables
Set cat = CreateObject("ADOX.Catalog")
cat.Create "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=new.mdb"
Set t = CreateObject("ADOX.Table")
t.Name = "people"
Set col = CreateObject("ADOX.Column")
col.Name = "id"
col.Type = 3
Set col.ParentCatalog = cat
col.Properties("AutoIncrement") = True
t.Columns.Append col
t.Columns.Append "name", 202, 40
t.Columns.Append "born", 7
cat.Tables.Append t
For Each t In cat.Tables
  Echo t.Name, t.Type, t.Columns.Count, t.Columns("name").DefinedSize
Next
'> people TABLE 3 40
cat.Tables("people").Indexes.Append "byName", "name"
cat.Tables("people").Columns.Append "note", 203
cat.ActiveConnection.Execute "INSERT INTO people (name, born) VALUES ('Ann', #2/29/2000#)"
Set rs = cat.ActiveConnection.Execute("SELECT * FROM people")
Echo rs("id"), rs("name"), rs("born"), rs("note").Type  '> 1 Ann 2/29/2000 203
rs.Close
cat.Tables("people").Columns.Delete "note"
cat.Tables("people").Name = "folk"
Echo cat.ActiveConnection.Execute("SELECT COUNT(*) FROM folk")(0)  '> 1
On Error Resume Next
cat.Tables.Delete "people"
Failed  '> 3265

'=== a catalog of a database that is there
Set cat = CreateObject("ADOX.Catalog")
Set cat.ActiveConnection = Db
Echo cat.Tables.Count, cat.Tables(0).Name, cat.Tables("news").Columns("price").Type  '> 1 news 6
For Each i In cat.Tables("news").Indexes
  Echo i.Name, i.PrimaryKey, i.Columns(0).Name
Next
'> PrimaryKey True id
On Error Resume Next
x = cat.Tables("none").Name
Failed  '> 3265

'=== a database is compacted into another file
Set c = CreateObject("ADODB.Connection")
c.Open "Driver=SQLite3;Database=big.db"
c.Execute "CREATE TABLE t (a TEXT)"
c.Execute "INSERT INTO t VALUES ('kept')"
c.Close
CreateObject("JRO.JetEngine").CompactDatabase "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=big.db", "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=small.mdb"
c.Open "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=small.mdb"
Echo c.Execute("SELECT a FROM t")(0)  '> kept
On Error Resume Next
CreateObject("JRO.JetEngine").CompactDatabase "Data Source=big.db", "Data Source=small.mdb"
FailedText  '> -2147217897 Database already exists.
CreateObject("JRO.JetEngine").CompactDatabase "Data Source=none.mdb", "Data Source=other.mdb"
Failed  '> -2147467259

