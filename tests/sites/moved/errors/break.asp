<%@ Language=VBScript %>
<html><body>what was written before is not seen
<!--#include file="deep/first.inc"-->
</body></html>
