local function row(i)
  return "  Name " .. i .. ", Street " .. (i % 90) .. ", City of " .. string.upper("towns") .. "  "
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

local function trimmed(text)
  local from = 1
  local to = #text
  while from <= to and string.byte(text, from) == 32 do
    from = from + 1
  end
  while to >= from and string.byte(text, to) == 32 do
    to = to - 1
  end
  return string.sub(text, from, to)
end

local function initials(text)
  local s = ""
  for _, part in ipairs(split(text, " ")) do
    if #part > 0 then
      s = s .. string.upper(string.sub(part, 1, 1))
    end
  end
  return s
end

local function vowels(text)
  local count = 0
  for i = 1, #text do
    local c = string.sub(text, i, i)
    if c == "a" or c == "e" or c == "i" or c == "o" or c == "u" then
      count = count + 1
    end
  end
  return count
end

local pieces = {}
local vowelCount = 0
local marks = ""
local found = 0
for i = 1, 120000 do
  local text = trimmed(row(i))
  pieces[#pieces + 1] = text
  pieces[#pieces + 1] = "\n"
  if string.find(text, "Street 77", 1, true) then
    found = found + 1
  end
  if i % 3 == 0 then
    vowelCount = vowelCount + vowels(text)
  end
  if i % 4 == 0 then
    marks = initials(text)
  end
  if string.lower(string.sub(text, -5)) == "towns" then
    local shorter = string.gsub(text, ", ", ",")
    found = found + #shorter
  end
end
local page = table.concat(pieces)
print(#page .. " " .. vowelCount .. " " .. marks .. " " .. found .. " " .. string.sub(page, 100001, 100020))
