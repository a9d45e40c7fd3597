'=== two comparisons joined, of values of all kinds
Function Told(a, b)
  Dim s, k
  If a = 1 And b = 1 Then s = s & "A" Else s = s & "a"
  If a = 1 Or b = 1 Then s = s & "O" Else s = s & "o"
  If Not (a = 1 And b = 1) Then s = s & "N" Else s = s & "n"
  If Not (a = 1 Or b = 1) Then s = s & "P" Else s = s & "p"
  If Not a = 1 And Not b = 1 Then s = s & "Q" Else s = s & "q"
  If (a = 1 And b = 1) Or (a = 2 And b = 2) Then s = s & "R" Else s = s & "r"
  If (a = 1 Or b = 1) And (a = 2 Or b = 2) Then s = s & "S" Else s = s & "s"
  If a <> 1 And b > 0 And a < b Then s = s & "T" Else s = s & "t"
  If (a = b) = (b = 1) And a >= 1 Then s = s & "U" Else s = s & "u"
  k = 0: Do While k < 3 And (a = 1 Or k < 2): k = k + 1: Loop: s = s & k
  k = 0: Do: k = k + 1: Loop Until k > 3 Or (b = 1 And k > 1): s = s & k
  k = 0: Do Until k > 3 Or b = 2 And k > 0: k = k + 1: Loop: s = s & k
  While k < 9 And a = 1: k = k + 1: Wend
  Told = s & k
End Function
Dim a, b, line
For Each a In Array(1, 2, Null, Empty, "1")
  line = ""
  For Each b In Array(1, 2, Null, Empty, "1")
    line = line & " " & Told(a, b)
  Next
  Echo line
Next
'>  AOnpqRstU3249 aONpqrStU3419 aOnpqrstu3449 aONpqrstU3449 AOnpqRstu3249
'>  aONpqrStu2244 aoNPQRstu2411 aoNpqrstu2444 aoNPQrstU2444 aONpqrSTu2244
'>  aOnpqrstu2244 aoNpqrstu2411 aonpqrstu2444 aoNpqrstu2444 aOnpqrstu2244
'>  aONpqrsTu2244 aoNPQrsTu2411 aoNpqrstu2444 aoNPQrstu2444 aONpqrsTu2244
'>  AOnpqRstu3249 aONpqrStU3419 aOnpqrstu3449 aONpqrstU3449 AOnpqRstU3249

'=== both sides are found out
Dim calls
Function Is1(x): calls = calls & x: Is1 = 1: End Function
If Is1("a") = 2 And Is1("b") = 1 Then Echo "no"
If Is1("c") = 1 Or Is1("d") = 1 Then Echo "yes" '> yes
Do While Is1("e") = 2 And Is1("f") = 1: Loop
If Not (Is1("g") = 1 Or Is1("h") = 1) Then Echo "no"
Echo calls '> abcdefgh

'=== an error on either side leads into the body under On Error Resume Next
On Error Resume Next
Dim nothingHere
If 1 = 2 And nothingHere.x = 3 Then Echo "body"       '> body
Echo Err.Number: Err.Clear                             '> 424
If nothingHere.x = 3 Or 1 = 1 Then Echo "body"       '> body
Echo Err.Number: Err.Clear                             '> 424
If Not (1 = 1 Or nothingHere.x = 3) Then Echo "body" '> body
Echo Err.Number: Err.Clear                             '> 424

'=== numbers stay bits
Dim flags: flags = 6
If flags And 3 Then Echo "two" '> two
If flags And 1 Then Echo "no" Else Echo "none" '> none
If (flags And 2) = 2 And flags > 1 Then Echo "both" '> both
If flags = 6 And 4 Then Echo "true and four" '> true and four
If 1 = 1 And Not flags = 6 Then Echo "no"

'=== the subject of a choice
Function Chosen(v)
  Select Case v
    Case 1, "2", 3: Chosen = "123"
    Case Null: Chosen = "null"
    Case "": Chosen = "empty"
    Case True: Chosen = "true"
    Case Else: Chosen = "else"
  End Select
End Function
On Error Resume Next
Dim v
For Each v In Array(1, "1", 2, "2", 3.0, "", Null, Empty, True, -1)
  Echo Chosen(v) & " " & Err.Number: Err.Clear
Next
'> 123 0
'> 123 0
'> 123 0
'> 123 0
'> 123 0
'> else 0
'> empty 0
'> true 0
'> true 0

'=== an error in one of its values leads into the body of that one
On Error Resume Next
Dim missing
Select Case 5
  Case 1, missing.z: Echo "missing" '> missing
  Case 5: Echo "five"
End Select
Echo Err.Number '> 424
