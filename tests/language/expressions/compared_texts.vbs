'=== values of all kinds against short and long texts, written and named
Const Named = "b"
Function Told(x)
  Dim s
  If x = "b" Then s = s & "A" Else s = s & "a"
  If x <> "b" Then s = s & "B" Else s = s & "b"
  If "b" = x Then s = s & "C" Else s = s & "c"
  If Not x = "b" Then s = s & "D" Else s = s & "d"
  If x = Named Then s = s & "E" Else s = s & "e"
  If x <> Named Then s = s & "F" Else s = s & "f"
  If x = "" Then s = s & "G" Else s = s & "g"
  If x = "1" Then s = s & "H" Else s = s & "h"
  If x = "0123456789abcdef" Then s = s & "I" Else s = s & "i"
  If x = "0123456789abcdefg" Then s = s & "J" Else s = s & "j"
  Select Case x
    Case "c", "b": s = s & "1"
    Case "1": s = s & "2"
    Case "": s = s & "3"
    Case "0123456789abcdef", "0123456789abcdefg": s = s & "4"
    Case Else: s = s & "5"
  End Select
  Told = s
End Function
Class Text
  Public Default Property Get Value: Value = "b": End Property
End Class
Dim x, wide
wide = "b" & ChrW(256)
For Each x In Array("b", "B", "bb", "", Empty, Null, 1, "1", True, "0123456789abcdef", _
                    "0123456789abcdefg", "0123456789abcdeF", wide, Left(wide, 1), New Text)
  Echo Told(x)
Next
'> AbCdEfghij1
'> aBcDeFghij5
'> aBcDeFghij5
'> aBcDeFGhij3
'> aBcDeFGhij3
'> abcdefghij5
'> aBcDeFgHij2
'> aBcDeFgHij2
'> aBcDeFghij5
'> aBcDeFghIj4
'> aBcDeFghiJ4
'> aBcDeFghij5
'> aBcDeFghij5
'> AbCdEfghij1
'> AbCdEfghij1

'=== texts that functions have just made
Function Same(x): Same = x: End Function
Dim s, i, found
s = "abcABC"
For i = 1 To 6
  If Mid(s, i, 1) = "b" Then found = found & "m" & i
  If LCase(Mid(s, i, 2)) = "bc" Then found = found & "l" & i
  If Same(Mid(s, i, 1)) <> "C" Then found = found & "."
  If Left(s, i) & "!" = "abc!" Then found = found & "j" & i
  If Mid(s, i, 1) = Empty Then found = found & "no"
Next
Echo found '> .m2l2..j3.l5.

'=== loops that go on until a text comes
Dim at, steps
at = 0: Do: at = at + 1: Loop Until Mid("abcd", at, 1) = "c": Echo at '> 3
at = 0: Do: at = at + 1: Loop While Mid("abcd", at, 1) <> "d": Echo at '> 4
at = "": Do While at <> "aaa": at = at & "a": steps = steps + 1: Loop: Echo steps '> 3
at = "": Do Until at = "aaaaaaaaaaaaaaaaa": at = at & "a": Loop: Echo Len(at) '> 17

'=== what a Select looks at is found out once, and may be anything but an object
Dim calls
Function Counted(x): calls = calls + 1: Counted = x: End Function
Select Case Mid("xyz", Counted(2), 1)
  Case "x": Echo "x"
  Case "z", "y": Echo "y" '> y
End Select
Echo calls '> 1
Select Case TypeName(Nothing) & Len("ab")
  Case "Nothing2": Echo "both" '> both
End Select
Select Case Not False
  Case False: Echo "no"
  Case True: Echo "yes" '> yes
End Select
Select Case UBound(Split("a b c"))
  Case 2: Echo "two" '> two
End Select
On Error Resume Next
Select Case Mid("xyz", 0, 1)
  Case "x": Echo "x"
  Case Else: Echo "else"
End Select
Echo Err.Number '> 5
