'=== faults have the customary numbers and texts
Set doc = CreateObject("MSXML2.DOMDocument")
Sub Try(text)
  ok = doc.loadXML(text)
  Echo ok, doc.parseError.errorCode, Replace(doc.parseError.reason, vbCrLf, "|")
End Sub
Try "<a></b>"
Try "<a><b></a>"
Try "<a>"
Try "<a><b>text"
Try ""
Try "  "
Try "text"
Try "<a/><b/>"
Try "<a/>text"
Try "<a x=""1"" x=""2""/>"
Try "<a x/>"
Try "<a x=1/>"
Try "<a x=""1/>"
Try "<a x=""<""/>"
Try "<a>&nbsp;</a>"
Try "<a>&amp</a>"
Try "<a>a & b</a>"
Try "<a>< b</a>"
Try "<1a/>"
Try "<p:a/>"
Try "<a><!-- -- --></a>"
Try "<a><!-- </a>"
Try "<a><![CDATA[</a>"
Try "<a>" & Chr(1) & "</a>"
Try "<a/><?xml version=""1.0""?>"
Try "<a>&#xZ;</a>"
Try "<a b=""1""c=""2""/>"
Try "<ok/>"
'> False -1072896659 End tag 'b' does not match the start tag 'a'.|
'> False -1072896659 End tag 'a' does not match the start tag 'b'.|
'> False -1072896685 The following tags were not closed: a.|
'> False -1072896685 The following tags were not closed: a, b.|
'> False -1072896680 XML document must have a top level element.|
'> False -1072896680 XML document must have a top level element.|
'> False -1072896682 Invalid at the top level of the document.|
'> False -1072896683 Only one top level element is allowed in an XML document.|
'> False -1072896682 Invalid at the top level of the document.|
'> False -1072896684 Duplicate attribute.|
'> False -1072896767 Missing equals sign between attribute and attribute value.|
'> False -1072896766 A string literal was expected, but no opening quote character was found.|
'> False -1072896741 A string literal was not closed.|
'> False -1072896762 The character '<' cannot be used in an attribute value.|
'> False -1072898046 Reference to undefined entity 'nbsp'.|
'> False -1072896755 A semi colon character was expected.|
'> False -1072896749 Whitespace is not allowed at this location.|
'> False -1072896749 Whitespace is not allowed at this location.|
'> False -1072896764 A name was started with an invalid character.|
'> False -1072898019 Reference to undeclared namespace prefix: 'p'.|
'> False -1072896765 Incorrect syntax was used in a comment.|
'> False -1072896672 A comment was not closed.|
'> False -1072896669 A CDATA section was not closed.|
'> False -1072896760 An invalid character was found in text content.|
'> False -1072896681 Invalid xml declaration.|
'> False -1072896738 Invalid character in hexadecimal character reference.|
'> False -1072896759 Required white space was missing.|
'> True 0 

'=== where the fault is
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a>" & vbLf & "  <b></c>" & vbLf & "</a>"
With doc.parseError
  Echo .line, .linepos, .filepos, "[" & .srcText & "]", "[" & .url & "]"
End With
Echo doc.documentElement Is Nothing, "[" & doc.xml & "]"
'> 2 10 13 [  <b></c>] []
'> True []

'=== saved and loaded
Set doc = CreateObject("MSXML2.DOMDocument")
doc.async = False
doc.loadXML "<?xml version='1.0' encoding='ISO-8859-1'?><a>" & Chr(228) & ChrW(8364) & "</a>"
doc.save "/temporary/a.xml"
Set other = CreateObject("MSXML2.DOMDocument")
Echo other.load("/temporary/a.xml"), Spelled(other.url), other.documentElement.text = Chr(228) & ChrW(8364)
Echo other.load("file:///temporary/A.XML"), other.load("/temporary/none.xml"), other.parseError.errorCode
Echo Replace(other.parseError.reason, vbCrLf, "|"), Spelled(other.parseError.url)
other.save doc
Echo other.load("/temporary/a.xml")
other.save doc
Echo doc.documentElement.text = Chr(228) & ChrW(8364)
On Error Resume Next
doc.save "/elsewhere/a.xml"
Failed
doc.load "/elsewhere/a.xml"
Failed
doc.load "http://127.0.0.1:1/none.xml"
Failed
Echo doc.parseError.errorCode <> 0
'> True /temporary/a.xml True
'> True False -2146697210
'> The system cannot locate the object specified.| /temporary/none.xml
'> True
'> True
'> 70
'> 70
'> no error
'> True

'=== from bytes and from objects
Set doc = CreateObject("MSXML2.DOMDocument")
Set e = doc.createElement("x")
e.dataType = "bin.hex"
e.text = "3C613EC3A43C2F613E"
Echo doc.load(e.nodeTypedValue), AscW(doc.documentElement.text)
Class Request
  Public Property Get TotalBytes: TotalBytes = 9: End Property
  Public Function BinaryRead(count): BinaryRead = e.nodeTypedValue: Echo count: End Function
