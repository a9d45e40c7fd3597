<%@ CodePage=65001 Language="VBScript" LCID=1033 %><!-- #include file="dates.inc" --><%
Response.ContentType = "text/xml"
Response.ExpiresAbsolute = #2030-12-24 18:00:00#
sSite = "http://" & Request.ServerVariables("SERVER_NAME")
If Request.ServerVariables("SERVER_PORT") <> "80" Then sSite = sSite & ":" & Request.ServerVariables("SERVER_PORT")
Response.Clear
%><?xml version="1.0" encoding="utf-8"?>
<rss version="2.0"><channel>
<title>Tea news – Neuigkeiten für Teetrinker</title>
<link><%= sSite %>/</link>
<description>茶</description>
<% aNews = Array("Spring teas|2009-03-02 10:30:00|Grün & weiß", "New pots|2009-02-14 09:00:00|Céramique")
For Each sNews In aNews
	aPart = Split(sNews, "|") %><item>
<title><%= aPart(0) %></title>
<description><%= Server.HTMLEncode(aPart(2)) %></description>
<pubDate><%= Rfc822(CDate(aPart(1))) %></pubDate>
<guid isPermaLink="false"><%= Year(aPart(1)) & "-" & LCase(Replace(aPart(0), " ", "-")) %></guid>
</item>
<% Next %></channel></rss>
