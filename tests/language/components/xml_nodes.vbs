'=== a document is read
Set doc = CreateObject("MSXML2.DOMDocument")
Show doc                                        '> DOMDocument
Echo doc.loadXML("<a x='1' >text<b/></a>")       '> True
Echo doc.parseError.errorCode, doc.readyState   '> 0 4
Echo doc.parseError = 0                         '> True
Echo doc.documentElement.nodeName               '> a
Show doc.documentElement                        '> IXMLDOMElement
Show doc.documentElement.firstChild             '> IXMLDOMText
Echo doc.documentElement.text                   '> text
Show Replace(doc.xml, vbCr, "")                                    '> String "<a x="1">text<b/></a>
                                                '> "

'=== all names make the same objects
For Each name In Array("Microsoft.XMLDOM", "MSXML.DOMDocument", "MSXML2.FreeThreadedDOMDocument", _
                       "MSXML2.DOMDocument.3.0", "Msxml2.DOMDocument.4.0", "MSXML2.DOMDocument.6.0")
  Set doc = CreateObject(name)
  Echo doc.loadXML("<a/>"), doc.getProperty("SelectionLanguage")
Next                                            '> True XSLPattern
                                                '> True XSLPattern
                                                '> True XSLPattern
                                                '> True XSLPattern
                                                '> True XPath
                                                '> True XPath

'=== what every node says of itself
Set doc = CreateObject("MSXML2.DOMDocument")
doc.preserveWhiteSpace = True
doc.loadXML "<?xml version='1.0' encoding='utf-8'?><!DOCTYPE r [<!ENTITY e 'ent' >]><r a='v' xmlns:p='urn:p' >t<![CDATA[<c>]]><!--m--><?go on?><p:q/></r>"
Sub Tell(node)
  Echo TypeName(node), node.nodeType, node.nodeTypeString, node.nodeName, node.baseName, "[" & node.prefix & "]", "[" & node.namespaceURI & "]"
  Show node.nodeValue
End Sub
For Each node In doc.childNodes
  Tell node
Next
'> IXMLDOMProcessingInstruction 7 processinginstruction xml xml [] []
'> String "version="1.0" encoding="utf-8""
'> IXMLDOMDocumentType 10 documenttype r  [] []
'> Null
'> IXMLDOMElement 1 element r r [] []
'> Null
For Each node In doc.documentElement.childNodes
  Tell node
Next
'> IXMLDOMText 3 text #text  [] []
'> String "t"
'> IXMLDOMCDATASection 4 cdatasection #cdata-section  [] []
'> String "<c>"
'> IXMLDOMComment 8 comment #comment  [] []
'> String "m"
'> IXMLDOMProcessingInstruction 7 processinginstruction go go [] []
'> String "on"
'> IXMLDOMElement 1 element p:q q [p] [urn:p]
'> Null
Tell doc.documentElement.attributes(1)
'> IXMLDOMAttribute 2 attribute a a [] []
'> String "v"
Tell doc
'> DOMDocument 9 document #document  [] []
'> Null

'=== one object a node
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a><b/><c/></a>"
Set b = doc.documentElement.firstChild
Echo b Is doc.selectSingleNode("//b"), b Is b.nextSibling, b.parentNode Is doc.documentElement
Echo b.ownerDocument Is doc, doc.documentElement.parentNode Is doc
Echo doc.parentNode Is Nothing, doc.ownerDocument Is Nothing
'> True False True
'> True True
'> True True

'=== walking
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a><b>1</b><c>2</c><d>3</d></a>"
Set root = doc.documentElement
Echo root.hasChildNodes, root.childNodes.length, root.childNodes(1).text, root.childNodes.item(2).nodeName
Echo root.firstChild.text, root.lastChild.text, root.firstChild.nextSibling.text, root.lastChild.previousSibling.text
Echo root.firstChild.previousSibling Is Nothing, root.childNodes(3) Is Nothing, root.childNodes(-1) Is Nothing
Echo root.firstChild.hasChildNodes, root.firstChild.firstChild.hasChildNodes
Set list = root.childNodes
Do
  Set node = list.nextNode
  If node Is Nothing Then Exit Do
  Echo node.nodeName
Loop
list.reset
Echo list.nextNode.nodeName
'> True 3 2 d
'> 1 3 2 2
'> True True True
'> True False
'> b
'> c
'> d
'> b

