'=== Add, Item and Count
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d.Add "b", "two"
Echo d.Count, d.Item("a"), d("b")   '> 2 1 two
d("a") = 5
Echo d("a")                    '> 5
d.Item("c") = 6
Echo d.Count                   '> 3

'=== Exists
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
Echo d.Exists("a"), d.Exists("A"), d.Exists("x")   '> True False False

'=== reading a missing key adds it
Dim d: Set d = CreateObject("Scripting.Dictionary")
Show d("new")                  '> Empty
Echo d.Count, d.Exists("new")  '> 1 True

'=== a key twice
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
On Error Resume Next
d.Add "a", 2
Failed                         '> 457
Echo d("a")                    '> 1

'=== Remove and RemoveAll
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1: d.Add "b", 2: d.Add "c", 3
d.Remove "b"
Echo d.Count, Join(d.Keys, ",")   '> 2 a,c
d.RemoveAll
Echo d.Count                   '> 0
On Error Resume Next
d.Remove "x"
Failed                         '> 32811

'=== Keys and Items keep the order of insertion
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "z", 1: d.Add "a", 2: d.Add "m", 3
Echo Join(d.Keys, ","), Join(d.Items, ",")   '> z,a,m 1,2,3
d.Remove "z": d.Add "z", 4
Echo Join(d.Keys, ",")         '> a,m,z
Echo UBound(d.Keys)            '> 2

'=== Key renames
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1: d.Add "b", 2
d.Key("a") = "x"
Echo Join(d.Keys, ","), d("x") '> x,b 1
On Error Resume Next
d.Key("b") = "x"
Failed                         '> 457
d.Key("nope") = "y"
Failed                         '> 32811

'=== CompareMode
Dim d: Set d = CreateObject("Scripting.Dictionary")
Echo d.CompareMode             '> 0
d.CompareMode = vbTextCompare
d.Add "Key", 1
Echo d.Exists("KEY"), d("key") '> True 1
On Error Resume Next
d.CompareMode = 0
Failed                         '> 5

