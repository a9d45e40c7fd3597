local Account = {}
Account.__index = Account

function Account.new()
  return setmetatable({m_balance = 0, m_count = 0}, Account)
end

function Account:balance()
  return self.m_balance
end

function Account:setBalance(value)
  self.m_balance = value
end

function Account:deposit(amount)
  self.m_balance = self.m_balance + amount
  self:note()
end

function Account:canPay(amount)
  return self.m_balance >= amount
end

function Account:count()
  return self.m_count
end

function Account:note()
  self.m_count = self.m_count + 1
end

local function transfer(from, into, amount)
  if from:canPay(amount) then
    from:setBalance(from:balance() - amount)
    into:deposit(amount)
  end
end

local a = Account.new()
local b = Account.new()
a:deposit(1000)
for i = 1, 700000 do
  transfer(a, b, i % 10)
  transfer(b, a, i % 7)
end
print(a:balance() .. " " .. b:balance() .. " " .. a:count() + b:count())
