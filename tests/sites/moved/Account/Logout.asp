<%
Session.Contents.Remove "LoggedIn"
Session.Abandon
Response.Cookies("Visitor") = ""
Response.Cookies("Visitor").Expires = #January 1, 2000#
Response.Redirect("../")
%>
