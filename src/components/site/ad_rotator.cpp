#include "components/site/ad_rotator.h"

#include <string>
#include <string_view>
#include <vector>

#include "components/site/site_file.h"
#include "components/site/weighted_choice.h"
#include "platform/services.h"
#include "support/clsWEncode.h"
#include "support/text.h"
#include "vbscript/values/convert.h"
#include "vbscript/values/object.h"

namespace quorvane {

using vbs::Args;
using vbs::CallKind;
using vbs::Value;

namespace {

constexpr std::uint32_t kMostWeight = 10'000;

struct Banner {
  std::string_view picture;
  std::string_view target;  ///< "-": none
  std::string_view text;
  std::uint32_t weight = 0;
};

/// What a schedule file says. Views last as long as its text.
struct Schedule {
  std::string_view redirect;
  std::string_view width = "440";
  std::string_view height = "60";
  std::string_view border = "1";
  std::vector<Banner> banners;
};

std::string_view trimmedLine(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return trimBlanks(line);
}

void takeOption(std::string_view line, Schedule& schedule) {
  const std::size_t blank = line.find(' ');
  if (blank == line.npos) return;
  const std::string_view value = trimBlanks(line.substr(blank));
  const std::string_view name = line.substr(0, blank);
  if (equalsNoCase(name, "REDIRECT")) schedule.redirect = value;
  if (equalsNoCase(name, "WIDTH")) schedule.width = value;
  if (equalsNoCase(name, "HEIGHT")) schedule.height = value;
  if (equalsNoCase(name, "BORDER")) schedule.border = value;
}

/// Options up to a line with an asterisk, then four lines a banner.
Schedule scheduleOf(std::string_view file) {
  Schedule schedule;
  std::vector<std::string_view> lines;
  bool inBanners = false;
  for (const std::string_view raw : split(file, '\n')) {
    const std::string_view line = trimmedLine(raw);
    if (line == "*") {
      inBanners = true;
    } else if (!inBanners) {
      takeOption(line, schedule);
    } else if (!line.empty()) {
      lines.push_back(line);
    }
  }
  for (std::size_t i = 0; i + 3 < lines.size(); i += 4) {
    const auto weight = numericLong(lines[i + 3]);
    const bool fits = weight && *weight >= 0 && *weight <= static_cast<std::int32_t>(kMostWeight);
    schedule.banners.push_back(
        {lines[i], lines[i + 1], lines[i + 2], fits ? static_cast<std::uint32_t>(*weight) : 0});
  }
  return schedule;
}

std::string quoted(std::string_view text) {
  return '"' + replaceAll(text, "\"", "&quot;") + '"';
}

class AdRotator final : public vbs::NativeObject<AdRotator> {
 public:
  explicit AdRotator(const Services& services) : services_(services) {}
  std::string_view typeName() const override { return "IAdRotator"; }

  static std::span<const vbs::Member<AdRotator>> members() {
    using Self = AdRotator;
    static constexpr vbs::Member<Self> kMembers[] = {
        {"getadvertisement", 1, 1, &Self::getAdvertisement},
        {"border", 0, 0, &Self::getBorder, &Self::putBorder},
        {"clickable", 0, 0, &Self::getClickable, &Self::putClickable},
        {"targetframe", 0, 0, &Self::getTargetFrame, &Self::putTargetFrame},
    };
    return kMembers;
  }

 private:
  Value getAdvertisement(Args args);
  std::string address(const Schedule& schedule, const Banner& banner) const;

  Value getBorder(Args) { return border_; }
  void putBorder(Args args, CallKind) { border_ = Value::longInt(vbs::toLong(args[0])); }
  Value getClickable(Args) { return Value::boolean(clickable_); }
  void putClickable(Args args, CallKind) { clickable_ = vbs::toBoolean(args[0]); }
  Value getTargetFrame(Args) { return targetFrame_; }
  void putTargetFrame(Args args, CallKind) { targetFrame_ = vbs::toString(args[0]); }

  const Services& services_;
  Value border_;  ///< Empty: the schedule's
  bool clickable_ = true;
  vbs::String targetFrame_;
};

/// Through the site's page that counts, if there is one.
std::string AdRotator::address(const Schedule& schedule, const Banner& banner) const {
  if (schedule.redirect.empty()) return std::string(banner.target);
  const clsWEncode encoder;
  return std::string(schedule.redirect) +
         "?url=" + encoder.afEncodeURL(std::string(banner.target)) +
         "&image=" + encoder.afEncodeURL(std::string(banner.picture));
}

Value AdRotator::getAdvertisement(Args args) {
  const std::string file = readSiteFile(services_, args[0]);
  const Schedule schedule = scheduleOf(file);
  const Banner* banner = chooseByWeight(schedule.banners, services_.random);
  if (!banner) return Value("");
  const std::string border =
      border_.isEmpty() ? std::string(schedule.border) : vbs::toString(border_).narrow();
  const std::string picture = "<IMG SRC=" + quoted(banner->picture) +
                              " ALT=" + quoted(banner->text) + " WIDTH=" + quoted(schedule.width) +
                              " HEIGHT=" + quoted(schedule.height) + " BORDER=" + quoted(border) +
                              '>';
  if (!clickable_ || banner->target == "-") return Value(std::string_view(picture));
  const std::string frame =
      targetFrame_.empty() ? std::string() : " TARGET=" + quoted(targetFrame_.narrow());
  const std::string whole =
      "<A HREF=" + quoted(address(schedule, *banner)) + frame + '>' + picture + "</A>";
  return Value(std::string_view(whole));
}

}  // namespace

const Component kAdRotator{
    "mswc.adrotator",
    [](const Services& services) { return Value::adopt(new AdRotator(services)); },
    /*isOurs=*/true};

}  // namespace quorvane
