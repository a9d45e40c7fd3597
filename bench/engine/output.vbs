Option Explicit

Function Escaped(text)
  Dim s
  s = Replace(text, "&", "&amp;")
  s = Replace(s, "<", "&lt;")
  s = Replace(s, ">", "&gt;")
  Escaped = s
End Function

Function Price(cents)
  Price = (cents \ 100) & "." & Right("0" & (cents Mod 100), 2)
End Function

Dim out, i, style
Set out = WScript.StdOut
out.Write "<html><body><table>" & vbLf
For i = 1 To 200000
  If i Mod 2 = 0 Then
    style = "even"
  Else
    style = "odd"
  End If
  out.Write "<tr class=""" & style & """>" & vbLf
  out.Write "<td>" & i & "</td>"
  out.Write "<td>" & Escaped("A & B <" & (i Mod 100) & ">") & "</td>"
  out.Write "<td>" & Price(i * 7) & "</td>" & vbLf
  out.Write "</tr>" & vbLf
Next
out.Write "</table></body></html>" & vbLf