'=== keys of every kind
Dim d: Set d = CreateObject("Scripting.Dictionary")
d.Add 1, "number"
d.Add "1", "text"
Echo d(1), d("1"), d.Count     '> number text 2
Echo d(1.0)                    '> number
d.Add True, "truth"
Echo d(True)                   '> truth
d.Add #1/1/2000#, "date"
Echo d(#1/1/2000#)             '> date

'=== objects as keys and items
Class Box
  Public V
End Class
Dim d, b, c
Set d = CreateObject("Scripting.Dictionary")
Set b = New Box: Set c = New Box
b.V = "b"
d.Add b, "by object"
Set d("item") = b
Echo d(b), d.Exists(c)         '> by object False
Echo d("item").V               '> b
d("item").V = "changed"
Echo b.V                       '> changed

'=== arrays as items
Dim d: Set d = CreateObject("Scripting.Dictionary")
d("a") = Array(1, 2, 3)
Echo d("a")(2)                 '> 3

'=== counting words
Dim d, w
Set d = CreateObject("Scripting.Dictionary")
For Each w In Split("a b a c b a")
  d(w) = d(w) + 1
Next
Echo d("a"), d("b"), d("c")    '> 3 2 1

'=== the name of its type
Echo TypeName(CreateObject("Scripting.Dictionary"))   '> Dictionary

'=== many keys
Dim d, i, ok
Set d = CreateObject("Scripting.Dictionary")
For i = 1 To 2000: d.Add "k" & i, i: Next
ok = True
For i = 1 To 2000
  If d("k" & i) <> i Then ok = False
Next
Echo ok, d.Count               '> True 2000
For i = 1 To 2000 Step 2: d.Remove "k" & i: Next
Echo d.Count, d.Exists("k1"), d.Exists("k2")   '> 1000 False True

'=== items are read and written under keys of any length
Dim d, n, missing
Set d = CreateObject("Scripting.Dictionary")
For n = 0 To 70
  d(String(n, "k")) = n
  d(String(n, "k") & "e") = -n
Next
missing = 0
For n = 0 To 70
  If d(String(n, "k")) <> n Or d(String(n, "k") & "e") <> -n Then missing = missing + 1
  If d.Exists(String(n, "k") & "f") Or d.Exists("e" & String(n, "k") & "e") Then missing = missing + 1
  d(String(n, "k")) = d(String(n, "k")) + 1
Next
Echo d.Count & " " & missing & " " & d("") & " " & d("kkk")  '> 142 0 1 4

'=== a number outgrows its type under its key
Dim d
Set d = CreateObject("Scripting.Dictionary")
d("n") = 32766
d("n") = d("n") + 1
Echo TypeName(d("n"))  '> Integer
d("n") = d("n") + 1
Echo TypeName(d("n")) & d("n")  '> Long32768
d("new") = d("new") + 1
Echo d("new") & TypeName(d("read")) & d.Count  '> 1Empty3

'=== an item that is let go ends when the new one is in its place
Class Watcher
  Public name, table
  Private Sub Class_Terminate()
    Echo name & " ends, there is " & TypeName(table("w"))
    table("later") = name
    If table.Count < 4 Then table.Add "n" & table.Count, 0
  End Sub
End Class
Function Watching(d, name)
  Set Watching = New Watcher
  Watching.name = name
  Set Watching.table = d
End Function
Dim d
Set d = CreateObject("Scripting.Dictionary")
Set d("w") = Watching(d, "first")
Set d("w") = Watching(d, "second")  '> first ends, there is Watcher
d("w") = 3  '> second ends, there is Integer
Echo Join(d.Keys, " ")  '> w later n2 n3

'=== the error of an end waits for the statement
Class Failing
  Private Sub Class_Terminate()
    Err.Raise 1000, "end", "ended badly"
  End Sub
End Class
Dim d, i
Set d = CreateObject("Scripting.Dictionary")
Set d("x") = New Failing
On Error Resume Next
d("x") = 1
Echo Err.Number & " " & d("x")  '> 1000 1
Err.Clear
Set d("x") = New Failing
i = 2
d("x") = i
Echo Err.Number & " " & d("x")  '> 1000 2
Err.Clear
Set d("x") = New Failing
Set d("x") = d
Echo Err.Number & " " & TypeName(d("x"))  '> 1000 Dictionary
d.RemoveAll

'=== objects as items keep their identity, variables take their default value
Class Worthy
  Public Default Property Get Worth()
    Worth = 12
  End Property
End Class
Dim d, v, o
Set d = CreateObject("Scripting.Dictionary")
Set o = New Worthy
Set d("o") = o
v = d("o")
Echo TypeName(v) & " " & TypeName(d("o")) & " " & (d("o") Is o) & " " & (d("o") + 1)  '> Integer Worthy True 13
Set d(o) = o
Echo d.Exists(o) & " " & (d(o) Is o)  '> True True

'=== keys that are no keys
Dim d, a(1)
Set d = CreateObject("Scripting.Dictionary")
On Error Resume Next
d(a) = 1
Echo Err.Number : Err.Clear  '> 5
a(0) = d(a)
Echo Err.Number & " " & d.Count : Err.Clear  '> 5 0
d(Null) = 1
d(Empty) = 2
Echo d(Null) & d(Empty) & d.Count  '> 122
Set d = Nothing
d("x") = 1
Echo Err.Number : Err.Clear  '> 91
On Error GoTo 0
a(1) = d("x")  '! 91

'=== one text in both spellings is one key
Dim d, wide
Set d = CreateObject("Scripting.Dictionary")
wide = Left("caf" & ChrW(233) & ChrW(8364) & ChrW(1234), 5)
d(wide) = 1
d("caf" & Chr(233) & Chr(128)) = 2
Echo d.Count & " " & d(wide)  '> 1 2
d(ChrW(1234) & "a") = 3
Echo d(ChrW(1234) & "a") & d.Exists(ChrW(1234)) & d.Count  '> 3False2

'=== letters of either case with CompareMode 1
Dim d
Set d = CreateObject("Scripting.Dictionary")
d.CompareMode = 1
d("Key" & String(80, "A")) = 1
d("kEY" & String(80, "a")) = 2
d("M" & Chr(220) & "LLER") = 3
d("m" & Chr(252) & "ller") = d("M" & Chr(252) & "ller") + 1
d(ChrW(1040)) = 5
Echo d.Count & " " & d("key" & String(80, "a")) & d("M" & Chr(220) & "ller") & d(ChrW(1072))  '> 3 245

'=== elements as keys: the array stays as it was, and free
Dim d, words, i
Set d = CreateObject("Scripting.Dictionary")
words = Split("b a b c", " ")
For i = 0 To UBound(words)
  If Not d.Exists(words(i)) Then d.Add words(i), i
Next
ReDim Preserve words(4)
words(4) = "d"
Echo Join(d.Keys, "") & UBound(words) & d.Exists(words(4)) & d.Exists(words(0))  '> bac4FalseTrue
On Error Resume Next
Echo d.Exists(words(5))
Echo Err.Number  '> 9
