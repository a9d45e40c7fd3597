Option Explicit

Function Row(i)
  Row = "  Name " & i & ", Street " & (i Mod 90) & ", City of " & UCase("towns") & "  "
End Function

Function Initials(text)
  Dim part, s
  For Each part In Split(text, " ")
    If Len(part) > 0 Then s = s & UCase(Left(part, 1))
  Next
  Initials = s
End Function

Function Vowels(text)
  Dim i, count
  count = 0
  For i = 1 To Len(text)
    Select Case Mid(text, i, 1)
      Case "a", "e", "i", "o", "u"
        count = count + 1
    End Select
  Next
  Vowels = count
End Function

Dim i, text, page, vowelCount, marks, found
page = ""
vowelCount = 0
marks = ""
found = 0
For i = 1 To 120000
  text = Trim(Row(i))
  page = page & text & vbLf
  If InStr(text, "Street 77") > 0 Then found = found + 1
  If i Mod 3 = 0 Then vowelCount = vowelCount + Vowels(text)
  If i Mod 4 = 0 Then marks = Initials(text)
  If LCase(Right(text, 5)) = "towns" Then found = found + Len(Replace(text, ", ", ","))
Next
WScript.Echo Len(page) & " " & vowelCount & " " & marks & " " & found & " " & Mid(page, 100001, 20)
