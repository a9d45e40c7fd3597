#pragma once

#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

using Words = std::span<const std::string_view>;

/// Of scripts and pages, of requests, of settings, of files of bytes, of the control channel.
Words scriptWords();
Words requestWords();
Words settingsWords();
Words byteWords();
Words sqlWords();
Words controlWords();
Words proxyWords();
Words xmlWords();  ///< and of expressions that select nodes

/// Makes new texts out of old ones by changes that keep most of a text whole, with words of their
/// language put in. The same seed gives the same texts on every machine.
class Mutations {
 public:
  Mutations(std::vector<std::string> corpus, Words words, std::uint64_t seed)
      : corpus_(std::move(corpus)), words_(words), random_(seed) {}

  std::string next();

 private:
  std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }
  std::string_view anyWord() { return words_[below(words_.size())]; }
  const std::string& any() { return corpus_[below(corpus_.size())]; }
  void change(std::string& text);
  std::string piece(const std::string& text);

  std::vector<std::string> corpus_;
  Words words_;
  std::mt19937_64 random_;
};

}  // namespace quorvane
