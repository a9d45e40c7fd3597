#include "script/customary/page_reader.h"

#include <algorithm>
#include <utility>

#include "platform/charset.h"
#include "script/customary/shared_names.h"
#include "script/customary/tag.h"
#include "support/text.h"
#include "vbscript/syntax/lexer.h"

namespace quorvane::customary {

namespace {

using vbs::kUtf8Mark;

constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kCode = "<%";
constexpr std::string_view kComment = "<!--";
constexpr std::string_view kInclude = "#include";
constexpr std::string_view kMetadata = "metadata";
constexpr std::string_view kScript = "script";
constexpr std::string_view kObject = "object";
constexpr std::string_view kCommentEnd = "-->";
constexpr std::string_view kCodeEnd = "%>";
/// What pages write for it in a text, where it must end nothing.
constexpr std::string_view kCodeEndInText = "%\\>";

constexpr std::size_t kDeepestInclude = 64;
constexpr std::size_t kMostIncludes = 10'000;
constexpr std::size_t kMostBytes = std::size_t{64} << 20;

constexpr std::string_view kText = "[%text] ";
constexpr std::string_view kOut = "[%out] ";

bool isAscii(std::string_view bytes) {
  return std::none_of(bytes.begin(), bytes.end(), [](char c) { return c < 0; });
}

std::optional<std::int32_t> numberOf(const std::optional<std::string>& text) {
  if (!text || text->empty() || text->size() > 6) return std::nullopt;
  if (text->find_first_not_of("0123456789") != text->npos) return std::nullopt;
  return std::stoi(*text);
}

bool isVbScript(std::string_view language) {
  return equalsNoCase(language, "vbscript") || equalsNoCase(language, "vbs");
}

bool isJScript(std::string_view language) {
  return equalsNoCase(language, "jscript") || startsWithNoCase(language, "javascript") ||
         equalsNoCase(language, "text/javascript") || equalsNoCase(language, "ecmascript");
}

enum class Language { VbScript, JScript };

std::optional<Language> languageOf(std::string_view name) {
  if (isVbScript(name)) return Language::VbScript;
  if (isJScript(name)) return Language::JScript;
  return std::nullopt;
}

/// A place in a file's text, with the line that it is in.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : text_(text) {}

  std::size_t at() const { return at_; }
  bool isAtEnd() const { return at_ >= text_.size(); }
  std::string_view rest() const { return text_.substr(at_); }
  std::uint32_t line() const { return line_; }
  std::uint32_t column() const { return static_cast<std::uint32_t>(at_ - lineStart_) + 1; }

  /// To the next `wanted`, or the end and false.
  bool skipTo(char wanted) {
    const std::size_t next = rest().find(wanted);
    skip(next == std::string_view::npos ? rest().size() : next);
    return !isAtEnd();
  }
  void skip(std::size_t count) {
    const std::size_t to = std::min(at_ + count, text_.size());
    for (; at_ < to; ++at_) {
      const bool ends =
          text_[at_] == '\n' || (text_[at_] == '\r' && text_.substr(at_ + 1, 1) != "\n");
      if (!ends) continue;
      ++line_;
      lineStart_ = at_ + 1;
    }
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t lineStart_ = 0;
  std::uint32_t line_ = 1;
};

/// Something in a page's text that is no text.
struct Markup {
  enum class Kind { Include, TypeLibrary, Script, Object, Directive, Value, Code };

  Kind kind = Kind::Code;
  std::size_t length = 0;  ///< of the whole
  std::size_t inside = 0;  ///< where its content begins
  std::size_t insideLength = 0;
  Attributes attributes{{}};
  bool isEnded = true;

