'=== Sub with and without parentheses, with and without Call
Sub S(a, b)
  Echo a, b
End Sub
S 1, 2                         '> 1 2
Call S(3, 4)                   '> 3 4
Sub T
  Echo "t"
End Sub
T                              '> t
T()                            '> t
Call T                         '> t
Call T()                       '> t

'=== Function results
Function Twice(x)
  Twice = x * 2
End Function
Echo Twice(4)                  '> 8
Echo Twice(Twice(3))           '> 12
Twice 5
Call Twice(5)
Echo "end"                     '> end

'=== a function without a result gives Empty
Function F
End Function
Show F                         '> Empty
Show F()                       '> Empty

'=== the result can be read and added to inside
Function Repeat(text, n)
  Dim i
  For i = 1 To n
    Repeat = Repeat & text
  Next
End Function
Echo Repeat("ab", 3)           '> ababab

'=== an object as result
Class Box
  Public V
End Class
Function Make(v)
  Set Make = New Box
  Make.V = v
End Function
Echo Make(7).V                 '> 7
Dim b: Set b = Make(8)
Echo b.V                       '> 8

'=== an array as result
Function Pair(a, b)
  Pair = Array(a, b)
End Function
Echo Pair(1, 2)(1)             '> 2
Dim p: p = Pair("x", "y")
Echo p(0)                      '> x

'=== calls before the definition
Echo Later(1)                  '> 2
Function Later(x): Later = x + 1: End Function

'=== recursion
Function Factorial(n)
  If n < 2 Then Factorial = 1 Else Factorial = n * Factorial(n - 1)
End Function
Echo Factorial(10)             '> 3628800
Function Fib(n)
  If n < 2 Then
    Fib = n
  Else
    Fib = Fib(n - 1) + Fib(n - 2)
  End If
End Function
Echo Fib(15)                   '> 610

'=== mutual recursion
Function IsEven(n)
  If n = 0 Then IsEven = True Else IsEven = IsOdd(n - 1)
End Function
Function IsOdd(n)
  If n = 0 Then IsOdd = False Else IsOdd = IsEven(n - 1)
End Function
Echo IsEven(10), IsEven(7)     '> True False

'=== a call needs every argument
Sub S(a, b)
End Sub
S 1                            '! 450

'=== a call with too many arguments
Function F(a)
End Function
x = F(1, 2)                    '! 450

'=== an unknown procedure
Missing 1                      '! 13 Type mismatch: 'Missing'

'=== an unknown function
x = Missing(1)                 '! 13 Type mismatch: 'Missing'

'=== an unknown procedure under Option Explicit
Option Explicit
Missing 1                      '! 500 Variable is undefined: 'Missing'

'=== an omitted argument is an Error value
Sub S(a, b, c)
  Show b
  Echo a, c
End Sub
S 1, , 3
'> Error
'> 1 3

'=== omitted first argument
Sub S(a, b)
  Echo TypeName(a), b
End Sub
S , 2                          '> Error 2
Call S(, 3)                    '> Error 3

'=== endless recursion
Sub S
  S
End Sub
On Error Resume Next
S
Failed                         '> 28

'=== one value of several operands
Sub P(x)
  Echo x
End Sub
Dim a, b
a = 2: b = 5
P (a + 1) * b                  '> 15
P (a) & "x"                    '> 2x
