'=== encodings
Set doc = CreateObject("MSXML2.DOMDocument")
For Each name In Array("UTF-8", "UTF-16", "windows-1252", "ISO-8859-2", "GB2312", "")
  If name = "" Then declared = "" Else declared = "<?xml version='1.0' encoding='" & name & "'?>"
  doc.loadXML declared & "<a>" & ChrW(228) & "</a>"
  doc.save "/temporary/e.xml"
  Set again = CreateObject("MSXML2.DOMDocument")
  Echo again.load("/temporary/e.xml"), AscW(again.documentElement.text), again.firstChild.nodeName, again.firstChild.text
Next
'> True 228 xml version="1.0" encoding="UTF-8"
'> True 228 xml version="1.0" encoding="UTF-16"
'> True 228 xml version="1.0" encoding="windows-1252"
'> True 228 xml version="1.0" encoding="ISO-8859-2"
'> True 228 xml version="1.0" encoding="GB2312"
'> True 228 a ä
