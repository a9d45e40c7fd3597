<% @Language = "VBScript" %>
<% sTitle = "Shop" %>
<!-- what we have -->
<!--#include virtual="/includes/TOP.INC"-->
<form method="post" action="Basket.asp">
<table border="1" id="goods">
<% aGoods = Application("Goods")
For i = 0 To UBound(aGoods, 1)
  If i Mod 2 = 0 Then sColour = "#eeeeee" Else sColour = "#ffffff" %>
<tr bgcolor="<%=sColour%>">
  <td><%= aGoods(i, 0) %></td><td><%= Server.HTMLEncode(aGoods(i, 1)) %></td>
  <td align="right"><%= Money(aGoods(i, 2)) %></td>
  <td><input name="n_<%=aGoods(i, 0)%>" size="2"></td>
</tr>
<% Next %>
</table>
<input type="submit" name="do" value="Into the basket" id="put">
</form>
<!--#include virtual="/includes/bottom.inc"-->
