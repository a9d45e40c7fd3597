'=== a dictionary that changes while its keys are walked
Dim d, k, seen: Set d = CreateObject("Scripting.Dictionary")
d("a") = 1: d("b") = 2: d("c") = 3
For Each k In d.Keys
  seen = seen & k & d.Exists(k) & " "
  If d.Exists("b") Then d.Remove "b"
  If Not d.Exists(k & k) Then d.Add k & k, 0
Next
Echo seen, d.Count, Join(d.Keys)      '> aTrue bFalse cTrue  5 a c aa bb cc
seen = ""
For Each k In d
  seen = seen & k & " "
  d.Remove k: d(k) = 1
Next
Echo seen, Join(d.Keys)               '> a c aa bb cc  a c aa bb cc
For Each k In d: d.RemoveAll: Next
Echo d.Count, IsEmpty(k), k           '> 0 False cc

'=== a test decides at once, in every form
Dim d, k, r, i, a(2): Set d = CreateObject("Scripting.Dictionary"): d("in") = 1
a(0) = "in": a(1) = "out": a(2) = 7
For i = 0 To 2
  k = a(i)
  If d.Exists(k) Then Echo "in" Else Echo "out"
  If Not d.Exists(k) Then Echo "not in"
  If d.Exists(a(i)) Then Echo "in" Else Echo "out"
  If Not d.Exists(a(i)) Then Echo "not in"
  r = d.Exists(k): If r Then Echo "so it is", r Else Echo "so it is not", r
  r = Not d.Exists(a(i)): If Not r Then Echo "so it is", r Else Echo "so it is not", r
  If d.Exists(k) And d.Exists(a(i)) Then Echo "both"
  If d.Exists(k) = d.Exists(a(i)) Then Echo "alike"
  d.Exists k: d.Exists a(i)
  Do While d.Exists(k): d.Remove k: Loop
  Do Until d.Exists(a(i)): d(a(i)) = 1: Loop
  Echo d.Exists(k), d.Count
Next
'> in
'> in
'> so it is True
'> so it is False
'> both
'> alike
'> True 1
'> out
'> not in
'> out
'> not in
'> so it is not False
'> so it is not True
'> alike
'> True 2
'> out
'> not in
'> out
'> not in
'> so it is not False
'> so it is not True
'> alike
'> True 3

'=== results that replace what has an end
Class Watched
  Public Name
  Private Sub Class_Terminate: Echo "ended", Name: End Sub
End Class
Function Made(name): Set Made = New Watched: Made.Name = name: End Function
Dim d, k, r, v, a(0): Set d = CreateObject("Scripting.Dictionary"): k = "k": a(0) = "k"
Set r = Made("first"): r = d.Exists(k): Echo r            '> ended first
'> False
Set r = Made("second"): r = d.Exists(a(0)): Echo r        '> ended second
'> False
d.Add k, Made("item")
Set r = d.Item(k): Echo r.Name, d.Item(a(0)).Name, d.Item(k) Is r   '> item item True
d.Remove k: Echo "removed"            '> removed
r = Empty                             '> ended item
For Each v In Array("a", Made("in the list"), "b", 1, "c")
  If IsObject(v) Then Echo v.Name Else Echo v
Next
'> a
'> in the list
'> b
'> 1
'> c
'> ended in the list

'=== a loop's variable takes what it walks as it is
Dim a, v, w, i, keep: a = Array("x", "", Empty, Null, 1.5, "y", Array(1, 2), Nothing, "z")
For Each v In a
  If Not IsObject(v) Then w = v
  v = "changed"
Next
For i = 0 To UBound(a): keep = keep & TypeName(a(i)) & " ": Next
Echo Trim(keep)               '> String String Empty Null Double String Variant() Nothing String
Dim t: t = "same" & "": a = Array(t, t, t)
For Each v In a: v = v & "!": Echo v: Next
'> same!
'> same!
'> same!
Echo t, a(0), a(2)           '> same same same
For Each v In a: a(1) = "other": a(2) = v & 2: Echo v: Next
'> same
'> other
'> other2
Echo v, Join(a)              '> other2 same other other22

'=== a loop's variable that came by reference, or is of all
Dim g, list: list = Array("a", "b", "c")
Sub Walk(v)
  For Each v In list: g = g & v: Next
End Sub
Sub WalkGlobal
  For Each g In list: Next
End Sub
Dim mine: mine = "before": Walk mine
Echo mine, g                 '> c abc
WalkGlobal: Echo g           '> c
Dim text: text = "a" & "b"
Walk text: Echo text, g      '> c cabc

'=== an array that is walked stands still
Dim a, v: ReDim a(2): a(0) = "a": a(1) = "b": a(2) = "c"
On Error Resume Next
For Each v In a
  ReDim a(5): Failed
  Erase a: Failed
  Exit For
Next
'> 10
'> 10
On Error GoTo 0
Dim m(1, 1): m(0, 0) = "p": m(1, 0) = "q": m(0, 1) = "r": m(1, 1) = "s"
For Each v In m: Echo v: Next
'> p
'> q
'> r
'> s
ReDim a(-1)
For Each v In a: Echo "none": Next
Echo v                       '> s
For Each v In Array("a", "b"): For Each v In Array("x", "y"): Next: Echo v: Next
'> y
'> y

