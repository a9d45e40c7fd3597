'=== values go as what they are
Set p = CreateObject("Quorvane.Probe")
WScript.Echo p.Describe(1, 70000, CSng(1.5), 0.1)
'> I2 1; I4 70000; R4 1.5; R8 0.1
WScript.Echo p.Describe(CCur(2.5), True, CByte(200), Empty)
'> CY 2.5; BOOL -1; UI1 200; EMPTY
WScript.Echo p.Describe(Null, Nothing, #2000-01-01 12:00:00#)
'> NULL; DISPATCH nothing; DATE 1/1/2000 12:00:00 PM
WScript.Echo p.Describe("grün " & ChrW(20013), "")
'> BSTR 'gr<252>n <20013>' 12; BSTR '' 0
WScript.Echo p.Describe(1, , 3)
'> I2 1; ERROR missing; I2 3
WScript.Echo p.Describe(ChrB(97) & ChrB(98) & ChrB(99))
'> BSTR '<25185>' 3

'=== variables go by reference
Set p = CreateObject("Quorvane.Probe")
a = 5
b = "text"
WScript.Echo p.Describe(a, (a), b, a + 1)
'> ->I2 5; I2 5; ->BSTR 'text' 8; I2 6

'=== arrays go with their bounds and their order
Set p = CreateObject("Quorvane.Probe")
Dim t(1, 2)
For row = 0 To 1
  For column = 0 To 2
    t(row, column) = row * 10 + column
  Next
Next
WScript.Echo p.Describe((t))
'> array of VARIANT 0..1 0..2 [I2 0, I2 10, I2 1, I2 11, I2 2, I2 12]
WScript.Echo p.Describe(Array(1, "x", Array(2)))
'> array of VARIANT 0..2 [I2 1, BSTR 'x' 2, array of VARIANT 0..0 [I2 2]]
WScript.Echo p.Describe(Array())
'> array of VARIANT 0..-1 []
Dim none()
WScript.Echo p.Describe((none))
'> array of VARIANT none
WScript.Echo p.Describe(p.Sample("array of ui1"))
'> array of UI1 0..2 [1, 0, 255]
Dim cube(1, 1, 1)
cube(1, 0, 0) = 1
cube(0, 1, 0) = 2
cube(0, 0, 1) = 4
WScript.Echo p.Describe((cube))
'> array of VARIANT 0..1 0..1 0..1 [EMPTY, I2 1, I2 2, EMPTY, I2 4, EMPTY, EMPTY, EMPTY]

'=== values of every type come
Set p = CreateObject("Quorvane.Probe")
For Each kind In Array("empty", "null", "i1", "ui1", "i2", "ui2", "i4", "ui4", "large ui4", "i8", "large i8", "ui8", "int", "uint")
  v = p.Sample(kind)
  WScript.Echo kind & ": " & TypeName(v) & " " & v
Next
'> empty: Empty 
'> null: Null 
'> i1: Integer -5
'> ui1: Byte 200
'> i2: Integer -2
'> ui2: Long 65535
'> i4: Long -70000
'> ui4: Long 7
'> large ui4: Double 4000000000
'> i8: Long -3
'> large i8: Double 5000000000
'> ui8: Double 6000000000
'> int: Long 12
'> uint: Long 13
For Each kind In Array("r4", "r8", "cy", "date", "bool", "decimal", "fine decimal", "large decimal", "null text", "text")
  v = p.Sample(kind)
  If kind = "text" Then v = Len(v) & " " & AscW(Mid(v, 6)) & " " & AscW(Mid(v, 8))
  WScript.Echo kind & ": " & TypeName(v) & " " & v
Next
'> r4: Single 1.5
'> r8: Double 0.1
'> cy: Currency 12.3456
'> date: Date 1/1/2000 12:00:00 PM
'> bool: Boolean True
'> decimal: Currency 79.125
'> fine decimal: Double 0.000001
'> large decimal: Double 7.9E+28
'> null text: String 
'> text: String 8 20013 8364
WScript.Echo TypeName(p.Sample("error")) & " " & TypeName(p.Sample("nothing")) & " " & VarType(p.Sample("missing"))
'> Error Nothing 10
WScript.Echo LenB(p.Sample("odd bytes")) & " " & AscB(p.Sample("odd bytes"))
'> 3 97
On Error Resume Next
v = p.Sample("record")
WScript.Echo Err.Number
'> 458

'=== arrays of every type come
Set p = CreateObject("Quorvane.Probe")
For Each kind In Array("array of ui1", "array of i4", "array of r8", "array of bool", "array of text", "empty array")
  v = p.Sample(kind)
  text = kind & ": " & TypeName(v) & " " & LBound(v) & ".." & UBound(v)
  For Each e In v
    If TypeName(e) = "String" Then e = AscW(e)
    text = text & " " & TypeName(e) & " " & e
  Next
  WScript.Echo text
Next
'> array of ui1: Byte() 0..2 Byte 1 Byte 0 Byte 255
'> array of i4: Variant() 5..6 Long 50 Long 60
'> array of r8: Variant() 0..1 Double 0.5 Double 1E+300
'> array of bool: Variant() 0..1 Boolean True Boolean False
'> array of text: Variant() 0..1 Integer 97 Integer 20013
'> empty array: Variant() 0..-1
t = p.Sample("table")
WScript.Echo LBound(t, 1) & ".." & UBound(t, 1) & " " & LBound(t, 2) & ".." & UBound(t, 2)
'> 1..2 0..2
WScript.Echo t(1, 0) & " " & t(1, 2) & " " & t(2, 0)
'> 11 13 21
t(2, 2) = "end"
s = t
s(1, 0) = "begin"
WScript.Echo p.Describe((t))
'> array of VARIANT 1..2 0..2 [I4 11, I4 21, I4 12, I4 22, I4 13, BSTR 'end' 6]
WScript.Echo p.Describe((s))
'> array of VARIANT 1..2 0..2 [BSTR 'begin' 10, I4 21, I4 12, I4 22, I4 13, BSTR 'end' 6]
v = p.Sample("array of i4")
v(6) = v(5) + 1
For i = LBound(v) To UBound(v)
  WScript.Echo i & ": " & v(i)
Next
'> 5: 50
'> 6: 51
Sub OutOfBounds(row, column)
  On Error Resume Next
  x = t(row, column)
  WScript.Echo Err.Number
End Sub
OutOfBounds 0, 0
'> 9
OutOfBounds 3, 0
'> 9
OutOfBounds 1, 3
'> 9
none = p.Sample("array without dimensions")
On Error Resume Next
n = UBound(none)
WScript.Echo TypeName(none) & " " & Err.Number
'> Variant() 9
Err.Clear
ReDim Preserve v(8)
WScript.Echo Err.Number & " " & UBound(v)
'> 9 6
ReDim v(8)
WScript.Echo LBound(v) & ".." & UBound(v)
'> 0..8

'=== arrays that are too deep in each other
Set p = CreateObject("Quorvane.Probe")
a = Array(1)
For i = 1 To 5000
  a = Array(a)
Next
On Error Resume Next
text = p.Describe((a))
WScript.Echo Err.Number & " " & Err.Description
'> 28 Out of stack space
