#include "console/console_language.h"

#include <optional>
#include <vector>

#include "support/language_form.h"

namespace quorvane {

namespace {

class ControlTexts final : public LanguageControl {
 public:
  explicit ControlTexts(FormControl& control) : control_(control) {}

  std::string name() const override { return control_.name; }
  std::optional<int> index() const override {
    return control_.index < 0 ? std::nullopt : std::optional(control_.index);
  }
  TextRange range(TextPlace place) const override {
    const std::optional<std::string>* held = find(place);
    return {0, held && *held ? 1 : 0};
  }
  std::string text(TextPlace place, int) const override {
    const std::optional<std::string>* held = find(place);
    return held ? held->value_or("") : "";
  }
  void setText(TextPlace place, int, const std::string& text) override {
    std::optional<std::string>* held = find(place);
    if (held && *held) *held = text;
  }

 private:
  /// Null for the kinds of text that no control here has.
  std::optional<std::string>* find(TextPlace place) const {
    switch (place) {
      case TextPlace::Caption:
        return &control_.caption;
      case TextPlace::Text:
        return &control_.text;
      case TextPlace::ToolTipText:
        return &control_.toolTip;
      case TextPlace::Tabs:
      case TextPlace::TabCaption:
      case TextPlace::ColumnHeaders:
        break;
    }
    return nullptr;
  }

  FormControl& control_;
};

class FormTexts final : public LanguageForm {
 public:
  explicit FormTexts(FormModel& form) : form_(form) {
    for (FormControl* control : form.controls()) controls_.emplace_back(*control);
  }

  std::string name() const override { return form_.name; }
  std::string caption() const override { return form_.caption; }
  void setCaption(const std::string& caption) override { form_.caption = caption; }
  std::size_t controlCount() const override { return controls_.size(); }
  LanguageControl& control(std::size_t place) override { return controls_[place]; }

 private:
  FormModel& form_;
  std::vector<ControlTexts> controls_;
};

}  // namespace

std::int32_t ConsoleLanguage::choose(const std::string& folder, std::int32_t wanted,
                                     FormModel& form) {
  mui_.setLangFolder(folder);
  mui_.setLCID(wanted);
  FormTexts texts(form);
  mui_.SetFormLang(texts);
  form.changed();
  return mui_.LCID();
}

}  // namespace quorvane
