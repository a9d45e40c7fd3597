'=== texts are compared without regard to letter case
Echo Db.Execute("SELECT COUNT(*) FROM news WHERE title = 'FIRST'")(0)  '> 1
Echo Db.Execute("SELECT COUNT(*) FROM news WHERE title IN ('FIRST', 'SECOND')")(0)  '> 2
Echo Db.Execute("SELECT COUNT(*) FROM news WHERE title LIKE 'f%' OR title LIKE '[a-s]e%d'")(0)
'> 2
Echo Db.Execute("SELECT COUNT(*) FROM news WHERE title LIKE '_hird' AND title NOT LIKE '[!t]%'")(0)
'> 1

'=== dates
Echo Db.Execute("SELECT COUNT(*) FROM news WHERE added >= #1/31/2024# AND added < '2/1/2024'")(0)
'> 1
Echo Db.Execute("SELECT COUNT(*) FROM news WHERE added < Now()")(0)  '> 3
Echo Db.Execute("SELECT COUNT(*) FROM news WHERE Year(added) = 2024 AND Month(added) = 1 AND Day(added) = 31")(0)
'> 1
Show Db.Execute("SELECT DateAdd('d', 1, added) FROM news WHERE id = 1")(0).Value
'> Date 2/1/2024 10:20:30 PM
Show Db.Execute("SELECT added + 1 FROM news WHERE id = 1")(0).Value  '> Date 2/1/2024 10:20:30 PM
Echo Db.Execute("SELECT DateDiff('h', #1/31/2024#, added) FROM news WHERE id = 1")(0)  '> 22
Echo Db.Execute("SELECT DATEDIFF(day, added, '2/3/2024') FROM news WHERE id = 1")(0)  '> 3
Echo Db.Execute("SELECT Format(added, 'yyyy-mm-dd hh:nn') & '|' & Format(added, 'Short Date') FROM news WHERE id = 1")(0)
'> 2024-01-31 22:20|1/31/2024
Echo Db.Execute("SELECT CONVERT(varchar(10), added, 103) FROM news WHERE id = 1")(0)  '> 31/01/2024
Echo Db.Execute("SELECT Date() AS d")(0) = Date, TypeName(Db.Execute("SELECT Now() AS d")(0).Value)
'> True Date
Show Db.Execute("SELECT DateSerial(2024, 2, 29) AS d")(0).Value  '> Date 2/29/2024

'=== functions
Set rs = Db.Execute("SELECT Left(title, 2), Right(title, 2), Mid(title, 2, 3), Len(title), UCase(title), InStr(title, 'RS'), IIf(id = 1, 'one', 'more'), title & '/' & body, 5 / 2, 7 \ 2, 7 MOD 4 FROM news WHERE id = 1")
Echo rs(0), rs(1), rs(2), rs(3), rs(4), rs(5), rs(6), rs(7), rs(8), rs(9), rs(10)
'> Fi st irs 5 FIRST 3 one First/It's one 2.5 3 3
Set rs = Db.Execute("SELECT Val('12abc'), CInt('7'), Int(-1.5), Chr(65), IsNull(body), Nz(body, 'none'), Switch(id = 2, 'a', id = 1, 'b'), Choose(2, 'x', 'y'), Format(1234.5, '#,##0.00'), CHARINDEX('s', title), STUFF('abcd', 2, 2, 'X') FROM news WHERE id = 2")
Echo rs(0), rs(1), rs(2), rs(3), rs(4), rs(5), rs(6), rs(7), rs(8), rs(9), rs(10)
'> 12 7 -2 A 1 none a y 1,234.50 1 aXd
Echo Len(Db.Execute("SELECT NEWID() AS g")(0)), Db.Execute("SELECT Rnd() < 1 AS r")(0)  '> 38 1
Echo Db.Execute("SELECT FIRST(title) FROM news")(0), Db.Execute("SELECT STDEV(id) FROM news")(0)
'> First 1

'=== TOP
Echo Db.Execute("SELECT TOP 1 title FROM news ORDER BY id DESC")(0)  '> Third
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT TOP 50 PERCENT id FROM news ORDER BY id", Db, 3, 1
Echo rs.RecordCount  '> 2
rs.Close
rs.Open "SELECT TOP 2 * FROM news ORDER BY Rnd(id)", Db, 3, 1
Echo rs.RecordCount  '> 2

