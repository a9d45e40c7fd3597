#include "console/form_model.h"

#include <utility>

namespace quorvane {

void ListModel::add(std::string line) {
  if (bound_ && line.size() > bound_->bytes) line.resize(bound_->bytes);
  bytes_ += line.size();
  lines_.push_back(std::move(line));
  while (bound_ && (lines_.size() > bound_->lines || bytes_ > bound_->bytes)) dropFirst();
}

void ListModel::dropFirst() {
  bytes_ -= lines_.front().size();
  lines_.pop_front();
  ++dropped_;
  if (selected_ >= 0) --selected_;
}

void ListModel::clear() {
  lines_.clear();
  bytes_ = 0;
  selected_ = -1;
  dropped_ = 0;
  ++clears_;
}

void ListModel::select(int line) {
  selected_ = line >= 0 && line < static_cast<int>(lines_.size()) ? line : -1;
}

std::vector<FormControl*> FormModel::controls() {
  std::vector<FormControl*> all{&dbgText};
  for (FormControl& label : Label1) all.push_back(&label);
  for (FormControl& button : btt) all.push_back(&button);
  for (FormControl* words : {&closing, &copying, &copyingAll}) all.push_back(words);
  return all;
}

}  // namespace quorvane
