'=== a new row has its number and its defaults after Update
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news WHERE 1 = 0", Db, 1, 3
rs.AddNew
rs("title") = "Fourth"
rs.Fields("shown") = True
rs.Fields("price").Value = "1.25"
rs("added") = "1/2/2024 3:04:05 PM"
Echo rs.EditMode  '> 2
rs.Update
Show rs("id").Value  '> Long 4
Show rs("hits").Value  '> Long 0
Show rs("shown").Value  '> Boolean True
Show rs("price").Value  '> Currency 1.25
Show rs("added").Value  '> Date 1/2/2024 3:04:05 PM
Echo rs.EditMode, rs.RecordCount  '> 0 1
Set again = Db.Execute("SELECT * FROM news WHERE added = #1/2/2024 15:04:05#")
Echo again("title")  '> Fourth

'=== a row is changed
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT title, hits FROM news WHERE id = 2", Db, 1, 3
rs("hits") = rs("hits") + 1
rs.Update "title", "Changed"
Echo Db.Execute("SELECT title FROM news WHERE id = 2")(0), Db.Execute("SELECT hits FROM news WHERE id = 2")(0)
'> Changed 3
rs("title") = "Never"
Echo rs("title"), rs("title").OriginalValue  '> Never Changed
rs.CancelUpdate
Echo rs("title")  '> Changed
rs.Update Array("title", "hits"), Array("Both", 9)
Echo Db.Execute("SELECT title & hits FROM news WHERE id = 2")(0)  '> Both9

'=== a row whose key is changed is changed again
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id, title FROM news WHERE id = 2", Db, 1, 3
rs("id") = 77
rs.Update
rs("title") = "Moved"
rs.Update
Echo rs("id"), Db.Execute("SELECT title FROM news WHERE id = 77")(0)  '> 77 Moved

'=== leaving a row makes its change
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news ORDER BY id", Db, 1, 3
rs("title") = "A"
rs.MoveNext
Echo Db.Execute("SELECT title FROM news WHERE id = 1")(0)  '> A
rs("title") = "B"
On Error Resume Next
rs.Close
Failed  '> 3219

'=== rows are deleted
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news ORDER BY id", Db, 1, 3
rs.Delete
On Error Resume Next
x = rs("id")
Failed  '> 3021
On Error Goto 0
rs.MoveNext
Echo rs("id"), rs.RecordCount  '> 2 2
Do Until rs.EOF
  rs.Delete
  rs.MoveNext
Loop
Echo rs.RecordCount, rs.BOF, rs.EOF, Db.Execute("SELECT COUNT(*) FROM news")(0)  '> 0 True True 0

'=== what can't be changed says so
Set rs = Db.Execute("SELECT * FROM news")
On Error Resume Next
rs("title") = "x"
FailedText
'> 3251 Current Recordset does not support updating. This may be a limitation of the provider, or of the selected locktype.
rs.AddNew
Failed  '> 3251
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT COUNT(*) AS n FROM news", Db, 1, 3
rs("n") = 5
Failed  '> 3251
rs.Close
rs.Open "SELECT * FROM news", Db, 1, 3
rs("title") = String(51, "x")
FailedText  '> -2147217887 Multiple-step operation generated errors. Check each status value.
rs("hits") = "many"
Failed  '> 3421
rs.CancelUpdate
rs("id") = 2
rs.Update
Failed  '> -2147467259

'=== a batch waits for its end
Set rs = CreateObject("ADODB.Recordset")
rs.CursorLocation = 3
rs.Open "SELECT * FROM news ORDER BY id", Db, 3, 4
rs("title") = "First of all"
rs.Update
rs.MoveNext
rs.Delete
rs.AddNew
rs("title") = "New"
rs.Update
Echo Db.Execute("SELECT COUNT(*) FROM news")(0), Db.Execute("SELECT title FROM news WHERE id = 1")(0)
'> 3 First
rs.UpdateBatch
Echo Db.Execute("SELECT COUNT(*) FROM news")(0), Db.Execute("SELECT title FROM news WHERE id = 1")(0), rs("id")
'> 3 First of all 4
rs.MoveFirst
rs("title") = "Again"
rs.Update
rs.CancelBatch
Echo rs("title")  '> First of all

'=== rows of a join go to their tables
Db.Execute "CREATE TABLE notes (id COUNTER PRIMARY KEY, news_id LONG, note TEXT(20))"
Db.Execute "INSERT INTO notes (news_id, note) VALUES (2, 'n')"
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT news.title, notes.note, notes.id FROM news INNER JOIN notes ON news.id = notes.news_id", Db, 1, 3
rs("title") = "T"
rs("note") = "N"
rs.Update
Echo Db.Execute("SELECT title FROM news WHERE id = 2")(0), Db.Execute("SELECT note FROM notes")(0), rs("notes.id")
'> T N 1

'=== pictures stay byte for byte
Db.Execute "CREATE TABLE pics (id COUNTER, pic OLEOBJECT)"
Set s = CreateObject("ADODB.Stream")
s.Type = 2
s.Charset = "iso-8859-1"
s.Open
s.WriteText "a" & Chr(0) & "b"
s.Position = 0
s.Type = 1
Set rs = CreateObject("ADODB.Recordset")
rs.Open "pics", Db, 1, 3
rs.AddNew
rs("pic") = s.Read
rs.Update
Echo rs("pic").Type, rs("pic").ActualSize, TypeName(rs("pic").Value), LenB(rs("pic")), AscB(MidB(rs("pic"), 3, 1))
'> 205 3 Byte() 3 98

