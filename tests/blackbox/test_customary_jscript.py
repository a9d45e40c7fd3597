"""JScript in pages of the customary dialect: alone, and beside VBScript."""

import time

from serving import Server, ServerTest

OK = "HTTP/1.1 200 OK"
FAILED = "HTTP/1.1 500 Internal Server Error"

HELPERS = """<script language="JavaScript" runat="server">
// "quotes" in a comment, and /* the like */
var greeting = 'Hello';
var visits = 0;
function greet(name) {
  visits++;
  return greeting + ", " + name + (name.match(/[aeiou"]$/) ? "!" : ".");
}
function Tax(amount, rate) { return Math.round(amount * rate) / 100; }
function kinds(value) { return typeof value; }
function person(name) { return { Name: name, tags: ["a", "b"], shout: function (x) { return this.Name.toUpperCase() + x; } }; }
function monthOf(date) { return date.getMonth() + 1; }
function tomorrow(date) { return new Date(date.getFullYear(), date.getMonth(), date.getDate() + 1); }
function sum(list) {
  var total = 0, all = new VBArray(list).toArray();
  for (var i = 0; i < all.length; i++) total += all[i];
  return total;
}
function keys(dictionary) {
  var found = [];
  for (var e = new Enumerator(dictionary); !e.atEnd(); e.moveNext()) found.push(e.item());
  return found.join("+");
}
function same(value) { return value; }
function broken() {
  return undefinedThing.x;
}
function caught() { try { broken(); } catch (e) { return e.name + "/" + (e.number & 0xFFFF) + "/" + (e.description == e.message); } }
function calls(n) { return helper(n) + prefix; }
function sets() { counter = counter + 1; }
function cell(table) { var a = new VBArray(table); return a.dimensions() + ":" + a.ubound(1) + ":" + a.ubound(2) + ":" + a.getItem(1, 2); }
</script>
"""


def vb(code):
    return HELPERS + "<%\n" + code + "\n%>"


def js(code):
    return '<%@ Language="JScript" %>\n<%\n' + code + "\n%>"


