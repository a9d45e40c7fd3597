'=== codes that scripts know by a number
Set p = CreateObject("Quorvane.Probe")
On Error Resume Next
For Each code In Array(&H80020003, &H80020005, &H80020006, &H8002000E, &H8002000F, &H80020008, &H8002000A, &H80004001, &H80004002, &H80070005, &H8007000E, &H80070057, &H800A01C9)
  p.Fail code
  WScript.Echo Err.Number & " " & Err.Description
  Err.Clear
Next
'> 438 Object doesn't support this property or method
'> 13 Type mismatch
'> 438 Object doesn't support this property or method
'> 450 Wrong number of arguments or invalid property assignment
'> 449 Argument not optional
'> 458 Variable uses an Automation type not supported in VBScript
'> 6 Overflow
'> 445 Object doesn't support this action
'> 430 Class doesn't support Automation
'> 70 Permission denied
'> 7 Out of memory
'> 5 Invalid procedure call or argument
'> 457 This key is already associated with an element of this collection

'=== codes that only the system knows
Set p = CreateObject("Quorvane.Probe")
On Error Resume Next
p.Fail &H80004005
WScript.Echo Hex(Err.Number) & " " & (Len(Err.Description) > 5)
'> 80004005 True
Err.Clear
p.Fail &H80020009
WScript.Echo Hex(Err.Number)
'> 80004005
p.Fail &H8ABC1234
WScript.Echo Hex(Err.Number) & " " & Err.Description
'> 8ABC1234 Unknown runtime error

'=== objects tell what went wrong
Set p = CreateObject("Quorvane.Probe")
On Error Resume Next
p.Fail vbObjectError + 7, "Probe.Part", "it's broken"
WScript.Echo Err.Number - vbObjectError & "|" & Err.Source & "|" & Err.Description & "|" & Err.HelpFile & "|" & Err.HelpContext
'> 7|Probe.Part|it's broken|probe.hlp|77
p.Fail 1004, "Probe.Part", "by a word"
WScript.Echo Err.Number & "|" & Err.Description
'> 1004|by a word
p.Fail &H800A0D5D, "ADODB.X", "of a library"
WScript.Echo Err.Number & "|" & Err.Description
'> 3421|of a library
p.Fail 0, "late", ""
WScript.Echo Err.Number & "|" & Err.Description
'> 1000|told late

'=== names and classes that are not there
On Error Resume Next
Set x = CreateObject("Quorvane.Nobody")
WScript.Echo Err.Number & " " & Err.Description
'> 429 ActiveX component can't create object
Err.Clear
Set p = CreateObject("Quorvane.Probe")
p.Nonsense = 1
WScript.Echo Err.Number
'> 438
Err.Clear
x = p.Mute.Name
WScript.Echo Err.Number
'> 438
Err.Clear
x = p + 1
WScript.Echo Err.Number
'> 450
