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
