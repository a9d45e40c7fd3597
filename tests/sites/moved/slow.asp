<% Response.Buffer = False %>
<html><head><title>Slow</title></head><body><ol><% For i = 1 To 3 %>
<li><%= i %></li><% Response.Flush : Next %>
</ol><p id="end">done</p></body></html>
