#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/process.h"
#include "platform/random.h"
#include "support/status_lines.h"

class RecordedLines final : public StatusLines {
 public:
  void LogLine(std::string_view text) override { lines.emplace_back(text); }

  std::vector<std::string> lines;
};

/// Fractions in turn, the last one again and again; GUIDs that count up.
class ScriptedRandom final : public Random {
 public:
  std::deque<double> fractions{0.5};
  std::uint8_t guids = 0;

  double fraction() override {
    const double next = fractions.front();
    if (fractions.size() > 1) fractions.pop_front();
    return next;
  }
  std::array<std::uint8_t, 16> guid() override {
    return {0x0A, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, ++guids};
  }
};

/// A process whose system has the folders named.
class FakeProcess final : public Process {
 public:
  std::set<std::string> folders;
  std::string current = "/";

  std::string commandLine() const override { return {}; }
  std::string programFolder() const override { return "/"; }
  std::string currentFolder() const override { return current; }
  bool setCurrentFolder(const std::string& folder) override {
    std::string path = folder.starts_with('/') ? folder : current + '/' + folder;
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    if (!folders.contains(path)) return false;
    current = path;
    return true;
  }
  bool userIsAdmin() const override { return false; }
  HostVersion hostVersion() const override { return {}; }
};
