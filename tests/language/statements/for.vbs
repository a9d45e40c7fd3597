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
