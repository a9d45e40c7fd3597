#include "console/form_model.h"

#include <utility>

namespace quorvane {

void ListModel::add(std::string line) {
  lines_.push_back(std::move(line));
  if (most_ == 0 || lines_.size() <= most_) return;
  lines_.pop_front();
  ++dropped_;
  if (selected_ >= 0) --selected_;
}

void ListModel::clear() {
  lines_.clear();
  selected_ = -1;
  dropped_ = 0;
}

void ListModel::select(int line) {
  selected_ = line >= 0 && line < static_cast<int>(lines_.size()) ? line : -1;
}

std::vector<FormControl*> FormModel::controls() {
  std::vector<FormControl*> all{&dbgText};
  for (FormControl& label : Label1) all.push_back(&label);
  for (FormControl& button : btt) all.push_back(&button);
  return all;
}

}  // namespace quorvane
