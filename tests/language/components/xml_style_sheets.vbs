'=== transformNode gives text
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<r><i>b</i><i>a</i></r>"
Set style = CreateObject("MSXML2.DOMDocument")
head = "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform"" xmlns:msxsl=""urn:schemas-microsoft-com:xslt"" exclude-result-prefixes=""msxsl"">"
style.loadXML head & "<xsl:output method=""text""/><xsl:template match=""/""><xsl:for-each select=""//i""><xsl:sort select="".""/><xsl:value-of select="".""/>,</xsl:for-each></xsl:template></xsl:stylesheet>"
Show doc.transformNode(style)
style.loadXML head & "<xsl:template match=""/""><out><xsl:apply-templates select=""//i""/></out></xsl:template><xsl:template match=""i""><j><xsl:value-of select="".""/></j></xsl:template></xsl:stylesheet>"
Echo Replace(doc.transformNode(style), vbLf, "|")
Echo Replace(doc.documentElement.transformNode(style), vbLf, "|")
style.loadXML head & "<xsl:output method=""html""/><xsl:template match=""/""><p><br/><xsl:value-of select=""r/i""/></p></xsl:template></xsl:stylesheet>"
Echo Replace(doc.transformNode(style), vbLf, "|")
style.loadXML head & "<xsl:output method=""text""/><xsl:template match=""/""><xsl:variable name=""t""><x>1</x><x>2</x></xsl:variable><xsl:value-of select=""count(msxsl:node-set($t)/x)""/></xsl:template></xsl:stylesheet>"
Show doc.transformNode(style)
'> String "a,b,"
'> <?xml version="1.0" encoding="UTF-16"?>|<out><j>b</j><j>a</j></out>|
'> <?xml version="1.0" encoding="UTF-16"?>|<out><j>b</j><j>a</j></out>|
'> <p><br>b</p>|
'> String "2"

'=== into an object
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<r><i>b</i></r>"
Set style = CreateObject("MSXML2.DOMDocument")
style.loadXML "<out xsl:version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform""><xsl:value-of select=""r/i""/></out>"
Set target = CreateObject("MSXML2.DOMDocument")
doc.transformNodeToObject style, target
Echo target.documentElement.xml
Class Sink
  Public Sub Write(bytes): Echo TypeName(bytes), UBound(bytes): End Sub
End Class
doc.transformNodeToObject style, New Sink
'> <out>b</out>
'> Byte() 34

'=== templates and processors
Set style = CreateObject("MSXML2.FreeThreadedDOMDocument")
style.loadXML "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform""><xsl:output method=""text""/>" & _
  "<xsl:param name=""who"">nobody</xsl:param><xsl:param name=""n"" select=""0""/><xsl:param name=""b"" select=""false()""/>" & _
  "<xsl:template match=""/""><xsl:value-of select=""concat(r, ' ', $who, ' ', $n + 1, ' ', $b)""/></xsl:template></xsl:stylesheet>"
Set template = CreateObject("MSXML2.XSLTemplate.3.0")
Set template.stylesheet = style
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<r>hello</r>"
Set p = template.createProcessor
Set p.input = doc
Echo p.readyState, p.transform(), p.readyState, p.output
p.addParameter "who", "it's ""me"""
p.addParameter "n", 41
p.addParameter "b", True
p.transform
Echo p.output
Echo p.stylesheet Is style, p.ownerTemplate Is template
Set q = template.createProcessor
q.input = doc
q.transform
Echo q.output
On Error Resume Next
CreateObject("MSXML2.XSLTemplate").createProcessor
FailedText
Set template.stylesheet = doc
FailedText
template.createProcessor.transform
FailedText
'> 1 True 4 hello nobody 1 false
'> hello it's "me" 42 true
'> True True
'> hello nobody 1 false
'> -2147467259 The stylesheet property has not been set.
'> -2147467259 document is not a stylesheet
'> -2147467259 The input property has not been set.

'=== style sheets that fail
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<r/>"
Set style = CreateObject("MSXML2.DOMDocument")
head = "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform"">"
On Error Resume Next
doc.transformNode style
Failed
style.loadXML head & "<xsl:template match=""/""><xsl:value-of select=""["" /></xsl:template></xsl:stylesheet>"
doc.transformNode style
Failed
style.loadXML head & "<xsl:template match=""/""><xsl:message terminate=""yes"">stop</xsl:message></xsl:template></xsl:stylesheet>"
doc.transformNode style
FailedText
style.loadXML head & "<xsl:template match=""/"" name=""t""><xsl:call-template name=""t""/></xsl:template></xsl:stylesheet>"
doc.transformNode style
Failed
doc.transformNode Nothing
Failed
'> -2147467259
'> -2147467259
'> -2147467259 stop
'> -2147467259
'> -2147024809

'=== style sheets see no files unless they are let
Set secret = CreateObject("MSXML2.DOMDocument")
secret.loadXML "<s>secret</s>"
secret.save "/temporary/s.xml"
secret.loadXML "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform""><xsl:template match=""r"">included</xsl:template></xsl:stylesheet>"
secret.save "/temporary/i.xsl"
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<r/>"
Set style = CreateObject("MSXML2.DOMDocument")
style.loadXML "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform""><xsl:output method=""text""/><xsl:template match=""/"">[<xsl:value-of select=""document('/temporary/s.xml')/s""/>]</xsl:template></xsl:stylesheet>"
On Error Resume Next
Echo doc.transformNode(style)
Echo Err.Number <> 0
Err.Clear
style.resolveExternals = True
Echo doc.transformNode(style)
Failed
style.save "/temporary/main.xsl"
style.loadXML "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform""><xsl:output method=""text""/><xsl:include href=""i.xsl""/></xsl:stylesheet>"
style.save "/temporary/main.xsl"
style.load "/temporary/main.xsl"
Echo doc.transformNode(style)
Failed
style.resolveExternals = False
Echo doc.transformNode(style)
Echo Err.Number
'> []
'> False
'> [secret]
'> no error
'> included
'> no error
'> -2147467259
