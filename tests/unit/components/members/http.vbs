'=== a request and all forms of its answer
For Each name In Array("MSXML2.XMLHTTP", "MSXML2.ServerXMLHTTP.6.0")
  Set r = CreateObject(name)
  Echo r.readyState                            '> 0
  r.onreadystatechange = GetRef("Changed")
  r.open "GET", Site & "page", False
  Echo r.readyState                            '> 1
  r.setRequestHeader "X-Mine", "1"
  r.send
  Echo r.readyState, r.status, r.statusText, r.responseText, LenB(r.responseBody)   '> 4 200 Fine <a>one</a> 10
  Echo r.responseXML.documentElement.text, r.getResponseHeader("X-Kept")            '> one yes
  Echo InStr(r.getAllResponseHeaders, "X-Kept: yes") > 0, TypeName(r.responseStream)   '> True Stream
  r.abort
  Echo r.readyState                            '> 0
Next
Sub Changed
End Sub
'> 0
'> 1
'> 4 200 Fine <a>one</a> 10
'> one yes
'> True Stream
'> 0

'=== what the object for servers has beside
Set r = CreateObject("MSXML2.ServerXMLHTTP")
r.setTimeouts 1000, 1000, 1000, 1000
r.setOption 2, 13056
Echo r.getOption(2)                            '> 13056
r.setProxy 1
r.setProxyCredentials "name", "word"
r.open "POST", Site, True
r.send "a=1"
Echo r.waitForResponse(10), r.status           '> True 200
On Error Resume Next
x = CreateObject("MSXML2.XMLHTTP").getOption(2): Failed     '> 438
r.setTimeouts 1, 1: Failed                     '> 450
r.open "GET", "none://x", False: r.send: Failed   '> -2147012890

'=== a request of the third kind
Set r = CreateObject("WinHttp.WinHttpRequest.5.1")
r.SetTimeouts 1000, 1000, 1000, 1000
r.SetProxy 1
r.SetAutoLogonPolicy 0
r.Option(0) = "mine/1"
Echo r.Option(0)                               '> mine/1
r.Open "GET", Site, True
r.SetCredentials "name", "word", 0
r.SetRequestHeader "X-Mine", "1"
r.Send
Echo r.WaitForResponse(10), r.Status, r.StatusText, r.ResponseText, LenB(r.ResponseBody)   '> True 200 Fine <a>one</a> 10
Echo r.GetResponseHeader("X-Kept"), InStr(r.GetAllResponseHeaders, "X-Kept") > 0, TypeName(r.ResponseStream)   '> yes True Stream
On Error Resume Next
x = r.GetResponseHeader("none"): Failed        '> -2147012746
r.Abort
x = r.Status: Failed                           '> -2147483638
