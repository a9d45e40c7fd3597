<%@ Language="VBScript" EnableSessionState=True %>
<% Option Explicit %>
<!--#include file="parts/basket.inc"-->
<%
Dim sTitle, oBasket, sField, sNumber, sLine, oLine, dTotal
sTitle = "Your basket"
Set oBasket = TheBasket()
For Each sField In Request.Form
	If Left(sField, 2) = "n_" Then
		sNumber = Request.Form(sField)
		If IsNumeric(sNumber) And sNumber <> "" Then PutIn oBasket, Mid(sField, 3), CInt(sNumber)
	End If
Next
If Request.QueryString("drop") <> "" Then DropIt Request.QueryString("drop")
If Request.Form.Count > 0 Or Request.QueryString.Count > 0 Then Response.Redirect "?"
%>
<!--#include virtual="/includes/top.inc"-->
<% If oBasket.Count = 0 Then %>
<p id="empty">There is nothing in it.</p>
<% Else %>
<table border=1 id="basket">
<% dTotal = 0
For Each sLine In oBasket
	Set oLine = oBasket(sLine)
	With oLine
		dTotal = dTotal + .Sum %>
<tr><td><%= .Number %></td><td><%= Server.HTMLEncode(.Name) %></td><td align=right><%= Money(.Sum) %></td>
<td><a id="drop_<%= sLine %>" href="basket.asp?drop=<%= Server.URLEncode(sLine) %>">drop</a></td></tr>
<%	End With
Next %>
<tr><td colspan=2>Total</td><td align=right id="total"><%= Money(dTotal) %></td><td></td></tr>
</table>
<% End If %>
<p><a href="./">More</a></p>
<!--#include virtual="/includes/bottom.inc"-->
