'=== a banner from a schedule
Dim fso, ads: Set fso = CreateObject("Scripting.FileSystemObject")
With fso.CreateTextFile("ads.txt")
  .WriteLine "REDIRECT /go.qvs": .WriteLine "WIDTH 200": .WriteLine "BORDER 0": .WriteLine "*"
  .WriteLine "/a.gif": .WriteLine "http://one/": .WriteLine "One ""1""": .WriteLine "1"
  .WriteLine "/b.gif": .WriteLine "-": .WriteLine "Two": .WriteLine "3"
  .Close
End With
Set ads = CreateObject("MSWC.AdRotator")
Echo ads.GetAdvertisement("/ads.txt")
'> <IMG SRC="/b.gif" ALT="Two" WIDTH="200" HEIGHT="60" BORDER="0">
fso.CreateTextFile("ads.txt", True).Write "REDIRECT /go.qvs" & vbLf & "*" & vbLf & "/a.gif" & vbLf & "http://one/" & vbLf & "One ""1""" & vbLf & "1"
ads.TargetFrame = "_top": ads.Border = 2
Echo ads.GetAdvertisement("ads.txt")
'> <A HREF="/go.qvs?url=http%3A%2F%2Fone%2F&image=%2Fa%2Egif" TARGET="_top"><IMG SRC="/a.gif" ALT="One &quot;1&quot;" WIDTH="440" HEIGHT="60" BORDER="2"></A>
ads.Clickable = False
Echo Left(ads.GetAdvertisement("ads.txt"), 4)    '> <IMG
On Error Resume Next
ads.GetAdvertisement "none.txt": Failed          '> 53
ads.GetAdvertisement "../elsewhere/secret.txt": Failed   '> 70
fso.CreateTextFile("ads.txt", True).Write "only a line"
Err.Clear: Echo "[" & ads.GetAdvertisement("ads.txt") & "]"   '> []

'=== a piece of content
Dim fso, r: Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("tips.txt").Write "ignored" & vbLf & "%% #1 // first" & vbLf & "one" & vbLf & "%%#9" & vbLf & "two" & vbLf & "three"
Set r = CreateObject("MSWC.ContentRotator")
Echo Replace(r.ChooseContent("tips.txt"), vbLf, "|")   '> two|three|
On Error Resume Next
r.GetAllContent "tips.txt": Failed               '> 91

'=== counters last
Dim c: Set c = CreateObject("MSWC.Counters")
Echo c.Get("visits"), c.Increment("visits"), c.Increment("Visits"), c.Set("a:b", 7)   '> 0 1 2 7
Set c = CreateObject("MSWC.Counters")
Echo c.Get("visits"), c.Get("a:b")               '> 2 7
c.Remove "visits": Echo c.Get("visits")          '> 0
On Error Resume Next
c.Increment "a" & vbCrLf & "b:1": Failed         '> 5
c.Set "a", "x": Failed                           '> 13

'=== without a client nothing is known of it
Dim b: Set b = CreateObject("MSWC.BrowserType")
Echo b.Browser, b.Version, b.Frames, b.Anything, b.Value("Cookies")   '> Default 0.0 False unknown False
