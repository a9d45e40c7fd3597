'=== up, down and by steps
Dim i, s
For i = 1 To 3: s = s & i & " ": Next
Echo Trim(s)                   '> 1 2 3
s = ""
For i = 3 To 1 Step -1: s = s & i & " ": Next
Echo Trim(s)                   '> 3 2 1
s = ""
For i = 1 To 10 Step 4: s = s & i & " ": Next
Echo Trim(s)                   '> 1 5 9

'=== the variable after the loop
Dim i
For i = 1 To 3
Next
Echo i                         '> 4
For i = 1 To 10 Step 4
Next
Echo i                         '> 13
For i = 5 To 1
Next
Echo i                         '> 5
For i = 1 To 10
  If i = 4 Then Exit For
Next
Echo i                         '> 4

'=== a loop that never runs
Dim i
For i = 1 To 0: Echo "never": Next
For i = 0 To 1 Step -1: Echo "never": Next
Echo "end"                     '> end

'=== the bounds are evaluated once
Dim i, n, s
n = 3
For i = 1 To n
  n = 100
  s = s & i
Next
Echo s                         '> 123
Function Bound(x)
  Echo "bound " & x
  Bound = x
End Function
For i = Bound(1) To Bound(2) Step Bound(1)
  Echo i
Next
'> bound 1
'> bound 2
'> bound 1
'> 1
'> 2

'=== changing the variable inside moves the loop
Dim i, s
For i = 1 To 10
  s = s & i & " "
  i = i + 2
Next
Echo Trim(s)                   '> 1 4 7 10

'=== fractions
Dim x, s
For x = 0 To 1 Step 0.25
  s = s & x & " "
Next
Echo Trim(s)                   '> 0 0.25 0.5 0.75 1
Dim count
For x = 0 To 1 Step 0.1
  count = count + 1
Next
Echo count                     '> 11

'=== the variable widens when it must
Dim i
For i = 32766 To 32768
Next
Show i                         '> Long 32769

'=== nested loops and Exit For
Dim i, j, s
For i = 1 To 3
  For j = 1 To 3
    If j = 2 Then Exit For
    s = s & i & j & " "
  Next
Next
Echo Trim(s)                   '> 11 21 31

'=== texts as bounds
Dim i, s
For i = "1" To "3"
  s = s & i & " "
Next
Echo Trim(s)                   '> 1 2 3

'=== dates count in days
Dim d
For d = #12/31/1999# To #1/2/2000#
  Echo d
Next
'> 12/31/1999
'> 1/1/2000
'> 1/2/2000

'=== a bound that is no number
Dim i
For i = 1 To "x"               '! 13
Next

'=== a Null bound
Dim i
For i = 1 To Null              '! 94
Next

'=== the counter of a function is its own
Function Sum(n)
  Dim i
  For i = 1 To n
    Sum = Sum + i
  Next
End Function
Dim i, s
For i = 1 To 3
  s = s & Sum(i) & " "
Next
Echo Trim(s)                   '> 1 3 6

'=== a counter that grows into the next type
Dim i, s
For i = 32766 To 32769: s = s & TypeName(i) & " ": Next
Echo s & i                     '> Integer Integer Long Long 32770
s = ""
For i = -32767 To -32769 Step -1: s = s & TypeName(i) & " ": Next
Echo s & i                     '> Integer Integer Long -32770
s = ""
For i = 2147483646 To 2147483647: s = s & TypeName(i) & " ": Next
Echo s & i & TypeName(i)       '> Long Long 2147483648Double
For i = 32767 To 32767: Next
Echo i & TypeName(i)           '> 32768Long

'=== the type of the counter is that of start and step, not of the limit
Dim i
For i = 1 To 100000 Step 100000: Echo TypeName(i): Next '> Integer
Echo TypeName(i)               '> Long
For i = CLng(1) To 2: Next
Echo TypeName(i)               '> Long
For i = 1 To 2.5: Next
Echo i & TypeName(i)           '> 3Integer
For i = 1 To 2 Step 0.5: Next
Echo i & TypeName(i)           '> 2.5Double
For i = CByte(254) To CByte(255): Next
Echo i & TypeName(i)           '> 256Integer
For i = True To 1: Next
Echo i & TypeName(i)           '> 2Integer
For i = "1" To "2": Next
Echo i & TypeName(i)           '> 3Double
For i = Empty To Empty: Next
Echo i & TypeName(i)           '> 1Integer

'=== a body that changes the counter's type
Dim i, s, o
For i = 1 To 5
  s = s & i & TypeName(i) & " "
  If i = 2 Then i = "3"
  If i = 4 Then i = 4.5
Next
Echo s & i                     '> 1Integer 2Integer 4Double 5.5
s = ""
For i = 1 To 4
  If i = 2 Then i = True
  If i = 0 Then i = Empty
  If TypeName(i) = "Empty" Then i = 3
  s = s & i & " "
Next
Echo Trim(s)                   '> 1 True 3 4

'=== the same loop with other bounds each time
Function Passes(first, last, by)
  Dim i
  Passes = 0
  For i = first To last Step by
    Passes = Passes + 1
  Next
  Passes = Passes & " " & i & TypeName(i)
End Function
Echo Passes(1, 3, 1)           '> 3 4Integer
Echo Passes(3, 1, -1)          '> 3 0Integer
Echo Passes(0, 1, 0.25)        '> 5 1.25Double
Echo Passes(1, 0, -0.5)        '> 3 -0.5Double
Echo Passes(1, 100000, 50000)  '> 2 100001Long
Echo Passes(3, 1, 1)           '> 0 3Integer
Echo Passes(#1/1/2000#, #1/3/2000#, 1) '> 3 1/4/2000Date
Echo Passes(1, 3, 1)           '> 3 4Integer

'=== bounds with a mistake in the middle of a script
Dim i, n
On Error Resume Next
For i = 1 To Null
  n = n + 1
Next
Echo n & " " & Err.Number      '> 1 92
Err.Clear
For i = 1 To 3
  n = n + 1
Next
Echo n & " " & Err.Number      '> 4 0

'=== a counter by reference
Sub Count(ByRef i, ByVal last)
  For i = 1 To last
  Next
End Sub
Dim n
Count n, 3
Echo n                         '> 4
n = "text"
Count n, 32767
Echo n & TypeName(n)           '> 32768Long
