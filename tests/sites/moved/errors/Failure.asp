<%@ Language=VBScript %>
<% Set oError = Server.GetLastError() %>
<html><head><title>Something broke</title></head><body>
<h1>Something broke</h1>
<p id="description"><%= Server.HTMLEncode(oError.Description) %></p>
<p id="place"><%= Mid(oError.File, InStrRev(Replace(oError.File, "\", "/"), "/") + 1) %>, line <%= oError.Line %></p>
<p id="number"><%= oError.Number %> <%= oError.Category %></p>
</body></html>
