#include "components/mail/encoded_words.h"

#include <algorithm>
#include <optional>

#include "components/mail/quoted_printable.h"
#include "platform/charset.h"
#include "support/base64.h"
#include "support/text.h"

namespace quorvane::mail {

namespace {

struct EncodedWord {
  std::string set;
  std::string bytes;
  std::size_t length = 0;  ///< of the word itself; 0: there is none
};

std::string decodeQ(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const auto escaped = text.front() == '=' ? hexByte(text.substr(1)) : std::nullopt;
    bytes += escaped ? *escaped : text.front() == '_' ? ' ' : text.front();
    text.remove_prefix(escaped ? 3 : 1);
  }
  return bytes;
}

/// The encoded word in front of `text`, which begins with "=?".
EncodedWord readWord(std::string_view text) {
  constexpr std::size_t kLongest = 10'000;  // some write a whole subject as one
  text = text.substr(0, kLongest);
  const std::size_t setEnd = text.find('?', 2);
  if (setEnd == text.npos || setEnd + 2 >= text.size() || text[setEnd + 2] != '?') return {};
  const std::size_t start = setEnd + 3;
  const std::size_t end = text.find("?=", start);
  if (end == text.npos) return {};
  EncodedWord word;
  word.set = text.substr(2, setEnd - 2);
  word.set.resize(std::min(word.set.size(), word.set.find('*')));  // a language stands behind
  const char kind = lowerChar(text[setEnd + 1]);
  if ((kind != 'b' && kind != 'q') || !charset::isKnown(word.set)) return {};
  const std::string_view content = text.substr(start, end - start);
  word.bytes = kind == 'b' ? decodeBase64(content) : decodeQ(content);
  word.length = end + 2;
  return word;
}

std::string textOf(const EncodedWord& word) {
  return charset::encode("utf-8", charset::decode(word.set, word.bytes, word.bytes.size()).text);
}

/// What an encoded word can hold as it is wherever it stands.
bool isPlain(char c) {
  return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '!' || c == '*' ||
         c == '+' || c == '-' || c == '/' || c == ' ';
}

std::string encodeQ(std::string_view character) {
  if (character == " ") return "_";
  return isPlain(character.front()) ? std::string(character) : escapedBytes(character);
}

std::string takeQ(std::string_view& left, std::size_t room) {
  std::string text;
  while (!left.empty()) {
    const std::size_t length = characterLength(left);
    const std::string next = encodeQ(left.substr(0, length));
    if (text.size() + next.size() > room) break;
    text += next;
    left.remove_prefix(length);
  }
  return text;
}

std::string takeBase64(std::string_view& left, std::size_t room) {
  std::size_t taken = 0;
  while (taken < left.size()) {
    const std::size_t length = characterLength(left.substr(taken));
    if (taken + length > room / 4 * 3) break;
    taken += length;
  }
  std::string text = encodeBase64(left.substr(0, taken));
  left.remove_prefix(taken);
  return text;
}

}  // namespace

std::size_t characterLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  return std::min(length, text.size());
}

std::string decodeWords(std::string_view text) {
  std::string out;
  EncodedWord open;  // its text is not yet in `out`
  const auto close = [&] {
    if (open.length > 0) out += textOf(open);
    open = {};
  };
  while (!text.empty()) {
    const std::size_t start = text.find("=?");
    EncodedWord word = start == text.npos ? EncodedWord() : readWord(text.substr(start));
    if (word.length == 0) {
      close();
      const std::size_t end = start == text.npos ? text.size() : start + 2;
      out += text.substr(0, end);
      text.remove_prefix(end);
      continue;
    }
    const std::string_view between = text.substr(0, start);
    const bool follows = open.length > 0 && trimBlanks(between).empty();
    text.remove_prefix(start + word.length);
    if (follows && equalsNoCase(open.set, word.set)) {
      open.bytes += word.bytes;  // some cut characters in two
      continue;
    }
    close();
    if (!follows) out += between;
    open = std::move(word);
  }
  close();
  return out;
}

std::size_t encodedWordLength(std::string_view text) {
  return text.starts_with("=?") ? readWord(text).length : 0;
}

std::string takeEncodedWord(std::string_view& left, std::size_t room) {
  constexpr std::string_view kFront = "=?utf-8?";
  constexpr std::size_t kAround = kFront.size() + 4;  // "Q?" and "?=" too
  room = std::min(room, kLongestEncodedWord);
  if (left.empty() || room < kAround) return {};
  // One byte becomes one or three in the first form, three become four in the other.
  const std::string_view near = left.substr(0, room);
  const auto plain = static_cast<std::size_t>(std::count_if(near.begin(), near.end(), isPlain));
  const bool isReadable = (near.size() - plain) * 6 <= near.size();
  const std::string content =
      isReadable ? takeQ(left, room - kAround) : takeBase64(left, room - kAround);
  if (content.empty()) return {};
  return std::string(kFront) + (isReadable ? "Q?" : "B?") + content + "?=";
}

}  // namespace quorvane::mail
