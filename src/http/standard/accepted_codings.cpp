#include "http/standard/accepted_codings.h"

#include <algorithm>

#include "http/standard/grammar.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr int kUnnamed = -1;

/// "0.25" as 250; 0 for what is no quality.
int thousandthsOf(std::string_view text) {
  const std::string_view decimals = text.substr(std::min<std::size_t>(text.size(), 2));
  const bool isQuality = !text.empty() && (text[0] == '0' || text[0] == '1') &&
                         (text.size() == 1 || text[1] == '.') && decimals.size() <= 3 &&
                         std::all_of(decimals.begin(), decimals.end(), isDigit);
  if (!isQuality) return 0;
  int number = text[0] - '0';
  for (std::size_t i = 0; i < 3; ++i) {
    number = number * 10 + (i < decimals.size() ? decimals[i] - '0' : 0);
  }
  return number <= 1000 ? number : 0;
}

/// Of the part behind a coding's name.
int weightIn(std::string_view parameters) {
  parameters = standard_grammar::trimmed(parameters);
  if (parameters.empty()) return 1000;
  if (parameters[0] != ';') return 0;
  parameters = standard_grammar::trimmed(parameters.substr(1));
  return startsWithNoCase(parameters, "q=") ? thousandthsOf(parameters.substr(2)) : 0;
}

bool isCalled(std::string_view name, ContentCoding coding) {
  return equalsNoCase(name, content_coding::nameOf(coding)) ||
         (coding == ContentCoding::Gzip && equalsNoCase(name, "x-gzip"));
}

}  // namespace

AcceptedCodings AcceptedCodings::read(std::string_view field) {
  AcceptedCodings accepted;
  accepted.weights_.fill(kUnnamed);
  int others = kUnnamed;
  standard_grammar::forEachElement(field, [&](std::string_view element) {
    const std::size_t end = std::min(element.find_first_of("; \t"), element.size());
    const std::string_view name = element.substr(0, end);
    const int weight = 2 * weightIn(element.substr(end));
    if (name == "*" && others == kUnnamed) others = weight;
    for (const ContentCoding coding : content_coding::kAll) {
      int& known = accepted.weights_[static_cast<std::size_t>(coding)];
      if (known == kUnnamed && isCalled(name, coding)) known = weight;
    }
  });
  for (const ContentCoding coding : content_coding::kAll) {
    int& weight = accepted.weights_[static_cast<std::size_t>(coding)];
    if (weight != kUnnamed) continue;
    if (others != kUnnamed) {
      weight = others;
    } else {
      weight = coding == ContentCoding::Identity ? kUnnamedIdentity : 0;
    }
  }
  return accepted;
}

std::optional<ContentCoding> AcceptedCodings::best(std::span<const ContentCoding> offered) const {
  std::optional<ContentCoding> best;
  for (const ContentCoding coding : offered) {
    if (weightOf(coding) > (best ? weightOf(*best) : 0)) best = coding;
  }
  return best;
}

}  // namespace quorvane
