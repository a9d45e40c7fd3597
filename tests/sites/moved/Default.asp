<%@ Language=VBScript %>
<% Option Explicit
Dim sTitle, sNotice, aHours, i, nDay
sTitle = "Welcome"
Response.Expires = -1
Response.AddHeader "Pragma", "no-cache"
%>
<!--#include virtual="/includes/top.inc"-->
<p id="greeting"><%
Select Case True
  Case IsLoggedIn()
    Response.Write "Good to see you, " & Server.HTMLEncode(Session("UserName"))
  Case Request.Cookies("Visitor").HasKeys
    Response.Write "Welcome back, " & Server.HTMLEncode(Request.Cookies("Visitor")("Name"))
  Case Else
    Response.Write "Welcome, stranger"
End Select
%></p>
<ul id="notices"><% For Each sNotice In Notices %>
<li><%=Notices(sNotice)%></li><% Next %>
</ul>
<table id="hours" border=1><%
aHours = Application("OpeningHours")
For i = LBound(aHours) To UBound(aHours)
	nDay = i + 1 %>
<tr><td><%= WeekdayName(nDay) %></td><td><%= aHours(i) %></td></tr>
<% Next %></table>
<p>You came in by <i id="first"><%=Session("FirstPage")%></i> at <%= FormatDateTime(Session("Entered"), 4) %>.</p>
<p><a href="Shop/">Shop</a> | <a href="calendar.asp">Calendar</a> | <a href="GUESTS.asp">Guests</a> |
<a href="Contact.asp">Contact</a> | <a href="Survey.asp">Survey</a> | <a href="upload.asp">Pictures</a> |
<a href="/products/t200/darjeeling">Tea of the month</a> | <a href="about">About</a></p>
<p id="stock">...</p>
<script language="JavaScript" type="text/javascript">
<!--
var x = new XMLHttpRequest();
x.onreadystatechange = function () {
  if (x.readyState != 4) return;
  var all = JSON.parse(x.responseText);
  document.getElementById('stock').innerHTML = all.goods.length + ' goods, ' + all.note;
};
x.open('GET', 'api/Stock.asp?part=all', true);
x.send();
//-->
</script>
<!-- #include file = "Includes/Bottom.inc" -->
