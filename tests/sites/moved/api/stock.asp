<%@ Language="VBScript" CodePage="65001" EnableSessionState="False" %>
<!--#include file="json.inc"--><%
Response.ContentType = "application/json"
Response.Charset = "utf-8"
Response.AddHeader "Access-Control-Allow-Origin", "*"
Dim aGoods, i, sAll
aGoods = Application("Goods")
For i = 0 To UBound(aGoods, 1)
	If sAll <> "" Then sAll = sAll & ","
	sAll = sAll & "{" & Pair("code", aGoods(i, 0)) & "," & Pair("name", aGoods(i, 1)) & "," & Pair("price", aGoods(i, 2)) & "}"
Next
Response.Clear
Response.Write "{""goods"":[" & sAll & "]," & Pair("note", "fresh – “今日” für René") & "," & Pair("part", Request("part").Item) & "}"
Response.End
%>
