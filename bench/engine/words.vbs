Option Explicit

Dim vocabulary, words, counts, places, i, n, w, round, total, longest
vocabulary = Array("alder", "birch", "cedar", "dogwood", "elm", "fir", "gorse", "hazel", "ivy", "juniper")

Function Word(n)
  Word = vocabulary(n Mod 10) & n
End Function

ReDim words(19999)
n = 7
For i = 0 To 19999
  n = (n * 421 + 1663) Mod 7919
  words(i) = Word(n Mod 3001)
Next
Set counts = CreateObject("Scripting.Dictionary")
Set places = CreateObject("Scripting.Dictionary")
For round = 1 To 60
  For Each w In words
    counts(w) = counts(w) + 1
  Next
  For i = 0 To UBound(words)
    If Not places.Exists(words(i)) Then places.Add words(i), i
  Next
Next
total = 0
longest = ""
For Each w In counts.Keys
  total = total + counts.Item(w) * Len(w) + places(w) Mod 7
  If Len(w) > Len(longest) Then longest = w
Next
WScript.Echo counts.Count & " " & places.Count & " " & total & " " & longest
