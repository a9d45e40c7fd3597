'=== rows are saved as XML and opened again
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT * FROM news ORDER BY id", Db, 3, 1
rs.Save "news.xml", 1
Set again = CreateObject("ADODB.Recordset")
again.Open "news.xml", , , , 256
Echo again.RecordCount, again.Fields.Count, again.ActiveConnection Is Nothing  '> 3 7 True
For i = 0 To 6
  If again(i).Type <> rs(i).Type Or again(i).DefinedSize <> rs(i).DefinedSize Then Echo again(i).Name, again(i).Type, rs(i).Type, again(i).DefinedSize, rs(i).DefinedSize
Next
Do Until rs.EOF
  For i = 0 To 6
    same = TypeName(again(i).Value) = TypeName(rs(i).Value)
    If same And Not IsNull(rs(i)) Then same = again(i).Value = rs(i).Value
    If Not same Then Echo rs(i).Name, TypeName(again(i).Value), TypeName(rs(i).Value)
  Next
  rs.MoveNext: again.MoveNext
Loop
Echo again.EOF  '> True

'=== the customary form
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id, title AS [the title], shown, added FROM news WHERE id = 1", Db, 3, 3
rs("the title") = "<a> & 'b' " & ChrW(1046) & vbCrLf & vbTab & "c"
rs.Update
Set s = CreateObject("ADODB.Stream")
rs.Save s, 1
text = s.ReadText
Show InStr(text, "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'")  '> Long 1
Echo InStr(text, "<s:AttributeType name='id' rs:number='1'") > 0  '> True
Echo InStr(text, "<s:AttributeType name='c1' rs:name='the title' rs:number='2'") > 0  '> True
Echo InStr(text, "dt:type='string' dt:maxLength='50'") > 0  '> True
Echo InStr(text, "<z:row id='1' c1='&lt;a&gt; &amp; &#x27;b&#x27; " & ChrW(1046) & "&#xd;&#xa;&#x9;c' shown='True' added='2024-01-31T22:20:30'/>") > 0  '> True
s.Position = 0
Set again = CreateObject("ADODB.Recordset")
again.Open s
Echo again("the title") = rs("the title"), again("shown"), again("added")  '> True True 1/31/2024 10:20:30 PM

'=== to and from a document
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id, title FROM news ORDER BY id", Db, 3, 1
Set doc = CreateObject("MSXML2.DOMDocument")
rs.Save doc, 1
Echo doc.parseError.errorCode, doc.documentElement.lastChild.childNodes.length  '> 0 3
Echo doc.selectSingleNode("//z:row[1]").getAttribute("title")  '> Second
doc.documentElement.lastChild.removeChild doc.documentElement.lastChild.firstChild
Set again = CreateObject("ADODB.Recordset")
again.Open doc
Echo again.RecordCount, again("title"), again("id").Type  '> 2 Second 3

'=== only rows in view are saved
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id, title FROM news ORDER BY id", Db, 3, 1
rs.Filter = "id > 1"
rs.Sort = "title DESC"
rs.Save "some.xml", 1
Set again = CreateObject("ADODB.Recordset")
again.Open "some.xml", "Provider=MSPersist"
Echo again.RecordCount, again("title")  '> 2 Third

'=== changes that wait are saved as such
Set rs = CreateObject("ADODB.Recordset")
rs.CursorLocation = 3
rs.Open "SELECT id, title, body FROM news ORDER BY id", Db, 3, 4
rs("title") = "changed": rs("body") = Null
rs.MoveNext
rs.Delete
rs.AddNew "title", "new"
rs.Save "batch.xml", 1
Set again = CreateObject("ADODB.Recordset")
again.LockType = 4
again.Open "batch.xml"
Echo again.RecordCount  '> 3
Echo again("title"), again("title").OriginalValue, IsNull(again("body")), again("body").OriginalValue, again.Status  '> changed First True It's one 2
again.MoveLast
Echo again("title"), again.Status  '> new 1
again.CancelBatch
again.MoveFirst
Echo again("title"), again.RecordCount  '> First 3

'=== fabricated rows, and every type
Set rs = CreateObject("ADODB.Recordset")
types = Array(2, 3, 4, 5, 6, 7, 11, 16, 17, 20, 72, 128, 129, 130, 131, 133, 134, 135, 200, 201, 202, 203, 204, 205)
For Each t In types
  rs.Fields.Append "f" & t, t, 20
Next
rs.Open
rs.AddNew
Set s = CreateObject("ADODB.Stream")
s.Type = 2: s.Charset = "iso-8859-1": s.Open: s.WriteText "ab": s.Position = 0: s.Type = 1
bytes = s.Read
For Each t In types
  Select Case t
    Case 4, 5, 131: v = 0.1
    Case 6: v = CCur("922337203685477.5807")
    Case 7, 135: v = #1/2/2024 3:04:05#
    Case 133: v = #1/2/2024#
    Case 134: v = #3:04:05#
    Case 11: v = True
    Case 72: v = "{A0EEBC99-9C0B-4EF8-BB6D-6BB9BD380A11}"
    Case 128, 204, 205: v = bytes
    Case 129, 130, 200, 201, 202, 203: v = " x "
    Case 20: v = 5000000000.0
    Case Else: v = 7
  End Select
  rs("f" & t) = v
Next
rs.Update
Set s = CreateObject("ADODB.Stream")
rs.Save s
Set again = CreateObject("ADODB.Recordset")
again.Open s
For Each t In types
  Set a = rs("f" & t): Set b = again("f" & t)
  If TypeName(a.Value) <> TypeName(b.Value) Or b.Type <> t Then
    Echo t, TypeName(a.Value), TypeName(b.Value), b.Type
  ElseIf IsArray(a.Value) Then
    If MidB(a.Value, 1) <> MidB(b.Value, 1) Then Echo t, "bytes"
  ElseIf a.Value <> b.Value Then
    Echo t, a.Value, b.Value
  End If
Next
Echo again.RecordCount  '> 1

'=== what can't be
Set rs = CreateObject("ADODB.Recordset")
On Error Resume Next
rs.Save "x.xml", 1
Failed  '> 3704
rs.Open "missing.xml", , , , 256
Failed  '> 3002
rs.Open "news"
Failed  '> 3709
rs.Open "SELECT id FROM news", Db
rs.Save "../outside.xml"
Failed  '> 70
rs.Save "twice.xml"
rs.Save
Failed  '> no error
Set other = CreateObject("ADODB.Recordset")
other.Open "SELECT id FROM news", Db
other.Save "twice.xml"
Failed  '> -2147286960
other.Close
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<xml/>"
other.Open doc
Failed  '> 3003
doc.loadXML "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema' ><s:Schema><s:ElementType><s:AttributeType name='a' dt:type='int' xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'/></s:ElementType></s:Schema><rs:data><z:row a='x' b='2'/><rs:update/><rs:insert/><other/></rs:data></xml>"
other.Open doc
Echo other.RecordCount, other("a")  '> 1 0

'=== bookmarks are compared
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT id FROM news ORDER BY id", Db, 3, 1
first = rs.Bookmark
rs.MoveLast
Echo rs.CompareBookmarks(first, rs.Bookmark), rs.CompareBookmarks(first, first), rs.CompareBookmarks(rs.Bookmark, first)  '> 0 1 2
