<%
sCode = Session("Product") : bFound = False
aGoods = Application("Goods")
For i = 0 To UBound(aGoods)
	If aGoods(i, 0) = sCode Then bFound = True : Exit For
Next
If bFound Then sTitle = aGoods(i, 1) Else sTitle = "No such tea" : Response.Status = "404 Not Found"
%>
<!--#include file="../includes/TOP.inc"-->
<% If bFound Then %>
<p id="product"><%= sCode %>: <%= Money(aGoods(i, 2)) %></p>
<% Server.Execute "price.asp" %>
<% End If %>
<!--#include file="../includes/bottom.inc"-->
