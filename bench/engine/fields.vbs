Option Explicit

Class Body
  Public x, y, z, vx, vy, vz, mass
End Class

Function NewBody(x, y, z, vx, vy, vz, mass)
  Dim b
  Set b = New Body
  b.x = x
  b.y = y
  b.z = z
  b.vx = vx
  b.vy = vy
  b.vz = vz
  b.mass = mass
  Set NewBody = b
End Function

Sub Advance(bodies, dt)
  Dim i, j, a, b, dx, dy, dz, d2, mag
  For i = 0 To UBound(bodies)
    Set a = bodies(i)
    For j = i + 1 To UBound(bodies)
      Set b = bodies(j)
      dx = a.x - b.x
      dy = a.y - b.y
      dz = a.z - b.z
      d2 = dx * dx + dy * dy + dz * dz
      mag = dt / (d2 * Sqr(d2))
      a.vx = a.vx - dx * b.mass * mag
      a.vy = a.vy - dy * b.mass * mag
      a.vz = a.vz - dz * b.mass * mag
      b.vx = b.vx + dx * a.mass * mag
      b.vy = b.vy + dy * a.mass * mag
      b.vz = b.vz + dz * a.mass * mag
    Next
  Next
  For i = 0 To UBound(bodies)
    Set a = bodies(i)
    a.x = a.x + dt * a.vx
    a.y = a.y + dt * a.vy
    a.z = a.z + dt * a.vz
  Next
End Sub

Function Energy(bodies)
  Dim i, a, e
  e = 0.0
  For i = 0 To UBound(bodies)
    Set a = bodies(i)
    e = e + 0.5 * a.mass * (a.vx * a.vx + a.vy * a.vy + a.vz * a.vz)
  Next
  Energy = e
End Function

Dim bodies(4), n
Set bodies(0) = NewBody(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 39.5)
Set bodies(1) = NewBody(4.84, -1.16, -0.1, 0.6, 2.8, -0.02, 0.0377)
Set bodies(2) = NewBody(8.34, 4.12, -0.4, -1.01, 1.8, 0.008, 0.0113)
Set bodies(3) = NewBody(12.9, -15.1, -0.22, 1.08, 0.87, -0.01, 0.0017)
Set bodies(4) = NewBody(15.4, -25.9, 0.18, 0.98, 0.6, -0.035, 0.002)
For n = 1 To 120000
  Advance bodies, 0.01
Next
WScript.Echo FormatNumber(Energy(bodies), 6)
