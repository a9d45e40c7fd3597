Option Explicit

Class Body
  Public x, y, z, vx, vy, vz, mass
End Class

Dim bodies(4)

Sub Place(i, x, y, z, vx, vy, vz, mass)
  Set bodies(i) = New Body
  bodies(i).x = x
  bodies(i).y = y
  bodies(i).z = z
  bodies(i).vx = vx
  bodies(i).vy = vy
  bodies(i).vz = vz
  bodies(i).mass = mass
End Sub

Sub Advance(dt)
  Dim i, j, dx, dy, dz, d2, mag
  For i = 0 To 4
    For j = i + 1 To 4
      dx = bodies(i).x - bodies(j).x
      dy = bodies(i).y - bodies(j).y
      dz = bodies(i).z - bodies(j).z
      d2 = dx * dx + dy * dy + dz * dz
      mag = dt / (d2 * Sqr(d2))
      bodies(i).vx = bodies(i).vx - dx * bodies(j).mass * mag
      bodies(i).vy = bodies(i).vy - dy * bodies(j).mass * mag
      bodies(i).vz = bodies(i).vz - dz * bodies(j).mass * mag
      bodies(j).vx = bodies(j).vx + dx * bodies(i).mass * mag
      bodies(j).vy = bodies(j).vy + dy * bodies(i).mass * mag
      bodies(j).vz = bodies(j).vz + dz * bodies(i).mass * mag
    Next
  Next
  For i = 0 To 4
    bodies(i).x = bodies(i).x + dt * bodies(i).vx
    bodies(i).y = bodies(i).y + dt * bodies(i).vy
    bodies(i).z = bodies(i).z + dt * bodies(i).vz
  Next
End Sub

Function Energy()
  Dim i, e
  e = 0.0
  For i = 0 To 4
    e = e + 0.5 * bodies(i).mass * (bodies(i).vx * bodies(i).vx + bodies(i).vy * bodies(i).vy + bodies(i).vz * bodies(i).vz)
  Next
  Energy = e
End Function

Dim n
Place 0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 39.5
Place 1, 4.84, -1.16, -0.1, 0.6, 2.8, -0.02, 0.0377
Place 2, 8.34, 4.12, -0.4, -1.01, 1.8, 0.008, 0.0113
Place 3, 12.9, -15.1, -0.22, 1.08, 0.87, -0.01, 0.0017
Place 4, 15.4, -25.9, 0.18, 0.98, 0.6, -0.035, 0.002
For n = 1 To 100000
  Advance 0.01
Next
WScript.Echo FormatNumber(Energy(), 6)
