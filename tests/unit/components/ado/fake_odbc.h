#pragma once

#include <atomic>
#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "components/ado/odbc/session.h"

namespace quorvane::ado {

/// What a fake driver answers a statement with.
struct FakeAnswer {
  std::vector<OdbcColumn> columns;
  std::vector<std::vector<OdbcCell>> rows;
  std::int64_t affected = -1;
  std::vector<OdbcRecord> failure;
};

/// What a test tells the driver, and what it asks it afterwards. Outlives the session.
struct FakeDriver {
  OdbcNature nature;
  std::deque<FakeAnswer> answers;  ///< in their order
  std::vector<std::u16string> keys;
  std::vector<std::u16string> sent;
  std::vector<std::vector<OdbcCell>> given;
  std::size_t fetched = 0;
  int begun = 0;
  std::vector<bool> ended;
  std::chrono::milliseconds takes{0};  ///< each statement
  bool heedsCancel = true;
  std::atomic<bool> cancelled{false};
  std::atomic<bool> gone{false};  ///< the session has ended
};

class FakeStatement final : public OdbcStatement {
 public:
  explicit FakeStatement(FakeDriver& driver) : driver_(driver) {}

  void execute(const std::u16string& text, const std::vector<OdbcCell>& parameters) override {
    const auto end = std::chrono::steady_clock::now() + driver_.takes;
    while (std::chrono::steady_clock::now() < end) {
      if (driver_.cancelled && driver_.heedsCancel) {
        throw OdbcFailure{{{u"57014", 1, u"cancelled"}}};
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    driver_.sent.push_back(text);
    driver_.given.push_back(parameters);
    next();
  }
  void list(OdbcList what, const std::u16string&, const std::u16string&) override {
    answer_ = {};
    if (what != OdbcList::PrimaryKeys) return;
    answer_.columns.resize(4);
    for (const std::u16string& key : driver_.keys) {
      answer_.rows.push_back({OdbcCell(), OdbcCell(), OdbcCell(), key});
    }
  }
  std::vector<OdbcColumn> columns(bool) override { return answer_.columns; }
  std::int64_t affected() override { return answer_.affected; }
  bool fetch(std::vector<OdbcCell>& row, std::size_t) override {
    if (answer_.rows.empty()) return false;
    row = answer_.rows.front();
    answer_.rows.erase(answer_.rows.begin());
    ++driver_.fetched;
    return true;
  }
  bool nextResult() override {
    if (driver_.answers.empty()) return false;
    next();
    return true;
  }

 private:
  void next() {
    answer_ = {};
    if (driver_.answers.empty()) return;
    answer_ = std::move(driver_.answers.front());
    driver_.answers.pop_front();
    if (!answer_.failure.empty()) throw OdbcFailure{answer_.failure};
  }

  FakeDriver& driver_;
  FakeAnswer answer_;
};

class FakeSession final : public OdbcSession {
 public:
  explicit FakeSession(FakeDriver& driver) : driver_(driver) {}
  ~FakeSession() override { driver_.gone = true; }
  FakeSession(const FakeSession&) = delete;
  FakeSession& operator=(const FakeSession&) = delete;

  void connect(const std::u16string& text, std::int32_t) override { driver_.sent.push_back(text); }
  OdbcNature nature() override { return driver_.nature; }
  std::unique_ptr<OdbcStatement> statement() override {
    return std::make_unique<FakeStatement>(driver_);
  }
  void begin() override { ++driver_.begun; }
  void end(bool commit) override { driver_.ended.push_back(commit); }
  void cancel() noexcept override { driver_.cancelled = true; }

 private:
  FakeDriver& driver_;
};

}  // namespace quorvane::ado
