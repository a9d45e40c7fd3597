'=== a message with all that it has
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "attached"
Set m = CreateObject("CDO.Message")
m.From = "ann@example.org": m.Sender = "office@example.org": m.To = "bob@example.org"
m.Subject = "All": m.HTMLBody = "<b>hello</b>": m.TextBody = "hello"
m.AutoGenerateTextBody = False: m.DSNOptions = 14: m.MDNRequested = True
m.MimeFormatted = True
Echo m.Sender, m.MimeFormatted                 '> office@example.org True
m.BodyPart.Charset = "utf-8": m.TextBodyPart.ContentTransferEncoding = "quoted-printable"
Echo m.HTMLBodyPart.Charset, m.TextBodyPart.ContentTransferEncoding      '> utf-8 quoted-printable
m.BodyPart.Fields("urn:schemas:mailheader:x-part") = "1"
m.BodyPart.Fields.Update
m.Fields("urn:schemas:mailheader:x-mine") = "yes"
m.Fields.Update: m.Fields.Resync
Echo m.Fields("urn:schemas:mailheader:x-mine"), m.Fields("urn:schemas:mailheader:x-mine").Name
'> yes urn:schemas:mailheader:x-mine
m.AddAttachment fso.GetAbsolutePathName("a.txt")
Echo m.Attachments.Count, m.Attachments.Item(1).FileName     '> 1 a.txt
Set c = CreateObject("CDO.Configuration")
c.Load -1
Set m.Configuration = c
With m.GetStream
  .Type = 2: .Charset = "us-ascii": text = .ReadText
End With
Echo InStr(text, "Sender: office@example.org") > 0, InStr(text, "x-mine: yes") + InStr(text, "X-Mine: yes") > 0   '> True True
m.Send
Echo fso.GetFolder("mail").Files.Count         '> 1

'=== a short way to send
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "attached"
Set n = CreateObject("CDONTS.NewMail")
n.Bcc = "c@example.org": n.ContentBase = "http://x/": n.ContentLocation = "y/"
n.SetLocaleIDs 65001
n.AttachFile fso.GetAbsolutePathName("a.txt"), "named.txt"
Echo n.Bcc, n.Version                          '> c@example.org 1.2
n.Send "a@example.org", "b@example.org", "Subject", "Body", 2
For Each f In fso.GetFolder("mail").Files: text = f.OpenAsTextStream.ReadAll: Next
Echo InStr(text, "named.txt") > 0, InStr(text, "Subject: Subject") > 0   '> True True

'=== a message with recipients of three kinds
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "attached"
Set m = CreateObject("JMail.Message")
m.From = "a@example.org": m.ReplyTo = "r@example.org": m.Subject = "s": m.Body = "text": m.HTMLBody = "<p>"
m.AppendHTML "one</p>"
m.AddRecipientCC "c@example.org", "C": m.AddRecipientBCC "d@example.org": m.AddRecipient "b@example.org"
m.AddAttachment fso.GetAbsolutePathName("a.txt"): m.ClearAttachments
m.MailServerUserName = "u": m.MailServerPassword = "p"
m.Encoding = "base64": m.ISOEncodeHeaders = False: m.ContentTransferEncoding = "8bit"
Echo m.ReplyTo, m.HTMLBody, m.MailServerUserName, "[" & m.ErrorMessage & "]"      '> r@example.org <p>one</p> u []
Echo m.Send("localhost")                       '> True
For Each f In fso.GetFolder("mail").Files: text = f.OpenAsTextStream.ReadAll: Next
Echo InStr(text, "c@example.org") > 0, InStr(text, "d@example.org") < InStr(text, "From:"), InStr(text, "attached")   '> True True 0

