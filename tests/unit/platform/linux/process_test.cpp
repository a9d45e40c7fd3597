#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/system.h"
#include "testing/temporary_folder.h"

namespace quorvane {

namespace {

TEST(InstanceLockTest, AProcessThatDiesLetsGo) {
  const TemporaryFolder folder;
  const pid_t child = ::fork();
  if (child == 0) {
    auto held = makeInstanceLock(folder.path());
    const bool got = held->acquire();
    held.release();  // NOLINT: the death of the process is to free it
    ::_exit(got ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_TRUE(makeInstanceLock(folder.path())->acquire());
}

TEST(SettingsRootTest, TheVariableWins) {
  ::setenv("QUORVANE_REGISTRY", "/somewhere", 1);
  EXPECT_EQ(settingsRoot(), "/somewhere");
  ::unsetenv("QUORVANE_REGISTRY");
  EXPECT_FALSE(settingsRoot().empty());
}

}  // namespace

}  // namespace quorvane
