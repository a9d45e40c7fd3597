'=== conversions round to the even neighbour
Echo CInt(0.5), CInt(1.5), CInt(2.5), CInt(-0.5), CInt(-1.5), CInt(-2.5)   '> 0 2 2 0 -2 -2
Echo CInt("2.5"), CInt("3.5"), CLng("0.5"), CLng(1.5), CByte(0.5), CByte(2.5)   '> 2 4 0 2 0 2
Echo CInt(2.4999), CInt(2.5001), CInt(CCur(2.5)), CLng(CCur(3.5))   '> 2 3 2 4
Echo CInt(32767.4), CInt(-32768.5)   '> 32767 -32768
On Error Resume Next
x = CInt(32767.5)
Failed                         '> 6
x = CInt(-32768.6)
Failed                         '> 6
x = CByte(255.5)
Failed                         '> 6
x = CByte(-0.5)
Failed                         '> no error

'=== so do indexes and counts
Dim a(4)
a(0.5) = "nought": a(1.5) = "two": a(2.5) = a(2.5) & "!"
Echo a(0), a(2)                '> nought two!
Echo Mid("abcdef", 1.5), Mid("abcdef", 2.5, 2.5), Left("abcdef", 2.5), Right("abcdef", 3.5)   '> bcdef bc ab cdef
Echo 7.5 \ 2, 8.5 \ 2, 7.5 Mod 5, 2.5 Mod 5   '> 4 4 3 2

'=== Round
Echo Round(0.5), Round(1.5), Round(2.5), Round(-1.5), Round(-2.5)   '> 0 2 2 -2 -2
Echo Round(0.125, 2), Round(0.375, 2), Round(-0.125, 2), Round(123.456, 2)   '> 0.12 0.38 -0.12 123.46
Show Round("2.5")              '> Double 2
Show Round(CCur(2.5))          '> Currency 2
Show Round(7)                  '> Integer 7
Show Round(True)               '> Boolean True

'=== Int and Fix below nought
Echo Int(-0.5), Fix(-0.5), Int(-8.4), Fix(-8.4), Int(8.9), Fix(8.9)   '> -1 0 -9 -8 8 8
Echo Int("-2.5"), Fix("-2.5")  '> -3 -2

'=== FormatNumber rounds away from nought
Echo FormatNumber(2.5, 0), FormatNumber(-2.5, 0), FormatNumber(0.005, 2), FormatNumber(1.5, 0)   '> 3 -3 0.01 2
Echo FormatNumber(1234.5678, 10)   '> 1,234.5678000000
Echo FormatNumber(1234567, 0), FormatNumber(1234567, 0, -2, -2, 0)   '> 1,234,567 1234567
Echo FormatNumber(0.5, 1, 0), FormatNumber(-0.5, 1, 0), FormatNumber(-0.5, 1, 0, -1)   '> .5 -.5 (.5)
Echo FormatNumber(5, -1), FormatNumber(True, 0)   '> 5.00 -1
Echo FormatNumber("1,234.5", 1), FormatNumber(1e15, 0)   '> 1,234.5 1,000,000,000,000,000
Echo FormatPercent(1), FormatPercent(0.005, 0), FormatPercent(-1.5, 1, -1, -1)   '> 100.00% 1% (150.0%)
Echo FormatCurrency(-0.5), FormatCurrency(1234.567), FormatCurrency(-5, 0, -1, 0)   '> ($0.50) $1,234.57 -$5
On Error Resume Next
x = FormatNumber("")
Failed                         '> 13

'=== Hex and Oct of negative numbers
Echo Hex(-1), Hex(CInt(-32768)), Hex(-32769), Hex(CLng(-1)), Hex(-1.4)   '> FFFF 8000 FFFF7FFF FFFFFFFF FFFFFFFF
Echo Oct(-1), Oct(CInt(-32768)), Oct(CLng(-1))   '> 177777 100000 37777777777
Echo Hex(-32768), TypeName(-32768), TypeName(-32767)   '> FFFF8000 Long Integer
Echo Hex(CByte(255)), Hex(True), Hex(False), Hex("255"), Hex("&H10")   '> FF FFFF 0 FF 10
Echo Hex(2.5), Hex(3.5)        '> 2 4
On Error Resume Next
x = Hex(2147483648)
Failed                         '> 6
x = Hex("x")
Failed                         '> 13

'=== texts that spell hexadecimal and octal numbers
Echo CLng("&HFF"), CInt("&HFF"), CDbl("&hff"), CLng("&HFFFFFFFF")   '> 255 255 255 -1
Echo CLng("&O17"), CInt("&o10"), "&H10" + 1, "&HFF" = 255   '> 15 8 17 True
Echo CLng("&HFFFF&"), ChrW(CLng("&H" & "0041" & "&")), IsNumeric("&H10&")   '> 65535 A True
Echo &HFF, &HFFFF, &HFFFF&, &H7FFFFFFF, &O17   '> 255 -1 65535 2147483647 15
Show &HFFFF                    '> Integer -1
Show &H10000                   '> Long 65536
On Error Resume Next
x = CLng("&HXY")
Failed                         '> 13
x = CLng("&H")
Failed                         '> 13
