#include "components/site/browser_type.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "components/page_context.h"
#include "platform/services.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

constexpr std::string_view kUnknown = "unknown";

/// How a browser names itself. The first row that fits counts: most name others as well.
struct Row {
  std::string_view mark;
  std::string_view browser;
  std::string_view versionMark;  ///< the version stands behind it
};
constexpr std::array kBrowsers{
    Row{"Edg/", "Edge", "Edg/"},
    Row{"Edge/", "Edge", "Edge/"},
    Row{"OPR/", "Opera", "OPR/"},
    Row{"Opera", "Opera", "Version/"},
    Row{"MSIE ", "IE", "MSIE "},
    Row{"Trident/", "IE", "rv:"},
    Row{"Firefox/", "Firefox", "Firefox/"},
    Row{"Chrome/", "Chrome", "Chrome/"},
    Row{"Safari/", "Safari", "Version/"},
    Row{"Lynx/", "Lynx", "Lynx/"},
};

struct Platform {
  std::string_view mark;
  std::string_view name;
};
constexpr std::array kPlatforms{
    Platform{"Windows NT", "WinNT"}, Platform{"Windows", "Win32"},   Platform{"iPhone", "iOS"},
    Platform{"iPad", "iOS"},         Platform{"Android", "Android"}, Platform{"Mac", "MacOS"},
    Platform{"Linux", "Linux"},
};

/// What it can tell; all else is "unknown".
constexpr std::array<std::string_view, 21> kCapabilities{
    "browser",     "version", "majorver", "minorver",        "parent",
    "platform",    "crawler", "tables",   "cookies",         "frames",
    "javascript",  "css",     "vbscript", "activexcontrols", "backgroundsounds",
    "javaapplets", "cdf",     "beta",     "win16",           "aol",
    "value"};

constexpr std::array<std::string_view, 5> kCrawlerMarks{"bot", "crawl", "spider", "slurp", "curl/"};

/// Members are what a file of capabilities might say, so every name is one.
class BrowserType final : public vbs::Object {
 public:
  explicit BrowserType(std::string agent) : agent_(std::move(agent)) { recognise(); }
  std::string_view typeName() const override { return "IBrowserType"; }

  vbs::MemberId findMember(std::string_view lowerName) override {
    names_.emplace_back(lowerName);
    return static_cast<vbs::MemberId>(names_.size());
  }

  std::vector<vbs::MemberUse> listMembers() const override {
    std::vector<vbs::MemberUse> list;
    for (const std::string_view name : kCapabilities) {
      const std::uint8_t count = name == "value" ? 1 : 0;
      list.push_back({name, count, count, true, false, false});
    }
    return list;
  }

  Value invoke(vbs::MemberId id, CallKind kind, Args args) override {
    if (kind == CallKind::Let || kind == CallKind::Set || id == vbs::kDefaultMember) {
      vbs::throwError(vbs::ErrorCode::NoPropertyOrMethod);
    }
    const std::string& name = names_[static_cast<std::size_t>(id) - 1];
    if (name != "value") return capability(name);
    if (args.size() != 1) vbs::throwError(vbs::ErrorCode::WrongArgumentCount);
    return capability(lowerCase(vbs::toString(args[0]).narrow()));
  }

 private:
  bool says(std::string_view mark) const { return findNoCase(agent_, mark) != agent_.npos; }
  void recognise();
  Value capability(std::string_view name) const;

  std::string agent_;
  std::string_view browser_ = "Default";
  std::string version_ = "0.0";
  std::vector<std::string> names_;  ///< of the members that were asked for, by id - 1
};

void BrowserType::recognise() {
  for (const Row& row : kBrowsers) {
    if (!says(row.mark)) continue;
    browser_ = row.browser;
    const std::size_t at = findNoCase(agent_, row.versionMark);
    if (at == agent_.npos) return;
    const std::string_view rest = std::string_view(agent_).substr(at + row.versionMark.size());
    const std::size_t dot = rest.find('.');
    const std::size_t from = dot == rest.npos ? 0 : dot + 1;  // "major.minor", nothing behind it
    version_ = rest.substr(0, rest.find_first_not_of("0123456789", from));
    return;
  }
}

Value BrowserType::capability(std::string_view name) const {
  const bool isKnown = browser_ != "Default";
  const bool isText = browser_ == "Lynx";
  const bool isOld = browser_ == "IE";
  const auto is = [name](std::string_view wanted) { return name == wanted; };
  const std::size_t dot = version_.find('.');
  if (is("browser")) return Value(browser_);
  if (is("version")) return Value(std::string_view(version_));
  if (is("majorver")) return Value(std::string_view(version_).substr(0, dot));
  if (is("minorver")) {
    return Value(dot == version_.npos ? "0" : std::string_view(version_).substr(dot + 1));
  }
  if (is("parent")) return Value(std::string_view(std::string(browser_) + ' ' + version_));
  if (is("platform")) {
    for (const Platform& platform : kPlatforms) {
      if (says(platform.mark)) return Value(platform.name);
    }
    return Value(kUnknown);
  }
  if (is("crawler")) {
    for (const std::string_view mark : kCrawlerMarks) {
      if (says(mark)) return Value::boolean(true);
    }
    return Value::boolean(false);
  }
  if (is("tables") || is("cookies")) return Value::boolean(isKnown);
  if (is("frames") || is("javascript") || is("css")) return Value::boolean(isKnown && !isText);
  if (is("vbscript") || is("activexcontrols") || is("backgroundsounds")) {
    return Value::boolean(isOld);
  }
  if (is("javaapplets") || is("cdf") || is("beta") || is("win16") || is("aol")) {
    return Value::boolean(false);
  }
  return Value(kUnknown);
}

}  // namespace

const Component kBrowserType{"mswc.browsertype",
                             [](const Services& services) {
                               return Value::adopt(new BrowserType(
                                   services.page ? services.page->header("User-Agent") : ""));
                             },
                             /*isOurs=*/true};

}  // namespace quorvane