  std::string_view content(std::string_view text) const {
    return text.substr(inside, insideLength);
  }
};

/// What `text`, which begins with "<!--", is: a comment that names a file or a type library.
std::optional<Markup> commentMarkup(std::string_view text) {
  const std::size_t at = text.find_first_not_of(kBlanks, kComment.size());
  if (at == text.npos) return std::nullopt;
  const bool includes = startsWithNoCase(text.substr(at), kInclude);
  if (!includes && !startsWithNoCase(text.substr(at), kMetadata)) return std::nullopt;
  const std::size_t end = text.substr(0, kLongestTag).find(kCommentEnd, at);
  if (end == text.npos) return std::nullopt;
  Markup markup;
  markup.kind = includes ? Markup::Kind::Include : Markup::Kind::TypeLibrary;
  markup.length = end + kCommentEnd.size();
  const std::size_t first = at + (includes ? kInclude : kMetadata).size();
  markup.attributes = Attributes(text.substr(first, end - first));
  return markup;
}

/// What `text`, which begins with "<" and the tag's name, is: a tag that is meant for the server.
std::optional<Markup> tagMarkup(std::string_view text, std::string_view name) {
  const std::size_t end = endOfTag(text);
  if (end == text.npos) return std::nullopt;
  Markup markup;
  markup.attributes = Attributes(text.substr(1 + name.size(), end - 1 - name.size()));
  if (!equalsNoCase(markup.attributes.find("runat").value_or(""), "server")) return std::nullopt;
  const std::string close = std::string("</").append(name);
  markup.kind = name == kScript ? Markup::Kind::Script : Markup::Kind::Object;
  markup.inside = end + 1;
  if (markup.kind == Markup::Kind::Object) text = text.substr(0, kLongestTag);
  const std::size_t stop = findNoCase(text, close, markup.inside);
  markup.isEnded = stop != text.npos;
  if (!markup.isEnded && markup.kind == Markup::Kind::Object) {
    markup.isEnded = true;
    markup.length = end + 1;
    return markup;
  }
  markup.insideLength = (markup.isEnded ? stop : text.size()) - markup.inside;
  const std::size_t last = markup.isEnded ? text.find('>', stop) : text.npos;
  markup.length = last == text.npos ? text.size() : last + 1;
  return markup;
}

/// What `text`, which begins with "<%", is.
Markup blockMarkup(std::string_view text) {
  Markup markup;
  const std::size_t end = text.find(kCodeEnd, kCode.size());
  markup.isEnded = end != text.npos;
  const std::size_t stop = markup.isEnded ? end : text.size();
  markup.length = markup.isEnded ? end + kCodeEnd.size() : stop;
  markup.inside = kCode.size();
  const std::size_t first = text.find_first_not_of(kBlanks, kCode.size());
  if (first < stop && text[first] == '=') {
    markup.kind = Markup::Kind::Value;
    markup.inside = first + 1;
  } else if (first < stop && text[first] == '@') {
    markup.kind = Markup::Kind::Directive;
    markup.attributes = Attributes(text.substr(first + 1, stop - first - 1));
  }
  markup.insideLength = stop - markup.inside;
  return markup;
}

/// What begins at the start of `text`, a "<".
std::optional<Markup> markupAt(std::string_view text, bool isPage) {
  if (isPage && text.starts_with(kCode)) return blockMarkup(text);
  if (text.starts_with(kComment)) return commentMarkup(text);
  for (const std::string_view name : {kScript, kObject}) {
    if (startsWithNoCase(text.substr(1), name)) return tagMarkup(text, name);
  }
  return std::nullopt;
}

std::optional<Attributes> directiveOf(std::string_view text) {
  for (std::size_t at = text.find(kCode); at != text.npos; at = text.find(kCode, at + 2)) {
    const Markup block = blockMarkup(text.substr(at));
    if (block.kind == Markup::Kind::Directive) return block.attributes;
  }
  return std::nullopt;
}

/// Whether the code ends with the head of a Select, which nothing but a Case may follow.
bool endsWithSelect(std::string_view code) {
  const std::string_view trimmed = trimBlanks(code);
  const std::size_t line = trimmed.find_last_of("\r\n:");
  const std::string_view last = trimBlanks(trimmed.substr(line == trimmed.npos ? 0 : line + 1));
  return startsWithNoCase(last, "select ");
}

class Reader {
 public:
  Reader(std::int32_t codePage, const IncludeReader& include, bool isPage)
      : codePage_(codePage), include_(include), isPage_(isPage) {}

  PageProgram read(const std::string& path, std::string_view text);

 private:
  /// One that is being read.
  struct File {
    std::uint32_t number;
    const std::string& path;
    std::int32_t codePage;
    Cursor cursor;
  };
  struct Stop {};