'=== changes over several tables
Db.Execute "CREATE TABLE extra (news_id LONG, points LONG)"
Db.Execute "INSERT INTO extra VALUES (1, 100)"
Db.Execute "INSERT INTO extra VALUES (3, 300)"
Db.Execute "UPDATE news INNER JOIN extra ON news.id = extra.news_id SET news.hits = extra.points", n
Echo n, Db.Execute("SELECT SUM(hits) FROM news")(0)  '> 2 402
Db.Execute "UPDATE n SET hits = 1 FROM news AS n INNER JOIN extra e ON n.id = e.news_id WHERE e.points > 100", n
Echo n  '> 1
Db.Execute "DELETE news.* FROM news INNER JOIN extra ON news.id = extra.news_id", n
Echo n, Db.Execute("SELECT COUNT(*) FROM news")(0)  '> 2 1
Db.Execute "SELECT * INTO copy FROM news"
Echo Db.Execute("SELECT title FROM copy")(0), TypeName(Db.Execute("SELECT added FROM copy")(0).Value)
'> Second Date
Db.Execute "DELETE * FROM copy"
Echo Db.Execute("SELECT COUNT(*) FROM copy")(0)  '> 0
Echo Db.Execute("SELECT e.points FROM (extra e LEFT JOIN news n ON n.id = e.news_id) LEFT JOIN copy c ON c.id = n.id WHERE n.id IS NULL ORDER BY 1")(0)
'> 100

'=== tables are changed
Db.Execute "ALTER TABLE news ADD COLUMN mark TEXT(5), weight DOUBLE"
Db.Execute "UPDATE news SET mark = 'abc', weight = 1.5"
Db.Execute "ALTER TABLE news ALTER COLUMN mark MEMO"
Set rs = Db.Execute("SELECT mark, weight, id FROM news WHERE mark = 'ABC'")
Echo rs("mark"), rs("mark").Type, rs("weight"), rs("id")  '> abc 203 1.5 1
rs.Close
Db.Execute "ALTER TABLE news DROP COLUMN weight"
Db.Execute "ALTER TABLE news ADD CONSTRAINT once UNIQUE (title)"
On Error Resume Next
Db.Execute "INSERT INTO news (title) VALUES ('first')"
Failed  '> -2147467259
Db.Execute "ALTER TABLE news DROP CONSTRAINT once"
Db.Execute "INSERT INTO news (title) VALUES ('first')"
Failed  '> no error
Db.Execute "SELECT weight FROM news"
Failed  '> -2147217904
Db.Execute "DROP TABLE news"
Db.Execute "SELECT * FROM news"
Failed  '> -2147217865

'=== declared types come back
Db.Execute "CREATE TABLE [all kinds] (a BYTE, b SHORT, c LONG, d SINGLE, e DOUBLE, f CURRENCY, g DATETIME, h YESNO, i TEXT(10), j MEMO, k GUID, l DECIMAL(10,2), m BIT, n VARCHAR(20), o OLEOBJECT)"
Db.Execute "INSERT INTO [all kinds] VALUES (1, 2, 3, 4.5, 5.5, 6.1234, #1/1/2024#, True, 'i', 'j', '{x}', 12.34, 1, '007', NULL)"
Set rs = Db.Execute("SELECT * FROM [all kinds]")
For Each f In rs.Fields
  Echo f.Name, f.Type, f.DefinedSize, f.Precision, f.NumericScale, TypeName(f.Value), f.Value & ""
Next
'> a 17 1 3 255 Byte 1
'> b 2 2 5 255 Integer 2
'> c 3 4 10 255 Long 3
'> d 4 4 7 255 Single 4.5
'> e 5 8 15 255 Double 5.5
'> f 6 8 19 4 Currency 6.1234
'> g 7 8 255 255 Date 1/1/2024
'> h 11 2 255 255 Boolean True
'> i 202 10 255 255 String i
'> j 203 536870910 255 255 String j
'> k 72 16 255 255 String {x}
'> l 131 19 10 2 Double 12.34
'> m 11 2 255 255 Boolean True
'> n 202 20 255 255 String 007
'> o 205 1073741823 255 255 Null 

'=== money is exact
Db.Execute "CREATE TABLE m (v CURRENCY)"
For i = 1 To 100
  Db.Execute "INSERT INTO m VALUES (0.0001)"
Next
Db.Execute "INSERT INTO m VALUES (99999999.99)"
Show Db.Execute("SELECT v FROM m ORDER BY v DESC")(0).Value  '> Currency 99999999.99
Echo Db.Execute("SELECT CCur(SUM(v)) FROM m")(0)  '> 100000000

'=== the new row's number
Db.Execute "CREATE TABLE seeded (id INT IDENTITY(1000,1), t VARCHAR(5))"
Db.Execute "INSERT INTO seeded (t) VALUES ('a')"
Echo Db.Execute("SELECT @@IDENTITY")(0)  '> 1000