'=== the older object of the same maker
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "attached"
Set m = CreateObject("JMail.SMTPMail")
m.ServerAddress = "localhost": m.Sender = "a@example.org": m.SenderName = "A"
m.ReplyTo = "r@example.org": m.Subject = "s": m.Body = "one": m.AppendText " two": m.HTMLBody = "<p>x</p>"
m.Charset = "utf-8": m.ContentType = "text/plain": m.Priority = 1: m.Silent = True: m.Logging = True
m.ISOEncodeHeaders = True: m.ContentTransferEncoding = "8bit"
Echo m.ReplyTo, m.Body, m.HTMLBody, m.Charset, m.ContentType, m.Priority, m.Silent
'> r@example.org one two <p>x</p> utf-8 text/plain 1 True
m.AddRecipient "gone@example.org": m.ClearRecipients
m.AddRecipient "b@example.org": m.AddRecipientEx "e@example.org", "E": m.AddRecipientCC "c@example.org": m.AddRecipientBCC "d@example.org"
m.AddHeader "X-One", "1": m.AddNativeHeader "X-Two", "2"
m.AddAttachment fso.GetAbsolutePathName("a.txt"): m.ClearAttachments
Echo m.Execute, m.ErrorCode, "[" & m.ErrorMessage & "]"    '> True 0 []
m.Close
For Each f In fso.GetFolder("mail").Files: text = f.OpenAsTextStream.ReadAll: Next
Echo InStr(text, "X-One: 1") > 0, InStr(text, "X-Two: 2") > 0, InStr(text, "gone@"), InStr(text, "one two") > 0   '> True True 0 True

'=== a sender with names
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "from the file"
here = fso.GetAbsolutePathName("a.txt")
Set m = CreateObject("Persits.MailSender")
m.Host = "localhost": m.Port = 2525: m.Username = "u": m.Password = "p": m.SSL = False: m.TLS = False: m.Timeout = 5
m.From = "a@example.org": m.FromName = "A": m.Subject = "s": m.Body = "text ": m.AltBody = "other"
m.AppendBodyFromFile here
m.CharSet = "utf-8": m.ContentTransferEncoding = "Quoted-Printable": m.Queue = False: m.Priority = 1
Echo m.Username, m.Body, m.CharSet, m.Priority, m.EncodeHeader("h", "utf-8")     '> u text from the file utf-8 1 h
m.AddAddress "gone@example.org": m.Reset
m.AddAddress "gone@example.org": m.ResetAll
m.AddAddress "b@example.org", "B": m.AddCC "c@example.org": m.AddBcc "d@example.org"
m.AddAttachment here: m.AddEmbeddedImage here, "picture"
Echo m.Send                                    '> True
For Each f In fso.GetFolder("mail").Files: text = f.OpenAsTextStream.ReadAll: Next
Echo InStr(text, "gone@"), InStr(text, "c@example.org") > 0, InStr(text, "<picture>") > 0   '> 0 True True

'=== a mailer that tells of its success
Set fso = CreateObject("Scripting.FileSystemObject")
fso.CreateTextFile("a.txt").Write "attached"
Set m = CreateObject("SMTPsvg.Mailer")
m.RemoteHost = "localhost": m.FromAddress = "a@example.org": m.FromName = "A": m.ReplyTo = "r@example.org"
m.Subject = "s": m.BodyText = "gone": m.ClearBodyText: m.BodyText = "kept"
m.AddRecipient "G", "gone@example.org": m.ClearAllRecipients
m.AddCC "G", "gone@example.org": m.ClearCCs: m.AddBCC "G", "gone@example.org": m.ClearBCCs
m.AddRecipient "B", "b@example.org": m.AddCC "C", "c@example.org": m.AddBCC "D", "d@example.org"
m.AddAttachment fso.GetAbsolutePathName("a.txt"): m.ClearAttachments
m.AddExtraHeader "X-Gone: 1": m.ClearExtraHeaders: m.AddExtraHeader "X-Kept: 1"
m.CharSet = 2: m.CustomCharSet = "utf-8": m.ContentType = "text/html": m.Priority = 1: m.Timeout = 5
m.Encoding = 1: m.WordWrap = True: m.WordWrapLen = 70: m.QMessage = False: m.SMTPLog = "x.log"
Echo m.ReplyTo, m.BodyText, m.CustomCharSet, m.ContentType, m.Priority     '> r@example.org kept utf-8 text/html 1
Echo m.SendMail, "[" & m.Response & "]"        '> True []
For Each f In fso.GetFolder("mail").Files: text = f.OpenAsTextStream.ReadAll: Next
Echo InStr(text, "gone"), InStr(text, "X-Gone"), InStr(text, "X-Kept: 1") > 0, InStr(text, "c@example.org") > 0   '> 0 0 True True
