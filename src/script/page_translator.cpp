#include "script/page_translator.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "support/text.h"

namespace {

constexpr std::string_view kCrLf = "\r\n";
constexpr std::string_view kWrite = "response.xwrite ";

/// Ends the program: the runner takes error 6006 for a normal end.
constexpr std::string_view kEndScript = "on error goto 0: err.Raise 6006";

/// A call "object.member" that pages write and what takes its place.
struct Rewriting {
  std::string_view object;
  std::string_view member;
  std::string_view replacement;
};
constexpr std::array kRewritings = {
    Rewriting{"response", "write", "response.xwrite"},
    Rewriting{"response", "clear", "response.xclear"},
    Rewriting{"response", "end", kEndScript},
    Rewriting{"server", "createobject", "server.xcreateobject"},
};
constexpr Rewriting kRedirect{"response", "redirect ", {}};
constexpr Rewriting kRedirectTo{"response", "redirectto ", {}};

bool endsWithNoCase(std::string_view text, std::string_view tail) {
  return text.size() >= tail.size() && equalsNoCase(text.substr(text.size() - tail.size()), tail);
}

/// Calls `take` with every line of `text`; an empty text has none.
template <class Take>
void forEachLine(std::string_view text, Take take) {
  if (text.empty()) return;
  while (true) {
    const std::size_t end = text.find(kCrLf);
    const bool last = end == std::string_view::npos;
    take(text.substr(0, end), last);
    if (last) return;
    text.remove_prefix(end + kCrLf.size());
  }
}

/// `line` as a string expression, its double quotes as chr(34).
void appendExpression(std::string_view line, std::string& out) {
  std::size_t quote = line.find('"');
  if (quote == std::string_view::npos) {
    out.append(1, '"').append(line).append(1, '"');
    return;
  }
  const char* glue = "";
  std::size_t start = 0;
  const auto appendPart = [&](std::string_view part) {
    out.append(glue).append(1, '"').append(part).append(1, '"');
    glue = " & ";
  };
  for (; quote != std::string_view::npos; quote = line.find('"', start)) {
    if (quote > start || start > 0) appendPart(line.substr(start, quote - start));
    out.append(glue).append("chr(34)");
    glue = " & ";
    start = quote + 1;
  }
  if (start < line.size()) appendPart(line.substr(start));
}

void appendTextPiece(std::string_view piece, std::string& out) {
  forEachLine(piece, [&](std::string_view line, bool last) {
    out.append(kWrite);
    appendExpression(line, out);
    if (!last) out.append(" & vbCrLf");
    out.append(kCrLf);
  });
}

/// Copies one line of code to `out` with its calls rewritten. Every call to rewrite has its one
/// "." between two words, so the points are all that needs to be looked at.
void appendRewritten(std::string_view line, std::string& out) {
  const std::size_t begin = out.size();
  bool redirects = false;
  std::size_t copied = 0;
  for (std::size_t dot = line.find('.'); dot != std::string_view::npos;
       dot = line.find('.', dot + 1)) {
    out.append(line.substr(copied, dot - copied));
    copied = dot;
    const std::string_view before = std::string_view(out).substr(begin);
    const std::string_view after = line.substr(dot + 1);
    const auto stands = [&](const Rewriting& call) {
      return startsWithNoCase(after, call.member) && endsWithNoCase(before, call.object);
    };
    if (stands(kRedirect) || stands(kRedirectTo)) redirects = true;
    for (const Rewriting& call : kRewritings) {
      if (!stands(call)) continue;
      out.resize(out.size() - call.object.size());
      out.append(call.replacement);
      copied = dot + 1 + call.member.size();
      break;
    }
  }
  out.append(line.substr(copied));
  if (!redirects) return;
  const bool separated = trimBlanks(std::string_view(out).substr(begin)).ends_with(':');
  out.append(separated ? "" : ": ").append(kEndScript);
}

void appendCodePiece(std::string_view piece, std::string& out) {
  bool first = true;
  forEachLine(piece, [&](std::string_view line, bool) {
    const std::size_t start = line.find_first_not_of(" \t");
    if (first && start != std::string_view::npos && line[start] == '=') {
      out.append(kWrite);
      line.remove_prefix(start + 1);
    }
    first = false;
    appendRewritten(line, out);
    out.append(kCrLf);
  });
}

void replaceWhereFound(std::string& text, std::string_view from, std::string_view to) {
  if (text.find(from) != std::string::npos) text = replaceAll(text, from, to);
}

/// The pieces between delimiters, whichever delimiter stands where: text and code in turn.
std::vector<std::string_view> splitAtDelimiters(std::string_view page) {
  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  for (std::size_t percent = page.find('%'); percent != std::string_view::npos;
       percent = page.find('%', percent + 1)) {
    std::size_t delimiter = percent;
    if (percent > start && page[percent - 1] == '<') {
      delimiter = percent - 1;
    } else if (percent < start || percent + 1 == page.size() || page[percent + 1] != '>') {
      continue;
    }
    pieces.push_back(page.substr(start, delimiter - start));
    start = delimiter + 2;
  }
  pieces.push_back(page.substr(start));
  return pieces;
}

}  // namespace

std::string translatePage(std::string page) {
  replaceWhereFound(page, "\r\n\r\n", kCrLf);
  replaceWhereFound(page, "%>\r\n<%", kCrLf);
  replaceWhereFound(page, "<%\r\n%>", kCrLf);

  std::string program;
  program.reserve(page.size() + page.size() / 2);
  bool isCode = false;
  for (const std::string_view piece : splitAtDelimiters(page)) {
    if (isCode) {
      appendCodePiece(piece, program);
    } else {
      appendTextPiece(piece, program);
    }
    isCode = !isCode;
  }
  return program;
}
