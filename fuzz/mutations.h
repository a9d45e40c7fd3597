#pragma once

#include <random>
#include <string>
#include <vector>

/// Makes new scripts out of old ones by changes that keep most of a script whole. The same seed
/// gives the same scripts on every machine.
class Mutations {
 public:
  Mutations(std::vector<std::string> corpus, std::uint64_t seed)
      : corpus_(std::move(corpus)), random_(seed) {}

  std::string next();

 private:
  std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }
  const std::string& any() { return corpus_[below(corpus_.size())]; }
  void change(std::string& text);
  std::string piece(const std::string& text);

  std::vector<std::string> corpus_;
  std::mt19937_64 random_;
};
