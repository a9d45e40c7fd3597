s = "ab"
s = s
