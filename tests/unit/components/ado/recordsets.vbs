'=== a recordset is read from its beginning to its end
Set rs = Db.Execute("SELECT id, title FROM news ORDER BY id")
Do Until rs.EOF
  Echo rs("id"), rs(1), rs.Fields("title").Value, rs.Fields.Item(1)
  rs.MoveNext
Loop
'> 1 First First First
'> 2 Second Second Second
'> 3 Third Third Third
Echo rs.BOF, rs.EOF, rs.State  '> False True 1
rs.Close
Echo rs.State  '> 0

'=== values have the types of their columns
Set rs = Db.Execute("SELECT * FROM news WHERE id = 1")
For Each f In rs.Fields
  Echo f.Name, f.Type, f.DefinedSize, TypeName(f.Value)
Next
'> id 3 4 Long
'> title 202 50 String
'> body 203 536870910 String
'> added 7 8 Date
'> shown 11 2 Boolean
'> price 6 8 Currency
'> hits 3 4 Long
Show rs("added").Value  '> Date 1/31/2024 10:20:30 PM
Show rs("shown").Value  '> Boolean True
Show rs("price").Value  '> Currency 12.35
Show rs("body").Value  '> String "It's one"
Echo TypeName(rs("title")), IsNull(rs("body")), rs("body") & "", rs("shown") = True
'> Field False It's one True

'=== expressions keep what they are
Set rs = Db.Execute("SELECT COUNT(*), MAX(added) AS latest, MIN(id) AS least, AVG(price) AS mean, SUM(hits) AS total FROM news")
Show rs(0).Value  '> Long 3
Show rs("Expr1000").Value  '> Long 3
Show rs("latest").Value  '> Date 2/2/2024 8:00:00 AM
Show rs("least").Value  '> Long 1
Show rs("mean").Value  '> Double 337.483333333333

'=== what is not there is an error
Set rs = Db.Execute("SELECT id FROM news WHERE id = 1")
On Error Resume Next
x = rs("none")
FailedText
'> 3265 Item cannot be found in the collection corresponding to the requested name or ordinal.
x = rs(7)
Failed  '> 3265
rs.MoveNext
x = rs("id").Value
Echo Err.Source  '> ADODB.Field
FailedText
'> 3021 Either BOF or EOF is True, or the current record has been deleted. Requested operation requires a current record.
rs.MoveNext
Failed  '> 3021
rs.Close
x = rs.EOF
FailedText  '> 3704 Operation is not allowed when the object is closed.
rs.Close
Failed  '> 3704
rs.Open "SELECT 1 AS n", Db
rs.Open "SELECT 1 AS n", Db
FailedText  '> 3705 Operation is not allowed when the object is open.

'=== rows are counted by all but those that only go forward
Set rs = Db.Execute("SELECT * FROM news")
Echo rs.RecordCount  '> -1
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news", Db, 1, 1
Echo rs.RecordCount, rs.CursorType, rs.LockType  '> 3 1 1
rs.Close
rs.CursorLocation = 3
rs.Open "SELECT * FROM news", Db
Echo rs.RecordCount, rs.CursorType  '> 3 3
rs.Close
rs.Open "news", Db, 3, 1, 2
Echo rs.RecordCount, rs.Source  '> 3 news

'=== a place is moved
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id FROM news ORDER BY id", Db, 3, 1
rs.MoveLast
Echo rs("id")  '> 3
rs.MovePrevious
Echo rs("id"), rs.AbsolutePosition  '> 2 2
rs.Move -1
Echo rs("id")  '> 1
rs.MovePrevious
Echo rs.BOF, rs.EOF  '> True False
rs.Move 2
Echo rs("id")  '> 2
rs.MoveFirst
mark = rs.Bookmark
rs.MoveNext
rs.Bookmark = mark
Echo rs("id")  '> 1
rs.AbsolutePosition = 3
Echo rs("id")  '> 3
On Error Resume Next
rs.MoveNext
rs.MoveNext
Failed  '> 3021

'=== pages
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id FROM news ORDER BY id", Db, 1, 1
rs.PageSize = 2
Echo rs.PageCount, rs.AbsolutePage  '> 2 1
rs.AbsolutePage = 2
Echo rs("id"), rs.AbsolutePage  '> 3 2
rs.MoveNext
Echo rs.EOF, rs.AbsolutePage  '> True -3