'=== lists are live
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a><b/><x><b/></x></a>"
Set children = doc.documentElement.childNodes
Set named = doc.getElementsByTagName("b")
Set all = doc.documentElement.getElementsByTagName("*")
Set chosen = doc.selectNodes("//b")
Echo children.length, named.length, all.length, chosen.length
doc.documentElement.appendChild doc.createElement("b")
Echo children.length, named.length, all.length, chosen.length
doc.documentElement.removeChild children(0)
Echo children.length, named.length, all.length, chosen.length
Echo TypeName(children), TypeName(chosen)
'> 2 2 3 2
'> 3 3 4 2
'> 2 2 3 2
'> IXMLDOMNodeList IXMLDOMSelection

'=== attributes
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a one='1' two='2'/>"
Set e = doc.documentElement
Echo e.getAttribute("one"), e.attributes.length, e.attributes.getNamedItem("two").text
Show e.getAttribute("three")
e.setAttribute "one", 11
e.setAttribute "three", "<&"""
e.removeAttribute "two"
e.removeAttribute "none"
Echo e.xml
Set one = e.getAttributeNode("one")
Echo one.name, one.value, one.nodeTypedValue, one.specified
one.value = "eleven"
Echo e.getAttribute("one")
one.text = "12"
Echo one.nodeValue, one.childNodes.length, one.firstChild.nodeValue
For Each held In e.attributes
  Echo held.name & "=" & held.value
Next
Set gone = e.attributes.removeNamedItem("one")
Echo gone.value, e.attributes.length, e.attributes.getNamedItem("one") Is Nothing
Set made = doc.createAttribute("four")
made.value = 4
e.setAttributeNode made
e.attributes.setNamedItem gone
Echo e.xml
e.removeAttributeNode made
Echo e.xml, made.value
'> 1 2 2
'> Null
'> <a one="11" three="&lt;&amp;&quot;"/>
'> one 11 11 True
'> eleven
'> 12 1 12
'> one=12
'> three=<&"
'> 12 1 True
'> <a three="&lt;&amp;&quot;" four="4" one="12"/>
'> <a three="&lt;&amp;&quot;" one="12"/> 4

'=== building a document
Set doc = CreateObject("Microsoft.XMLDOM")
doc.appendChild doc.createProcessingInstruction("xml", "version=""1.0"" encoding=""utf-8""")
Set root = doc.appendChild(doc.createElement("root"))
Set item = doc.createElement("item")
item.appendChild doc.createTextNode("a < b")
root.appendChild item
root.appendChild doc.createCDATASection("<raw>")
root.appendChild doc.createComment("note")
root.insertBefore doc.createElement("first"), item
root.insertBefore doc.createElement("last"), Nothing
root.insertBefore doc.createElement("end"), Null
Echo Replace(doc.xml, vbCr, "")
Set doc.documentElement = doc.createElement("other")
Echo Replace(doc.xml, vbCr, "")
'> <?xml version="1.0"?>
'> <root><first/><item>a &lt; b</item><![CDATA[<raw>]]><!--note--><last/><end/></root>
'>
'> <?xml version="1.0"?>
'> <other/>
'>

'=== a fragment gives what it holds
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a><z/></a>"
Set part = doc.createDocumentFragment
part.appendChild doc.createElement("b")
part.appendChild doc.createElement("c")
Echo part.nodeName, part.xml, part.childNodes.length
doc.documentElement.insertBefore part, doc.documentElement.firstChild
Echo doc.documentElement.xml, part.hasChildNodes
'> #document-fragment <b/><c/> 2
'> <a><b/><c/><z/></a> False

'=== createNode
Set doc = CreateObject("MSXML2.DOMDocument")
Set e = doc.createNode(1, "p:e", "urn:p")
doc.appendChild e
e.appendChild doc.createNode("element", "d", "urn:d")
e.appendChild doc.createNode(3, "", "")
e.firstChild.appendChild doc.createNode(1, "none", "")
Set held = doc.createNode(2, "p:a", "urn:p")
held.text = "v"
e.setAttributeNode held
Echo doc.documentElement.xml
Echo e.prefix, e.baseName, e.namespaceURI
On Error Resume Next
doc.createNode 1, "q:e", ""
FailedText
doc.createNode 9, "", ""
FailedText
'> <p:e xmlns:p="urn:p" p:a="v"><d xmlns="urn:d"><none xmlns=""/></d></p:e>
'> p e urn:p
'> -2147467259 Reference to undeclared namespace prefix: 'q'.
'> -2147024809 The parameter is incorrect.

