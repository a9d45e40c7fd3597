#include "components/mail/header_line.h"

#include <algorithm>

#include "components/mail/encoded_words.h"
#include "components/mail/quoted_printable.h"
#include "support/text.h"

namespace quorvane::mail {

namespace {

constexpr std::size_t kLine = 76;
constexpr std::size_t kLongestWord = 900;  // no line may have more than 998 characters

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

bool isLetterOrDigit(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Characters that both a name and a parameter's value have without quotes, besides letters.
bool isTokenCharacter(char c) {
  return isLetterOrDigit(c) ||
         (c != '\0' && std::string_view("!#$&+-^_`{|}~").find(c) != std::string_view::npos);
}

std::string quoted(std::string_view text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + '"';
}

/// One blank-separated word and the blanks in front of it.
struct Word {
  std::size_t blanks = 0;
  std::string_view text;
};

Word takeWord(std::string_view& left) {
  Word word;
  word.blanks = std::min(left.find_first_not_of(' '), left.size());
  left.remove_prefix(word.blanks);
  word.text = left.substr(0, left.find(' '));
  left.remove_prefix(word.text.size());
  return word;
}

bool wantsEncoding(std::string_view word) {
  return !isAscii(word) || word.size() > kLongestWord;
}

std::string percentEncoded(std::string_view character) {
  const char c = character.front();
  const bool isPlain = isLetterOrDigit(c) || c == '-' || c == '.' || c == '_';
  return isPlain ? std::string(character) : escapedBytes(character, '%');
}

/// The front of `left` in at most `room` characters, taken from there.
std::string takePercentEncoded(std::string_view& left, std::size_t room) {
  std::string piece;
  while (!left.empty()) {
    const std::size_t length = characterLength(left);
    const std::string next = percentEncoded(left.substr(0, length));
    if (piece.size() + next.size() > room) break;
    piece += next;
    left.remove_prefix(length);
  }
  return piece;
}

}  // namespace

HeaderLine::HeaderLine(std::string& out, std::string_view name)
    : out_(out), column_(name.size() + 1) {
  out_ += name;
  out_ += ':';
}

HeaderLine::~HeaderLine() {
  out_ += isEmpty_ ? " \r\n" : "\r\n";
}

void HeaderLine::put(std::size_t blanks, std::string_view word) {
  if (!isEmpty_ && column_ + blanks + word.size() > kLine) {
    out_ += "\r\n";
    column_ = 0;
  }
  isEmpty_ = false;
  blanks = std::min(blanks, kLine);
  out_.append(blanks, ' ');
  out_ += word;
  column_ += blanks + word.size();
}

void HeaderLine::encoded(std::size_t blanks, std::string_view text) {
  while (!text.empty()) {
    const std::size_t used = column_ + blanks;
    std::string word = takeEncodedWord(text, used < kLine ? kLine - used : 0);
    if (word.empty()) word = takeEncodedWord(text, kLongestEncodedWord);
    put(blanks, word);
    blanks = 1;
  }
}

void HeaderLine::word(std::string_view ascii) {
  put(1, ascii);
}

void HeaderLine::text(std::string_view text) {
  std::string_view left = trimBlanks(text);
  bool isFirst = true;
  while (!left.empty()) {
    const Word word = takeWord(left);
    const std::size_t blanks = isFirst ? 1 : word.blanks;
    isFirst = false;
    if (!wantsEncoding(word.text)) {
      put(blanks, word.text);
      continue;
    }
    // Blanks between encoded words mean nothing, so those that follow go into the same.
    const char* end = word.text.data() + word.text.size();
    for (std::string_view ahead = left; !ahead.empty();) {
      const Word next = takeWord(ahead);
      if (!wantsEncoding(next.text)) break;
      end = next.text.data() + next.text.size();
      left = ahead;
    }
    encoded(blanks, {word.text.data(), static_cast<std::size_t>(end - word.text.data())});
  }
}

void HeaderLine::phrase(std::string_view name) {
  name = trimBlanks(name);
  if (name.empty()) return;
  if (wantsEncoding(name)) return encoded(1, name);
  const bool isPlain = std::all_of(name.begin(), name.end(), [](char c) {
    return isTokenCharacter(c) || c == ' ' || c == '\'';
  });
  const std::string written = isPlain ? std::string(name) : quoted(name);
  std::string_view left = written;
  for (bool isFirst = true; !left.empty(); isFirst = false) {
    const Word word = takeWord(left);
    put(word.blanks + (isFirst ? 1 : 0), word.text);
  }
}

void HeaderLine::parameter(std::string_view name, std::string_view value) {
  constexpr std::size_t kLongest = 200;
  const std::string front(name);
  if (isAscii(value) && value.size() <= kLongest) {
    const bool isToken = !value.empty() && std::all_of(value.begin(), value.end(), [](char c) {
      return isTokenCharacter(c) || c == '.';
    });
    return word(front + '=' + (isToken ? std::string(value) : quoted(value)));
  }
  constexpr std::string_view kSet = "utf-8''";
  constexpr std::size_t kNumber = 8;  // "*123*=" and ";", and the blank in front
  const std::size_t room = kLine - front.size() - kNumber - kSet.size();
  std::string_view left = value;
  std::string piece = std::string(kSet) + takePercentEncoded(left, room);
  if (left.empty()) return word(front + "*=" + piece);
  for (std::size_t number = 0;; ++number) {
    std::string written = front + '*' + std::to_string(number) + "*=";
    written += piece;
    if (left.empty()) return word(written);
    word(written + ';');
    piece = takePercentEncoded(left, room);
  }
}

}  // namespace quorvane::mail
