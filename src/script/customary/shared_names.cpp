#include "script/customary/shared_names.h"

#include <set>

#include "jscript/script_text.h"
#include "support/text.h"
#include "vbscript/library/library.h"
#include "vbscript/syntax/lexer.h"
#include "vbscript/syntax/parser.h"

namespace quorvane::customary {

namespace {

using vbs::Keyword;
using vbs::Token;
using vbs::TokenKind;

/// The names of a program in lower case.
struct Names {
  std::set<std::string, std::less<>> procedures;
  std::set<std::string, std::less<>> constants;
  std::set<std::string, std::less<>> classes;
  std::set<std::string, std::less<>> all;
};

/// Collects the names, token by token.
class Collector {
 public:
  explicit Collector(Names& names) : names_(names) {}

  void take(const Token& token) {
    const Keyword before = std::exchange(last_, token.keyword);
    const bool afterDot = std::exchange(lastKind_, token.kind) == TokenKind::Dot;
    if (token.kind == TokenKind::NewLine || token.kind == TokenKind::Colon) inConst_ = false;
    if (token.keyword == Keyword::Const) inConst_ = true;
    if (token.keyword == Keyword::Class) inClass_ = before != Keyword::End;
    const bool ends = before == Keyword::End || before == Keyword::Exit;
    if (ends && token.kind == TokenKind::Word) last_ = Keyword::None;
    if (token.kind != TokenKind::Word || token.keyword != Keyword::None || afterDot) return;
    const std::string_view name = token.name->lower;
    names_.all.emplace(name);
    if (inConst_) names_.constants.emplace(name);
    if (before == Keyword::Class) names_.classes.emplace(name);
    const bool declares = before == Keyword::Function || before == Keyword::Sub;
    if (declares && !inClass_) names_.procedures.emplace(name);
  }

 private:
  Names& names_;
  Keyword last_ = Keyword::None;
  TokenKind lastKind_ = TokenKind::NewLine;
  bool inConst_ = false;
  bool inClass_ = false;
};

Names namesOf(const std::string& program) {
  Names names;
  vbs::NameTable table;
  const std::string text = std::string(vbs::kUtf8Mark) + program;
  try {
    vbs::Lexer lexer(text, table);
    Collector collector(names);
    for (Token token; lexer.next(token), token.kind != TokenKind::End;) collector.take(token);
  } catch (const vbs::CompileError&) {
    // The compiler tells; what comes before it counts.
  }
  return names;
}

class Glue {
 public:
  explicit Glue(PageProgram& page) : page_(page), names_(namesOf(page.program)) {}

  std::string share(const std::vector<std::string>& used) {
    std::string head;
    for (const std::string& name : used) {
      const std::string lower = lowerCase(name);
      if (names_.procedures.contains(lower)) {
        head.append("[%procedure] \"").append(name).append("\", GetRef(\"").append(name);
      } else if (isVariable(lower)) {
        head.append("[%variable] \"").append(name).append("\", GetRef(\"%get ").append(name);
        head.append("\"), GetRef(\"%put ").append(name);
        addAccess(name, names_.constants.contains(lower));
      } else {
        continue;
      }
      head.append("\"): ");
    }
    return head;
  }

  void addTail() {
    for (const std::string& line : tail_) {
      page_.lines.add(0, 1, 0);
      page_.program.append(line).append(1, '\n');
    }
  }

 private:
  bool isVariable(const std::string& lower) const {
    return names_.all.contains(lower) && !names_.classes.contains(lower) &&
           !vbs::findIntrinsic(lower) && !vbs::findConstant(lower) && lower != "err";
  }

  void addAccess(const std::string& name, bool isConstant) {
    const std::string get = "[%get " + name + "]";
    const std::string place = "[" + name + "]";
    tail_.insert(tail_.end(), {"Function " + get + "()",
                               "If IsObject(" + place + ") Then Set " + get + " = " + place +
                                   " Else " + get + " = " + place,
                               "End Function", "Sub [%put " + name + "]([%v])"});
    if (!isConstant) {
      tail_.push_back("If IsObject([%v]) Then Set " + place + " = [%v] Else " + place + " = [%v]");
    }
    tail_.emplace_back("End Sub");
  }

  PageProgram& page_;
  const Names names_;
  std::vector<std::string> tail_;
};

}  // namespace

void joinScript(PageProgram& page, bool isPageLanguage) {
  jscript::ScriptText text = jscript::madeReady(page.script);
  page.script = std::move(text.code);
  page.scriptNames = std::move(text.declared);
  page.scriptUses = std::move(text.free);
  Glue glue(page);
  std::string head = glue.share(page.scriptUses);
  // The names, too: programs that are the same find the same members.
  std::string run = "[%script] \"";
  for (const std::string& name : page.scriptNames) run += lowerCase(name) + ' ';
  run += '"';
  if (isPageLanguage) {
    page.lines.add(0, 1, 0);
    page.program.append(run).append(1, '\n');
  } else {
    head += run;
  }
  glue.addTail();
  page.program.insert(0, head);
}

}  // namespace quorvane::customary
