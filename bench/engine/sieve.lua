local limit = 1000000
local composite = {}
local count
local sum
for round = 1, 3 do
  count = 0
  sum = 0
  for i = 0, limit do
    composite[i] = false
  end
  local i = 2
  while i <= limit do
    if not composite[i] then
      count = count + 1
      sum = (sum + i) % 1000003
      local j = i + i
      while j <= limit do
        composite[j] = true
        j = j + i
      end
    end
    i = i + 1
  end
end
print(count .. " " .. sum)
