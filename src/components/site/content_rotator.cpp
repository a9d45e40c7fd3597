#include "components/site/content_rotator.h"

#include <string>
#include <string_view>
#include <vector>

#include "components/page_context.h"
#include "components/site/site_file.h"
#include "components/site/weighted_choice.h"
#include "platform/services.h"
#include "support/text.h"
#include "vbscript/values/object.h"

namespace quorvane {

using vbs::Args;
using vbs::Value;

namespace {

constexpr std::string_view kMark = "%%";

struct Piece {
  std::string text;
  std::uint32_t weight = 1;
};

/// "%% #weight // remark", where both may be missing.
std::uint32_t weightOf(std::string_view line) {
  constexpr std::int32_t kMost = 65535;
  const std::size_t at = line.find('#');
  if (at == line.npos || line.find("//") < at) return 1;
  const std::string_view rest = line.substr(at + 1);
  const auto weight = numericLong(rest.substr(0, rest.find_first_not_of("0123456789")));
  return weight && *weight >= 0 && *weight <= kMost ? static_cast<std::uint32_t>(*weight) : 1;
}

/// What stands in front of the first mark belongs to none.
std::vector<Piece> piecesOf(std::string_view file) {
  std::vector<Piece> pieces;
  for (const std::string_view line : split(file, '\n')) {
    if (line.starts_with(kMark)) {
      pieces.push_back({{}, weightOf(line)});
    } else if (!pieces.empty()) {
      pieces.back().text += line;
      pieces.back().text += '\n';
    }
  }
  return pieces;
}

class ContentRotator final : public vbs::NativeObject<ContentRotator> {
 public:
  explicit ContentRotator(const Services& services) : services_(services) {}
  std::string_view typeName() const override { return "IContentRotator"; }

  static std::span<const vbs::Member<ContentRotator>> members() {
    static constexpr vbs::Member<ContentRotator> kMembers[] = {
        {"choosecontent", 1, 1, &ContentRotator::choose},
        {"getallcontent", 1, 1, &ContentRotator::writeAll},
    };
    return kMembers;
  }

 private:
  Value choose(Args args) {
    const auto pieces = piecesOf(readSiteFile(services_, args[0]));
    const Piece* piece = chooseByWeight(pieces, services_.random);
    return Value(piece ? std::string_view(piece->text) : std::string_view());
  }

  Value writeAll(Args args) {
    if (!services_.page) vbs::throwError(vbs::ErrorCode::ObjectNotSet);
    constexpr std::string_view kBetween = "<hr>";
    std::string all(kBetween);
    for (const Piece& piece : piecesOf(readSiteFile(services_, args[0]))) {
      (all += piece.text) += kBetween;
    }
    services_.page->write(all);
    return {};
  }

  const Services& services_;
};

}  // namespace

const Component kContentRotator{
    "mswc.contentrotator",
    [](const Services& services) { return Value::adopt(new ContentRotator(services)); },
    /*isOurs=*/true};

}  // namespace quorvane
