#include "vbscript/machine/error_report.h"

#include <algorithm>

#include "vbscript/machine/err_object.h"

namespace quorvane::vbs {

namespace {

std::string lineOf(std::string_view source, std::uint32_t line) {
  std::size_t start = 0;
  for (std::uint32_t i = 1; i < line && start < source.size(); ++i) {
    const std::size_t end = source.find('\n', start);
    if (end == std::string_view::npos) return {};
    start = end + 1;
  }
  const std::size_t end = std::min(source.find_first_of("\r\n", start), source.size());
  return std::string(source.substr(start, end - start));
}

}  // namespace

ErrorReport compileErrorReport(const CompileError& error, std::string_view source) {
  ErrorReport report;
  report.number = error.number;
  report.description = error.description;
  report.source = defaultErrorSource(error.number);
  report.line = error.position.line;
  report.column = error.position.column;
  report.sourceLine = lineOf(source, error.position.line);
  report.isCompileError = true;
  return report;
}

}  // namespace quorvane::vbs
