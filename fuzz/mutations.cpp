#include "mutations.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr std::string_view kScriptWords[] = {"If ",
                                             " Then ",
                                             " Else ",
                                             "ElseIf ",
                                             "End If\n",
                                             "For ",
                                             " To ",
                                             " Step ",
                                             "Next\n",
                                             "Do ",
                                             "Loop\n",
                                             "While ",
                                             "Wend\n",
                                             "Until ",
                                             "Sub f",
                                             "End Sub",
                                             "Function",
                                             "Class c",
                                             "End Class\n",
                                             "Property Get ",
                                             "Exit For\n",
                                             "With ",
                                             "Set ",
                                             "New ",
                                             "Nothing",
                                             "Null",
                                             "Empty",
                                             "ReDim a(",
                                             "Preserve ",
                                             "Erase a",
                                             "Const k=",
                                             "Dim a(3)",
                                             "Execute ",
                                             "Eval(",
                                             "ByVal ",
                                             "On Error Resume Next\n",
                                             "On Error GoTo 0\n",
                                             "Err.Raise ",
                                             "Select Case ",
                                             "Case ",
                                             "(",
                                             ")",
                                             ",",
                                             ".",
                                             ":",
                                             "\n",
                                             "_\n",
                                             "\"",
                                             "&",
                                             "&hFF",
                                             "#1/1/2000#",
                                             "1e308",
                                             "32767",
                                             "-1",
                                             "2147483647",
                                             "0",
                                             " Mod ",
                                             " ^ ",
                                             " Is ",
                                             " Not ",
                                             "[",
                                             "]",
                                             "'",
                                             "\xFF",
                                             "<%",
                                             "%>",
                                             "<%=",
                                             "#include file=",
                                             "Response.Write ",
                                             "Response.Redirect ",
                                             "Request(",
                                             "Session(",
                                             "Response.Flush\n",
                                             "Server.Execute "};

constexpr std::string_view kRequestWords[] = {"GET ",
                                              "HEAD ",
                                              "POST ",
                                              "/",
                                              "/../",
                                              "/..%2f",
                                              "\\\\",
                                              "%00",
                                              "%zz",
                                              "%41",
                                              "?",
                                              "&",
                                              "=",
                                              ";",
                                              "+",
                                              " HTTP/1.1\r\n",
                                              " HTTP/1.0\r\n",
                                              "\r\n",
                                              "\r\n\r\n",
                                              "\n",
                                              "\r",
                                              "\x1E",
                                              "\x1C",
                                              "Host: ",
                                              "Content-Length: ",
                                              "Cookie: ",
                                              "Range: bytes=",
                                              "Accept-Encoding: gzip",
                                              "Connection: close\r\n",
                                              "If-Modified-Since: ",
                                              "Expect: 100-continue\r\n",
                                              "Transfer-Encoding: chunked\r\n",
                                              "-",
                                              ",",
                                              "0",
                                              "-1",
                                              "2147483648",
                                              "99999999999999999999",
                                              "index.qvs",
                                              "css/site.css",
                                              "photo.jpg?rx=",
                                              "filebin$",
                                              "secret.txt",
                                              "go=",
                                              "\xFF"};

constexpr std::string_view kSettingsWords[] = {
    "\xEF\xBB\xBF", "Port",        "=",  "\r\n", "\n",   "\r",    " ",    "%0D", "%25", "%3D", "%",
    "%zz",          "LogServer",   "1",  "0",    "-1",   "65535", ";",    "#",   "[",   "]",   "\t",
    "EncodeStatic", "DefaultLCID", "&h", "1e9",  "\xFF", "=1=2",  "; 1\n"};

using namespace std::string_view_literals;
constexpr std::string_view kByteWords[] = {"\0"sv,
                                           "\0\0\0\0"sv,
                                           "\1\0\0\0"sv,
                                           "\xFF\xFF\xFF\xFF"sv,
                                           "\xFF\xFF\xFF\x7F"sv,
                                           "\0\0\0\x80"sv,
                                           "\xA4"sv,
                                           "QVMOD"sv,
                                           "BM"sv,
                                           "GIF89a"sv,
                                           "\x21\xF9\4"sv,
                                           "\x2C"sv,
                                           "\x1F\x8B"sv,
                                           "\0\1"sv,
                                           "\0\2"sv,
                                           "1031$"sv,
                                           "\\"sv,
                                           "/"sv,
                                           "$"sv};

