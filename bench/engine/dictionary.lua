local counts = {}
local keys = {}
local n = 12345
for i = 1, 1500000 do
  n = (n * 421 + 1663) % 7919
  local key = "k" .. n
  if counts[key] then
    counts[key] = counts[key] + 1
  else
    keys[#keys + 1] = key
    counts[key] = 1
  end
end
local total = 0
local most = 0
local mostKey = ""
for _, key in ipairs(keys) do
  total = total + counts[key]
  if counts[key] > most then
    most = counts[key]
    mostKey = key
  end
end
print(#keys .. " " .. total .. " " .. most .. " " .. mostKey)
