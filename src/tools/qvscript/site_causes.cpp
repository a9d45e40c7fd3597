#include "qvscript/site_causes.h"

#include <algorithm>
#include <array>
#include <vector>

#include "components/components.h"
#include "jscript/script_text.h"
#include "support/text.h"
#include "vbscript/syntax/lexer.h"
#include "vbscript/syntax/parser.h"

namespace quorvane::qvscript {

namespace {

using vbs::Token;
using vbs::TokenKind;

struct MemberCause {
  std::string_view object;
  std::string_view member;
  std::string_view words;
};

/// Uses of members that go another way in the default dialect.
constexpr MemberCause kMembers[] = {
    {"response", "redirect", "Response.Redirect answers the browser"},
    {"response", "clear", "Response.Clear"},
    {"response", "status", "Response.Status sets the status line"},
    {"response", "codepage", "code pages"},
    {"session", "codepage", "code pages"},
    {"server", "mappath", "Server.MapPath of files and of \"/\""},
    {"server", "getlasterror", "Server.GetLastError"},
    {"session", "staticobjects", "static objects"},
    {"application", "staticobjects", "static objects"},
    {"request", "clientcertificate", "Request.ClientCertificate"},
};

std::vector<Token> tokensOf(std::string_view program, vbs::NameTable& names) {
  std::vector<Token> tokens;
  try {
    vbs::Lexer lexer(program, names);
    do {
      lexer.next(tokens.emplace_back());
    } while (tokens.back().kind != TokenKind::End);
  } catch (const vbs::CompileError&) {
    tokens.pop_back();  // the compiler tells; what comes before it counts
  }
  return tokens;
}

bool isWord(const Token& token, std::string_view lower) {
  return token.kind == TokenKind::Word && token.name && token.name->lower == lower;
}

/// `Session("a") = 5` and `Set Session("a") = x`: values that are no texts.
bool keepsTypedValue(std::span<const Token> tokens, std::size_t at) {
  if (at + 5 >= tokens.size() || tokens[at + 1].kind != TokenKind::LeftParen) return false;
  if (at > 0 && isWord(tokens[at - 1], "set")) return true;
  std::size_t close = at + 2;
  while (close + 2 < tokens.size() && tokens[close].kind != TokenKind::RightParen &&
         tokens[close].kind != TokenKind::NewLine) {
    ++close;
  }
  if (close + 2 >= tokens.size() || tokens[close].kind != TokenKind::RightParen) return false;
  const Token& value = tokens[close + 2];
  return tokens[close + 1].kind == TokenKind::Equal &&
         (value.kind == TokenKind::Number || value.kind == TokenKind::Date ||
          isWord(value, "true") || isWord(value, "false") || isWord(value, "array"));
}

}  // namespace

Causes causesIn(const customary::PageProgram& page) {
  Causes causes;
  vbs::NameTable names;
  const std::vector<Token> tokens = tokensOf(page.program, names);
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (i + 2 < tokens.size() && tokens[i + 1].kind == TokenKind::Dot) {
      for (const MemberCause& cause : kMembers) {
        if (isWord(tokens[i], cause.object) && isWord(tokens[i + 2], cause.member)) {
          causes.differences.insert(std::string(cause.words));
        }
      }
    }
    if (isWord(tokens[i], "session") && keepsTypedValue(tokens, i)) {
      causes.differences.insert("typed values in the session");
    }
    const bool creates = isWord(tokens[i], "createobject") && i + 2 < tokens.size();
    const std::size_t argument = i + 1 + (creates && tokens[i + 1].kind == TokenKind::LeftParen);
    if (creates && tokens[argument].kind == TokenKind::String) {
      const std::string_view progId = tokens[argument].text;
      if (!isComponent(progId)) causes.components.insert(std::string(progId));
    }
  }
  for (std::string& name : jscript::createdComponents(page.script)) {
    if (!isComponent(name)) causes.components.insert(std::move(name));
  }
  if (!page.script.empty()) causes.differences.insert("JScript");
  if (page.hasScriptBlocks) causes.differences.insert("scripts in runat=server blocks");
  if (page.codePage) causes.differences.insert("code pages");
  if (page.namesTypeLibrary) causes.differences.insert("constants of type libraries");
  if (!page.objects.empty()) causes.differences.insert("static objects");
  return causes;
}

Letters lettersOf(std::string_view text) {
  if (std::none_of(text.begin(), text.end(), [](char c) { return c < 0; })) return Letters::Ascii;
  const vbs::String decoded = vbs::String::fromUtf8(text);
  for (std::size_t i = 0; i < decoded.length(); ++i) {
    if (decoded.at(i) == 0xFFFD) return Letters::Other;
  }
  return Letters::Utf8;
}

}  // namespace quorvane::qvscript