  void readFile(const std::string& path, std::string_view text, bool isCode);
  void readText(File& file);
  void readCode(File& file, std::size_t length);
  void take(File& file, const Markup& markup);
  void takeDirective(const File& file, const Attributes& directive);
  void takeScript(File& file, const Markup& script);
  void takeObject(const Attributes& tag);
  void include(const File& file, const Attributes& directive, bool isCode);
  void include(const File& file, const std::string& name, bool isVirtual, bool isCode);

  void addText(const File& file, const Cursor& from, std::string_view bytes);
  void addCode(const File& file, const Cursor& from, std::string_view code,
               std::string_view prefix = {});
  void addLines(const File& file, const Cursor& from, std::string_view code,
                std::string_view prefix);
  void addBytes(const File& file, std::string_view bytes);
  void addScript(const File& file, const Cursor& from, std::string_view code, bool isValue);
  [[noreturn]] void fail(const File& file, std::string text);

  std::int32_t codePage_;
  const IncludeReader& include_;
  const bool isPage_;
  PageProgram page_;
  std::vector<std::string> open_;  ///< files inside each other
  std::size_t includes_ = 0;
  std::size_t bytes_ = 0;
  bool isAscii_ = true;
  bool afterSelect_ = false;
  Language pageLanguage_ = Language::VbScript;
  Language language_ = Language::VbScript;  ///< of the code that is being read
};

PageProgram Reader::read(const std::string& path, std::string_view text) {
  const auto directive = directiveOf(text);
  if (directive) page_.codePage = numberOf(directive->find("codepage"));
  if (page_.codePage == 0) page_.codePage.reset();  // the site's own
  if (!page_.codePage && text.starts_with(kUtf8Mark)) page_.codePage = kUtf8;
  if (page_.codePage && isCodePage(*page_.codePage)) codePage_ = *page_.codePage;
  const std::string named = directive ? directive->find("language").value_or("") : "";
  pageLanguage_ = language_ = languageOf(named).value_or(Language::VbScript);
  page_.lines.add(page_.lines.file(path), 1, 0);
  page_.program = "\n";  // behind the mark, if one comes there
  try {
    readFile(path, text, false);
    if (!page_.script.empty()) joinScript(page_, pageLanguage_ == Language::JScript);
  } catch (const Stop&) {
    page_.program.clear();
    page_.script.clear();
  }
  if (!isAscii_) page_.program.insert(0, kUtf8Mark);
  return std::move(page_);
}

void Reader::readFile(const std::string& path, std::string_view text, bool isCode) {
  std::optional<std::string> converted;
  std::int32_t codePage = codePage_;
  if (text.starts_with(kUtf8Mark)) {
    text.remove_prefix(kUtf8Mark.size());
    codePage = kUtf8;
  } else if (text.starts_with(kUtf16Mark)) {
    const std::string_view units = text.substr(kUtf16Mark.size());
    const auto decoded = charset::decode("unicode", units, units.size());
    converted = encode(kUtf8, vbs::String::fromWide(decoded.text));
  } else if (isStateful(codePage)) {
    converted = encode(kUtf8, decode(codePage, text));
  }
  if (converted) {
    text = *converted;
    codePage = kUtf8;
  }
  page_.scriptLines.file(path);  // so that a file has one number
  File file{page_.lines.file(path), path, codePage, Cursor(text)};
  open_.push_back(path);
  if (isCode) {
    readCode(file, text.size());
  } else {
    readText(file);
  }
  open_.pop_back();
}

void Reader::readText(File& file) {
  Cursor start = file.cursor;
  const auto endText = [&] {
    addText(file, start, start.rest().substr(0, file.cursor.at() - start.at()));
  };
  while (file.cursor.skipTo('<')) {
    if (const auto markup = markupAt(file.cursor.rest(), isPage_)) {
      endText();
      take(file, *markup);
      start = file.cursor;
    } else {
      file.cursor.skip(1);
    }
  }
  endText();
}

void Reader::take(File& file, const Markup& markup) {
  if (!markup.isEnded) fail(file, "What begins here has no end");
  Cursor inside = file.cursor;
  inside.skip(markup.inside);
  const std::string_view content = markup.content(file.cursor.rest());
  switch (markup.kind) {
    case Markup::Kind::Include:
      include(file, markup.attributes, false);
      break;
    case Markup::Kind::TypeLibrary:
      page_.namesTypeLibrary = true;
      break;
    case Markup::Kind::Script:
      takeScript(file, markup);
      break;
    case Markup::Kind::Object:
      takeObject(markup.attributes);
      break;
    case Markup::Kind::Directive:
      takeDirective(file, markup.attributes);
      break;
    case Markup::Kind::Value:
      if (language_ == Language::JScript) {
        addScript(file, inside, content, true);
      } else {
        addCode(file, inside, content, kOut);
      }
      break;
    case Markup::Kind::Code:
      addCode(file, inside, content);
      afterSelect_ = endsWithSelect(content);
      break;
  }
  file.cursor.skip(markup.length);
}

void Reader::takeDirective(const File& file, const Attributes& directive) {
  const std::string language = directive.find("language").value_or("vbscript");
  if (!languageOf(language)) fail(file, "Pages in '" + language + "' do not run here");
  if (const auto lcid = numberOf(directive.find("lcid"))) page_.lcid = lcid;
  const std::string session = directive.find("enablesessionstate").value_or("");
  if (equalsNoCase(session, "false")) page_.usesSession = false;
  if (page_.codePage && !isCodePage(*page_.codePage)) {
    const std::int32_t unknown = *page_.codePage;
    page_.codePage.reset();  // for the page that shows the fault
    fail(file, "Code page " + std::to_string(unknown) + " is not known");
  }
}

void Reader::takeScript(File& file, const Markup& script) {
  const auto named = script.attributes.find("language");
  const auto language =
      named ? languageOf(*named) : languageOf(script.attributes.find("type").value_or(""));
  if (named && !language) fail(file, "Scripts in '" + *named + "' do not run here");
  language_ = language.value_or(pageLanguage_);
  page_.hasScriptBlocks = true;
  if (const auto source = script.attributes.find("src")) {
    include(file, *source, source->starts_with('/'), true);
  } else {
    File inside = file;
    inside.cursor.skip(script.inside);
    readCode(inside, script.insideLength);
  }
  language_ = pageLanguage_;
}

void Reader::takeObject(const Attributes& tag) {
  StaticObject object;
  object.name = tag.find("id").value_or("");
  object.progId = tag.find("progid").value_or(tag.find("classid").value_or(""));
  const std::string scope = lowerCase(tag.find("scope").value_or("page"));
  object.scope = scope == "session"       ? StaticObject::Scope::Session
                 : scope == "application" ? StaticObject::Scope::Application
                                          : StaticObject::Scope::Page;
  if (!object.name.empty()) page_.objects.push_back(std::move(object));
}

void Reader::include(const File& file, const Attributes& directive, bool isCode) {
  if (const auto name = directive.find("virtual")) return include(file, *name, true, isCode);
  if (const auto name = directive.find("file")) return include(file, *name, false, isCode);
  fail(file, "An include names no file");
}

void Reader::include(const File& file, const std::string& name, bool isVirtual, bool isCode) {
  const auto included = include_(file.path, std::string(trimBlanks(name)), isVirtual);
  if (!included) fail(file, "Include file not found '" + name + "'");
  if (std::find(open_.begin(), open_.end(), included->path) != open_.end()) {
    fail(file, "The include file '" + name + "' includes itself");
  }
  bytes_ += included->text.size();
  if (open_.size() > kDeepestInclude || ++includes_ > kMostIncludes || bytes_ > kMostBytes) {
    fail(file, "Too many include files at '" + name + "'");
  }
  readFile(included->path, included->text, isCode);
}

/// Code that may include more of it.
void Reader::readCode(File& file, std::size_t length) {
  const std::size_t end = file.cursor.at() + length;
  Cursor start = file.cursor;
  const auto endCode = [&] {
    addCode(file, start, start.rest().substr(0, file.cursor.at() - start.at()));
  };
  while (file.cursor.skipTo('<') && file.cursor.at() < end) {
    const std::string_view rest = file.cursor.rest().substr(0, end - file.cursor.at());
    const auto markup = rest.starts_with(kComment) ? commentMarkup(rest) : std::nullopt;
    if (markup && markup->kind == Markup::Kind::Include) {
      endCode();
      include(file, markup->attributes, true);
      file.cursor.skip(markup->length);
      start = file.cursor;
    } else {
      file.cursor.skip(1);
    }
  }
  file.cursor = start;
  file.cursor.skip(end - start.at());
  endCode();
}

void Reader::addText(const File& file, const Cursor& from, std::string_view bytes) {
  if (bytes.empty() || !isPage_) return;
  const bool separates = afterSelect_ && bytes.find_first_not_of(kBlanks) == bytes.npos;
  afterSelect_ = false;
  if (separates) return;
  const std::string number = std::to_string(page_.texts.size());
  if (language_ == Language::JScript) {
    page_.scriptLines.add(file.number, from.line(), 0);
    page_.script.append("qv$text(" + number + ");\n");
  } else {
    page_.lines.add(file.number, from.line(), 0);
    page_.program.append(kText).append(number).append(1, '\n');
  }
  page_.texts.push_back({std::string(bytes), file.codePage});
}

void Reader::addCode(const File& file, const Cursor& from, std::string_view code,
                     std::string_view prefix) {
  if (language_ == Language::JScript) {
    addScript(file, from, code, false);
  } else {
    addLines(file, from, code, prefix);
  }
}

void Reader::addScript(const File& file, const Cursor& from, std::string_view code, bool isValue) {
  if (isValue) {
    code = trimBlanks(code);
    while (code.ends_with(';')) code.remove_suffix(1);
    page_.script += "qv$out(";
  }
  std::string text = encode(kUtf8, decode(file.codePage, code));
  text =
      replaceAll(replaceAll(replaceAll(text, kCodeEndInText, kCodeEnd), "\r\n", "\n"), "\r", "\n");
  text += isValue ? "\n);\n" : "\n";
  const auto lines = static_cast<std::uint32_t>(std::count(text.begin(), text.end(), '\n'));
  for (std::uint32_t i = 0; i < lines; ++i) page_.scriptLines.add(file.number, from.line() + i, 0);
  page_.script += text;
}

void Reader::addLines(const File& file, const Cursor& from, std::string_view code,
                      std::string_view prefix) {
  afterSelect_ = false;
  std::uint32_t line = from.line();
  std::int32_t shift =
      static_cast<std::int32_t>(from.column()) - 1 - static_cast<std::int32_t>(prefix.size());
  while (true) {
    const std::size_t end = std::min(code.find_first_of("\r\n"), code.size());
    page_.lines.add(file.number, line++, shift);
    page_.program.append(prefix);
    addBytes(file, code.substr(0, end));
    page_.program += '\n';
    if (end == code.size()) return;
    code.remove_prefix(end + (code.substr(end, 2) == "\r\n" ? 2 : 1));
    prefix = {};
    shift = 0;
  }
}

void Reader::addBytes(const File& file, std::string_view bytes) {
  if (bytes.find(kCodeEndInText) != bytes.npos) {
    return addBytes(file, replaceAll(bytes, kCodeEndInText, kCodeEnd));
  }
  if (isAscii(bytes)) {
    page_.program += bytes;
  } else {
    isAscii_ = false;
    append(page_.program, kUtf8, decode(file.codePage, bytes));
  }
}

void Reader::fail(const File& file, std::string text) {
  page_.fault = {std::move(text), {file.path, file.cursor.line(), file.cursor.column()}};
  throw Stop{};
}

}  // namespace

bool beginsWithDirective(std::string_view text) {
  if (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
  if (!text.starts_with("<%")) return false;
  const std::size_t first = text.find_first_not_of(kBlanks, 2);
  return first != text.npos && text[first] == '@';
}

PageProgram readPage(const std::string& path, std::string_view text, std::int32_t codePage,
                     const IncludeReader& include) {
  return Reader(codePage, include, true).read(path, text);
}

PageProgram readScriptBlocks(const std::string& path, std::string_view text, std::int32_t codePage,
                             const IncludeReader& include) {
  return Reader(codePage, include, false).read(path, text);
}

}  // namespace quorvane::customary
