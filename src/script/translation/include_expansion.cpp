#include "script/translation/include_expansion.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "script/translation/text_origins.h"
#include "support/files.h"
#include "support/text.h"

namespace quorvane {

namespace {

constexpr std::string_view kOpen = "<!--";
constexpr std::string_view kClose = "-->";
constexpr std::string_view kLineEnds = "\r\n";  ///< each of them alone, or both

/// What one page may take before it counts as including itself without end.
constexpr std::size_t kMostIncludes = 10'000;
constexpr std::size_t kMostBytesRead = std::size_t{64} << 20;

/// Text that is consumed at its front and grows there. Prepending reuses the room of what was
/// consumed, so that replacing directives one after another never moves the rest of the page.
class PendingText {
 public:
  explicit PendingText(std::string text) : text_(std::move(text)) {}

  std::string_view view() const { return std::string_view(text_).substr(front_); }
  void consume(std::size_t count) { front_ += count; }
  void prepend(std::string_view added) {
    if (added.size() > front_) makeRoom(added.size());
    front_ -= added.size();
    std::copy(added.begin(), added.end(), text_.begin() + static_cast<std::ptrdiff_t>(front_));
  }

 private:
  void makeRoom(std::size_t wanted) {
    const std::size_t room = wanted + text_.size();
    std::string larger;
    larger.reserve(room + text_.size());
    larger.append(room, '\0').append(view());
    text_ = std::move(larger);
    front_ = room;
  }

  std::string text_;
  std::size_t front_ = 0;
};

std::string lowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

/// The file that the comment names, or nothing when it is no include directive.
std::optional<std::string> includedName(std::string_view comment) {
  constexpr std::string_view kKeyword = "#include";
  const std::string lower = lowerAscii(comment);
  const std::size_t keyword = lower.find("#include ");
  if (keyword == std::string::npos) return std::nullopt;
  const std::string_view directive =
      trimBlanks(std::string_view(lower).substr(keyword + kKeyword.size()));

  const std::size_t file = directive.find("file");
  if (file == std::string_view::npos) return std::nullopt;
  const std::size_t equals = directive.find('=', file);
  const std::size_t quote = directive.find('"', file);
  if (equals == std::string_view::npos || quote == std::string_view::npos || quote < equals) {
    return std::nullopt;
  }
  const std::size_t end = directive.find('"', quote + 1);
  if (end == std::string_view::npos) return std::nullopt;
  return std::string(trimBlanks(directive.substr(quote + 1, end - quote - 1)));
}

/// Counts what expansion has read, to notice files that include themselves.
class Budget {
 public:
  bool take(std::size_t bytes) {
    bytes_ += bytes;
    return ++includes_ <= kMostIncludes && bytes_ <= kMostBytesRead;
  }

 private:
  std::size_t includes_ = 0;
  std::size_t bytes_ = 0;
};

/// Where the next "<!--" is. Looks for its second character, as the first is all over a page.
std::size_t findComment(std::string_view text) {
  for (std::size_t mark = text.find('!'); mark != std::string_view::npos;
       mark = text.find('!', mark + 1)) {
    if (mark > 0 && text.substr(mark - 1, kOpen.size()) == kOpen) return mark - 1;
  }
  return std::string_view::npos;
}

/// Where the line after the one at `from` begins, or npos.
std::size_t nextLine(std::string_view text, std::size_t from) {
  const std::size_t end = text.find_first_of(kLineEnds, from);
  if (end == std::string_view::npos) return end;
  return end + (text.substr(end, kLineEnds.size()) == kLineEnds ? 2 : 1);
}

}  // namespace

std::string expandIncludes(std::string source, const IncludeReader& read, TextOrigins* origins) {
  if (findComment(source) == std::string::npos) return source;

  PendingText pending(std::move(source));
  std::string done;
  Budget budget;
  while (true) {
    const std::string_view text = pending.view();
    const std::size_t open = findComment(text);
    if (open == std::string_view::npos) break;
    const std::string_view rest = text.substr(open + kOpen.size());
    const std::size_t close = rest.find(kClose);
    if (close == std::string_view::npos) break;
    const auto name = includedName(rest.substr(0, close));
    if (!name) break;

    // The rest of the directive's line goes with it. On a page's last line only the character
    // behind the "<!--" does; what is left of the directive then shows up as text.
    const std::size_t next = nextLine(rest, close);
    const bool lastLine = next == std::string_view::npos;
    const std::size_t following = lastLine ? 1 : next;

    const auto included = read(*name);
    if (!included) return "Include file not found '" + *name + "'";
    if (!budget.take(included->text.size() + (lastLine ? rest.size() : following))) {
      return "Too many include files at '" + *name + "'";
    }

    // The end of what stands before may form a new "<!--" with the included text.
    const std::size_t kept = std::min(open, kOpen.size() - 1);
    done.append(text.substr(0, open - kept));
    const std::string added = std::string(text.substr(open - kept, kept)).append(included->text);
    if (origins) {
      origins->pass(open - kept);
      origins->replace(kept, kOpen.size() + following, *included);
    }
    pending.consume(open + kOpen.size() + following);
    pending.prepend(added);
  }
  return done.append(pending.view());
}

std::optional<IncludedFile> readInclude(const Files& files, std::string_view root,
                                        std::string_view folder, std::string_view name,
                                        bool followLinks) {
  auto path = RootedPath::resolved(root, folder, name);
  if (!path) path = RootedPath::resolved(folder, folder, name);
  auto found = path ? findBelow(files, *path, followLinks) : std::nullopt;
  if (!found) return std::nullopt;
  std::string text = files.readAll(*found).value_or("");
  return IncludedFile{std::move(*found), std::move(text)};
}

}  // namespace quorvane
