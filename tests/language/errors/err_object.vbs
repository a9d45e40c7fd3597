'=== at first there is no error
Echo Err.Number                '> 0
Echo "[" & Err.Description & "]"   '> []
Echo "[" & Err.Source & "]"    '> []

'=== what a run-time error leaves
On Error Resume Next
x = 1 / 0
Echo Err.Number                '> 11
Echo Err.Description           '> Division by zero
Echo Err.Source                '> Microsoft VBScript runtime error

'=== Clear
On Error Resume Next
x = 1 / 0
Err.Clear
Echo Err.Number, "[" & Err.Description & "]"   '> 0 []

'=== Number is the default
On Error Resume Next
x = 1 / 0
Echo Err                       '> 11
If Err Then Echo "error"       '> error
If Err = 11 Then Echo "eleven" '> eleven
If Err <> 0 Then Echo "again"  '> again

'=== On Error Resume Next clears
On Error Resume Next
x = 1 / 0
On Error Resume Next
Echo Err.Number                '> 0

'=== Raise with all its arguments
On Error Resume Next
Err.Raise 1234, "my source", "my text"
Echo Err.Number                '> 1234
Echo Err.Source                '> my source
Echo Err.Description           '> my text

'=== Raise with a known number has its text
On Error Resume Next
Err.Raise 13
FailedText                     '> 13 Type mismatch
Err.Raise 9
FailedText                     '> 9 Subscript out of range
Err.Raise 5
FailedText                     '> 5 Invalid procedure call or argument
Err.Raise 6
FailedText                     '> 6 Overflow
Err.Raise 7
FailedText                     '> 7 Out of memory
Err.Raise 28
FailedText                     '> 28 Out of stack space
Err.Raise 53
FailedText                     '> 53 File not found
Err.Raise 70
FailedText                     '> 70 Permission denied
Err.Raise 76
FailedText                     '> 76 Path not found
Err.Raise 91
FailedText                     '> 91 Object variable not set
Err.Raise 94
FailedText                     '> 94 Invalid use of Null
Err.Raise 424
FailedText                     '> 424 Object required
Err.Raise 429
FailedText                     '> 429 ActiveX component can't create object
Err.Raise 438
FailedText                     '> 438 Object doesn't support this property or method
Err.Raise 450
FailedText                     '> 450 Wrong number of arguments or invalid property assignment
Err.Raise 451
FailedText                     '> 451 Object not a collection
Err.Raise 457
FailedText                     '> 457 This key is already associated with an element of this collection
Err.Raise 500
FailedText                     '> 500 Variable is undefined
Err.Raise 501
FailedText                     '> 501 Illegal assignment

'=== Raise with an unknown number
On Error Resume Next
Err.Raise 1000
FailedText                     '> 1000 Unknown runtime error

'=== Raise of an object's own error
On Error Resume Next
Err.Raise vbObjectError + 5, "mine", "text"
Echo Err.Number                '> -2147221499
Echo Err.Number - vbObjectError   '> 5

'=== Raise without a trap
Err.Raise 1234, "src", "stop here"   '! 1234 stop here

'=== Raise of no error
On Error Resume Next
Err.Raise 0
Failed                         '> 5

'=== Raise in a function is trapped by its caller
Function Check(n)
  If n < 0 Then Err.Raise 1001, "Check", "negative"
  Check = n
End Function
On Error Resume Next
x = Check(-1)
FailedText                     '> 1001 negative
x = Check(2)
FailedText                     '> no error
Echo x                         '> 2

'=== an error stays until it is cleared
On Error Resume Next
x = 1 / 0
y = 1
Echo Err.Number                '> 11

'=== the properties can be set
Err.Number = 5
Err.Description = "d"
Err.Source = "s"
Err.HelpFile = "h"
Err.HelpContext = 7
Echo Err.Number, Err.Description, Err.Source, Err.HelpFile, Err.HelpContext   '> 5 d s h 7

'=== Raise knows the codes of systems
On Error Resume Next
Err.Raise &h8007000E&
FailedText                     '> 7 Out of memory
Err.Raise &h80070005&
FailedText                     '> 70 Permission denied
Err.Raise &h80070057&
FailedText                     '> 5 Invalid procedure call or argument
Err.Raise &h80020009&
Echo Err.Number = &h80020009&  '> True
Err.Clear
Err.Raise &h80020005&
FailedText                     '> 13 Type mismatch
Err.Raise &h80040154&
FailedText                     '> 429 ActiveX component can't create object
Err.Raise &h80030002&
FailedText                     '> 53 File not found
Err.Raise &h800706BA&
FailedText                     '> 462 The remote server machine does not exist or is unavailable
Err.Raise &h800A01A8&
FailedText                     '> 424 Object required
Err.Raise vbObjectError + 5
Echo Err.Number - vbObjectError   '> 5

'=== Raise takes numbers of 16 bits
On Error Resume Next
Err.Raise 65535
Failed                         '> 65535
Err.Raise &h10000&
FailedText                     '> 5 Invalid procedure call or argument
Err.Raise 0
Failed                         '> 5

'=== Raise keeps what an earlier error has left
On Error Resume Next
Err.Source = "mine": Err.Description = "my text": Err.HelpFile = "help"
Err.Raise 5
Echo Err.Number, Err.Source, Err.Description, Err.HelpFile   '> 5 mine my text help
Err.Raise 6, "other"
Echo Err.Number, Err.Source, Err.Description   '> 6 other my text
Err.Clear
Err.Raise 6
Echo Err.Number, Err.Source, Err.Description   '> 6 Microsoft VBScript runtime error Overflow
