#include "qvscript/source_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace quorvane::qvscript {

namespace fs = std::filesystem;

SourceFile readSource(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) return {{}, "there is no file " + path};
  if (fs::is_directory(status)) return {{}, path + " is a folder"};
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return {{}, path + " cannot be read"};
  SourceFile source{{std::istreambuf_iterator<char>(stream), {}}, {}};
  if (stream.bad()) source.complaint = path + " cannot be read";
  return source;
}

std::string absolutePath(const std::string& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  return error ? path : absolute.lexically_normal().string();
}

std::string describe(const std::string& file, const vbs::ErrorReport& error) {
  const std::string kind = !error.source.empty()  ? error.source
                           : error.isCompileError ? "compilation error"
                                                  : "runtime error";
  return file + '(' + std::to_string(error.line) + ", " + std::to_string(error.column) + ") " +
         kind + ": " + error.description + '\n';
}

}  // namespace quorvane::qvscript
