local function newBody(x, y, z, vx, vy, vz, mass)
  return {x = x, y = y, z = z, vx = vx, vy = vy, vz = vz, mass = mass}
end

local function advance(bodies, dt)
  for i = 1, #bodies do
    local a = bodies[i]
    for j = i + 1, #bodies do
      local b = bodies[j]
      local dx = a.x - b.x
      local dy = a.y - b.y
      local dz = a.z - b.z
      local d2 = dx * dx + dy * dy + dz * dz
      local mag = dt / (d2 * math.sqrt(d2))
      a.vx = a.vx - dx * b.mass * mag
      a.vy = a.vy - dy * b.mass * mag
      a.vz = a.vz - dz * b.mass * mag
      b.vx = b.vx + dx * a.mass * mag
      b.vy = b.vy + dy * a.mass * mag
      b.vz = b.vz + dz * a.mass * mag
    end
  end
  for i = 1, #bodies do
    local a = bodies[i]
    a.x = a.x + dt * a.vx
    a.y = a.y + dt * a.vy
    a.z = a.z + dt * a.vz
  end
end

local function energy(bodies)
  local e = 0.0
  for i = 1, #bodies do
    local a = bodies[i]
    e = e + 0.5 * a.mass * (a.vx * a.vx + a.vy * a.vy + a.vz * a.vz)
  end
  return e
end

local bodies = {
  newBody(0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 39.5),
  newBody(4.84, -1.16, -0.1, 0.6, 2.8, -0.02, 0.0377),
  newBody(8.34, 4.12, -0.4, -1.01, 1.8, 0.008, 0.0113),
  newBody(12.9, -15.1, -0.22, 1.08, 0.87, -0.01, 0.0017),
  newBody(15.4, -25.9, 0.18, 0.98, 0.6, -0.035, 0.002),
}
for n = 1, 120000 do
  advance(bodies, 0.01)
end
print(string.format("%.6f", energy(bodies)))
