#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace quorvane {

/// A fresh folder that goes away with the object.
class TempFolder {
 public:
  TempFolder() {
    static std::atomic<unsigned> count{0};
    std::random_device seed;
    path_ = std::filesystem::temp_directory_path() /
            ("quorvane-test-" + std::to_string(seed()) + "-" + std::to_string(++count));
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string path() const { return path_.string(); }
  std::string operator/(std::string_view name) const { return (path_ / name).string(); }

  void write(std::string_view name, std::string_view bytes) const {
    std::ofstream(*this / name, std::ios::binary) << bytes;
  }
  std::string read(std::string_view name) const {
    std::ifstream file(*this / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quorvane
