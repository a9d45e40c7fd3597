<%@LANGUAGE="VBSCRIPT"%>
<!--#include virtual="/Account/guard.inc" -->
<% sTitle = "Members only" %>
<!--#include virtual="/Includes/Top.inc" -->
<p id="rights">You may <%= Join(Session("Rights"), " and ") %>. Session <%= Session.SessionID %> lasts
<%=Session.Timeout%> minutes.</p>
<table id="values" border="1"><%
For Each sKey In Session.Contents
	If IsObject(Session.Contents(sKey)) Then
		sShown = "(" & TypeName(Session(sKey)) & ")"
	ElseIf IsArray(Session(sKey)) Then
		sShown = "(array of " & UBound(Session(sKey)) + 1 & ")"
	Else
		sShown = Server.HTMLEncode(Session(sKey) & "")
	End If %>
<tr><td><%=sKey%></td><td><%=sShown%></td></tr><%
Next %>
</table>
<p id="trail"><% For Each sPage In Trail.Keys : Response.Write sPage & " " : Next %></p>
<!--#include virtual="/Includes/Bottom.inc" -->
