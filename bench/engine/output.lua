local function escaped(text)
  local s = string.gsub(text, "&", "&amp;")
  s = string.gsub(s, "<", "&lt;")
  s = string.gsub(s, ">", "&gt;")
  return s
end

local function price(cents)
  return math.floor(cents / 100) .. "." .. string.sub("0" .. cents % 100, -2)
end

local out = io.stdout
out:write("<html><body><table>" .. "\n")
for i = 1, 200000 do
  local style
  if i % 2 == 0 then
    style = "even"
  else
    style = "odd"
  end
  out:write("<tr class=\"" .. style .. "\">" .. "\n")
  out:write("<td>" .. i .. "</td>")
  out:write("<td>" .. escaped("A & B <" .. i % 100 .. ">") .. "</td>")
  out:write("<td>" .. price(i * 7) .. "</td>" .. "\n")
  out:write("</tr>" .. "\n")
end
out:write("</table></body></html>" .. "\n")
