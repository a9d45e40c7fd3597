#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// What the server window holds, apart from how it is drawn: a terminal or a real window reads
/// this model and draws it, and tells the window's owner what the user clicked.

/// A list of lines, the newest last. Where it has a bound, of lines and of bytes in them, the
/// oldest lines make room; a line that is longer than all of it is cut.
class ListModel {
 public:
  struct Bound {
    std::size_t lines;
    std::size_t bytes;
  };
  ListModel() = default;
  explicit ListModel(const Bound& bound) : bound_(bound) {}

  void add(std::string line);
  void clear();

  const std::deque<std::string>& lines() const { return lines_; }
  int selected() const { return selected_; }  ///< -1: none
  void select(int line);

  /// Lines dropped at the front since the last clear; a view keeps its place by it.
  std::size_t dropped() const { return dropped_; }
  std::size_t clears() const { return clears_; }  ///< how often it was cleared

 private:
  void dropFirst();

  std::optional<Bound> bound_;
  std::deque<std::string> lines_;
  std::size_t bytes_ = 0;
  int selected_ = -1;
  std::size_t dropped_ = 0;
  std::size_t clears_ = 0;
};

/// A control as language tables see it: its name, its index in a control array or -1, and the
/// texts it has.
struct FormControl {
  std::string name;
  int index = -1;
  std::optional<std::string> caption;
  std::optional<std::string> text;
  std::optional<std::string> toolTip;
};

class FormModel {
 public:
  enum List { kStatus = 0, kSockets = 1, kSessions = 2 };
  /// The label that captions each list.
  static constexpr std::array<std::size_t, 3> kLabelOfList = {2, 0, 1};
  enum Button { kStartStop = 0, kClearLog = 1 };

  const std::string name = "mainForm";
  std::string caption = "Quorvane Server";
  bool visible = false;

  std::array<ListModel, 3> llist{ListModel(kMostStatus), ListModel(), ListModel()};
  FormControl dbgText{"dbgText", -1, std::nullopt, "", ""};
  std::array<FormControl, 3> Label1{FormControl{"Label1", 0, "Sockets", std::nullopt, ""},
                                    FormControl{"Label1", 1, "Sessions", std::nullopt, ""},
                                    FormControl{"Label1", 2, "Log", std::nullopt, ""}};
  std::array<FormControl, 2> btt{FormControl{"btt", 0, "Start/Stop", std::nullopt, ""},
                                 FormControl{"btt", 1, "Clear Log", std::nullopt, ""}};

  /// Asks whether the key that closes the window was meant.
  FormControl closing{"closing", -1, "Press q again to end the server", std::nullopt, std::nullopt};

  /// What a list offers to do with the chosen lines, or with all of them.
  FormControl copying{"copying", -1, "Copy", std::nullopt, std::nullopt};
  FormControl copyingAll{"copyingAll", -1, "Copy All", std::nullopt, std::nullopt};

  /// Every control that has texts, in a fixed order.
  std::vector<FormControl*> controls();

  /// Called after a change; may be called often, so a view only notes it. May be empty.
  std::function<void()> onChange;
  void changed() const {
    if (onChange) onChange();
  }

 private:
  static constexpr ListModel::Bound kMostStatus{10'000, std::size_t{8} << 20};
};

}  // namespace quorvane
