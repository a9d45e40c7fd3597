'=== Test
Dim r: Set r = New RegExp
r.Pattern = "b+"
Echo r.Test("abbc"), r.Test("xyz")   '> True False

'=== defaults
Dim r: Set r = New RegExp
Echo "[" & r.Pattern & "]", r.Global, r.IgnoreCase, r.Multiline   '> [] False False False
Echo TypeName(r)               '> IRegExp2

'=== IgnoreCase
Dim r: Set r = New RegExp
r.Pattern = "abc"
Echo r.Test("ABC")             '> False
r.IgnoreCase = True
Echo r.Test("ABC")             '> True

'=== Execute finds one match, or all with Global
Dim r, m, x, s
Set r = New RegExp
r.Pattern = "\d+"
Set m = r.Execute("a1b22c333")
Echo m.Count                   '> 1
r.Global = True
Set m = r.Execute("a1b22c333")
Echo m.Count                   '> 3
For Each x In m
  s = s & x.Value & "@" & x.FirstIndex & "+" & x.Length & " "
Next
Echo Trim(s)                   '> 1@1+1 22@3+2 333@6+3
Echo m(1), m.Item(2).Value     '> 22 333

'=== no match
Dim r: Set r = New RegExp
r.Pattern = "x"
Echo r.Execute("abc").Count    '> 0

'=== SubMatches
Dim r, m
Set r = New RegExp
r.Pattern = "(\w+)@(\w+)\.com"
Set m = r.Execute("mail joe@site.com now")(0)
Echo m.SubMatches.Count        '> 2
Echo m.SubMatches(0), m.SubMatches(1)   '> joe site
Echo m.FirstIndex              '> 5

'=== Replace
Dim r: Set r = New RegExp
r.Pattern = "a"
Echo r.Replace("banana", "o")  '> bonana
r.Global = True
Echo r.Replace("banana", "o")  '> bonono
Echo r.Replace("xyz", "o")     '> xyz

'=== Replace with groups
Dim r: Set r = New RegExp
r.Pattern = "(\w+) (\w+)"
Echo r.Replace("hello world", "$2 $1")   '> world hello
Echo r.Replace("hello world", "[$&]")    '> [hello world]
Echo r.Replace("hello world", "$$1")     '> $1

'=== anchors and Multiline
Dim r: Set r = New RegExp
r.Global = True
r.Pattern = "^a"
Echo r.Execute("a" & vbLf & "a").Count   '> 1
r.Multiline = True
Echo r.Execute("a" & vbLf & "a").Count   '> 2

'=== look-ahead and back-references
Dim r: Set r = New RegExp
r.Pattern = "a(?=b)"
Echo r.Test("ab"), r.Test("ac")   '> True False
r.Pattern = "a(?!b)"
Echo r.Test("ab"), r.Test("ac")   '> False True
r.Pattern = "(.)\1"
Echo r.Execute("abccd")(0).Value  '> cc

'=== greedy and not
Dim r: Set r = New RegExp
r.Pattern = "<.+>"
Echo r.Execute("<a><b>")(0)    '> <a><b>
r.Pattern = "<.+?>"
Echo r.Execute("<a><b>")(0)    '> <a>

'=== classes of characters
Dim r: Set r = New RegExp
r.Global = True
r.Pattern = "[^a-c\d]"
Echo r.Replace("abcd123e", "_")   '> abc_123_
r.Pattern = "\s+"
Echo r.Replace("a  b" & vbTab & "c", "-")   '> a-b-c
r.Pattern = "\bcat\b"
Echo r.Replace("cat concat cat", "dog")   '> dog concat dog

'=== counted
Dim r: Set r = New RegExp
r.Pattern = "^\d{3}-\d{2,4}$"
Echo r.Test("123-4567"), r.Test("123-4"), r.Test("1234-56")   '> True False False

'=== alternatives and groups without a number
Dim r: Set r = New RegExp
r.Pattern = "^(?:cat|dog)s?$"
Echo r.Test("cats"), r.Test("dog"), r.Test("cow")   '> True True False

'=== a group that took no part
Dim r, m
Set r = New RegExp
r.Pattern = "(a)|(b)"
Set m = r.Execute("b")(0)
Echo "[" & m.SubMatches(0) & "]", m.SubMatches(1)   '> [] b

'=== a faulty pattern
On Error Resume Next
Dim r: Set r = New RegExp
r.Pattern = "(a"
x = r.Test("a")
Echo Err.Number                '> 5020
Err.Clear
r.Pattern = "*a"
x = r.Test("a")
Echo Err.Number                '> 5018
Err.Clear
r.Pattern = "[a"
x = r.Test("a")
Echo Err.Number                '> 5019

'=== empty matches
Dim r: Set r = New RegExp
r.Global = True
r.Pattern = "x*"
Echo r.Replace("abc", "-")     '> -a-b-c-

'=== a Boolean as a replacement
Dim r
Set r = New RegExp
r.Pattern = "b"
Echo r.Replace("abc", True), r.Replace("abc", False)   '> a-1c a0c
