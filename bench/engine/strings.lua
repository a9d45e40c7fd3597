local function built(count)
  local pieces = {}
  for i = 1, count do
    pieces[#pieces + 1] = "item " .. i .. ";"
  end
  return table.concat(pieces)
end

local function reversed(text)
  local pieces = {}
  for i = #text, 1, -1 do
    pieces[#pieces + 1] = string.sub(text, i, i)
  end
  return table.concat(pieces)
end

local function countWords(text)
  local at = 1
  local count = 0
  while true do
    at = string.find(text, "item", at, true)
    if not at then
      break
    end
    count = count + 1
    at = at + 4
  end
  return count
end

local function checkSum(text)
  local sum = 0
  for i = 1, #text do
    sum = (sum * 31 + string.byte(text, i)) % 65521
  end
  return sum
end

local function split(text, separator)
  local parts = {}
  local from = 1
  while true do
    local at = string.find(text, separator, from, true)
    if not at then
      parts[#parts + 1] = string.sub(text, from)
      return parts
    end
    parts[#parts + 1] = string.sub(text, from, at - 1)
    from = at + 1
  end
end

local text = built(200000)
local back = reversed(text)
local parts = split(text, ";")
print(#text .. " " .. string.sub(back, 1, 12))
print(countWords(text) .. " " .. checkSum(text))
local replaced = string.gsub(text, "item", "thing")
print(#parts - 1 .. " " .. #table.concat(parts, "--") .. " " .. #replaced)