PAGES = {
    "functions.asp": vb('Response.Write greet("Ann") & greet("Eve") & visits & "|" & Tax(250, 7)'
                        ' & "|" & GREETING'),
    "kinds.asp": vb('Response.Write kinds(1) & kinds("a") & kinds(True) & kinds(Empty) & '
                    'kinds(Null) & "|" & TypeName(same(3)) & TypeName(same(0.5)) & '
                    'TypeName(same("x")) & TypeName(same(True)) & TypeName(same(Empty)) & '
                    'TypeName(same(Null)) & TypeName(same(Now))'),
    "objects.asp": vb('Dim p : Set p = person("Ann")\nResponse.Write p.name & p.Shout("?") & '
                      'p.tags.length & p.tags(1)\np.Name = "Bob"\nResponse.Write p.shout("!")\n'
                      'For Each t In p.tags : Response.Write t : Next'),
    "dates.asp": vb('d = DateSerial(2024, 2, 28) + TimeSerial(13, 5, 9)\nResponse.Write monthOf(d)'
                    ' & "|" & tomorrow(d) & "|" & (same(d) = d)'),
    "arrays.asp": vb('Dim t(1, 2) : t(1, 2) = "x"\nResponse.Write sum(Array(1, 2, 4)) & cell(t)\n'
                     'Set d = Server.CreateObject("Scripting.Dictionary")\n'
                     'd("k") = 1 : d("l") = 2 : Response.Write keys(d)'),
    "broken.asp": vb('Response.Write "before"\nx = broken()'),
    "caught.asp": vb('Response.Write caught()\nOn Error Resume Next\nx = broken()\n'
                     'Response.Write Err.Number & Err.Source'),
    "both.asp": "<% Option Explicit %>" + vb(
        'Dim prefix, counter : prefix = "p" : counter = 4\nFunction helper(n) : helper = n * 2 : '
        'End Function\nResponse.Write calls(21)\nsets\nsets\nResponse.Write counter'),
    "syntax.asp": 'x\n<script language="JScript" runat="server">\nvar x = ;\n</script>',
    "page.asp": '<%@ Language="JScript" %>\n<ul>\n<% for (var i = 0; i < 3; i++) { %><li><%= i * 2; '
                '%></li>\n<% } // done %>\n</ul><%= "é" + "\\u20ac" %>',
    "objects_js.asp": js(
        'Session("a") = 5; Session("a") += 2; Session("a")++;\n'
        'Application.Lock(); Application("n") = "x"; Application.Unlock();\n'
        'Session.Contents("b") = "c";\n'
        'Response.Write(Session("a") + Session("b") + Application("n"));\n'
        'Response.Write("|" + typeof Session("none"));\n'
        'Response.Write("|" + Request.QueryString("q") + Request("q") + Request.QueryString("q").Count);\n'
        'Response.Write("|" + (String(Request.Form("no")) == "undefined"));\n'
        'Response.Write("|" + Server.HTMLEncode("<a>") + Session.Timeout);\n'
        'Response.Cookies("c")("d") = "e"; Response.Cookies("f") = "g"; Response.Status = "201 Made";\n'
        'var d = new ActiveXObject("Scripting.Dictionary");\n'
        'd.Add("k", 7); d("l") = 8; d.Item("m") = d("k") + d.Item("l");\n'
        'Response.Write("|" + d.Count + d("m") + d.Exists("k") + d.Exists("z"));\n'
        'd.CompareMode;\n'
        'Response.Write("|" + (new Date(2024, 0, 31)).getMonth() + "x".charCodeAt(0) + /a(b)/.exec("ab")[1]);'),
    "recordset.asp": js(
        'var c = Server.CreateObject("ADODB.Recordset");\n'
        'c.Fields.Append("n", 3); c.Fields.Append("t", 200, 20); c.Open();\n'
        'for (var i = 1; i < 4; i++) { c.AddNew(); c("n") = i; c.Fields("t") = "t" + i; c.Update(); }\n'
        'c.MoveFirst();\n'
        'while (!c.EOF) { Response.Write(c("n") + ":" + c.Fields("t").Value + ";"); c.MoveNext(); }\n'
        'c.MoveFirst(); Response.Write(new VBArray(c.GetRows()).toArray().join());'),
    "places.asp": js(
        'var doc = new ActiveXObject("MSXML2.DOMDocument");\n'
        'doc.loadXML("<r><a n=\'1\'/><a n=\'2\'/></r>");\nvar all = doc.selectNodes("//a");\n'
        'for (var i = 0; i < all.length; i++) Response.Write(all[i].getAttribute("n"));\n'
        'try { Server[0]; } catch (e) { Response.Write(e.number & 0xFFFF); }'),
    "with.asp": js(
        'var n = 1;\nwith (Response) { Write("a" + n); Status = "201 Made"; ContentType = "text/x"; }\n'
        'with (new Date(2024, 1, 3)) n = getFullYear();\nwith (Math) n += max(1, floor(PI));\n'
        'var o = { x: 5, get: function () { return this.x; } };\nwith (o) { x++; n += get(); }\n'
        'var d = new ActiveXObject("Scripting.Dictionary");\n'
        'with (d) { Add("k", 2); Response.Write(Item("k") + Count); CompareMode; }\n'
        'Response.Write("|" + n + d("k") + ("Count" in d) + ("none" in d));'),
    "days.asp": js(
        'var d = new Date(2004, 0, 5, 13, 5, 9), zone = d.toTimeString().substr(9);\n'
        'Response.Write([("" + d).replace(zone, "Z"), d.toLocaleString(), '
        'new Date(Date.UTC(2004, 0, 5, 13, 5, 9)).toGMTString(), d.toDateString(), typeof Date()]'
        '.join(";"));\n'
        'var same = new Date(2004, 0, 5, 10, 20, 30).getTime(), utc = Date.UTC(2004, 0, 5, 10, 20, 30);\n'
        'Response.Write("|" + [Date.parse("January 5, 2004 10:20:30") - same, '
        'new Date("1/5/2004 10:20:30 am") - same, new Date("2004/01/05 10:20:30") - same, '
        'new Date("5 Jan 2004 10:20:30") - same, new Date("" + new Date(same)) - same, '
        'new Date("Mon, 05 Jan 2004 11:20:30 GMT+0100") - utc, new Date("1-5-04 3:04 PM").getHours(), '
        'new Date("Jan 5, 2004 5:20:30 EST (New York)") - utc, new Date(d) - d, '
        'new Date(2004, 1).getDate()]);\n'
        'Response.Write("|" + [new Date("no day"), Date.parse("13/40"), Date.parse(""), '
        'new Date(undefined).getTime()]);\n'
        'Response.Write("|" + (d instanceof Date) + (d.constructor === Date));\n'
        'if (/(\\w+)@(\\w+)/.test("to a@b now")) Response.Write("|" + RegExp.$1 + RegExp.$2 + '
        'RegExp.$3 + RegExp.lastMatch + RegExp.leftContext + RegExp.rightContext);\n'
        '"xyz".match(/y(.)/); Response.Write(RegExp.$1 + "aXbX".match(/X/g).length);\n'
        'try { throw new Error(1001, "mine"); } catch (e) { Response.Write("|" + e.number + '
        'e.description + e.message + (e instanceof Error) + Error("a").message); }\n'
        'throw new Error(1002, "own");'),
    "other_way.asp": '<script language="vbscript" runat="server">\nDim shared : shared = "s"\n'
                     'Function Twice(x) : Twice = x & x : End Function\n</script>\n'
                     + js('Response.Write(Twice("ab") + shared); shared = "t"; '
                          'Response.Write(shared);'),
    "end.asp": js('try { Response.Write("a"); Response.End(); } catch (e) { Response.Write("b"); }\n'
                  'Response.Write("c");'),
    "redirect.asp": js('Response.Redirect("there.asp"); Response.Write("x");'),
    "failing.asp": js('var a = 1;\n\nServer.CreateObject("No.Such");'),
    "no_member.asp": js('Response.NoSuch();'),
    "thrown.asp": js('throw "mine";'),
    "loop.asp": js('Server.ScriptTimeout = 1;\ntry { while (true) { } } catch (e) { }\n'
                   'Response.Write("on");'),
    "trap.asp": js('Server.ScriptTimeout = 1;\nfor (;;) { try { while (true) { } } catch (e) { } }'),
    "sparse.asp": js('Array.prototype.indexOf.call({ length: 2147483647 }, 1);'),
    "walks.asp": js('Server.ScriptTimeout = 1;\nvar a = []; a.length = 1000000;\n'
                    'for (;;) { try { a.indexOf(1); } catch (e) { } }'),
    "pattern.asp": js('var s = new Array(40).join("a");\n/(a|aa)+$/.test(s + "b");'),
    "memory.asp": js('var s = "x"; for (;;) { s += s; }'),
    "lists.asp": js('var a = []; for (;;) { a.push({ b: [1, 2, 3] }); }'),
    "deep.asp": js('function f(n) { return f(n + 1) + 1; } f(0);'),
    "nested.asp": HELPERS.replace("function broken", "function ping(n) { return pong(n + 1); }\n"
                                  "function broken")
                  + '<% Function pong(n) : pong = ping(n) : End Function\nx = ping(1) %>',
    "kept.asp": vb('On Error Resume Next\nSet Session("o") = person("Ann")\n'
                   'Response.Write Err.Number & TypeName(Session("o"))\nErr.Clear\n'
                   'Session("o") = Array(1, person("Ann"))\nResponse.Write Err.Number'),
    "kept_js.asp": js('try { Application("a") = [1]; } catch (e) { Response.Write(e.number); }\n'
                      'Session("d") = new Date(2024, 1, 3); Session("t") = "" + [1, 2];\n'
                      'Session("s") = Server.CreateObject("Scripting.Dictionary");\n'
                      'Session("s")("k") = 7; Response.Write("|" + Session("d").getDate() + '
                      'Session("t") + Session("s")("k"));\nSession("o") = { a: 1 };'),
    "types.asp": js('var all = [Response, Request, Server, Session, Application, '
                    'Request.QueryString, Session.Contents, new ActiveXObject("Scripting.Dictionary"), '
                    'function () {}, {}, [], /a/, Math, Date];\n'
                    'for (var i = 0; i < all.length; i++) Response.Write((typeof all[i]).charAt(0));\n'
                    'Response.Write(typeof Session("none") + typeof Session.Timeout + typeof none);'),
    "included.asp": '<script language="jscript" runat="server" src="lib.js"></script>\n'
                    '<%= fromLibrary() %>',
    "lib.js": "// a library\nfunction fromLibrary() { return lib.deep.name; }\n"
              "var lib = { deep: { name: 'lib' } };\n",
    "lib_error.asp": '<script language="jscript" runat="server" src="bad.js"></script>\n'
                     '<%= bad() %>',
    "bad.js": "function bad() {\n\n  return none();\n}\n",
    "perl.asp": '<script language="PerlScript" runat="server">1;</script>',
}