'=== copies
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a><b i='1' >t<c/></b></a>"
Set b = doc.documentElement.firstChild
Set deep = b.cloneNode(True)
Set flat = b.cloneNode(False)
Echo deep.xml, flat.xml, deep.parentNode Is Nothing, deep Is b
doc.documentElement.appendChild deep
Echo doc.documentElement.childNodes.length
Set other = doc.cloneNode(True)
other.documentElement.text = "changed"
Echo Replace(other.xml & doc.xml, vbCr, "")
'> <b i="1">t<c/></b> <b i="1"/> True False
'> 2
'> <a>changed</a>
'> <a><b i="1">t<c/></b><b i="1">t<c/></b></a>
'>

'=== replacing and removing
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a><b/><c/></a>"
Set root = doc.documentElement
Set old = root.replaceChild(doc.createElement("n"), root.firstChild)
Echo old.nodeName, root.xml
Set gone = root.removeChild(root.lastChild)
Echo gone.nodeName, gone.parentNode Is Nothing, root.xml
root.replaceChild root.firstChild, root.firstChild
Echo root.xml
root.appendChild gone
root.insertBefore gone, root.firstChild
root.insertBefore gone, gone
Echo root.xml
doc.removeChild root
Echo doc.documentElement Is Nothing, root.xml
'> b <a><n/><c/></a>
'> c True <a><n/></a>
'> <a><n/></a>
'> <a><c/><n/></a>
'> True <a><c/><n/></a>

'=== what is taken out lives on as long as it is held
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a><b><c>deep</c></b></a>"
Set c = doc.selectSingleNode("//c")
doc.documentElement.removeChild doc.documentElement.firstChild
Echo c.text, c.parentNode.nodeName, c.parentNode.parentNode Is Nothing
doc.documentElement.text = "new"
doc.loadXML "<other/>"
Echo c.text, doc.documentElement.nodeName, c.ownerDocument Is doc
Set doc = Nothing
Echo c.parentNode.xml, c.ownerDocument.documentElement.nodeName
'> deep b True
'> deep other True
'> <b><c>deep</c></b> other

'=== a node moves from one document to another
Set one = CreateObject("MSXML2.DOMDocument")
one.loadXML "<a xmlns:p='urn:p' ><p:b p:i='1' ><p:c/></p:b></a>"
Set two = CreateObject("MSXML2.DOMDocument")
two.loadXML "<z/>"
Set b = one.documentElement.firstChild
Set c = b.firstChild
two.documentElement.appendChild b
Set one = Nothing
Echo two.documentElement.xml, c.ownerDocument Is two, c.parentNode Is b
two.documentElement.appendChild two.importNode(c, True)
Echo two.documentElement.childNodes.length
'> <z><p:b xmlns:p="urn:p" p:i="1"><p:c/></p:b></z> True True
'> 2

'=== trees stay trees
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a><b><c/></b>t</a>"
Set a = doc.documentElement
Set b = a.firstChild
On Error Resume Next
b.firstChild.appendChild a
FailedText
b.appendChild b
FailedText
doc.appendChild doc.createElement("second")
FailedText
doc.appendChild doc.createTextNode("t")
FailedText
a.lastChild.appendChild doc.createElement("x")
FailedText
a.appendChild doc
FailedText
a.removeChild b.firstChild
FailedText
a.insertBefore doc.createElement("x"), b.firstChild
FailedText
a.appendChild Nothing
FailedText
a.appendChild "text"
FailedText
a.appendChild a.attributes
FailedText
Echo Replace(doc.xml, vbCr, "")
'> -2147467259 Inserting a Node or its ancestor under itself is not allowed.
'> -2147467259 Inserting a Node or its ancestor under itself is not allowed.
'> -2147467259 Only one top level element is allowed in an XML document.
'> -2147467259 This operation can not be performed with a Node of type TEXT.
'> -2147467259 This operation can not be performed with a Node of type TEXT.
'> -2147467259 This operation can not be performed with a Node of type DOCUMENT.
'> -2147024809 The parameter Node is not a child of this Node.
'> -2147024809 The parameter is incorrect.
'> -2147024809 The parameter is incorrect.
'> 13 Type mismatch
'> 13 Type mismatch
'> <a><b><c/></b>t</a>
'>

