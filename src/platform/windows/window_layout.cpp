#include "platform/windows/window_layout.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr int kMargin = 8;
constexpr int kLabelGap = 3;
constexpr int kFrame = 6;  ///< of a box around lines, above and below together
constexpr int kButtonPadding = 24;
constexpr int kLeastButton = 88;
constexpr int kTextLines = 4;
constexpr int kLeastUpperLines = 3;
constexpr int kLeastLines = 5;
constexpr int kUpperShare = 30;  ///< percent of what the lists have

struct Sizes {
  explicit Sizes(const WindowStyle& s)
      : margin(s.pixels(kMargin)),
        label(s.lineHeight() + s.pixels(kLabelGap)),
        text(kTextLines * s.lineHeight() + s.pixels(kFrame)),
        button(s.lineHeight() + s.pixels(kMargin + kLabelGap)),
        leastUpper(kLeastUpperLines * s.lineHeight() + s.pixels(kFrame)),
        leastList(kLeastLines * s.lineHeight() + s.pixels(kFrame)) {}

  int aroundLists() const { return 5 * margin + 2 * label + text + button; }

  int margin;
  int label;
  int text;
  int button;
  int leastUpper;
  int leastList;
};

RECT box(int left, int top, int width, int height) {
  return {left, top, left + std::max(width, 0), top + std::max(height, 0)};
}

}  // namespace

WindowLayout layoutFor(const WindowLayoutWishes& wishes, const WindowStyle& style) {
  const Sizes sizes(style);
  const int width = wishes.room.cx - 2 * sizes.margin;
  const int forLists = wishes.room.cy - sizes.aroundLists();
  const int upper = std::max(forLists * kUpperShare / 100, sizes.leastUpper);
  const int half = (width - sizes.margin) / 2;
  const int right = 2 * sizes.margin + half;

  WindowLayout layout;
  int top = sizes.margin;
  layout.labels[1] = box(sizes.margin, top, half, sizes.label);
  layout.labels[2] = box(right, top, width - half - sizes.margin, sizes.label);
  top += sizes.label;
  layout.lists[1] = box(sizes.margin, top, half, upper);
  layout.lists[2] = box(right, top, width - half - sizes.margin, upper);
  top += upper + sizes.margin;
  layout.labels[0] = box(sizes.margin, top, width, sizes.label);
  top += sizes.label;
  layout.lists[0] = box(sizes.margin, top, width, forLists - upper);
  top += forLists - upper + sizes.margin;
  layout.text = box(sizes.margin, top, width, sizes.text);
  top += sizes.text + sizes.margin;

  int end = wishes.room.cx - sizes.margin;
  for (std::size_t i = layout.buttons.size(); i-- > 0;) {
    const int own =
        std::max(wishes.buttonWidths[i] + style.pixels(kButtonPadding), style.pixels(kLeastButton));
    layout.buttons[i] = box(end - own, top, own, sizes.button);
    end -= own + sizes.margin;
  }
  return layout;
}

SIZE leastRoom(const WindowStyle& style) {
  constexpr int kLeastWidth = 380;
  const Sizes sizes(style);
  return {style.pixels(kLeastWidth), sizes.aroundLists() + sizes.leastUpper + sizes.leastList};
}

}  // namespace quorvane
