<%@ CodePage=1251 LCID=1049 %>
<% Response.Charset = "windows-1251" %>
<html><head><title>„ай</title></head><body>
<p id="tea">„ай и <%= "самовар" & Len("чай") %></p><p id="asked"><%= Server.HTMLEncode(Request("q")) %></p><p id="date"><%= FormatDateTime(#2009-03-02#, 2) & " " & MonthName(3) & " " & 1.5 %></p>
</body></html>
