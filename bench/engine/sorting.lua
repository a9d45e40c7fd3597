local function quickSort(a, low, high)
  local i = low
  local j = high
  local pivot = a[math.floor((low + high) / 2)]
  while i <= j do
    while a[i] < pivot do
      i = i + 1
    end
    while a[j] > pivot do
      j = j - 1
    end
    if i <= j then
      local swap = a[i]
      a[i] = a[j]
      a[j] = swap
      i = i + 1
      j = j - 1
    end
  end
  if low < j then
    quickSort(a, low, j)
  end
  if i < high then
    quickSort(a, i, high)
  end
end

local function bubbleSort(a, last)
  for i = last, 1, -1 do
    for j = 0, i - 1 do
      if a[j] > a[j + 1] then
        local swap = a[j]
        a[j] = a[j + 1]
        a[j + 1] = swap
      end
    end
  end
end

local function numbers(count)
  local a = {}
  local n = 42
  for i = 0, count - 1 do
    n = (n * 16807 + 17) % 100003
    a[i] = n
  end
  return a
end

local big = numbers(400000)
quickSort(big, 0, 399999)
local small = numbers(1500)
bubbleSort(small, 1499)
print(big[0] .. " " .. big[200000] .. " " .. big[399999])
print(small[0] .. " " .. small[750] .. " " .. small[1499])
