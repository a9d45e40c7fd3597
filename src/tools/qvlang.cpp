#include "tools/qvlang.h"

#include <optional>
#include <ostream>
#include <string_view>

#include "support/clsMUI.h"
#include "support/locale_id.h"
#include "tools/qvlang_check.h"

namespace quorvane {

namespace {

using Arguments = std::vector<std::string>;

constexpr std::string_view kHelp =
    "qvlang - language files for the server's console\n"
    "\n"
    "  qvlang encode TEXT FILE.lng        make a language file of a plain text; the text is\n"
    "                                     checked first and nothing is written if it fails\n"
    "  qvlang decode FILE.lng [TEXT]      write the plain text, without TEXT to standard output\n"
    "  qvlang check FILE...               check language files or plain texts\n"
    "  qvlang check --against REFERENCE FILE...\n"
    "                                     and compare their keys and values with another's\n"
    "\n"
    "A plain text is in Windows-1252 with lines that end in CR LF. The first line is\n"
    "\"QVLF V1.0$\", the locale identifier, \"$\" and the language's name; then come lines\n"
    "key=text, with \"||\" for a line break in the text, and comments that begin with \";\".\n"
    "\n"
    "Exit code: 0 all is well, 1 the check found something, 2 wrong arguments, 3 a file could\n"
    "not be read or written.\n";

/// One run of the tool.
class LanguageTool {
 public:
  LanguageTool(const Files& files, std::ostream& out, std::ostream& err)
      : files_(files), out_(out), err_(err) {}

  ExitCode run(const Arguments& arguments) {
    for (const std::string& argument : arguments) {
      if (argument == "--help" || argument == "-h") {
        out_ << kHelp;
        return ExitCode::Done;
      }
    }
    if (arguments.empty()) return wrong("a command is missing");
    const Arguments rest(arguments.begin() + 1, arguments.end());
    if (arguments[0] == "encode") return encode(rest);
    if (arguments[0] == "decode") return decode(rest);
    if (arguments[0] == "check") return check(rest);
    return wrong("unknown command \"" + arguments[0] + "\"");
  }

 private:
  ExitCode encode(const Arguments& arguments) {
    if (arguments.size() != 2) return wrong("encode takes a text and a file");
    const auto text = files_.readAll(arguments[0]);
    if (!text) return failed("can't read " + arguments[0]);
    if (report(arguments[0], checkLanguageText(*text))) return ExitCode::Finding;
    if (!tables_.EncodeLangFile(arguments[0], arguments[1])) {
      return failed("can't write " + arguments[1]);
    }
    if (tables_.DecodeLangFile(arguments[1]) != *text) {
      files_.remove(arguments[1]);
      return failed(arguments[0] + " can't be unpacked again and is too large for a language file");
    }
    return ExitCode::Done;
  }

  ExitCode decode(const Arguments& arguments) {
    if (arguments.empty() || arguments.size() > 2) return wrong("decode takes a file and a text");
    const std::string text = tables_.DecodeLangFile(arguments[0]);
    if (text.empty()) return failed(arguments[0] + " is no readable language file");
    if (arguments.size() == 1) {
      out_ << text;
    } else if (!files_.writeAll(arguments[1], text)) {
      return failed("can't write " + arguments[1]);
    }
    return ExitCode::Done;
  }

  ExitCode check(Arguments arguments) {
    std::optional<std::string> reference;
    if (!arguments.empty() && arguments[0] == "--against") {
      if (arguments.size() < 2) return wrong("--against takes a file");
      reference = textOf(arguments[1]);
      if (!reference) return failed("can't read " + arguments[1]);
      arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    if (arguments.empty()) return wrong("check takes at least one file");
    bool found = false;
    for (const std::string& file : arguments) {
      const auto text = textOf(file);
      if (!text) return failed("can't read " + file);
      found |= report(file, checkLanguageText(*text));
      if (reference) found |= report(file, compareLanguageTexts(*text, *reference));
    }
    return found ? ExitCode::Finding : ExitCode::Done;
  }

  /// The plain text of a language file or of a file that is one already.
  std::optional<std::string> textOf(const std::string& path) const {
    auto bytes = files_.readAll(path);
    if (!bytes) return std::nullopt;
    // The two forms differ in the byte behind the tag: a blank in the text, a number in the file.
    if (!bytes->starts_with("QVLF\x01")) return bytes;
    std::string text = tables_.DecodeLangFile(path);
    if (text.empty()) return std::nullopt;
    return text;
  }

  bool report(const std::string& file, const std::vector<std::string>& findings) {
    for (const std::string& finding : findings) err_ << file << ": " << finding << '\n';
    return !findings.empty();
  }
  ExitCode wrong(const std::string& what) {
    err_ << "qvlang: " << what << "; \"qvlang --help\" tells more\n";
    return ExitCode::Usage;
  }
  ExitCode failed(const std::string& what) {
    err_ << "qvlang: " << what << '\n';
    return ExitCode::Failed;
  }

  const Files& files_;
  std::ostream& out_;
  std::ostream& err_;
  const clsMUI tables_{files_, kEnglishLCID};
};

}  // namespace

ExitCode runLanguageTool(const Arguments& arguments, const Files& files, std::ostream& out,
                         std::ostream& err) {
  return LanguageTool(files, out, err).run(arguments);
}

}  // namespace quorvane
