#include "script/page_translator.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
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
  std::size_t start = 0;
  for (std::size_t end = text.find('\n'); end != std::string_view::npos;
       end = text.find('\n', end + 1)) {
    if (end == start || text[end - 1] != '\r') continue;
    take(text.substr(start, end - 1 - start), false);
    start = end + 1;
  }
  take(text.substr(start), true);
}

/// Double quotes in one write; the engine refuses expressions of thousands of terms, and pages
/// squeezed into one line have as many.
constexpr int kMostQuotes = 400;

/// `line` as a string expression, its double quotes as chr(34); a very long one in several writes.
void appendExpression(std::string_view line, std::string& out) {
  std::size_t quote = line.find('"');
  if (quote == std::string_view::npos) {
    out.append(1, '"').append(line).append(1, '"');
    return;
  }
  const char* glue = "";
  int quotes = 0;
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
    if (++quotes % kMostQuotes == 0 && start < line.size()) {
      out.append(": ").append(kWrite);
      glue = "";
    }
  }
  if (start < line.size()) appendPart(line.substr(start));
}

void appendTextPiece(std::string_view piece, std::string& out) {
  forEachLine(piece, [&](std::string_view line, bool last) {
    out.append(kWrite);
    appendExpression(line, out);
    out.append(last ? kCrLf : std::string_view(" & vbCrLf\r\n"));
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

/// Replaces every occurrence of `from` by a line break, in place; `from` is no shorter than that.
/// Searches for the character at `anchor`, chosen to be the one that leads astray least.
void joinAt(std::string& text, std::string_view from, std::size_t anchor) {
  std::size_t read = 0;   // where the rest of the text begins
  std::size_t write = 0;  // where it goes to
  const auto moveUpTo = [&](std::size_t end) {
    if (read != write) std::memmove(&text[write], &text[read], end - read);
    write += end - read;
  };
  for (std::size_t found = text.find(from[anchor]); found != std::string::npos;
       found = text.find(from[anchor], std::max(found + 1, read + anchor))) {
    const std::size_t start = found - anchor;
    if (found < read + anchor || text[start] != from.front()) continue;
    if (std::string_view(text).substr(start, from.size()) != from) continue;
    moveUpTo(start);
    std::copy(kCrLf.begin(), kCrLf.end(), text.begin() + static_cast<std::ptrdiff_t>(write));
    write += kCrLf.size();
    read = start + from.size();
  }
  if (read == 0) return;
  moveUpTo(text.size());
  text.resize(write);
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
  joinAt(page, "\r\n\r\n", 2);
  joinAt(page, "%>\r\n<%", 0);
  joinAt(page, "<%\r\n%>", 1);

  std::string program;
  program.reserve(page.size() * 2);
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
