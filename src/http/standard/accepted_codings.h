#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "support/content_coding.h"

namespace quorvane {

/// What a client takes by its Accept-Encoding, RFC 9110 12.5.3.
class AcceptedCodings {
 public:
  /// Of a client that says nothing: content as it is.
  AcceptedCodings() = default;

  /// The field's value, of several lines joined by commas. What is not written as it should be
  /// names nothing, and a coding whose quality makes no sense is not taken.
  static AcceptedCodings read(std::string_view field);

  bool accepts(ContentCoding coding) const { return weightOf(coding) > 0; }

  /// The one that the client likes best; of equals the first. Nothing when it takes none.
  std::optional<ContentCoding> best(std::span<const ContentCoding> offered) const;

 private:
  /// Thousandths, doubled: content as it is counts 1 with those who don't speak of it, so that
  /// everything else that they name comes before it.
  static constexpr int kUnnamedIdentity = 1;

  int weightOf(ContentCoding coding) const { return weights_[static_cast<std::size_t>(coding)]; }

  std::array<int, content_coding::kAll.size()> weights_{kUnnamedIdentity};
};

}  // namespace quorvane
