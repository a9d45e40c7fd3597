#include "platform/child_process.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "platform/system.h"

namespace quorvane {

namespace {

using Output = ChildProcess::Output;

constexpr int kPatience = 10'000;

std::string everything(ChildProcess& program, Output from) {
  std::string text;
  std::array<char, 100> block{};
  for (;;) {
    const auto count = program.read(from, block.data(), block.size(), kPatience);
    if (!count.value_or(0)) return text;
    text.append(block.data(), *count);
  }
}

TEST(ChildProcessTest, StreamsLeadToItAndItsStatusIsTold) {
  const auto process = makeProcess(0, nullptr);
  const auto program =
      process->start({{"cmd", "/v:on", "/c", "set /p a=&echo got !a!&echo bad 1>&2&exit 3"}, true});
  ASSERT_TRUE(program);
  EXPECT_EQ(program->write("text\r\n", kPatience), 6U);
  program->closeInput();
  EXPECT_EQ(everything(*program, Output::Standard), "got text\r\n");
  EXPECT_EQ(everything(*program, Output::Error).substr(0, 3), "bad");
  EXPECT_EQ(program->exitStatus(kPatience), 3);
  EXPECT_EQ(program->exitStatus(0), 3);
}

TEST(ChildProcessTest, NothingButItsStreamsIsItsOwn) {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  HANDLE reader = nullptr;
  HANDLE writer = nullptr;
  ASSERT_TRUE(::CreatePipe(&reader, &writer, &inheritable, 0));
  const auto process = makeProcess(0, nullptr);
  const auto waiting = process->start({{"cmd", "/c", "pause"}, true});
  ASSERT_TRUE(waiting);
  ::CloseHandle(writer);
  // Without a writer left anywhere there is an end; with one, this waits.
  DWORD count = 0;
  EXPECT_FALSE(::PeekNamedPipe(reader, nullptr, 0, nullptr, &count, nullptr));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_BROKEN_PIPE});
  EXPECT_FALSE(waiting->exitStatus(0));
  waiting->terminate();
  EXPECT_TRUE(waiting->exitStatus(kPatience));
  ::CloseHandle(reader);
}

}  // namespace

}  // namespace quorvane
