'=== a picture of less quality takes less room
Dim j, n: Set j = CreateObject("Persits.Jpeg")
j.New 200, 200, &HFFFFFF
j.Canvas.Font.Size = 60: j.Canvas.Print 10, 50, "text"
j.Quality = 95: n = LenB(j.Binary)
j.Quality = 10: Echo LenB(j.Binary) < n        '> True
