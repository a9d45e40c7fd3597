local size = 200

local function filled(seed)
  local m = {}
  for i = 0, size - 1 do
    local row = {}
    for j = 0, size - 1 do
      row[j] = (i * seed + j) % 10
    end
    m[i] = row
  end
  return m
end

local function product(a, b)
  local c = {}
  for i = 0, size - 1 do
    local row = {}
    for j = 0, size - 1 do
      local sum = 0
      for k = 0, size - 1 do
        sum = sum + a[i][k] * b[k][j]
      end
      row[j] = sum
    end
    c[i] = row
  end
  return c
end

local function primes(limit)
  local composite = {}
  for i = 0, limit do
    composite[i] = false
  end
  local count = 0
  for i = 2, limit do
    if not composite[i] then
      count = count + 1
      for j = i + i, limit, i do
        composite[j] = true
      end
    end
  end
  return count
end

local c = product(filled(3), filled(7))
print(c[0][0] .. " " .. c[size - 1][size - 1] .. " " .. c[17][42])
print(primes(2000000))
