#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quorvane {

/// A path that lies below a root folder, whatever texts it was made of: nothing else in the server
/// keeps a path inside a folder. It is about spelling alone; whether the file is there, and where
/// a symbolic link in it leads, is for the file system to tell.
///
/// Both separators count as such. Empty parts and "." parts are dropped, so the root itself may be
/// what is named. Of what is refused, nothing comes back. Takes time in proportion to the texts.
class RootedPath {
 public:
  /// `path` taken literally below `root`, a separator in front or not. Refused are ".." parts and
  /// what would leave the folder on other systems than this one (a colon: a drive, or a stream of
  /// a file) or end the path early (NUL).
  static std::optional<RootedPath> literal(std::string_view root, std::string_view path);

  /// For paths that strangers choose: literal, and every part must be a plain name on every
  /// system. Refused as well are device names, with any extension behind them; parts of dots and
  /// blanks, which some systems take for ".."; control characters.
  static std::optional<RootedPath> portable(std::string_view root, std::string_view path);

  /// `path` as seen from `folder`, which may lie anywhere: ".." parts lead upwards. Refused when it
  /// comes to something that is not below `root` (or is, but not as a literal path).
  static std::optional<RootedPath> resolved(std::string_view root, std::string_view folder,
                                            std::string_view path);

  /// A path as a page in `folder` writes it: with a separator in front it is seen from the root,
  /// else from the folder.
  static std::optional<RootedPath> ofPage(std::string_view root, std::string_view folder,
                                          std::string_view path);

  /// The whole path: the root, a separator, the rest. Separators below the root are the system's.
  const std::string& text() const& { return text_; }
  std::string text() && { return std::move(text_); }

  /// The root with a separator at its end.
  std::string_view root() const { return std::string_view(text_).substr(0, rootLength_); }

  /// What stands below the root, no separator at either end; empty for the root itself.
  std::string_view relative() const { return std::string_view(text_).substr(rootLength_); }

 private:
  RootedPath(std::string_view root, std::size_t more);  ///< with room for so many more characters
  void append(std::string_view part);

  std::string text_;
  std::size_t rootLength_ = 0;
};

}  // namespace quorvane
