Option Explicit

Function Built(count)
  Dim s, i
  s = ""
  For i = 1 To count
    s = s & "item " & i & ";"
  Next
  Built = s
End Function

Function Reversed(text)
  Dim s, i
  s = ""
  For i = Len(text) To 1 Step -1
    s = s & Mid(text, i, 1)
  Next
  Reversed = s
End Function

Function CountWords(text)
  Dim at, count
  at = 1
  count = 0
  Do
    at = InStr(at, text, "item")
    If at = 0 Then Exit Do
    count = count + 1
    at = at + 4
  Loop
  CountWords = count
End Function

Function CheckSum(text)
  Dim i, sum
  sum = 0
  For i = 1 To Len(text)
    sum = (sum * 31 + Asc(Mid(text, i, 1))) Mod 65521
  Next
  CheckSum = sum
End Function

Dim text, back, parts
text = Built(200000)
back = Reversed(text)
parts = Split(text, ";")
WScript.Echo Len(text) & " " & Left(back, 12)
WScript.Echo CountWords(text) & " " & CheckSum(text)
WScript.Echo UBound(parts) & " " & Len(Join(parts, "--")) & " " & Len(Replace(text, "item", "thing"))
