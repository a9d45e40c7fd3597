Option Explicit

Const Limit = 1000000
Dim composite(1000000), i, j, count, sum, round
For round = 1 To 3
  count = 0
  sum = 0
  For i = 0 To Limit
    composite(i) = False
  Next
  i = 2
  Do While i <= Limit
    If Not composite(i) Then
      count = count + 1
      sum = (sum + i) Mod 1000003
      j = i + i
      Do While j <= Limit
        composite(j) = True
        j = j + i
      Loop
    End If
    i = i + 1
  Loop
Next
WScript.Echo count & " " & sum
