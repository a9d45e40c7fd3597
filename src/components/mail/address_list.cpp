#include "components/mail/address_list.h"

#include <algorithm>

#include "components/mail/ascii_domain.h"
#include "components/mail/encoded_words.h"
#include "components/mail/header_text.h"
#include "platform/charset.h"
#include "support/text.h"
#include "vbscript/values/time_check.h"

namespace quorvane::mail {

namespace {

constexpr std::size_t kLongestName = 1'000;  ///< in quotes or parentheses

/// Reads a list once from front to end.
class ListReader {
 public:
  explicit ListReader(std::string_view list) : left_(list) {}

  std::vector<Address> read() {
    while (!left_.empty()) step();
    endEntry('\0');
    endSurname();
    return std::move(addresses_);
  }

 private:
  /// A piece without blanks. Its text is what it means in a name, its source what it is in an
  /// address.
  struct Word {
    std::string text;
    std::string source;
  };

  void step() {
    switch (left_.front()) {
      case ' ':
        endWord();
        return skip(1);
      case '"':
        return quoted();
      case '(':
        return comment();
      case '<':
        return inBrackets();
      case ',':
      case ';':
        endEntry(left_.front());
        return skip(1);
      case ':':
        if (hasAddress_) return plain(1);
        startGroup();
        return skip(1);
      case '\\':
        if (left_.size() > 1) skip(1);
        return plain(1);
      default:
        if (const std::size_t length = word_.source.empty() ? encodedWordLength(left_) : 0) {
          return plain(length);
        }
        return plain(std::min(left_.find_first_of(" \"(<,;:\\"), left_.size()));
    }
  }

  void skip(std::size_t count) { left_.remove_prefix(count); }

  void plain(std::size_t count) {
    word_.text += left_.substr(0, count);
    word_.source += left_.substr(0, count);
    hasAddress_ = hasAddress_ || left_.substr(0, count).find('@') != left_.npos;
    skip(count);
  }

  /// A quotation mark that none follows means nothing.
  void quoted() {
    const std::string_view near = left_.substr(0, kLongestName);
    std::string text;
    std::size_t at = 1;
    for (; at < near.size() && near[at] != '"'; ++at) {
      if (near[at] == '\\' && at + 1 < near.size()) ++at;
      text += near[at];
    }
    if (at >= near.size()) return skip(1);
    hasAddress_ = hasAddress_ || text.find('@') != text.npos;
    word_.text += text;
    word_.source += left_.substr(0, at + 1);
    skip(at + 1);
  }

  void comment() {
    const std::string_view near = left_.substr(0, kLongestName);
    std::size_t depth = 0;
    std::size_t at = 0;
    for (; at < near.size(); ++at) {
      if (near[at] == '(') ++depth;
      if (near[at] == ')' && --depth == 0) break;
    }
    if (at == near.size()) return plain(1);
    endWord();
    comment_ = left_.substr(1, at - 1);
    words_.push_back({std::string(left_.substr(0, at + 1)), {}});
    skip(at + 1);
  }

  void inBrackets() {
    endWord();
    std::size_t end = left_.find_first_of("<>", 1);
    const bool isClosed = end != left_.npos && left_[end] == '>';
    if (!isClosed) end = std::min(left_.find_first_of(",;<", 1), left_.size());
    std::string_view address = trimBlanks(left_.substr(1, end - 1));
    skip(end + (isClosed ? 1 : 0));
    if (address.starts_with('@')) {  // the way that it is to take, which nobody follows
      const std::size_t colon = address.find(':');
      address.remove_prefix(colon == address.npos ? address.size() : colon + 1);
    }
    const std::string name = textOf(words_);
    add(surname_.empty() || name.empty() ? surname_ + name : surname_ + ", " + name, address);
    surname_.clear();
    startEntry();
    isBehindBrackets_ = true;
  }

  void endWord() {
    if (!word_.source.empty() || !word_.text.empty()) words_.push_back(std::move(word_));
    word_ = {};
  }

  void startGroup() {
    endWord();
    startEntry();
  }

  void startEntry() {
    words_.clear();
    comment_.clear();
    hasAddress_ = false;
    isBehindBrackets_ = false;
  }

  /// What came before a comma was a name's first half, or an address without a host.
  void endSurname() {
    if (surname_.find(' ') == surname_.npos) add({}, surname_);
    surname_.clear();
  }

  void endEntry(char separator) {
    endWord();
    const bool isName = !hasAddress_ && !isBehindBrackets_ && !words_.empty();
    if (isName || hasAddress_) endSurname();
    if (hasAddress_) addLoose();
    if (isName) surname_ = textOf(words_);
    if (isName && separator != ',') endSurname();
    startEntry();
  }

  /// Addresses without brackets, each perhaps behind a name.
  void addLoose() {
    std::vector<Word> name;
    for (const Word& word : words_) {
      if (isAddress(word)) {
        add(name.empty() ? comment_ : textOf(name), word.source);
        name.clear();
      } else if (!word.source.empty()) {
        name.push_back(word);
      }
    }
  }

  static bool isAddress(const Word& word) { return word.source.find('@') != std::string::npos; }

  static std::string textOf(const std::vector<Word>& words) {
    std::string text;
    for (const Word& word : words) {
      if (!text.empty()) text += ' ';
      text += word.text;
    }
    return text;
  }

  void add(const std::string& name, std::string_view address) {
    if (address.empty()) return;
    addresses_.push_back({vbs::String::fromUtf8(name), vbs::String::fromUtf8(address)});
  }

  std::string_view left_;
  std::vector<Address> addresses_;
  std::vector<Word> words_;  ///< of the present entry
  Word word_;                ///< the present one
  std::string comment_;
  std::string surname_;      ///< the entry before, which may be the first half of a name
  bool hasAddress_ = false;  ///< there is an "@" in the present entry
  bool isBehindBrackets_ = false;
};

}  // namespace

std::vector<Address> addressesIn(const vbs::String& text) {
  const std::string list = oneLine(charset::encode("utf-8", readAs(text, "utf-8")));
  vbs::countWork(list.size());
  return ListReader(list).read();
}

bool isPlainAddress(const std::string& address) {
  constexpr std::size_t kLongest = 900;
  return !address.empty() && address.size() <= kLongest &&
         std::all_of(address.begin(), address.end(), [](char c) {
           return static_cast<unsigned char>(c) > ' ' && c != 0x7F && c != '<' && c != '>';
         });
}

std::string addressText(const Address& entry) {
  std::string text = entry.address.utf8();
  if (!isPlainAddress(text)) return {};
  const std::size_t at = text.rfind('@');
  if (at == text.npos) return text;
  return text.substr(0, at + 1) + asciiDomain(std::string_view(text).substr(at + 1));
}

}  // namespace quorvane::mail
