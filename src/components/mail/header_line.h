#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane::mail {

/// Writes one header line "Name: ...", folded in front of blanks so that what is written has at
/// most 76 characters a line, but where a word alone is longer. Texts are UTF-8 without control
/// characters. What is not ASCII becomes encoded words.
class HeaderLine {
 public:
  /// `out` is written to until the line's end; it must live that long.
  HeaderLine(std::string& out, std::string_view name);
  HeaderLine(const HeaderLine&) = delete;
  HeaderLine& operator=(const HeaderLine&) = delete;
  ~HeaderLine();

  void word(std::string_view ascii);   ///< a blank and the word as it is
  void text(std::string_view text);    ///< free text, as of a subject
  void phrase(std::string_view name);  ///< the name in front of an address

  /// "name=value". One that is not ASCII or very long is written as RFC 2231 has it.
  void parameter(std::string_view name, std::string_view value);

 private:
  void put(std::size_t blanks, std::string_view word);
  void encoded(std::size_t blanks, std::string_view text);

  std::string& out_;
  std::size_t column_;
  bool isEmpty_ = true;
};

}  // namespace quorvane::mail
