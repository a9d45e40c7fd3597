local function tak(x, y, z)
  if y >= x then
    return z
  else
    return tak(tak(x - 1, y, z), tak(y - 1, z, x), tak(z - 1, x, y))
  end
end

local function ackermann(m, n)
  if m == 0 then
    return n + 1
  elseif n == 0 then
    local result = ackermann(m - 1, 1)
    return result
  else
    local result = ackermann(m - 1, ackermann(m, n - 1))
    return result
  end
end

local towers = {[0] = 0, 0, 0}
local function move(height, from, into, spare)
  if height == 0 then
    return
  end
  move(height - 1, from, spare, into)
  towers[into] = towers[into] + 1
  move(height - 1, spare, into, from)
end

move(18, 0, 1, 2)
print(tak(24, 16, 8) .. " " .. ackermann(2, 1000) .. " " .. towers[0] .. " " .. towers[1] .. " " .. towers[2])
