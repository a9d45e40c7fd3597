Option Explicit

Sub QuickSort(a, low, high)
  Dim i, j, pivot, swap
  i = low
  j = high
  pivot = a((low + high) \ 2)
  Do While i <= j
    Do While a(i) < pivot
      i = i + 1
    Loop
    Do While a(j) > pivot
      j = j - 1
    Loop
    If i <= j Then
      swap = a(i)
      a(i) = a(j)
      a(j) = swap
      i = i + 1
      j = j - 1
    End If
  Loop
  If low < j Then QuickSort a, low, j
  If i < high Then QuickSort a, i, high
End Sub

Sub BubbleSort(a)
  Dim i, j, swap
  For i = UBound(a) To 1 Step -1
    For j = 0 To i - 1
      If a(j) > a(j + 1) Then
        swap = a(j)
        a(j) = a(j + 1)
        a(j + 1) = swap
      End If
    Next
  Next
End Sub

Function Numbers(count)
  Dim a(), i, n
  ReDim a(count - 1)
  n = 42
  For i = 0 To count - 1
    n = (n * 16807 + 17) Mod 100003
    a(i) = n
  Next
  Numbers = a
End Function

Dim big, small
big = Numbers(400000)
QuickSort big, 0, UBound(big)
small = Numbers(1500)
BubbleSort small
WScript.Echo big(0) & " " & big(200000) & " " & big(399999)
WScript.Echo small(0) & " " & small(750) & " " & small(1499)
