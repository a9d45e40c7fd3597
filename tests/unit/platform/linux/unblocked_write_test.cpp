#include "platform/linux/unblocked_write.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <string>

namespace quorvane {

namespace {

class UnblockedWrite : public testing::Test {
 protected:
  UnblockedWrite() {
    std::signal(SIGPIPE, SIG_IGN);
    EXPECT_EQ(::pipe2(ends_.data(), O_CLOEXEC), 0);
  }
  ~UnblockedWrite() override {
    closeReader();
    ::close(writer());
  }
  UnblockedWrite(const UnblockedWrite&) = delete;
  UnblockedWrite& operator=(const UnblockedWrite&) = delete;

  int writer() const { return ends_[1]; }
  std::string read() const {
    std::string bytes(std::size_t{1} << 20, '\0');
    bytes.resize(static_cast<std::size_t>(::read(ends_[0], bytes.data(), bytes.size())));
    return bytes;
  }
  void closeReader() {
    if (ends_[0] >= 0) ::close(ends_[0]);
    ends_[0] = -1;
  }

 private:
  std::array<int, 2> ends_{-1, -1};
};

TEST_F(UnblockedWrite, WritesWhatIsTakenAtOnce) {
  EXPECT_EQ(writeUnblocked(writer(), "abc"), 3U);
  EXPECT_EQ(read(), "abc");
  const std::string much(std::size_t{1} << 20, 'x');
  const std::size_t taken = writeUnblocked(writer(), much);
  EXPECT_GT(taken, 0U);
  EXPECT_LT(taken, much.size());
  EXPECT_EQ(writeUnblocked(writer(), much), 0U);
  EXPECT_EQ(read(), much.substr(0, taken));
}

TEST_F(UnblockedWrite, LeavesTheModeAsItWas) {
  const int before = ::fcntl(writer(), F_GETFL);
  writeUnblocked(writer(), "abc");
  EXPECT_EQ(::fcntl(writer(), F_GETFL), before);
}

TEST_F(UnblockedWrite, IsDoneWithWhatNobodyWillRead) {
  closeReader();
  EXPECT_EQ(writeUnblocked(writer(), "abc"), 3U);
  EXPECT_EQ(writeUnblocked(-1, "abc"), 3U);
}

TEST_F(UnblockedWrite, PatienceHasAnEnd) {
  const std::string much(std::size_t{1} << 20, 'x');
  const auto begun = std::chrono::steady_clock::now();
  writePatiently(writer(), much, 50);
  const auto passed = std::chrono::steady_clock::now() - begun;
  EXPECT_GE(passed, std::chrono::milliseconds(45));
  EXPECT_LT(passed, std::chrono::seconds(5));
}

}  // namespace

}  // namespace quorvane
