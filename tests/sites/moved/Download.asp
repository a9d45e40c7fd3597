<% Response.Buffer = True
Response.Clear
Response.ContentType = "application/octet-stream"
Response.AddHeader "Content-Disposition", "attachment; filename=""prices.csv"""
Response.AddHeader "Content-Length", 17
Set oStream = Server.CreateObject("ADODB.Stream")
oStream.Type = 2 : oStream.Charset = "iso-8859-1" : oStream.Open
oStream.WriteText "Caf" & Chr(233) & ";1" & vbCrLf & "Tee;2" & vbCrLf & "!"
oStream.Position = 0 : oStream.Type = 1
Response.BinaryWrite oStream.Read
oStream.Close
Response.End %>
