'=== a message is put into the folder that takes mail, with blind copies told only to the receiver of the file
Function Sent()
  Dim fso, f, all: Set fso = CreateObject("Scripting.FileSystemObject")
  For Each f In fso.GetFolder("/data/mail").Files: all = all & f.OpenAsTextStream.ReadAll: f.Delete: Next
  Sent = all
End Function
Function Line(mail, name)
  Dim l
  For Each l In Split(mail, vbCrLf)
    If InStr(1, l, name & ":", 1) = 1 Then Line = Line & "[" & Mid(l, Len(name) + 3) & "]"
  Next
End Function
Dim m, c, s: Set m = CreateObject("CDO.Message")
m.From = "Me <me@here.example>": m.To = """Doe, J"" <j@x.example>; k@x.example": m.CC = "c@x.example": m.BCC = "b@x.example"
m.Subject = "Hello": m.TextBody = "one" & vbCrLf & "two"
Set c = CreateObject("CDO.Configuration")
c.Fields("http://schemas.microsoft.com/cdo/configuration/sendusing") = 2
With c.Fields
  .Item("http://schemas.microsoft.com/cdo/configuration/smtpserver").Value = "none.example"
  .Update
End With
Echo c.Fields("HTTP://schemas.microsoft.com/cdo/configuration/SendUsing"), c.Fields.Count   '> 2 2
Set m.Configuration = c
m.Send
s = Sent()
Echo Line(s, "X-Sender") & Line(s, "X-Receiver")   '> [me@here.example][j@x.example][k@x.example][c@x.example][b@x.example]
Echo Line(s, "From") & Line(s, "To") & Line(s, "Cc") & Line(s, "Bcc") & Line(s, "Subject")
'> [Me <me@here.example>]["Doe, J" <j@x.example>, k@x.example][c@x.example][Hello]
Echo Line(s, "Content-Type") & Line(s, "Content-Transfer-Encoding")   '> [text/plain; charset=utf-8][quoted-printable]
Echo Replace(Mid(s, InStr(s, vbCrLf & vbCrLf) + 4), vbCrLf, "|")   '> one|two|

'=== no text makes another line of the head
Function Sent()
  Dim fso, f, all: Set fso = CreateObject("Scripting.FileSystemObject")
  For Each f In fso.GetFolder("/data/mail").Files: all = all & f.OpenAsTextStream.ReadAll: f.Delete: Next
  Sent = all
End Function
Dim m, n: Set m = CreateObject("CDO.Message")
m.From = """A" & vbCrLf & "Evil: 1"" <a@x>": m.To = "Name" & vbCrLf & "Evil <b@x>": m.ReplyTo = "c@x" & vbLf & "Evil: 3"
m.Subject = "s" & vbCr & vbLf & "Evil: 4": m.TextBody = "t"
m.Fields("urn:schemas:mailheader:X-Mark") = "v" & vbCrLf & "Evil: 5"
m.Fields("urn:schemas:mailheader:X" & vbCrLf & "Evil") = "6"
On Error Resume Next
m.Send
Echo Err.Number, InStr(Sent(), vbCrLf & "Evil")   '> 0 0
Set n = CreateObject("JMail.Message")
n.From = "a@x": n.FromName = "a" & vbCrLf & "Evil: 1": n.AddRecipient "b@x", "b" & vbCrLf & "Evil: 2"
n.AddHeader "X-Mark", "1" & vbCrLf & "Evil: 3": n.Subject = "x" & vbLf & "Evil: 4"
Echo n.Send("host"), InStr(Sent(), vbLf & "Evil")   '> True 0

'=== texts in the character set named, and texts that are bytes of it already
Function Body()
  Dim fso, f, s: Set fso = CreateObject("Scripting.FileSystemObject")
  For Each f In fso.GetFolder("/data/mail").Files: s = f.OpenAsTextStream.ReadAll: f.Delete: Next
  Body = Replace(Mid(s, InStr(s, vbCrLf & vbCrLf) + 4), vbCrLf, "|")
End Function
Dim m: Set m = CreateObject("CDO.Message")
m.From = "a@x": m.To = "b@x"
m.TextBody = ChrW(228) & ChrW(8364): m.Send: Echo Body()              '> =C3=A4=E2=82=AC|
m.TextBody = Chr(195) & Chr(164): m.Send: Echo Body()                 '> =C3=A4|
m.BodyPart.Charset = "gb2312"
m.TextBody = ChrW(&H4E00): m.Send: Echo Body()                        '> =D2=BB|
m.TextBody = Chr(210) & Chr(187): m.Send: Echo Body()                 '> =D2=BB|
On Error Resume Next
m.BodyPart.Charset = "none": Failed                                   '> 5

'=== parts
Function Sent()
  Dim fso, f, all: Set fso = CreateObject("Scripting.FileSystemObject")
  For Each f In fso.GetFolder("/data/mail").Files: all = all & f.OpenAsTextStream.ReadAll: f.Delete: Next
  Sent = all
