#include "startup/SysInfo.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace quorvane {

namespace {

struct Case {
  HostVersion version;
  const char* code;
  const char* name;
  const char* platform;
};

TEST(SysInfoTest, EverySystemHasItsCodeAndName) {
  const Case cases[] = {
      {{0, 1, 30, 0, ""}, "WIN32", "Windows 32", "Win32"},
      {{1, 4, 0, 950, ""}, "WIN95", "Windows 95", "Win9xME"},
      {{1, 4, 10, 1961, ""}, "WIN98_BETA", "Windows 98 Beta", "Win9xME"},
      {{1, 4, 10, 1998, ""}, "WIN98", "Windows 98", "Win9xME"},
      {{1, 4, 10, 2222, ""}, "WIN98", "Windows 98", "Win9xME"},
      {{1, 4, 90, 3000, ""}, "WINME", "Windows Millenium Edition", "Win9xME"},
      {{1, 4, 3, 1, ""}, "", "", "Win9xME"},
      {{2, 3, 51, 1057, ""}, "WINNT", "Windows NT", "WinNT"},
      {{2, 4, 0, 1381, ""}, "WINNT", "Windows NT", "WinNT"},
      {{2, 5, 0, 2195, ""}, "WIN2000", "Windows 2000", "WinNT"},
      {{2, 5, 1, 2600, ""}, "WINXP", "Windows XP", "WinNT"},
      {{2, 5, 2, 3790, ""}, "WIN2003", "Windows 2003", "WinNT"},
      {{2, 5, 3, 1, ""}, "", "", "WinNT"},
      {{2, 6, 0, 6000, ""}, "WINVISTA", "Windows Vista", "WinNT"},
      {{2, 6, 3, 9600, ""}, "WINVISTA", "Windows Vista", "WinNT"},
      {{2, 10, 0, 19045, ""}, "???", "???", "WinNT"},
      {{3, 5, 0, 1, ""}, "", "", ""},
  };
  for (const Case& c : cases) {
    const SystemRecord record = describeSystem(c.version);
    EXPECT_EQ(record.code, c.code) << record.version;
    EXPECT_EQ(record.name, c.name) << record.version;
    EXPECT_EQ(record.platform, c.platform) << record.version;
  }
}

TEST(SysInfoTest, VersionAndServicePack) {
  const SystemRecord record =
      describeSystem({2, 5, 1, 2600, std::string("Service Pack 2\0rubbish", 22)});
  EXPECT_EQ(record.version, "5.1.2600");
  EXPECT_EQ(record.servicePack, "Service Pack 2");
  EXPECT_EQ(describeSystem({}).servicePack, "");
}

TEST(SysInfoTest, RightsAreAskedForOnlyWhereThereAreAny) {
  FakeProcess process;
  process.admin = false;
  EXPECT_FALSE(SysInfo(process).IsUserAdmin(true));
  process.admin = true;
  EXPECT_TRUE(SysInfo(process).IsUserAdmin(false));
  process.version.platform = 1;
  process.admin = false;
  EXPECT_TRUE(SysInfo(process).IsUserAdmin(true));
  EXPECT_FALSE(SysInfo(process).IsUserAdmin(false));
}

TEST(SysInfoTest, TheFirstAnswerOnThePlatformStays) {
  FakeProcess process;
  const SysInfo system(process);
  EXPECT_TRUE(system.isNT());
  process.version.platform = 1;
  EXPECT_TRUE(system.isNT());
  EXPECT_EQ(process.versionQueries, 1);
}

}  // namespace

}  // namespace quorvane
