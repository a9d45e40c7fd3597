'=== a procedure is called
Set p = CreateObject("Quorvane.Probe")
Function Add(a, b)
  Add = a + b
End Function
WScript.Echo p.CallBack(GetRef("Add"), 2, 3)
'> 5
Sub Note(text)
  WScript.Echo "noted " & text
End Sub
p.CallBack GetRef("Note"), "x"
'> noted x

'=== a procedure changes what it gets by reference
Set p = CreateObject("Quorvane.Probe")
Sub Change(number, text, any)
  WScript.Echo TypeName(number) & " " & TypeName(text) & " " & TypeName(any)
  number = 77
  text = text & "!"
  any = Array(1, "x")
End Sub
WScript.Echo p.CallByReference(GetRef("Change"))
'> Long String Empty
'> 77 text! array of VARIANT 0..1 [I2 1, BSTR 'x' 2]
Sub Spoil(number, text, any)
  number = "no number"
End Sub
On Error Resume Next
x = p.CallByReference(GetRef("Spoil"))
WScript.Echo Err.Number
'> 13

'=== an object of a class
Set p = CreateObject("Quorvane.Probe")
Class Account
  Private total_
  Public Owner
  Public Default Function Describe(what)
    Describe = what & " of " & Owner & ": " & total_
  End Function
  Public Property Get Total
    Total = total_
  End Property
  Public Property Let Total(value)
    total_ = value
  End Property
  Public Sub Add(n)
    total_ = total_ + n
  End Sub
End Class
Set a = New Account
p.Use a, "Owner", "put", "Ada"
p.Use a, "TOTAL", "put", 5
p.Use a, "add", "call", 3
WScript.Echo p.Use(a, "total", "get") & " " & p.CallBack(a, "state")
'> 8 state of Ada: 8
On Error Resume Next
x = p.Use(a, "Nothing", "get")
WScript.Echo Err.Number & " " & Err.Description
'> 438 Object doesn't support this property or method
p.Use a, "Add", "call"
WScript.Echo Err.Number
'> 450

'=== an object comes back as what it was
Set p = CreateObject("Quorvane.Probe")
Class Thing
  Public Name
End Class
Set t = New Thing
t.Name = "t"
Function Same(x)
  Set Same = x
End Function
Set back = p.CallBack(GetRef("Same"), t)
WScript.Echo (back Is t) & " " & TypeName(back) & " " & back.Name
'> True Thing t
Set back = p.CallBack(GetRef("Same"), p)
WScript.Echo (back Is p)
'> True

'=== others walk a collection of ours
Set p = CreateObject("Quorvane.Probe")
Set c = CreateObject("System.Collections.ArrayList")
c.Add "a"
c.Add 2
WScript.Echo TypeName(c) & " " & p.Walk(c)
'> ArrayList a;2;
On Error Resume Next
x = p.Walk(GetRef("Nobody"))
Function Nobody
End Function
WScript.Echo Err.Number
'> 451

'=== an error goes through those who called
Set p = CreateObject("Quorvane.Probe")
Sub Fails
  Err.Raise vbObjectError + 5, "here", "on purpose"
End Sub
Sub Divides
  x = 1 / 0
End Sub
On Error Resume Next
p.CallBack GetRef("Fails")
WScript.Echo Err.Number - vbObjectError & " " & Err.Source & " " & Err.Description
'> 5 here on purpose
Err.Clear
p.CallBack GetRef("Divides")
WScript.Echo Err.Number & " " & Err.Source & " " & Err.Description
'> 11 Microsoft VBScript runtime error Division by zero

'=== a script ends in a procedure that others call
Set p = CreateObject("Quorvane.Probe")
Sub Leave
  WScript.Echo "leaving"
  WScript.Quit 0
End Sub
On Error Resume Next
p.CallBack GetRef("Leave")
WScript.Echo "not reached"
'> leaving

'=== others hold an object of the script
Set p = CreateObject("Quorvane.Probe")
Class Watched
  Private Sub Class_Terminate
    p.Write "terminated"
  End Sub
End Class
p.Keep New Watched
p.Write "kept"
p.Keep
p.Write "dropped"
WScript.Echo p.Log
'> kept terminated dropped
Set w = New Watched
p.Keep w
Set w = Nothing
p.Write "end"
WScript.Echo p.Log
'> kept terminated dropped end

'=== objects that hold each other are no fault at the end
Set p = CreateObject("Quorvane.Probe")
Class Ring
  Public Other
End Class
Set r = New Ring
Set r.Other = p
p.Keep r
WScript.Echo "done"
'> done

'=== a call from another thread comes while the script sleeps
Set p = CreateObject("Quorvane.Probe")
came = ""
Sub Take(text)
  came = text
End Sub
p.CallFromThread GetRef("Take")
WScript.Echo "[" & came & "]"
'> []
For i = 1 To 40
  If came = "" Then WScript.Sleep 50
Next
WScript.Echo came
'> from afar

'=== a run that is over its time ends inside of a procedure that others call
'--- --time-limit=1
Set p = CreateObject("Quorvane.Probe")
Sub Forever
  Do
  Loop
End Sub
On Error Resume Next
p.CallBack GetRef("Forever")
WScript.Echo "not reached"
'! Script timed out
