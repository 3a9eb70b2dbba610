-- The works in Lua, for lua5.4 and luajit.
local clock = os.clock
local function time_work(name, work)
  local begin = clock()
  local check = work()
  print(string.format("%s %.6f %.0f", name, clock() - begin, check))
end

local function fibonacci(n) if n < 2 then return n end return fibonacci(n - 1) + fibonacci(n - 2) end

time_work("integer_loop", function()
  local n, s, i = 100000000, 0, 0
  while i < n do s = s + i; i = i + 1 end
  return s
end)
time_work("mandelbrot", function()
  local size, limit, count, y = 400, 100, 0, 0
  while y < size do
    local x = 0
    while x < size do
      local cr, ci = 3.0 * x / size - 2.0, 2.0 * y / size - 1.0
      local zr, zi, n = 0.0, 0.0, 0
      while n < limit and zr * zr + zi * zi <= 4.0 do
        local t = zr * zr - zi * zi + cr
        zi = 2.0 * zr * zi + ci
        zr = t
        n = n + 1
      end
      count = count + n
      x = x + 1
    end
    y = y + 1
  end
  return count
end)
time_work("fibonacci", function() return fibonacci(32) end)
time_work("sieve", function()
  local n, flags, count = 2000000, {}, 0
  for i = 1, n + 1 do flags[i] = true end
  local i = 2
  while i <= n do
    if flags[i + 1] then
      count = count + 1
      local j = i * i
      while j <= n do flags[j + 1] = false; j = j + i end
    end
    i = i + 1
  end
  return count
end)
time_work("concatenation", function()
  local s, i = "", 0
  while i < 20000 do s = s .. "x"; i = i + 1 end
  return #s
end)

local word = "international"
local function short_strings(call)
  return function()
    local total, i = 0, 0
    while i < 1000000 do total = total + call(i); i = i + 1 end
    return total
  end
end
time_work("left", short_strings(function(i) return #word:sub(1, i % 8) end))
time_work("mid", short_strings(function(i) return #word:sub(i % 8 + 1, i % 8 + 5) end))
time_work("instr", short_strings(function(i) return word:find("nal", i % 8 + 1, true) - 1 end))

local parts, length, i = {}, 0, 0
while length < 10000000 do
  parts[#parts + 1] = "The quick brown Fox " .. i .. " jumps over the lazy dog, "
  length = length + #parts[#parts]
  i = i + 1
end
local text = table.concat(parts)
local function count_of(hay, find)
  local count, at = 0, hay:find(find, 1, true)
  while at do count = count + 1; at = hay:find(find, at + 1, true) end
  return count
end
time_work("count", function() return count_of(text, "lazy") end)
time_work("count_ignoring_case", function() return count_of(text:lower(), "fox") end)
time_work("replace", function() return #text:gsub("lazy", "eager") end)
time_work("replace_ignoring_case", function() return #text:gsub("[Ff][Oo][Xx]", "wolf") end)
time_work("search_missing", function() return (text:find("lazy cat", 1, true) or 0) - 1 end)
local half, pieces = text:sub(1, 5000000), {}
time_work("split", function()
  local from = 1
  while true do
    local at = half:find(" ", from, true)
    if not at then pieces[#pieces + 1] = half:sub(from) break end
    pieces[#pieces + 1] = half:sub(from, at - 1)
    from = at + 1
  end
  return #pieces
end)
time_work("word_count", function()
  local counts, most, different = {}, 0, 0
  for i = 1, #pieces do
    local word = pieces[i]
    local count = counts[word]
    if count == nil then
      count = 0
      different = different + 1
    end
    count = count + 1
    counts[word] = count
    if count > most then most = count end
  end
  return most + different
end)
time_work("join", function() return #table.concat(pieces, " ") end)
