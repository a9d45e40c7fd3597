<%@ Language=VBScript %><!--#include file="includes/lib/multipart.inc"-->
<%
Server.ScriptTimeout = 30
Dim oUpload, sTitle, sMessage
sTitle = "Pictures"
If Request.TotalBytes > 0 Then
	Set oUpload = New Multipart
	oUpload.Read
	If oUpload.FileName = "" Then
		sMessage = "No file"
	ElseIf InStr("|gif|png|jpg|", "|" & LCase(oUpload.Extension) & "|") = 0 Then
		sMessage = "No picture: " & oUpload.FileName
	ElseIf LenB(oUpload.Data) > 100000 Then
		sMessage = "Too long"
	Else
		oUpload.SaveAs Server.MapPath("Uploads") & "\" & "picture." & oUpload.Extension
		sMessage = oUpload.Field("title") & ": " & LenB(oUpload.Data) & " bytes, first " & AscB(MidB(oUpload.Data, 1, 1))
	End If
End If
%>
<!--#include virtual="/includes/top.inc"-->
<% If sMessage <> "" Then Response.Write "<p id=""message"">" & Server.HTMLEncode(sMessage) & "</p>" %>
<form method="post" action="Upload.asp" enctype="multipart/form-data">
<input name="title" id="title"> <input type="file" name="picture" id="picture"> <input type="submit" id="go" value="Send">
</form>
<p id="pictures"><%
Dim oFso, oFile
Set oFso = CreateObject("Scripting.FileSystemObject")
For Each oFile In oFso.GetFolder(Server.MapPath("/Uploads")).Files
	If LCase(oFso.GetExtensionName(oFile.Name)) <> "txt" Then
%><img src="Uploads/<%= oFile.Name %>" alt="<%= oFile.Size %>"> <%
	End If
Next %></p>
<!--#include virtual="/includes/bottom.inc"-->
