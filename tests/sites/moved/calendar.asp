<% Option Explicit %>
<%
Dim sTitle, nYear, nMonth, dFirst, dDay, nCell
nYear = Request.QueryString("y") : nMonth = Request.QueryString("m")
If Not IsNumeric(nYear) Or nYear = "" Then nYear = Year(Date)
If Not IsNumeric(nMonth) Or nMonth = "" Then nMonth = Month(Date)
dFirst = DateSerial(nYear, nMonth, 1)
sTitle = MonthName(Month(dFirst)) & " " & Year(dFirst)
Function Link(d, sText)
	Link = "<a id=""" & sText & """ href=""?y=" & Year(d) & "&amp;m=" & Month(d) & """>" & sText & "</a>"
End Function
%>
<!--#include virtual="Includes/Top.inc"-->
<p><%= Link(DateAdd("m", -1, dFirst), "before") %> <%= Link(DateAdd("m", 1, dFirst), "after") %></p>
<table border=1 id="month"><tr><% For nCell = 1 To 7 %><th><%= WeekdayName(nCell, True, vbMonday) %></th><% Next %></tr>
<%
dDay = dFirst - (Weekday(dFirst, vbMonday) - 1)
Do While dDay < DateAdd("m", 1, dFirst)
	Response.Write "<tr>"
	For nCell = 1 To 7
		If Month(dDay) <> Month(dFirst) Then
			%><td></td><%
		ElseIf dDay = Date Then
			%><td bgcolor="#ffcc00"><b><%= Day(dDay) %></b></td><%
		Else
			%><td><%= Day(dDay) %></td><%
		End If
		dDay = dDay + 1
	Next
	Response.Write "</tr>" & vbCrLf
Loop
%></table>
<!--#include virtual="Includes/Bottom.inc"-->
