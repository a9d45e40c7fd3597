<%@ LANGUAGE="VBSCRIPT" CODEPAGE="1252" %>
<%
Response.Buffer = True
Response.CacheControl = "no-cache"
sTitle = "Log in"
sName = Trim(Request.Form("name"))
sBack = Request("back")
If sBack = "" Or Left(sBack, 1) <> "/" Then sBack = "/account/Members.asp"

If Request.ServerVariables("REQUEST_METHOD") = "POST" Then
	If CheckUser(sName, Request.Form("password")) Then
		Session("LoggedIn") = True
		Session("UserName") = sName
		Session("Rights") = Array("read", "write")
		Response.Cookies("Visitor")("Name") = sName
		Response.Cookies("Visitor")("Since") = "2004"
		If Request.Form("remember").Count > 0 Then Response.Cookies("Visitor").Expires = DateAdd("yyyy", 1, Date)
		Response.Cookies("LastPage") = "log in"
		Response.Cookies("LastPage").Path = "/account; SameSite=Lax"
		Call Leave(sBack)
		Response.Write "this is never seen"
	Else
		sMessage = "Name or password is wrong"
	End If
End If
%>
<!--#include file="../Includes/Top.inc"-->
<% If sMessage <> "" Then %><p class="bad" id="message"><%= sMessage %></p><% End If %>
<form method="post" action="login.asp">
<input type="hidden" name="back" value="<%= Server.HTMLEncode(sBack) %>">
Name <input name="name" id="name" value="<%=Server.HTMLEncode(sName)%>">
Password <input type="password" name="password" id="password">
<input type="checkbox" name="remember" id="remember" value="1"> remember me
<input type="submit" id="go" value="Log in">
</form>
<!--#include file="../Includes/Bottom.inc"-->
<script language="VBScript" runat="server">
Function CheckUser(ByVal sUser, ByVal sPassword)
	Dim d
	Set d = Server.CreateObject("Scripting.Dictionary")
	d.CompareMode = 1
	d("ann") = "leaves"
	d("René") = "caf" & Chr(233)
	CheckUser = False
	If d.Exists(sUser) Then CheckUser = (d(sUser) = sPassword)
End Function

Sub Leave(sTo)
	On Error Resume Next
	Response.Redirect sTo
	Response.Write "nor is this"
End Sub
</script>
