'=== what a connection keeps
Set c = CreateObject("ADODB.Connection")
Echo c.CursorLocation, c.CommandTimeout, c.ConnectionTimeout, c.Mode, c.IsolationLevel, c.Attributes, c.DefaultDatabase & "|"   '> 2 30 15 0 4096 0 |
c.CursorLocation = 3: c.CommandTimeout = 5: c.ConnectionTimeout = 6: c.Mode = 3: c.IsolationLevel = 65536: c.Attributes = 0
c.ConnectionString = "Driver=SQLite3;Database=:memory:"
c.Open
Echo InStr(c.ConnectionString, "SQLite3") > 0, c = c.ConnectionString, c.CursorLocation, c.Mode     '> True True 3 3
c.Cancel
c.Errors.Refresh
On Error Resume Next
c.Execute "SELECT * FROM none"
Failed                                         '> -2147217865
On Error Goto 0
Set e = c.Errors.Item(0)
Echo e.Number, InStr(e.Description, "none") > 0, e = e.Description, e.NativeError, e.HelpFile & "|", e.HelpContext   '> -2147217865 True True 1 | 0

'=== a command and its parameters
Set c = CreateObject("ADODB.Connection")
c.Open "Driver=SQLite3;Database=:memory:"
Set cmd = CreateObject("ADODB.Command")
Set cmd.ActiveConnection = c
cmd.Name = "sums": cmd.CommandTimeout = 7: cmd.Prepared = True
cmd.CommandText = "SELECT ? + ?"
Echo cmd.Name, cmd.CommandTimeout, cmd.Prepared, cmd.State, cmd.Properties.Count >= 0     '> sums 7 True 0 True
cmd.Parameters.Append cmd.CreateParameter("a", 131, 1)
cmd.Parameters.Append cmd.CreateParameter("b", 3, 1)
With cmd.Parameters.Item(0)
  .Precision = 9: .NumericScale = 2: .Attributes = 64
  Echo .Precision, .NumericScale, .Attributes  '> 9 2 64
End With
cmd.Parameters("a") = 1.5: cmd.Parameters("b") = 2
Echo cmd.Execute()(0)                          '> 3.5
cmd.Cancel
Set p = cmd.CreateParameter("t", 200, 1, 20, "")
p.AppendChunk "one ": p.AppendChunk "two"
Echo p.Value                                   '> one two
cmd.Parameters.Refresh
Echo cmd.Parameters.Count                      '> 2

'=== a recordset and its fields
Set c = CreateObject("ADODB.Connection")
c.Open "Driver=SQLite3;Database=:memory:"
c.Execute "CREATE TABLE t (id INTEGER PRIMARY KEY, name VARCHAR(20), note TEXT)"
c.Execute "INSERT INTO t (name) VALUES ('one'), ('two')"
Set rs = CreateObject("ADODB.Recordset")
rs.CacheSize = 10: rs.MaxRecords = 1: rs.MarshalOptions = 0: rs.StayInSync = True
Echo rs.CacheSize, rs.MaxRecords               '> 10 1
rs.Open "SELECT * FROM t", c, 3, 3
Echo rs.RecordCount, rs.Collect("name"), rs.Status, rs.Supports(&H1000400), rs.Properties.Count >= 0   '> 1 one 8 True True
rs.Cancel
rs.Resync
Echo rs.ActiveCommand Is Nothing               '> True
Echo rs.Fields.Count, rs.Fields("name").UnderlyingValue, rs.Fields("name").Attributes >= 0, rs.Fields(0).Properties.Count >= 0   '> 3 one True True
Set s = CreateObject("ADODB.Stream")
rs.Save s, 1
Echo InStr(s.ReadText, "<xml"), rs.CompareBookmarks(rs.Bookmark, rs.Bookmark)   '> 1 1
rs.Fields.Refresh: rs.Fields.Update: rs.Fields.CancelUpdate
rs.Close
Set f = CreateObject("ADODB.Recordset")
f.Fields.Append "gone", 3: f.Fields.Append "kept", 3
f.Fields.Delete "gone"
Echo f.Fields.Count, f.Fields(0).Name          '> 1 kept

'=== properties of a connection
Set c = CreateObject("ADODB.Connection")
c.Open "Driver=SQLite3;Database=:memory:"
Set p = c.Properties("DBMS Name")
Echo p.Name, p.Value, p = p.Value, p.Type, p.Attributes >= 0   '> DBMS Name SQLite True 8 True
c.Properties.Refresh
Echo c.Properties.Item(0).Name <> "", c.Properties.Count > 0   '> True True

'=== a stream's way out
Set s = CreateObject("ADODB.Stream")
s.Mode = 3: s.Open: s.WriteText "a": s.Flush: s.Cancel
Echo s.Mode, s.Size                            '> 3 4

'=== a catalog's tables, columns and indexes
Set cat = CreateObject("ADOX.Catalog")
cat.Create "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=cat.mdb"
Set t = CreateObject("ADOX.Table")
t.Name = "goods"
Set t.ParentCatalog = cat
Echo t.ParentCatalog Is Nothing                '> True
Set col = CreateObject("ADOX.Column")
col.Name = "price": col.Type = 131: col.Precision = 9: col.NumericScale = 2: col.Attributes = 2
Echo col.Precision, col.NumericScale, col.Attributes           '> 9 2 2
t.Columns.Append col
t.Columns.Append "name", 202, 20
t.Columns.Refresh
Echo t.Columns.Item("name").DefinedSize, t.Columns.Count       '> 20 2
Set i = CreateObject("ADOX.Index")
i.Name = "byName": i.Unique = True: i.IndexNulls = 0: i.Columns.Append "name"
Echo i.Unique, i.IndexNulls                    '> True 0
cat.Tables.Append t
cat.Tables("goods").Indexes.Append i
cat.Tables.Refresh
Echo cat.Tables.Item("goods").Indexes.Count, cat.Tables("goods").Indexes.Item("byName").Unique   '> 1 True
cat.Tables("goods").Indexes.Refresh
cat.Tables("goods").Indexes.Delete "byName"
Echo cat.Tables("goods").Indexes.Count         '> 0
Echo VarType(cat.Tables("goods").DateCreated), VarType(cat.Tables("goods").DateModified)   '> 1 1
cat.Tables.Delete "goods"
Echo cat.Tables.Count                          '> 0
CreateObject("JRO.JetEngine").RefreshCache cat.ActiveConnection
