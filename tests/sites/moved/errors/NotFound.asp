<%@ Language=VBScript %>
<%
' Addresses such as /products/t200/darjeeling are no files: the name of what was asked comes as
' "404;http://host/products/t200/darjeeling".
Dim sAsked, aPart
sAsked = Request.ServerVariables("QUERY_STRING")
If Left(sAsked, 4) = "404;" Then sAsked = Mid(sAsked, 5)
sAsked = Mid(sAsked, InStr(InStr(sAsked, "://") + 3, sAsked & "/", "/"))
aPart = Split(Split(sAsked & "?", "?")(0), "/")
If UBound(aPart) >= 2 Then
	If LCase(aPart(1)) = "products" Then
		Session("Product") = UCase(aPart(2))
		Server.Transfer "../products/Show.asp"
	ElseIf LCase(aPart(1)) = "tea" Then
		Response.Status = "301 Moved Permanently"
		Response.AddHeader "Location", "/products/" & aPart(2)
		Response.End
	End If
End If
Response.Status = "404 Not Found"
sTitle = "Not found"
%>
<!--#include virtual="/Includes/Top.inc"-->
<p id="asked">There is no <i><%= Server.HTMLEncode(sAsked) %></i> here.</p>
<!--#include virtual="/Includes/Bottom.inc"-->
