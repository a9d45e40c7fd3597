'=== by the older language
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<shop><book id=""1"" price=""5""><t>Alpha</t></book><book id=""2"" price=""15""><t>Beta</t></book>" & _
            "<book id=""3"" price=""25""><t>beta</t><sub><t>Gamma</t></sub></book><note/></shop>"
Sub Find(pattern)
  line = pattern & ":"
  For Each node In doc.selectNodes(pattern)
    If node.nodeName = "book" Then
      line = line & " " & node.getAttribute("id")
    Else
      line = line & " " & node.nodeName & "=" & node.text
    End If
  Next
  Echo line
End Sub
Find "shop/book"
Find "//book[0]"
Find "//book[2]"
Find "//book[-1]"
Find "//book[-2]"
Find "//book[end()]"
Find "//book[index() $lt$ 2]"
Find "//book[index() > 0]"
Find "//book[@id = '2']"
Find "//book[@id $eq$ '2']"
Find "//book[@id=2]/t"
Find "//book[@price > 10 and @price < 20]"
Find "//book[@price $gt$ 10 $and$ @price $lt$ 20]"
Find "//book[@price > 10 && @price < 20]"
Find "//book[@price < 10 || @price > 20]"
Find "//book[@price $le$ 5 $or$ @price $ge$ 25]"
Find "//book[$not$ @id = '1']"
Find "//book[not(@id = '1')]"
Find "//book[t $ieq$ 'BETA']"
Find "//book[t = 'Beta']"
Find "//book[t $ne$ 'Beta']"
Find "//book[t!value() = 'Beta']"
Find "//book[sub]"
Find "//book[$any$ .//t = 'Gamma']"
Find "//book[$all$ .//t = 'Gamma']"
Find "/shop/*[nodeName() = 'note']"
Find "/shop/*[nodeType() = 1][0]"
Find "//t/text()"
Find "//t!textNode()"
Find "//book/@id"
Find "shop/book[1]/t[0]"
Find "//note | //sub"
Find "//note $union$ //sub"
Find "(//book)[0]"
Find "//book[position()=last()]"
Find "//sub/ancestor(book)"
Find "//sub/ancestor::book"
Find "//book[contains(t, 'et')]"
Find "//none"
Find "shop/book[t=""Alpha""]/@price"
Echo doc.selectSingleNode("//book[@id='9']") Is Nothing
Echo doc.selectSingleNode("//t").text, doc.documentElement.selectSingleNode("book/t").text
Echo doc.documentElement.lastChild.selectNodes("//t").length, doc.documentElement.lastChild.selectNodes(".//t").length
'> shop/book: 1 2 3
'> //book[0]: 1
'> //book[2]: 3
'> //book[-1]: 3
'> //book[-2]: 2
'> //book[end()]: 3
'> //book[index() $lt$ 2]: 1 2
'> //book[index() > 0]: 2 3
'> //book[@id = '2']: 2
'> //book[@id $eq$ '2']: 2
'> //book[@id=2]/t: t=Beta
'> //book[@price > 10 and @price < 20]: 2
'> //book[@price $gt$ 10 $and$ @price $lt$ 20]: 2
'> //book[@price > 10 && @price < 20]: 2
'> //book[@price < 10 || @price > 20]: 1 3
'> //book[@price $le$ 5 $or$ @price $ge$ 25]: 1 3
'> //book[$not$ @id = '1']: 2 3
'> //book[not(@id = '1')]: 2 3
'> //book[t $ieq$ 'BETA']: 2 3
'> //book[t = 'Beta']: 2
'> //book[t $ne$ 'Beta']: 1 3
'> //book[t!value() = 'Beta']: 2
'> //book[sub]: 3
'> //book[$any$ .//t = 'Gamma']: 3
'> //book[$all$ .//t = 'Gamma']:
'> /shop/*[nodeName() = 'note']: note=
'> /shop/*[nodeType() = 1][0]: 1
'> //t/text(): #text=Alpha #text=Beta #text=beta #text=Gamma
'> //t!textNode(): #text=Alpha #text=Beta #text=beta #text=Gamma
'> //book/@id: id=1 id=2 id=3
'> shop/book[1]/t[0]: t=Beta
'> //note | //sub: sub=Gamma note=
'> //note $union$ //sub: sub=Gamma note=
'> (//book)[0]: 1
'> //book[position()=last()]: 3
'> //sub/ancestor(book): 3
'> //sub/ancestor::book: 3
'> //book[contains(t, 'et')]: 2 3
'> //none:
'> shop/book[t="Alpha"]/@price: price=5
'> True
'> Alpha Alpha
'> 4 0

'=== by XPath
Set doc = CreateObject("MSXML2.DOMDocument.6.0")
doc.loadXML "<shop><book id=""1""/><book id=""2""/></shop>"
Echo doc.selectNodes("//book[1]")(0).getAttribute("id"), doc.selectNodes("//book[last()]/@id")(0).value
Echo doc.selectSingleNode("//book[position() = 2]/@id").text, doc.selectNodes("/shop/book | /shop").length
Echo doc.selectSingleNode("/").nodeName, doc.documentElement.selectSingleNode("..").nodeName
doc.setProperty "SelectionLanguage", "XSLPattern"
Echo doc.selectSingleNode("//book[1]").getAttribute("id")
doc.setProperty "SelectionLanguage", "XPath"
On Error Resume Next
doc.selectNodes "count(//book)"
FailedText
doc.selectNodes "//book["
Failed
doc.selectNodes "p:book"
FailedText
doc.selectNodes ""
Failed
doc.selectNodes "nothing(1)"
Failed
'> 1 2
'> 2 3
'> #document #document
'> 2
'> -2147467259 Expression must evaluate to a node-set.
'> -2147467259
'> -2147467259 Reference to undeclared namespace prefix: 'p'.
'> -2147467259
'> -2147467259

'=== namespaces
text = "<r xmlns=""urn:d"" xmlns:p=""urn:p""><i>1</i><p:i p:a=""x"" a=""y"">2</p:i></r>"
Set doc = CreateObject("MSXML2.DOMDocument.6.0")
doc.loadXML text
Echo doc.selectNodes("//i").length
doc.setProperty "SelectionNamespaces", "xmlns:x='urn:d' xmlns:y=""urn:p"""
Echo doc.selectSingleNode("//x:i").text, doc.selectSingleNode("/x:r/y:i").text, doc.selectSingleNode("//y:i/@y:a").value
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML text
Echo doc.selectNodes("//i").length, doc.selectSingleNode("//p:i").text, doc.selectSingleNode("r/p:i/@p:a").value
Echo doc.selectSingleNode("//p:*").text, doc.selectSingleNode("//p:i/@a").value, doc.getElementsByTagName("p:i").length
'> 0
'> 1 2 x
'> 1 2 x
'> 2 y 1

'=== bad patterns
Set doc = CreateObject("MSXML2.DOMDocument")
doc.loadXML "<a/>"
On Error Resume Next
For Each pattern In Array("a[", "a]", "a/", "", "a[@b=]", "$bad$", "a['x]", "a[1.5]", "a[99999999999]", "a b", "a/(b)", "!", "a[b(]")
  doc.selectNodes pattern
  Failed
Next
doc.selectNodes Replace(Space(500), " ", "a[") & Replace(Space(500), " ", "]")
Failed
doc.selectNodes Replace(Space(500), " ", "(") & "a" & Replace(Space(500), " ", ")")
Failed
doc.selectNodes "a//"
Echo Replace(Err.Description, vbCrLf, "|")
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> -2147467259
'> Unexpected token 'eof' found.||a//--><--