constexpr std::string_view kProxyWords[] = {"for=",
                                            "proto=",
                                            "host=",
                                            "https",
                                            "\"",
                                            "\\",
                                            ",",
                                            ";",
                                            " ",
                                            "unix:",
                                            "unknown",
                                            "_x",
                                            "127.0.0.1",
                                            "10.0.0.1",
                                            "::1",
                                            "[::1]:80",
                                            ":80",
                                            "\n",
                                            "\r\n",
                                            "PROXY ",
                                            "TCP4 ",
                                            "TCP6 ",
                                            "UNKNOWN",
                                            "Forwarded: ",
                                            "X-Forwarded-For: ",
                                            "X-Forwarded-Proto: ",
                                            "X-Forwarded-Host: ",
                                            "ffff",
                                            "255",
                                            "0"};

constexpr std::string_view kControlWords[] = {
    "[>start]", "[>stop]", "[>restart]", "[>quit]", "[?state]", "[?uptime]", "[?version]", "\x1E",
    "[",        "]",       ">",          "?",       " ",        "\r\n",      "[>START]",   "\xFF"};

constexpr std::string_view kSqlWords[] = {
    "SELECT ", " FROM ",   " WHERE ", " AND ",    "NOT ",      "(",      ")",      ",",
    "'",       "[",        "]",       "#",        "?",         "@p",     " AS ",   " IN (",
    " LIKE ",  " IS NULL", " JOIN ",  " ON ",     "DISTINCT ", "TOP 5 ", "UNION ", "*",
    ".",       "&",        "+",       "-",        "=",         "<>",     "\"",     ";",
    "CASE ",   " END",     "NULL",    "DEFAULT ", "ORDER BY "};
constexpr std::string_view kXmlWords[] = {"<a>",
                                          "</a>",
                                          "<b/>",
                                          "<p:c xmlns:p='u'>",
                                          "</p:c>",
                                          " x='1'",
                                          " xml:space='preserve'",
                                          "<![CDATA[",
                                          "]]>",
                                          "<!--",
                                          "-->",
                                          "<?pi ",
                                          "?>",
                                          "<?xml version='1.0'?>",
                                          "<!DOCTYPE a [<!ENTITY e 'text'>]>",
                                          "&e;",
                                          "&amp;",
                                          "&#65;",
                                          "&#x20AC;",
                                          " ",
                                          "\n",
                                          "\"",
                                          "'",
                                          ">",
                                          "<",
                                          "&",
                                          "//a",
                                          "[0]",
                                          "[-1]",
                                          "[end()]",
                                          "index()",
                                          "$eq$",
                                          "$and$",
                                          "$not$ ",
                                          "&&",
                                          "||",
                                          "!value()",
                                          "@x",
                                          "nodeName()",
                                          "text()",
                                          "..",
                                          ".",
                                          "*",
                                          "|",
                                          "(",
                                          ")",
                                          "[",
                                          "]",
                                          "ancestor(a)",
                                          "p:c",
                                          "::",
                                          "count(",
                                          "position()",
                                          "last()"};

}  // namespace

Words settingsWords() {
  return kSettingsWords;
}

Words byteWords() {
  return kByteWords;
}

Words sqlWords() {
  return kSqlWords;
}

Words proxyWords() {
  return kProxyWords;
}

Words controlWords() {
  return kControlWords;
}

Words scriptWords() {
  return kScriptWords;
}

Words requestWords() {
  return kRequestWords;
}

Words xmlWords() {
  return kXmlWords;
}

/// Up to forty bytes of a text.
std::string Mutations::piece(const std::string& text) {
  const std::size_t from = below(text.size());
  return text.substr(from, 1 + below(40));
}

void Mutations::change(std::string& text) {
  const std::size_t at = below(text.size() + 1);
  switch (below(7)) {
    case 0:
      text.erase(std::min(at, text.size()), 1 + below(30));
      return;
    case 1:
      text.insert(at, anyWord());
      return;
    case 2:
      text.insert(at, piece(any()));
      return;
    case 3:
      text.insert(at, piece(text));
      return;
    case 4:
      if (!text.empty()) text[below(text.size())] = static_cast<char>(below(256));
      return;
    case 5:
      text.replace(at, below(10), anyWord());
      return;
    default:
      text.resize(at);
      text += any().substr(0, below(400));
      return;
  }
}

std::string Mutations::next() {
  std::string text = any();
  for (std::size_t changes = 1 + below(6); changes > 0; --changes) change(text);
  return text;
}

}  // namespace quorvane