class JScriptTest(ServerTest):
    SETTINGS = {"Customary": "2", "ErrorDetail": "1"}
    PAGES = PAGES

    def shows(self, target, text):
        response = self.server.get(target)
        self.assertEqual((response.text.strip(), response.status), (text, OK))

    def failure(self, target, *texts):
        response = self.server.get(target)
        self.assertEqual(response.status, FAILED, response.text)
        for text in texts:
            self.assertIn(text, response.text)


class Blocks(JScriptTest):
    def test_functions_and_variables(self):
        self.shows("/functions.asp", "Hello, Ann.Hello, Eve!2|17.5|Hello")

    def test_values_both_ways(self):
        self.shows("/kinds.asp", "numberstringbooleanundefinedobject|"
                   "LongDoubleStringBooleanEmptyNullDate")

    def test_objects_of_the_script(self):
        self.shows("/objects.asp", "AnnANN?2bBOB!ab")

    def test_dates(self):
        self.shows("/dates.asp", "2|2/29/2024|True")

    def test_arrays_and_collections(self):
        self.shows("/arrays.asp", "72:1:2:xk+l")

    def test_what_vbscript_declares(self):
        self.shows("/both.asp", "42p6")
        self.shows("/other_way.asp", "ababst")

    def test_a_file_of_script(self):
        self.shows("/included.asp", "lib")

    def test_what_ends_with_its_page_is_not_kept(self):
        self.shows("/kept.asp", "-2147467259Empty-2147467259")
        self.failure("/kept_js.asp", "ends with its page", "/kept_js.asp, line 7", "(-2147467259)")


