#include "script/translation/page_translator.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kCrLf = "\r\n";
constexpr std::string_view kWrite = "response.xwrite ";
constexpr std::string_view kWriteText = "response.xwrite \"";

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

/// How much of `text`, which follows a call, is its empty pair of parentheses.
std::size_t emptyParentheses(std::string_view text) {
  const std::size_t open = text.find_first_not_of(" \t");
  if (open == std::string_view::npos || text[open] != '(') return 0;
  const std::size_t close = text.find_first_not_of(" \t", open + 1);
  return close != std::string_view::npos && text[close] == ')' ? close + 1 : 0;
}

/// Copies one line of code to `out` with its calls rewritten. Every call to rewrite has its one
/// "." between two words, so the points are all that needs to be looked at. `goesOn` is called with
/// what is left of the line behind each.
template <class GoesOn>
void appendRewritten(std::string_view line, std::string& out, const GoesOn& goesOn) {
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
      if (call.replacement == kEndScript) copied += emptyParentheses(line.substr(copied));
      goesOn(line.substr(copied));
      break;
    }
  }
  out.append(line.substr(copied));
  if (!redirects) return;
  const bool separated = trimBlanks(std::string_view(out).substr(begin)).ends_with(':');
  out.append(separated ? "" : ": ").append(kEndScript);
}

// ---- Lines ----

/// What the characters of a line can mean, as bits.
enum Mark : std::uint8_t { kLineEnd = 1, kQuote = 2, kPoint = 4, kPercent = 8 };

constexpr auto kMarks = [] {
  std::array<std::uint8_t, 256> marks{};
  marks['\r'] = marks['\n'] = kLineEnd;
  marks['"'] = kQuote;
  marks['.'] = kPoint;
  marks['%'] = kPercent;
  return marks;
}();

struct Line {
  std::string_view text;
  unsigned marks = 0;  ///< of the characters it has

  bool has(Mark mark) const { return (marks & mark) != 0; }
};

bool isLineEnd(std::string_view page, std::size_t at) {
  return at < page.size() && (kMarks[static_cast<std::uint8_t>(page[at])] & kLineEnd);
}

/// Moves behind the line ends that stand one after another from `at` on. Every second of them is
/// left out; between the others are empty lines.
void takeLineEnds(std::string_view page, std::size_t& at, std::vector<Line>& lines) {
  for (bool isSecond = false; isLineEnd(page, at); isSecond = !isSecond) {
    at += page.substr(at, kCrLf.size()) == kCrLf ? 2 : 1;
    if (isSecond && isLineEnd(page, at)) lines.push_back({page.substr(at, 0)});
  }
}

/// The lines of a page, of which every second line end in a row is left out.
std::vector<Line> splitLines(std::string_view page) {
  std::vector<Line> lines;
  lines.reserve(page.size() / 16 + 1);
  std::size_t at = 0;
  while (true) {
    const std::size_t start = at;
    unsigned marks = 0;
    for (; at < page.size(); ++at) {
      marks |= kMarks[static_cast<std::uint8_t>(page[at])];
      if (marks & kLineEnd) break;
    }
    lines.push_back({page.substr(start, at - start), marks});
    if (at == page.size()) return lines;
    takeLineEnds(page, at, lines);
  }
}

/// Takes `tail` and `head` away where they stand at the end of a line and the start of the next.
void joinLines(std::vector<Line>& lines, std::string_view tail, std::string_view head) {
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    std::string_view& before = lines[i].text;
    std::string_view& after = lines[i + 1].text;
    if (!lines[i].has(kPercent) || !before.ends_with(tail) || !after.starts_with(head)) continue;
    before.remove_suffix(tail.size());
    after.remove_prefix(head.size());
  }
}

// ---- Pieces ----

/// Writes the program piece by piece: text and code in turn, whichever delimiter stands between.
class Program {
 public:
  Program(std::string_view page, std::vector<PageTrace>* traces)
      : page_(page.data()), traces_(traces) {
    text_.reserve(page.size() * 2);
  }

  void addLine(const Line& line, bool isLast) {
    std::string_view rest = line.text;
    if (line.has(kPercent)) rest = addDelimited(rest, line);
    if (isLast) {
      endPiece(rest, line);
    } else {
      add(rest, line, false);
      isPieceEmpty_ = false;
    }
  }
  std::string take() { return std::move(text_); }

 private:
  /// Ends a piece at every delimiter in `text`; what is left belongs to the next piece.
  std::string_view addDelimited(std::string_view text, const Line& line) {
    std::size_t start = 0;
    for (std::size_t percent = text.find('%'); percent != std::string_view::npos;
         percent = text.find('%', percent + 1)) {
      std::size_t delimiter = percent;
      if (percent > start && text[percent - 1] == '<') {
        delimiter = percent - 1;
      } else if (percent < start || text.substr(percent + 1, 1) != ">") {
        continue;
      }
      endPiece(text.substr(start, delimiter - start), line);
      start = delimiter + 2;
    }
    return text.substr(start);
  }

  void endPiece(std::string_view rest, const Line& line) {
    if (!isPieceEmpty_ || !rest.empty()) add(rest, line, true);
    isCode_ = !isCode_;
    isPieceEmpty_ = true;
  }

  /// Adds `text`, a part of `line`.
  void add(std::string_view text, const Line& line, bool endsPiece) {
    trace(text);
    if (isCode_) return addCode(text, line);
    if (line.has(kQuote)) {
      text_.append(kWrite);
      appendExpression(text, text_);
    } else {
      text_.append(kWriteText).append(text).append(1, '"');
    }
    text_.append(endsPiece ? kCrLf : std::string_view(" & vbCrLf\r\n"));
    traceFrom(text_.size() - kCrLf.size(), text);  // none of its columns is one of the page
  }

  void addCode(std::string_view text, const Line& line) {
    const std::size_t start = isPieceEmpty_ ? text.find_first_not_of(" \t") : std::string::npos;
    if (start != std::string::npos && text[start] == '=') {
      text_.append(kWrite);
      text.remove_prefix(start + 1);
      trace(text);
    } else if (start != std::string::npos && text[start] == '@') {
      text_.append(1, '\'');  // "@ Language=VBScript" asks for what every page gets: a comment
      trace(text);
    }
    if (line.has(kPoint)) {
      appendRewritten(text, text_, [this](std::string_view rest) { trace(rest); });
    } else {
      text_.append(text);
    }
    text_.append(kCrLf);
  }

  /// What follows stands for `text`, a part of the page.
  void trace(std::string_view text) { traceFrom(text_.size(), text); }
  void traceFrom(std::size_t at, std::string_view text) {
    if (traces_) traces_->push_back({at, static_cast<std::size_t>(text.data() - page_)});
  }

  std::string text_;
  const char* page_;
  std::vector<PageTrace>* traces_;
  bool isCode_ = false;
  bool isPieceEmpty_ = true;  ///< nothing of the piece stands on an earlier line
};

}  // namespace

std::string translatePage(std::string_view page, std::vector<PageTrace>* traces) {
  std::vector<Line> lines = splitLines(page);
  joinLines(lines, "%>", "<%");
  joinLines(lines, "<%", "%>");

  Program program(page, traces);
  for (std::size_t i = 0; i < lines.size(); ++i) program.addLine(lines[i], i + 1 == lines.size());
  return program.take();
}

}  // namespace quorvane
