'=== what the system has comes from there
WScript.Echo TypeName(CreateObject("Shell.Application"))
'> IShellDispatch6
Set files = CreateObject("Scripting.FileSystemObject")
WScript.Echo files.GetBaseName("C:\folder\name.txt")
'> name
On Error Resume Next
files.GetFile "C:\nowhere.txt"
WScript.Echo Err.Number & " " & Err.Description
'> 53 File not found

'=== a dictionary of the system's
Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d("b") = "two"
d.Item("c") = Array(1, 2, 3)
WScript.Echo TypeName(d) & " " & d.Count & " " & d("b") & " " & d.Item("c")(2)
'> Dictionary 3 two 3
For Each key In d
  WScript.Echo key
Next
'> a
'> b
'> c
keys = d.Keys
WScript.Echo UBound(keys) & " " & keys(1)
'> 2 b
d.Add "o", d
WScript.Echo (d("o") Is d)
'> True
d.Remove "o"
On Error Resume Next
d.Add "a", 2
WScript.Echo Err.Number
'> 457

'=== a document of the system's
Set m = CreateObject("MSXML2.DOMDocument")
m.async = False
WScript.Echo m.loadXML("<a><b x='1'>t</b><b/></a>") & " " & TypeName(m.documentElement)
'> True IXMLDOMElement
For Each n In m.getElementsByTagName("b")
  WScript.Echo n.xml
Next
'> <b x="1">t</b>
'> <b/>
WScript.Echo m.getElementsByTagName("b")(0).getAttribute("x")
'> 1
WScript.Echo m.loadXML("<a>") & " " & (m.documentElement Is Nothing)
'> False True

'=== what belongs to the engine is ours
WScript.Echo TypeName(CreateObject("VBScript.RegExp")) & TypeName(New RegExp)
'> IRegExp2IRegExp2

'=== GetObject
On Error Resume Next
Set x = GetObject("nowhere:at all")
WScript.Echo Err.Number & " " & Err.Description
'> 432 File name or class name not found during Automation operation
Err.Clear
Set x = GetObject(, "Scripting.Dictionary")
WScript.Echo Err.Number
'> 429
Err.Clear
Set x = GetObject(, "No.Class")
WScript.Echo Err.Number
'> 429
Err.Clear
Set x = GetObject("", "Scripting.Dictionary")
WScript.Echo Err.Number & " " & TypeName(x)
'> 0 Dictionary
Set x = GetObject("new:{3E1C5D5A-8F27-4A60-8B1D-520E6A90C714}")
WScript.Echo Err.Number & " " & x.Describe(1)
'> 0 I2 1

'=== ours come first
'--- --components=own
Set files = CreateObject("Scripting.FileSystemObject")
Set p = CreateObject("Quorvane.Probe")
WScript.Echo p.Describe(files) & " " & TypeName(files)
'> ->DISPATCH FileSystemObject
Set d = CreateObject("Scripting.Dictionary")
d.Add "one", 1
d.Add "two", 2
WScript.Echo p.Walk(d) & " " & p.Use(d, "Item", "get", "two") & " " & p.CallBack(d, "one")
'> one;two; 2 1
p.Use d, "Item", "put", 3, "three"
WScript.Echo d.Count
'> 3

'=== nobody's
'--- --components=none
On Error Resume Next
Set p = CreateObject("Quorvane.Probe")
WScript.Echo Err.Number
'> 429
Err.Clear
Set d = CreateObject("Scripting.Dictionary")
WScript.Echo Err.Number
'> 429
Err.Clear
Set d = GetObject("new:{3E1C5D5A-8F27-4A60-8B1D-520E6A90C714}")
WScript.Echo Err.Number
'> 429

'=== variables go to objects of the system's by reference
Set d = CreateObject("Scripting.Dictionary")
k = "key"
v = 5
d(k) = v
d.Add k & "2", (v + 1)
d.Item(k) = d.Item(k) + 1
WScript.Echo d(k) & d.Exists(k) & d.Count
'> 6True2
Set files = CreateObject("Scripting.FileSystemObject")
path = "C:\folder\name.txt"
WScript.Echo files.GetExtensionName(path) & " " & files.BuildPath(path, k)
'> txt C:\folder\name.txt\key
Set m = CreateObject("MSXML2.DOMDocument")
text = "<a/>"
Set root = Nothing
WScript.Echo m.loadXML(text)
'> True
Set root = m.documentElement
Set made = m.createElement(k)
root.appendChild made
WScript.Echo root.firstChild.nodeName
'> key

'=== an object of the system's calls a procedure
Set request = CreateObject("MSXML2.XMLHTTP")
states = ""
Sub Changed
  states = states & request.readyState
End Sub
request.onreadystatechange = GetRef("Changed")
request.open "GET", "http://127.0.0.1:9/", False
WScript.Echo states
'> 1
