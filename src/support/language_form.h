#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace quorvane {

/// What language tables need to know of a form: its name and caption, and its controls with the
/// texts that can be put into another language. Whoever owns a form implements these.

/// The kinds of text that a control can have.
enum class TextPlace {
  Caption,
  Text,
  ToolTipText,
  Tabs,           ///< a tab strip's captions
  TabCaption,     ///< a tabbed dialog's captions
  ColumnHeaders,  ///< a list's column headers
};

/// The texts of one kind, numbered as the control numbers them.
struct TextRange {
  int first = 0;
  int count = 0;  ///< 0 when the control has no such text; 1 for Caption, Text and ToolTipText
};

class LanguageControl {
 public:
  virtual ~LanguageControl() = default;

  virtual std::string name() const = 0;
  virtual std::optional<int> index() const = 0;  ///< given for members of a control array

  virtual TextRange range(TextPlace place) const = 0;
  virtual std::string text(TextPlace place, int number) const = 0;
  virtual void setText(TextPlace place, int number, const std::string& text) = 0;
};

class LanguageForm {
 public:
  virtual ~LanguageForm() = default;

  virtual std::string name() const = 0;
  virtual std::string caption() const = 0;
  virtual void setCaption(const std::string& caption) = 0;

  virtual std::size_t controlCount() const = 0;
  /// Valid while the form is.
  virtual LanguageControl& control(std::size_t place) = 0;
};

}  // namespace quorvane