End Function
Dim m, s, fso: Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "content": fso.CreateTextFile("p.gif").Write "GIF89a"
fso.CreateTextFile("page.htm").Write "<p>page</p>"
Set m = CreateObject("CDO.Message")
m.From = "a@x": m.To = "b@x": m.TextBody = "plain"
m.CreateMHTMLBody "file:///data/page.htm": Echo m.HTMLBody            '> <p>page</p>
m.HTMLBody = "<img src=cid:pic>"
m.AddRelatedBodyPart "/data/p.gif", "pic", 1
Echo m.AddAttachment("a.txt").FileName, m.Attachments.Count           '> a.txt 2
m.Send: s = Sent()
Echo InStr(s, "multipart/mixed") < InStr(s, "multipart/alternative"), InStr(s, "multipart/alternative") < InStr(s, "multipart/related")   '> True True
Echo InStr(s, "Content-Id: <pic>") > 0, InStr(s, "image/gif") > 0, InStr(s, "filename=a.txt") > 0, InStr(s, "Y29udGVudA==") > 0   '> True True True True
On Error Resume Next
m.AddAttachment "none.txt": Failed                                    '> -2147024894
m.AddAttachment "/elsewhere/secret.txt": Failed                       '> 70
m.AddAttachment "http://x/y": Failed                                  '> -2146697203
m.To = "": m.Send: FailedText    '> -2147220980 At least one recipient is required, but none were found.
m.From = "": m.Send: Failed                                           '> -2147220979

'=== a folder that takes mail instead of a server
Dim fso, m, p, f: Set fso = CreateObject("Scripting.FileSystemObject"): Set m = CreateObject("CDO.Message")
p = "http://schemas.microsoft.com/cdo/configuration/"
m.Configuration.Fields(p & "sendusing") = 1
m.Configuration.Fields(p & "smtpserverpickupdirectory") = "/elsewhere"
m.From = "a@x": m.To = "b@x"
On Error Resume Next
m.Send: Failed                                                        '> 70

'=== the short form
Function Sent()
  Dim fso, f, all: Set fso = CreateObject("Scripting.FileSystemObject")
  For Each f In fso.GetFolder("/data/mail").Files: all = all & f.OpenAsTextStream.ReadAll: f.Delete: Next
  Sent = all
End Function
Dim m, s: Set m = CreateObject("CDONTS.NewMail")
m.BodyFormat = 0: m.MailFormat = 0: m.Value("Reply-To") = "r@x": m.Importance = 2
m.Send "a@x", "b@x; c@x", "Hi", "<b>text</b>"
s = Sent()
Echo InStr(s, "Reply-To: r@x") > 0, InStr(s, "To: b@x, c@x") > 0, InStr(s, "text/html") > 0, InStr(s, "Importance: high") > 0   '> True True True True
m.From = "a@x": m.To = "b@x": m.CC = "c@x": m.Subject = "S": m.Body = "plain": m.BodyFormat = 1: m.Send
Echo InStr(Sent(), "text/plain") > 0                                  '> True

'=== other mail objects
Function Sent()
  Dim fso, f, all: Set fso = CreateObject("Scripting.FileSystemObject")
  For Each f In fso.GetFolder("/data/mail").Files: all = all & f.OpenAsTextStream.ReadAll: f.Delete: Next
  Sent = all
End Function
Dim m, s: Set m = CreateObject("JMail.Message")
m.Silent = True: m.Logging = True: m.Charset = "iso-8859-1": m.ContentType = "text/html": m.Priority = 1
m.From = "a@x": m.FromName = "A": m.AddRecipient "b@x", "B": m.Subject = "S": m.Body = "<i>": m.AppendText "x</i>"
Echo m.Send("user:word@host:26"), m.ErrorCode                         '> True 0
s = Sent(): Echo InStr(s, "From: A <a@x>") > 0, InStr(s, "<i>x</i>") > 0, InStr(s, "text/html; charset=iso-8859-1") > 0   '> True True True
m.ClearRecipients: Echo m.Send("host"), m.ErrorCode                   '> False -2147220980
CreateObject("Scripting.FileSystemObject").CreateTextFile("own.dat").Write "x"
m.AddRecipient "b@x": m.AddAttachment "own.dat", False, "text/x-own-kind": m.AddAttachment "own.dat", False, "kind": Echo m.Send("host")   '> True
s = Sent(): Echo InStr(s, "text/x-own-kind; name=own.dat") > 0, InStr(s, "application/octet-stream; name=own.dat") > 0   '> True True
m.Close
Set m = CreateObject("JMail.SMTPMail")
m.ServerAddress = "host:25": m.Sender = "a@x": m.SenderName = "A": m.AddRecipientEx "b@x", "B": m.Subject = "S": m.Body = "text"
Echo m.Execute, InStr(Sent(), "To: B <b@x>") > 0                      '> True True
Set m = CreateObject("Persits.MailSender")
m.Host = "host": m.Port = 2525: m.From = "a@x": m.FromName = "A": m.AddAddress "b@x", "B": m.AddReplyTo "r@x": m.AddCustomHeader "X-Mark: 1"
m.Subject = "S": m.Body = "<b>": m.IsHTML = True: m.AltBody = "plain": Echo m.Send   '> True
s = Sent(): Echo InStr(s, "multipart/alternative") > 0, InStr(s, "X-Mark: 1") > 0, InStr(s, "Reply-To: r@x") > 0   '> True True True
Set m = CreateObject("SMTPsvg.Mailer")
m.RemoteHost = "one;two": m.FromName = "A": m.FromAddress = "a@x": m.AddRecipient "B", "b@x": m.Subject = "S"
m.BodyText = "one ": m.BodyText = "two"
Echo m.SendMail, "[" & m.Response & "]", InStr(Sent(), "one two") > 0   '> True [] True
m.ClearRecipients: Echo m.SendMail, m.Response    '> False At least one recipient is required, but none were found.