'=== names must be names
Set doc = CreateObject("MSXML2.DOMDocument")
On Error Resume Next
doc.createElement "a b"
Echo Err.Number, Replace(Err.Description, vbCrLf, "|")
Err.Clear
doc.createElement ""
FailedText
doc.createElement("ok").setAttribute "1x", ""
Echo Replace(Err.Description, vbCrLf, "|"), Err.Source
Err.Clear
doc.createElement("ok").getAttribute
FailedText
doc.createElement("ok").data
Failed
doc.createTextNode("ok").tagName
Failed
'> -2147467259 This name may not contain the ' ' character:|a--> <--b
'> -2147024809 The parameter is incorrect.
'> This name may not contain the '1' character:|-->1<--x msxml3.dll
'> 450 Wrong number of arguments or invalid property assignment
'> 438
'> 438

'=== texts
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a>0123456789</a>"
Set t = doc.documentElement.firstChild
Echo t.data, t.length, t.substringData(2, 3), t.substringData(8, 9)
t.appendData "x"
t.insertData 0, "<"
t.deleteData 1, 5
t.replaceData 1, 2, "ab"
Echo t.data
Set rest = t.splitText(3)
Echo t.data, rest.data, doc.documentElement.childNodes.length
doc.documentElement.normalize
Echo doc.documentElement.childNodes.length, doc.documentElement.text
On Error Resume Next
t.substringData 99, 1
FailedText
doc.createComment("c").splitText 0
Failed
'> 0123456789 10 234 89
'> <ab789x
'> <ab 789x 2
'> 1 <ab789x
'> -2147024809 The parameter is incorrect.
'> 438

'=== white space
Set doc = CreateObject("MSXML2.DOMDocument")
text = "<a> <b> x  y </b>" & vbLf & "<c>z</c><d>w</d> </a>"
doc.loadXML text
Echo doc.documentElement.childNodes.length, "[" & doc.documentElement.text & "]"
Echo "[" & doc.documentElement.firstChild.text & "]", "[" & doc.documentElement.firstChild.firstChild.nodeValue & "]"
Echo Replace(doc.xml, vbCr, "")
doc.preserveWhiteSpace = True
doc.loadXML text
Echo doc.documentElement.childNodes.length, "[" & doc.documentElement.text & "]"
doc.preserveWhiteSpace = False
doc.loadXML "<a xml:space='preserve' > <b/> </a>"
Echo doc.documentElement.childNodes.length
'> 3 [x  y zw]
'> [x  y] [ x  y ]
'> <a>
'> 	<b> x  y </b>
'> 	<c>z</c><d>w</d>
'> </a>
'>
'> 6 [  x  y 
'> zw ]
'> 3

'=== typed values
Set doc = CreateObject("MSXML2.DOMDocument")
Set e = doc.createElement("b64")
Show e.dataType
e.dataType = "bin.base64"
e.text = "SGVsbG8="
Show e.nodeTypedValue
Echo e.xml
For Each n In e.nodeTypedValue
  Echo n
Next
e.nodeTypedValue = e.nodeTypedValue
Echo e.text, e.dataType
e.dataType = "bin.hex"
e.text = "48656c6C6f"
bytes = e.nodeTypedValue
Echo UBound(bytes), bytes(0), bytes(4)
e.nodeTypedValue = bytes
Echo e.text
Sub Typed(kind, text)
  e.dataType = kind
  e.text = text
  Show e.nodeTypedValue
End Sub
Typed "int", " 42 "
Typed "ui1", "255"
Typed "i2", "-5"
Typed "number", "1.5e3"
Typed "r4", "0.5"
Typed "fixed.14.4", "12.3456"
Typed "boolean", "1"
Typed "boolean", "false"
Typed "date", "2004-02-29"
Typed "dateTime", "2004-02-29T13:45:30"
Typed "dateTime.tz", "2004-02-29T13:45:30.5+02:00"
Typed "time", "06:00:00"
Typed "string", "s"
e.dataType = "dateTime"
e.nodeTypedValue = DateSerial(2005, 6, 7) + TimeSerial(8, 9, 10)
Echo e.text
e.dataType = "int"
e.nodeTypedValue = 3.7
Echo e.text
e.dataType = "boolean"
e.nodeTypedValue = True
Echo e.text
On Error Resume Next
e.text = "maybe"
Show e.nodeTypedValue
FailedText
e.dataType = "no such"
FailedText
e.dataType = "bin.base64"
e.nodeTypedValue = 5
FailedText
'> Null
'> Byte()
'> <b64 xmlns:dt="urn:schemas-microsoft-com:datatypes" dt:dt="bin.base64">SGVsbG8=</b64>
'> 72
'> 101
'> 108
'> 108
'> 111
'> SGVsbG8= bin.base64
'> 4 72 111
'> 48656c6c6f
'> Long 42
'> Byte 255
'> Integer -5
'> Double 1500
'> Single 0.5
'> Currency 12.3456
'> Boolean True
'> Boolean False
'> Date 2/29/2004
'> Date 2/29/2004 1:45:30 PM
'> Date 2/29/2004 11:45:30 AM
'> Date 6:00:00 AM
'> String "s"
'> 2005-06-07T08:09:10
'> 4
'> 1
'> -2147467259 Error parsing 'maybe' as boolean datatype.
'> -2147024809 The parameter is incorrect.
'> 13 Type mismatch

