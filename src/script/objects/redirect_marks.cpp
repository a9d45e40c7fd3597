#include "script/objects/redirect_marks.h"

#include "support/text.h"

namespace quorvane {

namespace redirect_marks {

std::string_view markOf(RedirectedPage::Kind kind) {
  using namespace std::string_view_literals;
  return kind == RedirectedPage::Kind::Url ? "\0[$REDIR$]\0"sv : "\0[$REDIRTO$]\0"sv;
}

std::optional<RedirectedPage> recognise(std::string_view output, bool recorded) {
  for (const auto kind : {RedirectedPage::Kind::Url, RedirectedPage::Kind::LocalFile}) {
    const std::string_view mark = markOf(kind);
    if (!output.starts_with(mark)) continue;
    return RedirectedPage{kind, std::string(trimBlanks(output.substr(mark.size()))), recorded};
  }
  return std::nullopt;
}

}  // namespace redirect_marks

}  // namespace quorvane
