'=== the end of an element that ReDim Preserve cuts off makes the array anew
Dim arr, other, i, s
Class Last
  Private Sub Class_Terminate : ReDim arr(50) : End Sub
End Class
ReDim arr(3)
Set arr(1) = New Last
ReDim Preserve arr(0)
For i = 1 To 100 : s = s & CStr(i) : ReDim other(1) : Next
Echo UBound(arr), UBound(other)  '> 50 1

'=== the end of a cut element may read and write what is left
Dim arr
Class Reader
  Private Sub Class_Terminate : arr(0) = arr(0) & UBound(arr) : End Sub
End Class
ReDim arr(2)
arr(0) = "bound "
Set arr(2) = New Reader
ReDim Preserve arr(1)
Echo arr(0)                    '> bound 1

'=== an object whose default property makes the array anew is stored in the new one
Dim arr
Class Renewer
  Public Default Property Get V : ReDim arr(9) : V = "v" : End Property
End Class
ReDim arr(3)
arr(1) = New Renewer
Echo UBound(arr), arr(1)       '> 9 v

'=== an object whose default property takes the array away
Dim arr
Class Remover
  Public Default Property Get V : arr = 5 : V = "v" : End Property
End Class
ReDim arr(3)
arr(1) = New Remover           '! 13

'=== the same in an array of arrays and in a field
Dim arr, o
Class Renewer
  Public Default Property Get V : arr(0) = Array(1, 2) : V = "v" : End Property
End Class
Class Holder
  Public list
End Class
arr = Array(Array(1, 2, 3), 0)
arr(0)(1) = New Renewer
Echo arr(0)(1)                 '> v

'=== Nothing needs Set
Dim y
y = Nothing                    '! 91

'=== an index whose default property takes the array away
Dim arr, one
Class Remover
  Public Default Property Get V : arr = Empty : V = 1 : End Property
End Class
Set one = New Remover
arr = Array(1, 2)
On Error Resume Next
arr(one) = 2
Echo Err.Number                '> 13
arr = Array(1, 2)
Echo arr(one)
Echo Err.Number                '> 13

'=== the same within an array of arrays, which stays until it is done
Dim arr, one
Class Remover
  Public Default Property Get V : arr = Empty : V = 1 : End Property
End Class
Sub Join3(text) : text = text & 3 : End Sub
Set one = New Remover
arr = Array(0, Array(1, 2))
arr(1)(one) = one
Echo TypeName(arr)             '> Empty
arr = Array(0, Array(1, 2))
Join3 arr(1)(one)
Echo TypeName(arr)             '> Empty
arr = Array(0, Array(1, Array(2)))
Erase arr(1)(one)
Echo TypeName(arr)             '> Empty
arr = Array(0, Array(1, 2))
arr(1)(0) = 2
ReDim arr(3)
Echo UBound(arr)               '> 3

'=== functions whose arguments take their array away
Dim arr, one
Class Remover
  Public Default Property Get V : arr = Empty : V = 1 : End Property
End Class
Set one = New Remover
arr = Array("a", "b1")
Echo Join(arr, one)            '> a1b1
arr = Array("a", "b1")
Echo Join(Filter(arr, one))    '> b1
arr = Array("a", "b1")
Echo UBound(arr, one)          '! 13
