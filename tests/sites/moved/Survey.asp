<% sTitle = "Survey" %>
<!--#include virtual="/Includes/Top.inc"--><%
Vote
Sub Vote
	If Request.Form("tea").Count = 0 Then Exit Sub
	Application.Lock
	For i = 1 To Request.Form("tea").Count
		Application("Votes" & Request.Form("tea")(i)) = Application("Votes" & Request.Form("tea")(i)) + 1
	Next
	Application.UnLock
	Session("Voted") = Date()
	GoTo_ "survey.asp?done=" & Server.URLEncode(Request.Form("tea"))
End Sub
%>
<% If Request.QueryString("done") <> "" Then %><p id="done">Counted: <%= Request.QueryString("done") %></p><% End If %>
<form method="post">
<input type="checkbox" name="tea" value="Green" id="green"> green
<input type="checkbox" name="tea" value="Black" id="black"> black
<% If Not IsDate(Session("Voted")) Then %><input type="submit" id="go" value="Vote"><% End If %>
</form>
<p id="votes"><%= Application("VotesGreen") %> green, <%= Application("VotesBlack") %> black</p>
<!--#include virtual="/Includes/Bottom.inc"-->
