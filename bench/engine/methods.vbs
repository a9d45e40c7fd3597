Option Explicit

Class Account
  Private m_balance
  Private m_count

  Private Sub Class_Initialize()
    m_balance = 0
    m_count = 0
  End Sub

  Public Property Get Balance()
    Balance = m_balance
  End Property

  Public Property Let Balance(value)
    m_balance = value
  End Property

  Public Sub Deposit(amount)
    m_balance = m_balance + amount
    Note
  End Sub

  Public Function CanPay(amount)
    CanPay = (m_balance >= amount)
  End Function

  Public Property Get Count()
    Count = m_count
  End Property

  Private Sub Note()
    m_count = m_count + 1
  End Sub
End Class

Sub Transfer(from, into, amount)
  If from.CanPay(amount) Then
    from.Balance = from.Balance - amount
    into.Deposit amount
  End If
End Sub

Dim a, b, i
Set a = New Account
Set b = New Account
a.Deposit 1000
For i = 1 To 700000
  Transfer a, b, i Mod 10
  Transfer b, a, i Mod 7
Next
WScript.Echo a.Balance & " " & b.Balance & " " & (a.Count + b.Count)
