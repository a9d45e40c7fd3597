'=== what nodes of all kinds have
Dim d: Set d = CreateObject("MSXML2.DOMDocument.6.0")
d.setProperty "ProhibitDTD", False
d.loadXML "<!DOCTYPE a [<!ELEMENT a ANY>]><a x=""1"">text<!-- note --><?do it?><![CDATA[raw]]><b/></a>"
Sub Look(n)
  On Error Resume Next
  Dim x, s
  Err.Clear
  Set x = n.parentNode: Set x = n.childNodes: Set x = n.firstChild: Set x = n.lastChild
  Set x = n.previousSibling: Set x = n.nextSibling: Set x = n.attributes: Set x = n.ownerDocument
  s = n.xml: s = n.text: s = n.nodeTypedValue: s = n.specified: s = n.parsed: s = n.dataType
  Set x = n.definition
  s = n.hasChildNodes
  Set x = n.cloneNode(True)
  Set x = n.selectNodes("*"): Set x = n.selectSingleNode("*")
  Echo n.nodeName, n.nodeType, n.nodeTypeString, n.baseName & "|" & n.prefix & "|" & n.namespaceURI, Err.Number
End Sub
Look d                                         '> #document 9 document || 0
Look d.firstChild                              '> a 10 documenttype || 7
Look d.documentElement                         '> a 1 element a|| 0
Look d.documentElement.attributes(0)           '> x 2 attribute x|| 0
For Each n In d.documentElement.childNodes: Look n: Next
'> #text 3 text || 0
'> #comment 8 comment || 0
'> do 7 processinginstruction do|| 0
'> #cdata-section 4 cdatasection || 0
'> b 1 element b|| 0

'=== nodes that have no children refuse them
Dim d: Set d = CreateObject("MSXML2.DOMDocument.6.0")
d.setProperty "ProhibitDTD", False
d.loadXML "<!DOCTYPE a [<!ELEMENT a ANY>]><a x=""1"">text<?do it?></a>"
Dim pi: Set pi = d.documentElement.lastChild
Echo pi.target, pi.data                        '> do it
Sub Refuses(n)
  On Error Resume Next
  Dim made, sheet, results: Set made = d.createElement("m")
  Err.Clear
  n.appendChild made: results = Err.Number: Err.Clear
  n.insertBefore made, Nothing: results = results & " " & Err.Number: Err.Clear
  n.removeChild made: results = results & " " & Err.Number: Err.Clear
  n.replaceChild made, made: results = results & " " & Err.Number: Err.Clear
  n.transformNode made: results = results & " " & Err.Number: Err.Clear
  n.transformNodeToObject made, d: results = results & " " & Err.Number: Err.Clear
  n.dataType = "int": results = results & " " & Err.Number: Err.Clear
  Echo n.nodeName, results
End Sub
Refuses d.documentElement.firstChild           '> #text -2147467259 -2147467259 -2147024809 -2147024809 -2147024809 -2147024809 -2147467259
Refuses pi                                     '> do -2147467259 -2147467259 -2147024809 -2147024809 -2147024809 -2147024809 -2147467259
Refuses d.documentElement.attributes(0)        '> x -2147467259 -2147467259 -2147024809 -2147024809 -2147024809 -2147024809 -2147467259
Refuses d.firstChild                           '> a -2147467259 -2147467259 -2147024809 -2147024809 -2147024809 -2147024809 -2147467259
Refuses d.documentElement                      '> a 0 0 0 -2147024809 -2147467259 -2147467259 0

'=== a document's own
Dim d, e: Set d = CreateObject("MSXML2.DOMDocument")
d.async = False
d.onreadystatechange = GetRef("Nothing_"): d.ondataavailable = GetRef("Nothing_")
Sub Nothing_
End Sub
Echo d.loadXML("<a><b id=""1""/><c/></a>"), d.hasChildNodes, d.text & "|", d.parsed, d.specified   '> True True | True True
Set e = d.documentElement
d.insertBefore d.createComment("first"), e
d.appendChild d.createComment("last")
Echo d.lastChild.nodeValue, d.previousSibling Is Nothing, d.nextSibling Is Nothing, d.attributes Is Nothing   '> last True True True
d.replaceChild d.createComment("other"), d.firstChild
Echo d.firstChild.text, d.createEntityReference("x").nodeName  '> other x
Echo d.definition Is Nothing, IsNull(d.dataType), IsNull(d.nodeTypedValue)     '> True True True
Echo d.nodeFromID("1") Is Nothing              '> True
Echo d.validate.errorCode                      '> 0
d.abort
Echo e.tagName, e.specified, e.parsed, e.definition Is Nothing                 '> a True True True

'=== an element is transformed into a document
Dim d, s, o: Set d = CreateObject("MSXML2.DOMDocument"): Set s = CreateObject("MSXML2.DOMDocument"): Set o = CreateObject("MSXML2.DOMDocument")
d.loadXML "<a><b>7</b></a>"
s.loadXML "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform""><xsl:template match=""/""><r><xsl:value-of select="".//b""/></r></xsl:template></xsl:stylesheet>"
d.documentElement.transformNodeToObject s, o
Echo o.documentElement.text                    '> 7

'=== a map of attributes is walked
Dim d, m: Set d = CreateObject("MSXML2.DOMDocument")
d.loadXML "<a xmlns:p=""urn:p"" x=""1"" p:y=""2""/>"
Set m = d.documentElement.attributes
Echo m.item(1).nodeName, m.nextNode.nodeName, m.nextNode.nodeName              '> x xmlns:p x
m.reset
Echo m.nextNode.nodeName                       '> xmlns:p
m.removeQualifiedItem "y", "urn:p"
Echo m.length                                  '> 2

'=== a processor begins anew
Dim t, p, s: Set t = CreateObject("MSXML2.XSLTemplate"): Set s = CreateObject("MSXML2.FreeThreadedDOMDocument")
s.loadXML "<xsl:stylesheet version=""1.0"" xmlns:xsl=""http://www.w3.org/1999/XSL/Transform""><xsl:template match=""/""><r/></xsl:template></xsl:stylesheet>"
Set t.stylesheet = s
Set p = t.createProcessor
p.input = s
p.transform
p.reset
Echo "[" & p.output & "]"                      '> []
