<%@ Language=VBScript %>
<!--METADATA TYPE="typelib"
 UUID="CD000000-8B95-11D1-82DB-00C04FB1625D"
 NAME="CDO for Windows 2000 Type Library" -->
<%
sTitle = "Contact"
Dim aWrong() : ReDim aWrong(-1)
Dim sFrom, sText, bSent

Sub Wrong(s)
	ReDim Preserve aWrong(UBound(aWrong) + 1)
	aWrong(UBound(aWrong)) = s
End Sub

Function LooksLikeMail(s)
	Dim re
	Set re = New RegExp
	re.Pattern = "^[\w.+-]+@[\w-]+(\.[\w-]+)+$"
	re.IgnoreCase = True
	LooksLikeMail = re.Test(s)
End Function

If Request.Form("send") <> "" Then
	sFrom = Trim(Request.Form("from")) : sText = Request.Form("text")
	If Not LooksLikeMail(sFrom) Then Wrong "The address is none"
	If Len(Trim(sText)) < 10 Then Wrong "Please write a little more"
	If InStr(sFrom & Request.Form("subject"), vbCr) > 0 Then Wrong "No line breaks, please"
	If UBound(aWrong) < 0 Then
		With Server.CreateObject("CDO.Message")
			.From = sFrom
			.To = "shop@tea.example"
			.Subject = "Tea: " & Request.Form("subject")
			.TextBody = sText & vbCrLf & "-- " & vbCrLf & Join(Split(Request.Form("topic"), ", "), "/")
			With .Configuration.Fields
				.Item(cdoSendUsingMethod) = cdoSendUsingPort
				.Update
			End With
			On Error Resume Next
			.Send
			If Err Then Wrong "It could not be sent: " & Err.Description Else bSent = True
			On Error Goto 0
		End With
	End If
End If
%>
<!--#include file="Includes/Top.inc"-->
<% If bSent Then %><p id="sent">Thank you, <%= Server.HTMLEncode(sFrom) %>, about <%= Request.Form("topic").Count %> topics.</p>
<% Else
   If UBound(aWrong) >= 0 Then %><ul class="bad" id="wrong"><% For Each w In aWrong %><li><%= w %></li><% Next %></ul><% End If %>
<form method=post action="contact.asp">
From <input name="from" id="from" value="<%= Server.HTMLEncode(sFrom) %>"><br>
Subject <input name="subject" id="subject" value="<%= Server.HTMLEncode(Request.Form("subject")) %>"><br>
<input type=checkbox name=topic value="black" id="black"> black <input type=checkbox name=topic value="green" id="green"> green<br>
<textarea name="text" id="text"><%= Server.HTMLEncode(sText) %></textarea><br>
<input type="submit" name="send" id="send" value="Send">
</form>
<% End If %>
<!--#include file="Includes/Bottom.inc"-->
