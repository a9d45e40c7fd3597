#include <gtest/gtest.h>
#include <windows.h>
// After it.
#include <psapi.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

namespace quorvane {

namespace {

constinit thread_local int seven = 7;
constinit thread_local int zero = 0;

struct alignas(64) Wide {
  std::array<char, 64> bytes{};
};
thread_local Wide wide;

TEST(ThreadVariablesTest, EveryThreadStartsWithTheInitialValues) {
  seven = 8;
  zero = 1;
  for (int i = 0; i < 3; ++i) {
    std::thread([] {
      EXPECT_EQ(seven, 7);
      EXPECT_EQ(zero, 0);
      seven = 9;
      zero = 2;
    }).join();
  }
  EXPECT_EQ(seven, 8);
  EXPECT_EQ(zero, 1);
}

TEST(ThreadVariablesTest, KeepsAlignments) {
  std::thread([] { EXPECT_EQ(reinterpret_cast<std::uintptr_t>(&wide) % 64, 0u); }).join();
}

TEST(ThreadVariablesTest, ManyThreadsMayUseAVariableFirst) {
  static constinit thread_local int mine = 5;
  std::atomic<int> wrong{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < 20; ++i) {
    threads.emplace_back([&wrong, i] {
      mine += i;
      ::Sleep(1);
      if (mine != 5 + i) ++wrong;
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
}

std::string said;

/// Uses at its end what was used later than itself.
struct LastWords {
  ~LastWords();
};
thread_local LastWords lastWords;
constinit thread_local std::int64_t afterwards = 0;

LastWords::~LastWords() {
  said += std::to_string(afterwards);
}

TEST(ThreadVariablesTest, ADestructorFindsWhatTheThreadHadLeft) {
  said.clear();
  std::thread([] {
    static_cast<void>(&lastWords);
    afterwards = 42;
  }).join();
  EXPECT_EQ(said, "42");
}

TEST(ThreadVariablesTest, LeaveTheLastErrorOfTheSystemAlone) {
  static constinit thread_local int fresh = 3;
  std::thread([] {
    ::SetLastError(ERROR_FILE_NOT_FOUND);
    const int read = fresh;
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(read, 3);
  }).join();
}

std::size_t memoryInUse() {
  PROCESS_MEMORY_COUNTERS counters{};
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

TEST(ThreadVariablesTest, AThreadLeavesNoMemoryBehind) {
  struct Large {
    std::array<char, 20000> bytes{};
  };
  static constinit thread_local Large large;
  const auto live = [] {
    large.bytes[1] = 1;
    const std::vector<std::string> texts(10, std::string(10000, 'x'));
    EXPECT_EQ(texts.back().size(), 10000u);
  };
  const auto run = [&] {
    for (int i = 0; i < 500; ++i) std::thread(live).join();
  };
  run();
  const std::size_t before = memoryInUse();
  run();
  EXPECT_LT(memoryInUse(), before + (std::size_t{4} << 20));
}

}  // namespace

}  // namespace quorvane
