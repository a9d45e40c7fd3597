'=== a new picture is drawn on, saved, opened and told of
Dim j, k: Set j = CreateObject("Persits.Jpeg")
Echo TypeName(j), j.Quality, j.Interpolation, j.PreserveAspectRatio, j.Progressive, j.PNGOutput   '> IASPJpeg 80 1 False False False
j.New 120, 80, &HFFFFFF
Echo j.Width, j.Height, j.OriginalWidth, j.OriginalHeight   '> 120 80 120 80
j.Canvas.Brush.Color = &HFF0000
j.Canvas.Bar 10, 10, 110, 70
j.Save "a.jpg"
Set k = CreateObject("Persits.Jpeg.1")
k.Open "/data/a.jpg"
Echo k.Width, k.Height, k.OriginalWidth, k.OriginalHeight   '> 120 80 120 80
Echo AscB(MidB(k.Binary, 1, 1)), AscB(MidB(k.Binary, 2, 1))   '> 255 216
k.PNGOutput = True
Echo MidB(k.Binary, 2, 3) = ChrB(80) & ChrB(78) & ChrB(71)    '> True
Set j = CreateObject("Persits.Jpeg"): j.OpenBinary k.Binary
Echo j.Width, j.Height                                        '> 120 80
j.Close
On Error Resume Next
Echo j.Width: FailedText     '> -2147467259 No picture is open.
Echo LenB(j.Binary): FailedText   '> -2147467259 No picture is open.
j.Canvas.Bar 0, 0, 1, 1: FailedText   '> -2147467259 No picture is open.
j.ToRGB: Failed              '> -2147467259

'=== sizes, alone and with the shape kept
Dim j, k: Set j = CreateObject("Persits.Jpeg")
j.New 400, 300
j.Width = j.OriginalWidth / 2
Echo j.Width, j.Height, j.OriginalWidth    '> 200 300 400
j.PreserveAspectRatio = True
j.Height = 150
Echo j.Width, j.Height                     '> 200 150
j.Width = 99
Echo j.Width, j.Height                     '> 99 74
j.Save "thumb.jpg"
Set k = CreateObject("Persits.Jpeg"): k.Open "thumb.jpg"
Echo k.OriginalWidth, k.OriginalHeight     '> 99 74
For Each n In Array(0, 1, 2, 7)
  k.Interpolation = n
  k.Width = 150 + n: k.Height = 40
  k.OpenBinary k.Binary
  Echo k.OriginalWidth, k.OriginalHeight
Next
'> 150 40
'> 151 40
'> 152 40
'> 157 40
k.Crop 10, 5, 60, 25
Echo k.Width, k.Height, k.OriginalWidth    '> 50 20 157
k.Crop -5, -5, 500, 10
Echo k.Width, k.Height                     '> 50 10
On Error Resume Next
k.Crop 60, 0, 70, 10: FailedText           '> -2147467259 Nothing of the picture lies within these coordinates.
k.Width = 0: FailedText                    '> -2147467259 A picture can't be of that size.
k.Height = -1: Failed                      '> -2147467259
k.Width = 100000: k.Height = 100000: Failed   '> no error
k.Save "x.jpg": FailedText                 '> -2147467259 A picture can't be of that size.
k.New 20000, 1: FailedText                 '> -2147467259 A picture can't be of that size.
k.New 0, 1: Failed                         '> -2147467259

'=== turning and flipping, there and back
Dim j, first: Set j = CreateObject("Persits.Jpeg")
Function Content()
  Dim h, b, i
  Set h = CreateObject("System.Security.Cryptography.SHA256Managed")
  b = h.ComputeHash_2((j.Binary))
  For i = 1 To LenB(b): Content = Content & Hex(AscB(MidB(b, i, 1))): Next
End Function
j.PNGOutput = True
j.New 60, 40, &H204060
j.Canvas.Pen.Color = &HFFFFFF: j.Canvas.Line 0, 0, 50, 20
first = Content
j.FlipH: Echo Content = first                  '> False
j.FlipH: Echo Content = first                  '> True
j.FlipV: Echo Content = first                  '> False
j.FlipV: Echo Content = first                  '> True
j.RotateL: Echo j.Width, j.Height              '> 40 60
j.RotateR: Echo Content = first                '> True
j.RotateR: j.RotateR: j.FlipH: j.FlipV
Echo Content = first                           '> True
j.Rotate 90: j.RotateR: Echo j.Width, j.Height '> 60 40
j.Rotate 45, &HFF0000
Echo j.Width > 60, j.Height > 60               '> True True
j.New 60, 40, &H204060: j.Canvas.Line 5, 5, 50, 20: first = Content
j.Sharpen 1, 150: Echo Content = first         '> False
first = Content
j.Grayscale 1: Echo Content = first            '> False
j.ToRGB
Echo j.Width, j.Height                         '> 60 40

