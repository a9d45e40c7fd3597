'=== elements counted up and down, whatever they are
Dim a, i, start: i = 0
For Each start In Array(1, 32767, CInt(-32768), 2147483647, 1.5, "5", Empty, True, CByte(255), CCur(1.5), #1/1/2000#, CSng(2.5))
  a = Array(start)
  a(i) = a(i) + 1
  Echo TypeName(a(0)), a(0)
  a = Array(start)
  a(i) = a(i) - 1
  Echo TypeName(a(0)), a(0)
Next
'> Integer 2
'> Integer 0
'> Long 32768
'> Integer 32766
'> Integer -32767
'> Long -32769
'> Double 2147483648
'> Long 2147483646
'> Double 2.5
'> Double 0.5
'> Double 6
'> Double 4
'> Integer 1
'> Integer -1
'> Integer 0
'> Integer -2
'> Integer 256
'> Integer 254
'> Currency 2.5
'> Currency 0.5
'> Date 1/2/2000
'> Date 12/31/1999
'> Single 3.5
'> Single 1.5
a = Array(Null): a(i) = a(i) + 1: Echo IsNull(a(0))   '> True
a = Array("x")
On Error Resume Next
a(i) = a(i) + 1: Failed      '> 13
i = 1: a(i) = a(i) + 1: Failed   '> 9
i = 0: a = 5: a(i) = a(i) + 1: Failed   '> 13
Set a = Nothing: a(i) = a(i) + 1: Failed   '> 91
a = Empty: a(i) = a(i) + 1: Failed   '> 13

'=== copies, fixed arrays, and arrays that a loop walks
Dim a, b, f(2), i, x
a = Array(1, 2, 3): b = a: i = 1
a(i) = a(i) + 10: Echo Join(a), Join(b)      '> 1 12 3 1 2 3
b(i) = b(i) - 10: Echo Join(a), Join(b)      '> 1 12 3 1 -8 3
f(i) = f(i) + 1: f(i) = f(i) + 1: Echo f(1)  '> 2
For Each x In a: a(i) = a(i) + 1: i = 2: Next
Echo Join(a)                                 '> 1 13 5
Sub CountUp(a, i): a(i) = a(i) + 1: End Sub
CountUp a, 0: CountUp f, 1: Echo a(0), f(1)  '> 2 3
Function Counted(ByVal a, i): a(i) = a(i) + 1: Counted = a(i): End Function
Echo Counted(a, 0), a(0)                     '> 3 2
i = "1": a(i) = a(i) + 1: Echo a(1)          '> 14
i = 1.5: a(i) = a(i) + 1: Echo a(2)          '> 6

'=== items of collections, and objects with a default property
Class Box
  Private v
  Public Default Property Get Item(k): Echo "get", k: Item = v: End Property
  Public Property Let Item(k, n): Echo "let", k: v = n: End Property
End Class
Class Number
  Public Default Property Get Value: Echo "asked": Value = 41: End Property
End Class
Dim d, k, o: Set d = CreateObject("Scripting.Dictionary"): k = "n"
d(k) = d(k) + 1: Echo d(k), d.Count          '> 1 1
d(k) = 32767: d(k) = d(k) + 1: Echo TypeName(d(k)), d(k)   '> Long 32768
d(k) = "4": d(k) = d(k) + 1: Echo d(k)       '> 5
d(k) = Null: d(k) = d(k) + 1: Echo IsNull(d(k))   '> True
Set d(k) = New Number: d(k) = d(k) + 1: Echo d(k)
'> asked
'> 42
Set o = New Box: o(k) = o(k) + 1: o(k) = o(k) - 1
'> get n
'> let n
'> get n
'> let n
Set d = CreateObject("System.Collections.ArrayList"): d.Add 5: k = 0
d(k) = d(k) + 1: Echo d(k)                   '> 6
On Error Resume Next
Set d = CreateObject("Scripting.Dictionary"): k = Array(1)
d(k) = d(k) + 1: Failed                      '> 5
Set k = d: d(k) = d(k) + 1: d(k) = d(k) + 1: Echo d(d)   '> 2