End Class
Class Stream
  Public Function Read(): Read = e.nodeTypedValue: End Function
  Public Sub Write(bytes): Echo TypeName(bytes), UBound(bytes): End Sub
End Class
Class Response
  Public Sub Write(text): Echo "text": End Sub
  Public Sub BinaryWrite(bytes): Echo TypeName(bytes), UBound(bytes): End Sub
End Class
Class Other
End Class
doc.loadXML "<b/>"
Echo doc.load(New Request), doc.documentElement.nodeName
doc.loadXML "<b/>"
Echo doc.load(New Stream), doc.documentElement.nodeName
doc.loadXML "<b/>"
doc.save New Stream
doc.save New Response
Set copy = CreateObject("MSXML2.DOMDocument")
Echo copy.load(doc), copy.documentElement.nodeName
On Error Resume Next
doc.save New Other
Failed
doc.load New Other
Failed
doc.save Nothing
Failed
doc.load Nothing
Failed
'> True 228
'> 9
'> True a
'> True a
'> Byte() 5
'> Byte() 5
'> True b
'> -2147024809
'> -2147024809
'> -2147024809
'> -2147024809

'=== entities
Set doc = CreateObject("MSXML2.DOMDocument")
Echo doc.loadXML("<!DOCTYPE a [<!ENTITY e ""inside""><!ENTITY f SYSTEM ""/temporary/secret.txt"">]><a>&e;</a>"), doc.documentElement.text
Echo doc.doctype.name
CreateObject("MSXML2.DOMDocument").save "/temporary/secret.txt"
Set s = CreateObject("MSXML2.DOMDocument")
s.loadXML "<secret/>"
s.save "/temporary/secret.txt"
text = "<!DOCTYPE a [<!ENTITY f SYSTEM ""/temporary/secret.txt"">]><a>&f;</a>"
Echo doc.loadXML(text), doc.selectNodes("//secret").length, "[" & doc.documentElement.text & "]"
doc.resolveExternals = True
Echo doc.loadXML(text), doc.documentElement.firstChild.nodeName
Echo doc.loadXML(Replace(text, "/temporary/", "http://127.0.0.1:1/")), "[" & doc.documentElement.text & "]"
Echo doc.loadXML(Replace(text, "/temporary/", "/data/../etc/")), "[" & doc.documentElement.text & "]"
Set doc = CreateObject("MSXML2.DOMDocument.6.0")
Echo doc.loadXML("<!DOCTYPE a []><a/>"), doc.parseError.errorCode, Replace(doc.parseError.reason, vbCrLf, "|")
doc.setProperty "ProhibitDTD", False
Echo doc.loadXML("<!DOCTYPE a []><a/>")
'> True inside
'> a
'> True 0 []
'> True secret
'> True []
'> True []
'> False -1072896636 DTD is prohibited.|
'> True

'=== entities of entities are bounded
Set doc = CreateObject("MSXML2.DOMDocument")
text = "<!DOCTYPE a [<!ENTITY e0 ""0123456789"">"
For i = 1 To 12
  text = text & "<!ENTITY e" & i & " """
  For j = 1 To 10
    text = text & "&e" & (i - 1) & ";"
  Next
  text = text & """>"
Next
Echo doc.loadXML(text & "]><a>&e12;</a>"), doc.parseError.errorCode <> 0
Echo doc.loadXML("<!DOCTYPE a [<!ENTITY e ""&f;""><!ENTITY f ""&e;"">]><a>&e;</a>")
'> False True
'> False

'=== a document in a document
Set doc = CreateObject("MSXML2.DOMDocument")
Echo doc.loadXML("<a><![CDATA[<b>&c;</b>]]></a>"), doc.documentElement.text
Set inner = CreateObject("MSXML2.DOMDocument")
Echo inner.loadXML(Replace(doc.documentElement.text, "&c;", "")), inner.documentElement.xml
'> True <b>&c;</b>
'> True <b/>

'=== too deep
Set doc = CreateObject("MSXML2.DOMDocument")
Echo doc.loadXML(Replace(Space(300), " ", "<a>") & Replace(Space(300), " ", "</a>")), doc.parseError.errorCode <> 0
Echo doc.loadXML(Replace(Space(250), " ", "<a>") & Replace(Space(250), " ", "</a>"))
'> False True
'> True

'=== white space between markup goes, within texts it stays
Dim d, n: Set d = CreateObject("MSXML2.DOMDocument.6.0")
Sub Children(text)
  Dim s
  d.loadXML text
  For Each n In d.documentElement.childNodes: s = s & n.nodeName & "[" & n.nodeValue & "]": Next
  Echo s
End Sub
Children "<a> <b/> <!-- n --> <?p i?> <b> </b> </a>"        '> b[]#comment[ n ]p[i]b[]
Children "<a> x <b/> &amp; <b/> &#32;<b/></a>"               '> #text[ x ]b[]#text[ & ]b[]b[]
Children "<a><![CDATA[k]]> <![CDATA[l]]></a>"                '> #cdata-section[k]#cdata-section[l]
Children "<a xml:space=""preserve""> <b/> </a>"              '> #text[ ]b[]#text[ ]
