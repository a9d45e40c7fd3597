'=== Do While
Dim n: n = 0
Do While n < 3
  n = n + 1
Loop
Echo n                         '> 3
Do While False
  Echo "never"
Loop

'=== Do Until
Dim n: n = 0
Do Until n = 3
  n = n + 1
Loop
Echo n                         '> 3
Do Until True
  Echo "never"
Loop

'=== Loop While runs at least once
Dim n: n = 10
Do
  n = n + 1
Loop While n < 3
Echo n                         '> 11

'=== Loop Until
Dim n: n = 0
Do
  n = n + 1
Loop Until n >= 3
Echo n                         '> 3

'=== Do and Exit Do
Dim n
Do
  n = n + 1
  If n = 5 Then Exit Do
Loop
Echo n                         '> 5

'=== Exit Do leaves the innermost Do, through a For
Dim i, n
Do
  n = n + 1
  For i = 1 To 10
    If i = 3 Then Exit Do
  Next
Loop
Echo n, i                      '> 1 3

'=== While and Wend
Dim n
While n < 3
  n = n + 1
Wend
Echo n                         '> 3
While False: Echo "never": Wend

'=== a Null test ends a loop
Dim n
Do While Null
  Echo "never"
Loop
Echo "end"                     '> end

'=== nested
Dim i, j, s
i = 0
Do While i < 2
  i = i + 1
  j = 0
  While j < 2
    j = j + 1
    s = s & i & j & " "
  Wend
Loop
Echo Trim(s)                   '> 11 12 21 22

'=== on one line
Dim n: n = 3
Do While n > 0: n = n - 1: Loop
Echo n                         '> 0
