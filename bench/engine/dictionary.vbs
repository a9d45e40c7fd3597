Option Explicit

Dim counts, i, n, key, total, most, mostKey
Set counts = CreateObject("Scripting.Dictionary")
n = 12345
For i = 1 To 1500000
  n = (n * 421 + 1663) Mod 7919
  key = "k" & n
  If counts.Exists(key) Then
    counts(key) = counts(key) + 1
  Else
    counts.Add key, 1
  End If
Next
total = 0
most = 0
mostKey = ""
For Each key In counts.Keys
  total = total + counts(key)
  If counts(key) > most Then
    most = counts(key)
    mostKey = key
  End If
Next
WScript.Echo counts.Count & " " & total & " " & most & " " & mostKey
