#include "console/window_view.h"

#include <utility>

namespace quorvane {

namespace {

/// As often as a person can read what has changed.
constexpr std::chrono::milliseconds kFrameInterval{100};

ServerWindowTexts textsOf(const FormModel& form) {
  const auto part = [](const FormControl& control) {
    return ServerWindowTexts::Part{control.caption.value_or(""), control.toolTip.value_or("")};
  };
  ServerWindowTexts texts;
  texts.title = form.caption;
  for (std::size_t list = 0; list < texts.lists.size(); ++list) {
    texts.lists[list] = part(form.Label1[FormModel::kLabelOfList[list]]);
  }
  for (std::size_t button = 0; button < texts.buttons.size(); ++button) {
    texts.buttons[button] = part(form.btt[button]);
  }
  texts.textToolTip = form.dbgText.toolTip.value_or("");
  texts.copy = form.copying.caption.value_or("");
  texts.copyAll = form.copyingAll.caption.value_or("");
  return texts;
}

}  // namespace

WindowView::WindowView(FormModel& form, ServerWindow* window, EventLoop& loop, WindowServer server)
    : form_(form),
      window_(window),
      server_(std::move(server)),
      before_(form.onChange),
      frames_(loop, kFrameInterval, [this] { return paint(); }) {
  if (window_) form_.onChange = [this] { formChanged(); };
}

WindowView::~WindowView() {
  form_.onChange = before_;
  if (window_) window_->close();
}

void WindowView::formChanged() {
  if (window_ && !open_) open_ = window_->open(*this, {true, false, false});
  if (!open_) {
    window_ = nullptr;
    if (before_) before_();
    return;
  }
  frames_.request();
}

bool WindowView::paint() {
  if (!window_->isReady()) return false;
  collect();
  ServerWindowPicture picture;
  picture.visible = form_.visible;
  picture.texts = textsOf(form_);
  picture.text = form_.dbgText.text.value_or("");
  for (std::size_t list = 0; list < changes_.size(); ++list) {
    picture.lists[list] = changes_[list].take();
  }
  window_->show(std::move(picture));
  return true;
}

void WindowView::collect() {
  for (std::size_t list = 0; list < changes_.size(); ++list) {
    changes_[list].collect(form_.llist[list]);
  }
}

/// The list may have moved on since the click.
void WindowView::lineClicked(int list, std::size_t number) {
  if (list != FormModel::kStatus) return;
  collect();
  if (const auto line = changes_[FormModel::kStatus].placeOf(number)) {
    server_.clickStatusLine(*line);
  }
}

}  // namespace quorvane
