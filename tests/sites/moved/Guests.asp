<%@ Language=VBScript %>
<!-- METADATA TYPE="typelib" UUID="00000205-0000-0010-8000-00AA006D2EA4" NAME="ADODB Type Library" -->
<%
sTitle = "Guests"
Dim oConn, oRs, nPage, nRow
Set oConn = Server.CreateObject("ADODB.Connection")
%>
<!--#include virtual="/Includes/Top.inc"-->
<%
OpenGuests
If Request.Form("name") <> "" Then
	AddGuest Request.Form("name"), Request.Form("town")
	oConn.Close
	Response.Redirect Request.ServerVariables("SCRIPT_NAME")
End If

Set oRs = Server.CreateObject("ADODB.Recordset")
oRs.CursorLocation = adUseClient
oRs.PageSize = PAGE_SIZE
oRs.Open "SELECT * FROM [Guests] ORDER BY [ID] DESC", oConn, adOpenStatic, adLockReadOnly, adCmdText
%>
<form method="POST" action="<%=Request.ServerVariables("SCRIPT_NAME")%>">
Name <input name="name" id="name"> Town <input name="town" id="town"> <input type="submit" id="go" value="Sign">
</form>
<% If oRs.EOF Then %><p id="none">No guests yet.</p><% Else
	nPage = 1
	If IsNumeric(Request("page")) And Request("page") <> "" Then nPage = CInt(Request("page"))
	If nPage < 1 Then nPage = 1
	If nPage > oRs.PageCount Then nPage = oRs.PageCount
	oRs.AbsolutePage = nPage %>
<table id="guests" border="1">
<% nRow = 0
	Do While Not oRs.EOF And nRow < oRs.PageSize %>
<tr><td><%= oRs("ID") %></td><td><%= Server.HTMLEncode(oRs("GuestName")) %></td><td><%= oRs("Town") & "" %></td>
<td><% If IsNull(oRs("Town")) Then Response.Write "nowhere" Else Response.Write Len(oRs("Town")) %></td></tr>
<%		nRow = nRow + 1
		oRs.MoveNext
	Loop %>
</table>
<p id="pages"><% For i = 1 To oRs.PageCount
	If i = nPage Then %><b><%=i%></b> <% Else %><a id="page<%=i%>" href="?page=<%=i%>"><%=i%></a> <% End If
Next %> (<%= oRs.RecordCount %>)</p>
<% End If
oRs.Close : Set oRs = Nothing
oConn.Close : Set oConn = Nothing
%>
<!--#include virtual="/Includes/Bottom.inc"-->
<SCRIPT RUNAT=SERVER LANGUAGE=VBSCRIPT>
Sub OpenGuests
	Dim oFso, oCatalog, sSource
	sSource = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" & Server.MapPath(DB_FILE)
	Set oFso = Server.CreateObject("Scripting.FileSystemObject")
	If Not oFso.FileExists(Server.MapPath(DB_FILE)) Then
		Set oCatalog = Server.CreateObject("ADOX.Catalog")
		oCatalog.Create sSource
		Set oCatalog = Nothing
		oConn.Open sSource
		oConn.Execute "CREATE TABLE [Guests] ([ID] COUNTER PRIMARY KEY, [GuestName] TEXT(50), [Town] TEXT(50), [Signed] DATETIME)", , adExecuteNoRecords
	Else
		oConn.Open sSource
	End If
End Sub

Sub AddGuest(sName, sTown)
	Dim oNew
	Set oNew = Server.CreateObject("ADODB.Recordset")
	oNew.Open "Guests", oConn, adOpenKeyset, adLockOptimistic, adCmdTable
	oNew.AddNew
	oNew("GuestName") = Left(sName, 50)
	If sTown <> "" Then oNew("Town") = Left(sTown, 50)
	oNew("Signed") = Now()
	oNew.Update
	oNew.Close
End Sub
</SCRIPT>