class Pages(JScriptTest):
    def test_text_and_code(self):
        self.assertEqual(self.server.get("/page.asp").body,
                         b"\r\n<ul>\r\n<li>0</li>\r\n<li>2</li>\r\n<li>4</li>\r\n\r\n</ul>"
                         b"\xe9\x80")

    def test_the_objects_of_a_page(self):
        response = self.server.get("/objects_js.asp?q=w")
        self.assertEqual(response.text.strip(),
                         "8cx|undefined|ww1|true|&lt;a&gt;20|315truefalse|0120b")
        self.assertEqual(response.status, "HTTP/1.1 201 Made")
        cookies = [line for line in response.lines if line.startswith("Set-Cookie")]
        self.assertIn("Set-Cookie: c=d=e; path=/", cookies)
        self.assertIn("Set-Cookie: f=g; path=/", cookies)

    def test_types(self):
        self.shows("/types.asp", "oooooooo" "fooo" "of" "undefinednumberundefined")

    def test_components(self):
        self.shows("/places.asp", "12438")
        response = self.server.get("/with.asp")
        self.assertEqual(response.text.strip(), "a13|20332truefalse")
        self.assertEqual(response.status, "HTTP/1.1 201 Made")
        self.shows("/recordset.asp", "1:t1;2:t2;3:t3;1,t1,2,t2,3,t3")

    def test_values_as_pages_know_them(self):
        self.failure("/days.asp", "own", "(1002)", "/days.asp, line 12")
        self.server.put("days2.asp", PAGES["days.asp"].replace('throw new Error(1002, "own");', ""))
        self.shows("/days2.asp", "Mon Jan 5 13:05:09 Z 2004;Monday, January 05, 2004 1:05:09 PM;"
                   "Mon, 5 Jan 2004 13:05:09 UTC;Mon Jan 5 2004;string|0,0,0,0,0,0,15,0,0,1|"
                   "NaN,NaN,NaN,NaN|truetrue|aba@bto  nowz2|1001mineminetruea")

    def test_nothing_catches_the_end(self):
        self.shows("/end.asp", "a")
        response = self.server.get("/redirect.asp")
        self.assertEqual(response.status, "HTTP/1.1 302 Object moved")
        self.assertNotIn("x", response.text)


