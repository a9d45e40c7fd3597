#include "vbscript/compile/program.h"

namespace quorvane::vbs {

void GlobalNames::add(const Program& program) {
  if (!first_) {
    first_ = &program;
  } else {
    for (const auto& [name, symbol] : program.globals) later_[name] = &symbol;
  }
}

const GlobalSymbol* GlobalNames::find(std::string_view lower) const {
  if (const auto found = later_.find(lower); found != later_.end()) return found->second;
  if (!first_) return nullptr;
  const auto found = first_->globals.find(lower);
  return found == first_->globals.end() ? nullptr : &found->second;
}

}  // namespace quorvane::vbs
