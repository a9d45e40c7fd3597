Dim n: n = 1
Do

Loop Until n >= 3
