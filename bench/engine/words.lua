local vocabulary = {[0] = "alder", "birch", "cedar", "dogwood", "elm", "fir", "gorse", "hazel", "ivy", "juniper"}

local function word(n)
  return vocabulary[n % 10] .. n
end

local words = {}
local n = 7
for i = 0, 19999 do
  n = (n * 421 + 1663) % 7919
  words[i] = word(n % 3001)
end
local counts = {}
local places = {}
local order = {}
local placed = 0
for round = 1, 60 do
  for i = 0, #words do
    local w = words[i]
    if not counts[w] then
      order[#order + 1] = w
    end
    counts[w] = (counts[w] or 0) + 1
  end
  for i = 0, #words do
    if not places[words[i]] then
      places[words[i]] = i
      placed = placed + 1
    end
  end
end
local total = 0
local longest = ""
for _, w in ipairs(order) do
  total = total + counts[w] * #w + places[w] % 7
  if #w > #longest then
    longest = w
  end
end
print(#order .. " " .. placed .. " " .. total .. " " .. longest)
