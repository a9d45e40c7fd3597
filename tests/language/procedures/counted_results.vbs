'=== texts, arrays and objects as results
Class Thing
  Public Name
  Private Sub Class_Terminate: Echo "end of " & Name: End Sub
  Public Default Property Get Shown: Shown = "<" & Name & ">": End Property
End Class
Function NewThing(name)
  Dim made
  Set made = New Thing
  made.Name = name
  Set NewThing = made
End Function
Function Text(n): Text = "text " & n: End Function
Function List(n): List = Array(n, Text(n)): End Function
Dim x
x = Text(1): Echo x '> text 1
x = List(2): Echo x(0) & x(1) '> 2text 2
x = Text(3): Echo x '> text 3
x = NewThing("four") '> end of four
Echo x '> <four>
Set x = NewThing("five"): Echo x.Name '> five
NewThing "six" '> end of six
Set x = NewThing("seven") '> end of five
Echo Text(4) & Text(5) & NewThing("eight") '> end of eight
'> text 4text 5<eight>
Set x = Nothing '> end of seven

'=== a result beside variables that end
Class Guard
  Public Name
  Private Sub Class_Terminate: Echo "end of " & Name: End Sub
End Class
Function Mixed(name)
  Dim before, after
  Set before = New Guard: before.Name = name & " before"
  Mixed = "result"
  Set after = New Guard: after.Name = name & " after"
End Function
Dim y: y = Mixed("a")
'> end of a before
'> end of a after
Echo y '> result

'=== fields take objects, and the last one of each ends
Class Guard
  Public Name
  Private Sub Class_Terminate: Echo "end of " & Name: End Sub
End Class
Dim one, two
Set one = New Guard: one.Name = "one"
Set two = New Guard: two.Name = "two"
Class Pair
  Public First, Second
End Class
Dim p: Set p = New Pair
Set p.First = one: Set p.Second = p.First
Set one = Nothing
Echo p.Second.Name '> one
Set p.First = two: Set p.First = p.First
Echo p.First.Name & p.Second.Name '> twoone
Set p.Second = two '> end of one
Set two = Nothing: Set p.Second = Nothing
Echo p.First.Name '> two
Set p.First = New Guard
p.First.Name = "three"
Set p = Nothing
'> end of two
'> end of three

'=== characters and their codes
Dim word: word = "Az"
Echo Asc(word) & " " & Asc(Mid(word, 2, 1)) & " " & Asc(Chr(200)) & " " & Asc("b" & word) & " " & TypeName(Asc(word)) '> 65 122 200 98 Integer
word = Asc(word): Echo word '> 65
On Error Resume Next
Echo Asc("")
Echo Err.Number: Err.Clear '> 5
Echo Asc(Null)
Echo Err.Number '> 94