class Errors(JScriptTest):
    def test_where_they_are(self):
        self.failure("/broken.asp", "undefinedThing", "/broken.asp, line 26", "(5009)",
                     "JScript runtime error")
        self.failure("/failing.asp", "/failing.asp, line 5", "(429)")
        self.failure("/no_member.asp", "/no_member.asp, line 3", "(438)")
        self.failure("/thrown.asp", "mine", "(5022)")
        self.failure("/syntax.asp", "/syntax.asp, line 3", "(1002)", "JScript compilation error")
        self.failure("/lib_error.asp", "/bad.js, line 3", "(5009)")

    def test_traps_of_both_languages(self):
        self.shows("/caught.asp", "ReferenceError/5009/true5009JScript runtime error")

    def test_other_languages_say_so(self):
        self.failure("/perl.asp", "Scripts in 'PerlScript' do not run here")


class Events(JScriptTest):
    GLOBAL = """<object runat="server" scope="application" id="Shared" progid="Scripting.Dictionary">
</object>
<script language="jscript" runat="server">
function Application_OnStart() {
  Shared.Add("visits", 0);
  Application("started") = typeof Shared + Server.MapPath("/").length;
}
function Session_OnStart() {
  Count(1);
  Response.Cookies("seen") = "yes";
  if (Request.QueryString("fail").Count > 0) nothing();
}
</script>
<script language="vbscript" runat="server">
Sub Count(n)
  Shared("visits") = Shared("visits") + n
  Session("number") = Shared("visits")
End Sub
</script>
"""

    def test_they_may_be_functions(self):
        page = '<%= Session("number") & Left(Application("started"), 6) & Shared("visits") %>'
        pages = {"global.asa": self.GLOBAL, "p.asp": page}
        with Server(settings=self.SETTINGS, pages=pages) as server:
            first = server.get("/p.asp")
            self.assertEqual(first.text, "1object1")
            self.assertIn("Set-Cookie: seen=yes; path=/", first.lines)
            self.assertEqual(server.get("/p.asp?fail=1").text, "2object2")
            server.stop()
            self.assertRegex(server.log_text(),
                             "global.asa, Session_OnStart: error 5009, .*global.asa, line 11")


class Limits(JScriptTest):
    SETTINGS = {**JScriptTest.SETTINGS}

    def test_time(self):
        for target in ("/loop.asp", "/trap.asp", "/walks.asp"):
            start = time.monotonic()
            self.failure(target, "(113)")
            self.assertLess(time.monotonic() - start, 8, target)

    def test_work_in_one_piece_is_short(self):
        self.failure("/sparse.asp", "invalid length", "/sparse.asp, line 3")
        self.failure("/pattern.asp", "/pattern.asp, line 4")

    def test_memory(self):
        self.failure("/memory.asp", "(7)")
        response = self.server.get("/lists.asp")
        self.assertEqual(response.status, FAILED)
        # On a slow machine the time is over before the memory is full.
        self.assertRegex(response.text, r"\((7|113)\)")

    def test_depth(self):
        self.failure("/deep.asp", "(28)")
        self.failure("/nested.asp", "(28)")

    def test_the_server_goes_on(self):
        self.failure("/deep.asp")
        self.shows("/functions.asp", "Hello, Ann.Hello, Eve!2|17.5|Hello")
