'=== memory is counted
Set doc = CreateObject("MSXML2.DOMDocument")
text = "<a>" & Replace(Space(20000), " ", "<b/>") & "</a>"
Echo doc.loadXML(text), doc.documentElement.childNodes.length
For i = 1 To 10
  doc.loadXML text
Next
Echo doc.documentElement.childNodes.length
'> True 20000
'> 20000

'=== until there is none left
Set doc = CreateObject("MSXML2.DOMDocument")
text = "<a>" & Replace(Space(2000000), " ", "<b/>") & "</a>"
On Error Resume Next
doc.loadXML text
Failed
Set doc = Nothing
Set doc = CreateObject("MSXML2.DOMDocument")
Set root = doc.appendChild(doc.createElement("a"))
piece = String(1000000, "x")
For i = 1 To 1000
  root.appendChild doc.createTextNode(piece)
  If Err.Number <> 0 Then Exit For
Next
Failed
Echo i < 300
Set root = Nothing
Set doc = Nothing
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<r/>"
Set style = CreateObject("MSXML2.DOMDocument")
style.loadXML "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform""><xsl:template match=""/""><xsl:call-template name=""t""/></xsl:template>" & _
  "<xsl:template name=""t""><xsl:param name=""n"" select=""'0123456789012345678901234567890123456789012345678901234567890123456789'""/><a><xsl:value-of select=""$n""/></a><xsl:call-template name=""t""><xsl:with-param name=""n"" select=""concat($n, $n)""/></xsl:call-template></xsl:template></xsl:stylesheet>"
doc.transformNode style
Echo Err.Number
'> 7
'> 7
'> True
'> 7

'=== nodes that nobody holds go
Set doc = CreateObject("MSXML2.DOMDocument")
Set root = doc.appendChild(doc.createElement("a"))
For i = 1 To 20000
  Set e = doc.createElement("b")
  e.text = "some text that takes its place in memory"
  e.setAttribute "name", "value"
  root.appendChild e
  root.removeChild e
Next
Echo root.childNodes.length
For i = 1 To 20000
  root.text = "new text " & i
Next
Echo root.text
'> 0
'> new text 20000
