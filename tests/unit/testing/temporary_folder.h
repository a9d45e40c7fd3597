#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace quorvane {

/// A fresh folder that goes with its owner.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    std::filesystem::path path;
    do {
      path = std::filesystem::temp_directory_path() / ("quorvane-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path));  // false when somebody else has it
    path_ = path.generic_string();
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(std::string_view name) const { return path_ + '/' + std::string(name); }

  void write(std::string_view name, std::string_view bytes) const {
    std::ofstream(*this / name, std::ios::binary) << bytes;
  }
  std::string read(std::string_view name) const {
    std::ifstream file(*this / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
};

}  // namespace quorvane