'=== keys of other types, asked for from variables and elements
Dim d, k, a, i: Set d = CreateObject("Scripting.Dictionary")
a = Array(1, 1.0, Empty, Null, "", True, d, Nothing, "1")
For i = 0 To UBound(a)
  If IsObject(a(i)) Then Set k = a(i) Else k = a(i)
  If d.Exists(k) Then Echo "there", i
  If d.Exists(a(i)) Then Echo "there, too", i
  d(a(i)) = i
  If Not d.Exists(k) Or Not d.Exists(a(i)) Then Echo "lost", i
  If d.Item(k) <> i Or d.Item(a(i)) <> i Then Echo "other", i
Next
'> there 1
'> there, too 1
Echo d.Count                 '> 8
On Error Resume Next
k = Array(1): a(0) = k
If d.Exists(k) Then Echo "taken as true"   '> taken as true
Failed                       '> 5
If d.Exists(a(0)) Then Echo "taken as true"   '> taken as true
Failed                       '> 5
i = d.Item(k): Failed        '> 5
i = d.Item(a(0)): Failed     '> 5
If d.Exists(a(99)) Then Echo "taken as true"   '> taken as true
Failed                       '> 9

'=== keys that were read before they were written
Dim d, k, a(1): Set d = CreateObject("Scripting.Dictionary"): k = "k": a(1) = "l"
Dim i: i = 1
Echo IsEmpty(d.Item(k)), IsEmpty(d.Item(a(i))), d.Count   '> True True 2
d.Item(k) = 5: d.Item(a(i)) = 6
Echo d.Item(k), d.Item(a(i)), d.Item(k) + d.Item(a(i))    '> 5 6 11
d.Item(k) = Array(1, 2): Dim c: c = d.Item(k): c(0) = 9
Echo d.Item(k)(0), c(0)      '> 1 9

'=== keys of every length that lie beside others
Dim d, i, j, k, wrong: Set d = CreateObject("Scripting.Dictionary")
For i = 0 To 40
  For j = 0 To 9: d(String(i, "k") & j) = i * 10 + j: Next
Next
For i = 0 To 40
  For j = 0 To 9
    k = String(i, "k") & j
    If Not d.Exists(k) Then wrong = wrong & " lost " & k
    If d(k) <> i * 10 + j Then wrong = wrong & " other " & k
    If d.Exists(k & "k") Then wrong = wrong & " too much " & k
  Next
Next
Echo d.Count, Len(wrong)     '> 410 0
For i = 0 To 40: d.Remove String(i, "k") & 3: d.Key(String(i, "k") & 5) = "new" & i: Next
For i = 0 To 40
  k = String(i, "k") & 3: If d.Exists(k) Then wrong = wrong & " still " & k
  k = String(i, "k") & 5: If d.Exists(k) Then wrong = wrong & " still " & k
  k = "new" & i: If d(k) <> i * 10 + 5 Then wrong = wrong & " other " & k
  d(String(i, "k") & 3) = -i
Next
Echo d.Count, Len(wrong)     '> 410 0

'=== keys that are written out or made for the call
Class Mark
  Public Name
  Private Sub Class_Terminate: Echo "ended", Name: End Sub
End Class
Function Marked(name): Set Marked = New Mark: Marked.Name = name: End Function
Dim d, i, r, t: Set d = CreateObject("Scripting.Dictionary")
d.Add "name", "n": Set d("object") = Marked("item"): d("list") = Array(1, 2)
For i = 1 To 2
  If d.Exists("name") Then Echo "there" Else Echo "gone"
  If Not d.Exists("na" & "me" & i) Then Echo "none"
  Echo d.Exists("object"), d.Exists(""), d.Item("name"), d.Item("na" & "me"), d.Item("object").Name
  r = d.Item("list"): r(0) = 9: Echo d.Item("list")(0), r(0)
  Echo d.Exists(Marked("key"))
  Set r = d.Item("object"): r = d.Exists("object"): Echo r
  Echo IsEmpty(d.Item("new" & i)), d.Count
  d.Exists "name": d.Item "newer" & i: Echo d.Count
Next
'> there
'> none
'> True False n n item
'> 1 9
'> ended key
'> False
'> True
'> True 4
'> 5
'> there
'> none
'> True False n n item
'> 1 9
'> ended key
'> False
'> True
'> True 6
'> 7
Sub Ask
  If d.Exists("name") And d.Item("name") = "n" Then Echo "asked"
  Dim k: k = "name": If d.Exists(k) Then Echo "asked", d.Item(k)
End Sub
Ask
'> asked
'> asked n
Set t = d.Item("object"): d.Remove "object": Echo t.Name   '> item
On Error Resume Next
r = d.Exists(Array(1)): Failed     '> 5
r = d.Item(Array(1)): Failed       '> 5
On Error GoTo 0
Set t = Nothing                    '> ended item