'=== base64 of many bytes stands in lines
Set e = CreateObject("MSXML2.DOMDocument").createElement("b")
e.dataType = "bin.hex"
e.text = String(120, "a")
bytes = e.nodeTypedValue
e.dataType = "bin.base64"
e.nodeTypedValue = bytes
parts = Split(e.text, vbLf)
Echo UBound(parts), Len(parts(0)), Len(parts(1))
'> 1 72 8

'=== declarations of namespaces
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a xmlns='urn:d' xmlns:p='urn:p' p:i='1' ><p:b/></a>"
Set a = doc.documentElement
Echo a.getAttribute("xmlns"), a.getAttribute("xmlns:p"), a.attributes.length
For Each held In a.attributes
  Echo held.name
Next
Echo a.firstChild.xml
a.removeAttribute "xmlns:p"
a.setAttribute "xmlns:q", "urn:q"
a.setAttribute "q:j", "2"
Echo Replace(doc.xml, vbCr, "")
Echo a.attributes.getQualifiedItem("j", "urn:q").text
'> urn:d urn:p 3
'> xmlns
'> xmlns:p
'> p:i
'> <p:b xmlns:p="urn:p"/>
'> <a xmlns="urn:d" xmlns:q="urn:q" xmlns:p="urn:p" p:i="1" q:j="2"><p:b/></a>
'>
'> 2

'=== an envelope by setAttribute
Set doc = CreateObject("MSXML2.DOMDocument")
Set e = doc.createElement("soap:Envelope")
e.setAttribute "xmlns:soap", "http://schemas.xmlsoap.org/soap/envelope/"
doc.appendChild e
e.appendChild doc.createElement("soap:Body")
Echo Replace(doc.xml, vbCr, "")
Echo e.prefix, e.baseName, doc.selectSingleNode("//soap:Body").nodeName
'> <soap:Envelope xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/"><soap:Body/></soap:Envelope>
'>
'> soap Envelope soap:Body

'=== depth is bounded
Set doc = CreateObject("MSXML2.DOMDocument")
Set top = doc.appendChild(doc.createElement("a"))
On Error Resume Next
For i = 1 To 1000
  Set top = top.appendChild(doc.createElement("a"))
  If Err.Number <> 0 Then Exit For
Next
Echo i
FailedText
Set inner = doc.createElement("a")
Err.Clear
For i = 1 To 1000
  Set outer = doc.createElement("a")
  outer.appendChild inner
  If Err.Number <> 0 Then Exit For
  Set inner = outer
Next
Echo i
'> 255
'> -2147467259 The document has more than 256 levels.
'> 256

'=== properties
Set doc = CreateObject("MSXML2.DOMDocument")
Echo doc.async, doc.validateOnParse, doc.resolveExternals, doc.preserveWhiteSpace, doc.url
doc.async = False
doc.validateOnParse = False
doc.setProperty "ServerHTTPRequest", True
Echo doc.async, doc.validateOnParse, doc.getProperty("ServerHTTPRequest")
doc.setProperty "SelectionNamespaces", "xmlns:x='urn:x'"
Echo doc.getProperty("SelectionNamespaces"), doc.implementation.hasFeature("XML", "1.0")
On Error Resume Next
doc.setProperty "Nonsense", 1
FailedText
doc.setProperty "SelectionLanguage", "SQL"
FailedText
doc.setProperty "SelectionNamespaces", "urn:x"
FailedText
'> True True False False 
'> False False True
'> xmlns:x='urn:x' True
'> -2147467259 The property name is invalid.
'> -2147024809 The parameter is incorrect.
'> -2147467259 SelectionNamespaces property value is invalid. Only well-formed xmlns attributes are allowed.

'=== letters beyond one byte
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a>" & ChrW(8364) & ChrW(1046) & "&#x4E2D;</a>"
text = doc.documentElement.text
Echo Len(text), AscW(text), AscW(Mid(text, 2)), AscW(Mid(text, 3))
Echo Len(doc.xml)
'> 3 8364 1046 20013
'> 12