'=== rows as an array and as a text
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id, title, body FROM news ORDER BY id", Db, 3, 1
a = rs.GetRows(2)
Echo UBound(a, 1), UBound(a, 2), a(0, 1), a(1, 1), rs("id")  '> 2 1 2 Second 3
rs.MoveFirst
a = rs.GetRows(-1, , Array("title"))
Echo UBound(a, 1), UBound(a, 2), a(0, 2), rs.EOF  '> 0 2 Third True
rs.MoveFirst
Echo Replace(Replace(rs.GetString(, 2), vbTab, "/"), vbCr, ";")
'> 1/First/It's one;2/Second/;
rs.MoveFirst
Echo rs.GetString(2, -1, ",", ";", "-")  '> 1,First,It's one;2,Second,-;3,Third,three;

'=== rows are found, chosen and sorted
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news", Db, 3, 1
rs.Find "title = 'second'"
Echo rs("id")  '> 2
rs.Find "title LIKE '*ird'", 0, 1, 1
Echo rs("id")  '> 3
rs.Find "id < 2", 0, -1
Echo rs("id")  '> 1
rs.Find "id = 99"
Echo rs.EOF  '> True
rs.Filter = "hits > 4 AND (shown = True OR id = 3)"
Echo rs.RecordCount, rs("id")  '> 2 1
rs.Filter = ""
rs.Sort = "title DESC"
Echo rs.RecordCount, rs("title")  '> 3 Third
rs.Sort = "hits, id DESC"
Echo rs("id")  '> 2
rs.Filter = Array(1, 3)
Echo rs.RecordCount  '> 2
On Error Resume Next
rs.Filter = "nothing at all"
Failed  '> 3265
rs.Sort = "nocolumn"
Failed  '> 3265

'=== a clone has a place of its own
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id FROM news ORDER BY id", Db, 3, 1
Set other = rs.Clone
other.MoveLast
Echo rs("id"), other("id")  '> 1 3
other.Close
Echo rs("id")  '> 1

'=== Requery reads again
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news", Db, 3, 1
Db.Execute "DELETE FROM news WHERE id = 2"
Echo rs.RecordCount  '> 3
rs.Requery
Echo rs.RecordCount  '> 2

'=== rows without a database
Set rs = CreateObject("ADODB.Recordset")
rs.Fields.Append "n", 3
rs.Fields.Append "t", 200, 10
rs.CursorLocation = 3
rs.Open
rs.AddNew
rs("n") = "7"
rs("t") = "seven"
rs.Update
rs.AddNew Array("n", "t"), Array(3, "three")
rs.Sort = "n"
rs.MoveFirst
Echo rs.RecordCount, rs("t"), rs("n").Type  '> 2 three 3
rs.Delete
rs.MoveNext
Echo rs.RecordCount, rs("t")  '> 1 seven
On Error Resume Next
rs("t") = "far too long a text"
Failed  '> -2147217887
rs("n") = "no number"
Failed  '> 3421

'=== a field outlives the variable of its recordset
Set f = Db.Execute("SELECT title FROM news WHERE id = 2")(0)
Echo f, f.Name  '> Second title
Echo Db.Execute("SELECT COUNT(*) FROM news")(0)  '> 3
Set rs = Db.Execute("SELECT id FROM news ORDER BY id")
Set f = rs("id")
rs.MoveNext
Echo f  '> 2
Set rs = Nothing
Echo f  '> 2

'=== long values in pieces
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news WHERE id = 2", Db, 1, 3
rs("body").AppendChunk "one "
rs("body").AppendChunk "two"
rs.Update
Set f = rs("body")
Echo f.GetChunk(4) & "|" & f.GetChunk(10) & "|" & IsNull(f.GetChunk(1)), f.ActualSize
'> one |two|True 14

'=== a byte string becomes an array of bytes
Set rs = CreateObject("ADODB.Recordset")
rs.Fields.Append "bytes", 205, 10
rs.Open
rs.AddNew
rs("bytes").AppendChunk ChrB(65) & ChrB(0) & ChrB(200)
rs("bytes").AppendChunk ChrB(7)
rs.Update
bytes = rs("bytes").GetChunk(3)
Echo TypeName(bytes), LenB(bytes), AscB(MidB(bytes, 3, 1)), rs("bytes").ActualSize  '> Byte() 3 200 4
Echo AscB(rs("bytes").GetChunk(9)), IsNull(rs("bytes").GetChunk(1))  '> 7 True
rs("bytes") = "AB"
Echo LenB(rs("bytes").Value), AscB(MidB(rs("bytes").Value, 3, 1))  '> 4 66

'=== a connection as text, a disconnected recordset
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news ORDER BY id", Db, 3, 4
Set rs.ActiveConnection = Nothing
Db.Close
Echo rs.RecordCount, rs("title")  '> 3 First
On Error Resume Next
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT 1", Db
FailedText
'> 3709 The connection cannot be used to perform this operation. It is either closed or invalid in this context.
rs.Open "SELECT 1"
Failed  '> 3709

