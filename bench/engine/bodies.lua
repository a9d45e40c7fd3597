local bodies = {}

local function place(i, x, y, z, vx, vy, vz, mass)
  bodies[i] = {x = x, y = y, z = z, vx = vx, vy = vy, vz = vz, mass = mass}
end

local function advance(dt)
  for i = 0, 4 do
    for j = i + 1, 4 do
      local dx = bodies[i].x - bodies[j].x
      local dy = bodies[i].y - bodies[j].y
      local dz = bodies[i].z - bodies[j].z
      local d2 = dx * dx + dy * dy + dz * dz
      local mag = dt / (d2 * math.sqrt(d2))
      bodies[i].vx = bodies[i].vx - dx * bodies[j].mass * mag
      bodies[i].vy = bodies[i].vy - dy * bodies[j].mass * mag
      bodies[i].vz = bodies[i].vz - dz * bodies[j].mass * mag
      bodies[j].vx = bodies[j].vx + dx * bodies[i].mass * mag
      bodies[j].vy = bodies[j].vy + dy * bodies[i].mass * mag
      bodies[j].vz = bodies[j].vz + dz * bodies[i].mass * mag
    end
  end
  for i = 0, 4 do
    bodies[i].x = bodies[i].x + dt * bodies[i].vx
    bodies[i].y = bodies[i].y + dt * bodies[i].vy
    bodies[i].z = bodies[i].z + dt * bodies[i].vz
  end
end

local function energy()
  local e = 0.0
  for i = 0, 4 do
    e = e + 0.5 * bodies[i].mass * (bodies[i].vx * bodies[i].vx + bodies[i].vy * bodies[i].vy + bodies[i].vz * bodies[i].vz)
  end
  return e
end

place(0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 39.5)
place(1, 4.84, -1.16, -0.1, 0.6, 2.8, -0.02, 0.0377)
place(2, 8.34, 4.12, -0.4, -1.01, 1.8, 0.008, 0.0113)
place(3, 12.9, -15.1, -0.22, 1.08, 0.87, -0.01, 0.0017)
place(4, 15.4, -25.9, 0.18, 0.98, 0.6, -0.035, 0.002)
for n = 1, 100000 do
  advance(0.01)
end
print(string.format("%.6f", energy()))