'=== what is drawn, and how
Dim c, j: Set j = CreateObject("Persits.Jpeg")
j.New 200, 100, 0
Set c = j.Canvas
Echo TypeName(c), TypeName(c.Pen), TypeName(c.Brush), TypeName(c.Font)
'> IAspJpegCanvas IAspJpegPen IAspJpegBrush IAspJpegFont
Echo c.Pen.Color, c.Pen.Width, c.Brush.Color, c.Brush.Solid   '> 0 1 0 True
c.Pen.Color = &H123456: c.Pen.Width = 3
Echo c.Pen.Color = &H123456, c.Pen.Width       '> True 3
c.Brush.Color = &H0000FF&: c.Brush.Solid = False
Echo c.Brush.Color, c.Brush.Solid, j.Canvas.Brush.Color   '> 255 False 255
c.DrawLine 0, 0, 10, 10: c.DrawBar 1, 1, 9, 9: c.DrawEllipse 0, 0, 20, 10: c.Ellipse 0, 0, 20, 10
c.Circle 50, 50, 20: c.DrawCircle 50, 50, 20: c.Arc 50, 50, 20, 0, 90: c.DrawArc 50, 50, 20, 90, -45
With c.Font
  Echo .Family, .Size, .Color, .Bold, .Italic, .Underlined, .BkMode   '> Arial 24 0 False False False Transparent
  .Family = "Courier New": .Size = 12: .Color = &HFFFFFF: .Bold = True: .Italic = True
  .Underlined = True: .Quality = 4: .BkMode = "Opaque": .BkColor = &H808080: .Opacity = 0.5
  .ShadowColor = &H404040: .ShadowXOffset = 1: .ShadowYOffset = 2
  Echo .Family, .Size, .Color, .Bold, .Italic, .Underlined, .Quality   '> Courier New 12 16777215 True True True 4
  Echo .BkMode, .BkColor, .Opacity, .ShadowColor, .ShadowXOffset, .ShadowYOffset   '> Opaque 8421504 0.5 4210752 1 2
End With
c.Print 10, 10, "some <text> & more"
c.PrintText 10, 30, ""
Echo c.GetTextExtent("mm") > c.GetTextExtent("m"), c.GetTextExtent("")   '> True 0
c.Print 100000000, -1E300, String(100000, "x")
c.Line -1E300, 5, 1E300, 7
c.Bar 1E300, -1E300, -1E300, 1E300
Echo LenB(j.Binary) > 0                        '> True

'=== a picture on another
Dim a, b, whole: Set a = CreateObject("Persits.Jpeg"): Set b = CreateObject("Persits.Jpeg")
a.New 50, 50, 0: b.New 20, 10, &HFFFFFF
a.DrawImage 5, 5, b
a.Canvas.DrawImage 40, 40, b, 0.5
a.DrawImage -10, -5, b, 1, &HFFFFFF, 10
a.DrawImage 10, 10, a
Echo a.Width, a.Height                         '> 50 50
On Error Resume Next
a.DrawImage 0, 0, "text": Failed               '> 13
a.DrawImage 0, 0, CreateObject("Scripting.Dictionary"): Failed   '> 13
a.DrawImage 0, 0, Nothing: Failed              '> 13
b.Close: a.DrawImage 0, 0, b: Failed           '> -2147467259

'=== how a picture is written
Dim j: Set j = CreateObject("Persits.Jpeg")
j.New 200, 200, &HFFFFFF
j.Progressive = True: Echo j.Progressive       '> True
Echo LenB(j.Binary) > 0                        '> True
On Error Resume Next
j.Quality = 101: FailedText                    '> -2147467259 The quality is a number from 0 to 100.
Echo j.SaveUnique("a.jpg"), j.SaveUnique("a.jpg"), j.SaveUnique("a.jpg")   '> a.jpg a(1).jpg a(2).jpg
j.SendBinary
Echo Err.Number                                '> 0
j.RegKey = "none": Echo j.RegKey, Year(j.Expires), j.Version   '> none 9999 2.9.0.0
j.Save "/none/a.jpg": Failed                   '> 70
j.Save "none/a.jpg": FailedPath                '> -2147467259 The file '/data/none/a.jpg' can't be written.

'=== files that are no pictures, or elsewhere
Dim j, s: Set j = CreateObject("Persits.Jpeg")
On Error Resume Next
j.Open "none.jpg": FailedPath                  '> -2147467259 The picture '/data/none.jpg' could not be found.
j.Open "/elsewhere/secret.txt": Failed         '> 70
j.Save "/elsewhere/x.jpg": Failed              '> 70
Set s = CreateObject("Scripting.FileSystemObject").CreateTextFile("text.jpg")
s.Write "no picture": s.Close
j.Open "text.jpg": FailedText                  '> -2147467259 This is no picture that can be read: its kind is unknown, or it is broken.
j.OpenBinary "text": Failed                    '> 5
j.Open "/data": Failed                         '> -2147467259
